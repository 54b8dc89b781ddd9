// Benchmarks of the paths a host and an author hit, each through
// FrameContainer with a host that only counts: the keystroke path and
// loading a reference on each of the three frames, a format switch, the
// show-all switch, building a container, and Model construction. The
// keystroke and load paths are also measured against a floor: the same
// string writes and host calls on plain data, through a virtual interface,
// with no rules, tracing or widgets.
#include <benchmark/benchmark.h>

#include "AllocationCounter.h"
#include "BenchHost.h"
#include "model/Model.h"
#include "surface/TextBox.h"

namespace kelmora {
namespace {

using bench::AllocationScope;
using bench::EsourceBenchHost;
using bench::NonPeriodicalBenchHost;
using bench::PeriodicalBenchHost;

// A keystroke: one change of a text field reaches the host, and the host
// answers with the rules of that field and the close-up. The field's text
// alternates between two values, so that every keystroke changes it.
template <typename Host>
void keystrokePath(benchmark::State& state, int16_t textBox, const char* key,
                   const std::string (&texts)[2]) {
  Host host;
  auto field = std::dynamic_pointer_cast<TextBox>(host.widget("TextBox", textBox));
  const int16_t index = host.internalIndex(key);
  size_t next = 0;
  for (int warm = 0; warm < 4; ++warm) {
    field->Text(texts[next ^= 1]);
    host.container->ExecuteDependentWidgetToggler(host.whichType, index);
  }
  AllocationScope allocations(state);
  for (auto _ : state) {
    field->Text(texts[next ^= 1]);
    host.container->ExecuteDependentWidgetToggler(host.whichType, index);
  }
  allocations.report();
  bench::ScopedNoopTracing::checkNoFailures(state);
}

// Loading a full stored reference, alternating with one that differs in
// one field, so that each load really changes something.
template <typename Host>
void loadPath(benchmark::State& state, std::vector<std::string> (Host::*sample)() const,
              const char* changedKey, const char* changedValue) {
  Host host;
  auto record = (host.*sample)();
  auto other = record;
  other[static_cast<size_t>(host.internalIndex(changedKey))] = changedValue;
  host.container->SynchronizeFieldsWithModel(host.whichType, record);
  bool flip = false;
  AllocationScope allocations(state);
  for (auto _ : state) {
    host.container->SynchronizeFieldsWithModel(host.whichType, (flip = !flip) ? other : record);
  }
  allocations.report();
  bench::ScopedNoopTracing::checkNoFailures(state);
}

// A change of PeriodicalOnline (a DOI).
void BM_KeystrokePath(benchmark::State& state) {
  keystrokePath<PeriodicalBenchHost>(
      state, 8, "PeriodicalOnline",
      {"https://doi.org/10.1145/609784.609818", "https://doi.org/10.1145/609784.609819"});
}
BENCHMARK(BM_KeystrokePath);

// A full stored journal article.
void BM_LoadPath(benchmark::State& state) {
  loadPath(state, &PeriodicalBenchHost::sampleArticle, "PeriodicalArticleTitle", "Another title");
}
BENCHMARK(BM_LoadPath);

// A change of the NonPeriodical website field, whose rule rows decide the
// access date and publish date rows.
void BM_NonPeriodicalKeystrokePath(benchmark::State& state) {
  keystrokePath<NonPeriodicalBenchHost>(
      state, 10, "Online",
      {"https://tides.example.org/tables", "https://tides.example.org/tables2"});
}
BENCHMARK(BM_NonPeriodicalKeystrokePath);

// A full stored book.
void BM_NonPeriodicalLoadPath(benchmark::State& state) {
  loadPath(state, &NonPeriodicalBenchHost::sampleBook, "Title", "Another title");
}
BENCHMARK(BM_NonPeriodicalLoadPath);

// A change of EsourceURL, which shows or keeps the access date and reaches
// the host; the frame registers no rule rows and has no close-up to do.
void BM_EsourceKeystrokePath(benchmark::State& state) {
  keystrokePath<EsourceBenchHost>(state, 4, "EsourceURL",
                                  {"https://forum.example.org/t/tidal-gauge/4127",
                                   "https://forum.example.org/t/tidal-gauge/4128"});
}
BENCHMARK(BM_EsourceKeystrokePath);

// A full stored forum post.
void BM_EsourceLoadPath(benchmark::State& state) {
  loadPath(state, &EsourceBenchHost::sampleMessage, "EsourceTitle", "Another subject");
}
BENCHMARK(BM_EsourceLoadPath);

// A host whose interface takes the same arguments as the library's
// callback, for the floor.
class FloorHost {
 public:
  virtual ~FloorHost() = default;
  virtual void widgetChangeHandler(bool& isKeyField, int16_t& Index, std::string& value,
                                   std::string& secondaryText, bool suppress,
                                   int16_t& toggleSecondIndex) = 0;
};

class CountingFloorHost : public FloorHost {
 public:
  int calls = 0;
  void widgetChangeHandler(bool&, int16_t&, std::string&, std::string&, bool, int16_t&) override {
    ++calls;
  }
};

// The floor of a keystroke: the field's text written once, the host called
// once.
void BM_KeystrokeFloor(benchmark::State& state) {
  auto host = std::make_unique<CountingFloorHost>();
  FloorHost* through = host.get();
  const std::string texts[] = {"https://doi.org/10.1145/609784.609818",
                               "https://doi.org/10.1145/609784.609819"};
  std::string field = texts[0];
  std::string secondary;
  size_t next = 0;
  AllocationScope allocations(state);
  for (auto _ : state) {
    field = texts[next ^= 1];
    bool isKeyField = false;
    int16_t index = 5;
    int16_t toggle = -1;
    through->widgetChangeHandler(isKeyField, index, field, secondary, false, toggle);
    benchmark::DoNotOptimize(field);
  }
  allocations.report();
  bench::ScopedNoopTracing::checkNoFailures(state);
}
BENCHMARK(BM_KeystrokeFloor);

// The floor of a load: every value written into its field, and the host
// called as often as loading the same reference calls it.
template <typename Host>
void loadFloor(benchmark::State& state, std::vector<std::string> (Host::*sample)() const) {
  int hostCalls = 0;
  std::vector<std::string> record;
  {
    Host host;
    record = (host.*sample)();
    host.container->SynchronizeFieldsWithModel(host.whichType, record);
    const int before = host.callback->calls;
    auto other = record;
    other[0] = "Another title";
    host.container->SynchronizeFieldsWithModel(host.whichType, other);
    hostCalls = host.callback->calls - before;
  }
  auto other = record;
  other[0] = "Another title";
  auto host = std::make_unique<CountingFloorHost>();
  FloorHost* through = host.get();
  std::vector<std::string> fields(record.size());
  std::string secondary;
  bool flip = false;
  AllocationScope allocations(state);
  for (auto _ : state) {
    const auto& values = (flip = !flip) ? other : record;
    for (size_t i = 0; i < values.size(); ++i) fields[i] = values[i];
    for (int call = 0; call < hostCalls; ++call) {
      bool isKeyField = false;
      int16_t index = static_cast<int16_t>(call);
      int16_t toggle = -1;
      through->widgetChangeHandler(isKeyField, index,
                                   fields[static_cast<size_t>(call) % fields.size()], secondary,
                                   false, toggle);
    }
    benchmark::DoNotOptimize(fields);
  }
  allocations.report();
  state.counters["host calls"] = hostCalls;
}

void BM_LoadFloor(benchmark::State& state) {
  loadFloor(state, &PeriodicalBenchHost::sampleArticle);
}
BENCHMARK(BM_LoadFloor);

void BM_NonPeriodicalLoadFloor(benchmark::State& state) {
  loadFloor(state, &NonPeriodicalBenchHost::sampleBook);
}
BENCHMARK(BM_NonPeriodicalLoadFloor);

void BM_EsourceLoadFloor(benchmark::State& state) {
  loadFloor(state, &EsourceBenchHost::sampleMessage);
}
BENCHMARK(BM_EsourceLoadFloor);

// A new format for the type, and its rules built and run.
void BM_FormatSwitch(benchmark::State& state) {
  PeriodicalBenchHost host;
  std::shared_ptr<FormatterSettings> formats[] = {std::make_shared<bench::BenchSettings>(1),
                                                  std::make_shared<bench::BenchSettings>(2)};
  size_t next = 0;
  AllocationScope allocations(state);
  for (auto _ : state) {
    host.main->ChangeFormatType(1);
    host.container->ToggleFormatDependentWidgets(1, formats[next ^= 1]);
  }
  allocations.report();
  bench::ScopedNoopTracing::checkNoFailures(state);
}
BENCHMARK(BM_FormatSwitch);

// Showing all fields and back.
void BM_ShowAllSwitch(benchmark::State& state) {
  PeriodicalBenchHost host;
  AllocationScope allocations(state);
  for (auto _ : state) {
    host.container->UpdateFrame(-1, true);
    host.container->UpdateFrame(-1, false);
  }
  allocations.report();
  bench::ScopedNoopTracing::checkNoFailures(state);
}
BENCHMARK(BM_ShowAllSwitch);

// A Main2 building a container on a form and showing the Periodical frame,
// then the container taken off the form. A Main2 hands each type's
// metadata to its first container only, so each round starts anew.
void BM_BuildContainerAndShowFirstFrame(benchmark::State& state) {
  PeriodicalBenchHost host;
  AllocationScope allocations(state);
  for (auto _ : state) {
    auto main = std::make_shared<Main2>();
    auto container = std::dynamic_pointer_cast<FrameContainer>(
        main->BuildFrameContainer(host.form, "Extra")->Object());
    container->initialize(host.callback);
    container->SetVisibleFrame(1);
    host.form->remove("Extra");
  }
  allocations.report();
  bench::ScopedNoopTracing::checkNoFailures(state);
}
BENCHMARK(BM_BuildContainerAndShowFirstFrame);

void BM_ModelConstruction(benchmark::State& state) {
  bench::ScopedNoopTracing tracing;
  const auto whichType = static_cast<int16_t>(state.range(0));
  AllocationScope allocations(state);
  for (auto _ : state) {
    auto model = std::make_shared<Model>();
    model->initialize(whichType);
    benchmark::DoNotOptimize(model);
  }
  allocations.report();
  bench::ScopedNoopTracing::checkNoFailures(state);
}
BENCHMARK(BM_ModelConstruction)->Arg(0)->Arg(1)->Arg(4);

// Memory of a container with one Periodical frame, and what stays after
// the container is taken off its form. A first round makes what lives for
// the whole process (names of traced procedures, the thread's text helper);
// the second round is the one measured.
void BM_ContainerMemory(benchmark::State& state) {
  const auto round = [](int64_t& held) {
    const int64_t before = bench::AllocationCounter::liveBytes();
    {
      PeriodicalBenchHost host;
      auto values = host.sampleArticle();
      host.container->SynchronizeFieldsWithModel(1, values);
      held = bench::AllocationCounter::liveBytes() - before;
    }
    return bench::AllocationCounter::liveBytes() - before;
  };
  int64_t held = 0;
  round(held);
  for (auto _ : state) {
    const int64_t retained = round(held);
    state.counters["container bytes"] = static_cast<double>(held);
    state.counters["retained bytes"] = static_cast<double>(retained);
  }
}
BENCHMARK(BM_ContainerMemory)->Iterations(1);

}  // namespace
}  // namespace kelmora
