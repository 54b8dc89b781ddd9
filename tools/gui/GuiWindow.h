#pragma once

#include <QWidget>

#include <cstdint>
#include <map>
#include <memory>

#include "host/Kit.h"

class QCheckBox;
class QComboBox;
class QPlainTextEdit;
class QPushButton;
class QSpinBox;

namespace kelmora::qt {
class FormView;
}

namespace kelmora::tools {

class LogSink;
class ToolHost;

// The window of `kelmora gui`: the host's form with the frame container in
// a real window, a host panel (reference type, format family, show all,
// the book or website option of a NonPeriodical, an example reference to
// load, reset) and the live log of every call between host and library.
// The panel's calls go to the library as a host's would and are logged
// with their failures.
class GuiWindow : public QWidget {
 public:
  GuiWindow(ToolHost& host, LogSink& log);
  ~GuiWindow() override;
  GuiWindow(const GuiWindow&) = delete;
  GuiWindow& operator=(const GuiWindow&) = delete;

  qt::FormView& form() const { return *mForm; }
  // Shows the frame the panel names, as the panel's own changes do.
  void showChosenFrame();

 private:
  int16_t chosenType() const;
  template <typename Call>
  void call(const char* name, Json args, Call&& body);
  void loadExample();
  void reset();
  void note(const std::string& line);

  ToolHost& mHost;
  LogSink& mLog;
  qt::FormView* mForm = nullptr;
  QComboBox* mType = nullptr;
  QSpinBox* mFamily = nullptr;
  QCheckBox* mShowAll = nullptr;
  QComboBox* mOption = nullptr;
  QPushButton* mExample = nullptr;
  QPlainTextEdit* mLogView = nullptr;
  // The format family each reference type's rules were last set up for: a
  // type shown again under another family is told the format changed.
  std::map<int16_t, int32_t> mFamilyOf;
};

}  // namespace kelmora::tools
