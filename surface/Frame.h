#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/Variant.h"
#include "surface/Widget.h"

namespace kelmora {

// A container inside a user control. Widgets inside it count twips from its
// inner corner, whatever the surface around it counts. Its Caption raises
// no event; a borderless frame shows none.
class Frame : public Widget {
 public:
  static constexpr int16_t kNoBorder = 0;
  static constexpr int16_t kFixedSingle = 1;

  std::string ClassName() const override { return "Frame"; }
  Variant DefaultValue() const override { return Variant(mCaption); }

  const std::string& Caption() const { return mCaption; }
  void Caption(std::string_view value);
  const std::string& caption() const override { return mCaption; }
  void caption(std::string_view value) override { Caption(value); }
  int16_t BorderStyle() const { return mBorderStyle; }
  // Anything but the two styles fails with 380.
  void BorderStyle(int16_t value);

 private:
  std::string mCaption;
  int16_t mBorderStyle = kNoBorder;
};

}  // namespace kelmora
