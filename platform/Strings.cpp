#include "platform/Strings.h"

#include "platform/Variant.h"

namespace kelmora {

std::vector<std::string> Strings::Split(std::string_view text, std::string_view delimiter,
                                        int limit) {
  std::vector<std::string> parts;
  if (text.empty())
    return parts;
  size_t start = 0;
  while (limit < 0 || static_cast<int>(parts.size()) < limit - 1) {
    const size_t found = delimiter.empty() ? std::string_view::npos : text.find(delimiter, start);
    if (found == std::string_view::npos)
      break;
    parts.emplace_back(text.substr(start, found - start));
    start = found + delimiter.size();
  }
  parts.emplace_back(text.substr(start));
  return parts;
}

std::string Strings::Join(const std::vector<std::string>& parts, std::string_view delimiter) {
  std::string joined;
  for (size_t i = 0; i < parts.size(); ++i) {
    if (i > 0)
      joined += delimiter;
    joined += parts[i];
  }
  return joined;
}

bool Strings::IsNumeric(const std::string& text) {
  double number = 0;
  return Variant::parseNumber(text, number);
}

}  // namespace kelmora
