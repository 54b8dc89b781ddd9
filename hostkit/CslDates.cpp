#include "hostkit/CslDates.h"

#include <array>
#include <cctype>
#include <cmath>
#include <cstdlib>
#include <optional>

#include "hostkit/BadInput.h"

namespace kelmora::host {

namespace {

constexpr std::array<const char*, 12> kMonths = {"January",   "February", "March",    "April",
                                                 "May",       "June",     "July",     "August",
                                                 "September", "October",  "November", "December"};
constexpr std::array<const char*, 4> kSeasons = {"Spring", "Summer", "Autumn", "Winter"};

// A date part as a number: CSL allows numbers and texts of numbers.
std::optional<long> number(const Json& value) {
  if (value.is_number_integer())
    return value.get<long>();
  if (value.is_number()) {
    // A year beyond any calendar is no date part, and converting it would
    // overflow.
    const double part = value.get<double>();
    if (std::isfinite(part) && std::abs(part) < 1e9)
      return static_cast<long>(part);
    return std::nullopt;
  }
  if (value.is_string()) {
    const std::string text = value.get<std::string>();
    char* end = nullptr;
    const long parsed = std::strtol(text.c_str(), &end, 10);
    if (!text.empty() && end != nullptr && *end == '\0')
      return parsed;
  }
  return std::nullopt;
}

std::string single(const Json& parts, const std::string& season, const std::string& where) {
  if (!parts.is_array() || parts.empty())
    throw BadInput(where + " has a date part that is not a list of numbers");
  std::array<long, 3> value{0, 0, 0};
  for (size_t i = 0; i < parts.size() && i < 3; ++i) {
    const auto n = number(parts[i]);
    if (!n)
      throw BadInput(where + " has a date part that is not a number: " + parts[i].dump());
    value[i] = *n;
  }
  std::string text = std::to_string(value[0]);
  if (parts.size() > 1 && value[1] >= 1 && value[1] <= 12) {
    text += std::string(", ") + kMonths[static_cast<size_t>(value[1] - 1)];
    if (parts.size() > 2 && value[2] >= 1 && value[2] <= 31)
      text += " " + std::to_string(value[2]);
  } else if (parts.size() > 1 && value[1] >= 13 && value[1] <= 16) {
    // CSL's months 13 to 16 are the seasons.
    text += std::string(", ") + kSeasons[static_cast<size_t>(value[1] - 13)];
  } else if (!season.empty()) {
    text += ", " + season;
  }
  return text;
}

std::string seasonText(const Json& season) {
  if (season.is_null())
    return {};
  const auto n = number(season);
  if (n && *n >= 1 && *n <= 4)
    return kSeasons[static_cast<size_t>(*n - 1)];
  return season.is_string() ? season.get<std::string>() : season.dump();
}

// "2022, March 3", "2022, March", "2019, Summer" or "2021": the parts and
// the season; nothing for any other text.
std::optional<std::pair<Json, Json>> parseSingle(std::string_view text) {
  size_t at = 0;
  while (at < text.size() && std::isdigit(static_cast<unsigned char>(text[at]))) ++at;
  if (at == 0 || at > 4 || (at < text.size() && text[at] != ','))
    return std::nullopt;
  const long year = std::strtol(std::string(text.substr(0, at)).c_str(), nullptr, 10);
  if (at == text.size())
    return std::make_pair(Json::array({year}), Json());
  std::string_view rest = text.substr(at + 1);
  if (rest.empty() || rest.front() != ' ')
    return std::nullopt;
  rest.remove_prefix(1);
  for (size_t s = 0; s < kSeasons.size(); ++s) {
    if (rest == kSeasons[s])
      return std::make_pair(Json::array({year}), Json(static_cast<int>(s + 1)));
  }
  for (size_t m = 0; m < kMonths.size(); ++m) {
    const std::string_view month = kMonths[m];
    if (!rest.starts_with(month))
      continue;
    std::string_view day = rest.substr(month.size());
    if (day.empty())
      return std::make_pair(Json::array({year, static_cast<long>(m + 1)}), Json());
    if (day.front() != ' ' || day.size() < 2 || day.size() > 3)
      return std::nullopt;
    day.remove_prefix(1);
    for (char c : day)
      if (!std::isdigit(static_cast<unsigned char>(c)))
        return std::nullopt;
    const long d = std::strtol(std::string(day).c_str(), nullptr, 10);
    if (d < 1 || d > 31 || day.front() == '0')
      return std::nullopt;
    return std::make_pair(Json::array({year, static_cast<long>(m + 1), d}), Json());
  }
  return std::nullopt;
}

}  // namespace

std::string CslDates::toText(const Json& date, const std::string& where) {
  if (date.is_string())
    return date.get<std::string>();  // a date written as plain text
  if (!date.is_object())
    throw BadInput(where + " is not a date");
  if (date.contains("literal") && date["literal"].is_string())
    return date["literal"].get<std::string>();
  if (date.contains("date-parts")) {
    const Json& parts = date["date-parts"];
    if (!parts.is_array() || parts.empty())
      throw BadInput(where + " has no date parts");
    const std::string season = seasonText(date.value("season", Json()));
    std::string text = single(parts[0], season, where);
    if (parts.size() > 1)
      text += " - " + single(parts[1], "", where);
    return text;
  }
  if (date.contains("raw") && date["raw"].is_string())
    return date["raw"].get<std::string>();
  throw BadInput(where + " has neither date parts, raw text nor a literal");
}

Json CslDates::fromText(std::string_view text) {
  const auto dash = text.find(" - ");
  if (dash != std::string_view::npos) {
    const auto from = parseSingle(text.substr(0, dash));
    const auto to = parseSingle(text.substr(dash + 3));
    if (from && to && from->second.is_null() && to->second.is_null())
      return {{"date-parts", Json::array({from->first, to->first})}};
  } else if (const auto one = parseSingle(text)) {
    Json date = {{"date-parts", Json::array({one->first})}};
    if (!one->second.is_null())
      date["season"] = one->second;
    return date;
  }
  return {{"raw", std::string(text)}};
}

}  // namespace kelmora::host
