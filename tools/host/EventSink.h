#pragma once

#include "host/Kit.h"

namespace kelmora::tools {

// Where the host tells what happens. Every event is one JSON object whose
// first key names its kind:
//   {"callback": member, "args": {...}}      a call the library made on the host
//   {"messageBox": text}                     a message box the library showed
//   {"failure": {...}}                       a failure report through the bridge
//   {"host": operation, "args": [...]}       a call the host made on the library
//   {"result": operation, "value": ...}      what such a call returned
//   {"failedCall": {...}}                    a call that failed back to the host
//   {"unmet": {...}}                         an expectation that did not hold
//   {"user": sentence}                       what the simulated user does
//   {"stage": title}                         a stage of a scenario begins
class EventSink {
 public:
  virtual ~EventSink() = default;
  virtual void emit(const Json& event) = 0;
};

}  // namespace kelmora::tools
