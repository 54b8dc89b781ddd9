#include "qt/CaptionLabel.h"

#include <QFontMetricsF>
#include <QPainter>

#include "qt/FormFont.h"
#include "surface/Label.h"

namespace kelmora::qt {

CaptionLabel::CaptionLabel(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
}

void CaptionLabel::setDesign(QSizeF size, double zoom) {
  if (size == mDesign && zoom == mZoom)
    return;
  mDesign = size;
  mZoom = zoom;
  update();
}

std::vector<CaptionLayout::Line> CaptionLabel::shownLines() const {
  const QFontMetricsF metrics(FormFont::at(1.0, logicalDpiY()));
  const Qt::Alignment across = alignment() & Qt::AlignHorizontal_Mask;
  const int aligned = across & Qt::AlignRight     ? Label::kRightJustify
                      : across & Qt::AlignHCenter ? Label::kCenter
                                                  : Label::kLeftJustify;
  auto lines =
      CaptionLayout::lay(text().toStdString(), static_cast<float>(mDesign.width()), aligned,
                         [&](std::string_view piece) {
                           return static_cast<float>(metrics.horizontalAdvance(QString::fromUtf8(
                               piece.data(), static_cast<qsizetype>(piece.size()))));
                         });
  lines.resize(
      std::min(lines.size(), CaptionLayout::shownLines(static_cast<float>(mDesign.height()),
                                                       CaptionLayout::kFormLineHeight)));
  return lines;
}

void CaptionLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setClipRect(rect());
  painter.setPen(
      palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, foregroundRole()));
  const QFont design = FormFont::at(1.0, logicalDpiY());
  const QFontMetricsF metrics(design);
  painter.setFont(FormFont::at(mZoom, logicalDpiY()));
  const auto lines = shownLines();
  for (size_t i = 0; i < lines.size(); ++i) {
    const QString line = QString::fromStdString(lines[i].text);
    const double baseline =
        CaptionLayout::kFormLineHeight * static_cast<double>(i) + CaptionLayout::kFormAscent;
    if (mZoom == 1.0) {
      painter.drawText(QPointF(lines[i].x, baseline), line);
      continue;
    }
    // Each character where the design size puts it, scaled: the zoomed
    // font's own advances would make a line a little longer or shorter.
    double x = lines[i].x;
    for (qsizetype at = 0; at < line.size();) {
      const qsizetype length = line[at].isHighSurrogate() && at + 1 < line.size() ? 2 : 1;
      const QString character = line.mid(at, length);
      painter.drawText(QPointF(x * mZoom, baseline * mZoom), character);
      x += metrics.horizontalAdvance(character);
      at += length;
    }
  }
}

}  // namespace kelmora::qt
