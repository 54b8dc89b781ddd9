#pragma once

#include <iosfwd>

#include "host/EventSink.h"

namespace kelmora::tools {

// The demo's view of events: one indented line per call, arrows showing
// which way it goes, arguments as a reader would write them.
//   -> SetVisibleFrame(1)
//   <- widgetChangeHandler(isKeyField=False, Index=5, value="10.1/x", ...)
class ReadableSink : public EventSink {
 public:
  explicit ReadableSink(std::ostream& out) : mOut(out) {}
  void emit(const Json& event) override;

  // A JSON value as it reads in a call: texts quoted, booleans as the
  // library spells them, nothing as Nothing.
  static std::string describe(const Json& value);
  // A failure report in one line: its number, where it happened and its
  // description.
  static std::string describeFailure(const Json& failure);

 private:
  std::ostream& mOut;
};

}  // namespace kelmora::tools
