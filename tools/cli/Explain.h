#pragma once

#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>

namespace kelmora::tools {

struct FormSetup;

// `kelmora explain` and `kelmora fields`: why a form's widgets stand as
// they do, and which fields a format shows at all.
class Explain {
 public:
  // One row per widget: name, caption, shown, enabled and the reason; or,
  // with `json`, one JSON object per line with every part of the reason.
  static int widgets(const FormSetup& form, bool json, std::ostream& out);
  // Every field of the type's catalogue: key, internal index, caption and
  // role, and with a family whether that format shows it.
  static int fields(int16_t whichType, std::optional<int32_t> family, std::ostream& out);
  // The fields of the type by format families 0 to 3, as a Markdown table.
  static int matrix(int16_t whichType, std::ostream& out);
  static std::string matrixText(int16_t whichType);
};

}  // namespace kelmora::tools
