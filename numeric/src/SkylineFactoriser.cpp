#include <algorithm>
#include <memory>
#include <vector>

#include "PanelKernel.h"
#include "Simd.h"
#include "skyframe/numeric/SkylineKernel.h"

namespace skyframe::skyline {

namespace {

constexpr int c_nBlock = 96;       // columns factorised together: a multiple of the group and of every panel width
constexpr int c_nRowTile = 48;     // rows of a tile
constexpr int c_nDepthTile = 240;  // products of a tile
constexpr int c_nCopyTile = 64;    // rows copied at a time between columns and panels
constexpr int c_nMaxWidth = 16;    // columns of the widest panel
constexpr std::size_t c_nCacheLine = 64;

std::size_t Index(int i) { return static_cast<std::size_t>(i); }

PanelKernel SelectKernel(VectorUnit unit) {
#if defined(__x86_64__)
  if (unit == VectorUnit::Bytes64) return GetKernel64();
  if (unit == VectorUnit::Bytes32) return GetKernel32();
#endif
  return GetKernel16();
}

/// LDL^T by blocks of consecutive columns, left-looking. The block's columns are gathered into panels
/// that hold g(i, j) = d(i) L(i, j); finished columns are read where they lie.
class CBlockFactoriser {
 public:
  CBlockFactoriser(const Profile& profile, double* values, std::span<double> pivots, const PanelKernel& kernel)
      : m_profile(profile), m_values(values), m_pivots(pivots), m_kernel(kernel), m_nWidth(kernel.nPanelWidth) {
    m_reciprocals.resize(pivots.size());
    Reserve();
  }

  void Run() {
    for (int j = 0; j < m_profile.GetOrder(); j += c_nBlock) FactoriseBlock(j, GetBlockEnd(j));
  }

 private:
  [[nodiscard]] int GetBlockEnd(int nFirst) const { return std::min(nFirst + c_nBlock, m_profile.GetOrder()); }
  [[nodiscard]] double* Column(int i) const { return m_values + m_profile.GetOffset(i); }
  [[nodiscard]] double* Row(const Panel& panel, int r) const {
    return panel.rows + static_cast<std::ptrdiff_t>(r - panel.nBase) * m_nWidth;
  }
  /// Highest row that any of the columns reaches.
  [[nodiscard]] int GetTop(int nFirst, int nEnd) const {
    int nTop = nFirst;
    for (int j = nFirst; j < nEnd; ++j) nTop = std::min(nTop, m_profile.GetTop(j));
    return nTop;
  }

  void Reserve();
  void FactoriseBlock(int nFirst, int nEnd);
  void LayOutPanels(int nFirst, int nEnd);
  void Gather(const Panel& panel) const;
  void Scatter(const Panel& panel) const;
  void FormGroups(int nFirst, int nEnd);
  void ReduceRows(int nFirst, int nEnd, std::span<const Panel> panels);
  void FactorisePanel(const Panel& panel);
  void FactoriseTriangle(const Panel& panel);

