#include "skyframe/scene/ResultPainter.h"

#include <algorithm>
#include <cmath>

#include "Arrow.h"
#include "skyframe/scene/Colours.h"
#include "skyframe/scene/LocalAxes.h"

namespace skyframe::host {

namespace {

struct AreaColours {
  Colour outline;
  Colour fill;
};
constexpr AreaColours c_plainArea{{0x2f, 0x66, 0xa8}, {0xd9, 0xe6, 0xf4}};
constexpr AreaColours c_tensionArea{{0xb0, 0x3a, 0x2e}, {0xf6, 0xdd, 0xd8}};
constexpr Colour c_reactionColour{0x8a, 0x2b, 0x6f};

constexpr double c_dNothing = 1.0e-3;   // of the largest value: not drawn
constexpr double c_dStraight = 1.0e-4;  // off a straight line
constexpr double c_dConstant = 0.01;    // one value for the whole member
constexpr double c_dUnlabelled = 0.02;  // no value beside it
constexpr double c_dLeastReaction = 0.005;
constexpr double c_dReactionWidth = 1.5;  // pixels
constexpr double c_dBelow = 10.0;         // support
constexpr double c_dBeside = 6.0;
constexpr double c_dReactionFirst = 0.5;  // before values on members
constexpr double c_dMomentShift = 6.0;
constexpr double c_dInwards = 0.7;  // of a label at a member's end
constexpr int c_nColourLevels = 96;

constexpr std::array<Point3, 3> c_axes = {Point3{1.0, 0.0, 0.0}, Point3{0.0, 1.0, 0.0}, Point3{0.0, 0.0, 1.0}};

/// +1 when local z points upwards, or a column's to the left; a member turned round has the other sign.
double FindUpright(const LocalAxes& axes) {
  constexpr double c_dLevel = 1.0e-9;
  const double dUp = std::abs(axes.z.dZ) > c_dLevel ? axes.z.dZ : -axes.z.dX;
  return dUp < 0.0 ? -1.0 : 1.0;
}

/// Unit vector on the screen; none between equal points.
PaintPoint FindDirection(PaintPoint from, PaintPoint to) {
  const PaintPoint d = Shift(to, -1.0, from);
  const double dLength = std::hypot(d.dX, d.dY);
  return dLength > 0.0 ? PaintPoint{d.dX / dLength, d.dY / dLength} : PaintPoint{};
}

/// Whether the values lie on a straight line between the first and the last.
bool IsStraight(const std::vector<double>& values, double dTolerance) {
  const double dStep = (values.back() - values.front()) / static_cast<double>(values.size() - 1);
  for (std::size_t k = 0; k < values.size(); ++k) {
    if (std::abs(values[k] - values.front() - static_cast<double>(k) * dStep) > dTolerance) return false;
  }
  return true;
}

}  // namespace

/// A member's diagram in space.
struct CResultPainter::Ordinates {
  std::size_t nMember = 0;
  std::vector<double> values;  ///< two or more
  MemberLine feet;             ///< on the member
  MemberLine tips;
  double dDepth = 0.0;

