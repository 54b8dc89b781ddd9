#include "proxy/FrameProxy.h"

#include <gtest/gtest.h>

#include "model/EsourceCatalogue.h"
#include "support/ContainerHost.h"
#include "support/FreshThread.h"
#include "support/SettingsBuilder.h"
#include "support/TestFrame.h"
#include "surface/CheckBox.h"
#include "surface/ControlRegistry.h"
#include "surface/Focus.h"
#include "surface/Label.h"
#include "surface/MessageBox.h"
#include "surface/OptionButton.h"
#include "surface/TextBox.h"

namespace kelmora {
namespace {

using testing::ContainerHost;
using testing::RecordingHostCallback;
using testing::TestFrame;

// E-source internal indices, as the host's record orders them.
enum : size_t { kTitle = 0, kAuthor = 1, kAccessDate = 6, kCheckBox = 7, kDegree = 10, kType = 11 };

// A scenario on a thread of its own, with the e-source frame shown and a
// message box service that records.
struct Scenario {
  ContainerHost host;
  std::shared_ptr<MessageBox> messages = std::make_shared<MessageBox>();
  TestFrame* frame = nullptr;

  Scenario() {
    MessageBox::install(messages);
    host.container->SetVisibleFrame(4);
    frame = dynamic_cast<TestFrame*>(host.container->existingProxy(4)->frame().get());
  }
  std::shared_ptr<Widget> field(const char* key) const { return frame->byKey(key); }
  std::string describe(const char* key) const {
    return RecordingHostCallback::describe(field(key));
  }
};

void run(const std::function<void(Scenario&)>& body) {
  TestFrame::registerForAllTypes();
  testing::onFreshThread([&] {
    TestFrame::log().clear();
    Scenario scenario;
    body(scenario);
  });
}

TEST(FrameProxyTest, RegistryKeepsLeftOutWidgetsOutButOneSlot) {
  run([](Scenario& s) {
    const auto& controls = s.host.container->existingProxy(4)->controls();
    // 20 registered widgets, then the slot that holds the left-out helper.
    ASSERT_EQ(controls.size(), 21u);
    EXPECT_EQ(controls[8], s.field("EsourceAuthor"));
    EXPECT_EQ(controls[20]->Name(), "Helper");
  });
}

TEST(FrameProxyTest, ValuesReachEachWidgetByItsClass) {
  run([](Scenario& s) {
    std::vector<std::string> values(14);
    values[kTitle] = "A post";
    values[kCheckBox] = "True";
    values[kDegree] = "PhD";
    values[kType] = "Forum";
    s.host.container->SynchronizeFieldsWithModel(4, values);
    auto title = std::dynamic_pointer_cast<TextBox>(s.field("EsourceTitle"));
    EXPECT_EQ(title->Text(), "A post");
    EXPECT_EQ(title->ToolTipText(), "A post");
    // An empty field shows its default tooltip, whatever its class.
    EXPECT_EQ(s.field("EsourceAccessDate")->ToolTipText(),
              "Date that you accessed the website (e.g. January 3, 2010)");
    EXPECT_EQ(std::dynamic_pointer_cast<CheckBox>(s.field("IncludeInFootnotesEsourceDeprecated"))
                  ->Value(),
              1);
    // Combo boxes are the frame's to fill.
    const auto& log = TestFrame::log();
    EXPECT_NE(std::find(log.begin(), log.end(),
                        "EsourceFrame.SelectItem(PhD, " +
                            std::to_string(s.field("EsourceDegree")->Index()) + ")"),
              log.end());
    EXPECT_TRUE(s.messages->shown().empty());
    EXPECT_TRUE(s.host.failures().empty());
  });
}

TEST(FrameProxyTest, StoredBooleansConvertQuietly) {
  const std::pair<const char*, int16_t> rows[] = {
      {"True", 1}, {"TRUE", 1}, {"false", 0}, {"", 0}, {"abc", 0}, {"2", 1}, {"0", 0},
  };
  run([&](Scenario& s) {
    auto box = std::dynamic_pointer_cast<CheckBox>(s.field("IncludeInFootnotesEsourceDeprecated"));
    for (const auto& [text, expected] : rows) {
      SCOPED_TRACE(text);
      std::vector<std::string> values(14);
      values[kCheckBox] = text;
      s.host.container->SynchronizeFieldsWithModel(4, values);
      EXPECT_EQ(box->Value(), expected);
    }
    EXPECT_TRUE(s.host.failures().empty());
  });
}

TEST(FrameProxyTest, ComboLabelsAskTheFrameAndUnknownClassesAreSaidAloud) {
  static const std::map<std::string, WidgetClass> odd = {{"EsourceTitle", WidgetClass::Label},
                                                         {"EsourceNotes", WidgetClass::Frame}};
  TestFrame::registerForAllTypes();
  ControlRegistry::Register(ControlRegistry::kEsource, []() -> std::shared_ptr<UserControl> {
    return std::make_shared<TestFrame>(EsourceCatalogue::kCatalogue, odd);
  });
  testing::onFreshThread([] {
    TestFrame::log().clear();
    Scenario s;
    std::vector<std::string> values(14);
    s.host.container->SynchronizeFieldsWithModel(4, values);
    EXPECT_EQ(s.messages->shown(), (std::vector<std::string>{"Unknown Frame", "Unknown Label"}));

    std::vector<std::string> periodical(26);
    const int16_t issueType = s.host.main->Model(1)
                                  ->keyToInternalIndex()
                                  ->Item("v579_PeriodicalArticleComboLabel")
                                  .toInteger();
    periodical[static_cast<size_t>(issueType)] = "Review";
    s.host.container->SynchronizeFieldsWithModel(1, periodical);
    auto& frame = dynamic_cast<TestFrame&>(*s.host.container->existingProxy(1)->frame());
    auto label = std::dynamic_pointer_cast<Label>(frame.byKey("v579_PeriodicalArticleComboLabel"));
    EXPECT_EQ(label->Caption(), "caption of Review");
  });
  TestFrame::registerForAllTypes();
}

TEST(FrameProxyTest, AChangeIsCompletedFromItsWidget) {
  struct Row {
    const char* what;
    const char* key;
    std::function<void(Scenario&, Widget&)> act;
    std::string expected;  // "@" stands for the widget
  };
  const std::vector<Row> rows = {
      {"typed text", "EsourceURL",
       [](Scenario&, Widget& w) { dynamic_cast<TextBox&>(w).Text("u"); },
       "widgetChangeHandler(False, 5, u, @, Nothing, , False, -1)"},
      {"a frame's own value wins over the widget", "EsourceURL",
       [](Scenario& s, Widget& w) {
         s.host.container->widgetChangeHandler(w.shared_from_this(), {.value = "given"});
       },
       "widgetChangeHandler(False, 5, given, @, Nothing, , False, -1)"},
      {"a check box in its third state", "IncludeInFootnotesEsourceDeprecated",
       [](Scenario&, Widget& w) { dynamic_cast<CheckBox&>(w).Value(2); },
       "widgetChangeHandler(False, 7, 2, @, Nothing, , False, -1)"},
      {"a disabled field keeps the host's sub-form hidden", "EsourceURL",
       [](Scenario&, Widget& w) {
         w.Enabled(false);
         dynamic_cast<TextBox&>(w).Text("v");
       },
       "widgetChangeHandler(False, 5, v, @, Nothing, , True, -1)"},
      {"a key field by the role of its tag", "EsourceTitle",
       [](Scenario&, Widget& w) { dynamic_cast<TextBox&>(w).Text("t"); },
       "widgetChangeHandler(True, 0, t, @, Nothing, , False, -1)"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    run([&](Scenario& s) {
      row.act(s, *s.field(row.key));
      std::string expected = row.expected;
      expected.replace(expected.find('@'), 1, s.describe(row.key));
      EXPECT_EQ(s.host.callback->calls.back(), expected);
    });
  }
}

TEST(FrameProxyTest, KeyFieldsAreTheirRolesLetterForLetter) {
  const std::pair<const char*, bool> rows[] = {
      {"key", true},
      {"date", true},
      {"year", true},
      {"title", true},
      {"author", true},
      {"onlineKey", true},
      {"esourceDate", true},
      {"articletitle", true},
      {"EsourceTitle", true},
      {"esourceAuthor", true},
      {"headingTitleKey", true},
      {"Title", false},
      {"keys", false},
      {"headingTitle", false},
      {"page", false},
  };
  run([&](Scenario& s) {
    auto url = s.field("EsourceURL");
    for (const auto& [role, expected] : rows) {
      SCOPED_TRACE(role);
      url->Tag(std::string("EsourceURL,") + role);
      s.host.container->widgetChangeHandler(url);
      EXPECT_TRUE(s.host.callback->calls.back().starts_with(std::string("widgetChangeHandler(") +
                                                            (expected ? "True" : "False")));
    }
  });
}

TEST(FrameProxyTest, AnUnsupportedTypeBorrowsTheAuthorFieldAndGivesItBack) {
  run([](Scenario& s) {
    auto author = std::dynamic_pointer_cast<TextBox>(s.field("EsourceAuthor"));
    s.host.container->HandleUnsupportedReferenceType(4, false);
    s.host.container->HandleUnsupportedReferenceType(4, false);
    EXPECT_FALSE(author->Enabled());
    EXPECT_EQ(author->Text(), FrameProxy::kAlternateReferenceTypeInstructions);
    s.host.container->HandleUnsupportedReferenceType(4, true);
    EXPECT_TRUE(author->Enabled());
    EXPECT_EQ(author->Text(), "");
    author->Text("Ada Lovelace");
    s.host.container->HandleUnsupportedReferenceType(4, true);
    EXPECT_EQ(author->Text(), "Ada Lovelace");
  });
}

// A host that asks for the focus again while the library is giving it.
class EagerHost : public RecordingHostCallback {
 public:
  FrameContainer* container = nullptr;
  void HideSubform() override {
    RecordingHostCallback::HideSubform();
    container->SetFocus();
  }
};

TEST(FrameProxyTest, ANestedSetFocusReturnsAtOnce) {
  run([](Scenario& s) {
    auto host = std::make_shared<EagerHost>();
    host->container = s.host.container.get();
    s.host.container->initialize(host);  // back to type 0, which is hidden
    s.host.container->SetVisibleFrame(4);
    s.host.container->SetFocus();
    EXPECT_EQ(host->callsTo("HideSubform").size(), 1u);
    EXPECT_TRUE(s.host.failures().empty());
    // The guard came down: the focus can be given again.
    Focus::leave();
    s.host.container->SetFocus();
    ASSERT_NE(Focus::current(), nullptr);
    EXPECT_TRUE(Focus::isWithin(*Focus::current(), *s.frame));
  });
}

TEST(FrameProxyTest, NoSettingsKeepTheRulesOfTheFormatBefore) {
  run([](Scenario& s) {
    TestFrame::rules() = {{"EsourceURL<>", "EsourceAccessDate"}};
    s.host.container->ToggleFormatDependentWidgets(4, testing::SettingsBuilder().build());
    EXPECT_FALSE(s.field("EsourceAccessDate")->Visible());
    s.host.main->ChangeFormatType(4);
    TestFrame::rules().clear();
    s.host.container->ToggleFormatDependentWidgets(4, nullptr);
    std::dynamic_pointer_cast<TextBox>(s.field("EsourceURL"))->Text("u");
    s.host.container->ExecuteDependentWidgetToggler(4, 5);
    EXPECT_TRUE(s.field("EsourceAccessDate")->Visible());
    s.host.container->ExecuteDependentWidgetToggler(4, 14);
    EXPECT_EQ(s.host.failures(),
              (std::vector<std::string>{"FrameProxy.ExecuteDependentWidgetToggler 9"}));
  });
}

}  // namespace
}  // namespace kelmora
