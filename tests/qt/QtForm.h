#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "host/Kit.h"
#include "host/RecordingSink.h"
#include "host/ToolHost.h"
#include "qt/FormView.h"

class QWidget;

namespace kelmora {
class Widget;
}

namespace kelmora::tools::testing {

// The test host with the frame of one reference type in one format family,
// all fields shown, and, when asked, the form in a shown and active Qt
// window. What happened before the form is ready is not recorded.
class QtForm {
 public:
  QtForm(int16_t whichType, int32_t family, bool window);
  ~QtForm();
  QtForm(const QtForm&) = delete;
  QtForm& operator=(const QtForm&) = delete;

  std::shared_ptr<Widget> widget(const std::string& ref) const;
  // The Qt counterpart of the widget a scenario would name so.
  QWidget* qtWidget(const std::string& ref) const;
  // The events since the form was ready.
  std::vector<Json> events() const;

  RecordingSink sink;
  ToolHost host;
  std::unique_ptr<qt::FormView> view;
  std::vector<std::string> failures;

 private:
  size_t mReady = 0;
};

}  // namespace kelmora::tools::testing