  [[nodiscard]] double GetLargest() const {
    return std::abs(*std::ranges::max_element(values, {}, [](double d) { return std::abs(d); }));
  }
};

Point3 FindOrdinate(const CScene& scene, const SceneMember& member, MemberQuantity component, bool bAbsolute) {
  const LocalAxes axes = FindLocalAxes(scene.GetPlace(member.nNodeI), scene.GetPlace(member.nNodeJ));
  const double dUpright = FindUpright(axes);
  const bool bSideways = component == MemberQuantity::Qy || component == MemberQuantity::Mz;
  if (bAbsolute) return bSideways ? axes.y : dUpright * axes.z;
  if (component == MemberQuantity::My) return -1.0 * axes.z;
  if (component == MemberQuantity::Mz) return axes.y;
  return dUpright * (bSideways ? axes.y : axes.z);
}

CResultPainter::CResultPainter(IPaintContext& paint, const CScene& scene, const CCamera& camera, CShownParts shown)
    : m_paint(paint), m_scene(scene), m_camera(camera), m_shown(std::move(shown)) {}

std::vector<CResultPainter::Ordinates> CResultPainter::FormOrdinates(const StructureForces& forces,
                                                                     MemberQuantity component, double dScale) const {
  std::vector<Ordinates> all;
  for (std::size_t i = 0; i < forces.members.size(); ++i) {
    if (!forces.members[i].Has(component) || !m_shown.HasMember(i)) continue;
    const SceneMember& member = m_scene.GetMembers()[i];
    Ordinates one{i, forces.members[i].Get(component), {}, {}, m_camera.Project(m_scene.GetMiddle(member)).dDepth};
    if (one.values.size() == 1) one.values.push_back(one.values.front());
    const Point3 ordinate = FindOrdinate(m_scene, member, component, forces.bAbsolute);
    const Point3 start = m_scene.GetPlace(member.nNodeI);
    const Point3 along = m_scene.GetPlace(member.nNodeJ) - start;
    for (std::size_t k = 0; k < one.values.size(); ++k) {
      const double s = static_cast<double>(k) / static_cast<double>(one.values.size() - 1);
      one.feet.push_back(start + s * along);
      one.tips.push_back(one.feet.back() + (dScale * one.values[k]) * ordinate);
    }
    all.push_back(std::move(one));
  }
  std::ranges::sort(all, {}, &Ordinates::dDepth);
  return all;
}

void CResultPainter::PaintDiagram(const StructureForces& forces, MemberQuantity component, double dSize,
                                  CLabelField* pLabels) {
  const ForceExtremes extremes = FindExtremes(forces, component, m_shown);
  const double dLargest = extremes.GetMagnitude();
  if (dLargest == 0.0) return;
  for (const Ordinates& one : FormOrdinates(forces, component, dSize / dLargest)) {
    if (one.GetLargest() < c_dNothing * dLargest) continue;
    const bool bTension = component == MemberQuantity::N && !forces.bAbsolute && one.values.front() > 0.0;
    const AreaColours& colours = bTension ? c_tensionArea : c_plainArea;
    std::vector<PaintPoint> outline = {ToScreen(one.feet.front())};
    const std::size_t nStep = IsStraight(one.values, c_dStraight * dLargest) ? one.tips.size() - 1 : 1;
    for (std::size_t k = 0; k < one.tips.size(); k += nStep) outline.push_back(ToScreen(one.tips[k]));
    outline.push_back(ToScreen(one.feet.back()));
    m_paint.SetPen(colours.outline, 0.8);
    m_paint.SetBrush(colours.fill);
    m_paint.Polygon(outline);
    if (pLabels != nullptr) AddValues(one, extremes, *pLabels);
  }
}

void CResultPainter::AddValues(const Ordinates& ordinates, const ForceExtremes& extremes, CLabelField& labels) const {
  const std::vector<double>& values = ordinates.values;
  const double dLargest = extremes.GetMagnitude();
  const auto [low, high] = std::ranges::minmax_element(values);
  const std::size_t nLast = values.size() - 1;
  std::vector<std::size_t> places = {0, nLast};
  const auto nLargest = static_cast<std::size_t>((-*low > *high ? low : high) - values.begin());
  if (nLargest != 0 && nLargest != nLast) places.push_back(nLargest);
  if (*high - *low < c_dConstant * dLargest) places = {nLast / 2};
  const PaintPoint middle = ToScreen(m_scene.GetMiddle(m_scene.GetMembers()[ordinates.nMember]));
  for (const std::size_t k : places) {
    if (std::abs(values[k]) < c_dUnlabelled * dLargest) continue;
    const bool bExtreme = values[k] == extremes.dHighest || values[k] == extremes.dLowest;
    const bool bMiddle = places.size() == 1;
    const Point3 tip = bMiddle ? 0.5 * (ordinates.tips.front() + ordinates.tips.back()) : ordinates.tips[k];
    const Point3 foot = bMiddle ? 0.5 * (ordinates.feet.front() + ordinates.feet.back()) : ordinates.feet[k];
    const PaintPoint at = ToScreen(tip);
    const PaintPoint inwards = bMiddle ? PaintPoint{} : FindDirection(ToScreen(ordinates.feet[k]), middle);
    const PaintPoint aside = Shift(FindDirection(ToScreen(foot), at), c_dInwards, inwards);
    labels.Add({at, aside, FormatForce(values[k], dLargest), c_inkColour,
                std::abs(values[k]) / dLargest + (bExtreme ? 1.0 : 0.0)});
  }
}

void CResultPainter::PaintColours(std::span<const ColouredLine> lines, const CColourScale& scale, double dWidth) {
  const double dLevel = (scale.GetHigh() - scale.GetLow()) / c_nColourLevels;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const MemberLine& line = lines[i].line;
    const std::vector<double>& values = lines[i].values;
    if (!m_shown.HasMember(i) || line.empty()) continue;
    const auto getLevel = [&](std::size_t k) { return std::round(0.5 * (values[k] + values[k + 1]) / dLevel); };
    std::vector<PaintPoint> points = {ToScreen(line.front())};
    for (std::size_t k = 0; k + 1 < line.size(); ++k) {
      points.push_back(ToScreen(line[k + 1]));
      if (k + 2 < line.size() && getLevel(k + 1) == getLevel(k)) continue;
      m_paint.SetPen(scale.GetColour(getLevel(k) * dLevel), dWidth);
      m_paint.Polyline(points);
      points = {points.back()};
    }
  }
}

