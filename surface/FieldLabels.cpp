#include "surface/FieldLabels.h"

#include <cctype>
#include <cmath>
#include <limits>
#include <tuple>

#include "surface/CheckBox.h"
#include "surface/ComboBox.h"
#include "surface/Label.h"
#include "surface/OptionButton.h"
#include "surface/UserControl.h"

namespace kelmora {

namespace {

// How far, in pixels, a label may end from its field: the forms leave about
// five pixels, layout code a little more.
constexpr float kMostGap = 24.0f;
// A label starts within this many pixels of its field: a caption that
// reaches across the form is a note, not a field's label.
constexpr float kMostReach = 200.0f;

// "v8_EsourceDegree,degree" as an author would say it: "Esource degree".
// Keys that the rule layer ignores name no field.
std::string keyInWords(const std::string& tag) {
  std::string key = tag.substr(0, tag.find(','));
  if (key.rfind("vIgnore_", 0) == 0)
    return {};
  if (key.size() > 1 && key[0] == 'v' && std::isdigit(static_cast<unsigned char>(key[1])))
    key.erase(0, key.find('_') == std::string::npos ? 0 : key.find('_') + 1);
  std::string words;
  char previous = '\0';
  for (char c : key) {
    // A new word at a capital after a small letter: "EsourceURL" is
    // "Esource url", not one word a letter.
    const bool upper = std::isupper(static_cast<unsigned char>(c)) != 0;
    if (upper && !words.empty() && std::isupper(static_cast<unsigned char>(previous)) == 0)
      words += ' ';
    words += upper && !words.empty()
                 ? static_cast<char>(std::tolower(static_cast<unsigned char>(c)))
                 : c;
    previous = c;
  }
  return words;
}

}  // namespace

const Widget* FieldLabels::labelOf(const Widget& field) {
  const UserControl* control = field.Parent();
  if (control == nullptr || dynamic_cast<const Label*>(&field) != nullptr)
    return nullptr;
  const SurfaceRect own = field.surfaceRect();
  const Widget* best = nullptr;
  // Rules show and hide a field with its label, and rows hidden together
  // may overlap: a label that shares the field's visibility goes first,
  // then the one nearest its middle, then the one nearest its left edge.
  std::tuple<bool, float, float> bestScore{true, std::numeric_limits<float>::max(),
                                           std::numeric_limits<float>::max()};
  for (const auto& widget : control->Controls()) {
    const Widget* label = widget.get();
    const auto* caption = dynamic_cast<const Label*>(label);
    const auto* list = dynamic_cast<const ComboBox*>(label);
    const bool names = (caption != nullptr && !caption->Caption().empty()) ||
                       (list != nullptr && list->Style() == ComboBox::kDropdownList &&
                        !list->Text().empty() && dynamic_cast<const ComboBox*>(&field) == nullptr);
    if (!names || label == &field || label->Container() != field.Container())
      continue;
    const SurfaceRect rect = label->surfaceRect();
    const float middle = rect.top + rect.height / 2;
    const float gap = own.left - (rect.left + rect.width);
    if (middle < own.top || middle > own.top + own.height || gap < -1.0f || gap > kMostGap ||
        own.left - rect.left > kMostReach)
      continue;
    const std::tuple<bool, float, float> score{label->Visible() != field.Visible(),
                                               std::abs(middle - (own.top + own.height / 2)), gap};
    if (best == nullptr || score < bestScore) {
      best = label;
      bestScore = score;
    }
  }
  return best;
}

std::string FieldLabels::captionOf(const Widget& field) {
  if (const Widget* label = labelOf(field)) {
    if (const auto* list = dynamic_cast<const ComboBox*>(label))
      return list->Text();
    return label->caption();
  }
  const bool captioned = dynamic_cast<const OptionButton*>(&field) != nullptr ||
                         dynamic_cast<const CheckBox*>(&field) != nullptr ||
                         dynamic_cast<const Label*>(&field) != nullptr;
  if (captioned && !field.caption().empty())
    return field.caption();
  if (!field.ToolTipText().empty())
    return field.ToolTipText();
  return keyInWords(field.Tag());
}

}  // namespace kelmora
