#include "DoubtfulInput.h"

#include <algorithm>
#include <iterator>
#include <set>

#include "DoubtfulAnalyses.h"
#include "JsonText.h"
#include "skyframe/job/FreeBody.h"
#include "skyframe/job/Places.h"
#include "skyframe/job/Text.h"
#include "texts.h"

namespace skyframe::host {

namespace {

std::string At(std::string_view strList, std::size_t nIndex) {
  return AppendPointer(AppendPointer("", strList), nIndex);
}

class CDoubtfulInput {
 public:
  explicit CDoubtfulInput(const Job& job) : m_job(job), m_isUsed(job.nodes.size() + 1), m_hasBeam(m_isUsed.size()) {
    for (const JobElement& element : job.elements) {
      for (const int nNode : {element.nNodeI, element.nNodeJ}) {
        m_isUsed[nNode] = true;
        if (element.nType == c_nBeam) m_hasBeam[nNode] = true;
      }
    }
  }

  std::vector<JobProblem> Find() {
    CheckNodes();
    CheckSupports();
    CheckSprings();
    CheckElements();
    CheckLoads();
    return std::move(m_found);
  }

 private:
  void CheckNodes() {
    for (std::size_t k = 0; k < m_job.nodes.size(); ++k) {
      const JobNode& node = m_job.nodes[k];
      const std::string strNode = std::to_string(node.nId);
      if (!m_isUsed[k + 1]) {
        m_found.push_back({At("nodes", k), Say(texts::c_unusedNode, {strNode}), "unused-node"});
      } else if (node.nJoint == c_nRigid && !m_hasBeam[k + 1] && !HasFixedRotations(node)) {
        m_found.push_back({At("nodes", k), Say(texts::c_looseRotation, {strNode}), "loose-rotation"});
      }
    }
  }

  void CheckSupports() {
    const std::optional<DofPlace> place = FindFreeBody(m_job);
    if (!place) return;
    m_found.push_back({At("nodes", static_cast<std::size_t>(place->nNode - 1)),
                       Say(texts::c_freeBody, {DescribePlace(m_job, *place)}), "mechanism"});
  }

  static bool HasFixedRotations(const JobNode& node) {
    return std::all_of(node.restraint.begin() + 3, node.restraint.end(), [](int nFlag) { return nFlag == 1; });
  }

  void CheckSprings() {
    std::set<int> stiff;
    for (const JobSpring& spring : m_job.springs) {
      if (std::max({spring.dKx, spring.dKy, spring.dKz}) > 0.0) stiff.insert(spring.nGroup);
    }
    const auto nSprings = std::count_if(m_job.nodes.begin(), m_job.nodes.end(), [&stiff](const JobNode& node) {
      return node.nSpring && stiff.contains(*node.nSpring);
    });
    if (nSprings == 0) return;
    m_found.push_back({"/springs", Say(texts::c_springSupport, {std::to_string(nSprings)}), "spring-support"});
  }

  void CheckElements() {
    for (std::size_t k = 0; k < m_job.elements.size(); ++k) {
      const JobElement& element = m_job.elements[k];
      const JobSection& section = m_job.sections[element.nSection];
      const bool bBends = element.nType == c_nBeam && (IsRigid(element.nNodeI) || IsRigid(element.nNodeJ));
      if (section.dArea == 0.0) {
        m_found.push_back({At("elements", k), Say(texts::c_noArea, {Quote(section.strId)}), "no-area"});
      } else if (bBends && (section.dIy == 0.0 || section.dIz == 0.0)) {
        m_found.push_back({At("elements", k), Say(texts::c_noInertia, {Quote(section.strId)}), "no-inertia"});
      }
    }
  }

  void CheckLoads() {
    for (std::size_t k = 0; k < m_job.loads.size(); ++k) {
      const int nNode = m_job.loads[k].nNode;
      if (m_isUsed[nNode]) continue;
      m_found.push_back(
          {At("loads", k), Say(texts::c_lostLoad, {std::to_string(m_job.nodes[nNode - 1].nId)}), "lost-load"});
    }
  }

  bool IsRigid(int nNode) const { return m_job.nodes[nNode - 1].nJoint == c_nRigid; }

  const Job& m_job;
  std::vector<bool> m_isUsed;   ///< by host number
  std::vector<bool> m_hasBeam;  ///< by host number
  std::vector<JobProblem> m_found;
};

}  // namespace

std::vector<JobProblem> FindDoubtfulInput(const Job& job, const std::string& strJobPath) {
  std::vector<JobProblem> found = CDoubtfulInput(job).Find();
  std::ranges::move(FindDoubtfulAnalyses(job, strJobPath), std::back_inserter(found));
  return found;
}

}  // namespace skyframe::host
