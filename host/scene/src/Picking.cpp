#include "skyframe/scene/Picking.h"

#include <algorithm>
#include <cmath>

namespace skyframe::host {

namespace {

constexpr double c_dSame = 1.0;  // pixels that a hand does not tell apart

/// The nearest of what is offered.
class CNearest {
 public:
  explicit CNearest(double dReach) : m_dDistance(dReach) {}

  void Offer(ScenePart part, double dDistance, double dDepth) {
    if (!(dDistance <= m_dDistance + (m_part ? c_dSame : 0.0))) return;
    if (m_part && dDistance > m_dDistance - c_dSame && dDepth <= m_dDepth) return;
    m_part = part;
    m_dDistance = dDistance;
    m_dDepth = dDepth;
  }
  [[nodiscard]] std::optional<ScenePart> Get() const { return m_part; }

 private:
  std::optional<ScenePart> m_part;
  double m_dDistance;
  double m_dDepth = 0.0;
};

double Distance(PaintPoint a, PaintPoint b) { return std::hypot(a.dX - b.dX, a.dY - b.dY); }

/// Part of the way from a to b at which a line comes nearest to a point.
double FindFoot(PaintPoint a, PaintPoint b, PaintPoint at) {
  const double dX = b.dX - a.dX, dY = b.dY - a.dY;
  const double dSquare = dX * dX + dY * dY;
  if (!(dSquare > 0.0)) return 0.0;
  return std::clamp(((at.dX - a.dX) * dX + (at.dY - a.dY) * dY) / dSquare, 0.0, 1.0);
}

/// A piece of a member's line.
void OfferPiece(CNearest& nearest, int nMember, const ScreenPoint& i, const ScreenPoint& j, PaintPoint at) {
  const double t = FindFoot(i.at, j.at, at);
  const PaintPoint foot = {i.at.dX + t * (j.at.dX - i.at.dX), i.at.dY + t * (j.at.dY - i.at.dY)};
  nearest.Offer({ScenePart::Kind::Member, nMember}, Distance(foot, at), i.dDepth + t * (j.dDepth - i.dDepth));
}

}  // namespace

std::optional<ScenePart> PickPart(const CDrawnPlaces& places, const CCamera& camera, PaintPoint at, double dReach,
                                  const CShownParts& shown) {
  const CScene& scene = places.GetScene();
  CNearest node(dReach);
  for (int i = 0; i < static_cast<int>(scene.GetNodes().size()); ++i) {
    if (!shown.HasNode(i)) continue;
    const ScreenPoint point = camera.Project(places.GetNode(i));
    node.Offer({ScenePart::Kind::Node, i}, Distance(point.at, at), point.dDepth);
  }
  if (node.Get()) return node.Get();
  CNearest nearest(dReach);
  for (std::size_t k = 0; k < scene.GetMembers().size(); ++k) {
    if (!shown.HasMember(k)) continue;
    const MemberLine line = places.GetMember(k);
    for (std::size_t n = 0; n + 1 < line.size(); ++n) {
      OfferPiece(nearest, static_cast<int>(k), camera.Project(line[n]), camera.Project(line[n + 1]), at);
    }
  }
  return nearest.Get();
}

}  // namespace skyframe::host
