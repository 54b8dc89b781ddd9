#include "frames/periodical/Periodical.h"

#include <gtest/gtest.h>

#include "support/ContainerHost.h"
#include "support/FreshThread.h"
#include "support/SettingsBuilder.h"
#include "support/StoredReferences.h"
#include "support/TestFrame.h"
#include "surface/ComboBox.h"
#include "surface/ControlRegistry.h"
#include "surface/Frame.h"
#include "surface/Label.h"
#include "surface/TextBox.h"
#include "surface/UserActions.h"

namespace kelmora {
namespace {

using testing::SettingsBuilder;
using Calls = std::vector<std::string>;

constexpr int16_t kOnlineIndex = 5;  // internal index of PeriodicalOnline

// A host that shows the Periodical frame under one format and looks at it
// only through the container: the frame's widget collection, the host calls.
struct PeriodicalHost : testing::ContainerHost {
  explicit PeriodicalHost(const SettingsBuilder& settings) {
    container->SetVisibleFrame(1);
    format(settings);
  }
  void format(const SettingsBuilder& settings) {
    container->ToggleFormatDependentWidgets(1, settings.build());
  }
  void showAll(int16_t option = -1) { container->UpdateFrame(option, true); }

  template <typename T = Widget>
  T& at(const char* name, int16_t index = Widget::kNoIndex) {
    auto found = container->getControls()->find(name, index);
    EXPECT_NE(found, nullptr) << name << "(" << index << ")";
    return dynamic_cast<T&>(*found);
  }
  TextBox& box(int16_t i) { return at<TextBox>("TextBox", i); }
  Label& comboLabel(int16_t i) { return at<Label>("ComboLabel", i); }
  ComboBox& list() { return at<ComboBox>("ComboBox", 0); }

