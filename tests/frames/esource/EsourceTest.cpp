#include "frames/esource/Esource.h"

#include <gtest/gtest.h>

#include "support/ContainerHost.h"
#include "support/FreshThread.h"
#include "support/SettingsBuilder.h"
#include "support/TestFrame.h"
#include "surface/ComboBox.h"
#include "surface/ControlRegistry.h"
#include "surface/Label.h"
#include "surface/TextBox.h"
#include "surface/UserActions.h"

namespace kelmora {
namespace {

using testing::SettingsBuilder;
using Calls = std::vector<std::string>;

// A host that shows the Esource frame under one format and looks at it only
// through the container: the frame's widget collection, the host calls.
struct EsourceHost : testing::ContainerHost {
  explicit EsourceHost(const SettingsBuilder& settings) {
    container->SetVisibleFrame(4);
    format(settings);
  }
  void format(const SettingsBuilder& settings) {
    main->ChangeFormatType(4);
    container->ToggleFormatDependentWidgets(4, settings.build());
  }
  void load(std::vector<std::string> values) { container->SynchronizeFieldsWithModel(4, values); }

  template <typename T = Widget>
  T& at(const char* name, int16_t index = Widget::kNoIndex) {
    auto found = container->getControls()->find(name, index);
    EXPECT_NE(found, nullptr) << name << "(" << index << ")";
    return dynamic_cast<T&>(*found);
  }
  TextBox& box(int16_t i) { return at<TextBox>("TextBox", i); }
  ComboBox& degree() { return at<ComboBox>("ComboBox", 0); }
  ComboBox& type() { return at<ComboBox>("ComboBox", 1); }
  Label& label(const char* name) { return at<Label>(name); }
  void pick(const std::string& entry) {
    UserActions::focus(type());
    UserActions::selectItem(type(), entry);
  }
  // 'T' shown, 'F' hidden, '?' for a label and a box that disagree.
  std::string shown(Widget& field, Widget& caption) {
    return field.Visible() != caption.Visible() ? "?" : field.Visible() ? "T" : "F";
  }
  Calls take() { return std::exchange(callback->calls, {}); }
  // Failure reports of this frame only: the container's first frame is
  // another type's, and whether it can be made is not this frame's affair.
  Calls esourceFailures() {
    Calls own;
    for (const auto& failure : failures()) {
      if (failure.starts_with("Esource."))
        own.push_back(failure);
    }
    return own;
  }
};

void scenario(const std::function<void()>& body) {
  testing::TestFrame::registerForAllTypes();
  ControlRegistry::Register(ControlRegistry::kEsource, []() -> std::shared_ptr<UserControl> {
    return std::make_shared<Esource>();
  });
  testing::onFreshThread(body);
}

SettingsBuilder allOn(int32_t esourceType = 3) {
  return SettingsBuilder()
      .esourceHasTitle(true)
      .esourceHasTo(true)
      .emailListTitleVisible(true)
      .supportsWebtitle(true)
      .SupportsURL(true)
      .supportsAccessDate(true)
      .supportsSocialMedia(true)
      .DegreeSupport(1)
      .esourceType(esourceType);
}

// A stored e-source, by internal index of the catalogue.
std::vector<std::string> stored(const std::string& type, const std::string& degree = " ") {
  std::vector<std::string> values(14);
  values[0] = "Re: tide tables";
  values[1] = "Ines Moreau";
  values[7] = "False";
  values[8] = "2019";
  values[10] = degree;
  values[11] = type;
  values[12] = "Coastal list";
  return values;
}

// ---------------------------------------------------------------------------
// The form and the public operations

TEST(EsourceTest, FormIsTheTwentyWidgetGridAndItsInertOperationsLeaveItSo) {
  scenario([] {
    EsourceHost host(allOn());
    auto controls = host.container->getControls();
    std::string order;
    for (const auto& widget : *controls)
      order += testing::RecordingHostCallback::describe(widget) + " ";
    EXPECT_EQ(order,
              "TextBox(7) TextBox(6) TextBox(3) DeprecatedCheckBox(0) TextBox(4) TextBox(5) "
              "ComboBox(1) ComboBox(0) TextBox(0) TextBox(2) TextBox(1) TextBox(14) NotesLabel "
              "CommentDateLabel WebsiteTitleLabel EsourceURLLabel AccessDateLabel Label1 Label2 "
              "Label3 ");
    auto geometry = [&] {
      std::string all;
      for (const auto& w : *controls) {
        all += std::to_string(w->Left()) + "," + std::to_string(w->Top()) + "," +
               std::to_string(w->Width()) + (w->Visible() ? "T" : "F") + " ";
      }
      return all;
    };
    const std::string before = geometry();
    for (int16_t option : {-1, 0, 2}) {
      host.container->UpdateFrame(option, option != 0);
    }
    EXPECT_EQ(geometry(), before);
    std::vector<std::string> columns;
    host.container->setReferenceListColumnNames(4, columns);
    EXPECT_EQ(columns, (std::vector<std::string>{"Title", "Author", "Date", "Location"}));
    EXPECT_EQ(host.box(14).Visible(), false);
    EXPECT_EQ(host.esourceFailures(), Calls{});
  });
}

// ---------------------------------------------------------------------------
// Types and the two lists

TEST(EsourceTest, TypeTableUnderEachSwitch) {
  // Per entry of the longest list: website title caption, then title,
  // website title, URL and access date shown, with a URL typed in.
  const char* entries[] = {"Email to",     "Email list entry", "Blog post",
                           "Blog comment", "Facebook comment", "Facebook post",
                           "Forum post",   "Twitter post",     "Video blog entry"};
  struct Row {
    const char* name;
    SettingsBuilder settings;
    const char* expected[9];
  };
  const SettingsBuilder none = SettingsBuilder().esourceType(3);
  const Row rows[] = {
      {"all on",
       allOn(),
       {"Subject TTFF", "Mailing list TTTT", "Blog name TTTT", "Blog name TTTT", " TFTT", " TFTT",
        "Forum name TTTT", " FFTT", "Blog name TTTT"}},
      {"all off",
       none,
       {" FFFF", "Mailing list FFFF", "Blog name TFFF", "Blog name TFFF", " TFFF", " TFFF",
        "Forum name TFFF", " FFFF", "Blog name TFFF"}},
      {"subject and web title, no recipient, no URL",
       SettingsBuilder(none).esourceHasTitle(true).supportsWebtitle(true).supportsAccessDate(true),
       {"Subject FTFF", "Mailing list FTFF", "Blog name TTFF", "Blog name TTFF", " TFFF", " TFFF",
        "Forum name TTFF", " FFFF", "Blog name TTFF"}},
      {"recipient, list title and URL without access date",
       SettingsBuilder(none).esourceHasTo(true).emailListTitleVisible(true).SupportsURL(true),
       {" TFFF", "Mailing list TFTF", "Blog name TFTF", "Blog name TFTF", " TFTF", " TFTF",
        "Forum name TFTF", " FFTF", "Blog name TFTF"}},
  };
  scenario([&] {
    for (const auto& row : rows) {
      EsourceHost host(row.settings);
      host.box(4).Text("https://lists.example.org/42");
      for (int i = 0; i < 9; ++i) {
        SCOPED_TRACE(std::string(row.name) + ": " + entries[i]);
        if (i > 0)
          host.pick(entries[i]);
        const std::string state = host.label("WebsiteTitleLabel").Caption() + " " +
                                  (host.box(2).Visible() ? "T" : "F") +
                                  host.shown(host.box(3), host.label("WebsiteTitleLabel")) +
                                  host.shown(host.box(4), host.label("EsourceURLLabel")) +
                                  host.shown(host.box(5), host.label("AccessDateLabel"));
        EXPECT_EQ(state, row.expected[i]);
      }
      EXPECT_EQ(host.esourceFailures(), Calls{});
    }
  });
}

TEST(EsourceTest, StoredTypeFallsToItsNearestLikeAndSurvivesAFormatWhileTheDegreeIsLost) {
  struct Row {
    const char* storedType;
    const char* selected[3];  // under type lists 1, 2 and 3
  };
  const Row rows[] = {
      {"Twitter post", {"Email to", "Blog post", "Twitter post"}},
      {"Facebook post", {"Email to", "Blog post", "Facebook post"}},
      {"Facebook comment", {"Email to", "Blog comment", "Facebook comment"}},
      {"", {"Email to", "Email to", "Email to"}},
  };
  scenario([&] {
    for (const auto& row : rows) {
      for (int32_t list = 1; list <= 3; ++list) {
        SCOPED_TRACE(std::string(row.storedType) + " under list " + std::to_string(list));
        EsourceHost host(allOn(list));
        host.load(stored(row.storedType));
        EXPECT_EQ(host.type().Text(), row.selected[list - 1]);
      }
    }
    EsourceHost host(allOn(3));
    host.load(stored("Forum post", "Phd"));
    EXPECT_EQ(host.degree().Text(), "Phd");
    host.format(allOn(2));
    EXPECT_EQ(host.type().Text(), "Forum post");
    EXPECT_EQ(host.label("WebsiteTitleLabel").Caption(), "Forum name");
    EXPECT_EQ(host.degree().Text(), " ");
    host.format(allOn(1));
    EXPECT_EQ(host.type().Text(), "Email to");
    EXPECT_EQ(host.esourceFailures(), Calls{});
  });
}

// ---------------------------------------------------------------------------
// Layout

TEST(EsourceTest, WidthsInPixelsFollowTheFormat) {
  struct Degree {
    int32_t support;
    float authorWidth;
    bool listShown;
    int16_t entries;
  };
  const Degree degrees[] = {{0, 265, false, 1}, {1, 191, true, 4}, {2, 191, true, 0}};
  struct Boxes {
    bool webtitle, accessDate;
    float title, url;
  };
  const Boxes boxes[] = {{true, true, 188, 265},
                         {true, false, 188, 577},
                         {false, true, 500, 577},
                         {false, false, 500, 577}};
  scenario([&] {
    for (const auto& row : degrees) {
      EsourceHost host(allOn().DegreeSupport(row.support));
      EXPECT_EQ(host.box(0).Width(), row.authorWidth) << row.support;
      EXPECT_EQ(host.degree().Visible(), row.listShown) << row.support;
      EXPECT_EQ(host.degree().ListCount(), row.entries) << row.support;
    }
    for (const auto& row : boxes) {
      EsourceHost host(allOn().supportsWebtitle(row.webtitle).supportsAccessDate(row.accessDate));
      EXPECT_EQ(host.box(2).Width(), row.title) << row.webtitle << row.accessDate;
      EXPECT_EQ(host.box(4).Width(), row.url) << row.webtitle << row.accessDate;
    }
    // Without social media there is no comment date, and the notes move up
    // into its row.
    for (bool social : {true, false}) {
      EsourceHost host(allOn().supportsSocialMedia(social));
      EXPECT_EQ(host.shown(host.box(6), host.label("CommentDateLabel")), social ? "T" : "F");
      EXPECT_EQ(host.box(7).Top(), social ? 109 : 82);
      EXPECT_EQ(host.label("NotesLabel").Top(), social ? 113 : 86);
    }
  });
}

// ---------------------------------------------------------------------------
// Field events

TEST(EsourceTest, UrlTypedShowsTheAccessDateAndDeletedOrHiddenHidesIt) {
  scenario([] {
    for (bool supported : {true, false}) {
      EsourceHost host(allOn().supportsAccessDate(supported));
      host.pick("Blog post");
      UserActions::focus(host.box(4));
      UserActions::typeInto(host.box(4), "h");
      EXPECT_EQ(host.shown(host.box(5), host.label("AccessDateLabel")), supported ? "T" : "F");
      UserActions::typeInto(host.box(4), "ttp");
      UserActions::clear(host.box(4));
      EXPECT_EQ(host.shown(host.box(5), host.label("AccessDateLabel")), "F");
    }
    EsourceHost host(allOn());
    host.pick("Forum post");
    host.box(4).Text("https://forum.example.org");
    host.pick("Email to");
    EXPECT_FALSE(host.box(4).Visible());
    EXPECT_EQ(host.shown(host.box(5), host.label("AccessDateLabel")), "F");
  });
}

TEST(EsourceTest, ChangesReportWithTheAuthorPopupSecondControl) {
  struct Row {
    bool popup;
    int16_t box;
    const char* call;
  };
  const Row rows[] = {
      {true, 1, "widgetChangeHandler(True, 8, x, TextBox(1), TextBox(1), , False, -1)"},
      {true, 0, "widgetChangeHandler(True, 1, x, TextBox(0), TextBox(0), , False, -1)"},
      {false, 1, "widgetChangeHandler(True, 8, x, TextBox(1), Nothing, , False, -1)"},
      {true, 7, "widgetChangeHandler(False, 4, x, TextBox(7), Nothing, , False, -1)"},
  };
  scenario([&] {
    for (const auto& row : rows) {
      EsourceHost host(allOn().esourceShowsAuthorPopup(row.popup));
      host.take();
      host.box(row.box).Text("x");
      EXPECT_EQ(host.take(), Calls{row.call});
    }
    // A degree picked reports and leaves the type's widgets alone.
    EsourceHost host(allOn());
    host.pick("Twitter post");
    UserActions::focus(host.degree());
    host.take();
    UserActions::selectItem(host.degree(), std::string("RN"));
    EXPECT_EQ(host.take(),
              Calls{"widgetChangeHandler(False, 10, RN, ComboBox(0), Nothing, , False, -1)"});
    EXPECT_FALSE(host.box(2).Visible());
    // Movement: a box names itself, the bare form nothing, a label is silent.
    UserActions::moveMouseOver(host.box(7));
    UserActions::moveMouseOver(host.label("Label3"));
    UserActions::moveMouseAt(
        dynamic_cast<UserControl&>(*host.container->Controls().Item("EsourceFrame")), 300, 24);
    EXPECT_EQ(host.take(),
              (Calls{"HandleMouseMove(TextBox(7), False)", "HandleMouseMove(Nothing, False)"}));
  });
}

// ---------------------------------------------------------------------------
// Format rules

TEST(EsourceTest, MissingSettingOrTypeListTakeTheFailurePath) {
  scenario([] {
    {
      EsourceHost host(allOn().without("supportsWebtitle"));
      EXPECT_EQ(host.esourceFailures(),
                Calls{"Esource.initializeFormatDependentWidgetToggler 438"});
    }
    EsourceHost beyond(allOn(4));
    EXPECT_EQ(beyond.type().ListCount(), 0);
    EXPECT_EQ(beyond.esourceFailures(), Calls{"Esource.SelectItem 380"});
  });
}

// ---------------------------------------------------------------------------
// One editing session, as the host hears it

TEST(EsourceTest, EditingSessionEndToEnd) {
  scenario([] {
    EsourceHost host(allOn().esourceShowsAuthorPopup(true));
    host.load(stored("Blog comment", "MD"));
    host.pick("Facebook post");
    host.pick("Email list entry");
    UserActions::focus(host.box(4));
    UserActions::typeInto(host.box(4), "w");
    UserActions::focus(host.box(1));
    UserActions::typeInto(host.box(1), "9");
    UserActions::focus(host.box(7));
    UserActions::focusAway();
    const Calls expected = {
        // The format comes into force: both lists report their first entry.
        "widgetChangeHandler(False, 10,  , ComboBox(0), Nothing, , False, -1)",
        "widgetChangeHandler(False, 11, Email to, ComboBox(1), Nothing, , False, -1)",
        // Loading the stored blog comment; author and date offer the pop-up.
        "widgetChangeHandler(True, 1, Ines Moreau, TextBox(0), TextBox(0), , False, -1)",
        "widgetChangeHandler(True, 8, 2019, TextBox(1), TextBox(1), , False, -1)",
        "widgetChangeHandler(False, 10, MD, ComboBox(0), Nothing, , False, -1)",
        "widgetChangeHandler(True, 0, Re: tide tables, TextBox(2), Nothing, , False, -1)",
        "widgetChangeHandler(False, 11, Blog comment, ComboBox(1), Nothing, , False, -1)",
        "widgetChangeHandler(False, 12, Coastal list, TextBox(3), Nothing, , False, -1)",
        // Focus enters the form; the type is picked twice.
        "HideSubform()",
        "widgetChangeHandler(False, 11, Facebook post, ComboBox(1), Nothing, , False, -1)",
        "widgetChangeHandler(False, 11, Email list entry, ComboBox(1), Nothing, , False, -1)",
        // A URL typed and left for the date, the date typed and left for the
        // notes; leaving the form sends nothing.
        "widgetChangeHandler(False, 5, w, TextBox(4), Nothing, , False, -1)",
        "ProcessTextField(TextBox(4), 13, False, False, )",
        "widgetChangeHandler(True, 8, 20199, TextBox(1), TextBox(1), , False, -1)",
        "ProcessTextField(TextBox(1), 17, False, False, )",
        "HandleDateExit(TextBox(1), False)",
    };
    EXPECT_EQ(host.callback->calls, expected);
    EXPECT_TRUE(host.box(5).Visible());
    EXPECT_EQ(host.esourceFailures(), Calls{});
  });
}

}  // namespace
}  // namespace kelmora
