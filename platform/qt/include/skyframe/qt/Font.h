#pragma once

#include <QFont>
#include <QRect>
#include <QString>
#include <string_view>

#include "skyframe/platform/Dialog.h"

namespace skyframe {

/// Font of the module's windows: 10 points times the scale, in the first installed family with Chinese glyphs.
QFont FormDialogFont(double dScale = 1.0);

/// Converts dialog units into pixels for one font.
class CDialogUnits {
 public:
  explicit CDialogUnits(const QFont& font);

  [[nodiscard]] QRect ToPixels(const DialogRect& rect) const;

 private:
  double m_dX;  ///< pixels a unit
  double m_dY;
};

inline QString ToQt(std::string_view strText) {
  return QString::fromUtf8(strText.data(), static_cast<qsizetype>(strText.size()));
}

}  // namespace skyframe
