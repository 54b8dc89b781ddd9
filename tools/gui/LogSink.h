#pragma once

#include <functional>
#include <vector>

#include "host/EventSink.h"

namespace kelmora::tools {

// Where the window hears of every event between host and library, as it
// happens. Events that arrive before anyone listens are kept for the first
// listener.
class LogSink : public EventSink {
 public:
  void emit(const Json& event) override;
  void listen(std::function<void(const Json&)> listener);

 private:
  std::function<void(const Json&)> mListener;
  std::vector<Json> mPending;
};

}  // namespace kelmora::tools
