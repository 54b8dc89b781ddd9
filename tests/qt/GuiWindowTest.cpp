#include "gui/GuiWindow.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QDockWidget>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QSpinBox>
#include <QStatusBar>
#include <QTest>

#include "QtForm.h"
#include "gui/LogSink.h"
#include "gui/LogView.h"
#include "host/ToolHost.h"
#include "hosting/FrameContainer.h"
#include "qt/FormView.h"
#include "scenario/Scenario.h"
#include "scenario/ScenarioPlayer.h"
#include "scenario/WidgetLocator.h"
#include "surface/FieldLabels.h"
#include "surface/Focus.h"
#include "surface/Label.h"
#include "surface/OptionButton.h"
#include "surface/TextBox.h"
#include "surface/UserControl.h"
#include "tools/ScratchDir.h"

namespace kelmora::tools::testing {
namespace {

using Category = LogFolder::Category;

// The window as a person finds it at start; shown and active on request,
// for what needs the keyboard's shortcuts.
struct Window {
  LogSink log;
  ToolHost host{log, {}};
  std::unique_ptr<GuiWindow> window = std::make_unique<GuiWindow>(host, log);

  explicit Window(bool active = false) {
    window->showChosenFrame();
    if (active) {
      window->show();
      QApplication::setActiveWindow(window.get());
      if (!QTest::qWaitForWindowActive(window.get()))
        throw std::runtime_error("the window did not become active");
    }
  }
  ~Window() {
    window.reset();
    host.end();
  }
  template <typename T>
  T& panel(const char* name) const {
    auto* found = window->findChild<T*>(QString::fromUtf8(name));
    if (found == nullptr)
      throw std::runtime_error(std::string("no ") + name + " in the window");
    return *found;
  }
  void choose(const char* combo, const QString& item) const {
    auto& box = panel<QComboBox>(combo);
    box.setCurrentIndex(box.findText(item));
    box.activated(box.currentIndex());
  }
  QListWidget& logList() const { return panel<QListWidget>("log"); }
  int lines() const { return logList().count(); }
  std::string line(int row) const { return logList().item(row)->text().toStdString(); }
  Category category(int row) const {
    return static_cast<Category>(logList().item(row)->data(LogView::kCategoryRole).toInt());
  }
  // The rows whose text holds `part`.
  std::vector<int> rowsWith(const std::string& part) const {
    std::vector<int> rows;
    for (int row = 0; row < lines(); ++row) {
      if (line(row).find(part) != std::string::npos)
        rows.push_back(row);
    }
    return rows;
  }
  std::shared_ptr<UserControl> shownFrame() const {
    return WidgetLocator::frame(host.container(), -1);
  }
  std::shared_ptr<Widget> widget(const std::string& ref) const {
    return WidgetLocator::find(host.container(), ref);
  }
  QWidget* qtWidget(const std::string& ref) const {
    return window->form().counterpart(*widget(ref));
  }
  std::vector<std::string> record() const {
    return Record::fromWidgets(host.container(), host.container().currentFrame(),
                               Record::newReference(host.main(), host.container().currentFrame()))
        .values();
  }
  std::string title() const { return window->windowTitle().toStdString(); }
};

std::string failuresOf(const Window& gui) {
  std::string text;
  for (int row = 0; row < gui.lines(); ++row) {
    if (gui.category(row) == Category::Failure)
      text += gui.line(row) + "\n";
  }
  return text;
}

struct KindChoice {
  const char* type;
  const char* combo;
  const char* kind;
  int16_t option;
  // The frame's option the kind selects, and the kind of the example
  // reference, which the panel then shows.
  const char* selected;
  const char* exampleKind;
};

TEST(GuiWindowTest, TheKindOnThePanelSelectsTheFramesOptionAndFollowsAReferencesOwn) {
  const KindChoice choices[] = {
      {"Periodical", "subtype", "Newspaper", 2, "PeriodicalNewspaperOption", "Journal"},
      {"Periodical", "subtype", "Magazine", 1, "PeriodicalMagazineOption", "Journal"},
      {"NonPeriodical", "bookOrWebsite", "Website", 1, "v6_WebsiteOption", "Book"},
  };
  for (const auto& choice : choices) {
    SCOPED_TRACE(choice.kind);
    Window gui;
    gui.choose("type", QString::fromUtf8(choice.type));
    EXPECT_TRUE(gui.panel<QComboBox>(choice.combo).isEnabled());
    gui.choose(choice.combo, QString::fromUtf8(choice.kind));
    EXPECT_TRUE(dynamic_cast<OptionButton&>(*gui.widget(choice.selected)).Value());
    EXPECT_EQ(gui.rowsWith("-> UpdateFrame(" + std::to_string(choice.option) + ", False)").size(),
              1u);

    // Reset keeps the kind and says what it restored.
    QTest::mouseClick(&gui.panel<QPushButton>("reset"), Qt::LeftButton);
    EXPECT_TRUE(dynamic_cast<OptionButton&>(*gui.widget(choice.selected)).Value());
    EXPECT_EQ(gui.rowsWith("-> Reset(").size(), 1u);
    const std::string said = gui.window->statusBar()->currentMessage().toStdString();
    EXPECT_NE(said.find(std::string("laid out again as ") + choice.kind), std::string::npos)
        << said;

    QTest::mouseClick(&gui.panel<QPushButton>("example"), Qt::LeftButton);
    EXPECT_EQ(gui.panel<QComboBox>(choice.combo).currentText().toStdString(), choice.exampleKind);
    EXPECT_FALSE(dynamic_cast<OptionButton&>(*gui.widget(choice.selected)).Value());
    EXPECT_EQ(failuresOf(gui), "");
  }
}

// A scenario drives the library, not the panel: the panel still shows the
// frame, family, show all and kind the scenario set, as README's picture of
// the demo does.
TEST(GuiWindowTest, ThePanelAgreesWithAScenarioPlayedIntoTheWindow) {
  // As `kelmora gui --scenario` builds it: the scenario shows the frame.
  LogSink log;
  ScratchDir pictures;
  ToolHost host(log, {});
  {
    GuiWindow window(host, log);
    ScenarioPlayer player(host, log, pictures.path().string());
    EXPECT_EQ(player.play(Scenario::load(KELMORA_EXAMPLES_DIR "/demo-periodical.json")), 0);
    const auto panel = [&](const char* name) { return window.findChild<QWidget*>(name); };
    EXPECT_EQ(static_cast<QComboBox*>(panel("type"))->currentText().toStdString(), "Periodical");
    EXPECT_EQ(static_cast<QSpinBox*>(panel("family"))->value(), 2);
    EXPECT_TRUE(static_cast<QCheckBox*>(panel("showAll"))->isChecked());
    EXPECT_EQ(static_cast<QComboBox*>(panel("subtype"))->currentText().toStdString(), "Newspaper");
  }
  host.end();
}

// The Why dock names the row that decided the field under the pointer, at
// any zoom, and the field in focus.
TEST(GuiWindowTest, TheWhyDockNamesTheRowOfTheFieldUnderThePointerOrInFocus) {
  Window gui(true);
  gui.choose("type", QStringLiteral("NonPeriodical"));
  gui.panel<QSpinBox>("family").setValue(1);
  gui.choose("bookOrWebsite", QStringLiteral("Website"));
  const auto why = [&] { return gui.panel<QLabel>("inspector").text().toStdString(); };
  for (double zoom : {1.0, 2.0}) {
    gui.window->setZoom(zoom);
    QWidget* website = gui.qtWidget("TextBox(10)");
    QTest::mouseMove(website, website->rect().center());
    EXPECT_NE(why().find("«Website / DOI» TextBox(10), Online: shown"), std::string::npos)
        << "zoom " << zoom << ": " << why();
    EXPECT_NE(why().find("the row \"v8_PublicationMediumComboLabel=__ALWAYS_ENABLE__\""),
              std::string::npos)
        << why();
  }
  QTest::mouseClick(gui.qtWidget("TextBox(1)"), Qt::LeftButton);
  EXPECT_NE(why().find("«Title» TextBox(1), Title: shown, enabled"), std::string::npos) << why();
  EXPECT_NE(why().find("no rule has acted on it: the form shows it"), std::string::npos) << why();
}

TEST(GuiWindowTest, AReferenceGoesToAFileAndComesBackThroughThePanel) {
  ScratchDir scratch;
  Window gui;
  EXPECT_EQ(gui.title(), "Kelmora — Periodical — untitled");
  gui.panel<QCheckBox>("showAll").click();
  QTest::mouseClick(&gui.panel<QPushButton>("example"), Qt::LeftButton);
  QTest::mouseClick(gui.qtWidget("PeriodicalNotes"), Qt::LeftButton);
  QTest::keyClick(gui.qtWidget("PeriodicalNotes"), Qt::Key_End);
  QTest::keyClicks(gui.qtWidget("PeriodicalNotes"), "; revised");
  const auto typed = gui.record();
  ASSERT_EQ(Record::fromValues(gui.host.main(), 1, typed).get("PeriodicalNotes"),
            "Field data from two estuaries; revised");

  const auto file = scratch.path() / "okafor2021.json";
  ASSERT_TRUE(gui.window->saveFile(file));
  EXPECT_EQ(gui.title(), "Kelmora — Periodical — okafor2021.json");

  QTest::mouseClick(&gui.panel<QPushButton>("new"), Qt::LeftButton);
  // Every text box holds what a new reference holds.
  const Record empty = Record::newReference(gui.host.main(), 1);
  int emptied = 0;
  for (const auto& widget : gui.shownFrame()->Controls()) {
    const std::string key = Record::fieldKey(*widget);
    if (auto* box = dynamic_cast<TextBox*>(widget.get()); box && empty.has(key)) {
      EXPECT_EQ(box->Text(), empty.get(key)) << key;
      emptied += Record::fromValues(gui.host.main(), 1, typed).get(key).empty() ? 0 : 1;
    }
  }
  EXPECT_GE(emptied, 5);
  EXPECT_EQ(gui.title(), "Kelmora — Periodical — untitled");

  ASSERT_TRUE(gui.window->openFile(file));
  EXPECT_EQ(gui.record(), typed);
  EXPECT_EQ(gui.title(), "Kelmora — Periodical — okafor2021.json");
  EXPECT_EQ(failuresOf(gui), "");

  // A file that is no reference, or names a field the type lacks, loses
  // nothing and says why.
  const struct {
    const char* content;
    const char* message;
  } bad[] = {
      {"{\"whichType\": 1, \"values\": {\"Nonsense\": \"x\"}}", "'Nonsense' is no field key"},
      {"[1, 2", "is not valid JSON"},
      {"{\"whichType\": 3, \"values\": {}}", "\"whichType\" must be 0"},
  };
  for (const auto& file : bad) {
    const int before = gui.lines();
    EXPECT_FALSE(gui.window->openFile(scratch.write("bad.json", file.content)));
    EXPECT_EQ(gui.record(), typed);
    ASSERT_EQ(gui.lines(), before + 1);
    EXPECT_EQ(gui.category(before), Category::Failure);
    EXPECT_NE(gui.line(before).find(file.message), std::string::npos) << gui.line(before);
  }
  EXPECT_FALSE(gui.window->saveFile(scratch.path() / "no" / "such" / "folder.json"));
  EXPECT_EQ(gui.title(), "Kelmora — Periodical — okafor2021.json");
}

TEST(GuiWindowTest, EachKeystrokeIsOneLogLineNamingTheFieldByItsCaption) {
  Window gui(true);
  QTest::mouseClick(&gui.panel<QCheckBox>("showAll"), Qt::LeftButton);
  const auto field = gui.widget("PeriodicalTitle");
  const std::string caption = FieldLabels::captionOf(*field);
  ASSERT_FALSE(caption.empty());
  QTest::mouseClick(gui.qtWidget("PeriodicalTitle"), Qt::LeftButton);
  const int before = gui.lines();
  EXPECT_FALSE(gui.rowsWith("Focus to «" + caption + "»").empty());

  QTest::keyClicks(gui.qtWidget("PeriodicalTitle"), "Tides");
  ASSERT_EQ(gui.lines(), before + 5);
  for (int row = before; row < gui.lines(); ++row) {
    EXPECT_EQ(gui.category(row), Category::Change);
    EXPECT_EQ(gui.line(row).find("<- widgetChangeHandler «" + caption + "» = \""), 0u)
        << gui.line(row);
    EXPECT_NE(gui.line(row).find("-> ExecuteDependentWidgetToggler(1, "), std::string::npos)
        << gui.line(row);
    const std::string detail = gui.logList().item(row)->toolTip().toStdString();
    EXPECT_NE(detail.find("field key PeriodicalTitle"), std::string::npos) << detail;
  }
  EXPECT_NE(gui.line(gui.lines() - 1).find("= \"Tides\""), std::string::npos);

  // The filters hide a category and show it again.
  gui.panel<QCheckBox>("filterChanges").setChecked(false);
  EXPECT_TRUE(gui.logList().item(before)->isHidden());
  gui.panel<QCheckBox>("filterChanges").setChecked(true);
  EXPECT_FALSE(gui.logList().item(before)->isHidden());
  EXPECT_EQ(failuresOf(gui), "");
}

// A widget's rectangle on the form's surface at zoom 1, through the user
// controls it stands on.
QRectF designRect(const Widget& widget) {
  SurfaceRect rect = widget.surfaceRect();
  for (const UserControl* control = widget.Parent(); control && control->Parent();
       control = control->Parent()) {
    rect.left += control->Left();
    rect.top += control->Top();
  }
  return {rect.left, rect.top, rect.width, rect.height};
}

void expectScaled(const Window& gui, double zoom) {
  const qt::FormView& form = gui.window->form();
  EXPECT_DOUBLE_EQ(form.zoom(), zoom);
  for (const auto& widget : gui.shownFrame()->Controls()) {
    const QWidget* view = form.counterpart(*widget);
    if (view == nullptr || !widget->isShowing())
      continue;
    const QRect shown(view->mapTo(&form, QPoint(0, 0)), view->size());
    const QRectF design = designRect(*widget);
    const QRectF scaled(design.topLeft() * zoom, design.size() * zoom);
    EXPECT_NEAR(shown.x(), scaled.x(), 1.0) << widget->Name() << " at " << zoom;
    EXPECT_NEAR(shown.y(), scaled.y(), 1.0) << widget->Name() << " at " << zoom;
    EXPECT_NEAR(shown.width(), scaled.width(), 1.0) << widget->Name() << " at " << zoom;
    EXPECT_NEAR(shown.height(), scaled.height(), 1.0) << widget->Name() << " at " << zoom;
  }
}

TEST(GuiWindowTest, ZoomScalesEveryWidgetAndFitToWindowFillsTheRoom) {
  Window gui(true);
  QTest::mouseClick(&gui.panel<QCheckBox>("showAll"), Qt::LeftButton);
  QScrollArea& area = gui.window->formArea();
  const QSize design = gui.window->form().designSize();
  // At its first size the window shows the whole form.
  EXPECT_GE(area.viewport()->width(), design.width());
  EXPECT_GE(area.viewport()->height(), design.height());

  QWidget* focus = QApplication::focusWidget();
  ASSERT_NE(focus, nullptr);
  QTest::keyClick(focus, Qt::Key_Equal, Qt::ControlModifier);
  QTest::keyClick(focus, Qt::Key_Plus, Qt::ControlModifier);
  expectScaled(gui, 1.25 * 1.25);
  EXPECT_EQ(gui.panel<QLabel>("zoom").text().toStdString(), "Zoom 156%");
  QTest::keyClick(focus, Qt::Key_Minus, Qt::ControlModifier);
  expectScaled(gui, 1.25);
  QTest::keyClick(focus, Qt::Key_0, Qt::ControlModifier);
  expectScaled(gui, 1.0);

  gui.window->resize(1400, 900);
  QApplication::processEvents();
  gui.window->fitToWindow();
  QApplication::processEvents();
  const double fit = gui.window->form().zoom();
  EXPECT_GT(fit, 1.0);
  expectScaled(gui, fit);
  const QSize room = area.viewport()->size();
  const QSize shown = gui.window->form().size();
  EXPECT_LE(shown.width(), room.width());
  EXPECT_LE(shown.height(), room.height());
  EXPECT_TRUE(shown.width() >= room.width() - 1 || shown.height() >= room.height() - 1)
      << shown.width() << "x" << shown.height() << " in " << room.width() << "x" << room.height();
}

TEST(GuiWindowTest, F6MovesTheFocusBetweenPanelFormAndLog) {
  Window gui(true);
  gui.panel<QComboBox>("type").setFocus();
  auto region = [&] {
    const QWidget* focused = QApplication::focusWidget();
    if (focused == nullptr)
      return "nowhere";
    if (gui.panel<QDockWidget>("panelDock").isAncestorOf(focused))
      return "panel";
    if (gui.window->formArea().isAncestorOf(focused))
      return "form";
    if (gui.panel<QDockWidget>("logDock").isAncestorOf(focused))
      return "log";
    return "elsewhere";
  };
  auto press = [&](Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F6, modifiers);
  };
  ASSERT_STREQ(region(), "panel");
  press();
  EXPECT_STREQ(region(), "form");
  // The toolkit has the focus where Qt has it, so typing reaches the field.
  const auto focused = Focus::current();
  ASSERT_TRUE(focused);
  EXPECT_EQ(gui.window->form().counterpart(*focused), QApplication::focusWidget());
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  const QWidget* left = QApplication::focusWidget();
  press();
  EXPECT_STREQ(region(), "log");
  press();
  EXPECT_STREQ(region(), "panel");
  press(Qt::ShiftModifier);
  EXPECT_STREQ(region(), "log");
  // Back where the person left the form.
  press(Qt::ShiftModifier);
  EXPECT_EQ(QApplication::focusWidget(), left);

