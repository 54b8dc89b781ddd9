#pragma once

#include <string>
#include <string_view>

#include "platform/Variant.h"
#include "surface/Widget.h"

namespace kelmora {

// A single-line text field. Text is the default property; every real change
// of it, typed or written by a program, raises Change during the write.
class TextBox : public Widget {
 public:
  std::string ClassName() const override { return "TextBox"; }
  Variant DefaultValue() const override { return Variant(mText); }
  void defaultText(std::string& out) const override { out.assign(mText); }
  bool takesFocus() const override { return true; }

  const std::string& Text() const { return mText; }
  void Text(std::string_view value);
  void setDefaultText(std::string_view value) override { Text(value); }

 private:
  std::string mText;
};

}  // namespace kelmora
