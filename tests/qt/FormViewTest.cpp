#include "qt/FormView.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QDropEvent>
#include <QFontMetricsF>
#include <QImage>
#include <QLineEdit>
#include <QMimeData>
#include <QRadioButton>
#include <QTest>

#include <functional>
#include <regex>

#include "QtForm.h"
#include "host/TextDataObject.h"
#include "hosting/FrameContainer.h"
#include "qt/CaptionLabel.h"
#include "qt/FormFont.h"
#include "render/FormFontMetrics.h"
#include "render/SvgRenderer.h"
#include "scenario/WidgetLocator.h"
#include "surface/CheckBox.h"
#include "surface/ComboBox.h"
#include "surface/FieldLabels.h"
#include "surface/Focus.h"
#include "surface/Label.h"
#include "surface/OptionButton.h"
#include "surface/SpyControl.h"
#include "surface/TextBox.h"
#include "surface/UserActions.h"
#include "surface/UserControl.h"
#include "tools/FormStates.h"

namespace kelmora::tools::testing {
namespace {

constexpr int16_t kNonPeriodical = 0;
constexpr int16_t kPeriodical = 1;
constexpr int16_t kEsource = 4;

// A widget's rectangle on the form's surface, through the user controls it
// stands on.
SurfaceRect onForm(const Widget& widget) {
  SurfaceRect rect = widget.surfaceRect();
  for (const UserControl* control = widget.Parent(); control && control->Parent();
       control = control->Parent()) {
    rect.left += control->Left();
    rect.top += control->Top();
  }
  return rect;
}

QRect qtRect(const qt::FormView& view, const QWidget& widget) {
  return QRect(widget.mapTo(&view, QPoint(0, 0)), widget.size());
}

// Within a pixel: the toolkit counts in fractions, Qt in whole pixels.
void expectNear(const QRect& qt, float x, float y, float w, float h, const std::string& name) {
  EXPECT_NEAR(qt.x(), x, 1.0) << name;
  EXPECT_NEAR(qt.y(), y, 1.0) << name;
  EXPECT_NEAR(qt.width(), w, 1.0) << name;
  EXPECT_NEAR(qt.height(), h, 1.0) << name;
}

std::string nameOf(const Widget& widget) {
  return widget.IsArrayMember() ? widget.Name() + "(" + std::to_string(widget.Index()) + ")"
                                : widget.Name();
}

// Every widget of the shown frame: on screen in Qt exactly when the toolkit
// shows it, and where the toolkit puts it.
void expectMirrored(const QtForm& form) {
  auto frame = WidgetLocator::frame(form.host.container(), -1);
  ASSERT_TRUE(frame);
  for (const auto& widget : frame->Controls()) {
    QWidget* qt = form.view->counterpart(*widget);
    ASSERT_NE(qt, nullptr) << nameOf(*widget);
    EXPECT_EQ(qt->isVisibleTo(form.view.get()), widget->isShowing()) << nameOf(*widget);
    if (!widget->isShowing())
      continue;
    const SurfaceRect rect = onForm(*widget);
    expectNear(qtRect(*form.view, *qt), rect.left, rect.top, rect.width, rect.height,
               nameOf(*widget));
  }
}

void pick(QComboBox& combo, const std::string& item) {
  QTest::mouseClick(&combo, Qt::LeftButton);
  if (!combo.view()->isVisible())
    combo.showPopup();
  const int index = combo.findText(QString::fromStdString(item));
  ASSERT_GE(index, 0) << item;
  QAbstractItemView* list = combo.view();
  list->setCurrentIndex(list->model()->index(index, 0));
  QTest::keyClick(list, Qt::Key_Return);
}

// The same doing, by the headless user and by a person in the window: the
// host must hear the very same calls in the same order.
struct SameDoing {
  const char* what;
  int16_t whichType;
  int32_t family;
  const char* callback;
  std::function<void(QtForm&)> headless;
  std::function<void(QtForm&)> inWindow;
};

TEST(FormViewTest, APersonInTheWindowReachesTheLibraryAsTheHeadlessUserDoes) {
  const SameDoing doings[] = {
      {"typing a DOI into a Periodical field", kPeriodical, 2, "widgetChangeHandler",
       [](QtForm& form) {
         UserActions::typeInto(dynamic_cast<TextBox&>(*form.widget("PeriodicalOnline")),
                               "10.1/k14");
       },
       [](QtForm& form) {
         QTest::mouseClick(form.qtWidget("PeriodicalOnline"), Qt::LeftButton);
         QTest::keyClicks(form.qtWidget("PeriodicalOnline"), "10.1/k14");
       }},
      {"picking an issue type from a list", kPeriodical, 1, "widgetChangeHandler",
       [](QtForm& form) {
         UserActions::selectItem(dynamic_cast<ComboBox&>(*form.widget("ComboBox(0)")),
                                 std::string("Special issue"));
       },
       [](QtForm& form) {
         pick(dynamic_cast<QComboBox&>(*form.qtWidget("ComboBox(0)")), "Special issue");
       }},
      // The type options are the host's to show; shown, a click is the
      // frame's.
      {"clicking the Magazine option", kPeriodical, 1, "OptionButtonChanged",
       [](QtForm& form) {
         form.widget("OptionButton(1)")->Visible(true);
         UserActions::click(dynamic_cast<OptionButton&>(*form.widget("OptionButton(1)")));
       },
       [](QtForm& form) {
         form.widget("OptionButton(1)")->Visible(true);
         QTest::mouseClick(form.qtWidget("OptionButton(1)"), Qt::LeftButton, {}, QPoint(6, 6));
       }},
      {"resting the pointer on a field", kPeriodical, 1, "HandleMouseMove",
       [](QtForm& form) { UserActions::moveMouseOver(*form.widget("PeriodicalVolume")); },
       [](QtForm& form) { QTest::mouseMove(form.qtWidget("PeriodicalVolume")); }},
      {"dropping text from another program on the frame", kEsource, 0, "HandleDragDrop",
       [](QtForm& form) {
         UserActions::drop(*WidgetLocator::frame(form.host.container(), -1),
                           std::make_shared<TextDataObject>("dropped"));
       },
       [](QtForm& form) {
         auto frame = WidgetLocator::frame(form.host.container(), -1);
         // A corner of the frame's surface, where no widget stands.
         const QPointF at(frame->Left() + 1, frame->Top() + 1);
         QMimeData text;
         text.setText(QStringLiteral("dropped"));
         // As a drag from elsewhere arrives: it enters, then drops.
         QDragEnterEvent enter(at.toPoint(), Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
         QApplication::sendEvent(form.view.get(), &enter);
         QDropEvent drop(at, Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
         QApplication::sendEvent(form.view.get(), &drop);
       }},
  };
  for (const auto& doing : doings) {
    SCOPED_TRACE(doing.what);
    std::vector<Json> headless;
    {
      QtForm form(doing.whichType, doing.family, false);
      try {
        doing.headless(form);
      } catch (const std::exception& error) {
        ADD_FAILURE() << "headless: " << error.what();
      }
      headless = form.events();
    }
    QtForm form(doing.whichType, doing.family, true);
    form.view->dropData = [](const std::string& dropped) {
      return std::make_shared<TextDataObject>(dropped);
    };
    try {
      doing.inWindow(form);
    } catch (const std::exception& error) {
      ADD_FAILURE() << error.what();
    }
    EXPECT_TRUE(form.failures.empty()) << (form.failures.empty() ? "" : form.failures.front());
    const std::vector<Json> inWindow = form.events();
    EXPECT_EQ(inWindow, headless);
    const auto heard = std::count_if(inWindow.begin(), inWindow.end(), [&](const Json& event) {
      return event.value("callback", "") == doing.callback;
    });
    EXPECT_GT(heard, 0) << "the host never heard " << doing.callback;
    expectMirrored(form);
  }
}

// The frames keep their option buttons hidden for the host to switch, so a
// form of its own shows clicks on options and check boxes.
struct ClickForm {
  std::vector<std::string> events;
  std::shared_ptr<kelmora::testing::SpyControl> form =
      UserControl::create<kelmora::testing::SpyControl>("Spy", events);
  std::shared_ptr<OptionButton> first = form->add<OptionButton>("OptionButton", 0);
  std::shared_ptr<OptionButton> second = form->add<OptionButton>("OptionButton", 1);
  std::shared_ptr<CheckBox> check = form->add<CheckBox>("CheckBox");
  std::shared_ptr<ComboBox> list = form->add<ComboBox>("ComboBox");

  ClickForm() {
    form->Width(300);
    form->Height(120);
    place(*first, 10, 10);
    place(*second, 10, 35);
    place(*check, 10, 60);
    place(*list, 150, 10);
    first->Caption("Book");
    second->Caption("Website");
    first->Value(true);
    check->Caption("Show all");
    list->Style(ComboBox::kDropdownList);
    for (const char* item : {"Regular", "Special issue", "Supplement"}) list->AddItem(item);
    list->ListIndex(0);
    events.clear();
  }
  ~ClickForm() {
    UserActions::focusAway();
    form->terminate();
  }
  static void place(Widget& widget, float left, float top) {
    widget.Left(left);
    widget.Top(top);
    widget.Width(120);
    widget.Height(21);
  }
};

TEST(FormViewTest, OptionCheckAndListClicksReachTheFormAsClicks) {
  std::vector<std::string> headless;
  {
    ClickForm form;
    UserActions::click(*form.second);
    UserActions::click(*form.check);
    UserActions::selectItem(*form.list, int16_t{2});
    headless = form.events;
  }
  ClickForm form;
  qt::FormView view(*form.form);
  view.show();
  QApplication::setActiveWindow(&view);
  ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
  auto* second = static_cast<QRadioButton*>(view.counterpart(*form.second));
  QTest::mouseClick(second, Qt::LeftButton, {}, QPoint(6, 10));
  QTest::mouseClick(view.counterpart(*form.check), Qt::LeftButton, {}, QPoint(6, 10));
  pick(*static_cast<QComboBox*>(view.counterpart(*form.list)), "Supplement");

  EXPECT_EQ(form.events, headless);
  EXPECT_NE(std::find(form.events.begin(), form.events.end(), "Click OptionButton(1)"),
            form.events.end());
  EXPECT_NE(std::find(form.events.begin(), form.events.end(), "Click CheckBox"), form.events.end());
  EXPECT_NE(std::find(form.events.begin(), form.events.end(), "Click ComboBox"), form.events.end());
  // The group follows the toolkit: the first option is cleared in Qt too.
  EXPECT_FALSE(static_cast<QRadioButton*>(view.counterpart(*form.first))->isChecked());
  EXPECT_TRUE(second->isChecked());
  EXPECT_EQ(static_cast<QCheckBox*>(view.counterpart(*form.check))->checkState(), Qt::Checked);
}

TEST(FormViewTest, ARuleShowingAndHidingARowMovesTheQtWidgetsWithTheForm) {
  QtForm form(kPeriodical, 2, true);
  auto accessDate = form.widget("PeriodicalAccessDate");
  QWidget* qtAccessDate = form.qtWidget("PeriodicalAccessDate");
  const QRect issueBefore = qtRect(*form.view, *form.qtWidget("v579_PeriodicalIssue"));
  EXPECT_FALSE(qtAccessDate->isVisibleTo(form.view.get()));
  expectMirrored(form);

  QWidget* online = form.qtWidget("PeriodicalOnline");
  QTest::mouseClick(online, Qt::LeftButton);
  QTest::keyClicks(online, "10.1/k14");
  EXPECT_TRUE(accessDate->isShowing());
  EXPECT_TRUE(qtAccessDate->isVisibleTo(form.view.get()));
  EXPECT_EQ(qtRect(*form.view, *qtAccessDate).topLeft(), issueBefore.topLeft());
  EXPECT_GT(qtRect(*form.view, *form.qtWidget("v579_PeriodicalIssue")).y(), issueBefore.y());
  expectMirrored(form);

  // Emptied again, the field hides the row and the form closes up.
  QTest::keyClick(online, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(online, Qt::Key_Backspace);
  EXPECT_EQ(dynamic_cast<TextBox&>(*form.widget("PeriodicalOnline")).Text(), "");
  EXPECT_EQ(qtAccessDate->isVisibleTo(form.view.get()), accessDate->isShowing());
  expectMirrored(form);
  EXPECT_TRUE(form.failures.empty());
}

TEST(FormViewTest, TabFollowsTheTabOrderAndSkipsHiddenAndDisabledWidgets) {
  QtForm form(kPeriodical, 0, true);
  auto disabled = form.widget("PeriodicalVolume");
  disabled->Enabled(false);
  auto hidden = form.widget("PeriodicalAccessDate");
  ASSERT_FALSE(hidden->isShowing());

  auto frame = WidgetLocator::frame(form.host.container(), -1);
  std::vector<std::shared_ptr<Widget>> visited;
  for (int press = 0; press < 60; ++press) {
    QWidget* target = QApplication::focusWidget() ? QApplication::focusWidget() : form.view.get();
    QTest::keyClick(target, Qt::Key_Tab);
    auto focused = Focus::current();
    ASSERT_TRUE(focused);
    EXPECT_EQ(QApplication::focusWidget(), form.view->counterpart(*focused)) << nameOf(*focused);
    if (!visited.empty() && focused == visited.front())
      break;
    visited.push_back(focused);
  }
  ASSERT_GT(visited.size(), 3u);
  ASSERT_LT(visited.size(), 60u) << "Tab never came round";
  for (size_t i = 0; i < visited.size(); ++i) {
    const auto& widget = *visited[i];
    EXPECT_TRUE(widget.isShowing() && widget.isEnabledInTree()) << nameOf(widget);
    EXPECT_EQ(widget.Parent(), frame.get()) << nameOf(widget);
    if (i > 0) {
      EXPECT_LE(visited[i - 1]->TabIndex(), widget.TabIndex()) << nameOf(widget);
    }
  }
  EXPECT_EQ(std::count(visited.begin(), visited.end(), disabled), 0);
  EXPECT_EQ(std::count(visited.begin(), visited.end(), hidden), 0);

  // Shift+Tab goes back the same way.
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(Focus::current(), visited.back());
  EXPECT_TRUE(form.failures.empty());
}

TEST(FormViewTest, AFieldTheLibraryTakesFromUnderThePersonKeepsTheToolkitsFocus) {
  // Qt would move its focus on by itself; the toolkit keeps the focus where
  // it was, and the field hears of no focus loss it did not have.
  for (bool hide : {false, true}) {
    SCOPED_TRACE(hide ? "hidden" : "disabled");
    QtForm form(kPeriodical, 0, true);
    auto field = form.widget("PeriodicalOnline");
    QWidget* edit = form.qtWidget("PeriodicalOnline");
    QTest::mouseClick(edit, Qt::LeftButton);
    ASSERT_TRUE(Focus::current() == field);
    const size_t before = form.events().size();
    if (hide)
      field->Visible(false);
    else
      field->Enabled(false);
    EXPECT_TRUE(Focus::current() == field);
    const auto events = form.events();
    EXPECT_EQ(events.size(), before) << (events.size() > before ? events.back().dump() : "");
    QWidget* qtFocus = QApplication::focusWidget();
    EXPECT_TRUE(qtFocus == nullptr || qtFocus == edit || !form.view->isAncestorOf(qtFocus));
    EXPECT_TRUE(form.failures.empty());
  }
}

// Screenshots of each reference type in two format families, kept under the
// build tree for people to look at; their widgets stand where the SVG
// picture of the same form draws them.
TEST(FormViewTest, ScreenshotsMatchThePicturesOfTheSameForms) {
  QDir().mkpath(KELMORA_SCREENSHOT_DIR);
  static const std::regex group(
      R"re(<g class="widget" data-name="([^"]+)"[^>]*>(?:<title>[^<]*</title>)?<rect class="box" x="([-\d.]+)" y="([-\d.]+)" width="([-\d.]+)" height="([-\d.]+)")re");
  for (int16_t type : {kPeriodical, kNonPeriodical, kEsource}) {
    for (int32_t family : {0, 2}) {
      const std::string name = "type" + std::to_string(type) + "-family" + std::to_string(family);
      SCOPED_TRACE(name);
      QtForm form(type, family, true);
      const QImage shot = form.view->grab().toImage();
      ASSERT_FALSE(shot.isNull());
      EXPECT_TRUE(shot.save(
          QString::fromStdString(std::string(KELMORA_SCREENSHOT_DIR) + "/" + name + ".png")));
      EXPECT_GT(shot.width(), 100);

      auto frame = WidgetLocator::frame(form.host.container(), -1);
      const std::string svg = SvgRenderer::render(form.host.container(), {});
      int compared = 0;
      for (std::sregex_iterator it(svg.begin(), svg.end(), group), end; it != end; ++it) {
        const std::string widgetName = (*it)[1];
        std::shared_ptr<Widget> widget;
        for (const auto& candidate : frame->Controls())
          if (nameOf(*candidate) == widgetName)
            widget = candidate;
        if (!widget)
          continue;  // the frame itself
        QWidget* qt = form.view->counterpart(*widget);
        ASSERT_NE(qt, nullptr) << widgetName;
        EXPECT_TRUE(qt->isVisibleTo(form.view.get())) << widgetName;
        expectNear(qtRect(*form.view, *qt), std::stof((*it)[2]), std::stof((*it)[3]),
                   std::stof((*it)[4]), std::stof((*it)[5]), widgetName);
        ++compared;
      }
      EXPECT_GT(compared, 5);
    }
  }
}

// In every state a host can put the forms in, each shown label's caption
// reads whole in the window, measured with Qt's own metrics of the forms'
// font, and those metrics are the picture's.
TEST(FormViewTest, NoShownCaptionLosesLettersInAnyStateOfAnyForm) {
  ASSERT_TRUE(qt::FormFont::isAvailable())
      << "Tahoma is not installed: scripts/setup installs fonts-wine and tells fontconfig";
  int labels = 0;
  for (const auto& state : allFormStates()) {
    SCOPED_TRACE(state.describe());
    RecordingSink sink;
    ToolHost host(sink, {});
    const UserControl& frame = show(host, state);
    qt::FormView view(host.container());
    const QFontMetricsF metrics(qt::FormFont::at(1.0, view.logicalDpiY()));
    const auto measure = [&](std::string_view text) {
      return static_cast<float>(metrics.horizontalAdvance(
          QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()))));
    };
    EXPECT_EQ(cutCaptions(frame, measure), std::vector<std::string>{});
    for (const auto& widget : frame.Controls()) {
      const auto* label = dynamic_cast<const Label*>(widget.get());
      if (label == nullptr || !label->isShowing() || label->Caption().empty())
        continue;
      EXPECT_NEAR(measure(label->Caption()), FormFontMetrics::width(label->Caption()), 0.01)
          << label->Caption();
      // The counterpart draws the lines the check laid out.
      auto* drawn = dynamic_cast<qt::CaptionLabel*>(view.counterpart(*widget));
      ASSERT_NE(drawn, nullptr) << nameOf(*widget);
      const auto laid = CaptionLayout::lay(label->Caption(), label->surfaceRect().width,
                                           label->Alignment(), measure);
      ASSERT_FALSE(drawn->shownLines().empty()) << nameOf(*widget);
      EXPECT_EQ(drawn->shownLines().front().text, laid.front().text) << nameOf(*widget);
      ++labels;
    }
    host.end();
  }
  EXPECT_GT(labels, 200);
}

// An author with a screen reader hears each field by the caption beside it,
// its tooltip as description, and whether it is hidden or disabled.
TEST(FormViewTest, EveryFieldHasItsAccessibleNameInEachReferenceType) {
  struct Row {
    int16_t type;
    const char* field;
    const char* name;
  };
  const Row rows[] = {
      {kPeriodical, "TextBox(0)", "Author"},    {kPeriodical, "TextBox(14)", "Keywords"},
      {kNonPeriodical, "TextBox(0)", "Author"}, {kEsource, "TextBox(0)", "Author"},
      {kEsource, "TextBox(2)", "Email to"},     {kEsource, "ComboBox(0)", "Esource degree"}};
  for (int16_t type : {kPeriodical, kNonPeriodical, kEsource}) {
    SCOPED_TRACE("type " + std::to_string(type));
    QtForm form(type, 1, true);
    int named = 0;
    for (const auto& widget : WidgetLocator::frame(form.host.container(), -1)->Controls()) {
      if (!widget->takesFocus() || dynamic_cast<UserControl*>(widget.get()) != nullptr)
        continue;
      QAccessibleInterface* reader =
          QAccessible::queryAccessibleInterface(form.view->counterpart(*widget));
      ASSERT_NE(reader, nullptr) << nameOf(*widget);
      // Qt on Linux names a list by its choice, and tells its label by
      // relation; the name the form gave it is the widget's own.
      QWidget* qt = form.view->counterpart(*widget);
      const std::string name =
          (dynamic_cast<ComboBox*>(widget.get()) != nullptr ? qt->accessibleName()
                                                            : reader->text(QAccessible::Name))
              .toStdString();
      EXPECT_EQ(name, FieldLabels::captionOf(*widget)) << nameOf(*widget);
      EXPECT_EQ(reader->text(QAccessible::Description).toStdString(), widget->ToolTipText())
          << nameOf(*widget);
      EXPECT_EQ(reader->state().invisible, !widget->isShowing()) << nameOf(*widget);
      EXPECT_EQ(reader->state().disabled, !widget->isEnabledInTree()) << nameOf(*widget);
      if (widget->isShowing()) {
        EXPECT_FALSE(name.empty()) << nameOf(*widget) << " is shown without a name";
        ++named;
      }
    }
    EXPECT_GT(named, 3);
    for (const Row& row : rows) {
      if (row.type == type) {
        EXPECT_EQ(form.qtWidget(row.field)->accessibleName().toStdString(), row.name);
      }
    }
  }
}

// Zoom scales every rectangle and the font together, and back again.
TEST(FormViewTest, ZoomKeepsEveryWidgetsRectangleProportional) {
  QtForm form(kNonPeriodical, 0, true);
  auto frame = WidgetLocator::frame(form.host.container(), -1);
  const QSize design = form.view->designSize();
  for (double zoom : {2.0, 0.5, 1.75, 1.0}) {
    SCOPED_TRACE("zoom " + std::to_string(zoom));
    form.view->setZoom(zoom);
    EXPECT_NEAR(form.view->width(), design.width() * zoom, 1.0);
    EXPECT_NEAR(QFontInfo(form.view->font()).pixelSize(), 11 * zoom, 1.0);
    for (const auto& widget : frame->Controls()) {
      if (!widget->isShowing())
        continue;
      const SurfaceRect rect = onForm(*widget);
      // Rounding once for the widget and once for the frame it stands in.
      const QRect qt = qtRect(*form.view, *form.view->counterpart(*widget));
      EXPECT_NEAR(qt.x(), rect.left * zoom, 2.0) << nameOf(*widget);
      EXPECT_NEAR(qt.y(), rect.top * zoom, 2.0) << nameOf(*widget);
      EXPECT_NEAR(qt.width(), rect.width * zoom, 1.0) << nameOf(*widget);
      EXPECT_NEAR(qt.height(), rect.height * zoom, 1.0) << nameOf(*widget);
    }
  }
  expectMirrored(form);
}

}  // namespace
}  // namespace kelmora::tools::testing
