#include <gtest/gtest.h>

#include "diagnostics/Procedure.h"
#include "support/ErrorOf.h"
#include "support/FreshThread.h"
#include "support/RecordingHostCallback.h"
#include "support/RecordingTracingService.h"
#include "support/SettingsBuilder.h"
#include "surface/HeadlessHostForm.h"
#include "surface/ControlRegistry.h"
#include "surface/DataObject.h"
#include "surface/HostCallback.h"
#include "surface/HostForm.h"
#include "surface/MessageBox.h"
#include "surface/TextBox.h"
#include "surface/TypeName.h"

namespace kelmora {
namespace {

using testing::onFreshThread;
using testing::RecordingHostCallback;
using testing::ScopedBridge;
using testing::SettingsBuilder;

using testing::errorOf;

TEST(HostContractTest, EveryMemberAHostLeavesOutFailsWith438) {
  HostCallback callback;
  FormatterSettings settings;
  HostForm form;
  HostControls controls;
  ControlWrapper wrapper;
  OutputTemplate outputTemplate;
  DataObject data;
  bool flag = false;
  int16_t number = 0;
  std::string text;
  std::shared_ptr<Object> object;
  std::shared_ptr<DataObject> dropped;
  const std::vector<std::pair<const char*, std::function<void()>>> members = {
      {"widgetChangeHandler",
       [&] {
         callback.widgetChangeHandler(flag, number, text, object, object, text, false, number);
       }},
      {"CaptionToTitleType", [&] { callback.CaptionToTitleType(number, text); }},
      {"TitleTypeToCaption", [&] { callback.TitleTypeToCaption(number, text); }},
      {"OptionButtonChanged", [&] { callback.OptionButtonChanged(number, number); }},
      {"HandleMouseMove", [&] { callback.HandleMouseMove(object, flag); }},
      {"HandleDragDrop", [&] { callback.HandleDragDrop(dropped); }},
      {"HideSubform", [&] { callback.HideSubform(); }},
      {"ProcessTextField", [&] { callback.ProcessTextField(object, number, flag, flag, text); }},
      {"HandleDateExit", [&] { callback.HandleDateExit(object, true); }},
      {"Format", [&] { settings.Format(); }},
      {"outputTemplates", [&] { settings.outputTemplates(13); }},
      {"esourceType", [&] { settings.esourceType(); }},
      {"controls", [&] { form.controls(); }},
      {"controls.Add", [&] { controls.Add(ControlRegistry::kPeriodical, "P"); }},
      {"Object", [&] { wrapper.Object(); }},
      {"isURL", [&] { outputTemplate.isURL(text); }},
      {"GetData", [&] { data.GetData(DataObject::kText); }},
  };
  for (const auto& [member, call] : members) {
    EXPECT_EQ(errorOf(call), kMemberNotSupported) << member;
  }
}

TEST(HostContractTest, SettingsBuilderOffersWhatItWasGivenAndLacksWhatItWasDenied) {
  auto settings =
      SettingsBuilder()
          .Format(2)
          .SupportsURL(true)
          .tooltipTextJournal("Journal date")
          .outputTemplate(13, [](const std::string& t) { return t.starts_with("http"); })
          .without("esourceType")
          .build();
  EXPECT_EQ(settings->Format(), 2);
  EXPECT_TRUE(settings->SupportsURL());
  EXPECT_FALSE(settings->supportsAccessDate());
  EXPECT_EQ(settings->tooltipTextJournal(), "Journal date");
  std::string url = "http://example.org";
  EXPECT_TRUE(settings->outputTemplates(13)->isURL(url));
  EXPECT_EQ(errorOf([&] { settings->outputTemplates(12); }), kSubscriptOutOfRange);
  EXPECT_EQ(errorOf([&] { settings->esourceType(); }), kMemberNotSupported);
}

// A library procedure that reports to the host, as the container will.
void tellHostToHideSubform(HostCallback& callback, std::vector<int>& ran) {
  Procedure proc{procedureName<"FrameContainer.UserFormEnterFocus">()};
  proc.run([&] {
    proc.step([&] { callback.HideSubform(); });
    proc.step([&] { ran.push_back(2); });
  });
}

TEST(HostContractTest, AMissingCallbackMemberTakesTheCallersFailurePath) {
  onFreshThread([] {
    ScopedBridge bridge;
    vbwProtector::vbwTraceProc() = true;
    RecordingHostCallback callback;
    callback.missing.insert("HideSubform");
    std::vector<int> ran;
    tellHostToHideSubform(callback, ran);
    const auto before = bridge.service().callsStartingWith("before");
    ASSERT_EQ(before.size(), 1u);
    EXPECT_TRUE(before[0].starts_with("before Kelmora FrameContainer UserFormEnterFocus "));
    EXPECT_NE(before[0].find(" 438 "), std::string::npos) << before[0];
    EXPECT_EQ(ran, std::vector<int>{2}) << "answer 5 goes on with the next statement";
    EXPECT_TRUE(callback.calls.empty());
  });
}

TEST(HostContractTest, TheRecordingCallbackShowsArgumentsAsAHostReceivesThem) {
  RecordingHostCallback callback;
  auto form = UserControl::create("Form");
  std::shared_ptr<Object> box = form->add<TextBox>("TextBox", 3);
  std::shared_ptr<Object> nothing;
  bool isKey = true;
  int16_t index = 7;
  int16_t toggle = -1;
  std::string value = "Smith";
  std::string secondary;
  callback.widgetChangeHandler(isKey, index, value, box, nothing, secondary, false, toggle);
  auto replacement = std::make_shared<DataObject>();
  callback.replacementData = replacement;
  std::shared_ptr<DataObject> data = std::make_shared<DataObject>();
  callback.HandleDragDrop(data);
  EXPECT_EQ(data, replacement);
  EXPECT_EQ(callback.calls,
            (std::vector<std::string>{
                "widgetChangeHandler(True, 7, Smith, TextBox(3), Nothing, , False, -1)",
                "HandleDragDrop(DataObject)"}));
}

std::vector<std::string>& terminated() {
  static std::vector<std::string> names;
  return names;
}

class Probe : public UserControl {
 public:
  std::string ClassName() const override { return "Probe"; }
  void UserControl_Terminate() override { terminated().push_back(Name()); }
};

TEST(HostContractTest, TheHostFormPlantsControlsByIdentifierAndEndsThemLastFirst) {
  terminated().clear();
  ControlRegistry::Register("KelmoraTest.Probe", [] {
    return std::static_pointer_cast<UserControl>(std::make_shared<Probe>());
  });
  {
    HeadlessHostForm form;
    auto controls = form.controls();
    auto first = controls->Add("KelmoraTest.Probe", "First")->Object();
    controls->Add("KelmoraTest.Probe", "Second");
    EXPECT_EQ(TypeName(first), "Probe");
    EXPECT_FALSE(std::static_pointer_cast<UserControl>(first)->Visible());
    EXPECT_EQ(errorOf([&] { controls->Add("Kelmora.Unknown", "Third"); }), kCannotCreateObject);
    EXPECT_EQ(TypeName(std::shared_ptr<Object>()), "Nothing");
  }
  ControlRegistry::Unregister("KelmoraTest.Probe");
  EXPECT_EQ(terminated(), (std::vector<std::string>{"Second", "First"}));
}

TEST(HostContractTest, MessageBoxesGoToTheInstalledService) {
  auto recorder = std::make_shared<MessageBox>();
  auto previous = MessageBox::install(recorder);
  MessageBox::MsgBox("Unknown Label");
  MessageBox::install(previous);
  MessageBox::MsgBox("to the default");
  EXPECT_EQ(recorder->shown(), std::vector<std::string>{"Unknown Label"});
  EXPECT_EQ(MessageBox::current().shown().back(), "to the default");
}

}  // namespace
}  // namespace kelmora
