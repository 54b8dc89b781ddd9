#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/Object.h"
#include "platform/Variant.h"

namespace kelmora {

// The shared text operations that tag reading and rule evaluation rest on:
// one object per thread, made on first use. All comparisons are binary
// (exact text, letter case counts). The operations that change a text do
// so in place; they work on views, so that reading a tag copies nothing.
class TextHelper : public Object {
 public:
  static const std::shared_ptr<TextHelper>& instance();

  std::string TypeName() const override { return "TextHelper"; }

  // Variants holding a boolean.
  Variant TextStartsWith(std::string_view text, std::string_view prefix) const;
  Variant TextEndsWith(std::string_view text, std::string_view suffix) const;
  // Keeps the part before the first separator. Without a separator the text
  // stays whole when `keepWholeWithout` is true, and becomes empty
  // otherwise.
  void KeepBeforeSeparator(std::string_view& text, std::string_view separator,
                           bool keepWholeWithout) const;
  // Keeps the part after the first separator; without one the text stays
  // whole.
  void KeepAfterSeparator(std::string_view& text, std::string_view separator) const;
  // Takes `ending` off the end of the text if the text ends with it.
  void RemoveEnding(std::string& text, const std::string& ending) const;
};

}  // namespace kelmora
