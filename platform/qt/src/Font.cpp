#include "skyframe/qt/Font.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <algorithm>
#include <array>

namespace skyframe {

namespace {

constexpr double c_dPointSize = 10.0;
constexpr double c_dMaxHeight = 1.3;  // letter heights; fonts for many scripts claim more, which would stretch dialogs
constexpr std::array<std::string_view, 8> c_strFamilies = {"SimSun",
                                                           "Noto Sans CJK SC",
                                                           "Source Han Sans SC",
                                                           "WenQuanYi Micro Hei",
                                                           "WenQuanYi Zen Hei",
                                                           "Microsoft YaHei UI",
                                                           "PingFang SC",
                                                           "Noto Sans SC"};
constexpr std::string_view c_strLetters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";

}  // namespace

QFont FormDialogFont(double dScale) {
  QFont font;
  for (const std::string_view strFamily : c_strFamilies) {
    if (!QFontDatabase::hasFamily(ToQt(strFamily))) continue;
    font.setFamily(ToQt(strFamily));
    break;
  }
  font.setPointSizeF(c_dPointSize * dScale);
  return font;
}

CDialogUnits::CDialogUnits(const QFont& font) {
  const QFontMetricsF metrics(font);
  m_dX = metrics.horizontalAdvance(ToQt(c_strLetters)) / static_cast<double>(c_strLetters.size()) / 4.0;
  m_dY = std::min(metrics.height(), c_dMaxHeight * QFontInfo(font).pixelSize()) / 8.0;
}

QRect CDialogUnits::ToPixels(const DialogRect& rect) const {
  const auto pixels = [](int nUnits, double dUnit) { return qRound(nUnits * dUnit); };
  const QPoint topLeft(pixels(rect.nX, m_dX), pixels(rect.nY, m_dY));
  const QPoint end(pixels(rect.nX + rect.nWidth, m_dX), pixels(rect.nY + rect.nHeight, m_dY));
  return {topLeft, end - QPoint(1, 1)};
}

}  // namespace skyframe
