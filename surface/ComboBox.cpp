#include "surface/ComboBox.h"

#include <algorithm>
#include <limits>

#include "platform/RuntimeError.h"

namespace kelmora {

void ComboBox::Style(int16_t value) {
  if (value != kDropdownCombo && value != kDropdownList)
    throw RuntimeError(kInvalidPropertyValue);
  assign(mStyle, value, WidgetProperty::Style);
}

void ComboBox::Text(std::string_view value) {
  const auto found = std::find(mItems.begin(), mItems.end(), value);
  const auto index =
      found == mItems.end() ? int16_t{-1} : static_cast<int16_t>(found - mItems.begin());
  if (mStyle == kDropdownList) {
    if (index < 0)
      throw RuntimeError(kInvalidPropertyValue);
    ListIndex(index);
    return;
  }
  if (!assign(mText, value, WidgetProperty::Text))
    return;
  assign(mListIndex, index, WidgetProperty::ListIndex);
  raiseChange();
}

const std::string& ComboBox::List(int16_t index) const {
  if (index < 0 || index >= ListCount())
    throw RuntimeError(kInvalidPropertyArrayIndex);
  return mItems[static_cast<size_t>(index)];
}

void ComboBox::ListIndex(int16_t value) {
  if (value < -1 || value >= ListCount())
    throw RuntimeError(kInvalidPropertyValue);
  if (value == mListIndex)
    return;
  selectSilently(value);
  raiseClick();
}

void ComboBox::selectSilently(int16_t index) {
  assign(mListIndex, index, WidgetProperty::ListIndex);
  assign(mText, index < 0 ? std::string() : mItems[static_cast<size_t>(index)],
         WidgetProperty::Text);
}

void ComboBox::AddItem(std::string item, int16_t index) {
  if (index < -1 || index > ListCount() || ListCount() == std::numeric_limits<int16_t>::max()) {
    throw RuntimeError(kInvalidProcedureCall);
  }
  const auto at = index < 0 ? ListCount() : index;
  mItems.insert(mItems.begin() + at, std::move(item));
  if (mListIndex >= at)
    assign(mListIndex, static_cast<int16_t>(mListIndex + 1), WidgetProperty::ListIndex);
  notify(WidgetProperty::List);
}

void ComboBox::RemoveItem(int16_t index) {
  if (index < 0 || index >= ListCount())
    throw RuntimeError(kInvalidProcedureCall);
  mItems.erase(mItems.begin() + index);
  if (index == mListIndex) {
    assign(mListIndex, int16_t{-1}, WidgetProperty::ListIndex);
    if (mStyle == kDropdownList)
      assign(mText, std::string(), WidgetProperty::Text);
  } else if (index < mListIndex) {
    assign(mListIndex, static_cast<int16_t>(mListIndex - 1), WidgetProperty::ListIndex);
  }
  notify(WidgetProperty::List);
}

void ComboBox::Clear() {
  mItems.clear();
  selectSilently(-1);
  notify(WidgetProperty::List);
}

}  // namespace kelmora
