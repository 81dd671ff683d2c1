#include "skyframe/scene/ScenePainter.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <string>

namespace skyframe::host {

namespace {

// Pixels
constexpr double c_dGlyph = 5.0;
constexpr double c_dSupportWidth = 1.4;
constexpr double c_dLoadWidth = 1.4;
constexpr double c_dArrow = 28.0;
constexpr double c_dArrowHead = 7.0;
constexpr double c_dCaseShift = 3.0;
constexpr double c_dEndOnRadius = 3.0;
constexpr double c_dNumberShift = 4.0;

constexpr double c_dEndOn = 0.05;  // seen length of a unit vector that counts as a point
constexpr int c_nCirclePoints = 12;

constexpr std::array<Colour, 6> c_caseColours = {Colour{30, 110, 200}, Colour{210, 120, 0}, Colour{120, 60, 170},
                                                 Colour{0, 140, 140},  Colour{190, 30, 90}, Colour{90, 110, 20}};
constexpr std::array<Point3, 3> c_axes = {Point3{1.0, 0.0, 0.0}, Point3{0.0, 1.0, 0.0}, Point3{0.0, 0.0, 1.0}};

PaintPoint Shift(PaintPoint a, double d, PaintPoint b) { return {a.dX + d * b.dX, a.dY + d * b.dY}; }

Colour Mix(Colour a, Colour b, double t) {
  const auto mix = [t](int nA, int nB) { return static_cast<std::uint8_t>(nA + t * (nB - nA)); };
  return {mix(a.nRed, b.nRed), mix(a.nGreen, b.nGreen), mix(a.nBlue, b.nBlue)};
}

void PaintCircle(IPaintContext& paint, PaintPoint centre, double dRadius) {
  std::array<PaintPoint, c_nCirclePoints + 1> points;
  for (int k = 0; k <= c_nCirclePoints; ++k) {
    const double phi = 2.0 * std::numbers::pi * k / c_nCirclePoints;
    points[static_cast<std::size_t>(k)] = Shift(centre, dRadius, {std::cos(phi), std::sin(phi)});
  }
  paint.Polyline(points);
}

}  // namespace

CScenePainter::CScenePainter(IPaintContext& paint, const CScene& scene, const CCamera& camera)
    : m_paint(paint), m_scene(scene), m_camera(camera) {}

double CScenePainter::GetNearness(Point3 point) const {
  const double dDepth = m_camera.ProjectDirection(point - m_scene.GetCentre()).dDepth;
  return std::clamp(0.5 + 0.5 * dDepth / m_scene.GetRadius(), 0.0, 1.0);
}

void CScenePainter::PaintMembers(const MemberPen& pen) {
  for (const SceneMember& member : m_scene.GetMembers()) {
    const std::array<Point3, 2> ends = {m_scene.GetPlace(member.nNodeI), m_scene.GetPlace(member.nNodeJ)};
    PaintLine(member, ends, pen);
  }
}

void CScenePainter::PaintLines(std::span<const MemberLine> lines, const MemberPen& pen) {
  for (std::size_t i = 0; i < lines.size(); ++i) PaintLine(m_scene.GetMembers()[i], lines[i], pen);
}

void CScenePainter::PaintLine(const SceneMember& member, std::span<const Point3> line, const MemberPen& pen) {
  std::vector<PaintPoint> points;
  points.reserve(line.size());
  for (const Point3& point : line) points.push_back(ToScreen(point));
  m_paint.SetPen(Mix(pen.farthest, pen.nearest, GetNearness(m_scene.GetMiddle(member))),
                 member.nType == c_nBeam ? pen.dBeamWidth : pen.dOtherWidth);
  m_paint.Polyline(points);
}

void CScenePainter::PaintSupports(Colour colour) {
  m_paint.SetPen(colour, c_dSupportWidth);
  m_paint.SetBrush(colour);
  for (const SceneSupport& support : m_scene.GetSupports())
    PaintSupport(support, ToScreen(m_scene.GetPlace(support.nNode)));
}

void CScenePainter::PaintSupport(const SceneSupport& support, PaintPoint at) {
  constexpr double c_dHeight = 1.7 * c_dGlyph;
  const PaintPoint left = Shift(at, 1.0, {-c_dGlyph, c_dHeight});
  const PaintPoint right = Shift(at, 1.0, {c_dGlyph, c_dHeight});
  const auto down = [at](double dX, double dY) { return PaintPoint{at.dX + dX, at.dY + dY}; };
  switch (support.kind) {
    case SupportKind::Clamped:
      return m_paint.Rectangle(at.dX - c_dGlyph, at.dY, 2.0 * c_dGlyph, c_dGlyph);
    case SupportKind::Hinged:
      return m_paint.Polygon(std::array{at, left, right});
    case SupportKind::Partial:
      return m_paint.Polyline(std::array{at, left, right, at});
    case SupportKind::Spring:
      return m_paint.Polyline(
          std::array{at, down(c_dGlyph, 3.0), down(-c_dGlyph, 6.0), down(c_dGlyph, 9.0), down(0.0, 12.0)});
  }
}

void CScenePainter::PaintLoads() {
  for (const SceneLoad& load : m_scene.GetLoads()) {
    m_paint.SetPen(c_caseColours[static_cast<std::size_t>(load.nCase) % c_caseColours.size()], c_dLoadWidth);
    const PaintPoint beside{c_dCaseShift * load.nCase, 0.0};  // cases do not hide one another
    PaintArrow(Shift(ToScreen(m_scene.GetPlace(load.nNode)), 1.0, beside), m_camera.ProjectDirection(load.direction).at,
               load.bMoment);
  }
}

void CScenePainter::PaintArrow(PaintPoint tip, PaintPoint direction, bool bDouble) {
  const double dLength = std::hypot(direction.dX, direction.dY);
  if (dLength < c_dEndOn) return PaintCircle(m_paint, tip, c_dEndOnRadius);
  const PaintPoint along{direction.dX / dLength, direction.dY / dLength};
  const PaintPoint across{-along.dY, along.dX};
  const PaintPoint tail = Shift(tip, -c_dArrow, direction);
  m_paint.Line(tail.dX, tail.dY, tip.dX, tip.dY);
  for (int nHead = 0; nHead < (bDouble ? 2 : 1); ++nHead) {
    const PaintPoint point = Shift(tip, -0.8 * nHead * c_dArrowHead, along);
    const PaintPoint back = Shift(point, -c_dArrowHead, along);
    m_paint.Polyline(
        std::array{Shift(back, 0.4 * c_dArrowHead, across), point, Shift(back, -0.4 * c_dArrowHead, across)});
  }
}

void CScenePainter::PaintNodeNumbers(Colour colour) {
  m_paint.SetPen(colour);
  for (std::size_t i = 0; i < m_scene.GetNodes().size(); ++i) {
    PaintNumber(m_scene.GetNodes()[i].at, c_dNumberShift, -c_dNumberShift, i + 1);
  }
}

void CScenePainter::PaintMemberNumbers(Colour colour) {
  m_paint.SetPen(colour);
  for (std::size_t i = 0; i < m_scene.GetMembers().size(); ++i) {
    PaintNumber(m_scene.GetMiddle(m_scene.GetMembers()[i]), 0.0, 0.0, i + 1);
  }
}

void CScenePainter::PaintNumber(Point3 at, double dX, double dY, std::size_t nNumber) {
  const PaintPoint p = ToScreen(at);
  m_paint.Text(p.dX + dX, p.dY + dY, std::to_string(nNumber), HorizontalAlign::Left, VerticalAlign::Baseline);
}

void CScenePainter::PaintAxes(PaintPoint origin, const AxesStyle& style) {
  for (std::size_t d = 0; d < c_axes.size(); ++d) {
    const PaintPoint axis = m_camera.ProjectDirection(c_axes[d]).at;
    if (std::hypot(axis.dX, axis.dY) < c_dEndOn) continue;
    const PaintPoint tip = Shift(origin, style.dLength, axis);
    const PaintPoint letter = Shift(tip, style.dGap, axis);
    m_paint.SetPen(style.colours[d], style.dWidth);
    m_paint.Line(origin.dX, origin.dY, tip.dX, tip.dY);
    m_paint.Text(letter.dX, letter.dY, std::string(1, "XYZ"[d]), HorizontalAlign::Centre, VerticalAlign::Middle);
  }
}

}  // namespace skyframe::host
