#include "skyframe/history/BaseShear.h"

#include "skyframe/model/NodeTable.h"
#include "skyframe/numeric/SparseMatrix.h"

namespace skyframe {

CBaseShear::CBaseShear(SparseMatrix& K, const CNodeTable& nodes) {
  const int F = nodes.GetFreeDofs();
  for (const int nDirection : {c_nDofX, c_nDofY, c_nDofZ}) {
    const auto d = static_cast<std::size_t>(nDirection);
    std::vector<double> sum(static_cast<std::size_t>(F));
    for (const int nNode : nodes.GetListedNodes()) {
      const int nSupport = nodes.GetDof(nNode, nDirection);
      if (nSupport < F) continue;
      m_supports[d].push_back(static_cast<std::size_t>(nSupport - F));
      const int nTop = nSupport + 1 - K.GetHeights()[static_cast<std::size_t>(nSupport)];
      for (int i = nTop; i < F; ++i) sum[static_cast<std::size_t>(i)] -= K(i, nSupport);
    }
    for (std::size_t i = 0; i < sum.size(); ++i) {
      if (sum[i] != 0.0) m_terms[d].push_back({i, sum[i]});
    }
  }
}

std::array<double, 3> CBaseShear::Compute(std::span<const double> u) const {
  std::array<double, 3> shear = {};
  for (std::size_t d = 0; d < shear.size(); ++d) {
    for (const Term& term : m_terms[d]) shear[d] += term.dFactor * u[term.nEquation];
  }
  return shear;
}

std::array<double, 3> CBaseShear::Sum(std::span<const double> reactions) const {
  std::array<double, 3> shear = {};
  for (std::size_t d = 0; d < shear.size(); ++d) {
    for (const std::size_t k : m_supports[d]) shear[d] += reactions[k];
  }
  return shear;
}

}  // namespace skyframe
