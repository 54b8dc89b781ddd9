#include "diagnostics/TextHelper.h"

namespace kelmora {

const std::shared_ptr<TextHelper>& TextHelper::instance() {
  thread_local const std::shared_ptr<TextHelper> helper = std::make_shared<TextHelper>();
  return helper;
}

Variant TextHelper::TextStartsWith(const std::string& text, const std::string& prefix) const {
  return Variant(text.starts_with(prefix));
}

Variant TextHelper::TextEndsWith(const std::string& text, const std::string& suffix) const {
  return Variant(text.ends_with(suffix));
}

void TextHelper::KeepBeforeSeparator(std::string& text, const std::string& separator,
                                     bool keepWholeWithout) const {
  const auto at = text.find(separator);
  if (at != std::string::npos) {
    text.erase(at);
  } else if (!keepWholeWithout) {
    text.clear();
  }
}

void TextHelper::KeepAfterSeparator(std::string& text, const std::string& separator) const {
  const auto at = text.find(separator);
  if (at != std::string::npos)
    text.erase(0, at + separator.size());
}

void TextHelper::RemoveEnding(std::string& text, const std::string& ending) const {
  if (text.ends_with(ending))
    text.erase(text.size() - ending.size());
}

}  // namespace kelmora
