#include "hosting/FrameContainer.h"

#include <gtest/gtest.h>

#include "diagnostics/vbwProtector.h"
#include "model/Model.h"
#include "proxy/FrameProxy.h"
#include "support/ContainerHost.h"
#include "support/ErrorOf.h"
#include "support/FreshThread.h"
#include "support/SettingsBuilder.h"
#include "support/TestFrame.h"
#include "surface/ControlCollection.h"
#include "surface/Label.h"
#include "surface/TextBox.h"

namespace kelmora {
namespace {

using testing::ContainerHost;
using testing::onFreshThread;
using testing::TestFrame;

// Runs a scenario on a thread of its own with test frames registered for
// the three types and the logs of earlier scenarios cleared.
void scenario(const std::function<void()>& body) {
  TestFrame::registerForAllTypes();
  onFreshThread([&] {
    TestFrame::log().clear();
    TestFrame::rules().clear();
    body();
  });
}

TestFrame& frameOf(FrameContainer& container, int16_t whichType) {
  return dynamic_cast<TestFrame&>(*container.existingProxy(whichType)->frame());
}

int count(const std::vector<std::string>& lines, const std::string& line) {
  return static_cast<int>(std::count(lines.begin(), lines.end(), line));
}

TEST(FrameContainerTest, OneFieldEditTravelsToTheHostAndBack) {
  scenario([] {
    ContainerHost host;
    TestFrame::rules() = {{"EsourceURL<>", "AccessDateLabel,EsourceAccessDate"}};
    host.container->SetVisibleFrame(4);
    host.container->ToggleFormatDependentWidgets(4, testing::SettingsBuilder().build());
    auto& frame = frameOf(*host.container, 4);
    auto url = std::dynamic_pointer_cast<TextBox>(frame.byKey("EsourceURL"));
    auto accessDate = frame.byKey("EsourceAccessDate");
    EXPECT_FALSE(accessDate->Visible());

    url->Text("https://example.org");
    const int16_t index = host.main->Model(4)->keyToInternalIndex()->Item("EsourceURL").toInteger();
    EXPECT_EQ(host.callback->calls.back(),
              "widgetChangeHandler(False, " + std::to_string(index) + ", https://example.org, " +
                  testing::RecordingHostCallback::describe(url) + ", Nothing, , False, -1)");
    EXPECT_EQ(url->ToolTipText(), "https://example.org");

    host.container->ExecuteDependentWidgetToggler(4, index);
    EXPECT_TRUE(accessDate->Visible());
    EXPECT_EQ(TestFrame::log().back(), "EsourceFrame.ArrangeAllFields");
    EXPECT_TRUE(host.failures().empty());
  });
}

TEST(FrameContainerTest, FramesAreMadeOnFirstDemandAndShownOneAtATime) {
  scenario([] {
    ContainerHost host;
    host.container->SetVisibleFrame(1);
    // The frame of the current type is made first, to be hidden.
    auto& controls = host.container->Controls();
    ASSERT_EQ(controls.Count(), 2);
    EXPECT_EQ(controls.Item(0)->Name(), "NonPeriodicalFrame");
    EXPECT_EQ(controls.Item(1)->Name(), "PeriodicalFrame");
    EXPECT_FALSE(controls.Item(0)->Visible());
    EXPECT_TRUE(controls.Item(1)->Visible());
    EXPECT_EQ(host.container->currentFrame(), 1);

    std::vector<std::string> values(26, "");
    host.container->SynchronizeFieldsWithModel(4, values);  // made, filled, left hidden
    EXPECT_FALSE(controls.Item("EsourceFrame")->Visible());
    host.container->SetVisibleFrame(4);
    host.container->SetVisibleFrame(4);
    EXPECT_TRUE(controls.Item("EsourceFrame")->Visible());
    EXPECT_EQ(controls.Count(), 3);
  });
}

TEST(FrameContainerTest, FormatRulesAreBuiltOncePerTypeAndFormat) {
  scenario([] {
    ContainerHost host;
    auto settings = testing::SettingsBuilder().build();
    host.container->ToggleFormatDependentWidgets(4, settings);
    host.container->ToggleFormatDependentWidgets(4, settings);
    EXPECT_EQ(count(TestFrame::log(), "EsourceFrame.initializeFormatDependentWidgetToggler"), 1);
    EXPECT_EQ(count(TestFrame::log(), "EsourceFrame.ArrangeAllFields"), 2);
    host.main->ChangeFormatType(4);
    host.container->ToggleFormatDependentWidgets(4, settings);
    EXPECT_EQ(count(TestFrame::log(), "EsourceFrame.initializeFormatDependentWidgetToggler"), 2);
  });
}

TEST(FrameContainerTest, UpdateFrameActsOnTheFrameShownAndResetOnTheOneNamed) {
  scenario([] {
    ContainerHost host;
    host.container->SetVisibleFrame(4);
    host.container->UpdateFrame(2, true);
    host.container->Reset(1, false);
    auto& log = TestFrame::log();
    EXPECT_EQ(count(log, "EsourceFrame.UpdateFrame(2, True)"), 1);
    EXPECT_EQ(count(log, "PeriodicalFrame.UpdateFrame(-1, False)"), 1);
    EXPECT_EQ(count(log, "PeriodicalFrame.UpdateFrame(2, True)"), 0);
  });
}

TEST(FrameContainerTest, GetControlsNeedsTheShownFrameToExist) {
  scenario([] {
    ContainerHost host;
    EXPECT_EQ(host.container->getControls(), nullptr);
    EXPECT_EQ(host.failures(), (std::vector<std::string>{"FrameContainer.getControls 5"}));
    host.container->SetVisibleFrame(0);
    EXPECT_EQ(host.container->getControls()->Count(), 43);
  });
}

TEST(FrameContainerTest, AFrameThatCouldNotBeMadeIsReachedOnlyThroughCheckedAccess) {
  scenario([] {
    ContainerHost host;
    std::weak_ptr<HostCallback> callback = host.callback;
    host.callback.reset();
    // Type 2 has no frame. Told to go on, the container makes a proxy on a
    // missing widget; each statement that needs the widget fails with 91.
    host.container->HandleUnsupportedReferenceType(2, true);
    host.container->HandleUnsupportedReferenceType(2, false);
    host.container->SetVisibleFrame(4);
    const auto failures = host.failures();
    EXPECT_GE(count(failures, "FrameProxy.HandleUnsupportedReferenceType 91"), 2)
        << ::testing::PrintToString(failures);
    // Taking the container off its form reports the widget it could not
    // remove, and still ends the other frames and lets go of the host.
    EXPECT_EQ(testing::errorOf([&] { host.form->remove("Container"); }), kInvalidProcedureCall);
    EXPECT_EQ(count(TestFrame::log(), "EsourceFrame.Terminate with 21 widgets"), 2);
    EXPECT_TRUE(callback.expired());
  });
}

TEST(FrameContainerTest, TerminateReleasesProxiesBeforeWidgetsThenItsReferences) {
  scenario([] {
    ContainerHost host;
    host.container->SetVisibleFrame(4);
    std::weak_ptr<HostCallback> callback = host.callback;
    std::weak_ptr<Main2> main = host.main;
    std::weak_ptr<Model> model = host.main->Model(4);
    host.callback.reset();
    host.main.reset();
    host.form->remove("Container");
    // Each frame ended first through its proxy, with all its widgets, and
    // again when the toolkit took it off the form.
    EXPECT_EQ(count(TestFrame::log(), "NonPeriodicalFrame.Terminate with 43 widgets"), 2);
    EXPECT_EQ(count(TestFrame::log(), "EsourceFrame.Terminate with 21 widgets"), 2);
    EXPECT_EQ(host.container->Controls().Count(), 0);
    EXPECT_TRUE(callback.expired());
    EXPECT_TRUE(main.expired());
    EXPECT_TRUE(model.expired());
    EXPECT_FALSE(vbwProtector::hasTracingObject());
    EXPECT_EQ(host.bridge.service().calls.back(), "exit False");
  });
}

// A host may take the container off its form, and let go of all it holds,
// from inside one of its own members: the library's code still running
// goes on over live objects, the ended container makes no frame anew, and
// the host hears nothing more.
TEST(FrameContainerTest, AHostMayEndTheContainerFromInsideItsOwnMember) {
  scenario([] {
    ContainerHost host;
    host.container->SetVisibleFrame(0);
    std::weak_ptr<FrameContainer> container = host.container;
    std::weak_ptr<Main2> main = host.main;
    bool ended = false;
    host.callback->onChange = [&](std::shared_ptr<Object>&) {
      if (std::exchange(ended, true))
        return;
      host.form->remove("Container");
      host.container.reset();
      host.main.reset();
    };
    const auto fields = host.main->Model(0)->keyToInternalIndex()->Count();
    std::vector<std::string> values(static_cast<size_t>(fields), "x");
    // Called as a host holding a plain pointer does: nothing here keeps the
    // container alive once the host has let go of it.
    FrameContainer* raw = host.container.get();
    raw->SynchronizeFieldsWithModel(0, values);
    EXPECT_TRUE(ended);
    EXPECT_EQ(host.callback->callsTo("widgetChangeHandler").size(), 1u);
    EXPECT_TRUE(container.expired());
    EXPECT_TRUE(main.expired());
    EXPECT_EQ(count(TestFrame::log(), "NonPeriodicalFrame.Terminate with 43 widgets"), 2);
  });
}

TEST(FrameContainerTest, ProcessTextFieldSendsTheCategoryOfTheRoleAndTheDateExits) {
  struct Row {
    const char* role;
    const char* secondaryText;
    std::vector<std::string> calls;
  };
  const std::vector<Row> rows = {
      {"author", "", {"ProcessTextField(@, 0, False, True, )"}},
      {"esourceAuthor", "", {"ProcessTextField(@, 0, False, True, )"}},
      {"title", "", {"ProcessTextField(@, 1, False, True, )"}},
      {"articletitle", "", {"ProcessTextField(@, 2, False, True, )"}},
      {"headingTitle", "", {"ProcessTextField(@, 3, False, True, )"}},
      {"headingTitleKey", "", {"ProcessTextField(@, -1, False, True, )"}},
      {"publisher", "", {"ProcessTextField(@, 5, False, True, )"}},
      {"year", "", {"ProcessTextField(@, 6, False, True, )"}},
      {"year", "2001", {"HandleDateExit(@, False)"}},
      {"page", "", {"ProcessTextField(@, 7, False, True, )"}},
      {"edition", "", {"ProcessTextField(@, 8, False, True, )"}},
      {"multivol", "", {"ProcessTextField(@, 10, True, True, )"}},
      {"refersTo", "True", {"ProcessTextField(@, 12, False, True, True)"}},
      {"refersTo", "true", {"ProcessTextField(@, -1, False, True, true)"}},
      {"online", "", {"ProcessTextField(@, 13, False, True, )"}},
      {"onlineKey", "", {"ProcessTextField(@, 13, False, True, )"}},
      {"v4_keywords", "", {"ProcessTextField(@, 14, False, True, )"}},
      {"v8_PublicationMedium", "", {"ProcessTextField(@, 16, False, True, )"}},
      {"notes", "", {"ProcessTextField(@, -1, True, True, )"}},
      {"PeriodicalVolume", "", {"ProcessTextField(@, -1, False, True, )"}},
      {"esourceDate", "", {"ProcessTextField(@, 17, False, True, )", "HandleDateExit(@, False)"}},
      {"date", "", {"ProcessTextField(@, -1, False, True, )", "HandleDateExit(@, False)"}},
      {"accessDate", "", {"ProcessTextField(@, -1, False, True, )", "HandleDateExit(@, True)"}},
      {"publishDate", "", {"ProcessTextField(@, -1, False, True, )", "HandleDateExit(@, True)"}},
  };
  scenario([&] {
    ContainerHost host;
    host.container->SetVisibleFrame(4);
    auto field = frameOf(*host.container, 4).byKey("EsourceAuthor");
    for (const auto& row : rows) {
      SCOPED_TRACE(std::string(row.role) + " / " + row.secondaryText);
      // A tag without a comma is its own role.
      field->Tag(std::string(row.role).starts_with("PeriodicalVolume")
                     ? row.role
                     : std::string("EsourceAuthor,") + row.role);
      host.callback->calls.clear();
      host.container->ProcessTextField(field, row.secondaryText);
      std::vector<std::string> expected;
      for (std::string call : row.calls) {
        call.replace(call.find('@'), 1, testing::RecordingHostCallback::describe(field));
        expected.push_back(call);
      }
      EXPECT_EQ(host.callback->calls, expected);
    }
    EXPECT_TRUE(host.failures().empty());
  });
}

TEST(FrameContainerTest, AHostWithoutADateExitGetsTheFailurePath) {
  scenario([] {
    ContainerHost host;
    host.callback->missing = {"HandleDateExit"};
    host.container->SetVisibleFrame(4);
    auto field = frameOf(*host.container, 4).byKey("EsourceDate");
    field->Tag("EsourceDate,date");
    host.container->ProcessTextField(field);
    EXPECT_EQ(host.callback->callsTo("ProcessTextField").size(), 1u);
    EXPECT_EQ(host.failures(), (std::vector<std::string>{"FrameContainer.ProcessTextField 438"}));
  });
}

TEST(FrameContainerTest, TheSubFormIsHiddenOncePerFocusMove) {
  scenario([] {
    ContainerHost host;
    host.container->SetVisibleFrame(4);
    auto& frame = frameOf(*host.container, 4);
    host.container->UserFormEnterFocus(frame.byKey("EsourceTitle"));  // no active widget: 0
    EXPECT_TRUE(host.callback->callsTo("HideSubform").empty());
    frame.byKey("EsourceTitle")->SetFocus();
    host.container->UserFormEnterFocus(frame.byKey("EsourceTitle"));
    host.container->UserFormEnterFocus(frame.byKey("EsourceTitle"));
    EXPECT_EQ(host.callback->callsTo("HideSubform").size(), 1u);
    // An edit marks the widget as known: the next entry hides nothing.
    frame.byKey("EsourceURL")->SetFocus();
    std::dynamic_pointer_cast<TextBox>(frame.byKey("EsourceURL"))->Text("x");
    host.container->UserFormEnterFocus(frame.byKey("EsourceURL"));
    EXPECT_EQ(host.callback->callsTo("HideSubform").size(), 1u);
  });
}

TEST(FrameContainerTest, ASecondContainerGetsEmptyMetadataForATypeAlreadyMade) {
  scenario([] {
    ContainerHost host;
    host.container->SynchronizeFieldsWithModel(4, *std::make_unique<std::vector<std::string>>(11));
    auto second = host.build("Second");
    second->initialize(host.callback);
    std::vector<std::string> values(11);
    second->SynchronizeFieldsWithModel(4, values);
    const auto failures = host.failures();
    EXPECT_NE(std::find(failures.begin(), failures.end(), "FrameProxy.initialize 91"),
              failures.end());
    EXPECT_TRUE(second->existingProxy(4)->controls().size() == 21u);
  });
}

TEST(FrameContainerTest, AChangeOnAnUnknownKeyReachesTheHostAsIndexZero) {
  scenario([] {
    ContainerHost host;
    host.container->SetVisibleFrame(4);
    auto field =
        std::dynamic_pointer_cast<TextBox>(frameOf(*host.container, 4).byKey("EsourceURL"));
    field->Tag("NoSuchKey");
    field->Text("abc");
    EXPECT_EQ(host.callback->calls.back(), "widgetChangeHandler(False, 0, abc, " +
                                               testing::RecordingHostCallback::describe(field) +
                                               ", Nothing, , False, -1)");
    EXPECT_TRUE(host.main->Model(4)->keyToInternalIndex()->Exists("NoSuchKey"));
  });
}

}  // namespace
}  // namespace kelmora
