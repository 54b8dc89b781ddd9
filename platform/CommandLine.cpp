#include "platform/CommandLine.h"

#include <fstream>
#include <iterator>

namespace kelmora {

namespace {

std::optional<std::string>& overridden() {
  static std::optional<std::string> text;
  return text;
}

std::string readProcessCommandLine() {
  std::ifstream file("/proc/self/cmdline", std::ios::binary);
  std::string raw((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  // Arguments are separated by NUL; the first one is the program.
  auto first = raw.find('\0');
  if (first == std::string::npos)
    return {};
  std::string arguments = raw.substr(first + 1);
  while (!arguments.empty() && arguments.back() == '\0') arguments.pop_back();
  for (char& c : arguments) {
    if (c == '\0')
      c = ' ';
  }
  return arguments;
}

}  // namespace

std::string CommandLine::Command() {
  if (overridden())
    return *overridden();
  return readProcessCommandLine();
}

void CommandLine::Override(std::optional<std::string> text) {
  overridden() = std::move(text);
}

}  // namespace kelmora
