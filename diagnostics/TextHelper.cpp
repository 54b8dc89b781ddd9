#include "diagnostics/TextHelper.h"

namespace kelmora {

const std::shared_ptr<TextHelper>& TextHelper::instance() {
  thread_local const std::shared_ptr<TextHelper> helper = std::make_shared<TextHelper>();
  return helper;
}

Variant TextHelper::TextStartsWith(std::string_view text, std::string_view prefix) const {
  return Variant(text.starts_with(prefix));
}

Variant TextHelper::TextEndsWith(std::string_view text, std::string_view suffix) const {
  return Variant(text.ends_with(suffix));
}

void TextHelper::KeepBeforeSeparator(std::string_view& text, std::string_view separator,
                                     bool keepWholeWithout) const {
  const auto at = text.find(separator);
  if (at != std::string_view::npos) {
    text = text.substr(0, at);
  } else if (!keepWholeWithout) {
    text = {};
  }
}

void TextHelper::KeepAfterSeparator(std::string_view& text, std::string_view separator) const {
  const auto at = text.find(separator);
  if (at != std::string_view::npos)
    text = text.substr(at + separator.size());
}

void TextHelper::RemoveEnding(std::string& text, const std::string& ending) const {
  if (text.ends_with(ending))
    text.erase(text.size() - ending.size());
}

}  // namespace kelmora
