#include "skyframe/gui/StructureView.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPolygonF>
#include <QWheelEvent>
#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <utility>

#include "skyframe/platform/NumberText.h"
#include "skyframe/qt/Font.h"
#include "texts.h"

namespace skyframe::gui {

namespace {

constexpr double c_dTurnPerPixel = 0.4;  // degrees
constexpr double c_dZoomPerNotch = 1.15;
constexpr double c_dNotch = 120.0;              // wheel units
constexpr int c_nFramePeriod = 33;              // ms
constexpr double c_dSwingPeriod = 2.0;          // s
constexpr std::size_t c_nSmoothMembers = 4000;  // beyond, lines are straight and not smoothed
constexpr double c_dGlyph = 5.0;                // pixels
constexpr double c_dArrow = 28.0;               // pixels
constexpr double c_dCaseShift = 3.0;            // pixels
constexpr double c_dArrowHead = 7.0;            // pixels

const QColor c_ground(252, 252, 250);
const QColor c_near(30, 40, 60);
const QColor c_far(165, 175, 190);
const QColor c_pale(200, 205, 210);
const QColor c_shapeColour(200, 60, 30);
const QColor c_supportColour(20, 120, 60);
const QColor c_nodeText(20, 70, 160);
const QColor c_elementText(140, 80, 20);

const std::array<QColor, 6> c_caseColours = {QColor(30, 110, 200), QColor(210, 120, 0), QColor(120, 60, 170),
                                             QColor(0, 140, 140),  QColor(190, 30, 90), QColor(90, 110, 20)};

QColor Mix(const QColor& a, const QColor& b, double t) {
  const auto mix = [t](int nA, int nB) { return static_cast<int>(nA + t * (nB - nA)); };
  return {mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue())};
}

void DrawArrow(QPainter& painter, QPointF tip, QPointF direction, bool bDouble) {
  const double dLength = std::hypot(direction.x(), direction.y());
  if (dLength < 0.05) return painter.drawEllipse(tip, 3.0, 3.0);  // seen end on
  const QPointF along = direction / dLength;
  const QPointF across(-along.y(), along.x());
  painter.drawLine(tip - c_dArrow * dLength * along, tip);
  for (int nHead = 0; nHead < (bDouble ? 2 : 1); ++nHead) {
    const QPointF point = tip - 0.8 * nHead * c_dArrowHead * along;
    painter.drawPolyline(QPolygonF({point - c_dArrowHead * along + 0.4 * c_dArrowHead * across, point,
                                    point - c_dArrowHead * along - 0.4 * c_dArrowHead * across}));
  }
}

}  // namespace

CStructureView::CStructureView(QWidget* pParent) : QWidget(pParent) {
  setObjectName(QStringLiteral("structure"));
  setMinimumSize(320, 240);
  setFocusPolicy(Qt::ClickFocus);
  m_timer.setInterval(c_nFramePeriod);
  connect(&m_timer, &QTimer::timeout, this, [this] { update(); });
  SetStandardView(StandardView::Isometric);
}

bool CStructureView::IsLarge() const { return m_scene.GetElements().size() > c_nSmoothMembers; }

QSize CStructureView::sizeHint() const { return {800, 600}; }

void CStructureView::SetScene(CScene scene, bool bKeepCamera) {
  m_scene = std::move(scene);
  m_shape.reset();
  if (!bKeepCamera) FitAll();
  update();
}

void CStructureView::SetShape(std::optional<Shape> shape) {
  m_shape = std::move(shape);
  m_swingStart = Clock::now();
  update();
}

