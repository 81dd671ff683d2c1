#include "skyframe/scene/ScenePainter.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <string>

#include "Arrow.h"
#include "skyframe/scene/Colours.h"
#include "skyframe/scene/LocalAxes.h"
#include "skyframe/scene/ResultPainter.h"
#include "texts.h"

namespace skyframe::host {

namespace {

// Pixels
constexpr double c_dGlyph = 5.0;
constexpr double c_dSupportWidth = 1.4;
constexpr double c_dLoadWidth = 1.4;
constexpr double c_dCaseShift = 3.0;
constexpr double c_dNumberShift = 4.0;
constexpr double c_dLocalAxis = 16.0;
constexpr double c_dLegendLine = 18.0, c_dLegendSwatch = 22.0, c_dLegendText = 12.0;

constexpr double c_dEndOn = 0.05;  // seen length of a unit vector that counts as a point

constexpr std::array<Colour, 6> c_caseColours = {Colour{30, 110, 200}, Colour{210, 120, 0}, Colour{120, 60, 170},
                                                 Colour{0, 140, 140},  Colour{190, 30, 90}, Colour{90, 110, 20}};
constexpr Colour c_combinedColour{60, 60, 60};
constexpr std::array<Point3, 3> c_axes = {Point3{1.0, 0.0, 0.0}, Point3{0.0, 1.0, 0.0}, Point3{0.0, 0.0, 1.0}};

}  // namespace

Colour GetCaseColour(int nCase) {
  return nCase < 0 ? c_combinedColour : c_caseColours[static_cast<std::size_t>(nCase) % c_caseColours.size()];
}

CScenePainter::CScenePainter(IPaintContext& paint, const CScene& scene, const CCamera& camera, CShownParts shown)
    : m_paint(paint), m_scene(scene), m_camera(camera), m_shown(std::move(shown)) {}

double CScenePainter::GetNearness(Point3 point) const {
  const double dDepth = m_camera.ProjectDirection(point - m_scene.GetCentre()).dDepth;
  return std::clamp(0.5 + 0.5 * dDepth / m_scene.GetRadius(), 0.0, 1.0);
}

void CScenePainter::PaintMembers(const MemberPen& pen) {
  for (std::size_t i = 0; i < m_scene.GetMembers().size(); ++i) {
    if (!m_shown.HasMember(i)) continue;
    const SceneMember& member = m_scene.GetMembers()[i];
    const std::array<Point3, 2> ends = {m_scene.GetPlace(member.nNodeI), m_scene.GetPlace(member.nNodeJ)};
    PaintLine(member, ends, pen);
  }
}

void CScenePainter::PaintLines(std::span<const MemberLine> lines, const MemberPen& pen) {
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (m_shown.HasMember(i)) PaintLine(m_scene.GetMembers()[i], lines[i], pen);
  }
}

void CScenePainter::PaintLine(const SceneMember& member, std::span<const Point3> line, const MemberPen& pen) {
  std::vector<PaintPoint> points;
  points.reserve(line.size());
  for (const Point3& point : line) points.push_back(ToScreen(point));
  m_paint.SetPen(MixColours(pen.farthest, pen.nearest, GetNearness(m_scene.GetMiddle(member))),
                 member.nType == c_nBeam ? pen.dBeamWidth : pen.dOtherWidth);
  m_paint.Polyline(points);
}

