#pragma once

#include <cstdint>
#include <vector>

#include "hosting/WidgetExplanation.h"

namespace kelmora {

class FrameContainer;
class FrameProxy;

// Explains the state of a frame's widgets from what its rules recorded as
// they ran: for each widget the last rule row that acted on it (the format
// it was registered for, the trigger, the value read, the condition that
// decided, the command), or that none did. It only reads: no traced
// procedure, no call of the host, nothing changed.
class RuleExplainer {
 public:
  // Every widget of the frame of `whichType` (the type shown when -1), in
  // the order of the frame's registry. Nothing when the container has no
  // such frame yet.
  static std::vector<WidgetExplanation> explain(const FrameContainer& container,
                                                int16_t whichType = -1);
  // One widget of a proxy's registry, by overall index.
  static WidgetExplanation explain(const FrameProxy& proxy, int16_t overallIndex);
};

}  // namespace kelmora
