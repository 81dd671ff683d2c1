#include "skyframe/gui/StructureView.h"

#include <QApplication>
#include <QFontInfo>
#include <QMouseEvent>
#include <QPainter>
#include <QPrinter>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <iterator>
#include <numbers>
#include <utility>

#include "ShapeTitle.h"
#include "skyframe/job/Text.h"
#include "skyframe/platform/NumberText.h"
#include "skyframe/qt/QtPaintContext.h"
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
constexpr Colour c_sectionText{122, 92, 30};
constexpr Colour c_selected{225, 120, 0};
constexpr Colour c_hovered{90, 150, 230};
constexpr std::array<Colour, 3> c_localColours = {Colour{200, 40, 40}, Colour{30, 140, 30}, Colour{40, 70, 200}};

// Pixels
constexpr double c_dReach = 7.0;
constexpr double c_dNodeMark = 8.0;
constexpr double c_dColourWidth = 2.6;
constexpr double c_dLabelHeight = 12.0;
constexpr double c_dNoteLine = 19.0;
constexpr double c_dNotesTop = 34.0;
constexpr double c_dMargin = 12.0;
constexpr std::size_t c_nCrowd = 150;  // members; more of them have fewer labels
constexpr std::size_t c_nFewLabels = 60;
constexpr std::size_t c_nMostLabels = 400;
constexpr host::AxesStyle c_axes = {34.0, 9.0, 2.0, {Colour{200, 40, 40}, Colour{30, 140, 30}, Colour{40, 70, 200}}};

/// Three digits, without an exponent where that is readable.
std::string FormatFactor(double dFactor) {
  return FormatGeneral(ParseReal(host::Format("%.3g", dFactor)).value_or(dFactor));
}

/// Less than a hand moves when it clicks.
bool IsStill(QPointF moved) { return moved.manhattanLength() < QApplication::startDragDistance(); }

}  // namespace

CStructureView::CStructureView(QWidget* pParent) : QWidget(pParent) {
  setObjectName(QStringLiteral("structure"));
  setMinimumSize(320, 240);
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  m_timer.setInterval(c_nFramePeriod);
  connect(&m_timer, &QTimer::timeout, this, [this] { update(); });
  SetDirection(host::c_obliqueView);
}

bool CStructureView::IsLarge() const { return m_scene.GetMembers().size() > c_nSmoothMembers; }

QSize CStructureView::sizeHint() const { return {800, 600}; }

void CStructureView::SetScene(host::CScene scene, bool bKeepCamera) {
  m_scene = std::move(scene);
  m_shape.reset();
  m_forces.reset();
  m_loads.clear();
  m_hovered.reset();
  m_selection = {};
  m_shown = {};
  if (!bKeepCamera) FitAll();
  update();
}

void CStructureView::SetShape(std::optional<host::DeformedShape> shape, bool bOutdated) {
  m_shape = std::move(shape);
  m_bOutdated = bOutdated;
  m_swingStart = Clock::now();
  update();
}

void CStructureView::SetShapeColours(bool bOn) {
  m_bShapeColours = bOn;
  update();
}

void CStructureView::SetForces(std::optional<DrawnForces> forces) {
  m_forces = std::move(forces);
  update();
}

void CStructureView::SetLoads(std::vector<host::SceneLoad> loads) {
  m_loads = std::move(loads);
  update();
}

void CStructureView::SetSelection(Selection selection) {
  m_selection = std::move(selection);
  update();
}

