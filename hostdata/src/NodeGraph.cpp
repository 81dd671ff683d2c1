#include "NodeGraph.h"

#include <algorithm>

namespace skyframe {

CNodeGraph::CNodeGraph(int nNodes, std::span<const std::pair<int, int>> edges) {
  std::vector<std::pair<int, int>> arcs;
  arcs.reserve(2 * edges.size());
  const auto IsVertex = [nNodes](int nNode) { return nNode >= 0 && nNode < nNodes; };
  for (const auto& [nI, nJ] : edges) {
    if (nI == nJ || !IsVertex(nI) || !IsVertex(nJ)) continue;
    arcs.emplace_back(nI, nJ);
    arcs.emplace_back(nJ, nI);
  }
  std::sort(arcs.begin(), arcs.end());
  arcs.erase(std::unique(arcs.begin(), arcs.end()), arcs.end());

  m_rowStart.assign(static_cast<std::size_t>(nNodes) + 1, 0);
  m_neighbours.reserve(arcs.size());
  for (const auto& [nI, nJ] : arcs) {
    ++m_rowStart[nI + 1];
    m_neighbours.push_back(nJ);
  }
  for (int i = 0; i < nNodes; ++i) m_rowStart[i + 1] += m_rowStart[i];
}

namespace {

struct DegreeLess {
  const CNodeGraph& graph;
  bool operator()(int nA, int nB) const { return graph.GetDegree(nA) < graph.GetDegree(nB); }
};

class CCuthillMcKee {
 public:
  CCuthillMcKee(const CNodeGraph& graph, const LevelWalk& walk)
      : m_graph(graph), m_walk(walk), m_stamp(graph.GetNodeCount(), 0), m_isNumbered(graph.GetNodeCount(), 0) {}

  std::vector<int> Run() {
    const int n = m_graph.GetNodeCount();
    m_order.reserve(n);
    for (int i = 0; i < n; ++i) {
      if (m_isNumbered[i] == 0 && m_graph.GetDegree(i) > 0) NumberComponent(i);
    }
    for (int i = 0; i < n; ++i) {
      if (m_graph.GetDegree(i) == 0) m_order.push_back(i);
    }
    return std::move(m_order);
  }

 private:
  /// Rooted level structure: vertices by distance from the root.
  struct LevelStructure {
    std::vector<int> vertices;
    std::size_t nLastLevel = 0;  ///< where the farthest level starts
    int nHeight = 0;             ///< distance of the farthest level
  };

  LevelStructure FormLevels(int nRoot) {
    ++m_nStamp;
    LevelStructure levels;
    levels.vertices.push_back(nRoot);
    m_stamp[nRoot] = m_nStamp;
    for (std::size_t nBegin = 0;;) {
      const std::size_t nEnd = levels.vertices.size();
      for (std::size_t k = nBegin; k < nEnd; ++k) {
        for (const int nNext : m_graph.GetNeighbours(levels.vertices[k])) {
          if (m_stamp[nNext] == m_nStamp) continue;
          m_stamp[nNext] = m_nStamp;
          levels.vertices.push_back(nNext);
        }
      }
      levels.nLastLevel = nBegin;
      if (levels.vertices.size() == nEnd) return levels;
      nBegin = nEnd;
      ++levels.nHeight;
    }
  }

  /// Moves to a vertex of least degree in the farthest level as long as that level moves away. The vertex reached or,
  /// at the other end, the one that would have come next.
  int FindPseudoPeripheral(int nStart) {
    int nRoot = nStart;
    LevelStructure levels = FormLevels(nRoot);
    for (;;) {
      const auto itFarthest = levels.vertices.begin() + static_cast<std::ptrdiff_t>(levels.nLastLevel);
      const int nCandidate = *std::min_element(itFarthest, levels.vertices.end(), DegreeLess{m_graph});
      LevelStructure next = FormLevels(nCandidate);
      if (next.nHeight <= levels.nHeight) return m_walk.bOtherEnd ? nCandidate : nRoot;
      nRoot = nCandidate;
      levels = std::move(next);
    }
  }

  void NumberComponent(int nStart) {
    const std::size_t nBegin = m_order.size();
    Append(FindPseudoPeripheral(nStart));
    std::vector<int> fresh;
    for (std::size_t k = nBegin; k < m_order.size(); ++k) {
      fresh.clear();
      for (const int nNext : m_graph.GetNeighbours(m_order[k])) {
        if (m_isNumbered[nNext] == 0) fresh.push_back(nNext);
      }
      if (m_walk.bDescending) std::reverse(fresh.begin(), fresh.end());
      std::stable_sort(fresh.begin(), fresh.end(), DegreeLess{m_graph});
      for (const int nNext : fresh) Append(nNext);
    }
    if (!m_walk.bForward) std::reverse(m_order.begin() + static_cast<std::ptrdiff_t>(nBegin), m_order.end());
  }

  void Append(int nVertex) {
    m_isNumbered[nVertex] = 1;
    m_order.push_back(nVertex);
  }

  const CNodeGraph& m_graph;
  LevelWalk m_walk;
  std::vector<int> m_order;
  std::vector<int> m_stamp;  ///< number of the last level structure that reached the vertex
  std::vector<unsigned char> m_isNumbered;
  int m_nStamp = 0;
};

}  // namespace

std::vector<int> FormCuthillMcKeeOrder(const CNodeGraph& graph, const LevelWalk& walk) {
  return CCuthillMcKee(graph, walk).Run();
}

double SumSquaredHeights(const CNodeGraph& graph, std::span<const int> order, std::span<const int> freeDofs) {
  std::vector<int> firstDof(order.size());
  int nNext = 0;
  for (const int nVertex : order) {
    firstDof[nVertex] = nNext;
    nNext += freeDofs[nVertex];
  }
  double dSum = 0.0;
  for (const int nVertex : order) {
    int nLowest = firstDof[nVertex];
    for (const int nOther : graph.GetNeighbours(nVertex)) {
      if (freeDofs[nOther] > 0) nLowest = std::min(nLowest, firstDof[nOther]);
    }
    for (int d = 0; d < freeDofs[nVertex]; ++d) {
      const double h = firstDof[nVertex] + d - nLowest + 1;
      dSum += h * h;
    }
  }
  return dSum;
}

}  // namespace skyframe
