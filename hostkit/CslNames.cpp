#include "hostkit/CslNames.h"

#include <cctype>
#include <vector>

#include "hostkit/BadInput.h"

namespace kelmora::host {

namespace {

std::string trimmed(std::string_view text) {
  while (!text.empty() && std::isspace(static_cast<unsigned char>(text.front())))
    text.remove_prefix(1);
  while (!text.empty() && std::isspace(static_cast<unsigned char>(text.back())))
    text.remove_suffix(1);
  return std::string(text);
}

std::string part(const Json& name, const char* key, const std::string& where) {
  if (!name.contains(key))
    return {};
  const Json& value = name[key];
  if (value.is_string())
    return value.get<std::string>();
  if (value.is_number())
    return value.dump();
  throw BadInput(where + ": the name part '" + key + "' is not a text");
}

// Splits at `separator` outside braces.
std::vector<std::string> splitOutsideBraces(std::string_view text, char separator) {
  std::vector<std::string> pieces(1);
  int depth = 0;
  for (char c : text) {
    if (c == '{')
      ++depth;
    else if (c == '}' && depth > 0)
      --depth;
    if (c == separator && depth == 0) {
      pieces.emplace_back();
      continue;
    }
    pieces.back() += c;
  }
  return pieces;
}

std::vector<std::string> words(const std::string& text) {
  std::vector<std::string> result;
  std::string word;
  for (char c : text) {
    if (c == ' ') {
      if (!word.empty())
        result.push_back(word);
      word.clear();
    } else {
      word += c;
    }
  }
  if (!word.empty())
    result.push_back(word);
  return result;
}

bool lowerInitial(const std::string& word) {
  return !word.empty() && std::islower(static_cast<unsigned char>(word.front()));
}

std::string joined(const std::vector<std::string>& list, size_t from, size_t to) {
  std::string text;
  for (size_t i = from; i < to; ++i) text += (text.empty() ? "" : " ") + list[i];
  return text;
}

}  // namespace

std::string CslNames::toText(const Json& names, const std::string& where) {
  if (!names.is_array())
    throw BadInput(where + " is not a list of names");
  std::string text;
  for (const Json& name : names) {
    if (!name.is_object())
      throw BadInput(where + " holds a name that is not an object");
    std::string one;
    const std::string literal = part(name, "literal", where);
    if (!literal.empty()) {
      one = "{" + literal + "}";
    } else {
      const std::string nonDropping = part(name, "non-dropping-particle", where);
      const std::string family = part(name, "family", where);
      const std::string given = part(name, "given", where);
      const std::string dropping = part(name, "dropping-particle", where);
      const std::string suffix = part(name, "suffix", where);
      one = nonDropping.empty() ? family : nonDropping + " " + family;
      std::string first = given;
      if (!dropping.empty())
        first += (first.empty() ? "" : " ") + dropping;
      if (!first.empty() || !suffix.empty())
        one += ", " + first;
      if (!suffix.empty())
        one += ", " + suffix;
    }
    if (trimmed(one).empty())
      continue;
    text += (text.empty() ? "" : "; ") + one;
  }
  return text;
}

Json CslNames::fromText(std::string_view text) {
  Json names = Json::array();
  for (const std::string& piece : splitOutsideBraces(text, ';')) {
    const std::string one = trimmed(piece);
    if (one.empty())
      continue;
    if (one.size() >= 2 && one.front() == '{' && one.back() == '}') {
      names.push_back({{"literal", one.substr(1, one.size() - 2)}});
      continue;
    }
    const auto parts = splitOutsideBraces(one, ',');
    Json name = Json::object();
    // The family, with the lower-case words before it as its particle.
    const auto family = words(trimmed(parts[0]));
    size_t first = 0;
    while (first + 1 < family.size() && lowerInitial(family[first])) ++first;
    if (first > 0)
      name["non-dropping-particle"] = joined(family, 0, first);
    name["family"] = joined(family, first, family.size());
    if (parts.size() > 1) {
      // The given names, with the lower-case words after them as theirs.
      const auto given = words(trimmed(parts[1]));
      size_t last = given.size();
      while (last > 1 && lowerInitial(given[last - 1])) --last;
      if (last > 0)
        name["given"] = joined(given, 0, last);
      if (last < given.size())
        name["dropping-particle"] = joined(given, last, given.size());
    }
    if (parts.size() > 2) {
      std::string suffix;
      for (size_t i = 2; i < parts.size(); ++i)
        suffix += (suffix.empty() ? "" : ", ") + trimmed(parts[i]);
      if (!suffix.empty())
        name["suffix"] = suffix;
    }
    names.push_back(std::move(name));
  }
  return names;
}

}  // namespace kelmora::host
