#pragma once

#include <cstdint>
#include <string_view>

namespace kelmora::tools {

// The widths of the forms' font, Tahoma at 11 pixels, as the picture needs
// them to lay captions out the way the window does: the whole-pixel
// advances of the font's own 11-pixel bitmaps, which the window draws with,
// without kerning, as the platform's labels draw.
class FormFontMetrics {
 public:
  static constexpr float kPixels = 11.0f;

  // The drawn width of UTF-8 text in pixels. A character the table lacks
  // counts as wide as the widest it has, so that a caption breaks early
  // rather than run past its label.
  static float width(std::string_view text);
  // The advance of one character.
  static float advance(uint32_t code);
  // The code point at `at` in UTF-8 text, moving `at` past it; a byte that
  // starts no valid sequence is one character, U+FFFD.
  static uint32_t next(std::string_view text, size_t& at);
};

}  // namespace kelmora::tools
