#include "qt/FormView.h"

#include <algorithm>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateTime>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFocusEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QMouseEvent>
#include <QRadioButton>
#include <QSignalBlocker>

#include "platform/RuntimeError.h"
#include "qt/CaptionLabel.h"
#include "qt/FormFont.h"
#include "qt/FrameBox.h"
#include "surface/CheckBox.h"
#include "surface/ComboBox.h"
#include "surface/DataObject.h"
#include "surface/FieldLabels.h"
#include "surface/Focus.h"
#include "surface/Frame.h"
#include "surface/Label.h"
#include "surface/OptionButton.h"
#include "surface/TextBox.h"
#include "surface/UserActions.h"
#include "surface/UserControl.h"

// Sections: construction and lifetime; counterparts (create, reconcile,
// release); reflection of properties; forwarding of what the person does.

namespace kelmora::qt {

namespace {

QString qText(const std::string& text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string text(const QString& value) {
  return value.toUtf8().toStdString();
}

QColor qColor(Color value) {
  return QColor::fromRgb(static_cast<QRgb>(screenRgb(value)));
}

// Marks the view's own writes: restores the flag however
// the write ends.
class Syncing {
 public:
  explicit Syncing(bool& flag) : mFlag(flag), mFormer(flag) { mFlag = true; }
  ~Syncing() { mFlag = mFormer; }
  Syncing(const Syncing&) = delete;
  Syncing& operator=(const Syncing&) = delete;

 private:
  bool& mFlag;
  bool mFormer;
};

}  // namespace

// --- Construction and lifetime ---------------------------------------------

FormView::FormView(UserControl& root, QWidget* parent)
    : QWidget(parent), mRoot(root.weak_from_this()) {
  applyFont();
  setAutoFillBackground(true);
  QPalette colours = palette();
  colours.setColor(QPalette::Window, qColor(kColorButtonFace));
  setPalette(colours);
  setAcceptDrops(true);
  setMouseTracking(true);
  setFocusPolicy(Qt::NoFocus);
  mViews[&root] = this;
  mWidgets[this] = mRoot;
  root.addObserver(this);
  // The user control as it stands, not only as it will change.
  syncAll(root);
  reconcile(root);
  refreshNames();
  syncFocus();
  // Focus that leaves the form for the rest of the window leaves the
  // library's forms; a window that only loses activation keeps its focus.
  mFocusChanges =
      connect(qApp, &QApplication::focusChanged, this, [this](QWidget* old, QWidget* now) {
        if (mSyncing || now == nullptr || old == nullptr)
          return;
        if (holds(old) && !holds(now))
          perform(nullptr, "focus leaving the form", [] { UserActions::focusAway(); });
      });
}

FormView::~FormView() {
  // Qt tells of focus changes while it takes a shown window down, when this
  // is no longer a FormView: nothing of that may reach the toolkit.
  disconnect(mFocusChanges);
  mSyncing = true;
  for (const auto& [view, weak] : mWidgets) {
    if (auto widget = weak.lock())
      widget->removeObserver(this);
  }
  // The counterparts go while their filter still is this view.
  qDeleteAll(findChildren<QWidget*>(Qt::FindDirectChildrenOnly));
}

bool FormView::holds(const QWidget* widget) const {
  // Across windows too: a combo box's list opens in a popup of its own.
  for (const QWidget* step = widget; step != nullptr; step = step->parentWidget()) {
    if (step == this)
      return true;
  }
  return false;
}

std::shared_ptr<UserControl> FormView::root() const {
  return std::static_pointer_cast<UserControl>(mRoot.lock());
}

QWidget* FormView::counterpart(const Widget& widget) const {
  const auto found = mViews.find(&widget);
  return found == mViews.end() ? nullptr : found->second.data();
}

std::shared_ptr<Widget> FormView::mirrored(const QWidget* view) const {
  const auto found = mWidgets.find(view);
  return found == mWidgets.end() ? nullptr : found->second.lock();
}

void FormView::setZoom(double factor) {
  factor = std::clamp(factor, kMinZoom, kMaxZoom);
  if (factor == mZoom)
    return;
  mZoom = factor;
  applyFont();
  for (const auto& [view, weak] : mWidgets) {
    if (auto widget = weak.lock())
      syncGeometry(*widget);
  }
  update();
}

QSize FormView::designSize() const {
  auto control = root();
  if (!control)
    return size();
  const SurfaceRect rect = control->surfaceRect();
  return {qRound(rect.width), qRound(rect.height)};
}

void FormView::applyFont() {
  setFont(FormFont::at(mZoom, logicalDpiY()));
}

// --- Counterparts ------------------------------------------------------------

void FormView::reconcile(UserControl& control) {
  Syncing syncing(mSyncing);
  for (const auto& widget : control.Controls()) {
    if (mViews.count(widget.get()) != 0)
      continue;
    create(*widget);
    if (auto* nested = dynamic_cast<UserControl*>(widget.get()))
      reconcile(*nested);
  }
  // Widgets that left a control: the collection tells while they are still
  // alive, with no Parent any more, so their observers can be taken off.
  // One that is gone already only loses its counterpart.
  const auto rootWidget = mRoot.lock();
  std::vector<const Widget*> gone;
  for (const auto& [widget, view] : mViews) {
    const auto weak = mWidgets.find(view.data());
    const auto alive = weak == mWidgets.end() ? nullptr : weak->second.lock();
    if (!alive || (alive != rootWidget && alive->Parent() == nullptr))
      gone.push_back(widget);
  }
  for (const Widget* widget : gone) release(widget);
}

QWidget* FormView::create(Widget& widget) {
  QWidget* container = counterpart(*widget.Container());
  if (container == nullptr)
    container = this;
  QWidget* view = nullptr;
  if (dynamic_cast<TextBox*>(&widget) != nullptr) {
    auto* edit = new QLineEdit(container);
    connect(edit, &QLineEdit::textEdited, this, [this, edit](const QString& value) {
      auto box = std::dynamic_pointer_cast<TextBox>(mirrored(edit));
      if (!mSyncing && box)
        perform(edit, "typing", [&] { UserActions::edit(*box, text(value)); });
    });
    view = edit;
  } else if (dynamic_cast<ComboBox*>(&widget) != nullptr) {
    auto* combo = new QComboBox(container);
    connect(combo, &QComboBox::activated, this, [this, combo](int index) {
      auto list = std::dynamic_pointer_cast<ComboBox>(mirrored(combo));
      if (!mSyncing && list)
        perform(combo, "a list selection",
                [&] { UserActions::selectItem(*list, static_cast<int16_t>(index)); });
    });
    view = combo;
  } else if (dynamic_cast<OptionButton*>(&widget) != nullptr) {
    auto* option = new QRadioButton(container);
    // The toolkit groups option buttons by container; Qt's own grouping
    // would clear siblings the library has not cleared.
    option->setAutoExclusive(false);
    connect(option, &QRadioButton::clicked, this, [this, option] {
      auto button = std::dynamic_pointer_cast<OptionButton>(mirrored(option));
      if (!mSyncing && button)
        perform(option, "an option click", [&] { UserActions::click(*button); });
    });
    view = option;
  } else if (dynamic_cast<CheckBox*>(&widget) != nullptr) {
    auto* check = new QCheckBox(container);
    check->setTristate(true);
    connect(check, &QCheckBox::clicked, this, [this, check] {
      auto box = std::dynamic_pointer_cast<CheckBox>(mirrored(check));
      if (!mSyncing && box)
        perform(check, "a check box click", [&] { UserActions::click(*box); });
    });
    view = check;
  } else if (dynamic_cast<Label*>(&widget) != nullptr) {
    view = new CaptionLabel(container);
  } else if (dynamic_cast<Frame*>(&widget) != nullptr) {
    view = new FrameBox(container);
  } else {
    view = new QWidget(container);
  }
  view->setObjectName(qText(widget.IsArrayMember()
                                ? widget.Name() + "(" + std::to_string(widget.Index()) + ")"
                                : widget.Name()));
  view->setFocusPolicy(widget.takesFocus() && dynamic_cast<UserControl*>(&widget) == nullptr
                           ? Qt::StrongFocus
                           : Qt::NoFocus);
  // Drops go to the form, which hands them to the toolkit; a line edit
  // would otherwise insert the text itself.
  view->setAcceptDrops(false);
  view->setMouseTracking(true);
  view->installEventFilter(this);
  mViews[&widget] = view;
  mWidgets[view] = widget.weak_from_this();
  widget.addObserver(this);
  syncAll(widget);
  // Labels have no window: they lie beneath the other widgets.
  if (widget.isWindowless())
    view->lower();
  else
    view->raise();
  return view;
}

void FormView::release(const Widget* widget) {
  const auto found = mViews.find(widget);
  if (found == mViews.end())
    return;
  QPointer<QWidget> view = found->second;
  mViews.erase(found);
  const auto weak = mWidgets.find(view.data());
  if (weak != mWidgets.end()) {
    if (auto alive = weak->second.lock())
      alive->removeObserver(this);
    mWidgets.erase(weak);
  }
  // What stood on a nested user control or in a Frame goes with it.
  std::vector<const Widget*> inside;
  for (const auto& [other, otherView] : mViews) {
    if (otherView && view && view->isAncestorOf(otherView))
      inside.push_back(other);
  }
  for (const Widget* other : inside) release(other);
  if (view) {
    view->hide();
    // Later: the person's own signal may be running on it.
    view->deleteLater();
  }
}

// --- Reflection ----------------------------------------------------------------

void FormView::propertyChanged(Widget& widget, WidgetProperty property) {
  if (property == WidgetProperty::Controls) {
    if (auto* control = dynamic_cast<UserControl*>(&widget)) {
      reconcile(*control);
      refreshNames();
    }
    return;
  }
  if (property == WidgetProperty::Focus) {
    syncFocus();
    return;
  }
  sync(widget, property);
  // A field is named by the label beside it, so a label's caption, place
  // or visibility can rename its neighbours.
  switch (property) {
    case WidgetProperty::Caption:
    case WidgetProperty::ToolTipText:
    case WidgetProperty::Visible:
    case WidgetProperty::Left:
    case WidgetProperty::Top:
    case WidgetProperty::Width:
    case WidgetProperty::Height:
      refreshNames();
      break;
    default:
      break;
  }
}

void FormView::refreshNames() {
  for (const auto& [view, weak] : mWidgets) {
    auto widget = weak.lock();
    if (!widget || !widget->takesFocus() || dynamic_cast<UserControl*>(widget.get()) != nullptr)
      continue;
    auto* field = const_cast<QWidget*>(view);
    const QString name = qText(FieldLabels::captionOf(*widget));
    if (field->accessibleName() != name)
      field->setAccessibleName(name);
    // Screen readers on Linux read a list's name from the label it is
    // the buddy of.
    if (const Widget* beside = FieldLabels::labelOf(*widget)) {
      auto* label = dynamic_cast<CaptionLabel*>(counterpart(*beside));
      if (label != nullptr && label->buddy() != field)
        label->setBuddy(field);
    }
    const QString description = qText(widget->ToolTipText());
    if (field->accessibleDescription() != description)
      field->setAccessibleDescription(description);
  }
}

void FormView::syncAll(Widget& widget) {
  for (WidgetProperty property :
       {WidgetProperty::Left, WidgetProperty::Visible, WidgetProperty::Enabled,
        WidgetProperty::ToolTipText, WidgetProperty::ForeColor, WidgetProperty::Style,
        WidgetProperty::Caption, WidgetProperty::List, WidgetProperty::Text, WidgetProperty::Value})
    sync(widget, property);
}

void FormView::sync(Widget& widget, WidgetProperty property) {
  QWidget* view = counterpart(widget);
  if (view == nullptr)
    return;
  Syncing syncing(mSyncing);
  switch (property) {
    case WidgetProperty::Left:
    case WidgetProperty::Top:
    case WidgetProperty::Width:
    case WidgetProperty::Height:
      syncGeometry(widget);
      // Inside a Frame the contents count from its corner, so they follow
      // it; on a user control they keep their own pixels.
      break;
    case WidgetProperty::Visible:
      // The form's own visibility is its host's business.
      if (view != this)
        view->setVisible(widget.Visible());
      break;
    case WidgetProperty::Enabled:
      view->setEnabled(widget.Enabled());
      break;
    case WidgetProperty::ToolTipText:
      view->setToolTip(qText(widget.ToolTipText()));
      break;
    case WidgetProperty::ForeColor:
    case WidgetProperty::BackColor:
      syncColors(widget);
      break;
    case WidgetProperty::Caption:
      if (auto* label = qobject_cast<QLabel*>(view))
        label->setText(qText(widget.caption()));
      else if (auto* button = qobject_cast<QAbstractButton*>(view))
        button->setText(qText(widget.caption()));
      else if (auto* frame = dynamic_cast<FrameBox*>(view))
        frame->setCaption(qText(widget.caption()));
      break;
    case WidgetProperty::Text:
      if (auto* box = dynamic_cast<TextBox*>(&widget)) {
        auto* edit = static_cast<QLineEdit*>(view);
        const QString value = qText(box->Text());
        if (edit->text() != value) {
          // A rewrite by the library during typing keeps the caret where
          // the person left it, as far as the new text reaches.
          const int caret = edit->cursorPosition();
          edit->setText(value);
          edit->setCursorPosition(std::min(caret, static_cast<int>(value.size())));
        }
      } else if (auto* combo = dynamic_cast<ComboBox*>(&widget)) {
        auto* list = static_cast<QComboBox*>(view);
        if (list->isEditable() && list->currentText() != qText(combo->Text()))
          list->setEditText(qText(combo->Text()));
      }
      break;
    case WidgetProperty::Value:
      if (auto* option = dynamic_cast<OptionButton*>(&widget))
        static_cast<QRadioButton*>(view)->setChecked(option->Value());
      else if (auto* check = dynamic_cast<CheckBox*>(&widget))
        static_cast<QCheckBox*>(view)->setCheckState(
            check->Value() == CheckBox::kChecked  ? Qt::Checked
            : check->Value() == CheckBox::kGrayed ? Qt::PartiallyChecked
                                                  : Qt::Unchecked);
      break;
    case WidgetProperty::List:
    case WidgetProperty::ListIndex:
      syncList(widget);
      break;
    case WidgetProperty::Style:
      if (auto* combo = dynamic_cast<ComboBox*>(&widget)) {
        auto* list = static_cast<QComboBox*>(view);
        const bool editable = combo->Style() == ComboBox::kDropdownCombo;
        if (list->isEditable() != editable) {
          list->setEditable(editable);
          connectComboEdits(list);
        }
        syncList(widget);
      } else if (auto* label = dynamic_cast<Label*>(&widget)) {
        const Qt::Alignment across = label->Alignment() == Label::kRightJustify ? Qt::AlignRight
                                     : label->Alignment() == Label::kCenter     ? Qt::AlignHCenter
                                                                                : Qt::AlignLeft;
        static_cast<QLabel*>(view)->setAlignment(across | Qt::AlignTop);
      } else if (auto* frame = dynamic_cast<Frame*>(&widget)) {
        static_cast<FrameBox*>(view)->setBordered(frame->BorderStyle() == Frame::kFixedSingle);
      }
      break;
    case WidgetProperty::Tag:
    case WidgetProperty::TabIndex:
    case WidgetProperty::Focus:
    case WidgetProperty::Controls:
      break;
  }
}

void FormView::syncGeometry(Widget& widget) {
  QWidget* view = counterpart(widget);
  if (view == nullptr)
    return;
  SurfaceRect rect = widget.surfaceRect();
  if (view == this) {
    rect.left = 0;
    rect.top = 0;
  } else if (widget.countsTwips()) {
    // Relative to the Frame's counterpart, which is the Qt parent.
    const SurfaceRect inside = widget.Container()->surfaceRect();
    rect.left -= inside.left;
    rect.top -= inside.top;
  }
  const QRect pixels(qRound(rect.left * mZoom), qRound(rect.top * mZoom),
                     qRound(rect.width * mZoom), qRound(rect.height * mZoom));
  // The form takes the size its user control has, whatever the layout
  // around it would give it.
  if (view == this)
    setFixedSize(pixels.size());
  else
    view->setGeometry(pixels);
  if (auto* label = dynamic_cast<CaptionLabel*>(view))
    label->setDesign(QSizeF(rect.width, rect.height), mZoom);
}

void FormView::syncColors(Widget& widget) {
  QWidget* view = counterpart(widget);
  QPalette colours = view->palette();
  const QColor fore = qColor(widget.ForeColor());
  const QColor back = qColor(widget.BackColor());
  for (QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
    colours.setColor(group, QPalette::Text, fore);
    colours.setColor(group, QPalette::WindowText, fore);
    colours.setColor(group, QPalette::ButtonText, fore);
    colours.setColor(group, QPalette::Base, back);
  }
  // A disabled input widget is greyed unless the rules gave it a colour.
  colours.setColor(
      QPalette::Disabled, QPalette::Base,
      widget.BackColor() == kColorWindowBackground ? qColor(kColorInactiveBorder) : back);
  view->setPalette(colours);
}

void FormView::syncList(Widget& widget) {
  auto* combo = dynamic_cast<ComboBox*>(&widget);
  auto* list = qobject_cast<QComboBox*>(counterpart(widget));
  if (combo == nullptr || list == nullptr)
    return;
  QStringList items;
  for (int16_t i = 0; i < combo->ListCount(); ++i) items << qText(combo->List(i));
  QStringList shown;
  for (int i = 0; i < list->count(); ++i) shown << list->itemText(i);
  if (shown != items) {
    list->clear();
    list->addItems(items);
  }
  if (list->currentIndex() != combo->ListIndex())
    list->setCurrentIndex(combo->ListIndex());
  if (list->isEditable() && list->currentText() != qText(combo->Text()))
    list->setEditText(qText(combo->Text()));
}

void FormView::connectComboEdits(QWidget* view) {
  auto* list = static_cast<QComboBox*>(view);
  QLineEdit* edit = list->lineEdit();
  if (edit == nullptr)
    return;
  connect(edit, &QLineEdit::textEdited, this, [this, list](const QString& value) {
    auto combo = std::dynamic_pointer_cast<ComboBox>(mirrored(list));
    if (!mSyncing && combo)
      perform(list, "typing", [&] { UserActions::edit(*combo, text(value)); });
  });
}

void FormView::syncFocus() {
  auto focused = Focus::current();
  QWidget* view = focused ? counterpart(*focused) : nullptr;
  if (view == nullptr || view == this) {
    // The focus is on none of the form's widgets: none of their
    // counterparts keeps Qt's.
    QWidget* held = QApplication::focusWidget();
    if (held != nullptr && held != this && holds(held)) {
      Syncing syncing(mSyncing);
      held->clearFocus();
    }
    return;
  }
  if (view->hasFocus())
    return;
  Syncing syncing(mSyncing);
  view->setFocus(Qt::OtherFocusReason);
}

// --- Forwarding ------------------------------------------------------------------

template <typename Action>
void FormView::perform(const QWidget* view, const char* what, Action&& action) {
  try {
    action();
    resync(view);
    return;
  } catch (const RuntimeError& error) {
    fail(std::string(what) + " was refused with " + std::to_string(error.Number()) + ": " +
         error.Description());
  } catch (const std::exception& error) {
    fail(std::string(what) + " failed: " + error.what());
  }
  resync(view);
}

void FormView::resync(const QWidget* view) {
  // The counterpart shows what the toolkit kept, not what Qt did on its
  // own: a radio button or check box toggles itself before it is clicked.
  if (auto widget = mirrored(view))
    syncAll(*widget);
  syncFocus();
}

void FormView::fail(const std::string& message) {
  if (onFailure)
    onFailure(message);
}

bool FormView::eventFilter(QObject* watched, QEvent* event) {
  auto* view = qobject_cast<QWidget*>(watched);
  if (view == nullptr || mSyncing)
    return QWidget::eventFilter(watched, event);
  switch (event->type()) {
    case QEvent::FocusIn: {
      // Only the person's choice moves the toolkit's focus: a window that
      // becomes active puts Qt's focus somewhere of its own accord.
      const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
      const bool chosen = reason == Qt::MouseFocusReason || reason == Qt::TabFocusReason ||
                          reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason;
      auto widget = mirrored(view);
      if (chosen && widget && Focus::current() != widget)
        perform(view, "taking the focus", [&] { UserActions::focus(*widget); });
      break;
    }
    case QEvent::MouseMove:
      mouseMoveAt(view, static_cast<QMouseEvent*>(event)->position());
      break;
    default:
      break;
  }
  return QWidget::eventFilter(watched, event);
}

void FormView::mouseMoveEvent(QMouseEvent* event) {
  mouseMoveAt(this, event->position());
  QWidget::mouseMoveEvent(event);
}

void FormView::mouseMoveAt(const QWidget* view, QPointF at) {
  const QPointF onForm = view == this ? at : QPointF(view->mapTo(this, at.toPoint()));
  const quint64 now = static_cast<quint64>(QDateTime::currentMSecsSinceEpoch());
  if (onForm == mLastMoveAt && now - mLastMoveTime < 50)
    return;
  mLastMoveAt = onForm;
  mLastMoveTime = now;
  auto control = root();
  if (!control)
    return;
  // The toolkit counts the form's own pixels, whatever the zoom.
  const float x = static_cast<float>(onForm.x() / mZoom);
  const float y = static_cast<float>(onForm.y() / mZoom);
  if (onPointerOver) {
    auto over = control->widgetAt(x, y);
    onPointerOver(over ? over : std::shared_ptr<Widget>(control));
  }
  perform(nullptr, "a mouse move", [&] { UserActions::moveMouseAt(*control, x, y); });
}

bool FormView::focusNextPrevChild(bool next) {
  // Qt moves the focus on by itself when the library hides or disables the
  // focused widget; the toolkit leaves its focus where it was, and so does
  // the window.
  if (mSyncing)
    return true;
  auto control = root();
  if (!control)
    return false;
  perform(nullptr, "Tab", [&] { UserActions::pressTab(*control, !next); });
  syncFocus();
  return true;
}

void FormView::dragEnterEvent(QDragEnterEvent* event) {
  if (event->mimeData()->hasText())
    event->acceptProposedAction();
}

void FormView::dragMoveEvent(QDragMoveEvent* event) {
  if (event->mimeData()->hasText())
    event->acceptProposedAction();
}

void FormView::dropEvent(QDropEvent* event) {
  auto control = root();
  if (!control || !event->mimeData()->hasText())
    return;
  const QPointF at = event->position() / mZoom;
  std::shared_ptr<Widget> target =
      control->widgetAt(static_cast<float>(at.x()), static_cast<float>(at.y()));
  if (!target)
    target = control;
  const std::string dropped = text(event->mimeData()->text());
  std::shared_ptr<DataObject> data = dropData ? dropData(dropped) : std::make_shared<DataObject>();
  perform(nullptr, "a drop", [&] { UserActions::drop(*target, data); });
  event->acceptProposedAction();
}

}  // namespace kelmora::qt
