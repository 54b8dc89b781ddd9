#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace kelmora::tools {

// The `kelmora` command line: demo, render, explain, fields, play and
// gui; without a command
// the usage. Exit status 0 on success; 1 when an expectation or a call
// failed, the library reported a failure while drawing or the converter
// failed on a picture; 2 for bad input, no command, or an output that
// cannot be written, with one line on standard error (the usage for no
// command).
class Cli {
 public:
  static constexpr int kBadInput = 2;

  // `arguments` without the program name.
  static int run(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err);
};

}  // namespace kelmora::tools
