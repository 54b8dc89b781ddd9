#pragma once

#include <string_view>

namespace kelmora::tools {

// The demo's parts (examples/demo-<type>.json) compiled into the program,
// so that it needs no file to run.
class DemoParts {
 public:
  // The text of a part by its path below examples/, or nothing.
  static const std::string_view* find(std::string_view name);
};

}  // namespace kelmora::tools
