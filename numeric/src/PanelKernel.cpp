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
using PartialSums = std::make_integer_sequence<int, 4>;

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
  ((Load<Simd>(acc[a][0], rows + std::min(a, nLast) * nWidth),
    Load<Simd>(acc[a][1], rows + std::min(a, nLast) * nWidth + nLanes)),
   ...);
  double* x = Row<Simd>(panel, nBegin);
  for (std::ptrdiff_t k = nBegin; k < nEnd; ++k, x += nWidth) {
    typename Simd::Vec x0, x1;
    Load<Simd>(x0, x);
    Load<Simd>(x1, x + nLanes);
    ((acc[a][0] -= x0 * columns[a][k], acc[a][1] -= x1 * columns[a][k]), ...);
  }
  if constexpr (bTriangle) (ReduceRow<Simd, a>(group, acc, std::make_integer_sequence<int, a>()), ...);
  ((a <= nLast ? (Store<Simd>(rows + a * nWidth, acc[a][0]), Store<Simd>(rows + a * nWidth + nLanes, acc[a][1]))
               : void()),
   ...);
}

/// One row of a panel against its column over nBegin <= k < nEnd, four partial sums.
template <class Simd, int... u>
[[gnu::always_inline]] inline void UpdateRow(const double* column, double* row, const Panel& panel, int nBegin,
                                             int nEnd, std::integer_sequence<int, u...>) {
  constexpr int nLanes = Simd::c_nLanes, nWidth = c_nWidth<Simd>, nStep = sizeof...(u);
  typename Simd::Vec acc[nStep][2] = {}, x[2], rest[2];
  const double* xk = Row<Simd>(panel, nBegin);
  std::ptrdiff_t k = nBegin;
  for (; k + nStep <= nEnd; k += nStep, xk += nStep * nWidth) {
    ((Load<Simd>(x[0], xk + u * nWidth), Load<Simd>(x[1], xk + u * nWidth + nLanes), acc[u][0] += x[0] * column[k + u],
      acc[u][1] += x[1] * column[k + u]),
     ...);
  }
  Load<Simd>(rest[0], row);
  Load<Simd>(rest[1], row + nLanes);
  for (; k < nEnd; ++k, xk += nWidth) {
    Load<Simd>(x[0], xk);
    Load<Simd>(x[1], xk + nLanes);
    rest[0] -= x[0] * column[k];
    rest[1] -= x[1] * column[k];
  }
  ((rest[0] -= acc[u][0], rest[1] -= acc[u][1]), ...);
  Store<Simd>(row, rest[0]);
  Store<Simd>(row + nLanes, rest[1]);
}

/// The rows above the common top of a group: each column as far up as it goes.
template <class Simd>
[[gnu::always_inline]] inline void UpdateRaggedTop(const ColumnGroup& group, const Panel& panel, int nBegin, int nEnd) {
  for (int a = 0; a < group.nRows; ++a) {
    const auto u = static_cast<std::size_t>(a);
    const int nFirst = std::max(nBegin, group.nTop[u]);
    if (nFirst >= nEnd) continue;
    UpdateRow<Simd>(group.columns[u], Row<Simd>(panel, group.nFirst + a), panel, nFirst, nEnd, PartialSums());
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
