#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/Variant.h"
#include "surface/Widget.h"

namespace kelmora {

// A check box. Value is a number, not a boolean: 0 unchecked, 1 checked,
// 2 the third (greyed) state. A real change of Value raises Click.
class CheckBox : public Widget {
 public:
  static constexpr int16_t kUnchecked = 0;
  static constexpr int16_t kChecked = 1;
  static constexpr int16_t kGrayed = 2;

  std::string ClassName() const override { return "CheckBox"; }
  Variant DefaultValue() const override { return Variant(mValue); }
  bool takesFocus() const override { return true; }

  const std::string& Caption() const { return mCaption; }
  void Caption(std::string_view value);
  const std::string& caption() const override { return mCaption; }
  void caption(std::string_view value) override { Caption(value); }
  int16_t Value() const { return mValue; }
  // Anything but 0, 1 and 2 fails with 380.
  void Value(int16_t value);

 private:
  std::string mCaption;
  int16_t mValue = kUnchecked;
};

}  // namespace kelmora
