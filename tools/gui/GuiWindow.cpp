#include "gui/GuiWindow.h"

#include <QAction>
#include <QApplication>
#include <QDockWidget>
#include <QFileDialog>
#include <QFileInfo>
#include <QFocusEvent>
#include <QLabel>
#include <QListWidget>
#include <QMenuBar>
#include <QScrollArea>
#include <QStatusBar>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <optional>

#include "gui/HostPanel.h"
#include "gui/LogSink.h"
#include "gui/LogView.h"
#include "host/DemoParts.h"
#include "host/FieldValues.h"
#include "host/ReferenceFile.h"
#include "host/TextDataObject.h"
#include "host/ToolCallback.h"
#include "host/ToolHost.h"
#include "hosting/FrameContainer.h"
#include "hosting/Main2.h"
#include "hosting/RuleExplainer.h"
#include "platform/RuntimeError.h"
#include "proxy/FrameProxy.h"
#include "qt/FormView.h"
#include "surface/FieldLabels.h"
#include "surface/Focus.h"
#include "surface/SystemColors.h"
#include "surface/TextBox.h"
#include "surface/UserControl.h"

// Sections: building the window; the panel's calls; references and files;
// the log; zoom and focus.

namespace kelmora::tools {

namespace {

QString qText(const std::string& text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// The values of the first reference of that type the demo loads; nothing
// when the demo has none.
Json exampleValues(const HostPanel::ReferenceType& type) {
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

// A record as the log shows it: the fields that hold something, by key.
Json filledFields(const Record& record) {
  Json fields = Json::object();
  for (size_t i = 0; i < record.keys().size(); ++i) {
    if (!record.keys()[i].empty() && !record.values()[i].empty())
      fields[record.keys()[i]] = record.values()[i];
  }
  return fields;
}

const UserControl* frameOf(const FrameContainer& container, int16_t whichType) {
  auto proxy = container.existingProxy(whichType);
  return proxy ? dynamic_cast<const UserControl*>(proxy->frame().get()) : nullptr;
}

constexpr int16_t kTypes[] = {0, 1, 4};

}  // namespace

// --- Building the window -----------------------------------------------------

GuiWindow::GuiWindow(ToolHost& host, LogSink& log) : mHost(host), mLog(log) {
  mPanel = new HostPanel;
  mPanelDock = new QDockWidget(QStringLiteral("Host"));
  mPanelDock->setObjectName(QStringLiteral("panelDock"));
  mPanelDock->setWidget(mPanel);
  mPanelDock->setFeatures(QDockWidget::DockWidgetClosable | QDockWidget::DockWidgetMovable);
  addDockWidget(Qt::LeftDockWidgetArea, mPanelDock);

  mForm = new qt::FormView(mHost.container());
  mForm->dropData = [](const std::string& text) { return std::make_shared<TextDataObject>(text); };
  mForm->onFailure = [this](const std::string& message) { mFolder.failure(message); };
  mScroll = new QScrollArea;
  mScroll->setObjectName(QStringLiteral("formArea"));
  mScroll->setWidget(mForm);
  mScroll->setAlignment(Qt::AlignCenter);
  mScroll->setBackgroundRole(QPalette::Mid);
  // Its own colour, not the darker one around it.
  mForm->setBackgroundRole(QPalette::Window);
  setCentralWidget(mScroll);

  mLogView = new LogView;
  mLogDock = new QDockWidget(QStringLiteral(
      "Log: calls of the host on the library (->) and of the library on the host (<-)"));
  mLogDock->setObjectName(QStringLiteral("logDock"));
  mLogDock->setWidget(mLogView);
  mLogDock->setFeatures(QDockWidget::DockWidgetClosable | QDockWidget::DockWidgetMovable |
                        QDockWidget::DockWidgetFloatable);
  addDockWidget(Qt::BottomDockWidgetArea, mLogDock);

  mWhy =
      new QLabel(QStringLiteral("Point at a field or give it the focus to see why it "
                                "stands as it does."));
  mWhy->setObjectName(QStringLiteral("inspector"));
  mWhy->setWordWrap(true);
  mWhy->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  mWhy->setTextInteractionFlags(Qt::TextSelectableByMouse);
  mWhy->setMargin(6);
  mWhyDock = new QDockWidget(QStringLiteral("Why"));
  mWhyDock->setObjectName(QStringLiteral("whyDock"));
  mWhyDock->setWidget(mWhy);
  mWhyDock->setFeatures(QDockWidget::DockWidgetClosable | QDockWidget::DockWidgetMovable);
  addDockWidget(Qt::LeftDockWidgetArea, mWhyDock);
  mForm->onPointerOver = [this](const std::shared_ptr<Widget>& widget) {
    if (widget != mInspected.lock())
      inspect(widget);
  };

  mZoom = new QLabel;
  mZoom->setObjectName(QStringLiteral("zoom"));
  statusBar()->addPermanentWidget(mZoom);
  buildMenus();
  showZoom();

  mFolder.name = [this](const std::string& described) { return naming(described); };
  mFolder.onLine = [this](const LogFolder::Line& line) { mLogView->tell(line); };
  mLog.listen([this](const Json& event) { heard(event); });
  qApp->installEventFilter(this);

  mPanel->onChoice = [this] { guarded("showing the frame", [this] { showChosenFrame(); }); };
  mPanel->onExample = [this] { guarded("loading the example", [this] { loadExample(); }); };
  mPanel->onNew = [this] { guarded("a new reference", [this] { newReference(); }); };
  mPanel->onReset = [this] { guarded("resetting", [this] { reset(); }); };
  mPanel->onOpen = [this] { guarded("opening", [this] { askOpen(); }); };
  mPanel->onSave = [this] { guarded("saving", [this] { askSave(); }); };
  retitle();
  resize(defaultSize());
}

GuiWindow::~GuiWindow() {
  qApp->removeEventFilter(this);
  mLog.listen(nullptr);
  // The form outlives the folder as a child of the window.
  mForm->onFailure = nullptr;
}

void GuiWindow::buildMenus() {
  auto action = [this](QMenu* menu, const QString& text, auto&& handler) {
    QAction* made = menu->addAction(text);
    connect(made, &QAction::triggered, this, [this, handler] { guarded("the menu", handler); });
    return made;
  };
  QMenu* file = menuBar()->addMenu(QStringLiteral("&File"));
  action(file, QStringLiteral("&New reference"), [this] {
    newReference();
  })->setShortcut(QKeySequence::New);
  action(file, QStringLiteral("&Open…"), [this] { askOpen(); })->setShortcut(QKeySequence::Open);
  action(file, QStringLiteral("&Save…"), [this] { askSave(); })->setShortcut(QKeySequence::Save);
  action(file, QStringLiteral("Load an &example reference"), [this] { loadExample(); });
  action(file, QStringLiteral("&Reset"), [this] { reset(); });
  file->addSeparator();
  action(file, QStringLiteral("&Quit"), [this] { close(); })->setShortcut(QKeySequence::Quit);

  QMenu* view = menuBar()->addMenu(QStringLiteral("&View"));
  action(view, QStringLiteral("Zoom &in"), [this] {
    setZoom(mForm->zoom() * kZoomStep);
  })->setShortcuts({QKeySequence::ZoomIn, QKeySequence(Qt::CTRL | Qt::Key_Equal)});
  action(view, QStringLiteral("Zoom &out"), [this] {
    setZoom(mForm->zoom() / kZoomStep);
  })->setShortcut(QKeySequence::ZoomOut);
  action(view, QStringLiteral("&Actual size"), [this] {
    setZoom(1.0);
  })->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_0));
  action(view, QStringLiteral("&Fit to window"), [this] {
    fitToWindow();
  })->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_9));
  view->addSeparator();
  // Also from a floating log.
  QAction* next = action(view, QStringLiteral("&Next region"), [this] { focusNextRegion(false); });
  next->setShortcut(QKeySequence(Qt::Key_F6));
  next->setShortcutContext(Qt::ApplicationShortcut);
  QAction* previous =
      action(view, QStringLiteral("&Previous region"), [this] { focusNextRegion(true); });
  previous->setShortcut(QKeySequence(Qt::SHIFT | Qt::Key_F6));
  previous->setShortcutContext(Qt::ApplicationShortcut);
  view->addSeparator();
  QAction* panel = mPanelDock->toggleViewAction();
  panel->setText(QStringLiteral("Host &panel"));
  view->addAction(panel);
  QAction* why = mWhyDock->toggleViewAction();
  why->setText(QStringLiteral("&Why a field stands so"));
  view->addAction(why);
  QAction* log = mLogDock->toggleViewAction();
  log->setText(QStringLiteral("&Log"));
  log->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_L));
  view->addAction(log);
}

