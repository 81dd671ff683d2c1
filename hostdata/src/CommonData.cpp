#include <algorithm>
#include <array>
#include <numeric>
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

/// Order from the present numbering to the host's own; empty outside a renumbering.
NodeOrder g_wayBack;

std::array<std::array<float, 3>, c_nMaxSpringGroups + 1> g_springGroups;

int GetHostNodeCount() { return std::clamp(ABCD.m_nNodes, 0, c_nMaxNodes); }
int GetHostElementCount() { return std::clamp(ABCD.m_nElements, 0, c_nMaxElements); }

NodeOrder FormIdentity(int nNodes) {
  NodeOrder order(nNodes + 1);
  std::iota(order.begin(), order.end(), 0);
  return order;
}

NodeOrder Invert(const NodeOrder& order) {
  NodeOrder inverse(order.size());
  for (std::size_t i = 0; i < order.size(); ++i) inverse[order[i]] = static_cast<int>(i);
  return inverse;
}

CNodeGraph FormGraph() {
  const auto ToVertex = [](int nNumber) { return std::max(nNumber, 0) - 1; };
  std::vector<std::pair<int, int>> edges;
  edges.reserve(GetHostElementCount());
  for (int k = 0; k < GetHostElementCount(); ++k) {
    edges.emplace_back(ToVertex(ABCD.m_nFirstNode[k]), ToVertex(ABCD.m_nSecondNode[k]));
  }
  return {GetHostNodeCount(), edges};
}

/// Free equations of a node that an element touches.
int CountFreeDofs(int nNode) {
  const RestraintCode code = RestraintCode::Decode(ABCD.m_nRestraint[nNode]);
  const int nDofs = ABCD.m_nJoint[nNode] == 1 ? 6 : 3;
  const int nFree = nDofs - std::accumulate(code.nRestrained, code.nRestrained + nDofs, 0);
  if (!code.bSpring) return nFree;
  std::array<float, 3> k = {};
  CCommonData::OnCalculateKxKyKz(code.nSpringGroup, k[0], k[1], k[2]);
  return nFree - static_cast<int>(std::count_if(k.begin(), k.end(), [](float f) { return f > 0.0F; }));
}

std::vector<int> CountFreeDofs(const CNodeGraph& graph) {
  std::vector<int> counts(static_cast<std::size_t>(graph.GetNodeCount()), 0);
  for (int i = 0; i < graph.GetNodeCount(); ++i) {
    if (graph.GetDegree(i) > 0) counts[i] = CountFreeDofs(i + 1);
  }
  return counts;
}

/// Small-profile orders that are tried. Of equal ones the first: on a building numbered from the ground it starts at
/// the roof, and eigenvalue iterations, which start from the first equation, take fewer steps from there.
constexpr LevelWalk c_walks[] = {{.bOtherEnd = false, .bDescending = false, .bForward = false},
                                 {.bOtherEnd = false, .bDescending = true, .bForward = false},
                                 {.bOtherEnd = true, .bDescending = false, .bForward = true},
                                 {.bOtherEnd = true, .bDescending = true, .bForward = true},
                                 {.bOtherEnd = true, .bDescending = false, .bForward = false},
                                 {.bOtherEnd = true, .bDescending = true, .bForward = false}};

/// The cheapest to factorise of the present order and the small-profile ones.
NodeOrder ChooseOrder() {
  const CNodeGraph graph = FormGraph();
  const std::vector<int> freeDofs = CountFreeDofs(graph);
  std::vector<int> sequence(freeDofs.size());
  std::iota(sequence.begin(), sequence.end(), 0);
  double dLeast = SumSquaredHeights(graph, sequence, freeDofs);
  for (const LevelWalk& walk : c_walks) {
    std::vector<int> small = FormCuthillMcKeeOrder(graph, walk);
    const double dWork = SumSquaredHeights(graph, small, freeDofs);
    if (dWork >= dLeast) continue;
    dLeast = dWork;
    sequence = std::move(small);
  }
  NodeOrder order(sequence.size() + 1, 0);
  for (std::size_t k = 0; k < sequence.size(); ++k) order[sequence[k] + 1] = static_cast<int>(k) + 1;
  return order;
}

/// Numbers outside the order are left as they are.
void MapNumbers(const NodeOrder& order, std::span<int> numbers) noexcept {
  for (int& nNode : numbers) {
    if (nNode > 0 && nNode < static_cast<int>(order.size())) nNode = order[nNode];
  }
}

void SwapNodes(int nA, int nB) {
  std::swap(ABCD.m_fX[nA], ABCD.m_fX[nB]);
  std::swap(ABCD.m_fY[nA], ABCD.m_fY[nB]);
  std::swap(ABCD.m_fZ[nA], ABCD.m_fZ[nB]);
  std::swap(ABCD.m_nRestraint[nA], ABCD.m_nRestraint[nB]);
  std::swap(ABCD.m_nJoint[nA], ABCD.m_nJoint[nB]);
}

/// Needs no memory: the order is used up, and ends as the identity.
void ApplyToRecords(NodeOrder& order) noexcept {
  MapNumbers(order, std::span(ABCD.m_nFirstNode, GetHostElementCount()));
  MapNumbers(order, std::span(ABCD.m_nSecondNode, GetHostElementCount()));
  MapNumbers(order, std::span(ABCD.m_nLoadNode, std::clamp(ABCD.m_nLoads, 0, c_nMaxLoads)));
  MapNumbers(order, std::span(ZHU.m_nNode, std::clamp(ZHU.m_nCount, 0, c_nMaxNodes)));
  for (int i = 1; i < static_cast<int>(order.size()); ++i) {
    while (order[i] != i) {  // sends the record that stands here to its place
      SwapNodes(i, order[i]);
      std::swap(order[i], order[order[i]]);
    }
  }
}

void PublishOrder(const NodeOrder& fromHost, const NodeOrder& toHost) noexcept {
  if (COMDAT.m_pSecondOrder != nullptr) std::copy(fromHost.begin() + 1, fromHost.end(), COMDAT.m_pSecondOrder + 1);
  if (COMDAT.m_pFirstOrder != nullptr) std::copy(toHost.begin() + 1, toHost.end(), COMDAT.m_pFirstOrder + 1);
}

}  // namespace

void ForgetSpringGroups() { g_springGroups = {}; }

void ForgetNodeOrder() { g_wayBack.clear(); }

void CCommonData::OnReNodeCode() {
  NodeOrder order = ChooseOrder();
  const NodeOrder previous = g_wayBack.size() == order.size() ? g_wayBack : FormIdentity(GetHostNodeCount());
  NodeOrder toHost(order.size());
  for (std::size_t i = 0; i < order.size(); ++i) toHost[order[i]] = previous[i];
  const NodeOrder fromHost = Invert(toHost);
  // All memory is at hand: from here on nothing can fail.
  ApplyToRecords(order);
  PublishOrder(fromHost, toHost);
  g_wayBack.swap(toHost);
}

void CCommonData::OnRestoreNodeCode() noexcept {
  ApplyToRecords(g_wayBack);
  g_wayBack.clear();
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