  const Profile& m_profile;
  double* m_values;
  std::span<double> m_pivots;
  PanelKernel m_kernel;
  int m_nWidth;
  std::vector<double> m_reciprocals;  ///< 1 / d(i)
  std::vector<double> m_work;
  double* m_panelStore = nullptr;  ///< first cache line of the work space
  std::vector<Panel> m_panels;
  std::vector<ColumnGroup> m_groups;
};

/// The work space of the largest block.
void CBlockFactoriser::Reserve() {
  std::size_t nRows = 0;
  for (int j = 0; j < m_profile.GetOrder(); j += c_nBlock) {
    const int nEnd = GetBlockEnd(j);
    nRows = std::max(nRows, Index(j + c_nBlock - GetTop(j, nEnd) + c_nGroup));
  }
  m_work.resize(nRows * c_nBlock + c_nCacheLine / sizeof(double));
  void* p = m_work.data();
  std::size_t nSpace = m_work.size() * sizeof(double);
  m_panelStore = static_cast<double*>(std::align(c_nCacheLine, sizeof(double), p, nSpace));
  m_panels.reserve(c_nBlock);
  m_groups.reserve(c_nRowTile / c_nGroup);
}

void CBlockFactoriser::FactoriseBlock(int nFirst, int nEnd) {
  LayOutPanels(nFirst, nEnd);
  for (const Panel& panel : m_panels) Gather(panel);
  ReduceRows(m_panels.front().nBase, nFirst, m_panels);
  for (const Panel& panel : m_panels) {
    ReduceRows(nFirst, panel.nFirstCol, {&panel, 1});
    Scatter(panel);
    FactorisePanel(panel);
  }
}

void CBlockFactoriser::LayOutPanels(int nFirst, int nEnd) {
  const int nTop = GetTop(nFirst, nEnd);
  const int nBase = nTop - nTop % c_nGroup;
  const auto nStride = static_cast<std::ptrdiff_t>(nFirst + c_nBlock - nBase) * m_nWidth;
  m_panels.clear();
  for (int j = nFirst; j < nEnd; j += m_nWidth) {
    const int nCols = std::min(m_nWidth, nEnd - j);
    double* const rows = m_panelStore + static_cast<std::ptrdiff_t>(m_panels.size()) * nStride;
    m_panels.push_back({rows, nBase, GetTop(j, j + nCols), j, nCols});
  }
}

/// Columns to panel, zero where nothing is stored.
void CBlockFactoriser::Gather(const Panel& panel) const {
  const int nRowEnd = panel.nFirstCol + m_nWidth;
  const int nRowBegin = panel.nTop - panel.nTop % c_nGroup;
  for (int r0 = nRowBegin; r0 < nRowEnd; r0 += c_nCopyTile) {
    const int r1 = std::min(r0 + c_nCopyTile, nRowEnd);
    std::fill(Row(panel, r0), Row(panel, r1), 0.0);
    for (int c = 0; c < panel.nCols; ++c) {
      const int j = panel.nFirstCol + c;
      const double* const a = Column(j);
      const int nFrom = std::max(r0, m_profile.GetTop(j)), nTo = std::min(r1, j + 1);
      double* g = Row(panel, nFrom) + c;
      for (int r = nFrom; r < nTo; ++r, g += m_nWidth) *g = a[r];
    }
  }
}

/// L(i, j) = g(i, j) / d(i) for the rows above the panel's own.
void CBlockFactoriser::Scatter(const Panel& panel) const {
  for (int r0 = panel.nTop; r0 < panel.nFirstCol; r0 += c_nCopyTile) {
    const int r1 = std::min(r0 + c_nCopyTile, panel.nFirstCol);
    for (int c = 0; c < panel.nCols; ++c) {
      double* const l = Column(panel.nFirstCol + c);
      const int nFrom = std::max(r0, m_profile.GetTop(panel.nFirstCol + c));
      const double* g = Row(panel, nFrom) + c;
      for (int r = nFrom; r < r1; ++r, g += m_nWidth) l[r] = *g * m_reciprocals[Index(r)];
    }
  }
}

/// The finished columns nFirst .. nEnd - 1 in groups of six.
void CBlockFactoriser::FormGroups(int nFirst, int nEnd) {
  m_groups.clear();
  for (int i = nFirst; i < nEnd; i += c_nGroup) {
    ColumnGroup group;
    group.nFirst = i;
    group.nRows = std::min(c_nGroup, nEnd - i);
    for (std::size_t a = 0; a < c_nGroup; ++a) {
      const int nCol = std::min(i + static_cast<int>(a), nEnd - 1);
      group.columns[a] = Column(nCol);
      group.nTop[a] = std::min(m_profile.GetTop(nCol), i);
      group.nCommonTop = std::max(group.nCommonTop, group.nTop[a]);
      for (int r = std::max(m_profile.GetTop(nCol), i); r < nCol; ++r)
        group.triangle[a][Index(r - i)] = Column(nCol)[r];
    }
    m_groups.push_back(group);
  }
}

/// g(i, j) -= sum over k < i of L(k, i) g(k, j) for the rows i = nFirst .. nEnd - 1, whose columns are finished.
void CBlockFactoriser::ReduceRows(int nFirst, int nEnd, std::span<const Panel> panels) {
  for (int i0 = nFirst; i0 < nEnd; i0 += c_nRowTile) {
    const int i1 = std::min(i0 + c_nRowTile, nEnd);
    FormGroups(i0, i1);
    const int nGroups = static_cast<int>(m_groups.size());
    for (int k = std::max(GetTop(i0, i1), panels.front().nBase); k < i0; k += c_nDepthTile) {
      for (const Panel& panel : panels)
        m_kernel.Update(m_groups.data(), nGroups, panel, k, std::min(k + c_nDepthTile, i0));
    }
    for (const Panel& panel : panels) m_kernel.Finish(m_groups.data(), nGroups, panel, i0);
  }
}

/// The panel's own rows: all that lies above them is taken off, then the small triangle is factorised.
void CBlockFactoriser::FactorisePanel(const Panel& panel) {
  const int nFirst = panel.nFirstCol;
  FormGroups(nFirst, nFirst + panel.nCols);
  m_kernel.Update(m_groups.data(), static_cast<int>(m_groups.size()), panel, panel.nTop, nFirst);
  FactoriseTriangle(panel);
}

/// Textbook columns within the panel's own rows.
void CBlockFactoriser::FactoriseTriangle(const Panel& panel) {
  const int nFirst = panel.nFirstCol;
  double l[c_nMaxWidth][c_nMaxWidth];  // l[c][r] = L(r, c)
  for (int c = 0; c < panel.nCols; ++c) {
    double g[c_nMaxWidth];
    double dPivot = Row(panel, nFirst + c)[c];
    for (int r = 0; r < c; ++r) {
      g[r] = Row(panel, nFirst + r)[c];
      for (int k = 0; k < r; ++k) g[r] -= l[r][k] * g[k];
      l[c][r] = g[r] * m_reciprocals[Index(nFirst + r)];
      dPivot -= g[r] * l[c][r];
    }
    m_pivots[Index(nFirst + c)] = dPivot;
    m_reciprocals[Index(nFirst + c)] = 1.0 / dPivot;
    const int nStored = std::max(m_profile.GetTop(nFirst + c) - nFirst, 0);
    std::copy(l[c] + nStored, l[c] + c, Column(nFirst + c) + nFirst + nStored);
  }
}

}  // namespace

void FactoriseLdlt(const Profile& profile, double* values, std::span<double> pivots, VectorUnit unit) {
  CBlockFactoriser(profile, values, pivots, SelectKernel(Resolve(unit))).Run();
}

}  // namespace skyframe::skyline