QSize GuiWindow::defaultSize() const {
  // The panel beside the whole form at zoom 1, the log below. A scroll
  // area asks for less room than its contents take, so the layout is told
  // what is missing.
  const int frame = 2 * mScroll->frameWidth();
  const QSize whole = mForm->designSize() + QSize(frame, frame);
  const QSize missing = whole - mScroll->sizeHint();
  return (sizeHint() + missing.expandedTo(QSize(0, 0))).expandedTo(QSize(900, 560));
}

// --- The panel's calls -------------------------------------------------------

template <typename Action>
void GuiWindow::guarded(const char* what, Action&& action) {
  // Nothing may leave a Qt slot; the log says what went wrong.
  try {
    action();
  } catch (const std::exception& error) {
    refuse(std::string(what) + " failed: " + error.what());
  }
}

void GuiWindow::refuse(const std::string& message) {
  mFolder.failure(message);
  status(message);
}

void GuiWindow::status(const std::string& message) {
  statusBar()->showMessage(qText(message), 10000);
}

template <typename Call>
bool GuiWindow::call(const char* name, Json args, Call&& body) {
  // One line in the log, with all the library says while it runs.
  mFolder.boundary();
  mFolder.hold();
  mLog.emit({{"host", name}, {"args", std::move(args)}});
  bool done = false;
  try {
    body();
    done = true;
  } catch (const RuntimeError& error) {
    mLog.emit({{"failedCall", {{"number", error.Number()}, {"description", error.Description()}}}});
  } catch (const BadInput& error) {
    mFolder.failure(error.what());
  } catch (const std::exception& error) {
    mFolder.failure(std::string(name) + " failed: " + error.what());
  }
  mFolder.release();
  return done;
}

