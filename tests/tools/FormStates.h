#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "surface/CaptionLayout.h"

namespace kelmora {
class UserControl;
}

namespace kelmora::tools {
class ToolHost;
}

namespace kelmora::tools::testing {

// One state a host can put the form in.
struct FormState {
  int16_t whichType;
  int32_t family;
  // The option UpdateFrame selects; -1 where the type has none.
  int16_t option;
  bool showAll;

  std::string describe() const;
};

// Every type, format family 0 to 3, option of the type and show-all state.
std::vector<FormState> allFormStates();

// Puts a fresh host's form in `state` as a host does, and returns the
// frame shown.
UserControl& show(ToolHost& host, const FormState& state);

// What a reader would miss in the captions of the labels shown on `frame`,
// laid out with `measure`: a line drawn past the left or right edge of its
// label or of a frame around it, or a caption of which nothing shows. One
// line per problem; empty when every caption reads whole up to a line
// break.
std::vector<std::string> cutCaptions(const UserControl& frame,
                                     const CaptionLayout::Measure& measure);

}  // namespace kelmora::tools::testing
