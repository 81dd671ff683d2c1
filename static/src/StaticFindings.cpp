#include <algorithm>
#include <cmath>
#include <limits>

#include "skyframe/model/AnalysisModel.h"

namespace skyframe {

bool CAnalysisModel::BeginStatic(bool bNonlinear) {
  m_staticFindings = {};
  m_staticFindings.bNonlinear = bNonlinear;
  m_staticFindings.status = m_bValid ? RunStatus::Failed : RunStatus::Refused;  // until it is done
  return m_bValid;
}

bool CAnalysisModel::PrepareStatic() {
  ClearDisplacements();
  if (!AssembleStiffness(m_stiffness, false, false)) return false;
  const bool bStable = m_stiffness.Decompose(GetFreeDofs());
  m_staticFindings.conditioning = DescribeConditioning(m_stiffness);
  if (!bStable) return false;
  AssembleCombinedLoad();
  m_staticFindings.loads = GatherNodeValues(GetLoadVector().first(GetFreeDofs()));
  return true;
}

void CAnalysisModel::KeepStaticState() {
  m_staticFindings.displacements = GatherNodeValues(m_displacement);
  std::vector<double> reactions(GetTotalDofs());  // 0 over the free equations
  std::copy(m_reaction.begin(), m_reaction.end(), reactions.begin() + GetFreeDofs());
  m_staticFindings.reactions = GatherNodeValues(reactions);
}

void CAnalysisModel::KeepMemberState() {
  StaticFindings& found = m_staticFindings;
  found.eulerRatios.assign(m_elements.size(), 0.0);
  for (std::size_t n = 0; n < m_elements.size(); ++n) {
    if (!m_elements[n]) continue;
    found.eulerRatios[n] = m_elements[n]->GetEulerRatio();
    const double dTwist = m_elements[n]->GetTwist();
    if (dTwist <= found.dLargestTwist) continue;
    found.dLargestTwist = dTwist;
    found.nTwistedElement = static_cast<int>(n) + 1;
  }
}

DofPlace CAnalysisModel::FindLargest(std::span<const double> v) const {
  const auto size = [](double d) { return std::isnan(d) ? std::numeric_limits<double>::infinity() : std::abs(d); };
  const auto it = std::ranges::max_element(v, {}, size);
  if (it == v.end() || *it == 0.0) return {};
  return FindDofPlace(static_cast<int>(it - v.begin()));
}

}  // namespace skyframe
