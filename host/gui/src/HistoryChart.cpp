#include "skyframe/gui/HistoryChart.h"

#include <QFontInfo>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <utility>

#include "skyframe/qt/QtPaintContext.h"

namespace skyframe::gui {

namespace {

constexpr double c_dTextHeight = 13.0;  // of the picture, pixels
constexpr double c_dZoomPerNotch = 1.25;
constexpr double c_dNotch = 120.0;         // wheel units
constexpr double c_dLeastBand = 6.0;       // pixels; less is a click, or a frame that leaves the values as they are
constexpr double c_dFewestSteps = 4.0;     // that a chart shows
constexpr double c_dLeastValues = 1.0e-6;  // part of all values that a chart shows
const QColor c_bandEdge(0x1f, 0x5f, 0xb4);
const QColor c_bandGround(0x1f, 0x5f, 0xb4, 40);

/// The range about a point of it, so many times as wide.
host::ChartRange Zoom(const host::Axis& axis, double dAt, double dFactor) {
  return {dAt + dFactor * (axis.dLow - dAt), dAt + dFactor * (axis.dHigh - dAt)};
}

}  // namespace

CHistoryChart::CHistoryChart(QWidget* pParent) : QWidget(pParent) {
  setObjectName(QStringLiteral("history_chart"));
  setMinimumSize(220, 90);
}

QSize CHistoryChart::sizeHint() const { return {640, 220}; }

void CHistoryChart::Connect(std::function<void(double)> onTime, std::function<void(TimeRange)> onTimeRange) {
  m_onTime = std::move(onTime);
  m_onTimeRange = std::move(onTimeRange);
}

void CHistoryChart::SetPicture(host::HistoryPicture picture) {
  picture.time = m_picture.time;
  picture.cursor = m_picture.cursor;
  m_picture = std::move(picture);
  update();
}

void CHistoryChart::SetCursor(double t) {
  m_picture.cursor = t;
  update();
}

void CHistoryChart::SetTimeRange(TimeRange range) {
  m_picture.time = range;
  update();
}

double CHistoryChart::GetScale() const { return QFontInfo(font()).pixelSize() / c_dTextHeight; }

host::PictureSize CHistoryChart::GetSheet() const {
  return {static_cast<int>(width() / GetScale()), static_cast<int>(height() / GetScale())};
}

host::CChartFrame CHistoryChart::FormFrame() const { return host::FormHistoryFrame(m_picture, GetSheet()); }

host::CChartFrame CHistoryChart::FormWholeFrame() const {
  host::HistoryPicture whole = m_picture;
  whole.time.reset();
  whole.values.reset();
  return host::FormHistoryFrame(whole, GetSheet());
}

PaintPoint CHistoryChart::FindData(QPointF at) const {
  return FormFrame().Unmap({at.x() / GetScale(), at.y() / GetScale()});
}

void CHistoryChart::paintEvent(QPaintEvent* /*pEvent*/) {
  QPainter painter(this);
  painter.fillRect(rect(), Qt::white);
  if (m_picture.curves.empty()) return;
  painter.setRenderHint(QPainter::Antialiasing);
  painter.save();
  painter.scale(GetScale(), GetScale());
  {
    CQtPaintContext paint(painter);
    host::PaintHistoryChart(paint, m_picture, GetSheet());
  }
  painter.restore();
  if (!m_bDrawsBand || !IsBand()) return;
  painter.setPen(c_bandEdge);
  painter.setBrush(c_bandGround);
  painter.drawRect(QRectF(m_pressed, m_mouse).normalized());
}

bool CHistoryChart::IsBand() const { return std::abs(m_mouse.x() - m_pressed.x()) > c_dLeastBand; }

void CHistoryChart::mousePressEvent(QMouseEvent* pEvent) {
  m_pressed = m_mouse = pEvent->position();
  m_bDrawsBand = pEvent->button() == Qt::LeftButton;
}

void CHistoryChart::mouseMoveEvent(QMouseEvent* pEvent) {
  const QPointF before = std::exchange(m_mouse, pEvent->position());
  if ((pEvent->buttons() & (Qt::RightButton | Qt::MiddleButton)) != 0) Pan(before, m_mouse);
  update();
}

void CHistoryChart::mouseReleaseEvent(QMouseEvent* pEvent) {
  m_mouse = pEvent->position();
  if (!std::exchange(m_bDrawsBand, false) || m_picture.curves.empty()) return;
  if (IsBand()) {
    ZoomToBand();
  } else {
    m_onTime(FindData(m_mouse).dX);
  }
  update();
}

void CHistoryChart::mouseDoubleClickEvent(QMouseEvent* /*pEvent*/) {
  m_picture.values.reset();
  m_onTimeRange(std::nullopt);
}

void CHistoryChart::ZoomToBand() {
  const PaintPoint a = FindData(m_pressed);
  const PaintPoint b = FindData(m_mouse);
  if (std::abs(m_mouse.y() - m_pressed.y()) > c_dLeastBand) SetValueRange(std::min(a.dY, b.dY), std::max(a.dY, b.dY));
  TellTimeRange(std::min(a.dX, b.dX), std::max(a.dX, b.dX));
}

void CHistoryChart::Pan(QPointF from, QPointF to) {
  if (m_picture.curves.empty()) return;
  const host::CChartFrame frame = FormFrame();
  const PaintPoint a = FindData(from);
  const PaintPoint b = FindData(to);
  if (m_picture.values) SetValueRange(frame.GetY().dLow + a.dY - b.dY, frame.GetY().dHigh + a.dY - b.dY);
  if (m_picture.time) TellTimeRange(frame.GetX().dLow + a.dX - b.dX, frame.GetX().dHigh + a.dX - b.dX);
}

void CHistoryChart::wheelEvent(QWheelEvent* pEvent) {
  if (m_picture.curves.empty()) return;
  const host::CChartFrame frame = FormFrame();
  const PaintPoint at = FindData(pEvent->position());
  const double dFactor = std::pow(c_dZoomPerNotch, -pEvent->angleDelta().y() / c_dNotch);
  if ((pEvent->modifiers() & Qt::ControlModifier) != 0) {
    const host::ChartRange range = Zoom(frame.GetY(), at.dY, dFactor);
    SetValueRange(range.dLow, range.dHigh);
  } else {
    const host::ChartRange range = Zoom(frame.GetX(), at.dX, dFactor);
    TellTimeRange(range.dLow, range.dHigh);
  }
  pEvent->accept();
}

void CHistoryChart::TellTimeRange(double dLow, double dHigh) {
  const host::Axis axis = FormWholeFrame().GetX();
  if (dHigh - dLow < c_dFewestSteps * m_picture.dTimeStep) return;
  if (dHigh - dLow >= axis.dHigh - axis.dLow) return m_onTimeRange(std::nullopt);
  // Keeps the width and stays within all of the time.
  const double dShift = std::max(axis.dLow - dLow, 0.0) - std::max(dHigh - axis.dHigh, 0.0);
  m_onTimeRange(host::ChartRange{dLow + dShift, dHigh + dShift});
}

void CHistoryChart::SetValueRange(double dLow, double dHigh) {
  const host::Axis axis = FormWholeFrame().GetY();
  const double dAll = axis.dHigh - axis.dLow;
  if (dHigh - dLow < c_dLeastValues * dAll) return;
  m_picture.values.reset();
  if (dHigh - dLow < dAll) m_picture.values = host::ChartRange{dLow, dHigh};
  update();
}

}  // namespace skyframe::gui
