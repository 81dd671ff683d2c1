#include "skyframe/scene/Scene.h"

#include <algorithm>
#include <map>
#include <numeric>

namespace skyframe::host {

namespace {

using Restraint = std::array<int, 6>;

constexpr std::array<Point3, 3> c_axes = {Point3{1.0, 0.0, 0.0}, Point3{0.0, 1.0, 0.0}, Point3{0.0, 0.0, 1.0}};

SupportKind ClassifySupport(const JobNode& node) {
  if (node.nSpring) return SupportKind::Spring;
  const auto count = [&node](std::size_t nFirst) {
    return std::accumulate(node.restraint.begin() + static_cast<std::ptrdiff_t>(nFirst),
                           node.restraint.begin() + static_cast<std::ptrdiff_t>(nFirst + 3), 0);
  };
  if (count(0) < 3) return SupportKind::Partial;
  if (node.nJoint == c_nRigid && count(3) == 3) return SupportKind::Clamped;
  return count(3) == 0 || node.nJoint == c_nPinned ? SupportKind::Hinged : SupportKind::Partial;
}

Restraint FindCommonRestraint(const std::vector<JobNode>& nodes) {
  Restraint common = nodes.front().restraint;
  for (const JobNode& node : nodes) {
    for (std::size_t d = 0; d < common.size(); ++d) common[d] = common[d] * node.restraint[d];
  }
  return common;
}

/// Loads with their factors, added up by case and degree of freedom. getCase and getFactor are functions of a load's
/// case.
template <class GetCase, class GetFactor>
std::vector<SceneLoad> SumLoads(const std::vector<SceneLoad>& loads, GetCase getCase, GetFactor getFactor) {
  std::map<std::array<int, 4>, SceneLoad> sums;
  for (const SceneLoad& load : loads) {
    const int nCase = getCase(load.nCase);
    SceneLoad& sum = sums[{nCase, load.nNode, load.bMoment ? 1 : 0, load.nAxis}];
    sum = {nCase, load.nNode, load.nAxis, load.bMoment, sum.dValue + getFactor(load.nCase) * load.dValue};
  }
  std::vector<SceneLoad> result;
  for (const auto& [place, load] : sums) {
    if (load.dValue != 0.0) result.push_back(load);
  }
  return result;
}

}  // namespace

Point3 SceneLoad::GetDirection() const { return (dValue < 0.0 ? -1.0 : 1.0) * c_axes[static_cast<std::size_t>(nAxis)]; }

std::vector<SceneLoad> SelectLoads(const std::vector<SceneLoad>& loads, std::optional<int> nCase) {
  return SumLoads(
      loads, [](int nOwn) { return nOwn; }, [nCase](int nOwn) { return !nCase || *nCase == nOwn ? 1.0 : 0.0; });
}

std::vector<SceneLoad> CombineLoads(const std::vector<SceneLoad>& loads, const JobCombination& factors) {
  return SumLoads(
      loads, [](int /*nOwn*/) { return c_nCombined; },
      [&factors](int nOwn) {
        const auto it = factors.find(nOwn);
        return it == factors.end() ? 0.0 : it->second;
      });
}

CScene::CScene(const Job& job) {
  for (const JobNode& node : job.nodes) m_nodes.push_back({{node.dX, node.dY, node.dZ}, node.nId});
  for (const JobElement& element : job.elements) {
    const auto turns = [&](int nNode) {
      return element.nType == c_nBeam && job.nodes[static_cast<std::size_t>(nNode - 1)].nJoint == c_nRigid;
    };
    m_members.push_back({element.nType,
                         element.nNodeI - 1,
                         element.nNodeJ - 1,
                         {turns(element.nNodeI), turns(element.nNodeJ)},
                         element.nSection});
  }
  for (const JobLoad& load : job.loads) {
    if (load.dValue == 0.0) continue;
    m_loads.push_back({load.nCase, load.nNode - 1, load.nDirection % 3, load.nDirection >= 3, load.dValue});
  }
  for (const JobSection& section : job.sections) m_sectionNames.push_back(section.strId);
  if (m_nodes.empty()) return;
  AddSupports(job.nodes);
  MeasureExtents();
}

Point3 CScene::GetMiddle(const SceneMember& member) const {
  return 0.5 * (GetPlace(member.nNodeI) + GetPlace(member.nNodeJ));
}

double CScene::GetRadius() const {
  const double dRadius = 0.5 * Length(m_extents);
  return dRadius > 0.0 ? dRadius : 1.0;
}

void CScene::AddSupports(const std::vector<JobNode>& nodes) {
  const Restraint common = FindCommonRestraint(nodes);
  for (std::size_t i = 0; i < nodes.size(); ++i) {
    if (!nodes[i].nSpring && nodes[i].restraint == common) continue;
    m_supports.push_back({static_cast<int>(i), ClassifySupport(nodes[i])});
  }
}

void CScene::MeasureExtents() {
  Point3 low = m_nodes.front().at;
  Point3 high = low;
  for (const auto& [at, nId] : m_nodes) {
    low = {std::min(low.dX, at.dX), std::min(low.dY, at.dY), std::min(low.dZ, at.dZ)};
    high = {std::max(high.dX, at.dX), std::max(high.dY, at.dY), std::max(high.dZ, at.dZ)};
  }
  m_centre = 0.5 * (low + high);
  m_extents = high - low;
}

CShownParts::CShownParts(const CScene& scene, std::vector<bool> members, const std::set<int>& nodes)
    : m_members(std::move(members)), m_nodes(scene.GetNodes().size()) {
  for (const int nNode : nodes) m_nodes[static_cast<std::size_t>(nNode)] = true;
  for (std::size_t i = 0; i < m_members.size(); ++i) {
    if (!m_members[i]) continue;
    const SceneMember& member = scene.GetMembers()[i];
    for (const int nNode : {member.nNodeI, member.nNodeJ}) m_nodes[static_cast<std::size_t>(nNode)] = true;
  }
}

std::size_t CShownParts::CountMembers(const CScene& scene) const {
  if (m_members.empty()) return scene.GetMembers().size();
  return static_cast<std::size_t>(std::ranges::count(m_members, true));
}

}  // namespace skyframe::host
