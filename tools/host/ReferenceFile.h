#pragma once

#include <filesystem>
#include <string>

#include "host/Kit.h"

namespace kelmora {
class Main2;
}

namespace kelmora::tools {

// One reference in a file, its type and its values by field key, as a
// scenario's SynchronizeFieldsWithModel step gives them, and what the type
// has no field for when it came from another format:
//
//   {"whichType": 1, "values": {"PeriodicalTitle": "Journal of Coastal Dynamics", ...},
//    "extras": {"ISSN": "1234-5678"}}
//
// Written with every field of the type; read over the defaults of a new
// reference, so that a file may leave fields out. A CSL-JSON file is read
// too: its item `item`, or its only item. A file that cannot be read, is no
// such object, names another type or a key the type does not have is
// refused with a BadInput naming the file.
class ReferenceFile {
 public:
  static Record read(Main2& main, const std::filesystem::path& path, const std::string& item = "");
  static void write(const std::filesystem::path& path, const Record& record);

  static Json toJson(const Record& record);
  static Record fromJson(Main2& main, const Json& file, const std::string& what);
  // A reference as this file holds it, rather than CSL-JSON.
  static bool isReference(const Json& file);
  // The item `item` of a CSL-JSON document, or its only item.
  static Record fromCsl(Main2& main, const Json& document, const std::string& item,
                        const std::string& what);
};

}  // namespace kelmora::tools
