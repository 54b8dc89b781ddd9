#include "surface/CaptionLayout.h"

#include <algorithm>
#include <cmath>

#include "surface/Label.h"

namespace kelmora {

namespace {

std::string_view trimmedEnd(std::string_view text) {
  while (!text.empty() && (text.back() == ' ' || text.back() == '\r')) text.remove_suffix(1);
  return text;
}

// Breaks one paragraph, without line ends, into lines no wider than
// `width` where its words allow.
void breakParagraph(std::string_view paragraph, float width, const CaptionLayout::Measure& measure,
                    std::vector<CaptionLayout::Line>& lines) {
  std::string_view rest = trimmedEnd(paragraph);
  while (true) {
    const float whole = measure(rest);
    // The first break a line may take: after its first word, however
    // wide, so that every line holds at least one.
    size_t end = rest.find(' ', std::min(rest.size(), rest.find_first_not_of(' ')));
    if (whole <= width || end == std::string_view::npos) {
      lines.push_back({std::string(rest), whole, 0});
      return;
    }
    // The longest run of whole words that fits.
    for (size_t next = rest.find(' ', end + 1); next != std::string_view::npos;
         next = rest.find(' ', next + 1)) {
      if (measure(trimmedEnd(rest.substr(0, next))) > width)
        break;
      end = next;
    }
    const std::string_view line = trimmedEnd(rest.substr(0, end));
    lines.push_back({std::string(line), measure(line), 0});
    // The spaces where a line breaks are not drawn.
    rest.remove_prefix(std::min(rest.size(), rest.find_first_not_of(' ', end)));
  }
}

}  // namespace

std::vector<CaptionLayout::Line> CaptionLayout::lay(std::string_view caption, float width,
                                                    int alignment, const Measure& measure) {
  std::vector<Line> lines;
  if (caption.empty())
    return lines;
  size_t start = 0;
  while (start <= caption.size()) {
    size_t end = caption.find('\n', start);
    if (end == std::string_view::npos)
      end = caption.size();
    std::vector<Line> paragraph;
    breakParagraph(caption.substr(start, end - start), width, measure, paragraph);
    lines.insert(lines.end(), paragraph.begin(), paragraph.end());
    start = end + 1;
  }
  for (Line& line : lines) {
    const float room = width - line.width;
    if (alignment == Label::kRightJustify)
      line.x = std::max(0.0f, room);
    else if (alignment == Label::kCenter)
      line.x = std::max(0.0f, room / 2);
  }
  return lines;
}

size_t CaptionLayout::shownLines(float height, float lineHeight) {
  if (height <= 0 || lineHeight <= 0)
    return 0;
  return static_cast<size_t>(std::ceil(height / lineHeight));
}

}  // namespace kelmora
