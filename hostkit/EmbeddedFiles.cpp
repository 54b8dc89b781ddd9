#include "hostkit/EmbeddedFiles.h"

namespace kelmora::host {

namespace {
const EmbeddedFile kFamilies[] = {
#include "FamilyFiles.inc"
};
}  // namespace

const std::string_view* EmbeddedFiles::find(std::string_view name) {
  return find(kFamilies, name);
}

const std::string_view* EmbeddedFiles::find(std::span<const EmbeddedFile> files,
                                            std::string_view name) {
  for (const auto& file : files) {
    if (file.path == name)
      return &file.text;
  }
  return nullptr;
}

}  // namespace kelmora::host
