#pragma once

#include <QLabel>

#include <vector>

#include "surface/CaptionLayout.h"

namespace kelmora::qt {

// The counterpart of a toolkit Label. It lays its caption out as the
// platform's labels do (broken at spaces, clipped below, never cut at its
// start) in the forms' font at the design size, and draws those very lines
// at the form's zoom, so that a caption breaks alike at every zoom. Its
// text stays the QLabel's, for accessibility and tests.
class CaptionLabel : public QLabel {
 public:
  explicit CaptionLabel(QWidget* parent);

  // The label's size at zoom 1 and the zoom it is drawn at.
  void setDesign(QSizeF size, double zoom);
  // The lines that show, measured with Qt's metrics of the forms' font at
  // the design size, in design pixels from the label's corner.
  std::vector<CaptionLayout::Line> shownLines() const;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QSizeF mDesign;
  double mZoom = 1.0;
};

}  // namespace kelmora::qt
