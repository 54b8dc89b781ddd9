#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kelmora {

// The run time's string splitting and joining, with its corner cases: an
// empty text splits into no parts at all, and a limit keeps the rest of the
// text, separators included, in the last part.
class Strings {
 public:
  static std::vector<std::string> Split(std::string_view text, std::string_view delimiter,
                                        int limit = -1);
  static std::string Join(const std::vector<std::string>& parts, std::string_view delimiter);
  // True if the text reads as a number, as the run time's IsNumeric says.
  static bool IsNumeric(const std::string& text);
};

}  // namespace kelmora
