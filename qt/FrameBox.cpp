#include "qt/FrameBox.h"

#include <QFontMetrics>
#include <QPainter>

namespace kelmora::qt {

void FrameBox::setCaption(const QString& caption) {
  mCaption = caption;
  update();
}

void FrameBox::setBordered(bool bordered) {
  mBordered = bordered;
  update();
}

void FrameBox::paintEvent(QPaintEvent*) {
  if (!mBordered)
    return;
  QPainter painter(this);
  const QFontMetrics metrics(font());
  const int middle = metrics.height() / 2;
  painter.setPen(QColor(0xa0, 0xa0, 0xa0));
  painter.drawRect(0, middle, width() - 1, height() - middle - 1);
  if (mCaption.isEmpty())
    return;
  const int textWidth = metrics.horizontalAdvance(mCaption);
  painter.fillRect(6, 0, textWidth + 4, metrics.height(), palette().window());
  painter.setPen(
      palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
  painter.drawText(8, metrics.ascent(), mCaption);
}

}  // namespace kelmora::qt
