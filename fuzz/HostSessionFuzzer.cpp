// Plays one random host session per input against the real library: a
// tracing service with mixed answers, a callback and format settings whose
// members answer, are missing or fail, every public call of Main2 and
// FrameContainer with any type, value arrays of any length, huge and
// non-UTF-8 texts, user actions on random widgets, and the container taken
// off its form at the end.
//
// What must hold: no sanitizer report and no leak; nothing but the
// library's own run-time failure escapes a host call (anything else is not
// caught here and ends the run as a finding); no hang, since the service
// answers "retry" only a few times in a row.

#include <fuzzer/FuzzedDataProvider.h>

#include <cstdint>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "diagnostics/BridgeToVB.h"
#include "diagnostics/TracingService.h"
#include "hosting/FrameContainer.h"
#include "hosting/Main2.h"
#include "platform/RunningObjectTable.h"
#include "platform/RuntimeError.h"
#include "surface/CheckBox.h"
#include "surface/ComboBox.h"
#include "surface/ControlCollection.h"
#include "surface/ControlWrapper.h"
#include "surface/DataObject.h"
#include "surface/FormatterSettings.h"
#include "surface/HeadlessHostForm.h"
#include "surface/HostCallback.h"
#include "surface/MessageBox.h"
#include "surface/OptionButton.h"
#include "surface/OutputTemplate.h"
#include "surface/TextBox.h"
#include "surface/UserActions.h"
#include "surface/UserControl.h"

namespace kelmora::fuzz {
namespace {

// The bytes of one input, shared by the driver and by every host object
// that has to decide how to answer.
class Source {
 public:
  Source(const uint8_t* data, size_t size) : mData(data, size) {}

  bool empty() { return mData.remaining_bytes() == 0; }
  bool coin() { return mData.ConsumeBool(); }
  // True about once in `n` times.
  bool oneIn(uint8_t n) { return mData.ConsumeIntegralInRange<uint8_t>(0, n - 1) == 0; }
  template <typename T>
  T integral() {
    return mData.ConsumeIntegral<T>();
  }
  template <typename T>
  T inRange(T low, T high) {
    return mData.ConsumeIntegralInRange<T>(low, high);
  }
  int16_t type() {
    // Mostly the five slots, sometimes anything.
    return oneIn(6) ? integral<int16_t>() : inRange<int16_t>(-1, 5);
  }
  std::string text() {
    switch (inRange<int>(0, 7)) {
      case 0:
        return std::string(inRange<size_t>(0, 70000), static_cast<char>(integral<uint8_t>()));
      case 1:
        return "True";
      case 2:
        return "http://x.org";
      default:
        // Arbitrary bytes: not necessarily UTF-8, NULs included.
        return mData.ConsumeRandomLengthString(40);
    }
  }
  // A failure number as a host raises them: the run time's own, or large
  // numbers of system interfaces.
  int32_t failureNumber() {
    static constexpr int32_t kNumbers[] = {5,   6,   9,   13,  91,          380,
                                           381, 429, 438, 457, -2147352567, 70};
    return oneIn(4) ? integral<int32_t>() : mData.PickValueInArray(kNumbers);
  }
  // Every host member starts with this: now and then it fails.
  void maybeFail() {
    if (!empty() && oneIn(12))
      throw RuntimeError(failureNumber());
  }

 private:
  FuzzedDataProvider mData;
};

class Service : public TracingService {
 public:
  explicit Service(Source& source) : mSource(source) {}

