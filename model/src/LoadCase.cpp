#include "skyframe/model/LoadCase.h"

#include "skyframe/model/NodeTable.h"
#include "skyframe/platform/Platform.h"
#include "texts.h"

namespace skyframe {
namespace {

/// Load directions 0..5 are X, Y, Z, RY, RZ, RX.
constexpr int c_nDofOfLoadDirection[] = {c_nDofX, c_nDofY, c_nDofZ, c_nDofRY, c_nDofRZ, c_nDofRX};

int FindLoadedDof(const CNodalLoad& load) {
  if (load.m_nDirection < 0 || load.m_nDirection >= c_nDofsPerNode) return -1;
  return g_pNodeTable->FindDof(load.m_nNode, c_nDofOfLoadDirection[load.m_nDirection]);
}

}  // namespace

int CNodalLoad::AddToVector(std::span<double> loadVector, std::span<double> secondVector, double dFactor) const {
  GetPlatform().GetConsole() << texts::c_strAssembleLoad << '\n';
  const int nDof = FindLoadedDof(*this);
  if (nDof >= 0) (m_nTarget == 1 ? secondVector : loadVector)[nDof] += dFactor * m_dValue;
  return nDof;
}

}  // namespace skyframe
