#pragma once

#include <memory>
#include <string>
#include <vector>

#include "NoopTracing.h"
#include "hosting/FrameContainer.h"
#include "hosting/Main2.h"
#include "surface/FormatterSettings.h"
#include "surface/HeadlessHostForm.h"
#include "surface/HostCallback.h"
#include "surface/OutputTemplate.h"

namespace kelmora::bench {

// A host callback that does nothing but count: what the library costs
// without a host's own work.
class CountingCallback : public HostCallback {
 public:
  int calls = 0;

  void widgetChangeHandler(bool&, int16_t&, std::string&, std::shared_ptr<Object>&,
                           std::shared_ptr<Object>&, std::string&, bool, int16_t&) override {
    ++calls;
  }
  std::string CaptionToTitleType(int16_t&, std::string& text) override {
    ++calls;
    return text;
  }
  std::string TitleTypeToCaption(int16_t&, std::string& text) override {
    ++calls;
    return text;
  }
  void OptionButtonChanged(int16_t&, int16_t&) override { ++calls; }
  void HandleMouseMove(std::shared_ptr<Object>&, bool&) override { ++calls; }
  void HandleDragDrop(std::shared_ptr<DataObject>&) override { ++calls; }
  void HideSubform() override { ++calls; }
  void ProcessTextField(std::shared_ptr<Object>&, int16_t&, bool&, bool&, std::string&) override {
    ++calls;
  }
  void HandleDateExit(std::shared_ptr<Object>&, bool) override { ++calls; }
};

// A citation format of family `format` with an access date that follows the
// website field.
class BenchSettings : public FormatterSettings {
 public:
  explicit BenchSettings(int32_t format) : mFormat(format) {}
  int32_t Format() override { return mFormat; }
  bool hasPeriodicalPageNumbers() override { return true; }
  std::string tooltipTextJournal() override { return "Year of the volume"; }
  std::string tooltipTextPeriodical() override { return "Date of the issue"; }
  std::string accessDateFormat() override { return "d MMMM yyyy"; }
  bool alwaysEnableAccessDate() override { return false; }
  // A website gives its date as an access date; every text is a URL.
  bool WebsiteImpliesDate() override { return true; }
  std::shared_ptr<OutputTemplate> outputTemplates(int32_t) override { return mTemplate; }
  // An e-source format with every row and the longest type list.
  bool esourceShowsAuthorPopup() override { return true; }
  bool esourceHasTitle() override { return true; }
  bool esourceHasTo() override { return true; }
  bool emailListTitleVisible() override { return true; }
  bool supportsWebtitle() override { return true; }
  bool SupportsURL() override { return true; }
  bool supportsAccessDate() override { return true; }
  bool supportsSocialMedia() override { return true; }
  int32_t DegreeSupport() override { return 1; }
  int32_t esourceType() override { return 3; }

 private:
  class UrlTemplate : public OutputTemplate {
   public:
    bool isURL(std::string&) override { return true; }
  };
  int32_t mFormat;
  std::shared_ptr<OutputTemplate> mTemplate = std::make_shared<UrlTemplate>();
};

// A host with the frame of one type shown under a BenchSettings format.
struct FrameBenchHost {
  ScopedNoopTracing tracing;
  std::shared_ptr<Main2> main = std::make_shared<Main2>();
  std::shared_ptr<HeadlessHostForm> form = std::make_shared<HeadlessHostForm>();
  std::shared_ptr<CountingCallback> callback = std::make_shared<CountingCallback>();
  std::shared_ptr<FrameContainer> container;
  int16_t whichType;

  FrameBenchHost(int16_t type, int32_t format);
  ~FrameBenchHost();

  // The widget of a field, by name and Index in the frame's collection.
  std::shared_ptr<Widget> widget(const char* name, int16_t index) const;
  int16_t internalIndex(const std::string& key) const;

 protected:
  // One stored reference of `size` fields: those named, every other one
  // empty.
  std::vector<std::string> record(
      size_t size, std::initializer_list<std::pair<const char*, const char*>> fields) const;
};

// The Periodical frame under family 1, all fields shown.
struct PeriodicalBenchHost : FrameBenchHost {
  PeriodicalBenchHost();
  // A full stored journal article, one value per field.
  std::vector<std::string> sampleArticle() const;
};

// The NonPeriodical frame under family 0 with the website option on, so
// that the website field's rule rows decide the date rows.
struct NonPeriodicalBenchHost : FrameBenchHost {
  NonPeriodicalBenchHost();
  // A full stored book, one value per field.
  std::vector<std::string> sampleBook() const;
  // A stored website.
  std::vector<std::string> sampleWebsite() const;
};

// The Esource frame under a format with every row.
struct EsourceBenchHost : FrameBenchHost {
  EsourceBenchHost();
  // A full stored forum post, one value per field.
  std::vector<std::string> sampleMessage() const;
};

}  // namespace kelmora::bench
