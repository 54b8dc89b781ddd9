#pragma once

#include <iosfwd>

#include "host/EventSink.h"

namespace kelmora::tools {

// One JSON object per line, for scripts and reviewers: the calls the host
// received, message boxes, failure reports, results, failed calls and unmet
// expectations. The host's own calls and stage titles are left out, since
// the scenario already says them.
class JsonLinesSink : public EventSink {
 public:
  explicit JsonLinesSink(std::ostream& out) : mOut(out) {}
  void emit(const Json& event) override;

 private:
  std::ostream& mOut;
};

}  // namespace kelmora::tools