void CStructureView::SetShown(host::CShownParts shown) {
  m_shown = std::move(shown);
  m_hovered.reset();
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

void CStructureView::Print(QPrinter& printer) const {
  QPainter painter(&printer);
  const QRect page = painter.viewport();
  const QSize size = rect().size().scaled(page.size(), Qt::KeepAspectRatio);
  painter.setViewport(page.x(), page.y(), size.width(), size.height());
  painter.setWindow(rect());
  painter.setRenderHint(QPainter::Antialiasing);
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
  const host::Box sheet{0.0, 0.0, static_cast<double>(width()), static_cast<double>(height())};
  const bool bCrowd = m_scene.GetMembers().size() > c_nCrowd;
  host::CLabelField labels(sheet, bCrowd ? c_nFewLabels : c_nMostLabels, c_dLabelHeight, c_ground);
  host::CScenePainter painter(paint, m_scene, m_camera, m_shown);
  host::CResultPainter results(paint, m_scene, m_camera, m_shown);
  PaintSelection(paint);
  if (m_forces && m_forces->diagram) PaintDiagram(results, labels);
  PaintMembers(painter);
  if (m_options.bSupports) painter.PaintSupports(c_supportColour);
  if (m_forces && m_forces->colours) {
    PaintForceColours(results);
  } else if (IsShapeDrawn()) {
    PaintShape(painter, results);
  }
  if (m_forces && m_forces->bReactions) results.PaintReactions(m_forces->forces, &labels);
  painter.PaintLoads(m_loads, &labels);
  if (m_options.bLocalAxes) painter.PaintLocalAxes(c_localColours);
  if (m_options.bNodeNumbers) painter.PaintNodeNumbers(c_nodeText);
  if (m_options.bElementNumbers) painter.PaintMemberNumbers(c_elementText);
  if (m_options.bSectionNames) painter.AddSectionNames(c_sectionText, labels);
  painter.PaintAxes({c_dAxesMargin, height() - c_dAxesMargin}, c_axes);
  labels.Paint(paint);
  PaintNotes(paint);
}

void CStructureView::PaintMembers(host::CScenePainter& painter) const {
  const double dBeamWidth = IsLarge() ? 1.0 : 1.6;
  if (IsShapeDrawn() || (m_forces && m_forces->colours)) return painter.PaintMembers({c_pale, c_pale, dBeamWidth, 1.0});
  painter.PaintMembers({c_near, c_far, dBeamWidth, 1.0});
}

void CStructureView::PaintShape(host::CScenePainter& painter, host::CResultPainter& results) const {
  const double dWidth = IsLarge() ? 1.0 : 1.6;
  const double dFactor = GetMagnification() * GetPhaseFactor();
  const int nSteps = IsLarge() ? 1 : host::c_nBentSteps;
  if (m_bShapeColours) {
    const host::ColourLegend legend = host::FormDisplacementLegend(m_scene, *m_shape);
    return results.PaintColours(host::ColourByDisplacement(m_scene, *m_shape, dFactor, nSteps), legend.scale,
                                IsLarge() ? dWidth : c_dColourWidth);
  }
  painter.PaintLines(host::BendMembers(m_scene, *m_shape, dFactor, nSteps), {c_nearShape, c_farShape, dWidth, dWidth});
}

void CStructureView::PaintForceColours(host::CResultPainter& results) const {
  results.PaintColours(host::ColourByForce(GetPlaces(), m_forces->forces, *m_forces->colours),
                       host::FormForceLegend(m_forces->forces, *m_forces->colours, m_shown).scale, c_dColourWidth);
}

void CStructureView::PaintDiagram(host::CResultPainter& results, host::CLabelField& labels) const {
  const double dSize = m_forces->dDiagramFactor * host::ChooseDiagramSize(m_scene);
  results.PaintDiagram(m_forces->forces, *m_forces->diagram, dSize, &labels);
}

void CStructureView::PaintPart(IPaintContext& paint, host::ScenePart part, Colour colour, double dWidth) const {
  if (part.kind == host::ScenePart::Kind::Node) {
    if (!m_shown.HasNode(part.nIndex)) return;
    const PaintPoint at = m_camera.Project(GetPlaces().GetNode(part.nIndex)).at;
    paint.SetPen(colour);
    paint.SetBrush(colour);
    return paint.Rectangle(at.dX - c_dNodeMark / 2, at.dY - c_dNodeMark / 2, c_dNodeMark, c_dNodeMark);
  }
  const auto nMember = static_cast<std::size_t>(part.nIndex);
  if (!m_shown.HasMember(nMember)) return;
  std::vector<PaintPoint> points;
  for (const host::Point3& point : GetPlaces().GetMember(nMember)) points.push_back(m_camera.Project(point).at);
  paint.SetPen(colour, dWidth);
  paint.Polyline(points);
}

void CStructureView::PaintSelection(IPaintContext& paint) const {
  constexpr double c_dSelectedWidth = 6.0, c_dHoveredWidth = 4.0;
  using Kind = host::ScenePart::Kind;
  for (const int i : m_selection.elements) PaintPart(paint, {Kind::Member, i}, c_selected, c_dSelectedWidth);
  for (const int i : m_selection.nodes) PaintPart(paint, {Kind::Node, i}, c_selected, c_dSelectedWidth);
  if (m_hovered) PaintPart(paint, *m_hovered, c_hovered, c_dHoveredWidth);
}

/// Caption, extremes and legends: words at the left, colours at the right.
void CStructureView::PaintNotes(IPaintContext& paint) const {
  const double dHeight = QFontInfo(font()).pixelSize();
  const auto say = [&paint, dHeight](PaintPoint at, const std::string& strText) {
    paint.SetPen(c_near);
    paint.SetTextHeight(dHeight);
    paint.Text(at.dX, at.dY, strText);
  };
  say(c_caption, FormCaption());
  double dY = c_dNotesTop;
  std::optional<host::ColourLegend> legend;
  if (IsShapeDrawn() && m_bShapeColours) legend = host::FormDisplacementLegend(m_scene, *m_shape);
  if (m_forces) {
    say({c_caption.dX, dY}, m_forces->strTitle + (m_forces->bOutdated ? FormOutdatedMark() : ""));
    if (m_forces->colours) legend = host::FormForceLegend(m_forces->forces, *m_forces->colours, m_shown);
  }
  if (m_forces && m_forces->diagram) {
    std::vector<std::string> lines = {std::string(host::GetName(*m_forces->diagram))};
    std::ranges::copy(host::DescribeExtremes(m_forces->forces, *m_forces->diagram, m_shown), std::back_inserter(lines));
    for (const std::string& strLine : lines) say({c_caption.dX, dY += c_dNoteLine}, strLine);
  }
  if (m_forces) dY += c_dNoteLine;
  if (!m_loads.empty()) host::PaintLoadLegend(paint, {c_caption.dX, dY}, m_loads);
  if (legend) host::PaintColourLegend(paint, {width() - host::c_dLegendWidth - c_dMargin, c_dMargin}, *legend);
}

std::string CStructureView::FormCaption() const {
  if (!m_shape) {
    return Say(texts::c_counts,
               {std::to_string(m_scene.GetNodes().size()), std::to_string(m_scene.GetMembers().size())});
  }
  std::string strTitle = FormShapeTitle(*m_shape) + (m_bOutdated ? FormOutdatedMark() : "");
  if (!IsShapeDrawn()) return Say(texts::c_shapeHidden, {strTitle});
  if (m_shape->IsMode() || GetMagnification() == 0.0) return strTitle;
  return strTitle + "   " + Say(texts::c_magnified, {FormatFactor(GetMagnification())});
}

bool CStructureView::IsShapeDrawn() const { return m_shape && !(m_forces && m_forces->diagram); }

host::CDrawnPlaces CStructureView::GetPlaces() const {
  if (!IsShapeDrawn()) return m_scene;
  return {m_scene, *m_shape, GetMagnification() * GetPhaseFactor()};
}

std::optional<host::ScenePart> CStructureView::Pick(QPointF at) const {
  return host::PickPart(GetPlaces(), m_camera, {at.x(), at.y()}, c_dReach, m_shown);
}

void CStructureView::resizeEvent(QResizeEvent* /*pEvent*/) {
  m_camera.SetViewport({0.0, 0.0, static_cast<double>(width()), static_cast<double>(height())});
  if (m_bFitted) FitAll();
}

void CStructureView::mousePressEvent(QMouseEvent* pEvent) { m_lastMouse = m_pressedAt = pEvent->position(); }

void CStructureView::mouseMoveEvent(QMouseEvent* pEvent) {
  if (pEvent->buttons() == Qt::NoButton) return Hover(pEvent);
  if (m_lastMouse == m_pressedAt && IsStill(pEvent->position() - m_pressedAt)) return;  // may become a click
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

void CStructureView::Hover(QMouseEvent* pEvent) {
  const auto part = Pick(pEvent->position());
  if (part == m_hovered) return;
  m_hovered = part;
  const QString strText = part && m_describe ? m_describe(*part) : QString();
  QToolTip::showText(pEvent->globalPosition().toPoint(), strText, this);
  update();
}

void CStructureView::mouseReleaseEvent(QMouseEvent* pEvent) {
  const bool bClick = pEvent->button() == Qt::LeftButton && m_lastMouse == m_pressedAt;
  if (!bClick || !m_pick) return;
  const bool bAdd = (pEvent->modifiers() & (Qt::ControlModifier | Qt::ShiftModifier)) != 0;
  m_pick(Pick(m_pressedAt), bAdd);
}

void CStructureView::leaveEvent(QEvent* /*pEvent*/) {
  m_hovered.reset();
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
