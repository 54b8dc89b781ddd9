#include "host/DemoParts.h"

#include "hostkit/EmbeddedFiles.h"

namespace kelmora::tools {

namespace {
const host::EmbeddedFile kParts[] = {
#include "DemoParts.inc"
};
}  // namespace

const std::string_view* DemoParts::find(std::string_view name) {
  return host::EmbeddedFiles::find(kParts, name);
}

}  // namespace kelmora::tools
