#include <benchmark/benchmark.h>

#include "AllocationCounter.h"
#include "NoopTracing.h"
#include "surface/Label.h"
#include "surface/TextBox.h"
#include "surface/UserControl.h"
#include "toggler/DepWidgetToggler.h"

namespace kelmora {
namespace {

// Execute on a trigger with three instructions, over a form of 40 widgets:
// the work the rule table does on each keystroke in a field with rules.
void BM_ExecuteThreeInstructions(benchmark::State& state) {
  bench::ScopedNoopTracing tracing;
  auto form = UserControl::create("BenchForm");
  DepWidgetToggler::Controls controls;
  Dictionary keys;
  for (int16_t i = 0; i < 40; ++i) {
    const std::string key = "Field" + std::to_string(i);
    std::shared_ptr<Widget> widget;
    if (i % 2 == 0) {
      widget = form->add<TextBox>("TextBox", i);
    } else {
      auto label = form->add<Label>("Label", i);
      label->Caption("Caption " + std::to_string(i));
      widget = label;
    }
    widget->Tag(key);
    keys.Add(key, Variant(i));
    controls.push_back(widget);
  }
  std::static_pointer_cast<TextBox>(controls[0])->Text("https://example.org");
  DepWidgetToggler toggler;
  toggler.Reset();
  toggler.Add(keys, "Field0<>", "Field1,Field2", {.toggleByHiding = true});
  toggler.Add(keys, "Field0=__ALWAYS_ENABLE__", "Field3,Field4");
  toggler.Add(keys, "Field0=Medium||Field6=True", "Field5(KEEP_EXISTING|Serialized),Field8");
  toggler.Execute(controls, 0);  // warm

  bench::AllocationScope allocations(state);
  for (auto _ : state) toggler.Execute(controls, 0);
  allocations.report();
  form->terminate();
}

BENCHMARK(BM_ExecuteThreeInstructions);

}  // namespace
}  // namespace kelmora
