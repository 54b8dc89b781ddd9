#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Variant.h"
#include "surface/Widget.h"

namespace kelmora {

// A combo box, drop-down (free text plus a list) or list-only. Text is the
// default property. A real change of ListIndex raises Click, whether a user
// picked the entry, a program wrote ListIndex, or a program wrote the Text
// of a list-only combo, which selects the entry with exactly that text.
// List upkeep (AddItem, RemoveItem, Clear) raises nothing.
class ComboBox : public Widget {
 public:
  static constexpr int16_t kDropdownCombo = 0;
  static constexpr int16_t kDropdownList = 2;

  std::string ClassName() const override { return "ComboBox"; }
  Variant DefaultValue() const override { return Variant(mText); }
  void defaultText(std::string& out) const override { out.assign(mText); }
  bool takesFocus() const override { return true; }

  int16_t Style() const { return mStyle; }
  // Anything but the two styles fails with 380.
  void Style(int16_t value);

  const std::string& Text() const { return mText; }
  // On a list-only combo a text that no entry has fails with 380. On a
  // drop-down combo the text is free: it raises Change, and ListIndex
  // follows silently to the entry with that text, or -1.
  void Text(std::string_view value);
  void setDefaultText(std::string_view value) override { Text(value); }

  // An index outside the list fails with 381.
  const std::string& List(int16_t index) const;
  int16_t ListCount() const { return static_cast<int16_t>(mItems.size()); }
  int16_t ListIndex() const { return mListIndex; }
  // -1 selects nothing; below -1 or past the list fails with 380.
  void ListIndex(int16_t value);

  // Adds at the end, or before `index`; a bad index fails with 5.
  void AddItem(std::string item, int16_t index = -1);
  // An index outside the list fails with 5.
  void RemoveItem(int16_t index);
  void Clear();

 private:
  void selectSilently(int16_t index);

  int16_t mStyle = kDropdownCombo;
  std::string mText;
  std::vector<std::string> mItems;
  int16_t mListIndex = -1;
};

}  // namespace kelmora
