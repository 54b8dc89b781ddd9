#include "surface/FieldLabels.h"

#include <limits>

#include "surface/CheckBox.h"
#include "surface/Label.h"
#include "surface/OptionButton.h"
#include "surface/UserControl.h"

namespace kelmora {

namespace {

// How far, in pixels, a label may end from its field: the forms leave about
// five pixels, layout code a little more.
constexpr float kMostGap = 24.0f;

}  // namespace

const Label* FieldLabels::labelOf(const Widget& field) {
  const UserControl* control = field.Parent();
  if (control == nullptr || dynamic_cast<const Label*>(&field) != nullptr)
    return nullptr;
  const SurfaceRect own = field.surfaceRect();
  const Label* best = nullptr;
  bool bestShown = false;
  float bestGap = std::numeric_limits<float>::max();
  for (const auto& widget : control->Controls()) {
    const auto* label = dynamic_cast<const Label*>(widget.get());
    if (label == nullptr || label->Container() != field.Container() || label->Caption().empty())
      continue;
    const SurfaceRect rect = label->surfaceRect();
    const float middle = rect.top + rect.height / 2;
    const float gap = own.left - (rect.left + rect.width);
    if (middle < own.top || middle > own.top + own.height || gap < -1.0f || gap > kMostGap)
      continue;
    const bool shown = label->Visible();
    if (best == nullptr || (shown && !bestShown) || (shown == bestShown && gap < bestGap)) {
      best = label;
      bestShown = shown;
      bestGap = gap;
    }
  }
  return best;
}

std::string FieldLabels::captionOf(const Widget& field) {
  if (const Label* label = labelOf(field))
    return label->Caption();
  const bool captioned = dynamic_cast<const OptionButton*>(&field) != nullptr ||
                         dynamic_cast<const CheckBox*>(&field) != nullptr ||
                         dynamic_cast<const Label*>(&field) != nullptr;
  if (captioned && !field.caption().empty())
    return field.caption();
  return field.ToolTipText();
}

}  // namespace kelmora
