#include "host/EmbeddedFiles.h"

#include <utility>

namespace kelmora::tools {

namespace {

const std::pair<std::string_view, std::string_view> kFiles[] = {
#include "EmbeddedFiles.inc"
};

}  // namespace

const std::string_view* EmbeddedFiles::find(std::string_view name) {
  for (const auto& [path, text] : kFiles) {
    if (path == name)
      return &text;
  }
  return nullptr;
}

}  // namespace kelmora::tools
