#include "host/OutputFile.h"

#include <fstream>

#include "host/Kit.h"

namespace kelmora::tools {

void OutputFile::write(const std::filesystem::path& path, std::string_view content) {
  std::ofstream out(path, std::ios::binary);
  out.write(content.data(), static_cast<std::streamsize>(content.size()));
  out.close();
  if (!out)
    throw BadInput("cannot write '" + path.string() + "'");
}

}  // namespace kelmora::tools
