#pragma once

#include <QWidget>

#include <array>

#include "gui/LogFolder.h"

class QCheckBox;
class QListWidget;
class QListWidgetItem;

namespace kelmora::tools {

// The window's live log: the folder's lines in a list, newest last, each
// with its category (kCategoryRole) and its detail as tooltip; failures in
// red. A check box per category shows or hides its lines; the mouse's are
// hidden at first, as every move over a field says so.
class LogView : public QWidget {
 public:
  static constexpr int kCategoryRole = Qt::UserRole;
  static constexpr int kIdRole = Qt::UserRole + 1;
  // The oldest lines go once there are more: the log is for watching.
  static constexpr int kMostLines = 5000;

  LogView();

  // Adds the line, or brings the line of that id up to date.
  void tell(const LogFolder::Line& line);
  void clear();
  QListWidget& list() const { return *mList; }

 private:
  QListWidgetItem* find(uint64_t id) const;
  bool shows(int category) const;
  void filter();

  QListWidget* mList = nullptr;
  std::array<QCheckBox*, LogFolder::kCategories> mFilters{};
};

}  // namespace kelmora::tools