  // The user edits the website field and the host answers the change.
  void typeOnline(const std::string& text) {
    box(8).SetFocus();
    text.empty() ? UserActions::clear(box(8)) : UserActions::typeInto(box(8), text);
    container->ExecuteDependentWidgetToggler(1, kOnlineIndex);
  }
  Calls take() { return std::exchange(callback->calls, {}); }
};

// The other two types stand as test frames, so that the container can hide
// the frame it showed first; the real Periodical replaces its test frame.
void scenario(const std::function<void()>& body) {
  testing::TestFrame::registerForAllTypes();
  ControlRegistry::Register(ControlRegistry::kPeriodical, []() -> std::shared_ptr<UserControl> {
    return std::make_shared<Periodical>();
  });
  testing::onFreshThread(body);
}

SettingsBuilder family(int32_t format) {
  return SettingsBuilder().Format(format);
}

using testing::storedJournal;

// ---------------------------------------------------------------------------
// Options and the journal list

TEST(PeriodicalTest, OptionByFormatTable) {
  // Volume, Number, Page, Page range, Refers to, Issue, JournalFrame,
  // Access date; '.' is left as the type shown before made it.
  struct Row {
    int16_t option;
    int32_t format;
    const char* shown;
  };
  const Row rows[] = {
      {0, 0, "TTF.TTF."}, {0, 1, "TTT.FFTF"}, {0, 2, "TTT.TTFT"}, {0, 3, "TTT.TTT."},
      {1, 0, "TFFTFFF."}, {1, 1, "TTTTFFFF"}, {1, 2, "FFTTFFFT"}, {1, 3, "FFTTFFF."},
      {2, 0, "FFFTFFF."}, {2, 1, "FFTTFFFF"}, {2, 2, "FFTTTTFT"}, {2, 3, "FFTFFTF."},
  };
  const char* titles[] = {"Journal Title", "Magazine Title", "Newspaper"};
  scenario([&] {
    for (const auto& row : rows) {
      for (int16_t prior = 0; prior <= 2; ++prior) {
        if (prior == row.option)
          continue;
        SCOPED_TRACE(::testing::Message() << "option " << row.option << " format " << row.format
                                          << " after option " << prior);
        // Family 2 shows the access date; the family under test then
        // leaves it, or not.
        PeriodicalHost host(family(2));
        host.showAll(prior);
        host.main->ChangeFormatType(1);
        host.format(family(row.format));
        auto state = [&] {
          std::string shown;
          auto pair = [&](Widget& field, Widget& label) {
            shown += field.Visible() != label.Visible() ? '?' : field.Visible() ? 'T' : 'F';
          };
          pair(host.box(6), host.at("PeriodicalVolumeLabel"));
          pair(host.box(7), host.at("PeriodicalNumberLabel"));
          pair(host.box(4), host.at("PeriodicalPageLabel"));
          pair(host.box(5), host.at("PeriodicalPageRangeLabel"));
          pair(host.box(12), host.comboLabel(2));
          pair(host.box(11), host.comboLabel(1));
          pair(host.at("JournalFrame"), host.at("JournalFrame"));
          pair(host.box(9), host.at("PeriodicalAccessDateLabel"));
          return shown;
        };
        // Non-blank columns follow the table; blank ones keep what stood.
        auto expect = [&](int16_t option, std::string shown) {
          const char* table = rows[option * 4 + row.format].shown;
          for (size_t c = 0; c < shown.size(); ++c) {
            if (table[c] != '.')
              shown[c] = table[c];
          }
          return shown;
        };
        // A new format toggles again for the option already shown.
        const std::string stood = state();
        EXPECT_EQ(stood, expect(prior, stood));
        host.showAll(row.option);
        EXPECT_EQ(state(), expect(row.option, stood));
        EXPECT_EQ(host.at<Label>("PeriodicalTitleLabel").Caption(), titles[row.option]);
        EXPECT_EQ(host.failures(), Calls{});
      }
    }
  });
}

TEST(PeriodicalTest, JournalListVocabularyAndLabelsPerFamily) {
  struct Pick {
    const char* entry;
    const char* issueType;
    const char* refersTo;
    Calls calls;
  };
  auto issue = [](const char* caption) {
    return "widgetChangeHandler(False, 21, " + std::string(caption) +
           ", ComboLabel(1), Nothing, , False, -1)";
  };
  auto refers = [](const char* caption) {
    return Calls{"CaptionToTitleType(12, " + std::string(caption) + ")",
                 "widgetChangeHandler(False, 24, " + std::string(caption) +
                     ", ComboLabel(2), Nothing, , False, -1)"};
  };
  Calls specialIssue = refers("Refers to");
  specialIssue.insert(specialIssue.begin(), issue("Special issue"));
  const std::vector<std::pair<int32_t, std::vector<Pick>>> families = {
      {1,
       {{"Abstract", "Issue type", "Abstract", refers("Abstract")},
        {"Special issue", "Special issue", "Refers to", specialIssue},
        {"Special section", "Special section", "Refers to", {issue("Special section")}},
        {"Supplemental material", "Supplement", "Refers to", {issue("Supplement")}},
        {"Regular", "Issue type", "Refers to", {issue("Issue type")}}}},
      {3,
       {{"Abstract", "Issue type", "Abstract", refers("Abstract")},
        {"Regular", "Issue type", "Refers to", refers("Refers to")}}},
  };
  scenario([&] {
    for (int32_t format : {0, 2}) {
      PeriodicalHost host(family(format));
      host.showAll(0);
      EXPECT_EQ(host.at<Label>("JournalFrameLabel").Caption(), "Abstract type");
      ASSERT_EQ(host.list().ListCount(), 2);
      EXPECT_EQ(host.list().Text(), "Regular");
    }
    for (const auto& [format, picks] : families) {
      PeriodicalHost host(family(format));
      host.showAll(0);
      EXPECT_EQ(host.at<Label>("JournalFrameLabel").Caption(),
                format == 1 ? "Issue type" : "Abstract type");
      EXPECT_EQ(host.list().ListCount(), format == 1 ? 5 : 2);
      UserActions::focus(host.list());
      host.take();
      for (const auto& pick : picks) {
        SCOPED_TRACE(std::to_string(format) + " " + pick.entry);
        UserActions::selectItem(host.list(), std::string(pick.entry));
        // The labels answer the list once, and the list stays put.
        EXPECT_EQ(host.take(), pick.calls);
        EXPECT_EQ(host.list().Text(), pick.entry);
        EXPECT_EQ(host.comboLabel(1).Caption(), pick.issueType);
        EXPECT_EQ(host.comboLabel(2).Caption(), pick.refersTo);
      }
    }
  });
}

TEST(PeriodicalTest, StoredLabelsChooseTheListEntry) {
  // The list then writes its entry back, which may reword the labels.
  struct Row {
    int32_t format;
    const char* issueType;
    const char* refersTo;
    const char* entry;
    const char* refersToShown;
  };
  const Row rows[] = {
      {1, "Special section", "Refers to", "Special section", "Refers to"},
      {1, "Issue type", "Abstract of a talk", "Abstract", "Abstract"},
      {1, "Supplement", "Refers to", "Supplemental material", "Refers to"},
      {3, "Issue type", "Abstract", "Abstract", "Abstract"},
      // The short list has no supplement: it falls to Regular and the
      // stored labels stay.
      {3, "Supplement", "Refers to", "Regular", "Refers to"},
  };
  scenario([&] {
    for (const auto& row : rows) {
      SCOPED_TRACE(row.issueType + std::string(" / ") + row.refersTo);
      PeriodicalHost host(family(row.format));
      host.showAll(0);
      auto values = storedJournal(row.issueType, row.refersTo);
      host.container->SynchronizeFieldsWithModel(1, values);
      EXPECT_EQ(host.list().Text(), row.entry);
      EXPECT_EQ(host.comboLabel(1).Caption(), row.issueType);
      EXPECT_EQ(host.comboLabel(2).Caption(), row.refersToShown);
      EXPECT_EQ(host.failures(), Calls{});
    }
  });
}

// ---------------------------------------------------------------------------
// Layout

// Tops of the advanced rows 9 to 14 in twips, -1 for a hidden row.
std::vector<float> rowTops(PeriodicalHost& host) {
  std::vector<float> tops;
  for (int16_t i = 9; i <= 14; ++i)
    tops.push_back(host.box(i).Visible() ? host.box(i).Top() : -1.0f);
  return tops;
}

TEST(PeriodicalTest, AdvancedRowsCloseUpAndReopenOnTheGrid) {
  const std::vector<std::pair<std::string, std::vector<float>>> steps = {
      {"", {-1, -1, 405, 810, 1215, 1620}},
      {"10.1000/182", {405, 810, 1215, 1620, 2025, 2430}},
      {"", {-1, -1, 405, 810, 1215, 1620}},
  };
  const char* labels[] = {"PeriodicalAccessDateLabel",
                          "PeriodicalPublishDateLabel",
                          nullptr,
                          nullptr,
                          "NotesLabel",
                          "KeywordsLabel"};
  scenario([&] {
    PeriodicalHost host(family(0).accessDateFormat("d mmmm yyyy"));
    // Nothing moves while the rows cannot be seen.
    EXPECT_EQ(rowTops(host), (std::vector<float>{-1, -1, 1215, 1620, 2025, 2430}));
    host.showAll(0);
    for (const auto& [online, tops] : steps) {
      SCOPED_TRACE("online '" + online + "'");
      if (!online.empty() || !host.box(8).Text().empty())
        host.typeOnline(online);
      EXPECT_EQ(rowTops(host), tops);
      for (int16_t i = 9; i <= 14; ++i) {
        if (!host.box(i).Visible())
          continue;
        Label& label =
            labels[i - 9] ? host.at<Label>(labels[i - 9]) : host.comboLabel(i == 11 ? 1 : 2);
        EXPECT_EQ(label.Top(), host.box(i).Top() + 60) << "label of row " << i;
      }
    }
    EXPECT_EQ(host.failures(), Calls{});
  });
}

TEST(PeriodicalTest, RefersToRowTakesAPlaceWhileItsLabelShows) {
  scenario([] {
    PeriodicalHost host(family(0).accessDateFormat("d mmmm yyyy"));
    host.showAll(0);
    host.box(12).Visible(false);
    host.showAll();
    EXPECT_EQ(host.box(12).Top(), 810);
    EXPECT_EQ(host.box(13).Top(), 1215);
    host.comboLabel(2).Visible(false);
    host.showAll();
    EXPECT_EQ(host.box(13).Top(), 810);
  });
}

TEST(PeriodicalTest, JournalFrameLiesLevelWithTheArticleTitleOnlyInFamilyOne) {
  scenario([] {
    {
      PeriodicalHost host(family(1));
      host.showAll(0);
      // It covers the first moving row; nothing separates them.
      EXPECT_EQ(host.at("JournalFrame").Top(), 405);
      EXPECT_EQ(host.box(13).Top(), 405);
    }
    PeriodicalHost host(family(3));
    host.showAll(0);
    EXPECT_EQ(host.box(12).Top(), 810);
    EXPECT_EQ(host.at("JournalFrame").Top(), 810);
  });
}

TEST(PeriodicalTest, PageFieldsShareTheVolumeAndNumberSlots) {
  // Pixels on the form: page range Left and Width, its label's Left, page
  // Width.
  struct Row {
    int16_t option;
    int32_t format;
    float rangeLeft, rangeWidth, rangeLabelLeft, pageWidth;
  };
  const Row rows[] = {
      {1, 0, 80, 224, 17, 73},    // no page: the range takes the first slot
      {1, 1, 231, 73, 168, 73},   // both: the range stands under the number
      {2, 3, 231, 73, 168, 224},  // no range: the page takes the date's width
  };
  scenario([&] {
    for (const auto& row : rows) {
      PeriodicalHost host(family(row.format));
      host.showAll(row.option);
      EXPECT_EQ(host.box(5).Left(), row.rangeLeft);
      EXPECT_EQ(host.box(5).Width(), row.rangeWidth);
      EXPECT_EQ(host.at("PeriodicalPageRangeLabel").Left(), row.rangeLabelLeft);
      EXPECT_EQ(host.box(4).Width(), row.pageWidth);
      EXPECT_EQ(host.box(5).Top(), 108);  // left column rows never move
    }
  });
}

// ---------------------------------------------------------------------------
// Field events

TEST(PeriodicalTest, TextChangesSendTheirSecondControlAndTexts) {
  struct Row {
    int32_t format;
    int16_t option;
    int16_t box;
    Calls calls;
  };
  const Row rows[] = {
      {0, 0, 0, {"widgetChangeHandler(True, 1, x, TextBox(0), Nothing, Discussant, False, -1)"}},
      {1, 0, 0, {"widgetChangeHandler(True, 1, x, TextBox(0), Nothing, , False, -1)"}},
      {2, 1, 2, {"widgetChangeHandler(True, 12, x, TextBox(2), OptionButton(2), , False, -1)"}},
      {2, 0, 12, {"widgetChangeHandler(False, 18, x, TextBox(12), ComboLabel(2), , False, -1)"}},
      {2,
       0,
       1,
       {"CaptionToTitleType(3, Article title)",
        "widgetChangeHandler(True, 0, x, TextBox(1), ComboLabel(0), article, False, -1)"}},
      {2, 1, 11, {"widgetChangeHandler(False, 22, x, TextBox(11), ComboLabel(1), , False, -1)"}},
      {2, 2, 11, {"widgetChangeHandler(False, 22, x, TextBox(11), ComboLabel(1), , True, -1)"}},
      {2, 0, 6, {"widgetChangeHandler(False, 19, x, TextBox(6), Nothing, , False, -1)"}},
  };
  scenario([&] {
    for (const auto& row : rows) {
      SCOPED_TRACE(::testing::Message() << "TextBox(" << row.box << ") format " << row.format);
      PeriodicalHost host(family(row.format));
      host.callback->titleTypes["Article title"] = "article";
      host.showAll(row.option);
      host.take();
      host.box(row.box).Text("x");
      EXPECT_EQ(host.take(), row.calls);
    }
  });
}

TEST(PeriodicalTest, RefersToSendsItsTitleTypeOnlyWhenLeft) {
  scenario([] {
    PeriodicalHost host(family(2));
    host.showAll(0);
    UserActions::focus(host.box(12));
    host.take();
    UserActions::typeInto(host.box(12), "a");
    EXPECT_EQ(host.take(),
              Calls{"widgetChangeHandler(False, 18, a, TextBox(12), ComboLabel(2), , False, -1)"});
    UserActions::focus(host.box(13));
    EXPECT_EQ(host.take(), (Calls{"CaptionToTitleType(12, Refers to)",
                                  "ProcessTextField(TextBox(12), -1, False, False, Refers to)"}));
    // Focus leaving for the host leaves no active widget: nothing is sent.
    UserActions::focusAway();
    EXPECT_TRUE(host.take().empty());
  });
}

TEST(PeriodicalTest, NewspaperSectionFlagCoversEveryBoxButThePage) {
  struct Row {
    int16_t option;
    bool pageNumbers;
    const char* flag;
  };
  const Row rows[] = {{2, true, "True"}, {2, false, "False"}, {1, true, "False"}};
  scenario([&] {
    for (const auto& row : rows) {
      PeriodicalHost host(family(2).hasPeriodicalPageNumbers(row.pageNumbers));
      host.showAll(row.option);
      EXPECT_EQ(host.at<Label>("PeriodicalPageRangeLabel").Caption(),
                row.option == 2 && row.pageNumbers ? "Section" : "Page Range");
      host.take();
      int moved = 0;
      for (int16_t i = 0; i <= 14; ++i) {
        if (!host.box(i).isShowing())
          continue;
        UserActions::moveMouseOver(host.box(i));
        EXPECT_EQ(host.callback->calls.back(), "HandleMouseMove(TextBox(" + std::to_string(i) +
                                                   "), " + (i == 4 ? "False" : row.flag) + ")");
        ++moved;
      }
      EXPECT_GE(moved, 10);
      // The bare form below the fields: no field at all.
      UserActions::moveMouseAt(
          dynamic_cast<UserControl&>(*host.container->Controls().Item("PeriodicalFrame")), 2, 180);
      EXPECT_EQ(host.callback->calls.back(), "HandleMouseMove(Nothing, False)");
    }
  });
}

TEST(PeriodicalTest, LabelCaptionWritesReachTheHost) {
  scenario([] {
    PeriodicalHost host(family(2));
    host.callback->titleTypes["Abstract"] = "abstract";
    host.showAll(0);
    host.take();
    // The issue type goes untranslated: the frame sends no value and the
    // host gets the caption itself.
    host.comboLabel(1).Caption("Special issue");
    EXPECT_EQ(host.take(), Calls{"widgetChangeHandler(False, 21, Special issue, ComboLabel(1), "
                                 "Nothing, , False, -1)"});
    host.comboLabel(2).Caption("Abstract");
    EXPECT_EQ(host.take(), (Calls{"CaptionToTitleType(12, Abstract)",
                                  "widgetChangeHandler(False, 24, abstract, ComboLabel(2), "
                                  "Nothing, , False, -1)"}));
  });
}

// ---------------------------------------------------------------------------
// Format rules

TEST(PeriodicalTest, AccessDateFollowsTheWebsitePerFormat) {
  // Access date shown and enabled, publish date shown: with no website,
  // with one, and with it cleared again.
  struct Row {
    const char* name;
    SettingsBuilder settings;
    const char* withoutSite;
    const char* withSite;
  };
  const Row rows[] = {
      {"always enabled", family(3).accessDateFormat("d").alwaysEnableAccessDate(true), "TTF",
       "TTF"},
      {"follows the site", family(3).accessDateFormat("d"), "FTF", "TTF"},
      {"family 0, both dates", family(0).accessDateFormat("d").alwaysEnableAccessDate(true), "FTF",
       "TTT"},
      {"no access date format", family(3), "FTF", "FTF"},
  };
  scenario([&] {
    for (const auto& row : rows) {
      SCOPED_TRACE(row.name);
      PeriodicalHost host(row.settings);
      host.showAll(0);
      auto state = [&] {
        return std::string{host.box(9).Visible() ? 'T' : 'F', host.box(9).Enabled() ? 'T' : 'F',
                           host.box(10).Visible() ? 'T' : 'F'};
      };
      EXPECT_EQ(state(), row.withoutSite);
      host.typeOnline("10.1000/182");
      EXPECT_EQ(state(), row.withSite);
      host.typeOnline("");
      EXPECT_EQ(state(), row.withoutSite);
      EXPECT_EQ(host.failures(), Calls{});
    }
  });
}

TEST(PeriodicalTest, OtherTypesRenameTheStoredLabelsAndAJournalGetsThemBack) {
  scenario([] {
    PeriodicalHost host(family(2));
    host.callback->captions["comment"] = "Comment on";
    auto values = storedJournal("Issue type", "comment");
    host.container->SynchronizeFieldsWithModel(1, values);
    host.showAll(0);
    for (int16_t option : {1, 2}) {
      host.showAll(option);
      EXPECT_EQ(host.comboLabel(2).Caption(), "Serialized");
      EXPECT_EQ(host.comboLabel(1).Caption(), "Edition");
    }
    host.showAll(0);
    EXPECT_EQ(host.comboLabel(2).Caption(), "Comment on");
    EXPECT_EQ(host.comboLabel(1).Caption(), "Issue type");
  });
}

// ---------------------------------------------------------------------------
// One editing session, as the host hears it

TEST(PeriodicalTest, EditingSessionEndToEnd) {
  scenario([] {
    PeriodicalHost host(family(2).hasPeriodicalPageNumbers(true).accessDateFormat("d mmmm yyyy"));
    auto values = storedJournal("Issue type", "Refers to");
    host.container->SynchronizeFieldsWithModel(1, values);
    host.showAll();
    UserActions::focus(host.box(8));
    UserActions::typeInto(host.box(8), "10.1/x");
    host.container->ExecuteDependentWidgetToggler(1, kOnlineIndex);
    host.showAll(2);
    UserActions::focus(host.box(13));
    UserActions::focusAway();
    const Calls expected = {
        // Loading the stored article.
        "CaptionToTitleType(3, Article title)",
        "widgetChangeHandler(True, 0, On tides, TextBox(1), ComboLabel(0), Article title, False, "
        "-1)",
        "widgetChangeHandler(True, 1, Ada Lovelace, TextBox(0), Nothing, , False, -1)",
        "widgetChangeHandler(True, 12, Nature, TextBox(2), OptionButton(2), , False, -1)",
        "TitleTypeToCaption(3, Article title)",
        "TitleTypeToCaption(12, Refers to)",
        // Focus enters the form; the DOI is typed key by key.
        "HideSubform()",
        "widgetChangeHandler(False, 5, 1, TextBox(8), Nothing, , False, -1)",
        "widgetChangeHandler(False, 5, 10, TextBox(8), Nothing, , False, -1)",
        "widgetChangeHandler(False, 5, 10., TextBox(8), Nothing, , False, -1)",
        "widgetChangeHandler(False, 5, 10.1, TextBox(8), Nothing, , False, -1)",
        "widgetChangeHandler(False, 5, 10.1/, TextBox(8), Nothing, , False, -1)",
        "widgetChangeHandler(False, 5, 10.1/x, TextBox(8), Nothing, , False, -1)",
        // The host switches to a newspaper: every option reports, then the
        // rule rows reword the two stored labels.
        "OptionButtonChanged(1, 2)",
        "widgetChangeHandler(False, 14, False, OptionButton(0), Nothing, , False, -1)",
        "widgetChangeHandler(False, 15, False, OptionButton(1), Nothing, , False, -1)",
        "widgetChangeHandler(False, 16, True, OptionButton(2), Nothing, , False, -1)",
        "CaptionToTitleType(12, Serialized)",
        "widgetChangeHandler(False, 24, Serialized, ComboLabel(2), Nothing, , False, -1)",
        "widgetChangeHandler(False, 21, Edition, ComboLabel(1), Nothing, , False, -1)",
        // Leaving the website for the notes; leaving the form sends nothing.
        "ProcessTextField(TextBox(8), 13, False, False, )",
    };
    EXPECT_EQ(host.callback->calls, expected);
    EXPECT_TRUE(host.box(9).Visible());
    EXPECT_EQ(host.at<Label>("PeriodicalPageRangeLabel").Caption(), "Section");
    EXPECT_EQ(host.failures(), Calls{});
  });
}

}  // namespace
}  // namespace kelmora
