#pragma once

#include <QPointF>
#include <QPointer>
#include <QWidget>

#include <functional>
#include <memory>
#include <string>
#include <unordered_map>

#include "surface/PropertyObserver.h"

class QMimeData;

namespace kelmora {
class DataObject;
class UserControl;
class Widget;
}  // namespace kelmora

namespace kelmora::qt {

// A Qt widget that mirrors one user control of the toolkit, nested user
// controls included. Each toolkit widget gets its Qt counterpart at its
// rectangle in pixels: TextBox a line edit, ComboBox a combo box, Label a
// label, OptionButton a radio button, CheckBox a check box, Frame a
// FrameBox that clips its contents, a nested user control a plain widget.
// Every property change the toolkit reports is reflected when it happens,
// also while the library reacts to the person's own typing.
//
// What the person does goes back through the toolkit's user actions only,
// so that the library sees the events of the headless toolkit: an edit, a
// list pick, a click on an option or check box, focus by mouse or Tab (in
// the form's tab order), focus leaving for the rest of the window, mouse
// moves and text dropped from another program. An action the toolkit
// refuses (focus on a hidden or disabled widget) or that fails leaves the
// counterpart as the toolkit has it and is told to onFailure.
//
// The view holds the user control weakly: once it is gone the view stays
// as it was and forwards nothing.
class FormView : public QWidget, private PropertyObserver {
 public:
  explicit FormView(UserControl& root, QWidget* parent = nullptr);
  ~FormView() override;
  FormView(const FormView&) = delete;
  FormView& operator=(const FormView&) = delete;

  // Scales the form, geometry and font together: 1 is the design size, a
  // pixel for each 15 twips. Factors are held between kMinZoom and kMaxZoom.
  void setZoom(double factor);
  double zoom() const { return mZoom; }
  // The form's size at zoom 1.
  QSize designSize() const;
  static constexpr double kMinZoom = 0.25;
  static constexpr double kMaxZoom = 8.0;

  // The Qt counterpart of a toolkit widget; nullptr when it has none.
  QWidget* counterpart(const Widget& widget) const;
  // The toolkit widget a counterpart mirrors; nothing for other widgets.
  std::shared_ptr<Widget> mirrored(const QWidget* view) const;

  // Told, as one line, of every action the toolkit refused or that failed.
  std::function<void(const std::string&)> onFailure;
  // Told of the toolkit widget under the pointer as it moves over the form
  // (the form's user control where no widget stands).
  std::function<void(const std::shared_ptr<Widget>&)> onPointerOver;
  // Makes the drag data for text dropped from another program. Without it
  // the drop carries the toolkit's empty data object.
  std::function<std::shared_ptr<DataObject>(const std::string&)> dropData;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  bool focusNextPrevChild(bool next) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;

 private:
  void propertyChanged(Widget& widget, WidgetProperty property) override;

  // Gives every widget of `control` a counterpart and lets go of those of
  // widgets that left it.
  void reconcile(UserControl& control);
  QWidget* create(Widget& widget);
  void release(const Widget* widget);
  void sync(Widget& widget, WidgetProperty property);
  void syncAll(Widget& widget);
  void syncGeometry(Widget& widget);
  void syncColors(Widget& widget);
  void syncList(Widget& widget);
  void syncFocus();
  void connectComboEdits(QWidget* view);

  // Runs a user action; a failure is told and the counterpart put back as
  // the toolkit has it.
  template <typename Action>
  void perform(const QWidget* view, const char* what, Action&& action);
  void resync(const QWidget* view);
  void fail(const std::string& message);
  void mouseMoveAt(const QWidget* view, QPointF at);
  std::shared_ptr<UserControl> root() const;
  // True for the form, its counterparts and the popups they open.
  bool holds(const QWidget* widget) const;

  void applyFont();
  // Gives every field the accessible name an author knows it by and its
  // tooltip as description.
  void refreshNames();

  std::weak_ptr<Widget> mRoot;
  double mZoom = 1.0;
  QMetaObject::Connection mFocusChanges;
  // Counterparts by toolkit widget, and the other way round.
  std::unordered_map<const Widget*, QPointer<QWidget>> mViews;
  std::unordered_map<const QWidget*, std::weak_ptr<Widget>> mWidgets;
  // Set while the view writes its counterparts, so that the Qt signals and
  // focus events this causes are not taken for the person's doing.
  bool mSyncing = false;
  // The mouse move last forwarded: Qt hands one move on to the parent of a
  // widget that ignores it, and the toolkit must see it once.
  QPointF mLastMoveAt{-1, -1};
  quint64 mLastMoveTime = 0;
};

}  // namespace kelmora::qt
