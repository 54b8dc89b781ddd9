#pragma once

#include <string>
#include <string_view>

#include "platform/Variant.h"
#include "surface/Widget.h"

namespace kelmora {

// A radio button. The option buttons standing in one container form a
// group, whatever their names: selecting one clears the others of that
// container, and only the one selected raises Click.
class OptionButton : public Widget {
 public:
  std::string ClassName() const override { return "OptionButton"; }
  Variant DefaultValue() const override { return Variant(mValue); }
  bool takesFocus() const override { return true; }

  const std::string& Caption() const { return mCaption; }
  void Caption(std::string_view value);
  const std::string& caption() const override { return mCaption; }
  void caption(std::string_view value) override { Caption(value); }
  bool Value() const { return mValue; }
  void Value(bool value);

 private:
  std::string mCaption;
  bool mValue = false;
};

}  // namespace kelmora
