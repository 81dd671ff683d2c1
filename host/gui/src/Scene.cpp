#include "skyframe/gui/Scene.h"

#include <algorithm>
#include <numeric>

namespace skyframe::gui {

namespace {

constexpr std::array<Point3, 3> c_axes = {Point3{1.0, 0.0, 0.0}, Point3{0.0, 1.0, 0.0}, Point3{0.0, 0.0, 1.0}};

SupportKind ClassifySupport(const host::JobNode& node) {
  if (node.nSpring) return SupportKind::Spring;
  const auto count = [&node](std::size_t nFirst) {
    return std::accumulate(node.restraint.begin() + static_cast<std::ptrdiff_t>(nFirst),
                           node.restraint.begin() + static_cast<std::ptrdiff_t>(nFirst + 3), 0);
  };
  if (count(0) < 3) return SupportKind::Partial;
  if (node.nJoint == host::c_nRigid && count(3) == 3) return SupportKind::Clamped;
  return count(3) == 0 || node.nJoint == host::c_nPinned ? SupportKind::Hinged : SupportKind::Partial;
}

bool IsSupported(const host::JobNode& node) {
  return node.nSpring || std::any_of(node.restraint.begin(), node.restraint.end(), [](int n) { return n != 0; });
}

Point3 Translation(const Shape& shape, int nNode) {
  const auto& u = shape.values[static_cast<std::size_t>(nNode)];
  return {u[0], u[1], u[2]};
}

Point3 Rotation(const Shape& shape, int nNode) {
  const auto& u = shape.values[static_cast<std::size_t>(nNode)];
  return {u[3], u[4], u[5]};
}

}  // namespace

CScene::CScene(const host::Job& job) {
  for (const host::JobNode& node : job.nodes) {
    if (IsSupported(node)) m_supports.push_back({static_cast<int>(m_nodes.size()), ClassifySupport(node)});
    m_nodes.push_back({node.dX, node.dY, node.dZ});
  }
  for (const host::JobElement& element : job.elements) {
    m_elements.push_back({element.nType, element.nNodeI - 1, element.nNodeJ - 1});
  }
  for (const host::JobLoad& load : job.loads) {
    if (load.dValue == 0.0) continue;
    const Point3 axis = c_axes[static_cast<std::size_t>(load.nDirection % 3)];
    const double dSign = load.dValue < 0.0 ? -1.0 : 1.0;
    m_loads.push_back({load.nCase, load.nNode - 1, dSign * axis, load.nDirection >= 3});
  }
  MeasureExtent();
}

void CScene::MeasureExtent() {
  if (m_nodes.empty()) return;
  Point3 low = m_nodes.front();
  Point3 high = low;
  for (const Point3& node : m_nodes) {
    low = {std::min(low.dX, node.dX), std::min(low.dY, node.dY), std::min(low.dZ, node.dZ)};
    high = {std::max(high.dX, node.dX), std::max(high.dY, node.dY), std::max(high.dZ, node.dZ)};
  }
  m_centre = 0.5 * (low + high);
  const double dRadius = 0.5 * Length(high - low);
  m_dRadius = dRadius > 0.0 ? dRadius : 1.0;
}

std::vector<Point3> CScene::FormDeformedLine(const SceneElement& element, const Shape& shape, double dFactor,
                                             int nPoints) const {
  const Point3 xi = m_nodes[static_cast<std::size_t>(element.nNodeI)];
  const Point3 xj = m_nodes[static_cast<std::size_t>(element.nNodeJ)];
  const Point3 ui = Translation(shape, element.nNodeI);
  const Point3 uj = Translation(shape, element.nNodeJ);
  if (!shape.bRotations || element.nType != host::c_nBeam || nPoints == 2)
    return {xi + dFactor * ui, xj + dFactor * uj};
  const Point3 chord = xj - xi;
  const double L = Length(chord);
  if (L == 0.0) return {xi + dFactor * ui, xj + dFactor * uj};
  const Point3 axial = (Dot(uj - ui, chord) / (L * L)) * chord;
  // du/ds at the ends, s = x/L: the rotation turns the chord, the axial part stretches it.
  const Point3 di = axial + Cross(Rotation(shape, element.nNodeI), chord);
  const Point3 dj = axial + Cross(Rotation(shape, element.nNodeJ), chord);
  std::vector<Point3> points;
  for (int k = 0; k < nPoints; ++k) {
    const double s = static_cast<double>(k) / (nPoints - 1);
    const double r = 1.0 - s;
    // u = (1 - 3s^2 + 2s^3) ui + s(1-s)^2 di + (3s^2 - 2s^3) uj - s^2(1-s) dj
    const Point3 u =
        (r * r * (1.0 + 2.0 * s)) * ui + (s * r * r) * di + (s * s * (3.0 - 2.0 * s)) * uj - (s * s * r) * dj;
    points.push_back(xi + s * chord + dFactor * u);
  }
  return points;
}

}  // namespace skyframe::gui
