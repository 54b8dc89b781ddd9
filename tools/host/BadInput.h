#pragma once

#include <stdexcept>
#include <string>

namespace kelmora::tools {

// Input the program cannot use: an unknown type, an unreadable or malformed
// file, an unknown widget, a step it does not understand. The command line
// turns it into one line on standard error and exit status 2. The message
// says what is wrong in the user's terms, without a prefix.
class BadInput : public std::runtime_error {
 public:
  explicit BadInput(const std::string& message) : std::runtime_error(message) {}
};

}  // namespace kelmora::tools
