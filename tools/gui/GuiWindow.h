#pragma once

#include <QMainWindow>

#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <string>

#include "gui/LogFolder.h"
#include "host/Kit.h"

class QDockWidget;
class QLabel;
class QScrollArea;

namespace kelmora {
class Widget;
}

namespace kelmora::qt {
class FormView;
}

namespace kelmora::tools {

class HostPanel;
class LogSink;
class LogView;
class ToolHost;

// The window of `kelmora gui`, an author's view of the host's form. The form
// takes the middle and zooms (View menu); on the left the host panel
// (HostPanel), whose calls go to the library as a host's would; below the
// live log, a line per thing the person or the panel did (LogFolder). Panel
// and log are docks that can be hidden; F6 and Shift+F6 move the focus
// between panel, form and log. References open from and save to JSON files
// of field keys (ReferenceFile); the title names the type and the file.
class GuiWindow : public QMainWindow {
 public:
  GuiWindow(ToolHost& host, LogSink& log);
  ~GuiWindow() override;
  GuiWindow(const GuiWindow&) = delete;
  GuiWindow& operator=(const GuiWindow&) = delete;

  qt::FormView& form() const { return *mForm; }
  HostPanel& panel() const { return *mPanel; }
  LogView& log() const { return *mLogView; }
  QScrollArea& formArea() const { return *mScroll; }

  // Shows the frame the panel names, as the panel's own changes do.
  void showChosenFrame();
  // The reference work behind the panel's buttons and the File menu, whose
  // dialogs only ask for the path. A file that cannot be read or written
  // changes nothing: the log and the status bar say why, and the answer is
  // false. A CSL-JSON file gives its item `item`, or its only item.
  bool openFile(const std::filesystem::path& path, const std::string& item = "");
  bool saveFile(const std::filesystem::path& path);
  void newReference();
  void loadExample();
  void reset();

  static constexpr double kZoomStep = 1.25;
  void setZoom(double factor);
  // The largest zoom at which the whole form fits the room it has.
  void fitToWindow();
  // F6: the focus to the next of panel, form and log that is shown.
  void focusNextRegion(bool backwards);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void buildMenus();
  template <typename Call>
  bool call(const char* name, Json args, Call&& body);
  template <typename Action>
  void guarded(const char* what, Action&& action);
  void refuse(const std::string& message);
  void status(const std::string& message);
  bool load(Record& record, int16_t option);
  void heard(const Json& event);
  // Where the person's actions begin and where the focus goes, for the log.
  void watch(QObject* watched, QEvent* event);
  LogFolder::Naming naming(const std::string& described) const;
  std::shared_ptr<Widget> findWidget(const std::string& described) const;
  std::shared_ptr<Widget> formWidgetOf(QWidget* view) const;
  void askOpen();
  void askSave();
  void retitle();
  // Names the rule row that last decided `widget`'s state, or that none
  // did; again for the widget already shown when given nothing.
  void inspect(const std::shared_ptr<Widget>& widget);
  void showZoom();
  QSize defaultSize() const;

  ToolHost& mHost;
  LogSink& mLog;
  LogFolder mFolder;
  HostPanel* mPanel = nullptr;
  qt::FormView* mForm = nullptr;
  QScrollArea* mScroll = nullptr;
  LogView* mLogView = nullptr;
  QDockWidget* mPanelDock = nullptr;
  QDockWidget* mLogDock = nullptr;
  // Why the field in focus or under the pointer stands as it does.
  QDockWidget* mWhyDock = nullptr;
  QLabel* mWhy = nullptr;
  std::weak_ptr<Widget> mInspected;
  QLabel* mZoom = nullptr;
  // The format family each reference type's rules were last set up for: a
  // type shown again under another family is told the format changed.
  std::map<int16_t, int32_t> mFamilyOf;
  // By type: the reference last loaded, over which the widgets are read,
  // and the file it came from or went to.
  std::map<int16_t, Record> mLoaded;
  std::map<int16_t, std::filesystem::path> mFileOf;
  // Whether Qt's focus was last on the form, so that leaving it is told.
  bool mFocusOnForm = false;
  // The widget of the form that last had the focus, which F6 goes back to.
  std::weak_ptr<Widget> mLastOnForm;
};

}  // namespace kelmora::tools