void CResultPainter::PaintReactions(const StructureForces& forces, CLabelField* pLabels) {
  std::array<double, 2> largest = {};  // of forces and moments
  for (const SupportForces& reaction : forces.reactions) {
    for (std::size_t d = 0; d < 6; ++d) largest[d / 3] = std::max(largest[d / 3], std::abs(reaction.forces[d]));
  }
  m_paint.SetPen(c_reactionColour, c_dReactionWidth);
  for (const SupportForces& reaction : forces.reactions) {
    if (!m_shown.HasNode(reaction.nNode)) continue;
    for (std::size_t d = 0; d < 6; ++d) PaintReaction(reaction, d, largest[d / 3], forces.bAbsolute, pLabels);
  }
}

/// A force comes to its support, one that pulls downwards leaves it below. A moment stands on the other side.
void CResultPainter::PaintReaction(const SupportForces& reaction, std::size_t nDirection, double dLargest,
                                   bool bAbsolute, CLabelField* pLabels) {
  const double dValue = reaction.forces[nDirection];
  if (dValue == 0.0 || std::abs(dValue) < c_dLeastReaction * dLargest) return;
  const bool bMoment = nDirection >= 3;
  const std::size_t nAxis = nDirection % 3;
  const bool bVertical = nAxis == 2;
  const double dForceSign = reaction.forces[nAxis] < 0.0 ? -1.0 : 1.0;
  const double dSide = bVertical ? -1.0 : bMoment ? dForceSign : -dForceSign;
  const PaintPoint axis = m_camera.ProjectDirection(c_axes[nAxis]).at;
  PaintPoint inner =
      Shift(ToScreen(m_scene.GetPlace(reaction.nNode)), dSide * (bVertical ? c_dBelow : c_dBeside), axis);
  if (bVertical && bMoment) inner.dX += c_dMomentShift;
  const PaintPoint outer = Shift(inner, dSide * ScaleArrow(dValue, dLargest), axis);
  const bool bOutwards = dValue * dSide > 0.0;
  PaintArrow(m_paint, bOutwards ? inner : outer, bOutwards ? outer : inner, bMoment);
  if (pLabels == nullptr) return;
  pLabels->Add({outer, Shift(outer, -1.0, inner), (bAbsolute ? "±" : "") + FormatForce(std::abs(dValue), dLargest),
                c_reactionColour, c_dReactionFirst + std::abs(dValue) / dLargest});
}

}  // namespace skyframe::host
