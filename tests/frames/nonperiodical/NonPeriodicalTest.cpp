#include "frames/nonperiodical/NonPeriodical.h"

#include <gtest/gtest.h>

#include "diagnostics/TranslatorWrapper.h"
#include "diagnostics/vbwProtector.h"

#include "frames/periodical/Periodical.h"
#include "support/ContainerHost.h"
#include "support/FreshThread.h"
#include "support/SettingsBuilder.h"
#include "support/TestFrame.h"
#include "surface/ComboBox.h"
#include "surface/ControlRegistry.h"
#include "surface/DataObject.h"
#include "surface/Frame.h"
#include "surface/Label.h"
#include "surface/OptionButton.h"
#include "surface/TextBox.h"
#include "surface/UserActions.h"

namespace kelmora {
namespace {

using testing::SettingsBuilder;
using Calls = std::vector<std::string>;

// Internal indices of the catalogue that the tests store or execute.
constexpr int16_t kOnline = 5;
constexpr int16_t kBookOption = 23;
constexpr int16_t kWebsiteOption = 24;
constexpr int16_t kMediumLabel = 25;
constexpr size_t kFieldCount = 28;

constexpr const char* kFrames[] = {
    "PublisherFrame",         "PlaceFrame",   "PageFrame",   "EditionFrame",       "SubworkFrame",
    "PublicationMediumFrame", "WebsiteFrame", "EditorFrame", "MultipartWorkFrame", "NotesFrame"};

// A stored reference: a book or a website, with a website text and the
// medium label's caption.
std::vector<std::string> stored(bool website, const std::string& online = "",
                                const std::string& medium = "Medium") {
  std::vector<std::string> values(kFieldCount);
  values[7] = "False";
  values[kBookOption] = website ? "False" : "True";
  values[kWebsiteOption] = website ? "True" : "False";
  values[kOnline] = online;
  values[kMediumLabel] = medium;
  return values;
}

// A host that shows the NonPeriodical frame under one format and looks at
// it only through the container.
struct BookHost : testing::ContainerHost {
  explicit BookHost(const SettingsBuilder& settings) {
    container->SetVisibleFrame(0);
    format(settings);
  }
  void format(const SettingsBuilder& settings) {
    main->ChangeFormatType(0);
    container->ToggleFormatDependentWidgets(0, settings.build());
  }
  void load(std::vector<std::string> values) { container->SynchronizeFieldsWithModel(0, values); }
  void update(int16_t option, bool showAll) { container->UpdateFrame(option, showAll); }

