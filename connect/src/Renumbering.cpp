#include "Renumbering.h"

#include <algorithm>
#include <numeric>

#include "skyframe/hostdata/HostData.h"

namespace skyframe {

CRenumbering::CRenumbering() : CRenumbering(std::clamp(ABCD.m_nNodes, 0, c_nMaxNodes)) { CCommonData::OnReNodeCode(); }

CRenumbering::CRenumbering(int nNodes) : m_firstOrder(static_cast<std::size_t>(nNodes) + 1) {
  std::iota(m_firstOrder.begin(), m_firstOrder.end(), 0);
  m_secondOrder = m_firstOrder;
  COMDAT.m_pFirstOrder = m_firstOrder.data();
  COMDAT.m_pSecondOrder = m_secondOrder.data();
}

CRenumbering::~CRenumbering() {
  CCommonData::OnRestoreNodeCode();
  COMDAT.m_pSecondOrder = nullptr;
  COMDAT.m_pFirstOrder = nullptr;
}

}  // namespace skyframe
