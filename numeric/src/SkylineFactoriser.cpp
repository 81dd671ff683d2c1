#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <numeric>
#include <vector>

#include "PanelKernel.h"
#include "RowTileMaker.h"
#include "skyframe/numeric/SkylineKernel.h"
#include "skyframe/platform/Progress.h"
#include "texts.h"

namespace skyframe::skyline {

namespace {

// Columns factorised together: multiples of the group and of every panel width. Every block reads the finished columns
// above it once more, which tells when they are too tall for the caches.
constexpr int c_nBlock = 96;
constexpr int c_nTallBlock = 192;
constexpr int c_nTall = 1200;      // rows
constexpr int c_nTallPanel = 500;  // rows on the average, for the wider panels
constexpr int c_nDepthTile = 180;  // products of a tile
constexpr std::size_t c_nCacheLine = 64;

std::size_t Index(int i) { return static_cast<std::size_t>(i); }

int ChooseBlock(const Profile& profile) {
  const auto tallest = std::ranges::max_element(profile.height);
  return tallest != profile.height.end() && *tallest > c_nTall ? c_nTallBlock : c_nBlock;
}

PanelKernel ChooseKernel(const Profile& profile, VectorUnit unit) {
  const auto nEntries = std::accumulate(profile.height.begin(), profile.height.end(), std::int64_t{0});
  return SelectKernel(unit, nEntries > std::int64_t{c_nTallPanel} * profile.GetOrder());
}

/// LDL^T by blocks of consecutive columns, left-looking. The block's columns are gathered into panels
/// that hold g(i, j) = d(i) L(i, j); finished columns are read where they lie.
class CBlockFactoriser {
 public:
  CBlockFactoriser(const Profile& profile, double* values, std::span<double> pivots, const PanelKernel& kernel)
      : m_profile(profile),
        m_values(values),
        m_pivots(pivots),
        m_kernel(kernel),
        m_nWidth(kernel.nPanelWidth),
        m_nBlock(ChooseBlock(profile)),
        m_tiles(profile, values) {
    m_reciprocals.resize(pivots.size());
    Reserve();
  }

  void Run() {
    CProgress progress(numeric::texts::c_strFactorisation, m_profile.GetOrder());
    for (int j = 0; j < m_profile.GetOrder(); j += m_nBlock) {
      FactoriseBlock(j, GetBlockEnd(j));
      progress.Advance(GetBlockEnd(j) - j);
    }
  }

 private:
  /// The columns of a panel, and the rows that all of them store above the panel's own.
  struct PanelColumns {
    std::array<double*, c_nMaxPanelWidth> columns{};
    int nCommonTop = 0;
  };

  [[nodiscard]] int GetBlockEnd(int nFirst) const { return std::min(nFirst + m_nBlock, m_profile.GetOrder()); }
  [[nodiscard]] double* Row(const Panel& panel, int r) const {
    return panel.rows + static_cast<std::ptrdiff_t>(r - panel.nBase) * m_nWidth;
  }
  /// Highest row that any of the columns reaches.
  [[nodiscard]] int GetTop(int nFirst, int nEnd) const {
    int nTop = nFirst;
    for (int j = nFirst; j < nEnd; ++j) nTop = std::min(nTop, m_profile.GetTop(j));
    return nTop;
  }
  [[nodiscard]] PanelColumns GetColumns(const Panel& panel) const;

  void Reserve();
  void FactoriseBlock(int nFirst, int nEnd);
  void LayOutPanels(int nFirst, int nEnd);
  void Gather(const Panel& panel) const;
  void Scatter(const Panel& panel) const;
  void ReduceRows(int nFirst, int nEnd, std::span<const Panel> panels);
  void FactorisePanel(const Panel& panel);
  void ScatterOwn(const Panel& panel) const;

