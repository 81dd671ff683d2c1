#include "skyframe/scene/BentMember.h"

#include <algorithm>
#include <utility>

#include "skyframe/values/HermiteCubic.h"

namespace skyframe::host {

namespace {

constexpr double c_dLeastLength2 = 1.0e-30;  // m2

/// Derivatives of the displacement by xi at the ends. A rotation turns the chord and the axial part stretches it; an
/// end that does not turn with its node is free of moment.
std::pair<Point3, Point3> FindSlopes(const SceneMember& member, const DeformedShape& shape, Point3 chord) {
  const Point3 du = shape.GetTranslation(member.nNodeJ) - shape.GetTranslation(member.nNodeI);
  const Point3 axial = (Dot(du, chord) / std::max(Dot(chord, chord), c_dLeastLength2)) * chord;
  const auto turn = [&](int nNode) { return axial + Cross(shape.GetRotation(nNode), chord); };
  const auto release = [du](Point3 other) { return 1.5 * du - 0.5 * other; };
  const auto [bTurnI, bTurnJ] = member.turns;
  if (!bTurnI) return {release(turn(member.nNodeJ)), turn(member.nNodeJ)};
  return {turn(member.nNodeI), bTurnJ ? turn(member.nNodeJ) : release(turn(member.nNodeI))};
}

}  // namespace

MemberLine BendMember(const CScene& scene, const SceneMember& member, const DeformedShape& shape, double dFactor,
                      int nSteps) {
  const Point3 xi = scene.GetPlace(member.nNodeI);
  const Point3 xj = scene.GetPlace(member.nNodeJ);
  const Point3 ui = shape.GetTranslation(member.nNodeI);
  const Point3 uj = shape.GetTranslation(member.nNodeJ);
  const auto [bTurnI, bTurnJ] = member.turns;
  if (!shape.IsMode() || !(bTurnI || bTurnJ) || nSteps == 1) return {xi + dFactor * ui, xj + dFactor * uj};
  const auto [di, dj] = FindSlopes(member, shape, xj - xi);
  MemberLine line;
  line.reserve(static_cast<std::size_t>(nSteps) + 1);
  for (int k = 0; k <= nSteps; ++k) {
    const double s = static_cast<double>(k) / nSteps;
    const HermiteCubic h = FormHermiteCubic(s);
    const Point3 u = h.dI * ui + h.dSlopeI * di + h.dJ * uj + h.dSlopeJ * dj;
    line.push_back(xi + s * (xj - xi) + dFactor * u);
  }
  return line;
}

Point3 CDrawnPlaces::GetNode(int nNode) const {
  const Point3 at = m_scene.GetPlace(nNode);
  return m_pShape == nullptr ? at : at + m_dFactor * m_pShape->GetTranslation(nNode);
}

MemberLine CDrawnPlaces::GetMember(std::size_t nMember, int nSteps) const {
  const SceneMember& member = m_scene.GetMembers()[nMember];
  if (m_pShape == nullptr) return {m_scene.GetPlace(member.nNodeI), m_scene.GetPlace(member.nNodeJ)};
  return BendMember(m_scene, member, *m_pShape, m_dFactor, nSteps);
}

std::vector<MemberLine> BendMembers(const CScene& scene, const DeformedShape& shape, double dFactor, int nSteps) {
  std::vector<MemberLine> lines;
  lines.reserve(scene.GetMembers().size());
  for (const SceneMember& member : scene.GetMembers())
    lines.push_back(BendMember(scene, member, shape, dFactor, nSteps));
  return lines;
}

}  // namespace skyframe::host