  void vbwProcIn(const std::string&, const std::string&) override { rarely(); }
  void vbwProcOut() override { rarely(); }
  std::string vbwReportParameter(const std::string& name, const Variant&) override {
    rarely();
    return name;
  }
  void vbwReportVariable(const std::string&, const Variant& value, int32_t) override {
    // Reading each value is what a real service does with it.
    (void)value.isObject();
    rarely();
  }
  void vbwReportObject(const std::string&, const std::shared_ptr<Object>&, int32_t) override {
    rarely();
  }
  void vbwReportToFile(const std::string&) override { rarely(); }
  void vbwBeforeDump(std::string, const std::string&, const std::string&, int16_t, int16_t,
                     const std::string&, int16_t) override {
    rarely();
  }
  void vbwOpenDumpFile() override { rarely(); }
  void vbwCloseDumpFile() override { rarely(); }
  Variant vbwAfterDump() override {
    rarely();
    // Retries are bounded, or a statement that always fails never ends.
    if (mRetriesInARow < 3 && mSource.oneIn(3)) {
      ++mRetriesInARow;
      return Variant(4);
    }
    mRetriesInARow = 0;
    switch (mSource.inRange<int>(0, 5)) {
      case 0:
        return Variant(5);
      case 1:
        return Variant(0);
      case 2:
        return Variant(3);
      case 3:
        return Variant(mSource.integral<int32_t>());
      case 4:
        return Variant(mSource.text());
      default:
        return Variant();
    }
  }
  void vbwExitThread(bool) override { rarely(); }

 private:
  // The service fails far less often than the host: a failing service ends
  // most calls at once, and the logic behind them would go unexercised.
  void rarely() {
    if (!mSource.empty() && mSource.oneIn(60))
      throw RuntimeError(mSource.failureNumber());
  }
  Source& mSource;
  int mRetriesInARow = 0;
};

class Bridge : public BridgeToVB {
 public:
  explicit Bridge(std::shared_ptr<Object> params) : mParams(std::move(params)) {}
  std::shared_ptr<Object> ErrorParams() override { return mParams; }

 private:
  std::shared_ptr<Object> mParams;
};

class Callback : public HostCallback {
 public:
  explicit Callback(Source& source) : mSource(source) {}

  void widgetChangeHandler(bool&, int16_t&, std::string& value, std::shared_ptr<Object>&,
                           std::shared_ptr<Object>&, std::string&, bool, int16_t&) override {
    mSource.maybeFail();
    if (mSource.oneIn(8))
      value = mSource.text();
  }
  std::string CaptionToTitleType(int16_t&, std::string& text) override {
    mSource.maybeFail();
    return text;
  }
  std::string TitleTypeToCaption(int16_t&, std::string&) override {
    mSource.maybeFail();
    return mSource.text();
  }
  void OptionButtonChanged(int16_t&, int16_t&) override { mSource.maybeFail(); }
  void HandleMouseMove(std::shared_ptr<Object>&, bool&) override { mSource.maybeFail(); }
  void HandleDragDrop(std::shared_ptr<DataObject>& Data) override {
    mSource.maybeFail();
    if (mSource.oneIn(4))
      Data.reset();  // the host may replace the data, with nothing too
  }
  void HideSubform() override { mSource.maybeFail(); }
  void ProcessTextField(std::shared_ptr<Object>&, int16_t&, bool&, bool&, std::string&) override {
    mSource.maybeFail();
  }
  void HandleDateExit(std::shared_ptr<Object>&, bool) override { mSource.maybeFail(); }

 private:
  Source& mSource;
};

class Template : public OutputTemplate {
 public:
  explicit Template(Source& source) : mSource(source) {}
  bool isURL(std::string&) override {
    mSource.maybeFail();
    return mSource.coin();
  }

 private:
  Source& mSource;
};

// Settings whose every member may be missing (438, as the base class
// answers) or failing.
class Settings : public FormatterSettings {
 public:
  explicit Settings(Source& source) : mSource(source), mMissing(source.integral<uint32_t>()) {}

