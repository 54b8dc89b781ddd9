#include "gui/GuiWindow.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>

#include "QtForm.h"
#include "gui/LogSink.h"
#include "host/ToolHost.h"
#include "qt/FormView.h"
#include "scenario/WidgetLocator.h"
#include "surface/Label.h"
#include "surface/TextBox.h"
#include "surface/UserControl.h"

namespace kelmora::tools::testing {
namespace {

// The window with its panel as a person finds it at start.
struct Window {
  LogSink log;
  ToolHost host{log, {}};
  std::unique_ptr<GuiWindow> window = std::make_unique<GuiWindow>(host, log);

  Window() { window->showChosenFrame(); }
  ~Window() {
    window.reset();
    host.end();
  }
  template <typename T>
  T& panel(const char* name) const {
    auto* found = window->findChild<T*>(QString::fromUtf8(name));
    if (found == nullptr)
      throw std::runtime_error(std::string("no ") + name + " on the panel");
    return *found;
  }
  std::string logText() const { return panel<QPlainTextEdit>("log").toPlainText().toStdString(); }
  std::shared_ptr<UserControl> shownFrame() const {
    return WidgetLocator::frame(host.container(), -1);
  }
};

bool has(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

TEST(GuiWindowTest, ThePanelCallsTheLibraryAsAHostAndTheLogShowsBothWays) {
  Window gui;
  EXPECT_EQ(gui.shownFrame()->ClassName(), "Periodical");
  EXPECT_TRUE(has(gui.logText(), "-> SetVisibleFrame(1)")) << gui.logText();
  // The book or website choice belongs to the NonPeriodical only.
  EXPECT_FALSE(gui.panel<QComboBox>("bookOrWebsite").isEnabled());

  auto& type = gui.panel<QComboBox>("type");
  type.setCurrentIndex(type.findText(QStringLiteral("NonPeriodical")));
  type.activated(type.currentIndex());
  EXPECT_EQ(gui.shownFrame()->ClassName(), "NonPeriodical");
  EXPECT_TRUE(has(gui.logText(), "-> SetVisibleFrame(0)")) << gui.logText();
  EXPECT_TRUE(gui.panel<QComboBox>("bookOrWebsite").isEnabled());

  // An example reference fills the Qt widgets through the library.
  QTest::mouseClick(&gui.panel<QPushButton>("example"), Qt::LeftButton);
  EXPECT_TRUE(has(gui.logText(), "-> SynchronizeFieldsWithModel(0")) << gui.logText();
  int filled = 0;
  for (const auto& widget : gui.shownFrame()->Controls()) {
    auto* box = dynamic_cast<TextBox*>(widget.get());
    auto* edit = qobject_cast<QLineEdit*>(gui.window->form().counterpart(*widget));
    if (box == nullptr || edit == nullptr)
      continue;
    EXPECT_EQ(edit->text().toStdString(), box->Text()) << widget->Name();
    filled += box->Text().empty() ? 0 : 1;
  }
  EXPECT_GT(filled, 0);

  // What the person types is logged as the library's call on the host.
  const size_t before = gui.logText().size();
  QWidget* field = nullptr;
  for (const auto& widget : gui.shownFrame()->Controls()) {
    if (dynamic_cast<TextBox*>(widget.get()) != nullptr && widget->isShowing() &&
        widget->isEnabledInTree()) {
      field = gui.window->form().counterpart(*widget);
      break;
    }
  }
  ASSERT_NE(field, nullptr);
  QTest::mouseClick(field, Qt::LeftButton);
  QTest::keyClicks(field, "x");
  EXPECT_TRUE(has(gui.logText().substr(before), "<- widgetChangeHandler(")) << gui.logText();

  QTest::mouseClick(&gui.panel<QPushButton>("reset"), Qt::LeftButton);
  EXPECT_TRUE(has(gui.logText(), "-> Reset(0")) << gui.logText();
  EXPECT_FALSE(has(gui.logText(), "!!")) << gui.logText();
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
  Window gui;
  gui.panel<QCheckBox>("showAll").click();
  const auto family0 = seen(*gui.shownFrame());
  gui.panel<QSpinBox>("family").setValue(2);
  EXPECT_TRUE(has(gui.logText(), "-> ChangeFormatType(1)")) << gui.logText();

  QtForm fresh(1, 2, false);
  const auto family2 = seen(*WidgetLocator::frame(fresh.host.container(), -1));
  EXPECT_NE(family0, family2);
  EXPECT_EQ(seen(*gui.shownFrame()), family2);
  EXPECT_FALSE(has(gui.logText(), "!!")) << gui.logText();
}

}  // namespace
}  // namespace kelmora::tools::testing
