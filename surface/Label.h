#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/Variant.h"
#include "surface/Widget.h"

namespace kelmora {

// A caption without a window of its own: it lies beneath windowed widgets
// and takes no focus. A change of Caption raises Change, so that a label
// can carry a stored field value.
class Label : public Widget {
 public:
  static constexpr int16_t kLeftJustify = 0;
  static constexpr int16_t kRightJustify = 1;
  static constexpr int16_t kCenter = 2;

  std::string ClassName() const override { return "Label"; }
  Variant DefaultValue() const override { return Variant(mCaption); }
  void defaultText(std::string& out) const override { out.assign(mCaption); }
  bool isWindowless() const override { return true; }

  const std::string& Caption() const { return mCaption; }
  void Caption(std::string_view value);
  const std::string& caption() const override { return mCaption; }
  void caption(std::string_view value) override { Caption(value); }
  void setDefaultText(std::string_view value) override { Caption(value); }
  int16_t Alignment() const { return mAlignment; }
  // Anything but the three alignments fails with 380.
  void Alignment(int16_t value);

 private:
  std::string mCaption;
  int16_t mAlignment = kLeftJustify;
};

}  // namespace kelmora
