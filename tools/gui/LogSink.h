#pragma once

#include <functional>
#include <string>

#include "host/EventSink.h"

namespace kelmora::tools {

// The live log of the window: each event in the demo's readable form,
// handed on line by line as it happens. Lines that arrive before anyone
// listens are kept for the first listener.
class LogSink : public EventSink {
 public:
  void emit(const Json& event) override;
  void listen(std::function<void(const std::string&)> listener);

 private:
  std::function<void(const std::string&)> mListener;
  std::string mPending;
};

}  // namespace kelmora::tools
