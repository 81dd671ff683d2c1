#include <algorithm>
#include <array>
#include <span>
#include <utility>
#include <vector>

#include "HostState.h"
#include "NodeGraph.h"
#include "skyframe/hostdata/HostData.h"

namespace skyframe {

namespace {

/// Entry n is the new number of node n, 1-based; entry 0 stays 0.
using NodeOrder = std::vector<int>;

/// Order in force, from the host's own numbering to the present one; empty outside a renumbering.
NodeOrder g_presentOrder;

std::array<std::array<float, 3>, c_nMaxSpringGroups + 1> g_springGroups;

int GetHostNodeCount() { return std::clamp(ABCD.m_nNodes, 0, c_nMaxNodes); }
int GetHostElementCount() { return std::clamp(ABCD.m_nElements, 0, c_nMaxElements); }

NodeOrder FormIdentity(int nNodes) {
  NodeOrder order(nNodes + 1);
  for (int i = 0; i <= nNodes; ++i) order[i] = i;
  return order;
}

NodeOrder Invert(const NodeOrder& order) {
  NodeOrder inverse(order.size());
  for (std::size_t i = 0; i < order.size(); ++i) inverse[order[i]] = static_cast<int>(i);
  return inverse;
}

NodeOrder FormSmallProfileOrder() {
  std::vector<std::pair<int, int>> edges;
  edges.reserve(GetHostElementCount());
  for (int k = 0; k < GetHostElementCount(); ++k) {
    edges.emplace_back(ABCD.m_nFirstNode[k] - 1, ABCD.m_nSecondNode[k] - 1);
  }
  const int nNodes = GetHostNodeCount();
  const std::vector<int> sequence = FormReverseCuthillMcKeeOrder(CNodeGraph(nNodes, edges));
  NodeOrder order(nNodes + 1, 0);
  for (int k = 0; k < nNodes; ++k) order[sequence[k] + 1] = k + 1;
  return order;
}

template <class Value>
void PermuteEntries(const NodeOrder& order, Value* pValues) {
  const std::vector<Value> old(pValues, pValues + order.size());
  for (std::size_t i = 1; i < order.size(); ++i) pValues[order[i]] = old[i];
}

/// Numbers outside the order are left as they are.
void MapNumbers(const NodeOrder& order, std::span<int> numbers) {
  for (int& nNode : numbers) {
    if (nNode > 0 && nNode < static_cast<int>(order.size())) nNode = order[nNode];
  }
}

void ApplyToRecords(const NodeOrder& order) {
  PermuteEntries(order, ABCD.m_fX);
  PermuteEntries(order, ABCD.m_fY);
  PermuteEntries(order, ABCD.m_fZ);
  PermuteEntries(order, ABCD.m_nRestraint);
  PermuteEntries(order, ABCD.m_nJoint);
  MapNumbers(order, std::span(ABCD.m_nFirstNode, GetHostElementCount()));
  MapNumbers(order, std::span(ABCD.m_nSecondNode, GetHostElementCount()));
  MapNumbers(order, std::span(ABCD.m_nLoadNode, std::clamp(ABCD.m_nLoads, 0, c_nMaxLoads)));
  MapNumbers(order, std::span(ZHU.m_nNode, std::clamp(ZHU.m_nCount, 0, c_nMaxNodes)));
}

void PublishOrder(const NodeOrder& order) {
  const NodeOrder inverse = Invert(order);
  if (COMDAT.m_pSecondOrder != nullptr) std::copy(order.begin() + 1, order.end(), COMDAT.m_pSecondOrder + 1);
  if (COMDAT.m_pFirstOrder != nullptr) std::copy(inverse.begin() + 1, inverse.end(), COMDAT.m_pFirstOrder + 1);
}

}  // namespace

void ForgetSpringGroups() { g_springGroups = {}; }

void ForgetNodeOrder() { g_presentOrder.clear(); }

void CCommonData::OnReNodeCode() {
  if (g_presentOrder.size() != static_cast<std::size_t>(GetHostNodeCount()) + 1) {
    g_presentOrder = FormIdentity(GetHostNodeCount());
  }
  const NodeOrder order = FormSmallProfileOrder();
  ApplyToRecords(order);
  MapNumbers(order, g_presentOrder);
  PublishOrder(g_presentOrder);
}

void CCommonData::OnRestoreNodeCode() {
  if (g_presentOrder.empty()) return;
  ApplyToRecords(Invert(g_presentOrder));
  g_presentOrder.clear();
}

void CCommonData::OnCalculateKxKyKz(int nGroup, float& fKx, float& fKy, float& fKz) {
  const bool bKnown = nGroup >= 0 && nGroup <= c_nMaxSpringGroups;
  const std::array<float, 3> k = bKnown ? g_springGroups[nGroup] : std::array<float, 3>{};
  fKx = k[0];
  fKy = k[1];
  fKz = k[2];
}

void CCommonData::SetSpringGroup(int nGroup, float fKx, float fKy, float fKz) {
  if (nGroup < 0 || nGroup > c_nMaxSpringGroups) return;
  g_springGroups[nGroup] = {fKx, fKy, fKz};
}

}  // namespace skyframe
