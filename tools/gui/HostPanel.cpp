#include "gui/HostPanel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QVBoxLayout>

#include <algorithm>

namespace kelmora::tools {

namespace {

constexpr int16_t kNonPeriodical = 0;
constexpr int16_t kPeriodical = 1;

constexpr HostPanel::ReferenceType kTypes[] = {
    {"Periodical", kPeriodical, "demo-periodical.json"},
    {"NonPeriodical", kNonPeriodical, "demo-nonperiodical.json"},
    {"Esource", 4, "demo-esource.json"},
};

void call(const std::function<void()>& handler) {
  if (handler)
    handler();
}

}  // namespace

std::span<const HostPanel::ReferenceType> HostPanel::types() {
  return kTypes;
}

const char* HostPanel::captionOf(int16_t whichType) {
  for (const auto& type : kTypes) {
    if (type.whichType == whichType)
      return type.caption;
  }
  return "";
}

HostPanel::HostPanel() {
  mType = new QComboBox;
  for (const auto& type : kTypes) mType->addItem(QString::fromUtf8(type.caption));
  // The option buttons of each frame, in the order of their indices.
  mSubtype = new QComboBox;
  mSubtype->addItems(
      {QStringLiteral("Journal"), QStringLiteral("Magazine"), QStringLiteral("Newspaper")});
  mBookOrWebsite = new QComboBox;
  mBookOrWebsite->addItems({QStringLiteral("Book"), QStringLiteral("Website")});
  mFamily = new QSpinBox;
  mFamily->setRange(0, 3);
  mShowAll = new QCheckBox(QStringLiteral("Show all fields"));
  mExample = new QPushButton(QStringLiteral("Load an example reference"));
  auto* fresh = new QPushButton(QStringLiteral("New reference"));
  auto* reset = new QPushButton(QStringLiteral("Reset"));
  auto* open = new QPushButton(QStringLiteral("Open…"));
  auto* save = new QPushButton(QStringLiteral("Save…"));
  reset->setToolTip(QStringLiteral(
      "Reset the frame of the type: text boxes back to window-text colour, the fields laid out "
      "again for the kind shown, with or without all fields"));
  fresh->setToolTip(QStringLiteral("An empty reference of the type, with its defaults"));

  // Named, so that a test or an accessibility tool finds them.
  mType->setObjectName(QStringLiteral("type"));
  mSubtype->setObjectName(QStringLiteral("subtype"));
  mBookOrWebsite->setObjectName(QStringLiteral("bookOrWebsite"));
  mFamily->setObjectName(QStringLiteral("family"));
  mShowAll->setObjectName(QStringLiteral("showAll"));
  mExample->setObjectName(QStringLiteral("example"));
  fresh->setObjectName(QStringLiteral("new"));
  reset->setObjectName(QStringLiteral("reset"));
  open->setObjectName(QStringLiteral("open"));
  save->setObjectName(QStringLiteral("save"));

  auto* choices = new QFormLayout;
  choices->addRow(QStringLiteral("Reference &type"), mType);
  choices->addRow(QStringLiteral("&Periodical"), mSubtype);
  choices->addRow(QStringLiteral("&Book or website"), mBookOrWebsite);
  choices->addRow(QStringLiteral("Format fa&mily"), mFamily);
  choices->addRow(QString(), mShowAll);
  auto* buttons = new QGridLayout;
  buttons->addWidget(mExample, 0, 0, 1, 2);
  buttons->addWidget(fresh, 1, 0);
  buttons->addWidget(reset, 1, 1);
  buttons->addWidget(open, 2, 0);
  buttons->addWidget(save, 2, 1);
  auto* whole = new QVBoxLayout(this);
  whole->addLayout(choices);
  whole->addLayout(buttons);
  whole->addStretch(1);

  auto chosen = [this] {
    enableKinds();
    call(onChoice);
  };
  connect(mType, &QComboBox::activated, this, chosen);
  connect(mSubtype, &QComboBox::activated, this, chosen);
  connect(mBookOrWebsite, &QComboBox::activated, this, chosen);
  connect(mFamily, &QSpinBox::valueChanged, this, chosen);
  connect(mShowAll, &QCheckBox::clicked, this, chosen);
  connect(mExample, &QPushButton::clicked, this, [this] { call(onExample); });
  connect(fresh, &QPushButton::clicked, this, [this] { call(onNew); });
  connect(reset, &QPushButton::clicked, this, [this] { call(onReset); });
  connect(open, &QPushButton::clicked, this, [this] { call(onOpen); });
  connect(save, &QPushButton::clicked, this, [this] { call(onSave); });
  enableKinds();
}

const HostPanel::ReferenceType& HostPanel::chosen() const {
  return kTypes[std::clamp(mType->currentIndex(), 0, static_cast<int>(std::size(kTypes)) - 1)];
}

int16_t HostPanel::whichType() const {
  return chosen().whichType;
}

int16_t HostPanel::option() const {
  switch (whichType()) {
    case kPeriodical:
      return static_cast<int16_t>(mSubtype->currentIndex());
    case kNonPeriodical:
      return static_cast<int16_t>(mBookOrWebsite->currentIndex());
    default:
      return 0;
  }
}

std::string HostPanel::kind() const {
  switch (whichType()) {
    case kPeriodical:
      return mSubtype->currentText().toStdString();
    case kNonPeriodical:
      return mBookOrWebsite->currentText().toStdString();
    default:
      return {};
  }
}

int32_t HostPanel::family() const {
  return mFamily->value();
}

bool HostPanel::showAll() const {
  return mShowAll->isChecked();
}

void HostPanel::selectType(int16_t whichType) {
  for (size_t i = 0; i < std::size(kTypes); ++i) {
    if (kTypes[i].whichType == whichType) {
      const QSignalBlocker quiet(mType);
      mType->setCurrentIndex(static_cast<int>(i));
    }
  }
  enableKinds();
}

void HostPanel::follow(int16_t whichType, int16_t option) {
  QComboBox* kinds = whichType == kPeriodical      ? mSubtype
                     : whichType == kNonPeriodical ? mBookOrWebsite
                                                   : nullptr;
  if (kinds == nullptr || option < 0 || option >= kinds->count())
    return;
  const QSignalBlocker quiet(kinds);
  kinds->setCurrentIndex(option);
}

void HostPanel::followFamily(int32_t family) {
  if (family < mFamily->minimum() || family > mFamily->maximum())
    return;
  const QSignalBlocker quiet(mFamily);
  mFamily->setValue(family);
}

void HostPanel::followShowAll(bool showAll) {
  const QSignalBlocker quiet(mShowAll);
  mShowAll->setChecked(showAll);
}

void HostPanel::exampleAvailable(bool available) {
  mExample->setEnabled(available);
}

void HostPanel::enableKinds() {
  mSubtype->setEnabled(whichType() == kPeriodical);
  mBookOrWebsite->setEnabled(whichType() == kNonPeriodical);
}

}  // namespace kelmora::tools
