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

// A colour as 0xRRGGBB on screen: the system colours as a classic desktop
// paints them (any other system colour a neutral grey), anything else
// unpacked from the toolkit's 0x00BBGGRR. Every picture of a form paints
// the same colours.
constexpr uint32_t screenRgb(Color value) {
  switch (value) {
    case kColorWindowBackground:
      return 0xffffffu;
    case kColorWindowText:
      return 0x000000u;
    case kColorInactiveBorder:
      return 0xd4d0c8u;
    case kColorButtonFace:
      return 0xf0f0f0u;
    default:
      break;
  }
  if ((value & 0x80000000u) != 0)
    return 0xc0c0c0u;
  return ((value & 0xffu) << 16) | (value & 0xff00u) | ((value >> 16) & 0xffu);
}

}  // namespace kelmora
