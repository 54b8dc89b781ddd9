#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace kelmora {

// How a label lays its caption out, as the platform's labels do: the
// caption breaks at explicit line ends and, where it is wider than the
// label, at the spaces between words. A word wider than the label keeps a
// line of its own. What falls below the label is clipped by whoever draws
// it, and a line wider than the label starts at its left edge whatever the
// alignment, so that a label never loses the first letters of its caption.
//
// The layout knows no font: the caller measures text with the font it
// draws in, so that the Qt mirror and the SVG picture break alike.
class CaptionLayout {
 public:
  // The platform's line for the forms' font (Tahoma, 11 pixels at the
  // design density): 13 pixels from one line's top to the next, the
  // baseline 11 below the top.
  static constexpr float kFormLineHeight = 13.0f;
  static constexpr float kFormAscent = 11.0f;

  // The drawn width of a piece of text, in the caller's units.
  using Measure = std::function<float(std::string_view)>;

  struct Line {
    std::string text;
    float width = 0;
    // Offset from the label's left edge, after alignment.
    float x = 0;
  };

  // `alignment` takes the values of Label::Alignment: 0 left, 1 right,
  // 2 centred.
  static std::vector<Line> lay(std::string_view caption, float width, int alignment,
                               const Measure& measure);
  // The lines that show, whole or in part, in a label `height` high when
  // each line takes `lineHeight`.
  static size_t shownLines(float height, float lineHeight);
};

}  // namespace kelmora