void GuiWindow::showChosenFrame() {
  const int16_t type = mPanel->whichType();
  const int32_t family = mPanel->family();
  const bool showAll = mPanel->showAll();
  const int16_t option = mPanel->option();
  mPanel->exampleAvailable(!exampleValues(mPanel->chosen()).is_null());
  FrameContainer& container = mHost.container();
  const auto applied = mFamilyOf.find(type);
  if (applied != mFamilyOf.end() && applied->second != family)
    call("ChangeFormatType", {type}, [&] { mHost.main().ChangeFormatType(type); });
  mFamilyOf[type] = family;
  call("SetVisibleFrame", {type}, [&] { container.SetVisibleFrame(type); });
  call("ToggleFormatDependentWidgets", {type, family},
       [&] { container.ToggleFormatDependentWidgets(type, FormatSettings::family(family)); });
  call("UpdateFrame", {option, showAll}, [&] { container.UpdateFrame(option, showAll); });
  retitle();
}

void GuiWindow::reset() {
  const int16_t type = mPanel->whichType();
  const bool showAll = mPanel->showAll();
  // Reset keeps every text and the kind selected: what it restores is the
  // text colour and the layout. The status bar says what that came to, as
  // the form may look the same.
  int coloured = 0;
  if (const UserControl* frame = frameOf(mHost.container(), type)) {
    for (const auto& widget : frame->Controls()) {
      if (dynamic_cast<const TextBox*>(widget.get()) != nullptr &&
          widget->ForeColor() != kColorWindowText)
        ++coloured;
    }
  }
  const bool done = call("Reset", {type, showAll}, [&] {
    host::Loading loading(mHost.callback());
    mHost.container().Reset(type, showAll);
  });
  if (!done)
    return;
  const std::string kind = mPanel->kind();
  status(std::string("Reset the ") + HostPanel::captionOf(type) + " frame: " +
         (coloured == 0 ? "every text box already had the window-text colour"
                        : std::to_string(coloured) + " text box(es) back to window-text colour") +
         "; laid out again" + (kind.empty() ? "" : " as " + kind) +
         (showAll ? ", all fields shown" : ", advanced fields hidden"));
}

