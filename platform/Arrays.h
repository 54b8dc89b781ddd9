#pragma once

#include <cstdint>
#include <vector>

#include "platform/RuntimeError.h"

namespace kelmora {

// The run time's arrays on std::vector: bounds are 0 to an upper bound, an
// array without dimensions (an empty vector) has no upper bound, and any
// access outside the bounds fails with 9.
class Arrays {
 public:
  template <typename T>
  static int16_t UBound(const std::vector<T>& array) {
    if (array.empty())
      throw RuntimeError(kSubscriptOutOfRange);
    return static_cast<int16_t>(array.size() - 1);
  }

  template <typename T>
  static T& at(std::vector<T>& array, int32_t index) {
    check(array.size(), index);
    return array[static_cast<size_t>(index)];
  }

  template <typename T>
  static const T& at(const std::vector<T>& array, int32_t index) {
    check(array.size(), index);
    return array[static_cast<size_t>(index)];
  }

  // Dimensions the array 0 to upper, every entry empty; an upper bound below
  // 0 fails with 9 and leaves the array as it was.
  template <typename T>
  static void ReDim(std::vector<T>& array, int32_t upper) {
    if (upper < 0)
      throw RuntimeError(kSubscriptOutOfRange);
    array.assign(static_cast<size_t>(upper) + 1, T{});
  }

  // The same, keeping the contents that fit.
  template <typename T>
  static void ReDimPreserve(std::vector<T>& array, int32_t upper) {
    if (upper < 0)
      throw RuntimeError(kSubscriptOutOfRange);
    array.resize(static_cast<size_t>(upper) + 1);
  }

 private:
  static void check(size_t size, int32_t index) {
    if (index < 0 || static_cast<size_t>(index) >= size)
      throw RuntimeError(kSubscriptOutOfRange);
  }
};

}  // namespace kelmora