  const Profile& m_profile;
  double* m_values;
  std::span<double> m_pivots;
  PanelKernel m_kernel;
  int m_nWidth;
  int m_nBlock;
  CRowTileMaker m_tiles;
  std::vector<double> m_reciprocals;  ///< 1 / d(i)
  std::vector<double> m_work;
  double* m_panelStore = nullptr;  ///< first cache line of the work space
  std::vector<Panel> m_panels;
};

CBlockFactoriser::PanelColumns CBlockFactoriser::GetColumns(const Panel& panel) const {
  PanelColumns result;
  for (int c = 0; c < panel.nCols; ++c) {
    const int j = panel.nFirstCol + c;
    result.columns[Index(c)] = m_values + m_profile.GetOffset(j);
    result.nCommonTop = std::max(result.nCommonTop, m_profile.GetTop(j));
  }
  result.nCommonTop = std::min(result.nCommonTop, panel.nFirstCol);
  return result;
}

/// The work space of the largest block.
void CBlockFactoriser::Reserve() {
  std::size_t nRows = 0;
  for (int j = 0; j < m_profile.GetOrder(); j += m_nBlock) {
    nRows = std::max(nRows, Index(j + m_nBlock - GetTop(j, GetBlockEnd(j)) + c_nRowTile));
  }
  m_work.resize(nRows * Index(m_nBlock) + c_nCacheLine / sizeof(double));
  void* p = m_work.data();
  std::size_t nSpace = m_work.size() * sizeof(double);
  m_panelStore = static_cast<double*>(std::align(c_nCacheLine, sizeof(double), p, nSpace));
  m_panels.reserve(Index(m_nBlock));
}

void CBlockFactoriser::FactoriseBlock(int nFirst, int nEnd) {
  LayOutPanels(nFirst, nEnd);
  for (const Panel& panel : m_panels) Gather(panel);
  ReduceRows(GetTop(nFirst, nEnd), nFirst, m_panels);
  for (const Panel& panel : m_panels) {
    ReduceRows(nFirst, panel.nFirstCol, {&panel, 1});
    Scatter(panel);
    FactorisePanel(panel);
  }
}

void CBlockFactoriser::LayOutPanels(int nFirst, int nEnd) {
  const int nBase = GetTop(nFirst, nEnd) - c_nRowTile;
  const auto nStride = static_cast<std::ptrdiff_t>(nFirst + m_nBlock - nBase) * m_nWidth;
  m_panels.clear();
  for (int j = nFirst; j < nEnd; j += m_nWidth) {
    const int nCols = std::min(m_nWidth, nEnd - j);
    double* const rows = m_panelStore + static_cast<std::ptrdiff_t>(m_panels.size()) * nStride;
    m_panels.push_back({rows, nBase, GetTop(j, j + nCols), j, nCols});
  }
}

/// Columns to panel, zero where nothing is stored.
void CBlockFactoriser::Gather(const Panel& panel) const {
  const PanelColumns columns = GetColumns(panel);
  const int nCopied = panel.nCols == m_nWidth ? columns.nCommonTop : panel.nFirstCol;
  std::fill(Row(panel, panel.nTop - c_nRowTile), Row(panel, nCopied), 0.0);
  std::fill(Row(panel, panel.nFirstCol), Row(panel, panel.nFirstCol + m_nWidth), 0.0);
  m_kernel.Gather(columns.columns.data(), panel, columns.nCommonTop, panel.nFirstCol);
  for (int c = 0; c < panel.nCols; ++c) {
    const int j = panel.nFirstCol + c;
    const double* const a = columns.columns[Index(c)];
    for (int r = m_profile.GetTop(j); r < columns.nCommonTop; ++r) Row(panel, r)[c] = a[r];
    for (int r = std::max(m_profile.GetTop(j), panel.nFirstCol); r <= j; ++r) Row(panel, r)[c] = a[r];
  }
}

/// L(i, j) = g(i, j) / d(i) for the rows above the panel's own.
void CBlockFactoriser::Scatter(const Panel& panel) const {
  const PanelColumns columns = GetColumns(panel);
  m_kernel.Scatter(columns.columns.data(), m_reciprocals.data(), panel, columns.nCommonTop, panel.nFirstCol);
  for (int c = 0; c < panel.nCols; ++c) {
    double* const l = columns.columns[Index(c)];
    for (int r = m_profile.GetTop(panel.nFirstCol + c); r < columns.nCommonTop; ++r)
      l[r] = Row(panel, r)[c] * m_reciprocals[Index(r)];
  }
}

/// g(i, j) -= sum over k < i of L(k, i) g(k, j) for the rows i = nFirst .. nEnd - 1, whose columns are finished.
void CBlockFactoriser::ReduceRows(int nFirst, int nEnd, std::span<const Panel> panels) {
  int nTop = nEnd;
  for (const Panel& panel : panels) nTop = std::min(nTop, panel.nTop);
  for (int i0 = std::max(nFirst, nTop); i0 < nEnd; i0 += c_nRowTile) {
    const int i1 = std::min(i0 + c_nRowTile, nEnd);
    const RowTile& tile = m_tiles.Form(i0, i1);
    for (int k = std::max(tile.nTop, nTop); k < i0; k += c_nDepthTile) {
      for (const Panel& panel : panels) m_kernel.Update(tile, panel, k, std::min(k + c_nDepthTile, i0));
    }
    for (const Panel& panel : panels) m_kernel.Finish(tile, panel);
  }
}

/// The panel's own rows: all that lies above them is taken off, then they are factorised.
void CBlockFactoriser::FactorisePanel(const Panel& panel) {
  const int nFirst = panel.nFirstCol;
  const RowTile& tile = m_tiles.Form(nFirst, nFirst + panel.nCols);
  m_kernel.Update(tile, panel, panel.nTop, nFirst);
  m_kernel.FactoriseOwn(panel, &m_pivots[Index(nFirst)], &m_reciprocals[Index(nFirst)]);
  ScatterOwn(panel);
}

void CBlockFactoriser::ScatterOwn(const Panel& panel) const {
  for (int j = panel.nFirstCol; j < panel.nFirstCol + panel.nCols; ++j) {
    double* const l = m_values + m_profile.GetOffset(j);
    for (int r = std::max(m_profile.GetTop(j), panel.nFirstCol); r < j; ++r)
      l[r] = Row(panel, r)[j - panel.nFirstCol] * m_reciprocals[Index(r)];
  }
}

}  // namespace

void FactoriseLdlt(const Profile& profile, double* values, std::span<double> pivots, VectorUnit unit) {
  CBlockFactoriser(profile, values, pivots, ChooseKernel(profile, unit)).Run();
}

}  // namespace skyframe::skyline
