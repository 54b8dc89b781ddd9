#include "gui/ReferenceFile.h"

#include "host/FieldValues.h"
#include "host/OutputFile.h"

namespace kelmora::tools {

Record ReferenceFile::read(Main2& main, const std::filesystem::path& path) {
  const std::string what = "reference file '" + path.string() + "'";
  const Json file = JsonReader::read(path, what);
  const Json type = file.is_object() ? file.value("whichType", Json()) : Json();
  if (!file.is_object() || !file.contains("values"))
    throw BadInput(what + " must be an object with \"whichType\" and \"values\"");
  if (!type.is_number_integer() ||
      (type.get<int>() != 0 && type.get<int>() != 1 && type.get<int>() != 4))
    throw BadInput(what +
                   ": \"whichType\" must be 0 (NonPeriodical), 1 (Periodical) or 4 (Esource)");
  const auto whichType = static_cast<int16_t>(type.get<int>());
  return Record::fromValues(main, whichType,
                            FieldValues::record(main, whichType, file["values"], what));
}

void ReferenceFile::write(const std::filesystem::path& path, const Record& record) {
  Json values = Json::object();
  for (size_t i = 0; i < record.keys().size(); ++i) {
    // Positions without a key hold nothing a host stores.
    if (!record.keys()[i].empty())
      values[record.keys()[i]] = record.values()[i];
  }
  const Json file = {{"whichType", record.whichType()}, {"values", std::move(values)}};
  OutputFile::write(path, file.dump(2) + "\n");
}

}  // namespace kelmora::tools
