#pragma once

#include <QFont>
#include <QRect>
#include <QString>
#include <string_view>

#include "skyframe/platform/DialogRules.h"

namespace skyframe {

/// Font of the module's windows: 10 points times the scale, in the first installed family with Chinese glyphs.
QFont FormDialogFont(double dScale = 1.0);

CDialogUnits FormDialogUnits(const QFont& font);

inline QRect ToQt(const DialogRect& rect) { return {rect.nX, rect.nY, rect.nWidth, rect.nHeight}; }

inline QString ToQt(std::string_view strText) {
  return QString::fromUtf8(strText.data(), static_cast<qsizetype>(strText.size()));
}

}  // namespace skyframe
