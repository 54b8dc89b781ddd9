#pragma once

#include <string_view>

namespace kelmora::tools {

// Files under examples/ compiled into the program: the four format families
// and the parts of the demo, by their path below examples/.
class EmbeddedFiles {
 public:
  // The text of the file, or nothing when it was not compiled in.
  static const std::string_view* find(std::string_view name);
};

}  // namespace kelmora::tools
