#include "cli/FormSetup.h"

#include <CLI/CLI.hpp>

#include <cctype>
#include <optional>

#include "host/FieldValues.h"
#include "host/Kit.h"
#include "host/ReferenceFile.h"
#include "host/ToolCallback.h"
#include "host/ToolHost.h"
#include "hosting/FrameContainer.h"
#include "hostkit/Csl.h"

namespace kelmora::tools {

int16_t FormSetup::referenceType(const std::string& text) {
  std::string lower;
  for (char c : text) lower += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  if (lower == "nonperiodical" || lower == "0")
    return 0;
  if (lower == "periodical" || lower == "1")
    return 1;
  if (lower == "esource" || lower == "4")
    return 4;
  throw BadInput("unknown reference type '" + text +
                 "': use periodical (1), nonperiodical (0) or esource (4)");
}

void FormSetup::addCslOptions(CLI::App& command, std::string& csl, std::string& item) {
  command.add_option("--csl", csl, "Load a reference from this CSL-JSON file");
  command.add_option("--item", item,
                     "The id of the CSL item to load (needed when it holds several)");
}

void FormSetup::addOptions(CLI::App& command) {
  command.add_option("--type", type,
                     "Reference type: periodical (1), nonperiodical (0) or esource (4); "
                     "a CSL item's own without it");
  command.add_option("--family", family, "Format family 0 to 3 shipped with kelmora");
  command.add_option("--settings", settings, "Format settings file (JSON)");
  command.add_option("--option", option,
                     "Type option to select (UpdateFrame Index); -1 keeps the one loaded");
  command.add_flag("--show-all", showAll, "Show all fields");
  command.add_option("--values", values, "Field values file: JSON object by field key");
  addCslOptions(command, csl, item);
}

int16_t FormSetup::apply(ToolHost& host) const {
  if (family.has_value() == !settings.empty())
    throw BadInput("give the format either as --family N or as --settings FILE");
  if (!item.empty() && csl.empty())
    throw BadInput("--item names an item of a CSL-JSON file: give the file with --csl");
  if (!csl.empty() && !values.empty())
    throw BadInput("give the field values either as --values or as --csl, not both");
  std::optional<Record> reference;
  if (!csl.empty())
    reference = ReferenceFile::read(host.main(), csl, item);
  if (type.empty() && !reference)
    throw BadInput("give the reference type with --type, or a reference with --csl");
  const int16_t which = reference ? reference->whichType() : referenceType(type);
  if (reference && !type.empty() && referenceType(type) != which)
    throw BadInput("the CSL item goes to the " +
                   std::string(which == 1   ? "periodical"
                               : which == 0 ? "nonperiodical"
                                            : "esource") +
                   " form, not the " + type + " one");
  std::shared_ptr<FormatSettings> format =
      family ? FormatSettings::family(*family) : FormatSettings::load(settings);
  std::vector<std::string> record;
  if (reference) {
    record = reference->values();
  } else {
    const Json fields =
        values.empty() ? Json::object() : JsonReader::read(values, "values file '" + values + "'");
    record = FieldValues::record(host.main(), which, fields, values);
  }
  FrameContainer& container = host.container();
  container.SetVisibleFrame(which);
  container.ToggleFormatDependentWidgets(which, format);
  host.callback().loading(true);
  container.SynchronizeFieldsWithModel(which, record);
  host.callback().loading(false);
  // A CSL item's kind selects its option unless one is asked for.
  const int16_t chosen = reference && option < 0 ? host::Csl::optionOf(*reference) : option;
  container.UpdateFrame(chosen, showAll);
  return which;
}

}  // namespace kelmora::tools
