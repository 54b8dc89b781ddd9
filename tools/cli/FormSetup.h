#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace CLI {
class App;
}

namespace kelmora::tools {

class ToolHost;

// A form as the commands that show one take it from the command line: the
// reference type, the format (a family shipped with kelmora or a settings
// file), the option, show all, and the field values to load.
struct FormSetup {
  std::string type;
  std::optional<int32_t> family;
  std::string settings;
  int16_t option = -1;
  bool showAll = false;
  std::string values;
  // A CSL-JSON file and the id of its item to load; the item's type and
  // kind stand in for --type and --option.
  std::string csl;
  std::string item;

  // Adds --type, --family, --settings, --option, --show-all, --values,
  // --csl and --item.
  void addOptions(CLI::App& command);
  // Puts the host's form in this state as a host does: the frame shown,
  // the format's rules, the record loaded, the option and show all; the
  // answer is the type shown. Bad input (type, format, values, a CSL item)
  // fails with BadInput.
  int16_t apply(ToolHost& host) const;
  // Adds --csl and --item alone, for commands that take a reference only.
  static void addCslOptions(CLI::App& command, std::string& csl, std::string& item);

  // "periodical", "nonperiodical", "esource" or their numbers.
  static int16_t referenceType(const std::string& text);
};

}  // namespace kelmora::tools
