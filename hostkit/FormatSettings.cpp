#include "hostkit/FormatSettings.h"

#include <cstdint>
#include <fstream>
#include <string_view>

#include "hostkit/BadInput.h"
#include "hostkit/EmbeddedFiles.h"
#include "hostkit/JsonReader.h"
#include "platform/RuntimeError.h"
#include "surface/OutputTemplate.h"

namespace kelmora::host {

namespace {

enum class Kind { Integer, Boolean, Text, Templates };

struct MemberRow {
  std::string_view name;
  Kind kind;
};

// clang-format off
constexpr MemberRow kMembers[] = {
    {"Format", Kind::Integer},
    {"hasPeriodicalPageNumbers", Kind::Boolean},
    {"tooltipTextJournal", Kind::Text},
    {"tooltipTextPeriodical", Kind::Text},
    {"accessDateFormat", Kind::Text},
    {"alwaysEnableAccessDate", Kind::Boolean},
    {"WebsiteImpliesDate", Kind::Boolean},
    {"outputTemplates", Kind::Templates},
    {"esourceShowsAuthorPopup", Kind::Boolean},
    {"esourceHasTitle", Kind::Boolean},
    {"esourceHasTo", Kind::Boolean},
    {"emailListTitleVisible", Kind::Boolean},
    {"supportsWebtitle", Kind::Boolean},
    {"SupportsURL", Kind::Boolean},
    {"supportsAccessDate", Kind::Boolean},
    {"supportsSocialMedia", Kind::Boolean},
    {"DegreeSupport", Kind::Integer},
    {"esourceType", Kind::Integer},
};
// clang-format on

bool fits(const Json& value, Kind kind) {
  switch (kind) {
    case Kind::Integer:
      return value.is_number_integer() && value.get<int64_t>() >= INT32_MIN &&
             value.get<int64_t>() <= INT32_MAX;
    case Kind::Boolean:
      return value.is_boolean();
    case Kind::Text:
      return value.is_string();
    case Kind::Templates:
      // Templates are numbered by the format, and a frame asks for the one
      // of its number, so they are written under their numbers.
      if (!value.is_object())
        return false;
      for (const auto& [number, entry] : value.items()) {
        if (number.empty() || number.size() > 9 ||
            number.find_first_not_of("0123456789") != std::string::npos)
          return false;
        if (!entry.is_object() || !entry.contains("urlPrefixes") || entry.size() != 1 ||
            !entry["urlPrefixes"].is_array()) {
          return false;
        }
        for (const auto& prefix : entry["urlPrefixes"])
          if (!prefix.is_string())
            return false;
      }
      return true;
  }
  return false;
}

const char* kindText(Kind kind) {
  switch (kind) {
    case Kind::Integer:
      return "a whole number";
    case Kind::Boolean:
      return "true or false";
    case Kind::Text:
      return "a text";
    case Kind::Templates:
      return "an object of template numbers and {\"urlPrefixes\": [texts]}";
  }
  return "";
}

class PrefixTemplate : public OutputTemplate {
 public:
  explicit PrefixTemplate(std::vector<std::string> prefixes) : mPrefixes(std::move(prefixes)) {}
  bool isURL(std::string& text) override {
    for (const auto& prefix : mPrefixes)
      if (text.starts_with(prefix))
        return true;
    return false;
  }

 private:
  std::vector<std::string> mPrefixes;
};

}  // namespace

FormatSettings::FormatSettings(Json members, const std::string& origin)
    : mMembers(std::move(members)) {
  if (!mMembers.is_object())
    throw BadInput(origin + ": format settings must be a JSON object");
  for (const auto& [name, value] : mMembers.items()) {
    const MemberRow* row = nullptr;
    for (const auto& candidate : kMembers)
      if (candidate.name == name)
        row = &candidate;
    if (row == nullptr)
      throw BadInput(origin + ": unknown format setting '" + name + "'");
    if (!fits(value, row->kind))
      throw BadInput(origin + ": format setting '" + name + "' must be " + kindText(row->kind));
  }
}

std::shared_ptr<FormatSettings> FormatSettings::load(const std::filesystem::path& path) {
  Json members = JsonReader::read(path, "format settings file '" + path.string() + "'");
  return std::make_shared<FormatSettings>(std::move(members), path.string());
}

std::shared_ptr<FormatSettings> FormatSettings::family(int32_t number) {
  const std::string name = "formats/family-" + std::to_string(number) + ".json";
  const std::string_view* text = EmbeddedFiles::find(name);
  if (number < 0 || text == nullptr)
    throw BadInput("there is no format family " + std::to_string(number) + "; families are 0 to 3");
  return std::make_shared<FormatSettings>(Json::parse(*text), name);
}

const Json& FormatSettings::member(const char* name) const {
  auto found = mMembers.find(name);
  if (found == mMembers.end())
    throw RuntimeError(kMemberNotSupported);
  return *found;
}

int32_t FormatSettings::Format() {
  return member("Format").get<int32_t>();
}
bool FormatSettings::hasPeriodicalPageNumbers() {
  return member("hasPeriodicalPageNumbers").get<bool>();
}
std::string FormatSettings::tooltipTextJournal() {
  return member("tooltipTextJournal").get<std::string>();
}
std::string FormatSettings::tooltipTextPeriodical() {
  return member("tooltipTextPeriodical").get<std::string>();
}
std::string FormatSettings::accessDateFormat() {
  return member("accessDateFormat").get<std::string>();
}
bool FormatSettings::alwaysEnableAccessDate() {
  return member("alwaysEnableAccessDate").get<bool>();
}
bool FormatSettings::WebsiteImpliesDate() {
  return member("WebsiteImpliesDate").get<bool>();
}

std::shared_ptr<OutputTemplate> FormatSettings::outputTemplates(int32_t index) {
  const auto& templates = member("outputTemplates");
  auto found = templates.find(std::to_string(index));
  if (found == templates.end())
    throw RuntimeError(kSubscriptOutOfRange);
  return std::make_shared<PrefixTemplate>((*found)["urlPrefixes"].get<std::vector<std::string>>());
}

bool FormatSettings::esourceShowsAuthorPopup() {
  return member("esourceShowsAuthorPopup").get<bool>();
}
bool FormatSettings::esourceHasTitle() {
  return member("esourceHasTitle").get<bool>();
}
bool FormatSettings::esourceHasTo() {
  return member("esourceHasTo").get<bool>();
}
bool FormatSettings::emailListTitleVisible() {
  return member("emailListTitleVisible").get<bool>();
}
bool FormatSettings::supportsWebtitle() {
  return member("supportsWebtitle").get<bool>();
}
bool FormatSettings::SupportsURL() {
  return member("SupportsURL").get<bool>();
}
bool FormatSettings::supportsAccessDate() {
  return member("supportsAccessDate").get<bool>();
}
bool FormatSettings::supportsSocialMedia() {
  return member("supportsSocialMedia").get<bool>();
}
int32_t FormatSettings::DegreeSupport() {
  return member("DegreeSupport").get<int32_t>();
}
int32_t FormatSettings::esourceType() {
  return member("esourceType").get<int32_t>();
}

}  // namespace kelmora::host
