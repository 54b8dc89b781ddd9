#include "qt/FormFont.h"

#include <QFontDatabase>
#include <QFontInfo>

namespace kelmora::qt {

namespace {

// Where Debian's fonts-wine installs Wine's metric-compatible Tahoma.
constexpr const char* kFontFiles[] = {"/usr/share/wine/fonts/tahoma.ttf",
                                      "/usr/share/wine/fonts/tahomabd.ttf"};

void addOnce() {
  static const bool added = [] {
    if (!QFontDatabase::hasFamily(FormFont::family())) {
      for (const char* file : kFontFiles)
        QFontDatabase::addApplicationFont(QString::fromUtf8(file));
    }
    return true;
  }();
  (void)added;
}

}  // namespace

QString FormFont::family() {
  return QStringLiteral("Tahoma");
}

QFont FormFont::at(double zoom, int dpi) {
  addOnce();
  QFont font(family());
  font.setStyleHint(QFont::SansSerif);
  font.setKerning(false);
  if (zoom == 1.0) {
    // At the design size the font draws from its own 11-pixel bitmaps, with
    // the whole-pixel advances the forms were laid out for; Qt takes them
    // only for hinted text that is not smoothed.
    font.setHintingPreference(QFont::PreferFullHinting);
    font.setStyleStrategy(QFont::NoAntialias);
  } else {
    font.setHintingPreference(QFont::PreferNoHinting);
  }
  font.setPointSizeF(kDesignPixels * zoom * 72.0 / (dpi > 0 ? dpi : 96));
  return font;
}

bool FormFont::isAvailable() {
  return QFontInfo(at(1.0, 96)).family() == family();
}

}  // namespace kelmora::qt
