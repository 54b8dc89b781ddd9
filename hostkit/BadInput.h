#pragma once

#include <stdexcept>
#include <string>

namespace kelmora::host {

// Input a host cannot use: an unknown field key or type, an unreadable or
// malformed file, a value of the wrong kind. The message says what is wrong
// in the user's terms, without a prefix; the `kelmora` program turns it into
// one line on standard error and exit status 2.
class BadInput : public std::runtime_error {
 public:
  explicit BadInput(const std::string& message) : std::runtime_error(message) {}
};

}  // namespace kelmora::host
