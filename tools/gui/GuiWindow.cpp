#include "gui/GuiWindow.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QVBoxLayout>

#include "gui/LogSink.h"
#include "host/Kit.h"
#include "host/DemoParts.h"
#include "host/EventSink.h"
#include "host/FieldValues.h"
#include "host/TextDataObject.h"
#include "host/ToolCallback.h"
#include "host/ToolHost.h"
#include "hosting/FrameContainer.h"
#include "hosting/Main2.h"
#include "platform/RuntimeError.h"
#include "qt/FormView.h"

namespace kelmora::tools {

namespace {

struct TypeChoice {
  const char* caption;
  int16_t whichType;
  // The demo's part whose first loaded reference serves as the example.
  const char* example;
};
constexpr TypeChoice kTypes[] = {
    {"Periodical", 1, "demo-periodical.json"},
    {"NonPeriodical", 0, "demo-nonperiodical.json"},
    {"Esource", 4, "demo-esource.json"},
};
constexpr int16_t kNonPeriodical = 0;

// The values of the first reference of that type the demo loads; nothing
// when the demo has none.
Json exampleValues(const TypeChoice& type) {
  const std::string_view* text = DemoParts::find(type.example);
  if (text == nullptr)
    return nullptr;
  const Json demo = Json::parse(*text);
  for (const auto& step : demo.value("steps", Json::array())) {
    if (step.value("call", "") == "SynchronizeFieldsWithModel" &&
        step["args"].value("whichType", -1) == type.whichType)
      return step["args"]["values"];
  }
  return nullptr;
}

}  // namespace

GuiWindow::GuiWindow(ToolHost& host, LogSink& log) : mHost(host), mLog(log) {
  setWindowTitle(QStringLiteral("Kelmora"));
  auto* panel = new QFormLayout;
  mType = new QComboBox;
  for (const auto& type : kTypes) mType->addItem(QString::fromUtf8(type.caption));
  mFamily = new QSpinBox;
  mFamily->setRange(0, 3);
  mShowAll = new QCheckBox(QStringLiteral("Show all fields"));
  mOption = new QComboBox;
  mOption->addItem(QStringLiteral("Book"));
  mOption->addItem(QStringLiteral("Website"));
  mExample = new QPushButton(QStringLiteral("Load an example reference"));
  auto* resetButton = new QPushButton(QStringLiteral("Reset"));
  // Named, so that a test or an accessibility tool finds them.
  mType->setObjectName(QStringLiteral("type"));
  mFamily->setObjectName(QStringLiteral("family"));
  mShowAll->setObjectName(QStringLiteral("showAll"));
  mOption->setObjectName(QStringLiteral("bookOrWebsite"));
  mExample->setObjectName(QStringLiteral("example"));
  resetButton->setObjectName(QStringLiteral("reset"));
  panel->addRow(QStringLiteral("Reference type"), mType);
  panel->addRow(QStringLiteral("Format family"), mFamily);
  panel->addRow(QString(), mShowAll);
  panel->addRow(QStringLiteral("Book or website"), mOption);
  panel->addRow(QString(), mExample);
  panel->addRow(QString(), resetButton);

  mForm = new qt::FormView(mHost.container());
  mForm->dropData = [](const std::string& text) { return std::make_shared<TextDataObject>(text); };
  mForm->onFailure = [this](const std::string& message) { note("  !! " + message); };

  mLogView = new QPlainTextEdit;
  mLogView->setObjectName(QStringLiteral("log"));
  mLogView->setReadOnly(true);
  mLogView->setLineWrapMode(QPlainTextEdit::NoWrap);
  QFont fixed(QStringLiteral("DejaVu Sans Mono"));
  fixed.setPixelSize(11);
  mLogView->setFont(fixed);
  mLogView->setMinimumHeight(160);

  auto* top = new QHBoxLayout;
  top->addLayout(panel);
  top->addWidget(mForm, 0, Qt::AlignTop | Qt::AlignLeft);
  top->addStretch(1);
  auto* whole = new QVBoxLayout(this);
  whole->addLayout(top);
  whole->addWidget(
      new QLabel(QStringLiteral("Calls of the host on the library (->) and of the "
                                "library on the host (<-):")));
  whole->addWidget(mLogView, 1);

  mLog.listen([this](const std::string& line) { note(line); });

  auto changed = [this] { showChosenFrame(); };
  connect(mType, &QComboBox::activated, this, changed);
  connect(mFamily, &QSpinBox::valueChanged, this, changed);
  connect(mShowAll, &QCheckBox::clicked, this, changed);
  connect(mOption, &QComboBox::activated, this, changed);
  connect(mExample, &QPushButton::clicked, this, [this] { loadExample(); });
  connect(resetButton, &QPushButton::clicked, this, [this] { reset(); });
}

GuiWindow::~GuiWindow() {
  mLog.listen(nullptr);
}

int16_t GuiWindow::chosenType() const {
  return kTypes[std::max(0, mType->currentIndex())].whichType;
}

void GuiWindow::note(const std::string& line) {
  mLogView->appendPlainText(QString::fromStdString(line));
  mLogView->verticalScrollBar()->setValue(mLogView->verticalScrollBar()->maximum());
}

template <typename Call>
void GuiWindow::call(const char* name, Json args, Call&& body) {
  mLog.emit({{"host", name}, {"args", std::move(args)}});
  try {
    body();
  } catch (const RuntimeError& error) {
    mLog.emit({{"failedCall", {{"number", error.Number()}, {"description", error.Description()}}}});
  } catch (const BadInput& error) {
    note(std::string("  !! ") + error.what());
  } catch (const std::exception& error) {
    // Nothing may leave a Qt slot; the log says what went wrong.
    note(std::string("  !! ") + name + " failed: " + error.what());
  }
}

void GuiWindow::showChosenFrame() {
  const int16_t type = chosenType();
  const int32_t family = mFamily->value();
  const bool showAll = mShowAll->isChecked();
  mOption->setEnabled(type == kNonPeriodical);
  mExample->setEnabled(!exampleValues(kTypes[mType->currentIndex()]).is_null());
  const int16_t option = type == kNonPeriodical ? static_cast<int16_t>(mOption->currentIndex()) : 0;
  FrameContainer& container = mHost.container();
  const auto applied = mFamilyOf.find(type);
  if (applied != mFamilyOf.end() && applied->second != family)
    call("ChangeFormatType", {type}, [&] { mHost.main().ChangeFormatType(type); });
  mFamilyOf[type] = family;
  call("SetVisibleFrame", {type}, [&] { container.SetVisibleFrame(type); });
  call("ToggleFormatDependentWidgets", {type, family},
       [&] { container.ToggleFormatDependentWidgets(type, FormatSettings::family(family)); });
  call("UpdateFrame", {option, showAll}, [&] { container.UpdateFrame(option, showAll); });
}

void GuiWindow::loadExample() {
  const TypeChoice& type = kTypes[mType->currentIndex()];
  const Json values = exampleValues(type);
  if (values.is_null())
    return;
  call("SynchronizeFieldsWithModel", {type.whichType, values}, [&] {
    auto record = FieldValues::record(mHost.main(), type.whichType, values, type.example);
    host::Loading loading(mHost.callback());
    mHost.container().SynchronizeFieldsWithModel(type.whichType, record);
  });
}

void GuiWindow::reset() {
  const int16_t type = chosenType();
  const bool showAll = mShowAll->isChecked();
  call("Reset", {type, showAll}, [&] {
    host::Loading loading(mHost.callback());
    mHost.container().Reset(type, showAll);
  });
}

}  // namespace kelmora::tools
