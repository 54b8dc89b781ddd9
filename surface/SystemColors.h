#pragma once

#include <cstdint>

namespace kelmora {

// Colours in the toolkit's encoding: the high bit marks a system colour
// whose low byte names it; anything else is an RGB value.
using Color = uint32_t;

inline constexpr Color kColorWindowBackground = 0x80000005u;
inline constexpr Color kColorWindowText = 0x80000008u;
inline constexpr Color kColorInactiveBorder = 0x8000000Bu;
inline constexpr Color kColorButtonFace = 0x8000000Fu;

}  // namespace kelmora
