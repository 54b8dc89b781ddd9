#include "host/ReferenceFile.h"

#include "host/OutputFile.h"
#include "hostkit/Csl.h"

namespace kelmora::tools {

bool ReferenceFile::isReference(const Json& file) {
  return file.is_object() && file.contains("whichType");
}

Record ReferenceFile::fromJson(Main2& main, const Json& file, const std::string& what) {
  return Record::fromJson(main, file, what);
}

Record ReferenceFile::fromCsl(Main2& main, const Json& document, const std::string& item,
                              const std::string& what) {
  const auto items = host::Csl::items(document, what);
  if (!item.empty())
    return host::Csl::read(main, host::Csl::find(items, item, what));
  if (items.size() != 1)
    throw BadInput(what + " holds " + std::to_string(items.size()) +
                   " items: choose one with --item ID" +
                   (items.empty() ? "" : ", such as '" + host::Csl::idOf(items.front()) + "'"));
  return host::Csl::read(main, items.front());
}

Record ReferenceFile::read(Main2& main, const std::filesystem::path& path,
                           const std::string& item) {
  const std::string what = "reference file '" + path.string() + "'";
  const Json file = JsonReader::read(path, what);
  if (isReference(file)) {
    if (!item.empty())
      throw BadInput(what + " holds one reference, not CSL items to choose from");
    return fromJson(main, file, what);
  }
  if (file.is_array() || (file.is_object() && file.contains("type")))
    return fromCsl(main, file, item, what);
  return fromJson(main, file, what);
}

Json ReferenceFile::toJson(const Record& record) {
  return record.toJson();
}

void ReferenceFile::write(const std::filesystem::path& path, const Record& record) {
  OutputFile::write(path, toJson(record).dump(2) + "\n");
}

}  // namespace kelmora::tools