  // A hidden log is passed over.
  gui.panel<QDockWidget>("logDock").hide();
  press();
  EXPECT_STREQ(region(), "panel");
  EXPECT_EQ(failuresOf(gui), "");
}

// What an author sees of each widget: whether it shows, whether it takes
// input, and a label's caption.
std::vector<std::string> seen(const UserControl& frame) {
  std::vector<std::string> rows;
  for (const auto& widget : frame.Controls())
    rows.push_back(widget->Name() + (widget->Visible() ? " shown" : " hidden") +
                   (widget->Enabled() ? "" : " disabled") +
                   (dynamic_cast<const Label*>(widget.get()) ? " " + widget->caption() : ""));
  return rows;
}

TEST(GuiWindowTest, AnotherFamilyOnThePanelSetsTheFrameUpAsAFreshHostWould) {
  std::vector<std::string> family2;
  {
    // One host at a time: the fresh one goes before the window's comes.
    QtForm fresh(1, 2, false);
    family2 = seen(*WidgetLocator::frame(fresh.host.container(), -1));
  }
  Window gui;
  gui.panel<QCheckBox>("showAll").click();
  const auto family0 = seen(*gui.shownFrame());
  gui.panel<QSpinBox>("family").setValue(2);
  EXPECT_FALSE(gui.rowsWith("-> ChangeFormatType(1)").empty());
  EXPECT_NE(family0, family2);
  EXPECT_EQ(seen(*gui.shownFrame()), family2);
  EXPECT_EQ(failuresOf(gui), "");
}

TEST(GuiWindowTest, ScreenshotsOfEachTypeInEachFamily) {
  Window gui(true);
  const QString folder = QStringLiteral(KELMORA_SCREENSHOT_DIR);
  ASSERT_TRUE(QDir().mkpath(folder));
  for (const char* type : {"Periodical", "NonPeriodical", "Esource"}) {
    gui.choose("type", QString::fromUtf8(type));
    QTest::mouseClick(&gui.panel<QPushButton>("example"), Qt::LeftButton);
    for (int family = 0; family <= 3; ++family) {
      gui.panel<QSpinBox>("family").setValue(family);
      EXPECT_NE(gui.title().find(type), std::string::npos);
      const QString path = QStringLiteral("%1/gui-%2-family%3.png")
                               .arg(folder, QString::fromUtf8(type).toLower())
                               .arg(family);
      ASSERT_TRUE(gui.window->grab().save(path, "PNG")) << path.toStdString();
      const QImage picture(path);
      ASSERT_FALSE(picture.isNull()) << path.toStdString();
      EXPECT_EQ(picture.size(), gui.window->size() * gui.window->devicePixelRatio());
    }
  }
  EXPECT_EQ(failuresOf(gui), "");
}

}  // namespace
}  // namespace kelmora::tools::testing
