#include "skyframe/model/NodeTable.h"

#include <algorithm>

#include "skyframe/platform/Platform.h"
#include "texts.h"

namespace skyframe {

const CNodeTable* g_pNodeTable = nullptr;

std::string_view GetDofName(int nDirection) { return texts::c_strDofNames[nDirection]; }

void CNodeTable::Clear() { *this = CNodeTable(); }

void CNodeTable::Resize(int nNodes) {
  Clear();
  m_jointKind.assign(nNodes, 0);
  m_initial.assign(nNodes, {});
  m_current.assign(nNodes, {});
  m_isListed.assign(nNodes, 0);
  for (std::vector<int>& dofs : m_dof) dofs.assign(nNodes, 0);
}

void CNodeTable::SetNode(int nNode, int nJointKind, double dX, double dY, double dZ) {
  m_nRigid += static_cast<int>(nJointKind == 1) - static_cast<int>(IsRigid(nNode));
  m_jointKind[nNode] = static_cast<unsigned char>(nJointKind);
  m_initial[nNode] = {dX, dY, dZ};
  m_current[nNode] = m_initial[nNode];
}

void CNodeTable::MoveNodes(std::span<const double> u) {
  for (const int nNode : m_listed) {
    for (int nDirection = 0; nDirection < 3; ++nDirection) {
      m_current[nNode][nDirection] += GetValue(u, nNode, nDirection);
    }
  }
}

void CNodeTable::AddListedNode(int nNode, const std::array<int, c_nDofsPerNode>& restraint) {
  m_listed.push_back(nNode);
  m_isListed[nNode] = 1;
  for (int nDirection = 0; nDirection < c_nDofsPerNode; ++nDirection) {
    m_restraint[nDirection].push_back(restraint[nDirection] != 0 ? 1 : 0);
  }
}

void CNodeTable::AddSpring(int nNode, const std::array<double, 3>& stiffness) {
  m_springs.push_back({nNode, stiffness});
}

void CNodeTable::NumberDofs() {
  for (std::vector<int>& dofs : m_dof) std::fill(dofs.begin(), dofs.end(), 0);
  m_nTotal = 0;
  int nRestrained = 0;
  for (std::size_t k = 0; k < m_listed.size(); ++k) {
    const int nDofs = IsRigid(m_listed[k]) ? c_nDofsPerNode : 3;
    m_nTotal += nDofs;
    for (int nDirection = 0; nDirection < nDofs; ++nDirection) nRestrained += m_restraint[nDirection][k];
  }
  m_nFree = m_nTotal - nRestrained;

  int nNextFree = 0;
  int nNextRestrained = m_nFree;
  for (std::size_t k = 0; k < m_listed.size(); ++k) {
    const int nNode = m_listed[k];
    const int nDofs = IsRigid(nNode) ? c_nDofsPerNode : 3;
    for (int nDirection = 0; nDirection < nDofs; ++nDirection) {
      int& nNext = m_restraint[nDirection][k] != 0 ? nNextRestrained : nNextFree;
      m_dof[nDirection][nNode] = nNext++;
    }
  }
}

int CNodeTable::FindDof(int nNode, int nDirection) const {
  const bool bInRange = nNode >= 0 && nNode < GetNodeCount() && nDirection >= 0 && nDirection < c_nDofsPerNode;
  return bInRange && HasDof(nNode, nDirection) ? GetDof(nNode, nDirection) : -1;
}

double CNodeTable::GetValue(std::span<const double> u, int nNode, int nDirection) const {
  const int nDof = FindDof(nNode, nDirection);
  return nDof >= 0 && static_cast<std::size_t>(nDof) < u.size() ? u[nDof] : 0.0;
}

int CNodeTable::FindNodeOfDof(int nDof, std::string_view& strName) const {
  for (int nNode = 0; nNode < GetNodeCount(); ++nNode) {
    for (int nDirection = 0; nDirection < c_nDofsPerNode; ++nDirection) {
      if (!HasDof(nNode, nDirection) || GetDof(nNode, nDirection) != nDof) continue;
      strName = GetDofName(nDirection);
      return nNode;
    }
  }
  GetPlatform().ShowMessage(texts::c_strNoSuchDof);
  return -1;
}

}  // namespace skyframe
