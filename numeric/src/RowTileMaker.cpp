#include "RowTileMaker.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <utility>

namespace skyframe::skyline {

namespace {
std::size_t Index(int i) { return static_cast<std::size_t>(i); }
}  // namespace

CRowTileMaker::CRowTileMaker(const Profile& profile, const double* values) : m_profile(profile), m_values(values) {
  int nTallest = 0;
  for (const int nHeight : profile.height) nTallest = std::max(nTallest, nHeight);
  m_heads.resize(Index(c_nRowTile) * Index(nTallest));
}

const RowTile& CRowTileMaker::Form(int nFirst, int nEnd) {
  m_tile.nFirst = nFirst;
  m_tile.nRows = nEnd - nFirst;
  FormTriangle();
  FormGroups();
  return m_tile;
}

void CRowTileMaker::FormTriangle() {
  for (int a = 0; a < m_tile.nRows; ++a) {
    const int i = m_tile.nFirst + a;
    const double* const column = m_values + m_profile.GetOffset(i);
    const auto row = m_tile.triangle[Index(a)].begin();
    const int nFirst = std::max(m_profile.GetTop(i), m_tile.nFirst);
    std::fill(row, row + (nFirst - m_tile.nFirst), 0.0);
    std::copy(column + nFirst, column + i, row + (nFirst - m_tile.nFirst));
  }
  // Groups of rows are taken whole.
  for (int a = m_tile.nRows; a % c_nGroup != 0; ++a) m_tile.triangle[Index(a)].fill(0.0);
}

/// By tops; columns of one top keep their order.
void CRowTileMaker::FormGroups() {
  std::array<int, c_nRowTile> order;
  const auto last = order.begin() + m_tile.nRows;
  std::iota(order.begin(), last, m_tile.nFirst);
  const auto isBefore = [this](int i, int j) {
    return std::pair(m_profile.GetTop(i), i) < std::pair(m_profile.GetTop(j), j);
  };
  if (!std::is_sorted(order.begin(), last, isBefore)) std::sort(order.begin(), last, isBefore);
  m_tile.nTop = std::min(m_profile.GetTop(order.front()), m_tile.nFirst);
  m_tile.nGroups = 0;
  m_nHeads = 0;
  for (int q = 0; q < m_tile.nRows; q += c_nGroup) {
    ColumnGroup& group = m_tile.groups[Index(m_tile.nGroups++)];
    group.nRows = std::min(c_nGroup, m_tile.nRows - q);
    for (int a = 0; a < c_nGroup; ++a) {
      group.rows[Index(a)] = order[Index(q + std::min(a, group.nRows - 1))];
      group.columns[Index(a)] = m_values + m_profile.GetOffset(group.rows[Index(a)]);
    }
    group.nLastRow = *std::max_element(group.rows.begin(), group.rows.end());
    FormHeads(group);
  }
}

void CRowTileMaker::FormHeads(ColumnGroup& group) {
  group.nTop = std::min(m_profile.GetTop(group.rows.front()), m_tile.nFirst);
  group.nCommonTop = std::min(m_profile.GetTop(group.rows.back()), m_tile.nFirst);
  group.heads = group.columns;
  const int nLength = group.nCommonTop - group.nTop;
  if (nLength == 0) return;
  for (int a = 0; a < group.nRows; ++a) {
    double* const head = m_heads.data() + m_nHeads;
    const int nZeros = std::min(m_profile.GetTop(group.rows[Index(a)]), group.nCommonTop) - group.nTop;
    std::fill_n(head, nZeros, 0.0);
    std::copy(group.columns[Index(a)] + group.nTop + nZeros, group.columns[Index(a)] + group.nCommonTop, head + nZeros);
    group.heads[Index(a)] = head - group.nTop;
    m_nHeads += Index(nLength);
  }
  for (int a = group.nRows; a < c_nGroup; ++a) group.heads[Index(a)] = group.heads[Index(group.nRows - 1)];
}

}  // namespace skyframe::skyline
