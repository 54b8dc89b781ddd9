#pragma once

#include <optional>
#include <string>

namespace kelmora {

// The process command line as the run time's Command function gives it: the
// arguments after the program name, joined by single blanks. A host that
// embeds the library in a process with another notion of its command line,
// or a test, can replace the text.
class CommandLine {
 public:
  static std::string Command();
  static void Override(std::optional<std::string> text);
};

}  // namespace kelmora
