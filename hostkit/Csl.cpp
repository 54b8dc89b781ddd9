#include "hostkit/Csl.h"

#include <algorithm>
#include <cctype>
#include <set>

#include "hostkit/BadInput.h"
#include "hostkit/CslDates.h"
#include "hostkit/CslMapping.h"
#include "hostkit/CslNames.h"

namespace kelmora::host {

namespace {

constexpr int16_t kNonPeriodical = 0;
constexpr int16_t kPeriodical = 1;
constexpr int16_t kEsource = 4;
// The extras' own entry: the exact value of each variable whose field text
// would not give it back, with that text.
constexpr const char* kExact = "kelmora:exact";

constexpr const char* kPeriodicalOptions[] = {"PeriodicalJournalOption", "PeriodicalMagazineOption",
                                              "PeriodicalNewspaperOption"};
constexpr const char* kNonPeriodicalOptions[] = {"v6_BookOption", "v6_WebsiteOption"};

std::string lower(std::string text) {
  for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return text;
}

std::string textOf(const Json& item, const char* variable) {
  const auto found = item.find(variable);
  return found != item.end() && found->is_string() ? lower(found->get<std::string>()) : "";
}

// The e-source list's entry for an item, from its type, genre and medium.
std::string esourceType(const std::string& type, const Json& item) {
  const std::string said = textOf(item, "genre") + " " + textOf(item, "medium") + " " +
                           textOf(item, "container-title") + " " + textOf(item, "URL");
  const auto says = [&](const char* word) { return said.find(word) != std::string::npos; };
  if (type == "personal_communication")
    return says("list") ? "Email list entry" : "Email to";
  if (type == "post-weblog") {
    if (says("comment"))
      return "Blog comment";
    return says("video") || says("vlog") ? "Video blog entry" : "Blog post";
  }
  // Twitter by name or by its address, not any site whose name ends in x.
  if (says("twitter") || says("tweet") || says("//x.com/") || says(".x.com/"))
    return "Twitter post";
  if (says("facebook"))
    return says("comment") ? "Facebook comment" : "Facebook post";
  return "Forum post";
}

// The CSL type an e-source list entry stands for.
std::string typeOfEsource(const std::string& entry) {
  if (entry.starts_with("Email"))
    return "personal_communication";
  if (entry.starts_with("Blog") || entry.starts_with("Video blog"))
    return "post-weblog";
  return "post";
}

bool looksLikeDoi(const std::string& text) {
  const std::string l = lower(text);
  return l.starts_with("10.") || l.starts_with("doi:") ||
         l.find("doi.org/10.") != std::string::npos;
}

// The year of a date text ("2022, March 3" gives "2022"); a text that
// starts with no year stays whole.
std::string yearOf(const std::string& date) {
  size_t digits = 0;
  while (digits < date.size() && std::isdigit(static_cast<unsigned char>(date[digits]))) ++digits;
  return digits > 0 && (digits == date.size() || date[digits] == ',') ? date.substr(0, digits)
                                                                      : date;
}

std::string fieldText(const CslMapping::Row& row, const Json& value, const std::string& where) {
  switch (row.conversion) {
    case CslMapping::Conversion::Names:
      return CslNames::toText(value, where);
    case CslMapping::Conversion::Date:
      return CslDates::toText(value, where);
    case CslMapping::Conversion::Year:
      return yearOf(CslDates::toText(value, where));
    case CslMapping::Conversion::Text:
    case CslMapping::Conversion::Doi:
      break;
  }
  if (value.is_string())
    return value.get<std::string>();
  if (value.is_number() || value.is_boolean())
    return value.dump();
  throw BadInput(where + " is not a text or a number");
}

Json valueOf(const CslMapping::Row& row, const std::string& text) {
  switch (row.conversion) {
    case CslMapping::Conversion::Names:
      return CslNames::fromText(text);
    case CslMapping::Conversion::Date:
    case CslMapping::Conversion::Year:
      return CslDates::fromText(text);
    case CslMapping::Conversion::Text:
    case CslMapping::Conversion::Doi:
      break;
  }
  return text;
}

std::string shortly(const Json& value) {
  std::string text = value.dump();
  return text.size() > 60 ? text.substr(0, 57) + "..." : text;
}

}  // namespace

std::string Csl::idOf(const Json& item) {
  if (!item.is_object() || !item.contains("id"))
    return "(no id)";
  const Json& id = item["id"];
  return id.is_string() ? id.get<std::string>() : id.dump();
}

Record Csl::read(Main2& main, const Json& item) {
  if (!item.is_object())
    throw BadInput("a CSL item must be an object, not " + shortly(item));
  const std::string where = "CSL item '" + idOf(item) + "'";
  const auto typeAt = item.find("type");
  if (typeAt == item.end() || !typeAt->is_string())
    throw BadInput(where + ": it has no type");
  const std::string type = typeAt->get<std::string>();
  const CslMapping::Kind* kind = CslMapping::kindOf(type);
  if (kind == nullptr)
    throw BadInput(where + ": no form takes the CSL type '" + type +
                   "' (articles; books, chapters, reports, theses and web pages; blog and forum "
                   "posts, social-media posts and e-mails)");
  try {
    Record record = Record::newReference(main, kind->whichType);
    if (kind->whichType == kPeriodical) {
      for (int16_t i = 0; i < 3; ++i)
        record.set(kPeriodicalOptions[i], i == kind->option ? "True" : "False");
    } else if (kind->whichType == kNonPeriodical) {
      for (int16_t i = 0; i < 2; ++i)
        record.set(kNonPeriodicalOptions[i], i == kind->option ? "True" : "False");
    } else {
      record.set("EsourceType", esourceType(type, item));
    }
    std::set<std::string> used;
    std::set<std::string_view> filled;
    Json exact = Json::object();
    for (const CslMapping::Row& row : CslMapping::rows()) {
      if (row.whichType != kind->whichType || !CslMapping::covers(row, type))
        continue;
      const auto value = item.find(row.variable);
      if (value == item.end() || value->is_null() || filled.count(row.key) != 0)
        continue;
      const std::string variable(row.variable);
      const std::string text = fieldText(row, *value, where + ": variable '" + variable + "'");
      if (text.empty())
        continue;
      record.set(row.key, text);
      filled.insert(row.key);
      used.insert(variable);
      if (valueOf(row, text) != *value)
        exact[variable] = {{"text", text}, {"value", *value}};
    }
    Json& extras = record.extras();
    for (const auto& [variable, value] : item.items()) {
      // The exact values are the record's own note, never taken from input.
      if (used.count(variable) == 0 && variable != kExact)
        extras[variable] = value;
    }
    if (!exact.empty())
      extras[kExact] = std::move(exact);
    return record;
  } catch (const Json::exception& error) {
    throw BadInput(where + ": " + error.what());
  }
}

int16_t Csl::optionOf(const Record& record) {
  if (record.whichType() == kPeriodical) {
    for (int16_t i = 2; i > 0; --i)
      if (record.get(kPeriodicalOptions[i]) == "True")
        return i;
    return 0;
  }
  if (record.whichType() == kNonPeriodical)
    return record.get("v6_WebsiteOption") == "True" ? 1 : 0;
  return -1;
}

namespace {

// The CSL type of a record: the item's own while the form still holds that
// kind, else the first kind of the form and its option.
std::string typeOf(const Record& record) {
  const int16_t option = Csl::optionOf(record);
  const auto stored = record.extras().find("type");
  const std::string original =
      stored != record.extras().end() && stored->is_string() ? stored->get<std::string>() : "";
  const CslMapping::Kind* kind = CslMapping::kindOf(original);
  if (record.whichType() == kEsource) {
    const std::string derived = typeOfEsource(record.get("EsourceType"));
    return kind != nullptr && original == derived ? original : derived;
  }
  if (kind != nullptr && kind->whichType == record.whichType() && kind->option == option)
    return original;
  // A book with a sub-work is a chapter.
  if (record.whichType() == kNonPeriodical && option == 0 && !record.get("Subwork").empty())
    return "chapter";
  for (const CslMapping::Kind& candidate : CslMapping::kinds())
    if (candidate.whichType == record.whichType() && candidate.option == option)
      return std::string(candidate.type);
  return original;
}

}  // namespace

Json Csl::write(const Record& record) {
  const Json& extras = record.extras();
  const std::string type = typeOf(record);
  const Json exact =
      extras.contains(kExact) && extras[kExact].is_object() ? extras[kExact] : Json::object();
  Json item = Json::object();
  if (extras.contains("id"))
    item["id"] = extras["id"];
  item["type"] = type;
  std::set<std::string_view> taken;
  for (const CslMapping::Row& row : CslMapping::rows()) {
    if (row.whichType != record.whichType() || !CslMapping::covers(row, type) ||
        taken.count(row.key) != 0 || !record.has(row.key))
      continue;
    const std::string& text = record.get(row.key);
    if (text.empty() || (row.conversion == CslMapping::Conversion::Doi && !looksLikeDoi(text)))
      continue;
    const std::string variable(row.variable);
    // The exact value while the field still shows the text it was read as;
    // a reference file edited by hand may hold anything there.
    const auto kept = exact.find(variable);
    const bool exactStill = kept != exact.end() && kept->is_object() && kept->contains("value") &&
                            kept->contains("text") && (*kept)["text"].is_string() &&
                            (*kept)["text"].get<std::string>() == text;
    item[variable] = exactStill ? (*kept)["value"] : valueOf(row, text);
    taken.insert(row.key);
  }
  for (const auto& [variable, value] : extras.items()) {
    if (variable != kExact && !item.contains(variable))
      item[variable] = value;
  }
  return item;
}

std::vector<Json> Csl::items(const Json& document, const std::string& name) {
  if (document.is_array()) {
    std::vector<Json> items(document.begin(), document.end());
    return items;
  }
  if (document.is_object() && document.contains("type"))
    return {document};
  throw BadInput(name + " is no CSL-JSON: an array of items or one item is expected");
}

const Json& Csl::find(const std::vector<Json>& items, const std::string& id,
                      const std::string& name) {
  for (const Json& item : items)
    if (idOf(item) == id)
      return item;
  throw BadInput(name + " has no item with the id '" + id + "'");
}

}  // namespace kelmora::host