  int32_t Format() override { return member(0) ? mSource.inRange<int32_t>(-1, 4) : base(0); }
  bool hasPeriodicalPageNumbers() override { return flag(1); }
  std::string tooltipTextJournal() override { return member(2) ? mSource.text() : base(2); }
  std::string tooltipTextPeriodical() override { return member(3) ? mSource.text() : base(3); }
  std::string accessDateFormat() override { return member(4) ? mSource.text() : base(4); }
  bool alwaysEnableAccessDate() override { return flag(5); }
  bool WebsiteImpliesDate() override { return flag(6); }
  std::shared_ptr<OutputTemplate> outputTemplates(int32_t) override {
    if (!member(7))
      return base(7);
    return mSource.oneIn(5) ? nullptr : std::make_shared<Template>(mSource);
  }
  bool esourceShowsAuthorPopup() override { return flag(8); }
  bool esourceHasTitle() override { return flag(9); }
  bool esourceHasTo() override { return flag(10); }
  bool emailListTitleVisible() override { return flag(11); }
  bool supportsWebtitle() override { return flag(12); }
  bool SupportsURL() override { return flag(13); }
  bool supportsAccessDate() override { return flag(14); }
  bool supportsSocialMedia() override { return flag(15); }
  int32_t DegreeSupport() override {
    return member(16) ? mSource.inRange<int32_t>(-1, 3) : base(16);
  }
  int32_t esourceType() override { return member(17) ? mSource.inRange<int32_t>(-1, 4) : base(17); }

 private:
  // True when the member exists and does not fail this time.
  bool member(int bit) {
    if ((mMissing >> bit) & 1u)
      return false;
    mSource.maybeFail();
    return true;
  }
  bool flag(int bit) { return member(bit) ? mSource.coin() : base(bit); }
  // What a missing member does.
  struct Missing {
    template <typename T>
    operator T() const {
      throw RuntimeError(kMemberNotSupported);
    }
  };
  Missing base(int) const { return {}; }

  Source& mSource;
  // Members missing from this settings object, one bit each; mostly none.
  uint32_t mMissing;
};

class TextData : public DataObject {
 public:
  explicit TextData(Source& source) : mSource(source), mText(source.text()) {}
  bool GetFormat(int16_t) override {
    mSource.maybeFail();
    return mSource.coin();
  }
  Variant GetData(int16_t) override {
    mSource.maybeFail();
    return Variant(mText);
  }
  void SetData(const Variant& data, int16_t) override {
    mSource.maybeFail();
    mText = data.toString();
  }
  void Clear() override { mText.clear(); }

