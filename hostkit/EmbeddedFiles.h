#pragma once

#include <span>
#include <string_view>

namespace kelmora::host {

// A file under examples/ compiled into a program, by its path below
// examples/.
struct EmbeddedFile {
  std::string_view path;
  std::string_view text;
};

// The four format families compiled in, so that a host needs no file to
// apply one: "formats/family-0.json" to "formats/family-3.json".
class EmbeddedFiles {
 public:
  // The text of a family file, or nothing when there is no such file.
  static const std::string_view* find(std::string_view name);
  // The same look-up in another table of compiled-in files.
  static const std::string_view* find(std::span<const EmbeddedFile> files, std::string_view name);
};

}  // namespace kelmora::host
