#include "PanelKernel.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "Simd.h"

namespace skyframe::skyline {

namespace {

/// A panel row is two vectors.
template <class Simd>
constexpr int c_nWidth = 2 * Simd::c_nLanes;

using GroupRows = std::make_integer_sequence<int, c_nGroup>;

template <class Simd>
[[gnu::always_inline]] inline double* Row(const Panel& panel, int r) {
  return panel.rows + static_cast<std::ptrdiff_t>(r - panel.nBase) * c_nWidth<Simd>;
}

/// The 6 x 6 triangle: row a takes the finished rows b < a of its own group.
template <class Simd, int a, int... b>
[[gnu::always_inline]] inline void ReduceRow(const ColumnGroup& group, typename Simd::Vec (&acc)[c_nGroup][2],
                                             std::integer_sequence<int, b...>) {
  ((acc[a][0] -= acc[b][0] * group.triangle[a][b], acc[a][1] -= acc[b][1] * group.triangle[a][b]), ...);
}

/// Six rows of a panel against six columns over nBegin <= k < nEnd; the accumulators stay in registers.
template <class Simd, bool bTriangle, int... a>
[[gnu::always_inline]] inline void UpdateTile(const ColumnGroup& group, const Panel& panel, int nBegin, int nEnd,
                                              std::integer_sequence<int, a...>) {
  constexpr int nLanes = Simd::c_nLanes, nWidth = c_nWidth<Simd>;
  double* const rows = Row<Simd>(panel, group.nFirst);
  const double* const columns[] = {group.columns[a]...};
  typename Simd::Vec acc[c_nGroup][2];
  // Unused rows repeat the last one in use and are not stored.
  const int nLast = group.nRows - 1;
  ((acc[a][0] = At<Simd>(rows + std::min(a, nLast) * nWidth),
    acc[a][1] = At<Simd>(rows + std::min(a, nLast) * nWidth + nLanes)),
   ...);
  double* x = Row<Simd>(panel, nBegin);
  for (std::ptrdiff_t k = nBegin; k < nEnd; ++k, x += nWidth) {
    const typename Simd::Vec x0 = At<Simd>(x), x1 = At<Simd>(x + nLanes);
    ((acc[a][0] -= x0 * columns[a][k], acc[a][1] -= x1 * columns[a][k]), ...);
  }
  if constexpr (bTriangle) (ReduceRow<Simd, a>(group, acc, std::make_integer_sequence<int, a>()), ...);
  ((a <= nLast ? (At<Simd>(rows + a * nWidth) = acc[a][0], At<Simd>(rows + a * nWidth + nLanes) = acc[a][1], 0) : 0),
   ...);
}

/// One row of a panel against its column over nBegin <= k < nEnd, four partial sums.
template <class Simd>
[[gnu::always_inline]] inline void UpdateRow(const double* column, double* row, const Panel& panel, int nBegin,
                                             int nEnd) {
  constexpr int nLanes = Simd::c_nLanes, nWidth = c_nWidth<Simd>;
  typename Simd::Vec acc[4][2] = {};
  acc[0][0] = At<Simd>(row);
  acc[0][1] = At<Simd>(row + nLanes);
  const double* l = column + nBegin;
  double* x = Row<Simd>(panel, nBegin);
  int k = nBegin;
  for (; k + 4 <= nEnd; k += 4, l += 4, x += 4 * nWidth) {
    for (int u = 0; u < 4; ++u) {
      acc[u][0] -= At<Simd>(x + u * nWidth) * l[u];
      acc[u][1] -= At<Simd>(x + u * nWidth + nLanes) * l[u];
    }
  }
  for (; k < nEnd; ++k, ++l, x += nWidth) {
    acc[0][0] -= At<Simd>(x) * *l;
    acc[0][1] -= At<Simd>(x + nLanes) * *l;
  }
  At<Simd>(row) = (acc[0][0] + acc[1][0]) + (acc[2][0] + acc[3][0]);
  At<Simd>(row + nLanes) = (acc[0][1] + acc[1][1]) + (acc[2][1] + acc[3][1]);
}

/// The rows above the common top of a group: each column as far up as it goes.
template <class Simd>
[[gnu::always_inline]] inline void UpdateRaggedTop(const ColumnGroup& group, const Panel& panel, int nBegin, int nEnd) {
  for (int a = 0; a < group.nRows; ++a) {
    const auto u = static_cast<std::size_t>(a);
    const int nFirst = std::max(nBegin, group.nTop[u]);
    if (nFirst < nEnd) UpdateRow<Simd>(group.columns[u], Row<Simd>(panel, group.nFirst + a), panel, nFirst, nEnd);
  }
}

template <class Simd, bool bTriangle>
[[gnu::always_inline]] inline void UpdateGroup(const ColumnGroup& group, const Panel& panel, int nBegin, int nEnd) {
  // Rows above the panel's top are zero and stay so.
  if (group.nFirst + group.nRows <= panel.nTop) return;
  const int nFrom = std::max(nBegin, panel.nTop);
  UpdateRaggedTop<Simd>(group, panel, nFrom, std::min(group.nCommonTop, nEnd));
  const int nFirst = std::max(nFrom, group.nCommonTop);
  if (bTriangle || nFirst < nEnd) UpdateTile<Simd, bTriangle>(group, panel, std::min(nFirst, nEnd), nEnd, GroupRows());
}

template <class Simd>
[[gnu::always_inline]] inline void UpdateAll(const ColumnGroup* groups, int nGroups, const Panel& panel, int nBegin,
                                             int nEnd) {
  for (int g = 0; g < nGroups; ++g) UpdateGroup<Simd, false>(groups[g], panel, nBegin, nEnd);
}

template <class Simd>
[[gnu::always_inline]] inline void FinishAll(const ColumnGroup* groups, int nGroups, const Panel& panel, int nBegin) {
  for (int g = 0; g < nGroups; ++g) UpdateGroup<Simd, true>(groups[g], panel, nBegin, groups[g].nFirst);
}

void Update16(const ColumnGroup* groups, int nGroups, const Panel& panel, int nBegin, int nEnd) {
  UpdateAll<Simd16>(groups, nGroups, panel, nBegin, nEnd);
}
void Finish16(const ColumnGroup* groups, int nGroups, const Panel& panel, int nBegin) {
  FinishAll<Simd16>(groups, nGroups, panel, nBegin);
}

#if defined(__x86_64__)
[[gnu::target("avx2,fma")]] void Update32(const ColumnGroup* groups, int nGroups, const Panel& panel, int nBegin,
                                          int nEnd) {
  UpdateAll<Simd32>(groups, nGroups, panel, nBegin, nEnd);
}
[[gnu::target("avx2,fma")]] void Finish32(const ColumnGroup* groups, int nGroups, const Panel& panel, int nBegin) {
  FinishAll<Simd32>(groups, nGroups, panel, nBegin);
}

[[gnu::target("avx512f")]] void Update64(const ColumnGroup* groups, int nGroups, const Panel& panel, int nBegin,
                                         int nEnd) {
  UpdateAll<Simd64>(groups, nGroups, panel, nBegin, nEnd);
}
[[gnu::target("avx512f")]] void Finish64(const ColumnGroup* groups, int nGroups, const Panel& panel, int nBegin) {
  FinishAll<Simd64>(groups, nGroups, panel, nBegin);
}
#endif

}  // namespace

PanelKernel GetKernel16() { return {c_nWidth<Simd16>, Update16, Finish16}; }

#if defined(__x86_64__)
PanelKernel GetKernel32() { return {c_nWidth<Simd32>, Update32, Finish32}; }
PanelKernel GetKernel64() { return {c_nWidth<Simd64>, Update64, Finish64}; }
#endif

}  // namespace skyframe::skyline
