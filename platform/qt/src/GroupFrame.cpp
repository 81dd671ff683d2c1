#include "GroupFrame.h"

#include <QPainter>

namespace skyframe {

namespace {

constexpr int c_nTitleIndent = 8;  // pixels
constexpr int c_nTitleMargin = 3;
constexpr double c_dCorner = 2.0;

}  // namespace

void CGroupFrame::paintEvent(QPaintEvent* /*pEvent*/) {
  QPainter painter(this);
  const int nTextHeight = fontMetrics().height();
  const int nTextWidth = fontMetrics().horizontalAdvance(title());
  const QRect text(c_nTitleIndent, 0, nTextWidth + 2 * c_nTitleMargin, nTextHeight);
  painter.setPen(palette().color(QPalette::Mid));
  painter.setRenderHint(QPainter::Antialiasing);
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5 * nTextHeight, -0.5, -0.5), c_dCorner, c_dCorner);
  painter.fillRect(text, palette().color(QPalette::Window));
  painter.setPen(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
  painter.drawText(text, Qt::AlignCenter | Qt::TextSingleLine, title());
}

}  // namespace skyframe