 private:
  Source& mSource;
  std::string mText;
};

// The widgets of every frame made so far, found afresh before each action:
// frames come and go as the session goes on.
std::vector<std::shared_ptr<Widget>> widgetsOf(FrameContainer& container) {
  std::vector<std::shared_ptr<Widget>> widgets;
  const ControlCollection& frames = container.Controls();
  for (int32_t i = 0; i < frames.Count(); ++i) {
    widgets.push_back(frames.Item(i));
    if (auto frame = std::dynamic_pointer_cast<UserControl>(frames.Item(i))) {
      const ControlCollection& inside = frame->Controls();
      for (int32_t j = 0; j < inside.Count(); ++j) widgets.push_back(inside.Item(j));
    }
  }
  return widgets;
}

void userAction(Source& source, FrameContainer& container) {
  const auto widgets = widgetsOf(container);
  if (widgets.empty())
    return;
  Widget& widget = *widgets[source.inRange<size_t>(0, widgets.size() - 1)];
  switch (source.inRange<int>(0, 5)) {
    case 0:
      if (auto* box = dynamic_cast<TextBox*>(&widget)) {
        if (source.coin())
          UserActions::typeInto(*box, source.text().substr(0, 64));
        else
          UserActions::clear(*box);
      } else if (auto* combo = dynamic_cast<ComboBox*>(&widget)) {
        UserActions::selectItem(*combo, source.integral<int16_t>());
      } else if (auto* option = dynamic_cast<OptionButton*>(&widget)) {
        UserActions::click(*option);
      } else if (auto* check = dynamic_cast<CheckBox*>(&widget)) {
        UserActions::click(*check);
      }
      break;
    case 1:
      UserActions::focus(widget);
      break;
    case 2:
      UserActions::focusAway();
      break;
    case 3:
      UserActions::moveMouseOver(widget);
      break;
    case 4:
      UserActions::moveMouseAt(container, source.integral<int16_t>(), source.integral<int16_t>());
      break;
    default:
      UserActions::drop(widget, std::make_shared<TextData>(source));
      break;
  }
}

std::vector<std::string> valuesFrom(Source& source) {
  std::vector<std::string> values;
  switch (source.inRange<int>(0, 3)) {
    case 0:
      return values;  // empty
    case 1:
      values.resize(source.inRange<size_t>(1, 20));  // too short
      break;
    case 2:
      values.resize(source.inRange<size_t>(40, 200));  // as long or longer than any record
      break;
    default:
      values.resize(source.inRange<size_t>(20, 45));
      break;
  }
  for (auto& value : values)
    if (source.coin())
      value = source.text();
  return values;
}

void hostCall(Source& source, Main2& main, FrameContainer& container,
              const std::shared_ptr<HostForm>& form) {
  switch (source.inRange<int>(0, 24)) {
    case 0:
      container.SetVisibleFrame(source.type());
      break;
    case 1:
      container.UpdateFrame(source.integral<int16_t>(), source.coin());
      break;
    case 2:
    case 3:
      container.ToggleFormatDependentWidgets(
          source.type(), source.oneIn(8) ? nullptr : std::make_shared<Settings>(source));
      break;
    case 4:
      container.initializeFormatDependentWidgetToggler(source.type(),
                                                       std::make_shared<Settings>(source));
      break;
    case 5: {
      auto values = valuesFrom(source);
      container.SynchronizeFieldsWithModel(source.type(), values);
      break;
    }
    case 6:
      container.HandleUnsupportedReferenceType(source.type(), source.coin());
      break;
    case 7:
      container.ExecuteDependentWidgetToggler(source.type(), source.integral<int16_t>());
      break;
    case 8:
      container.Reset(source.type(), source.coin());
      break;
    case 9:
      container.SetFocus();
      break;
    case 10:
      (void)container.getControls();
      break;
    case 11: {
      std::vector<std::string> names(source.inRange<size_t>(0, 6), source.text());
      container.setReferenceListColumnNames(source.type(), names);
      break;
    }
    case 12:
      main.ChangeFormatType(source.type());
      break;
    case 13:
      (void)main.Model(source.type());
      break;
    case 14:
      (void)main.BuildFrameContainer(source.oneIn(4) ? nullptr : form, source.text());
      break;
    case 15:
      (void)container.CaptionToTitleType(source.type(), source.text());
      break;
    case 16:
      (void)container.TitleTypeToCaption(source.type(), source.text());
      break;
    default:
      userAction(source, container);
      break;
  }
}

class QuietMessageBox : public MessageBox {
 public:
  void show(const std::string&) override {}
};

void session(const uint8_t* data, size_t size) {
  Source source(data, size);
  auto service = std::make_shared<Service>(source);
  RunningObjectTable::Register(BridgeToVB::kClassName, std::make_shared<Bridge>(service));
  MessageBox::install(std::make_shared<QuietMessageBox>());
  {
    std::shared_ptr<FrameContainer> container;
    auto main = std::make_shared<Main2>();
    auto form = std::make_shared<HeadlessHostForm>();
    try {
      auto wrapper = main->BuildFrameContainer(form, "Reference");
      if (wrapper)
        container = std::dynamic_pointer_cast<FrameContainer>(wrapper->Object());
    } catch (const RuntimeError&) {
      // A failed build is one of the outcomes a host must cope with.
    }
    if (container) {
      try {
        container->Visible(true);
        container->initialize(source.oneIn(10) ? nullptr : std::make_shared<Callback>(source));
      } catch (const RuntimeError&) {
      }
      for (int calls = 0; calls < 64 && !source.empty(); ++calls) {
        try {
          hostCall(source, *main, *container, form);
        } catch (const RuntimeError&) {
          // The library's own failure reaching its host: allowed.
        }
      }
    }
    try {
      form->unload();
    } catch (const RuntimeError&) {
    }
  }
  RunningObjectTable::Revoke(BridgeToVB::kClassName);
}

}  // namespace
}  // namespace kelmora::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  // The answer latch and the cached tracing object live per thread: each
  // input starts on a thread that has seen neither.
  std::thread run([&] { kelmora::fuzz::session(data, size); });
  run.join();
  return 0;
}
