#pragma once

#include <QFont>
#include <QString>

namespace kelmora::qt {

// The forms' own font: Tahoma at 8.25 points, 11 pixels at the design
// density of 15 twips a pixel. Where fontconfig does not know it, the copy
// that Debian's fonts-wine puts outside fontconfig's folders is added to
// the application's fonts on first use.
class FormFont {
 public:
  static constexpr double kDesignPixels = 11.0;

  static QString family();
  // The font at `zoom` times the design size, for a screen of `dpi`
  // logical dots per inch: at zoom 1 the font's bitmaps, as the forms were
  // designed; otherwise smoothed outlines at a fractional size, so that a
  // scaled form keeps its proportions.
  static QFont at(double zoom, int dpi);
  // True when Tahoma itself is what Qt draws with.
  static bool isAvailable();
};

}  // namespace kelmora::qt
