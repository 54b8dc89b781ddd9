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
  // Advances as the font designs them, unhinted, so that a caption takes
  // the same width at every zoom and in the SVG picture.
  font.setHintingPreference(QFont::PreferNoHinting);
  font.setPointSizeF(kDesignPixels * zoom * 72.0 / (dpi > 0 ? dpi : 96));
  return font;
}

bool FormFont::isAvailable() {
  return QFontInfo(at(1.0, 96)).family() == family();
}

}  // namespace kelmora::qt
