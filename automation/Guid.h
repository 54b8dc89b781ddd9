#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace kelmora {

// A 16-byte identifier of the component model, read at compile time from
// its registry text "{XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}". Its bytes are
// laid out as the platform stores them: the first three groups little
// endian, the last two as written.
struct Guid {
  uint32_t Data1 = 0;
  uint16_t Data2 = 0;
  uint16_t Data3 = 0;
  std::array<uint8_t, 8> Data4{};

  static constexpr Guid parse(std::string_view text) {
    // Where a constant is wanted, a malformed literal stops the compilation.
    if (text.size() != 38 || text[0] != '{' || text[37] != '}' || text[9] != '-' ||
        text[14] != '-' || text[19] != '-' || text[24] != '-')
      throw "malformed identifier";
    Guid guid;
    guid.Data1 = static_cast<uint32_t>(hex(text, 1, 8));
    guid.Data2 = static_cast<uint16_t>(hex(text, 10, 4));
    guid.Data3 = static_cast<uint16_t>(hex(text, 15, 4));
    guid.Data4[0] = static_cast<uint8_t>(hex(text, 20, 2));
    guid.Data4[1] = static_cast<uint8_t>(hex(text, 22, 2));
    for (size_t i = 0; i < 6; ++i)
      guid.Data4[2 + i] = static_cast<uint8_t>(hex(text, 25 + 2 * i, 2));
    return guid;
  }

  constexpr std::array<uint8_t, 16> bytes() const {
    std::array<uint8_t, 16> out{};
    for (size_t i = 0; i < 4; ++i) out[i] = static_cast<uint8_t>(Data1 >> (8 * i));
    for (size_t i = 0; i < 2; ++i) out[4 + i] = static_cast<uint8_t>(Data2 >> (8 * i));
    for (size_t i = 0; i < 2; ++i) out[6 + i] = static_cast<uint8_t>(Data3 >> (8 * i));
    for (size_t i = 0; i < 8; ++i) out[8 + i] = Data4[i];
    return out;
  }

  friend constexpr bool operator==(const Guid&, const Guid&) = default;

 private:
  static constexpr uint64_t hex(std::string_view text, size_t from, size_t count) {
    uint64_t value = 0;
    for (size_t i = from; i < from + count; ++i) {
      char c = text[i];
      int digit = c >= '0' && c <= '9'   ? c - '0'
                  : c >= 'A' && c <= 'F' ? c - 'A' + 10
                  : c >= 'a' && c <= 'f' ? c - 'a' + 10
                                         : throw "malformed identifier";
      value = value * 16 + static_cast<uint64_t>(digit);
    }
    return value;
  }
};

}  // namespace kelmora
