#include "skyframe/gui/StructureView.h"

#include <QFontInfo>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <cmath>
#include <numbers>
#include <utility>

#include "ShapeTitle.h"
#include "skyframe/job/Text.h"
#include "skyframe/platform/NumberText.h"
#include "skyframe/qt/QtPaintContext.h"
#include "skyframe/scene/BentMember.h"
#include "texts.h"

namespace skyframe::gui {

namespace {

constexpr double c_dTurnPerPixel = 0.4;  // degrees
constexpr double c_dZoomPerNotch = 1.15;
constexpr double c_dNotch = 120.0;              // wheel units
constexpr int c_nFramePeriod = 33;              // ms
constexpr double c_dSwingPeriod = 2.0;          // s
constexpr std::size_t c_nSmoothMembers = 4000;  // beyond, lines are straight and not smoothed
constexpr PaintPoint c_caption{12.0, 10.0};
constexpr double c_dAxesMargin = 52.0;  // pixels

constexpr Colour c_ground{252, 252, 250};
constexpr Colour c_near{30, 40, 60};
constexpr Colour c_far{165, 175, 190};
constexpr Colour c_pale{200, 205, 210};
constexpr Colour c_nearShape{200, 60, 30};
constexpr Colour c_farShape{255, 114, 83};
constexpr Colour c_supportColour{20, 120, 60};
constexpr Colour c_nodeText{20, 70, 160};
constexpr Colour c_elementText{140, 80, 20};
constexpr host::AxesStyle c_axes = {34.0, 9.0, 2.0, {Colour{200, 40, 40}, Colour{30, 140, 30}, Colour{40, 70, 200}}};

/// Three digits, without an exponent where that is readable.
std::string FormatFactor(double dFactor) { return FormatGeneral(std::stod(host::Format("%.3g", dFactor))); }

}  // namespace

CStructureView::CStructureView(QWidget* pParent) : QWidget(pParent) {
  setObjectName(QStringLiteral("structure"));
  setMinimumSize(320, 240);
  setFocusPolicy(Qt::ClickFocus);
  m_timer.setInterval(c_nFramePeriod);
  connect(&m_timer, &QTimer::timeout, this, [this] { update(); });
  SetDirection(host::c_obliqueView);
}

bool CStructureView::IsLarge() const { return m_scene.GetMembers().size() > c_nSmoothMembers; }

QSize CStructureView::sizeHint() const { return {800, 600}; }

void CStructureView::SetScene(host::CScene scene, bool bKeepCamera) {
  m_scene = std::move(scene);
  m_shape.reset();
  if (!bKeepCamera) FitAll();
  update();
}

void CStructureView::SetShape(std::optional<host::DeformedShape> shape, bool bOutdated) {
  m_shape = std::move(shape);
  m_bOutdated = bOutdated;
  m_swingStart = Clock::now();
  update();
}

void CStructureView::SetAmplitude(double dAmplitude) {
  m_dAmplitude = dAmplitude;
  update();
}

void CStructureView::SetMagnification(double dMagnification) {
  if (m_shape) SetAmplitude(dMagnification * m_shape->GetScaleTranslation() / m_scene.GetRadius());
}

void CStructureView::SetAnimated(bool bAnimated) {
  m_swingStart = Clock::now();
  bAnimated ? m_timer.start() : m_timer.stop();
  update();
}

void CStructureView::SetOptions(ViewOptions options) {
  m_options = options;
  update();
}

void CStructureView::SetDirection(host::ViewDirection direction) {
  m_camera.SetDirection(direction);
  FitAll();
}

void CStructureView::FitAll() {
  m_camera.Fit(m_scene.GetCentre(), m_scene.GetRadius());
  m_bFitted = true;
  update();
}

double CStructureView::GetMagnification() const {
  const double dLargest = m_shape ? m_shape->GetScaleTranslation() : 0.0;
  return dLargest > 0.0 ? m_dAmplitude * m_scene.GetRadius() / dLargest : 0.0;
}

double CStructureView::GetPhaseFactor() const {
  if (!m_timer.isActive() || !m_shape || m_shape->kind == host::ShapeKind::Moment) return 1.0;
  const double t = std::chrono::duration<double>(Clock::now() - m_swingStart).count();
  const double dCosine = std::cos(2.0 * std::numbers::pi * t / c_dSwingPeriod);
  return m_shape->IsMode() ? dCosine : 0.5 * (1.0 + dCosine);
}

void CStructureView::paintEvent(QPaintEvent* /*pEvent*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing, !IsLarge());
  CQtPaintContext paint(painter);
  Paint(paint);
}

void CStructureView::Paint(IPaintContext& paint) const {
  paint.SetPen(c_ground);
  paint.SetBrush(c_ground);
  paint.Rectangle(0, 0, width(), height());
  paint.SetTextHeight(QFontInfo(font()).pixelSize());
  if (m_scene.GetNodes().empty()) {
    paint.SetPen(c_far);
    return paint.Text(0.5 * width(), 0.5 * height(), Say(texts::c_noJob), HorizontalAlign::Centre,
                      VerticalAlign::Middle);
  }
  host::CScenePainter painter(paint, m_scene, m_camera);
  PaintMembers(painter);
  if (m_options.bSupports) painter.PaintSupports(c_supportColour);
  if (m_shape) PaintShape(painter);
  if (m_options.bLoads) painter.PaintLoads(host::SelectLoads(m_scene.GetLoads(), std::nullopt));
  if (m_options.bNodeNumbers) painter.PaintNodeNumbers(c_nodeText);
  if (m_options.bElementNumbers) painter.PaintMemberNumbers(c_elementText);
  painter.PaintAxes({c_dAxesMargin, height() - c_dAxesMargin}, c_axes);
  paint.SetPen(c_near);
  paint.Text(c_caption.dX, c_caption.dY, FormCaption());
}

void CStructureView::PaintMembers(host::CScenePainter& painter) const {
  const double dBeamWidth = IsLarge() ? 1.0 : 1.6;
  if (m_shape) return painter.PaintMembers({c_pale, c_pale, dBeamWidth, 1.0});
  painter.PaintMembers({c_near, c_far, dBeamWidth, 1.0});
}

void CStructureView::PaintShape(host::CScenePainter& painter) const {
  const double dWidth = IsLarge() ? 1.0 : 1.6;
  const auto lines =
      host::BendMembers(m_scene, *m_shape, GetMagnification() * GetPhaseFactor(), IsLarge() ? 1 : host::c_nBentSteps);
  painter.PaintLines(lines, {c_nearShape, c_farShape, dWidth, dWidth});
}

std::string CStructureView::FormCaption() const {
  if (!m_shape) {
    return Say(texts::c_counts,
               {std::to_string(m_scene.GetNodes().size()), std::to_string(m_scene.GetMembers().size())});
  }
  std::string strTitle = FormShapeTitle(*m_shape) + (m_bOutdated ? FormOutdatedMark() : "");
  if (m_shape->IsMode() || GetMagnification() == 0.0) return strTitle;
  return strTitle + "   " + Say(texts::c_magnified, {FormatFactor(GetMagnification())});
}

void CStructureView::resizeEvent(QResizeEvent* /*pEvent*/) {
  m_camera.SetViewport({0.0, 0.0, static_cast<double>(width()), static_cast<double>(height())});
  if (m_bFitted) FitAll();
}

void CStructureView::mousePressEvent(QMouseEvent* pEvent) { m_lastMouse = pEvent->position(); }

void CStructureView::mouseMoveEvent(QMouseEvent* pEvent) {
  const QPointF moved = pEvent->position() - m_lastMouse;
  m_lastMouse = pEvent->position();
  if ((pEvent->buttons() & Qt::LeftButton) != 0) {
    m_camera.Turn(-c_dTurnPerPixel * moved.x(), c_dTurnPerPixel * moved.y());
  } else if ((pEvent->buttons() & (Qt::RightButton | Qt::MiddleButton)) != 0) {
    m_camera.Pan(moved.x(), moved.y());
    m_bFitted = false;
  }
  update();
}

void CStructureView::mouseDoubleClickEvent(QMouseEvent* /*pEvent*/) { FitAll(); }

void CStructureView::wheelEvent(QWheelEvent* pEvent) {
  const double dNotches = pEvent->angleDelta().y() / c_dNotch;
  m_camera.Zoom(std::pow(c_dZoomPerNotch, dNotches), pEvent->position().x(), pEvent->position().y());
  m_bFitted = false;
  update();
}

}  // namespace skyframe::gui
