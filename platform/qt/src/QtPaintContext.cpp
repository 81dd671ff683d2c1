#include "skyframe/qt/QtPaintContext.h"

#include <QFontMetricsF>
#include <QPolygonF>

#include "skyframe/qt/Font.h"

namespace skyframe {

namespace {

QColor ToQt(Colour colour) { return {colour.nRed, colour.nGreen, colour.nBlue}; }

QPolygonF ToQt(std::span<const PaintPoint> points) {
  QPolygonF line;
  line.reserve(static_cast<qsizetype>(points.size()));
  for (const PaintPoint& point : points) line.append({point.dX, point.dY});
  return line;
}

/// From a text's position to the left end of its baseline.
QPointF GetTextShift(const QFontMetricsF& metrics, const QString& strLine, HorizontalAlign horizontal,
                     VerticalAlign vertical) {
  QPointF shift(0.0, GetBaselineShift(vertical, metrics.ascent(), metrics.descent()));
  if (horizontal == HorizontalAlign::Centre) shift.setX(-0.5 * metrics.horizontalAdvance(strLine));
  if (horizontal == HorizontalAlign::Right) shift.setX(-metrics.horizontalAdvance(strLine));
  return shift;
}

}  // namespace

CQtPaintContext::CQtPaintContext(QPainter& painter) : m_painter(painter), m_font(FormDialogFont()) {}

void CQtPaintContext::DrawRectangle(PaintPoint topLeft, double dWidth, double dHeight) {
  m_painter.setPen(FormPen());
  m_painter.setBrush(ToQt(GetState().brush));
  m_painter.drawRect(QRectF(topLeft.dX, topLeft.dY, dWidth, dHeight));
}

void CQtPaintContext::DrawPolyline(std::span<const PaintPoint> points) {
  m_painter.setPen(FormPen());
  const QPolygonF line = ToQt(points);
  if (line.size() == 2) return m_painter.drawLine(line[0], line[1]);  // faster than a path
  m_painter.drawPolyline(line);
}

void CQtPaintContext::DrawPolygon(std::span<const PaintPoint> points) {
  m_painter.setPen(FormPen());
  m_painter.setBrush(ToQt(GetState().brush));
  m_painter.drawPolygon(ToQt(points));
}

void CQtPaintContext::DrawText(PaintPoint at, std::string_view strText, HorizontalAlign horizontal,
                               VerticalAlign vertical) {
  m_font.setPixelSize(qMax(1, qRound(GetState().dTextHeight)));
  const QString strLine = skyframe::ToQt(strText);
  m_painter.setFont(m_font);
  m_painter.setPen(ToQt(GetState().pen));
  m_painter.drawText(QPointF(at.dX, at.dY) + GetTextShift(QFontMetricsF(m_font), strLine, horizontal, vertical),
                     strLine);
}

QPen CQtPaintContext::FormPen() const {
  QPen pen(ToQt(GetState().pen), GetState().dPenWidth);
  pen.setJoinStyle(Qt::MiterJoin);
  pen.setCosmetic(true);  // lines stay sharp where the painter enlarges
  return pen;
}

}  // namespace skyframe