// --- References and files ------------------------------------------------------

bool GuiWindow::load(Record& record, int16_t option) {
  const int16_t type = record.whichType();
  if (type != mPanel->whichType()) {
    mPanel->selectType(type);
    showChosenFrame();
  }
  // As a host loads a reference: the changes the load causes go
  // unanswered, then the frame is laid out for the kind of reference.
  const bool loaded = call("SynchronizeFieldsWithModel", {type, filledFields(record)}, [&] {
    host::Loading loading(mHost.callback());
    mHost.container().SynchronizeFieldsWithModel(type, record.values());
  });
  if (!loaded)
    return false;
  mLoaded.insert_or_assign(type, record);
  const bool showAll = mPanel->showAll();
  call("UpdateFrame", {option, showAll}, [&] { mHost.container().UpdateFrame(option, showAll); });
  return true;
}

void GuiWindow::newReference() {
  const int16_t type = mPanel->whichType();
  // The kind the panel shows, not the default of a new record.
  const int16_t option = mPanel->option();
  Record record = Record::newReference(mHost.main(), type);
  if (!load(record, option))
    return;
  mFileOf.erase(type);
  retitle();
  status(std::string("A new ") + HostPanel::captionOf(type) + " reference");
}

void GuiWindow::loadExample() {
  const HostPanel::ReferenceType& type = mPanel->chosen();
  const Json values = exampleValues(type);
  if (values.is_null())
    return;
  Record record =
      Record::fromValues(mHost.main(), type.whichType,
                         FieldValues::record(mHost.main(), type.whichType, values, type.example));
  if (!load(record, -1))
    return;
  mFileOf.erase(type.whichType);
  retitle();
}

bool GuiWindow::openFile(const std::filesystem::path& path, const std::string& item) {
  std::optional<Record> record;
  try {
    record = ReferenceFile::read(mHost.main(), path, item);
  } catch (const BadInput& error) {
    refuse(error.what());
    return false;
  }
  if (!load(*record, -1)) {
    status("Could not load '" + path.string() + "': see the log");
    return false;
  }
  mFileOf[record->whichType()] = path;
  retitle();
  status("Opened " + path.string());
  return true;
}

bool GuiWindow::saveFile(const std::filesystem::path& path) {
  const int16_t type = mPanel->whichType();
  const auto loaded = mLoaded.find(type);
  Record base = loaded != mLoaded.end() ? loaded->second : Record::newReference(mHost.main(), type);
  const Record now = Record::fromWidgets(mHost.container(), type, std::move(base));
  try {
    ReferenceFile::write(path, now);
  } catch (const BadInput& error) {
    refuse(error.what());
    return false;
  }
  mFileOf[type] = path;
  retitle();
  status("Saved " + path.string());
  return true;
}

void GuiWindow::askOpen() {
  const QString path =
      QFileDialog::getOpenFileName(this, QStringLiteral("Open a reference"), QString(),
                                   QStringLiteral("References (*.json);;All files (*)"));
  if (!path.isEmpty())
    openFile(path.toStdString());
}

void GuiWindow::askSave() {
  const auto known = mFileOf.find(mPanel->whichType());
  const QString suggested =
      known != mFileOf.end() ? qText(known->second.string()) : QStringLiteral("untitled.json");
  QString path = QFileDialog::getSaveFileName(this, QStringLiteral("Save the reference"), suggested,
                                              QStringLiteral("References (*.json);;All files (*)"));
  if (path.isEmpty())
    return;
  if (QFileInfo(path).suffix().isEmpty())
    path += QStringLiteral(".json");
  saveFile(path.toStdString());
}

