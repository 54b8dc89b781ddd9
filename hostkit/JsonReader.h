#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "hostkit/Json.h"

namespace kelmora::host {

// Reads the program's JSON input: scenarios, value files and format
// settings. Anything the parser would take only in part is refused with a
// BadInput naming the input: text that is no JSON, a NUL byte (the parser
// would stop there and drop what follows), and nesting deeper than any of
// the program's formats needs, which would otherwise exhaust the stack in
// whatever walks the document afterwards.
class JsonReader {
 public:
  static constexpr int kMaxDepth = 64;

  // `what` names the input in messages, as in "scenario 'x.json'".
  static Json parse(std::string_view text, const std::string& what);
  static Json read(const std::filesystem::path& path, const std::string& what);
};

}  // namespace kelmora::host
