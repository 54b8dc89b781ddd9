#include "host/JsonReader.h"

#include <fstream>
#include <iterator>

#include "host/BadInput.h"

namespace kelmora::tools {

Json JsonReader::parse(std::string_view text, const std::string& what) {
  if (text.find('\0') != std::string_view::npos)
    throw BadInput(what + " contains a NUL byte");
  bool tooDeep = false;
  // Deeper values are dropped while they are read, so nothing deep is ever
  // built; the flag turns the drop into a refusal.
  const auto limitDepth = [&tooDeep](int depth, Json::parse_event_t event, Json&) {
    if ((event == Json::parse_event_t::object_start || event == Json::parse_event_t::array_start) &&
        depth >= kMaxDepth) {
      tooDeep = true;
      return false;
    }
    return true;
  };
  Json document = Json::parse(text.begin(), text.end(), limitDepth, false);
  if (tooDeep)
    throw BadInput(what + " is nested more than " + std::to_string(kMaxDepth) + " levels deep");
  if (document.is_discarded())
    throw BadInput(what + " is not valid JSON");
  return document;
}

Json JsonReader::read(const std::filesystem::path& path, const std::string& what) {
  std::error_code error;
  std::ifstream in(path, std::ios::binary);
  if (!std::filesystem::is_regular_file(path, error) || !in)
    throw BadInput("cannot read " + what);
  const std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  if (in.bad())
    throw BadInput("cannot read " + what);
  return parse(text, what);
}

}  // namespace kelmora::tools
