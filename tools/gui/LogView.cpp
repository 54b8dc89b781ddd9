#include "gui/LogView.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>

namespace kelmora::tools {

namespace {

QString qText(const std::string& text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace

LogView::LogView() {
  mList = new QListWidget;
  mList->setObjectName(QStringLiteral("log"));
  mList->setUniformItemSizes(true);
  mList->setSelectionMode(QAbstractItemView::ExtendedSelection);
  QFont fixed(QStringLiteral("DejaVu Sans Mono"));
  fixed.setStyleHint(QFont::Monospace);
  fixed.setPixelSize(11);
  mList->setFont(fixed);

  auto* filters = new QHBoxLayout;
  filters->addWidget(new QLabel(QStringLiteral("Show:")));
  for (int category = 0; category < LogFolder::kCategories; ++category) {
    const auto which = static_cast<LogFolder::Category>(category);
    auto* box = new QCheckBox(QString::fromUtf8(LogFolder::caption(which)));
    QString name = QString::fromUtf8(LogFolder::caption(which)).remove(QLatin1Char(' '));
    box->setObjectName(QStringLiteral("filter") + name);
    box->setChecked(which != LogFolder::Category::Mouse);
    connect(box, &QCheckBox::toggled, this, [this] { filter(); });
    mFilters[static_cast<size_t>(category)] = box;
    filters->addWidget(box);
  }
  filters->addStretch(1);
  auto* clearButton = new QPushButton(QStringLiteral("Clear"));
  clearButton->setObjectName(QStringLiteral("clearLog"));
  connect(clearButton, &QPushButton::clicked, this, [this] { clear(); });
  filters->addWidget(clearButton);

  auto* whole = new QVBoxLayout(this);
  whole->setContentsMargins(4, 2, 4, 4);
  whole->addLayout(filters);
  whole->addWidget(mList, 1);
  setFocusProxy(mList);
}

bool LogView::shows(int category) const {
  return category < 0 || category >= LogFolder::kCategories ||
         mFilters[static_cast<size_t>(category)]->isChecked();
}

QListWidgetItem* LogView::find(uint64_t id) const {
  // A line that changes is one of the last few.
  for (int row = mList->count() - 1; row >= 0; --row) {
    QListWidgetItem* item = mList->item(row);
    if (item->data(kIdRole).toULongLong() == id)
      return item;
  }
  return nullptr;
}

void LogView::tell(const LogFolder::Line& line) {
  QScrollBar* scroll = mList->verticalScrollBar();
  const bool atEnd = scroll->value() == scroll->maximum();
  QListWidgetItem* item = find(line.id);
  if (item == nullptr) {
    item = new QListWidgetItem(mList);
    item->setData(kIdRole, QVariant::fromValue<qulonglong>(line.id));
    if (mList->count() > kMostLines) {
      for (int gone = 0; gone < kMostLines / 5; ++gone) delete mList->takeItem(0);
    }
  }
  const int category = static_cast<int>(line.category);
  item->setText(qText(line.text));
  item->setToolTip(qText(line.detail));
  item->setData(kCategoryRole, category);
  if (line.category == LogFolder::Category::Failure)
    item->setForeground(QColor(0xC0, 0x00, 0x00));
  item->setHidden(!shows(category));
  if (atEnd)
    mList->scrollToBottom();
}

void LogView::clear() {
  mList->clear();
}

void LogView::filter() {
  for (int row = 0; row < mList->count(); ++row) {
    QListWidgetItem* item = mList->item(row);
    item->setHidden(!shows(item->data(kCategoryRole).toInt()));
  }
}

}  // namespace kelmora::tools
