#pragma once

#include <string>
#include <vector>

#include "host/EventSink.h"

namespace kelmora::tools {

// Keeps every event, for a command that prints only a summary.
class RecordingSink : public EventSink {
 public:
  void emit(const Json& event) override { mEvents.push_back(event); }

  const std::vector<Json>& events() const { return mEvents; }
  // The events of one kind, such as "failure" or "messageBox".
  int count(const std::string& kind) const;

 private:
  std::vector<Json> mEvents;
};

}  // namespace kelmora::tools