void CScenePainter::PaintSupports(Colour colour) {
  m_paint.SetPen(colour, c_dSupportWidth);
  m_paint.SetBrush(colour);
  for (const SceneSupport& support : m_scene.GetSupports()) {
    if (m_shown.HasNode(support.nNode)) PaintSupport(support, ToScreen(m_scene.GetPlace(support.nNode)));
  }
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

void CScenePainter::PaintLoads(std::span<const SceneLoad> loads, CLabelField* pLabels) {
  std::array<double, 2> largest = {};  // of forces and moments
  for (const SceneLoad& load : loads) largest[load.bMoment] = std::max(largest[load.bMoment], std::abs(load.dValue));
  for (const SceneLoad& load : loads) {
    if (!m_shown.HasNode(load.nNode)) continue;
    const Colour colour = GetCaseColour(load.nCase);
    const double dLength = ScaleArrow(load.dValue, largest[load.bMoment]);
    const PaintPoint beside{c_dCaseShift * std::max(load.nCase, 0), 0.0};  // cases do not hide one another
    const PaintPoint tip = Shift(ToScreen(m_scene.GetPlace(load.nNode)), 1.0, beside);
    const PaintPoint tail = Shift(tip, -dLength, m_camera.ProjectDirection(load.GetDirection()).at);
    m_paint.SetPen(colour, c_dLoadWidth);
    PaintArrow(m_paint, tail, tip, load.bMoment);
    if (pLabels == nullptr) continue;
    const double dLargest = largest[load.bMoment];
    pLabels->Add({tail, Shift(tail, -1.0, tip), FormatForce(std::abs(load.dValue), dLargest), colour,
                  std::abs(load.dValue) / dLargest});
  }
}

void CScenePainter::AddSectionNames(Colour colour, CLabelField& labels) const {
  for (std::size_t i = 0; i < m_scene.GetMembers().size(); ++i) {
    const SceneMember& member = m_scene.GetMembers()[i];
    const auto nSection = static_cast<std::size_t>(member.nSection);
    if (!m_shown.HasMember(i) || nSection >= m_scene.GetSectionNames().size()) continue;
    const PaintPoint along =
        Shift(ToScreen(m_scene.GetPlace(member.nNodeJ)), -1.0, ToScreen(m_scene.GetPlace(member.nNodeI)));
    const Point3 middle = m_scene.GetMiddle(member);
    const PaintPoint aside = along.dX < 0.0 ? PaintPoint{-along.dY, along.dX} : PaintPoint{along.dY, -along.dX};
    labels.Add({ToScreen(middle), aside, m_scene.GetSectionNames()[nSection], colour, GetNearness(middle)});
  }
}

void CScenePainter::PaintLocalAxes(const std::array<Colour, 3>& colours) {
  for (std::size_t i = 0; i < m_scene.GetMembers().size(); ++i) {
    if (!m_shown.HasMember(i)) continue;
    const SceneMember& member = m_scene.GetMembers()[i];
    const LocalAxes axes = FindLocalAxes(m_scene.GetPlace(member.nNodeI), m_scene.GetPlace(member.nNodeJ));
    const PaintPoint middle = ToScreen(m_scene.GetMiddle(member));
    const std::array<Point3, 3> directions = {axes.x, axes.y, axes.z};
    for (std::size_t d = 0; d < directions.size(); ++d) {
      const PaintPoint tip = Shift(middle, c_dLocalAxis, m_camera.ProjectDirection(directions[d]).at);
      m_paint.SetPen(colours[d], c_dLoadWidth);
      m_paint.Line(middle.dX, middle.dY, tip.dX, tip.dY);
    }
  }
}

void PaintLoadLegend(IPaintContext& paint, PaintPoint topLeft, std::span<const SceneLoad> loads) {
  std::set<int> cases;
  for (const SceneLoad& load : loads) cases.insert(load.nCase);
  double dY = topLeft.dY + 0.5 * c_dLegendLine;
  for (const int nCase : cases) {
    paint.SetPen(GetCaseColour(nCase), 2.0);
    paint.Line(topLeft.dX, dY, topLeft.dX + c_dLegendSwatch, dY);
    paint.SetPen(c_inkColour);
    paint.SetTextHeight(c_dLegendText);
    const std::string strCase = nCase == c_nCombined ? std::string(Say(texts::c_combination))
                                : nCase == 0         ? std::string(Say(texts::c_deadLoad))
                                                     : Say(texts::c_liveLoad, {std::to_string(nCase)});
    paint.Text(topLeft.dX + c_dLegendSwatch + 8.0, dY, strCase, HorizontalAlign::Left, VerticalAlign::Middle);
    dY += c_dLegendLine;
  }
}

void CScenePainter::PaintNodeNumbers(Colour colour) {
  m_paint.SetPen(colour);
  for (std::size_t i = 0; i < m_scene.GetNodes().size(); ++i) {
    if (!m_shown.HasNode(static_cast<int>(i))) continue;
    PaintNumber(m_scene.GetNodes()[i].at, c_dNumberShift, -c_dNumberShift, m_scene.GetNodes()[i].nId);
  }
}

void CScenePainter::PaintMemberNumbers(Colour colour) {
  m_paint.SetPen(colour);
  for (std::size_t i = 0; i < m_scene.GetMembers().size(); ++i) {
    if (!m_shown.HasMember(i)) continue;
    PaintNumber(m_scene.GetMiddle(m_scene.GetMembers()[i]), 0.0, 0.0, static_cast<int>(i) + 1);
  }
}

void CScenePainter::PaintNumber(Point3 at, double dX, double dY, int nNumber) {
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
