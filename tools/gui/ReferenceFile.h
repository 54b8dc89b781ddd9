#pragma once

#include <filesystem>

#include "host/Kit.h"

namespace kelmora {
class Main2;
}

namespace kelmora::tools {

// One reference in a file, its type and its values by field key, as a
// scenario's SynchronizeFieldsWithModel step gives them:
//
//   {"whichType": 1, "values": {"PeriodicalTitle": "Journal of Coastal Dynamics", ...}}
//
// Written with every field of the type; read over the defaults of a new
// reference, so that a file may leave fields out. A file that cannot be
// read, is no such object, names another type or a key the type does not
// have is refused with a BadInput naming the file.
class ReferenceFile {
 public:
  static Record read(Main2& main, const std::filesystem::path& path);
  static void write(const std::filesystem::path& path, const Record& record);
};

}  // namespace kelmora::tools
