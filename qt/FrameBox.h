#pragma once

#include <QString>
#include <QWidget>

namespace kelmora::qt {

// The counterpart of a toolkit Frame: a plain container that clips what
// stands inside it, with a single border and its caption when it has one.
// Painted by hand because a group box always draws its frame.
class FrameBox : public QWidget {
 public:
  explicit FrameBox(QWidget* parent) : QWidget(parent) {}

  void setCaption(const QString& caption);
  void setBordered(bool bordered);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString mCaption;
  bool mBordered = false;
};

}  // namespace kelmora::qt
