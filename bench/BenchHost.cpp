#include "BenchHost.h"

#include "frames/periodical/Periodical.h"
#include "support/TestFrame.h"
#include "surface/ControlCollection.h"
#include "surface/ControlRegistry.h"
#include "surface/ControlWrapper.h"

namespace kelmora::bench {

PeriodicalBenchHost::PeriodicalBenchHost() {
  testing::TestFrame::registerForAllTypes();
  ControlRegistry::Register(ControlRegistry::kPeriodical, []() -> std::shared_ptr<UserControl> {
    return std::make_shared<Periodical>();
  });
  container = std::dynamic_pointer_cast<FrameContainer>(
      main->BuildFrameContainer(form, "Reference")->Object());
  container->Visible(true);
  container->initialize(callback);
  container->SetVisibleFrame(1);
  container->ToggleFormatDependentWidgets(1, std::make_shared<BenchSettings>(1));
  container->UpdateFrame(-1, true);
}

PeriodicalBenchHost::~PeriodicalBenchHost() {
  form->unload();
  // The stand-in frames keep a log of their calls for tests; it is no part
  // of what the library holds.
  testing::TestFrame::log().clear();
  testing::TestFrame::log().shrink_to_fit();
}

std::shared_ptr<Widget> PeriodicalBenchHost::widget(const char* name, int16_t index) const {
  return container->getControls()->Item(name, index);
}

int16_t PeriodicalBenchHost::internalIndex(const std::string& key) const {
  return main->Model(1)->keyToInternalIndex()->Item(key).toInteger();
}

std::vector<std::string> PeriodicalBenchHost::sampleArticle() const {
  std::vector<std::string> values(26);
  const std::pair<const char*, const char*> fields[] = {
      {"PeriodicalAuthor", "Hopper, Grace M."},
      {"PeriodicalArticleTitle", "The education of a computer"},
      {"PeriodicalTitle", "Proceedings of the Association for Computing Machinery"},
      {"PeriodicalDate", "1952"},
      {"PeriodicalPage", "243"},
      {"PeriodicalPageRange", "243-249"},
      {"PeriodicalVolume", "2"},
      {"PeriodicalNumber", "1"},
      {"PeriodicalOnline", "https://doi.org/10.1145/609784.609818"},
      {"PeriodicalAccessDate", "3 March 2026"},
      {"PeriodicalNotes", "Reprinted in the Annals"},
      {"v4_keywords", "compilers; history"},
      {"PeriodicalJournalOption", "True"},
      {"PeriodicalMagazineOption", "False"},
      {"PeriodicalNewspaperOption", "False"},
  };
  for (const auto& [key, value] : fields) {
    values[static_cast<size_t>(internalIndex(key))] = value;
  }
  return values;
}

}  // namespace kelmora::bench