void GuiWindow::inspect(const std::shared_ptr<Widget>& widget) {
  const auto shown = widget ? widget : mInspected.lock();
  if (!shown)
    return;
  mInspected = shown;
  const FrameContainer& container = mHost.container();
  const auto proxy = container.existingProxy(container.currentFrame());
  const auto& controls = proxy ? proxy->controls() : DepWidgetToggler::Controls{};
  const auto at = std::find(controls.begin(), controls.end(), shown);
  if (at == controls.end()) {
    mWhy->setText(QStringLiteral("No field here: the pointer is over the form itself."));
    return;
  }
  const WidgetExplanation e =
      RuleExplainer::explain(*proxy, static_cast<int16_t>(at - controls.begin()));
  const std::string heading = (e.caption.empty() ? e.name : "«" + e.caption + "» " + e.name) +
                              (e.key.empty() ? "" : ", " + e.key) + ": " +
                              (e.shown ? "shown" : "hidden") + ", " +
                              (e.enabled ? "enabled" : "disabled");
  mWhy->setText(QString::fromStdString(heading + "\n\nBecause " + e.because + "."));
}

void GuiWindow::retitle() {
  const auto file = mFileOf.find(mPanel->whichType());
  const std::string name = file != mFileOf.end() ? file->second.filename().string() : "untitled";
  setWindowTitle(
      qText(std::string("Kelmora — ") + HostPanel::captionOf(mPanel->whichType()) + " — " + name));
}

// --- The log -----------------------------------------------------------------

void GuiWindow::heard(const Json& event) {
  // Told from inside the library's calls: nothing may go back into them.
  try {
    // The panel shows the kind the frame selected, for the panel or for a
    // reference that was loaded.
    // And what a host call made without the panel set up: the frame shown,
    // the format family, show all.
    const Json& args = event.contains("args") ? event["args"] : Json();
    const std::string call = event.value("host", "");
    if (call == "SetVisibleFrame" && args.size() >= 1 && args[0].is_number_integer()) {
      mPanel->selectType(args[0].get<int16_t>());
    } else if (call == "ToggleFormatDependentWidgets" && args.size() >= 2 &&
               args[0].is_number_integer() && args[1].is_number_integer()) {
      mPanel->followFamily(args[1].get<int32_t>());
      mFamilyOf[args[0].get<int16_t>()] = args[1].get<int32_t>();
    } else if (call == "UpdateFrame" && args.size() >= 2 && args[1].is_boolean()) {
      mPanel->followShowAll(args[1].get<bool>());
    }
    if (event.value("callback", "") == "OptionButtonChanged") {
      const Json& args = event["args"];
      mPanel->follow(static_cast<int16_t>(args.value("whichType", -1)),
                     static_cast<int16_t>(args.value("Index", -1)));
    }
    mFolder.add(event);
    // What the library just did may have changed the inspected field.
    inspect(nullptr);
  } catch (const std::exception& error) {
    mFolder.failure(std::string("the log could not show an event: ") + error.what());
  }
}

std::shared_ptr<Widget> GuiWindow::findWidget(const std::string& described) const {
  // "TextBox(8)" or "AdvancedFieldsFrame", in the frame shown first.
  std::string name = described;
  int index = -1;
  if (const size_t open = described.find('(');
      open != std::string::npos && described.back() == ')') {
    name = described.substr(0, open);
    index = std::atoi(described.c_str() + open + 1);
  }
  const FrameContainer& container = mHost.container();
  std::vector<int16_t> order = {container.currentFrame()};
  for (int16_t type : kTypes) {
    if (type != container.currentFrame())
      order.push_back(type);
  }
  for (int16_t type : order) {
    const UserControl* frame = frameOf(container, type);
    if (frame == nullptr)
      continue;
    for (const auto& widget : frame->Controls()) {
      if (widget->Name() == name &&
          (index < 0 ? !widget->IsArrayMember()
                     : widget->IsArrayMember() && widget->Index() == index))
        return widget;
    }
  }
  return nullptr;
}

LogFolder::Naming GuiWindow::naming(const std::string& described) const {
  const auto widget = findWidget(described);
  if (!widget)
    return {};
  return {FieldLabels::captionOf(*widget), Record::fieldKey(*widget)};
}