  template <typename T = Widget>
  T& at(const char* name, int16_t index = Widget::kNoIndex) {
    auto found = container->getControls()->find(name, index);
    EXPECT_NE(found, nullptr) << name << "(" << index << ")";
    return dynamic_cast<T&>(*found);
  }
  TextBox& box(int16_t i) { return at<TextBox>("TextBox", i); }
  Label& comboLabel(int16_t i) { return at<Label>("ComboLabel", i); }
  // The ten sub-frames, 'T' for shown and 'F' for hidden.
  std::string frames() {
    std::string shown;
    for (const char* frame : kFrames) shown += at(frame).Visible() ? 'T' : 'F';
    return shown;
  }
  // Every shown sub-frame with its top in pixels.
  std::string tops() {
    std::string text;
    for (const char* frame : kFrames) {
      if (at(frame).Visible())
        text += std::string(text.empty() ? "" : ", ") + frame + " " +
                std::to_string(static_cast<int>(at(frame).Top()));
    }
    return text;
  }
  Calls take() { return std::exchange(callback->calls, {}); }
};

// The real frames of types 0 and 1; type 4 stands as a test frame.
void scenario(const std::function<void()>& body) {
  testing::TestFrame::registerForAllTypes();
  ControlRegistry::Register(ControlRegistry::kNonPeriodical, []() -> std::shared_ptr<UserControl> {
    return std::make_shared<NonPeriodical>();
  });
  ControlRegistry::Register(ControlRegistry::kPeriodical, []() -> std::shared_ptr<UserControl> {
    return std::make_shared<Periodical>();
  });
  testing::onFreshThread(body);
}

SettingsBuilder family(int32_t format, bool isURL = false) {
  return SettingsBuilder().Format(format).outputTemplate(
      13, [isURL](const std::string&) { return isURL; });
}

// ---------------------------------------------------------------------------
// The form and its life in the container

TEST(NonPeriodicalTest, ContainerMakesItFirstAndEndsItWithNothingLeft) {
  scenario([] {
    testing::ContainerHost host;
    host.container->SetVisibleFrame(1);
    EXPECT_EQ(host.failures(), Calls{});
    std::weak_ptr<Widget> frame = host.container->Controls().Item("NonPeriodicalFrame");
    host.container->SetVisibleFrame(0);
    auto& controls = *host.container->getControls();
    EXPECT_EQ(controls.Count(), 51);
    // The date type list is filled once, with nothing selected.
    auto& list = dynamic_cast<ComboBox&>(*controls.find("ComboBox", 0));
    ASSERT_EQ(list.ListCount(), 2);
    EXPECT_EQ(list.List(0), "Published");
    EXPECT_EQ(list.List(1), "Updated");
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_FALSE(controls.find("DeprecatedCheckBox", 0)->Visible());
    for (int16_t type : {0, 1, 4}) {
      host.container->SetVisibleFrame(type);
      host.container->ToggleFormatDependentWidgets(type, family(2).build());
      host.container->UpdateFrame(type == 0 ? 1 : 0, true);
    }
    host.callback.reset();
    host.main.reset();
    host.form->remove("Container");
    EXPECT_EQ(host.container->Controls().Count(), 0);
    EXPECT_TRUE(frame.expired());
    EXPECT_EQ(host.failures(), Calls{});
  });
}

// ---------------------------------------------------------------------------
// Show-all and options

TEST(NonPeriodicalTest, SubFramesByTemplateFormatAndShowAll) {
  // Publisher, place, page, edition, sub-work, medium, website, editor,
  // multi-part, notes.
  struct Row {
    bool website;
    int32_t format;
    bool isURL;
    const char* hidden;
    const char* all;
  };
  const Row rows[] = {
      {false, 0, false, "TTTFFFFFFF", "TTTTTTTTTT"}, {false, 2, false, "TTTFFFFFFF", "TTTTTTTTTT"},
      {true, 0, false, "FFFFFFTFFF", "TFFFFFTFFT"},  {true, 1, false, "FFFFFFTFFF", "TFTTTFTTFT"},
      {true, 2, true, "TFFFFFTFFF", "TFFTTFTTFT"},   {true, 2, false, "FFFFFFTFFF", "FFFTTFTTFT"},
      {true, 3, false, "FFFFFFTFFF", "TFFFTFTFFT"},
  };
  scenario([&] {
    for (const auto& row : rows) {
      SCOPED_TRACE(::testing::Message() << (row.website ? "website" : "book") << " format "
                                        << row.format << " isURL " << row.isURL);
      BookHost host(family(row.format, row.isURL));
      host.update(row.website ? 1 : 0, false);
      EXPECT_EQ(host.frames(), row.hidden);
      host.update(-1, true);
      EXPECT_EQ(host.frames(), row.all);
      EXPECT_EQ(host.failures(), Calls{});
    }
  });
}

TEST(NonPeriodicalTest, OptionClickReportsTheChangeThenBothButtons) {
  scenario([] {
    BookHost host(family(0));
    host.take();
    // The pair is hidden: only the host switches the template.
    host.update(1, false);
    EXPECT_EQ(
        host.take(),
        (Calls{"OptionButtonChanged(0, 1)",
               "widgetChangeHandler(False, 23, False, OptionButton(0), Nothing, , False, -1)",
               "widgetChangeHandler(False, 24, True, OptionButton(1), Nothing, , False, -1)"}));
  });
}

// ---------------------------------------------------------------------------
// Layout

TEST(NonPeriodicalTest, LeftColumnTreeRowForRow) {
  // Shown: publisher, place, page, edition; then the tops of place, page,
  // edition and sub-work, or -1 where the row is hidden.
  struct Row {
    const char* shown;
    int place, page, edition, subwork;
  };
  const Row rows[] = {
      {"TTTT", 81, 108, 135, 162}, {"TTFT", 81, -1, 108, 135}, {"TFTT", -1, 81, 108, 135},
      {"TFFT", -1, -1, 81, 108},   {"TFFF", -1, -1, -1, 81},   {"FTTT", 54, 81, 108, 135},
      {"FTFT", 54, -1, 81, 108},   {"FFTT", -1, 54, 81, 108},  {"FFFT", -1, -1, 54, 81},
  };
  scenario([&] {
    for (const auto& row : rows) {
      SCOPED_TRACE(row.shown);
      BookHost host(family(0));
      host.update(0, true);
      const char* left[] = {"PublisherFrame", "PlaceFrame", "PageFrame", "EditionFrame"};
      for (int i = 0; i < 4; ++i) host.at(left[i]).Visible(row.shown[i] == 'T');
      host.container->ExecuteDependentWidgetToggler(0, kOnline);
      auto top = [&](const char* frame) {
        return host.at(frame).Visible() ? static_cast<int>(host.at(frame).Top()) : -1;
      };
      EXPECT_EQ(top("PlaceFrame"), row.place);
      EXPECT_EQ(top("PageFrame"), row.page);
      EXPECT_EQ(top("EditionFrame"), row.edition);
      EXPECT_EQ(top("SubworkFrame"), row.subwork);
      EXPECT_EQ(top("PublisherFrame"), row.shown[0] == 'T' ? 54 : -1);
    }
  });
}

TEST(NonPeriodicalTest, WebsiteFrameHeights) {
  struct Row {
    const char* name;
    int32_t format;
    bool website;
    const char* online;
    const char* medium;
    float height;
  };
  const Row rows[] = {
      {"both dates", 0, true, "x", "Medium", 75},
      {"access date", 2, false, "", "Medium", 48},
      {"publish date", 1, true, "x", "Medium", 48},
      {"website alone", 1, true, "", "Medium", 21},
      {"book in a named medium", 0, false, "", "Microfilm", 1},
  };
  scenario([&] {
    for (const auto& row : rows) {
      SCOPED_TRACE(row.name);
      BookHost host(family(row.format));
      host.load(stored(row.website, row.online, row.medium));
      host.update(-1, true);
      EXPECT_EQ(host.at("WebsiteFrame").Height(), row.height);
      // A collapsed frame takes no room and no gap.
      if (row.height == 1) {
        EXPECT_EQ(host.at("EditorFrame").Top(), 27);
      }
    }
  });
}

TEST(NonPeriodicalTest, RowTopsByTemplateFormatAndShowAll) {
  // No website text, the medium label unnamed: the right column stacks
  // below WebsiteFrame by its height, 21 with the website row alone, 48
  // with the access date, 75 with both dates.
  const std::string book = "PublisherFrame 54, PlaceFrame 81, PageFrame 108";
  const std::string bookAll = book +
                              ", EditionFrame 135, SubworkFrame 162, "
                              "PublicationMediumFrame 0, WebsiteFrame 27, ";
  struct Row {
    bool website;
    int32_t format;
    bool isURL;
    std::string hidden;
    std::string all;
  };
  const Row rows[] = {
      {false, 0, false, book, bookAll + "EditorFrame 54, MultipartWorkFrame 81, NotesFrame 135"},
      {false, 1, false, book, bookAll + "EditorFrame 54, MultipartWorkFrame 81, NotesFrame 135"},
      {false, 2, false, book, bookAll + "EditorFrame 81, MultipartWorkFrame 108, NotesFrame 162"},
      {false, 3, false, book, bookAll + "EditorFrame 54, MultipartWorkFrame 81, NotesFrame 135"},
      {true, 0, false, "WebsiteFrame 0", "PublisherFrame 54, WebsiteFrame 0, NotesFrame 27"},
      {true, 1, false, "WebsiteFrame 0",
       "PublisherFrame 54, PageFrame 81, EditionFrame 108, SubworkFrame 135, WebsiteFrame 0, "
       "EditorFrame 27, NotesFrame 54"},
      {true, 2, true, "PublisherFrame 54, WebsiteFrame 0",
       "PublisherFrame 54, EditionFrame 81, SubworkFrame 108, WebsiteFrame 0, EditorFrame 81, "
       "NotesFrame 108"},
      {true, 2, false, "WebsiteFrame 0",
       "EditionFrame 54, SubworkFrame 81, WebsiteFrame 0, EditorFrame 81, NotesFrame 108"},
      {true, 3, false, "WebsiteFrame 0",
       "PublisherFrame 54, SubworkFrame 81, WebsiteFrame 0, NotesFrame 27"},
  };
  scenario([&] {
    for (const auto& row : rows) {
      SCOPED_TRACE(::testing::Message() << (row.website ? "website" : "book") << " format "
                                        << row.format << " isURL " << row.isURL);
      BookHost host(family(row.format, row.isURL));
      host.update(row.website ? 1 : 0, false);
      EXPECT_EQ(host.tops(), row.hidden);
      host.update(-1, true);
      EXPECT_EQ(host.tops(), row.all);
      // Arranging again with nothing changed moves nothing.
      host.container->ExecuteDependentWidgetToggler(0, kOnline);
      EXPECT_EQ(host.tops(), row.all);
    }
  });
}

// ---------------------------------------------------------------------------
// Field events

TEST(NonPeriodicalTest, TextChangesSendTheirSecondControlAndTexts) {
  struct Row {
    int16_t box;
    Calls calls;
  };
  const Row rows[] = {
      {0, {"widgetChangeHandler(True, 1, x, TextBox(0), Nothing, Prematter, False, -1)"}},
      {2, {"widgetChangeHandler(False, 19, x, TextBox(2), Nothing, , False, -1)"}},
      {8,
       {"CaptionToTitleType(3, Chapter)",
        "widgetChangeHandler(False, 14, x, TextBox(8), ComboLabel(0), chapter, False, -1)"}},
      {9, {"widgetChangeHandler(False, 26, x, TextBox(9), ComboLabel(1), , False, -1)"}},
      {10, {"widgetChangeHandler(False, 5, x, TextBox(10), Nothing, , False, 11)"}},
      {13, {"widgetChangeHandler(False, 11, x, TextBox(13), ComboLabel(2), , False, -1)"}},
      {14, {"widgetChangeHandler(False, 20, x, TextBox(14), TranslatorWrapper, , False, -1)"}},
      {15, {"widgetChangeHandler(False, 17, x, TextBox(15), ComboLabel(3), , False, -1)"}},
  };
  scenario([&] {
    BookHost host(family(3).WebsiteImpliesDate(true));
    host.callback->titleTypes["Chapter"] = "chapter";
    host.update(0, true);
    for (const auto& row : rows) {
      host.take();
      host.box(row.box).Text("x");
      EXPECT_EQ(host.take(), row.calls) << "TextBox(" << row.box << ")";
      host.box(row.box).Text("");
    }
    // The translator's wrapper is made once: every change of the field,
    // under any format, hands the host the same object.
    host.callback->secondControls.clear();
    host.box(14).Text("Lindqvist");
    host.format(family(0));
    host.box(14).Text("Lindqvist, Maja");
    const auto& given = host.callback->secondControls;
    ASSERT_EQ(given.size(), 2u);
    EXPECT_NE(given[0], nullptr);
    EXPECT_EQ(given[0], given[1]);
    EXPECT_EQ(host.failures(), Calls{});
  });
}

// The wrapper goes by reference: what the host leaves in it is what the
// frame sends next, and an emptied one is made anew.
TEST(NonPeriodicalTest, TheTranslatorKeepsTheSecondControlTheHostHandsBack) {
  scenario([] {
    BookHost host(family(3));
    host.update(0, true);
    auto hostsOwn = std::make_shared<Object>();
    std::vector<std::shared_ptr<Object>> answers = {hostsOwn, nullptr, nullptr};
    host.callback->onChange = [&](std::shared_ptr<Object>& second) {
      if (!answers.empty()) {
        second = answers.front();
        answers.erase(answers.begin());
      }
    };
    for (const char* text : {"L", "Li", "Lin", "Lind"}) host.box(14).Text(text);
    const auto& given = host.callback->secondControls;
    ASSERT_EQ(given.size(), 4u);
    EXPECT_NE(std::dynamic_pointer_cast<TranslatorWrapper>(given[0]), nullptr);
    EXPECT_EQ(given[1], hostsOwn);
    EXPECT_NE(std::dynamic_pointer_cast<TranslatorWrapper>(given[2]), nullptr);
    EXPECT_NE(given[2], given[0]);
    EXPECT_NE(std::dynamic_pointer_cast<TranslatorWrapper>(given[3]), nullptr);
    EXPECT_NE(given[3], given[2]);
    EXPECT_EQ(host.failures(), Calls{});
  });
}

TEST(NonPeriodicalTest, AccessDateTurnsTheYearIntoADateWhereAWebsiteImpliesOne) {
  scenario([] {
    for (bool impliesDate : {true, false}) {
      SCOPED_TRACE(impliesDate);
      BookHost host(family(0).WebsiteImpliesDate(impliesDate));
      host.update(0, true);
      Label& year = host.at<Label>("YearLabel");
      host.box(11).Text("3 May 2020");
      EXPECT_EQ(year.Caption(), impliesDate ? "Date" : "Year");
      host.take();
      host.box(4).Text("2019");
      EXPECT_EQ(host.take(), Calls{"widgetChangeHandler(True, 8, 2019, TextBox(4), Nothing, , " +
                                   std::string(impliesDate ? "True" : "False") + ", -1)"});
      host.box(11).Text("");
      EXPECT_EQ(year.Caption(), "Year");
    }
  });
}

TEST(NonPeriodicalTest, LeavingAFieldSendsItsCompanionText) {
  struct Row {
    int16_t box;
    Calls calls;
  };
  const Row rows[] = {
      {3, {"ProcessTextField(TextBox(3), -1, False, False, Pub)"}},
      {8,
       {"CaptionToTitleType(3, Chapter)",
        "ProcessTextField(TextBox(8), -1, False, False, chapter)"}},
      {9, {"ProcessTextField(TextBox(9), 16, False, False, Medium)"}},
      {15, {"ProcessTextField(TextBox(15), 10, True, False, Multi-vol.)"}},
      {16, {"ProcessTextField(TextBox(16), -1, True, False, )"}},
  };
  scenario([&] {
    BookHost host(family(0));
    host.callback->titleTypes["Chapter"] = "chapter";
    host.update(0, true);
    host.box(2).Text("Pub");
    for (const auto& row : rows) {
      UserActions::focus(host.box(row.box));
      host.take();
      UserActions::focus(host.box(1));
      EXPECT_EQ(host.take(), row.calls) << "TextBox(" << row.box << ")";
    }
    // Focus leaving for the host leaves no active widget: nothing is sent.
    UserActions::focusAway();
    EXPECT_TRUE(host.take().empty());
  });
}

TEST(NonPeriodicalTest, MouseMovesCarryTheirHint) {
  struct Row {
    bool website;
    bool impliesDate;
    int16_t box;
    const char* medium;
    const char* flag;  // nullptr: no call
  };
  const Row rows[] = {
      {false, true, 4, "Medium", "True"},       {false, false, 4, "Medium", nullptr},
      {false, true, 10, "Medium", "False"},     {true, true, 10, "Medium", "True"},
      {true, true, 2, "Medium", "True"},        {true, false, 2, "Medium", "False"},
      {false, false, 9, "Microfilm", "True"},   {false, false, 9, "Medium", "False"},
      {false, false, 9, "Microfilms", "False"}, {false, true, 1, "Medium", "False"},
  };
  scenario([&] {
    for (const auto& row : rows) {
      SCOPED_TRACE(::testing::Message() << "TextBox(" << row.box << ") " << row.medium);
      BookHost host(family(0).WebsiteImpliesDate(row.impliesDate));
      host.load(stored(row.website, "", row.medium));
      host.update(-1, true);
      host.take();
      UserActions::moveMouseOver(host.box(row.box));
      const Calls expected =
          row.flag
              ? Calls{"HandleMouseMove(TextBox(" + std::to_string(row.box) + "), " + row.flag + ")"}
              : Calls{};
      EXPECT_EQ(host.take(), expected);
    }
  });
}

TEST(NonPeriodicalTest, SubFramesForwardMovesAndDropsExceptTwo) {
  scenario([] {
    BookHost host(family(0));
    host.update(0, true);
    auto& form = dynamic_cast<UserControl&>(*host.container->Controls().Item("NonPeriodicalFrame"));
    host.take();
    // A point of each frame left of its label, in pixels on the form.
    UserActions::moveMouseAt(form, 5, 55);   // PublisherFrame
    UserActions::moveMouseAt(form, 5, 163);  // SubworkFrame
    UserActions::moveMouseAt(form, 314, 1);  // PublicationMediumFrame
    EXPECT_EQ(host.take(), Calls{"HandleMouseMove(Nothing, False)"});
    // Dropped on each sub-frame, data reaches the host from all but the
    // two that have no handler, and comes back as the host left it.
    auto data = std::make_shared<DataObject>();
    auto replacement = std::make_shared<DataObject>();
    host.callback->replacementData = replacement;
    for (const char* frame : kFrames) {
      const bool forwards = std::string_view(frame) != "SubworkFrame" &&
                            std::string_view(frame) != "PublicationMediumFrame";
      EXPECT_EQ(UserActions::drop(host.at(frame), data), forwards ? replacement : data) << frame;
      EXPECT_EQ(host.take().size(), forwards ? 1u : 0u) << frame;
    }
  });
}

// ---------------------------------------------------------------------------
// Format rules

TEST(NonPeriodicalTest, FormatSequencesSetThePageRowAndTheDateRow) {
  // After each format: page and place widths in twips, page range shown,
  // the date label's caption and whether it or the date type combo shows.
  struct After {
    int32_t format;
    float page, place;
    bool range;
    const char* caption;
    bool combo;
  };
  const After three = {3, 1755, 1755, true, "Publish date", true};
  const std::vector<std::vector<After>> sequences = {
      {{3, 1770, 1770, true, "Publish date", true}},
      {{0, 3675, 2250, false, "Update date", false}, three},
      {{0, 3675, 2250, false, "Update date", false}, {0, 3675, 2250, false, "Update date", false}},
      {{2, 3675, 2250, false, "Publish date", false}, three},
  };
  scenario([&] {
    for (const auto& sequence : sequences) {
      BookHost host(family(sequence[0].format));
      // A website with an address, so that the date rows' rules show them.
      host.load(stored(true, "x"));
      for (size_t i = 0; i < sequence.size(); ++i) {
        const After& after = sequence[i];
        SCOPED_TRACE(::testing::Message() << "step " << i << " format " << after.format);
        if (i > 0)
          host.format(family(after.format));
        host.update(-1, false);
        EXPECT_EQ(host.box(5).Width(), after.page);
        EXPECT_EQ(host.box(3).Width(), after.place);
        EXPECT_EQ(host.box(6).Visible(), after.range);
        EXPECT_EQ(host.at("PageRangeLabel").Visible(), after.range);
        EXPECT_EQ(host.at<Label>("PublishDateLabel").Caption(), after.caption);
        EXPECT_EQ(host.at("PublishDateLabel").Visible(), !after.combo);
        EXPECT_EQ(host.at("ComboBox", 0).Visible(), after.combo);
      }
      EXPECT_EQ(host.failures(), Calls{});
    }
  });
}

// Each format's rule rows as the toggler received them, in order; the
// online template is held in format 2 only, so that a later format leaves
// the publisher row to the book option alone.
TEST(NonPeriodicalTest, EachFormatRegistersItsRowsInOrder) {
  const std::string medium =
      "v8_PublicationMediumComboLabel=Medium||v6_WebsiteOption=True|"
      "WebsiteLabel,Online,AccessDateLabel,AccessDate|True";
  const std::vector<std::vector<std::string>> rows = {
      {medium, "Online<>|AccessDateLabel,AccessDate,PublishDateLabel,v579_BookPublishDate|True"},
      {"v8_PublicationMediumComboLabel=__ALWAYS_ENABLE__|"
       "WebsiteLabel,Online,AccessDateLabel,AccessDate|True",
       "Online=__ALWAYS_ENABLE__|WebsiteLabel|True",
       "AccessDate=__ALWAYS_DISABLE__|AccessDateLabel,AccessDate|True",
       "v6_WebsiteOption=True&&Online<>|PublishDateLabel,v579_BookPublishDate|True"},
      {medium},
      {medium,
       "Online<>|AccessDateLabel,AccessDate,v8_PublicationDateTypeComboBox,v579_BookPublishDate|"
       "True",
       "SubworkComboLabel<>Entry||v6_WebsiteOption=True|PageLabel,Page|False"},
  };
  for (int32_t format = 0; format <= 3; ++format) {
    SCOPED_TRACE(format);
    scenario([&] {
      int asked = 0;
      const auto counting = [&asked](int32_t number) {
        return SettingsBuilder().Format(number).outputTemplate(13, [&asked](const std::string&) {
          ++asked;
          return true;
        });
      };
      BookHost host(counting(2));
      vbwProtector::vbwTraceParameters() = true;
      host.bridge.service().calls.clear();
      host.format(counting(format));
      std::vector<std::string> added;
      const std::string prefix = "in Kelmora.DepWidgetToggler.Add (";
      for (const auto& call : host.bridge.service().callsStartingWith(prefix)) {
        std::string row = call.substr(prefix.size(), call.size() - prefix.size() - 2);
        for (const char* name : {"enableKey=", ", dependentWidgets=", ", toggleByHiding="})
          row.replace(row.find(name), std::string(name).size(), row.starts_with(name) ? "" : "|");
        added.push_back(row);
      }
      EXPECT_EQ(added, rows[static_cast<size_t>(format)]);
      // A website's publisher row asks the template in format 2 only; a
      // later format no longer holds the one format 2 took.
      asked = 0;
      host.load(stored(true, "https://example.org"));
      host.update(-1, false);
      EXPECT_EQ(asked > 0, format == 2);
      EXPECT_EQ(host.at("PublisherFrame").Visible(), format == 2) << host.frames();
    });
  }
}

TEST(NonPeriodicalTest, OnlyTheLaterFormatsOfAFrameShowAndArrange) {
  scenario([] {
    BookHost host(family(0));
    // The first format shows nothing: the design stands until UpdateFrame.
    EXPECT_EQ(host.frames(), "TTTFTTFFTT");
    host.format(family(0));
    EXPECT_EQ(host.frames(), "TTTFFFFFFF");
  });
}

TEST(NonPeriodicalTest, FormatThreeGreysThePageOfAnEntry) {
  scenario([] {
    BookHost host(family(3));
    auto values = stored(false);
    values[15] = "Entry";
    host.load(values);
    host.update(-1, true);
    EXPECT_FALSE(host.box(5).Enabled());
    EXPECT_TRUE(host.box(5).Visible());
    host.update(1, true);
    EXPECT_TRUE(host.box(5).Enabled());
  });
}

// ---------------------------------------------------------------------------
// Editing sessions, as the host hears them

bool startsWithHttp(const std::string& text) {
  return text.starts_with("http");
}

TEST(NonPeriodicalTest, EditingABookEndToEnd) {
  scenario([] {
    BookHost host(SettingsBuilder().Format(2).outputTemplate(13, startsWithHttp));
    auto values = stored(false);
    values[0] = "Tides";
    values[1] = "Okafor, N.";
    values[19] = "Harbour Press";
    host.load(values);
    host.update(0, false);
    UserActions::focus(host.box(3));
    UserActions::typeInto(host.box(3), "Oslo");
    UserActions::focus(host.box(4));
    UserActions::focusAway();
    const Calls expected = {
        // Loading: the stored labels report their captions, the sub-work
        // label through its title type, and the date type list its entry.
        "widgetChangeHandler(True, 1, Okafor, N., TextBox(0), Nothing, Prematter, False, -1)",
        "widgetChangeHandler(False, 12, , ComboLabel(2), Nothing, , False, -1)",
        "widgetChangeHandler(False, 16, , ComboLabel(3), Nothing, , False, -1)",
        "widgetChangeHandler(False, 19, Harbour Press, TextBox(2), Nothing, , False, -1)",
        "TitleTypeToCaption(3, )",
        "CaptionToTitleType(3, )",
        "widgetChangeHandler(False, 15, , ComboLabel(0), Nothing, , False, -1)",
        "widgetChangeHandler(True, 0, Tides, TextBox(1), Nothing, , False, -1)",
        "widgetChangeHandler(False, 27, Published, ComboBox(0), Nothing, , False, -1)",
        // Focus enters the form; the place is typed and left: it goes with
        // the publisher. Leaving the form sends nothing.
        "HideSubform()",
        "widgetChangeHandler(False, 18, O, TextBox(3), Nothing, , False, -1)",
        "widgetChangeHandler(False, 18, Os, TextBox(3), Nothing, , False, -1)",
        "widgetChangeHandler(False, 18, Osl, TextBox(3), Nothing, , False, -1)",
        "widgetChangeHandler(False, 18, Oslo, TextBox(3), Nothing, , False, -1)",
        "ProcessTextField(TextBox(3), -1, False, False, Harbour Press)",
    };
    EXPECT_EQ(host.callback->calls, expected);
    EXPECT_EQ(host.frames(), "TTTFFFFFFF");
    EXPECT_EQ(host.failures(), Calls{});
  });
}

TEST(NonPeriodicalTest, EditingAWebsiteInFormatTwoEndToEnd) {
  scenario([] {
    BookHost host(SettingsBuilder().Format(2).outputTemplate(13, startsWithHttp));
    auto values = stored(true);
    values[0] = "Tide tables";
    host.load(values);
    host.update(1, false);
    EXPECT_EQ(host.frames(), "FFFFFFTFFF");
    UserActions::focus(host.box(10));
    UserActions::typeInto(host.box(10), "http");
    host.container->ExecuteDependentWidgetToggler(0, kOnline);
    UserActions::focusAway();
    const Calls expected = {
        // Loading; the website option reports the switch and both buttons.
        "widgetChangeHandler(False, 12, , ComboLabel(2), Nothing, , False, -1)",
        "widgetChangeHandler(False, 16, , ComboLabel(3), Nothing, , False, -1)",
        "TitleTypeToCaption(3, )",
        "CaptionToTitleType(3, )",
        "widgetChangeHandler(False, 15, , ComboLabel(0), Nothing, , False, -1)",
        "widgetChangeHandler(True, 0, Tide tables, TextBox(1), Nothing, , False, -1)",
        "OptionButtonChanged(0, 1)",
        "widgetChangeHandler(False, 23, False, OptionButton(0), Nothing, , False, -1)",
        "widgetChangeHandler(False, 24, True, OptionButton(1), Nothing, , False, -1)",
        "widgetChangeHandler(False, 27, Published, ComboBox(0), Nothing, , False, -1)",
        // The address is typed key by key, each change naming the access
        // date as the second field to toggle.
        "HideSubform()",
        "widgetChangeHandler(False, 5, h, TextBox(10), Nothing, , False, 11)",
        "widgetChangeHandler(False, 5, ht, TextBox(10), Nothing, , False, 11)",
        "widgetChangeHandler(False, 5, htt, TextBox(10), Nothing, , False, 11)",
        "widgetChangeHandler(False, 5, http, TextBox(10), Nothing, , False, 11)",
    };
    EXPECT_EQ(host.callback->calls, expected);
    // The template takes the text for a URL: the publisher row shows, and
    // the website block holds both dates.
    EXPECT_EQ(host.frames(), "TFFFFFTFFF");
    EXPECT_EQ(host.at("WebsiteFrame").Height(), 75);
    EXPECT_EQ(host.failures(), Calls{});
  });
}

}  // namespace
}  // namespace kelmora
