#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/Kit.h"

namespace kelmora {
class FrameContainer;
class Main2;
}  // namespace kelmora

namespace kelmora::tools {

// The host's record of one reference and what the form shows of it.
class FieldValues {
 public:
  // The `values` record of a type from JSON: an object of field keys and
  // values over the type's defaults for a new reference (the rest stay
  // empty), or the whole record as an array. Values
  // are texts; true and false become "True" and "False", numbers their
  // text. An unknown key is bad input; `origin` names the source.
  static std::vector<std::string> record(Main2& main, int16_t whichType, const Json& values,
                                         const std::string& origin);

  // The fields of the shown frame that are on screen, top to bottom and
  // left to right: [{"widget": "TextBox(8)", "key": "PeriodicalOnline",
  // "value": "..."}].
  static Json visibleFields(Main2& main, const FrameContainer& container);
};

}  // namespace kelmora::tools
