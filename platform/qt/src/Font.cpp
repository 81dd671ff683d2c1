#include "skyframe/qt/Font.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>

namespace skyframe {

QFont FormDialogFont(double dScale) {
  QFont font;
  for (const std::string_view strFamily : c_strDialogFonts) {
    if (!QFontDatabase::hasFamily(ToQt(strFamily))) continue;
    font.setFamily(ToQt(strFamily));
    break;
  }
  font.setPointSizeF(c_dDialogPoints * dScale);
  return font;
}

CDialogUnits FormDialogUnits(const QFont& font) {
  const QFontMetricsF metrics(font);
  const double dLettersWidth = metrics.horizontalAdvance(ToQt(CDialogUnits::c_strLetters));
  return {dLettersWidth, metrics.height(), static_cast<double>(QFontInfo(font).pixelSize())};
}

}  // namespace skyframe
