#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kelmora::host {

// The host's translation between the caption of a title label and the
// title type it stores. The frames ask with category 3 for an article or
// sub-work label and 12 for a refers-to label. A caption or type the table
// does not know passes through unchanged, so that records which stored the
// caption itself still load.
class TitleTypeTable {
 public:
  struct Row {
    int16_t category;
    std::string_view caption;
    std::string_view titleType;
  };

  // clang-format off
  static constexpr Row kRows[] = {
      {3, "Article title", "article"},
      {3, "Review", "review"},
      {3, "Interview", "interview"},
      {3, "Letter", "letter"},
      {3, "Chapter", "chapter"},
      {12, "Refers to", "refersTo"},
      {12, "Abstract", "abstract"},
      {12, "Serialized", "serialized"},
      {12, "Comment on", "commentOn"},
      {12, "Reply to", "replyTo"},
  };
  // clang-format on

  static std::string CaptionToTitleType(int16_t category, const std::string& caption);
  static std::string TitleTypeToCaption(int16_t category, const std::string& titleType);
};

}  // namespace kelmora::host