std::shared_ptr<Widget> GuiWindow::formWidgetOf(QWidget* view) const {
  // A combo box's own line edit stands for the combo box.
  for (QWidget* step = view; step != nullptr && step != mForm; step = step->parentWidget()) {
    if (auto widget = mForm->mirrored(step))
      return widget;
  }
  return nullptr;
}

bool GuiWindow::eventFilter(QObject* watched, QEvent* event) {
  guarded("following the focus", [&] { watch(watched, event); });
  return QMainWindow::eventFilter(watched, event);
}

void GuiWindow::watch(QObject* watched, QEvent* event) {
  switch (event->type()) {
    // Where one action of the person begins.
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::Drop:
      mFolder.boundary();
      break;
    case QEvent::FocusIn: {
      auto* view = qobject_cast<QWidget*>(watched);
      if (view == nullptr)
        break;
      const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
      const auto widget = formWidgetOf(view);
      const bool told = reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason;
      // A click gives the focus before the widget hears of the press.
      if (reason == Qt::MouseFocusReason || reason == Qt::TabFocusReason ||
          reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason)
        mFolder.boundary();
      if (told && widget)
        mFolder.focusMoved(ToolCallback::describe(widget).get<std::string>());
      else if (told && mFocusOnForm)
        mFolder.focusMoved("");
      mFocusOnForm = widget != nullptr;
      if (widget) {
        mLastOnForm = widget;
        inspect(widget);
      }
      break;
    }
    default:
      break;
  }
}

// --- Zoom and focus -------------------------------------------------------------

void GuiWindow::setZoom(double factor) {
  mForm->setZoom(factor);
  showZoom();
}

void GuiWindow::fitToWindow() {
  const QSize room = mScroll->maximumViewportSize();
  const QSize design = mForm->designSize();
  if (design.isEmpty())
    return;
  setZoom(std::min(static_cast<double>(room.width()) / design.width(),
                   static_cast<double>(room.height()) / design.height()));
}

void GuiWindow::showZoom() {
  mZoom->setText(QStringLiteral("Zoom %1%").arg(std::lround(mForm->zoom() * 100)));
}

void GuiWindow::focusNextRegion(bool backwards) {
  std::vector<QWidget*> regions;
  if (mPanelDock->isVisible())
    regions.push_back(mPanelDock);
  regions.push_back(mScroll);
  if (mLogDock->isVisible())
    regions.push_back(mLogDock);
  const QWidget* focused = QApplication::focusWidget();
  const auto here = std::find_if(regions.begin(), regions.end(), [&](QWidget* region) {
    return focused != nullptr && (region == focused || region->isAncestorOf(focused));
  });
  const auto count = static_cast<std::ptrdiff_t>(regions.size());
  std::ptrdiff_t next = backwards ? count - 1 : 0;
  if (here != regions.end())
    next = ((here - regions.begin()) + (backwards ? count - 1 : 1)) % count;
  QWidget* region = regions[static_cast<size_t>(next)];

  QWidget* target = nullptr;
  if (region == mScroll) {
    // Where the toolkit has its focus, else where the person left the
    // form, else the first field in tab order.
    const FrameContainer& container = mHost.container();
    auto within = [&](const std::shared_ptr<Widget>& widget) {
      return widget && Focus::isWithin(*widget, container) && widget->isShowing() &&
             widget->isEnabledInTree() && mForm->counterpart(*widget) != mForm;
    };
    auto widget = Focus::current();
    if (!within(widget))
      widget = mLastOnForm.lock();
    if (!within(widget))
      widget = Focus::nextInTabOrder(container, false);
    target = widget ? mForm->counterpart(*widget) : nullptr;
    if (target == nullptr || target == mForm)
      target = mScroll;
  } else if (region == mPanelDock) {
    target = mPanel->focusWidget() != nullptr ? mPanel->focusWidget()
                                              : mPanel->findChild<QWidget*>(QStringLiteral("type"));
  } else {
    target = &mLogView->list();
  }
  target->setFocus(Qt::ShortcutFocusReason);
}

}  // namespace kelmora::tools
