#include "toggler/RuleExplanations.h"

#include <algorithm>

namespace kelmora {

void RuleExplanations::startRegistration() noexcept {
  ++mRegistration;
  // Rows of earlier registrations stay only while a slot names them.
  std::erase_if(mKept, [&](const std::shared_ptr<const WrittenRule>& rule) {
    for (const RuleDecision& slot : mSlots)
      if (slot.rule == rule.get())
        return false;
    return true;
  });
}

void RuleExplanations::keep(std::shared_ptr<const WrittenRule> rule) {
  mKept.push_back(std::move(rule));
}

void RuleExplanations::registeredFor(int32_t formatFamily) noexcept {
  try {
    if (mFormats.size() <= mRegistration)
      mFormats.resize(mRegistration + 1, -1);
    mFormats[mRegistration] = formatFamily;
  } catch (const std::bad_alloc&) {
    // Without memory the family stays untold; the rules are unaffected.
  }
}

int32_t RuleExplanations::formatOf(uint32_t registration) const noexcept {
  return registration < mFormats.size() ? mFormats[registration] : -1;
}

void RuleExplanations::reserve(size_t widgets) {
  if (mSlots.size() < widgets)
    mSlots.resize(widgets);
}

RuleDecision* RuleExplanations::slot(int16_t index) noexcept {
  return index >= 0 && static_cast<size_t>(index) < mSlots.size()
             ? &mSlots[static_cast<size_t>(index)]
             : nullptr;
}

const RuleDecision* RuleExplanations::decisionFor(int16_t index) const noexcept {
  return index >= 0 && static_cast<size_t>(index) < mSlots.size()
             ? &mSlots[static_cast<size_t>(index)]
             : nullptr;
}

}  // namespace kelmora
