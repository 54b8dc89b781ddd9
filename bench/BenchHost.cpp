#include "BenchHost.h"

#include "frames/esource/Esource.h"
#include "frames/nonperiodical/NonPeriodical.h"
#include "frames/periodical/Periodical.h"
#include "surface/ControlCollection.h"
#include "surface/ControlRegistry.h"
#include "surface/ControlWrapper.h"

namespace kelmora::bench {

FrameBenchHost::FrameBenchHost(int16_t type, int32_t format) : whichType(type) {
  ControlRegistry::Register(ControlRegistry::kNonPeriodical, []() -> std::shared_ptr<UserControl> {
    return std::make_shared<NonPeriodical>();
  });
  ControlRegistry::Register(ControlRegistry::kPeriodical, []() -> std::shared_ptr<UserControl> {
    return std::make_shared<Periodical>();
  });
  ControlRegistry::Register(ControlRegistry::kEsource, []() -> std::shared_ptr<UserControl> {
    return std::make_shared<Esource>();
  });
  container = std::dynamic_pointer_cast<FrameContainer>(
      main->BuildFrameContainer(form, "Reference")->Object());
  container->Visible(true);
  container->initialize(callback);
  container->SetVisibleFrame(whichType);
  container->ToggleFormatDependentWidgets(whichType, std::make_shared<BenchSettings>(format));
}

FrameBenchHost::~FrameBenchHost() {
  form->unload();
}

std::shared_ptr<Widget> FrameBenchHost::widget(const char* name, int16_t index) const {
  return container->getControls()->Item(name, index);
}

int16_t FrameBenchHost::internalIndex(const std::string& key) const {
  return main->Model(whichType)->keyToInternalIndex()->Item(key).toInteger();
}

std::vector<std::string> FrameBenchHost::record(
    size_t size, std::initializer_list<std::pair<const char*, const char*>> fields) const {
  std::vector<std::string> values(size);
  for (const auto& [key, value] : fields) {
    values[static_cast<size_t>(internalIndex(key))] = value;
  }
  return values;
}

PeriodicalBenchHost::PeriodicalBenchHost() : FrameBenchHost(1, 1) {
  container->UpdateFrame(-1, true);
}

NonPeriodicalBenchHost::NonPeriodicalBenchHost() : FrameBenchHost(0, 0) {
  auto website = sampleWebsite();
  container->SynchronizeFieldsWithModel(0, website);
}

std::vector<std::string> NonPeriodicalBenchHost::sampleBook() const {
  return record(28, {
                        {"Title", "The art of computer programming"},
                        {"Author", "Knuth, Donald E."},
                        {"Notes", "Third edition, fourth printing"},
                        {"IncludeInFootnotesBookDeprecated", "False"},
                        {"Year", "1997"},
                        {"Page", "232"},
                        {"CompilerOrEditor", "Walden, Phyllis"},
                        {"CompilerOrEditorComboLabel", "Editor"},
                        {"Edition", "3"},
                        {"Subwork", "Seminumerical algorithms"},
                        {"SubworkComboLabel", "Chapter title"},
                        {"MultiPartComboLabel", "Multi-vol."},
                        {"MultiPartWork", "2"},
                        {"Place", "Reading, Mass."},
                        {"Publisher", "Addison-Wesley"},
                        {"Translator", "Lindqvist, Maja"},
                        {"v579_BookPublishDate", "1997, July 1"},
                        {"v579_PageRange", "232-240"},
                        {"v6_BookOption", "True"},
                        {"v6_WebsiteOption", "False"},
                        {"v8_PublicationMediumComboLabel", "Medium"},
                        {"v8_PublicationMedium", "Print"},
                        {"v8_PublicationDateTypeComboBox", "Published"},
                        {"v4_keywords", "algorithms"},
                    });
}

std::vector<std::string> NonPeriodicalBenchHost::sampleWebsite() const {
  return record(28, {
                        {"Title", "Tide tables"},
                        {"Online", "https://tides.example.org/tables"},
                        {"IncludeInFootnotesBookDeprecated", "False"},
                        {"CompilerOrEditorComboLabel", "Editor"},
                        {"SubworkComboLabel", "Chapter title"},
                        {"MultiPartComboLabel", "Multi-vol."},
                        {"v6_BookOption", "False"},
                        {"v6_WebsiteOption", "True"},
                        {"v8_PublicationMediumComboLabel", "Medium"},
                        {"v8_PublicationDateTypeComboBox", "Published"},
                    });
}

EsourceBenchHost::EsourceBenchHost() : FrameBenchHost(4, 1) {}

std::vector<std::string> EsourceBenchHost::sampleMessage() const {
  return record(14, {
                        {"EsourceAuthor", "Lindqvist, Maja"},
                        {"EsourceDate", "2024, May 2"},
                        {"EsourceTitle", "Re: tidal gauge calibration"},
                        {"EsourceWebsiteTitle", "Coastal Instruments Forum"},
                        {"EsourceURL", "https://forum.example.org/t/tidal-gauge/4127"},
                        {"EsourceAccessDate", "2026, March 3"},
                        {"EsourceNotes", "Answer by the gauge's maker"},
                        {"EsourceDegree", "Phd"},
                        {"EsourceType", "Forum post"},
                        {"v8_CommentDate", "2024, May 4"},
                        {"IncludeInFootnotesEsourceDeprecated", "False"},
                        {"v4_keywords", "instruments"},
                    });
}

std::vector<std::string> PeriodicalBenchHost::sampleArticle() const {
  return record(26,
                {
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
                });
}

}  // namespace kelmora::bench
