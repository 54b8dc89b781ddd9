#include "render/FormFontMetrics.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace kelmora::tools {

namespace {

struct Advance {
  uint32_t code;
  uint8_t pixels;
};

constexpr Advance kAdvances[] = {
#include "render/FormFontAdvances.inc"
};
constexpr uint8_t widest() {
  uint8_t most = 0;
  for (const Advance& advance : kAdvances) most = std::max(most, advance.pixels);
  return most;
}

}  // namespace

float FormFontMetrics::advance(uint32_t code) {
  const auto* found = std::lower_bound(std::begin(kAdvances), std::end(kAdvances), code,
                                       [](const Advance& a, uint32_t c) { return a.code < c; });
  return found != std::end(kAdvances) && found->code == code ? found->pixels : widest();
}

namespace {

// The next code point of UTF-8 text; a byte that starts no valid sequence
// counts as one character of its own.
}  // namespace

uint32_t FormFontMetrics::next(std::string_view text, size_t& at) {
  const auto lead = static_cast<unsigned char>(text[at]);
  size_t length = lead < 0x80           ? 1
                  : (lead >> 5) == 0x6  ? 2
                  : (lead >> 4) == 0xE  ? 3
                  : (lead >> 3) == 0x1E ? 4
                                        : 0;
  if (length == 0 || at + length > text.size()) {
    ++at;
    return 0xFFFD;
  }
  uint32_t code = length == 1 ? lead : lead & (0x7F >> length);
  for (size_t i = 1; i < length; ++i) {
    const auto follow = static_cast<unsigned char>(text[at + i]);
    if ((follow & 0xC0) != 0x80) {
      ++at;
      return 0xFFFD;
    }
    code = (code << 6) | (follow & 0x3F);
  }
  at += length;
  return code;
}

float FormFontMetrics::width(std::string_view text) {
  float pixels = 0;
  for (size_t at = 0; at < text.size();) pixels += advance(next(text, at));
  return pixels;
}

}  // namespace kelmora::tools
