// Why a frame's widgets stand as they do, through the C interface: the
// rules' own record, read and changed in nothing.

#include <memory>
#include <string>
#include <vector>

#include "automation/CGuard.h"
#include "automation/CVariants.h"
#include "automation/VariantArray.h"
#include "automation/kelmora.h"
#include "hosting/FrameContainer.h"
#include "hosting/RuleExplainer.h"

namespace {

using kelmora::Variant;
using kelmora::WidgetExplanation;

Variant array(std::vector<Variant> items) {
  return Variant(
      std::shared_ptr<kelmora::Object>(std::make_shared<kelmora::VariantArray>(std::move(items))));
}

// One row in the order kelmora.h gives.
Variant row(const WidgetExplanation& e) {
  return array({e.name,
                e.className,
                e.key,
                static_cast<int32_t>(e.overallIndex),
                e.caption,
                e.shown,
                e.enabled,
                WidgetExplanation::sourceName(e.source),
                e.enableKey,
                e.dependentWidgets,
                e.toggleByHiding,
                e.formatFamily,
                e.earlierFormat,
                e.trigger,
                e.condition,
                e.value,
                e.conditionHeld,
                e.command,
                e.captionWhenEnabled,
                e.captionWhenDisabled,
                e.applied,
                e.because});
}

}  // namespace

extern "C" {

int32_t kelmora_explain(kelmora_object* container, int16_t which_type, kelmora_variant* out,
                        kelmora_error* error) {
  return kelmora::cabi::guarded(error, [&] {
    if (out == nullptr)
      throw kelmora::RuntimeError(kelmora::kInvalidProcedureCall);
    const auto frames = kelmora::cabi::typed<kelmora::FrameContainer>(container);
    std::vector<Variant> rows;
    for (const auto& e : kelmora::RuleExplainer::explain(*frames, which_type))
      rows.push_back(row(e));
    kelmora::CVariants::fromVariant(array(std::move(rows)), *out);
  });
}

}  // extern "C"