void CStructureView::SetAmplitude(double dAmplitude) {
  m_dAmplitude = dAmplitude;
  update();
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

void CStructureView::SetStandardView(StandardView view) {
  switch (view) {
    case StandardView::Isometric:
      m_camera.SetDirection(-60.0, 22.0);
      break;
    case StandardView::Front:
      m_camera.SetDirection(-90.0, 0.0);
      break;
    case StandardView::Side:
      m_camera.SetDirection(0.0, 0.0);
      break;
    case StandardView::Plan:
      m_camera.SetDirection(-90.0, 90.0);
      break;
  }
  FitAll();
}

void CStructureView::FitAll() {
  m_camera.Fit(m_scene.GetCentre(), m_scene.GetRadius());
  m_bFitted = true;
  update();
}

double CStructureView::GetMagnification() const {
  const double dLargest = m_shape ? m_shape->GetLargestTranslation() : 0.0;
  return dLargest > 0.0 ? m_dAmplitude * m_scene.GetRadius() / dLargest : 0.0;
}

double CStructureView::GetPhaseFactor() const {
  if (!m_timer.isActive() || !m_shape) return 1.0;
  const double t = std::chrono::duration<double>(Clock::now() - m_swingStart).count();
  const double dCosine = std::cos(2.0 * std::numbers::pi * t / c_dSwingPeriod);
  return m_shape->bMode ? dCosine : 0.5 * (1.0 + dCosine);
}

QPointF CStructureView::ToScreen(Point3 point) const {
  const ScreenPoint p = m_camera.Project(point);
  return {p.dX, p.dY};
}

double CStructureView::GetNearness(Point3 point) const {
  const double dDepth = m_camera.Project(point).dDepth - m_camera.Project(m_scene.GetCentre()).dDepth;
  return std::clamp(0.5 + 0.5 * dDepth / m_scene.GetRadius(), 0.0, 1.0);
}

void CStructureView::paintEvent(QPaintEvent* /*pEvent*/) {
  QPainter painter(this);
  painter.fillRect(rect(), c_ground);
  painter.setRenderHint(QPainter::Antialiasing, !IsLarge());
  if (m_scene.GetNodes().empty()) {
    painter.setPen(c_far);
    painter.drawText(rect(), Qt::AlignCenter, ToQt(texts::c_strNoJob));
    return;
  }
  DrawMembers(painter);
  if (m_options.bSupports) DrawSupports(painter);
  if (m_shape) DrawShape(painter);
  if (m_options.bLoads) DrawLoads(painter);
  DrawNumbers(painter);
  DrawAxes(painter);
  DrawCaption(painter);
}

void CStructureView::DrawMembers(QPainter& painter) const {
  for (const SceneElement& element : m_scene.GetElements()) {
    const Point3 xi = NodeAt(element.nNodeI);
    const Point3 xj = NodeAt(element.nNodeJ);
    const QColor colour = Mix(c_far, c_near, GetNearness(0.5 * (xi + xj)));
    painter.setPen(QPen(m_shape ? c_pale : colour, element.nType == host::c_nBeam && !IsLarge() ? 1.6 : 1.0));
    painter.drawLine(ToScreen(xi), ToScreen(xj));
  }
}

void CStructureView::DrawShape(QPainter& painter) const {
  const double dFactor = GetMagnification() * GetPhaseFactor();
  const int nPoints = IsLarge() ? 2 : c_nCurvePoints;
  for (const SceneElement& element : m_scene.GetElements()) {
    QPolygonF line;
    for (const Point3& point : m_scene.FormDeformedLine(element, *m_shape, dFactor, nPoints))
      line.append(ToScreen(point));
    const Point3 middle = 0.5 * (NodeAt(element.nNodeI) + NodeAt(element.nNodeJ));
    painter.setPen(QPen(Mix(c_shapeColour.lighter(150), c_shapeColour, GetNearness(middle)), IsLarge() ? 1.0 : 1.6));
    painter.drawPolyline(line);
  }
}

void CStructureView::DrawSupports(QPainter& painter) const {
  painter.setPen(QPen(c_supportColour, 1.4));
  for (const SceneSupport& support : m_scene.GetSupports()) {
    const QPointF p = ToScreen(NodeAt(support.nNode));
    painter.setBrush(support.kind == SupportKind::Partial ? QBrush(Qt::NoBrush) : QBrush(c_supportColour));
    const QPointF left = p + QPointF(-c_dGlyph, 1.7 * c_dGlyph);
    const QPointF right = p + QPointF(c_dGlyph, 1.7 * c_dGlyph);
    switch (support.kind) {
      case SupportKind::Clamped:
        painter.drawRect(QRectF(p - QPointF(c_dGlyph, 0.0), QSizeF(2.0 * c_dGlyph, c_dGlyph)));
        break;
      case SupportKind::Hinged:
      case SupportKind::Partial:
        painter.drawPolygon(QPolygonF({p, left, right}));
        break;
      case SupportKind::Spring:
        painter.setBrush(Qt::NoBrush);
        painter.drawPolyline(QPolygonF({p, p + QPointF(c_dGlyph, 3.0), p + QPointF(-c_dGlyph, 6.0),
                                        p + QPointF(c_dGlyph, 9.0), p + QPointF(0.0, 12.0)}));
        break;
    }
  }
}

void CStructureView::DrawLoads(QPainter& painter) const {
  for (const SceneLoad& load : m_scene.GetLoads()) {
    const ScreenPoint d = m_camera.ProjectDirection(load.direction);
    painter.setPen(QPen(c_caseColours[static_cast<std::size_t>(load.nCase) % c_caseColours.size()], 1.4));
    painter.setBrush(Qt::NoBrush);
    const QPointF beside(c_dCaseShift * load.nCase, 0.0);  // cases do not hide one another
    DrawArrow(painter, ToScreen(NodeAt(load.nNode)) + beside, {d.dX, d.dY}, load.bMoment);
  }
}

void CStructureView::DrawNumbers(QPainter& painter) const {
  if (m_options.bNodeNumbers) {
    painter.setPen(c_nodeText);
    for (std::size_t i = 0; i < m_scene.GetNodes().size(); ++i) {
      painter.drawText(ToScreen(m_scene.GetNodes()[i]) + QPointF(4.0, -4.0), QString::number(i + 1));
    }
  }
  if (!m_options.bElementNumbers) return;
  painter.setPen(c_elementText);
  int nNumber = 0;
  for (const SceneElement& element : m_scene.GetElements()) {
    painter.drawText(ToScreen(0.5 * (NodeAt(element.nNodeI) + NodeAt(element.nNodeJ))), QString::number(++nNumber));
  }
}

void CStructureView::DrawAxes(QPainter& painter) const {
  constexpr double c_dAxis = 34.0;
  const QPointF origin(52.0, height() - 52.0);
  const std::array<std::pair<Point3, QColor>, 3> axes = {{{{1.0, 0.0, 0.0}, QColor(200, 40, 40)},
                                                          {{0.0, 1.0, 0.0}, QColor(30, 140, 30)},
                                                          {{0.0, 0.0, 1.0}, QColor(40, 70, 200)}}};
  QChar cName(u'X');
  for (const auto& [axis, colour] : axes) {
    const ScreenPoint d = m_camera.ProjectDirection(axis);
    const QPointF tip = origin + c_dAxis * QPointF(d.dX, d.dY);
    painter.setPen(QPen(colour, 2.0));
    painter.drawLine(origin, tip);
    painter.drawText(QRectF(tip + 9.0 * QPointF(d.dX, d.dY) - QPointF(20.0, 20.0), QSizeF(40.0, 40.0)), Qt::AlignCenter,
                     cName);
    cName = QChar(cName.unicode() + 1);
  }
}

void CStructureView::DrawCaption(QPainter& painter) const {
  QString strText = ToQt(texts::c_strNodes) + QStringLiteral(" %1   ").arg(m_scene.GetNodes().size()) +
                    ToQt(texts::c_strElements) + QStringLiteral(" %1").arg(m_scene.GetElements().size());
  if (m_shape) {
    strText = QString::fromStdString(m_shape->strTitle);
    if (!m_shape->bMode) {
      strText += QStringLiteral("   ") + ToQt(texts::c_strMagnified) + QLatin1Char(' ') +
                 ToQt(FormatGeneral(GetMagnification())) + QLatin1Char(' ') + ToQt(texts::c_strTimes);
    }
  }
  painter.setPen(c_near);
  painter.drawText(QRectF(rect()).adjusted(12.0, 10.0, -12.0, -10.0), Qt::AlignTop | Qt::AlignLeft, strText);
}

void CStructureView::resizeEvent(QResizeEvent* /*pEvent*/) {
  m_camera.SetViewport(width(), height());
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
