#include "PanelKernel.h"

#include <algorithm>
#include <cstddef>
#include <type_traits>
#include <utility>

#include "Simd.h"

namespace skyframe::skyline {

namespace {

template <class Simd>
constexpr int c_nWidth = Simd::c_nPanelVectors* Simd::c_nLanes;

using GroupRows = std::make_integer_sequence<int, c_nGroup>;

template <class Simd>
[[gnu::always_inline]] inline double* Row(const Panel& panel, int r) {
  return panel.rows + static_cast<std::ptrdiff_t>(r - panel.nBase) * c_nWidth<Simd>;
}

/// One row of a panel in registers.
template <class Simd>
struct PanelRow {
  static constexpr int c_nVectors = Simd::c_nPanelVectors;
  typename Simd::Vec v[c_nVectors];

  [[gnu::always_inline]] void Load(const double* row) {
    for (int w = 0; w < c_nVectors; ++w) skyline::Load<Simd>(v[w], row + w * Simd::c_nLanes);
  }
  [[gnu::always_inline]] void Store(double* row) const {
    for (int w = 0; w < c_nVectors; ++w) skyline::Store<Simd>(row + w * Simd::c_nLanes, v[w]);
  }
  [[gnu::always_inline]] void Subtract(const PanelRow& x, double dFactor) {
    for (int w = 0; w < c_nVectors; ++w) v[w] -= x.v[w] * dFactor;
  }
};

/// Six rows of a panel in registers.
template <class Simd>
struct Accumulators {
  PanelRow<Simd> row[c_nGroup];
};

/// Rows that are not in use repeat the last one; they are loaded and not stored.
template <class Simd, int... a>
[[gnu::always_inline]] inline void LoadRows(Accumulators<Simd>& acc, double* const* rows,
                                            std::integer_sequence<int, a...>) {
  (acc.row[a].Load(rows[a]), ...);
}
template <class Simd, int... a>
[[gnu::always_inline]] inline void StoreRows(const Accumulators<Simd>& acc, double* const* rows, int nRows,
                                             std::integer_sequence<int, a...>) {
  ((a < nRows ? acc.row[a].Store(rows[a]) : void()), ...);
}

/// acc(a) -= sum over nBegin <= k < nEnd of columns[a][k] g(k); x is row nBegin of the panel.
template <class Simd, int... a>
[[gnu::always_inline]] inline void SubtractProducts(Accumulators<Simd>& acc, const double* const* pColumns,
                                                    const double* x, std::ptrdiff_t nBegin, std::ptrdiff_t nEnd,
                                                    std::integer_sequence<int, a...>) {
  const double* const columns[] = {pColumns[a]...};
  for (std::ptrdiff_t k = nBegin; k < nEnd; ++k, x += c_nWidth<Simd>) {
    PanelRow<Simd> g;
    g.Load(x);
    (acc.row[a].Subtract(g, columns[a][k]), ...);
  }
}

template <class Simd>
[[gnu::always_inline]] inline void UpdateGroup(const ColumnGroup& group, const Panel& panel, int nBegin, int nEnd) {
  double* rows[c_nGroup];
  for (std::size_t a = 0; a < c_nGroup; ++a) rows[a] = Row<Simd>(panel, group.rows[a]);
  const int nHead = std::max(nBegin, group.nTop), nHeadEnd = std::min(nEnd, group.nCommonTop);
  const int nFirst = std::max(nBegin, group.nCommonTop);
  Accumulators<Simd> acc;
  LoadRows<Simd>(acc, rows, GroupRows());
  if (nHead < nHeadEnd) {
    SubtractProducts<Simd>(acc, group.heads.data(), Row<Simd>(panel, nHead), nHead, nHeadEnd, GroupRows());
  }
  if (nFirst < nEnd) {
    SubtractProducts<Simd>(acc, group.columns.data(), Row<Simd>(panel, nFirst), nFirst, nEnd, GroupRows());
  }
  StoreRows<Simd>(acc, rows, group.nRows, GroupRows());
}

template <class Simd>
[[gnu::always_inline]] inline void UpdateAll(const RowTile& tile, const Panel& panel, int nBegin, int nEnd) {
  // Rows above the panel's top are zero and stay so.
  const int nFirst = std::max(nBegin, panel.nTop);
  for (int g = 0; g < tile.nGroups; ++g) {
    const ColumnGroup& group = tile.groups[static_cast<std::size_t>(g)];
    if (group.nLastRow < panel.nTop || std::max(nFirst, group.nTop) >= nEnd) continue;
    UpdateGroup<Simd>(group, panel, nFirst, nEnd);
  }
}

/// Row a of six takes the finished rows b < a; l[a][b] = L(b, a).
template <class Simd, int a, int... b>
[[gnu::always_inline]] inline void ReduceRow(Accumulators<Simd>& acc, const double* const* l,
                                             std::integer_sequence<int, b...>) {
  (acc.row[a].Subtract(acc.row[b], l[a][b]), ...);
}
template <class Simd, int... a>
[[gnu::always_inline]] inline void ReduceRows(Accumulators<Simd>& acc, const double* const* l,
                                              std::integer_sequence<int, a...>) {
  (ReduceRow<Simd, a>(acc, l, std::make_integer_sequence<int, a>()), ...);
}

/// Rows q .. q + 5 of a tile: those of the panel and those of the triangle.
template <class Simd>
struct TriangleRows {
  int nRows;
  double* rows[c_nGroup];
  const double* columns[c_nGroup];

  [[gnu::always_inline]] TriangleRows(const RowTile& tile, const Panel& panel, int q)
      : nRows(std::min(c_nGroup, tile.nRows - q)) {
    for (int a = 0; a < c_nGroup; ++a) {
      rows[a] = Row<Simd>(panel, tile.nFirst + q + std::min(a, nRows - 1));
      columns[a] = tile.triangle[static_cast<std::size_t>(q) + static_cast<std::size_t>(a)].data();
    }
  }
};

template <class Simd>
[[gnu::always_inline]] inline void FinishAll(const RowTile& tile, const Panel& panel) {
  const int nSkip = std::max(0, panel.nTop - tile.nFirst);
  for (int q = nSkip - nSkip % c_nGroup; q < tile.nRows; q += c_nGroup) {
    const TriangleRows<Simd> t(tile, panel, q);
    const int nBegin = std::min(nSkip, q);
    Accumulators<Simd> acc;
    LoadRows<Simd>(acc, t.rows, GroupRows());
    SubtractProducts<Simd>(acc, t.columns, Row<Simd>(panel, tile.nFirst + nBegin), nBegin, q, GroupRows());
    const double* l[c_nGroup];
    for (int a = 0; a < c_nGroup; ++a) l[a] = t.columns[a] + q;
    ReduceRows<Simd>(acc, l, GroupRows());
    StoreRows<Simd>(acc, t.rows, t.nRows, GroupRows());
  }
}

/// g(k) -= sum over a of columns[a][k] acc(a), nBegin <= k < nEnd.
template <class Simd, int... a>
[[gnu::always_inline]] inline void SubtractFromRows(const Accumulators<Simd>& acc, const double* const* pColumns,
                                                    double* x, std::ptrdiff_t nBegin, std::ptrdiff_t nEnd,
                                                    std::integer_sequence<int, a...>) {
  const double* const columns[] = {pColumns[a]...};
  for (std::ptrdiff_t k = nBegin; k < nEnd; ++k, x += c_nWidth<Simd>) {
    PanelRow<Simd> g;
    g.Load(x);
    (g.Subtract(acc.row[a], columns[a][k]), ...);
    g.Store(x);
  }
}

/// Rows that are not in use count as zero.
template <class Simd>
[[gnu::always_inline]] inline void ClearUnused(Accumulators<Simd>& acc, int nRows) {
  for (int a = nRows; a < c_nGroup; ++a) acc.row[a] = {};
}

template <class Simd>
[[gnu::always_inline]] inline void SubtractAll(const RowTile& tile, const Panel& panel, int nBegin, int nEnd) {
  for (int g = 0; g < tile.nGroups; ++g) {
    const ColumnGroup& group = tile.groups[static_cast<std::size_t>(g)];
    double* rows[c_nGroup];
    for (std::size_t a = 0; a < c_nGroup; ++a) rows[a] = Row<Simd>(panel, group.rows[a]);
    Accumulators<Simd> acc;
    LoadRows<Simd>(acc, rows, GroupRows());
    ClearUnused<Simd>(acc, group.nRows);
    const int nHead = std::max(nBegin, group.nTop), nHeadEnd = std::min(nEnd, group.nCommonTop);
    const int nFirst = std::max(nBegin, group.nCommonTop);
    if (nHead < nHeadEnd) {
      SubtractFromRows<Simd>(acc, group.heads.data(), Row<Simd>(panel, nHead), nHead, nHeadEnd, GroupRows());
    }
    if (nFirst < nEnd) {
      SubtractFromRows<Simd>(acc, group.columns.data(), Row<Simd>(panel, nFirst), nFirst, nEnd, GroupRows());
    }
  }
}

template <class Simd>
[[gnu::always_inline]] inline void FinishBackAll(const RowTile& tile, const Panel& panel) {
  for (int q = (tile.nRows - 1) / c_nGroup * c_nGroup; q >= 0; q -= c_nGroup) {
    const TriangleRows<Simd> t(tile, panel, q);
    Accumulators<Simd> acc;
    LoadRows<Simd>(acc, t.rows, GroupRows());
    ClearUnused<Simd>(acc, t.nRows);
    for (int a = c_nGroup - 1; a > 0; --a) {
      for (int b = 0; b < a; ++b) acc.row[b].Subtract(acc.row[a], t.columns[a][q + b]);
    }
    StoreRows<Simd>(acc, t.rows, t.nRows, GroupRows());
    SubtractFromRows<Simd>(acc, t.columns, Row<Simd>(panel, tile.nFirst), 0, q, GroupRows());
  }
}

/// Row r is final when the rows above it have been taken off; then it is taken off those below.
template <class Simd>
[[gnu::always_inline]] inline void FactoriseOwnRows(const Panel& panel, double* pivots, double* reciprocals) {
  double* const first = Row<Simd>(panel, panel.nFirstCol);
  for (int r = 0; r < panel.nCols; ++r) {
    const double* const g = first + r * c_nWidth<Simd>;
    pivots[r] = g[r];
    reciprocals[r] = 1.0 / g[r];
    PanelRow<Simd> finished, below;
    finished.Load(g);
    for (int i = r + 1; i < panel.nCols; ++i) {
      double* const y = first + i * c_nWidth<Simd>;
      below.Load(y);
      below.Subtract(finished, g[i] * reciprocals[r]);
      below.Store(y);
    }
  }
}

constexpr std::ptrdiff_t c_nCopyAhead = 32;  ///< rows between copy and prefetch

/// Squares are transposed in vectors of at most four.
template <class Simd>
using CopySimd = std::conditional_t<std::is_same_v<Simd, Simd16>, Simd16, Simd32>;

[[gnu::always_inline]] inline void Transpose(Simd16::Vec (&v)[2]) {
  const Simd16::Vec t = __builtin_shufflevector(v[0], v[1], 0, 2);
  v[1] = __builtin_shufflevector(v[0], v[1], 1, 3);
  v[0] = t;
}
[[gnu::always_inline]] inline void Transpose(Simd32::Vec (&v)[4]) {
  const Simd32::Vec t0 = __builtin_shufflevector(v[0], v[1], 0, 4, 2, 6);
  const Simd32::Vec t1 = __builtin_shufflevector(v[0], v[1], 1, 5, 3, 7);
  const Simd32::Vec t2 = __builtin_shufflevector(v[2], v[3], 0, 4, 2, 6);
  const Simd32::Vec t3 = __builtin_shufflevector(v[2], v[3], 1, 5, 3, 7);
  v[0] = __builtin_shufflevector(t0, t2, 0, 1, 4, 5);
  v[1] = __builtin_shufflevector(t1, t3, 0, 1, 4, 5);
  v[2] = __builtin_shufflevector(t0, t2, 2, 3, 6, 7);
  v[3] = __builtin_shufflevector(t1, t3, 2, 3, 6, 7);
}

template <class Simd>
[[gnu::always_inline]] inline void GatherRows(const double* const* columns, const Panel& panel, int nBegin, int nEnd) {
  using Copy = CopySimd<Simd>;
  constexpr int nSquare = Copy::c_nLanes;
  for (int c = 0; c < panel.nCols; c += nSquare) {
    std::ptrdiff_t r = nBegin;
    double* g = Row<Simd>(panel, nBegin) + c;
    if (c + nSquare <= panel.nCols) {
      for (; r + nSquare <= nEnd; r += nSquare, g += nSquare * c_nWidth<Simd>) {
        typename Copy::Vec square[nSquare];
        for (int a = 0; a < nSquare; ++a) {
          __builtin_prefetch(columns[c + a] + (r + c_nCopyAhead));
          Load<Copy>(square[a], columns[c + a] + r);
        }
        Transpose(square);
        for (int a = 0; a < nSquare; ++a) Store<Copy>(g + a * c_nWidth<Simd>, square[a]);
      }
    }
    for (; r < nEnd; ++r, g += c_nWidth<Simd>) {
      for (int a = 0; a < std::min(nSquare, panel.nCols - c); ++a) g[a] = columns[c + a][r];
    }
  }
}

template <class Simd>
[[gnu::always_inline]] inline void ScatterRows(double* const* columns, const double* factors, const Panel& panel,
                                               int nBegin, int nEnd) {
  using Copy = CopySimd<Simd>;
  constexpr int nSquare = Copy::c_nLanes;
  for (int c = 0; c < panel.nCols; c += nSquare) {
    std::ptrdiff_t r = nBegin;
    const double* g = Row<Simd>(panel, nBegin) + c;
    if (c + nSquare <= panel.nCols) {
      for (; r + nSquare <= nEnd; r += nSquare, g += nSquare * c_nWidth<Simd>) {
        typename Copy::Vec square[nSquare];
        for (int a = 0; a < nSquare; ++a) {
          Load<Copy>(square[a], g + a * c_nWidth<Simd>);
          square[a] *= factors[r + a];
        }
        Transpose(square);
        for (int a = 0; a < nSquare; ++a) {
          __builtin_prefetch(columns[c + a] + (r + c_nCopyAhead), 1);
          Store<Copy>(columns[c + a] + r, square[a]);
        }
      }
    }
    for (; r < nEnd; ++r, g += c_nWidth<Simd>) {
      for (int a = 0; a < std::min(nSquare, panel.nCols - c); ++a) columns[c + a][r] = g[a] * factors[r];
    }
  }
}

// The templates once per unit, in functions that carry its target.
// NOLINTBEGIN(bugprone-macro-parentheses): an attribute cannot stand in parentheses
#define SKYFRAME_PANEL_FUNCTIONS(unit, simd, target)                                                                   \
  target void Update##unit(const RowTile& tile, const Panel& panel, int nBegin, int nEnd) {                            \
    UpdateAll<Simd##simd>(tile, panel, nBegin, nEnd);                                                                  \
  }                                                                                                                    \
  target void Finish##unit(const RowTile& tile, const Panel& panel) { FinishAll<Simd##simd>(tile, panel); }            \
  target void Subtract##unit(const RowTile& tile, const Panel& panel, int nBegin, int nEnd) {                          \
    SubtractAll<Simd##simd>(tile, panel, nBegin, nEnd);                                                                \
  }                                                                                                                    \
  target void FinishBack##unit(const RowTile& tile, const Panel& panel) { FinishBackAll<Simd##simd>(tile, panel); }    \
  target void FactoriseOwn##unit(const Panel& panel, double* pivots, double* reciprocals) {                            \
    FactoriseOwnRows<Simd##simd>(panel, pivots, reciprocals);                                                          \
  }                                                                                                                    \
  target void Gather##unit(const double* const* columns, const Panel& panel, int nBegin, int nEnd) {                   \
    GatherRows<Simd##simd>(columns, panel, nBegin, nEnd);                                                              \
  }                                                                                                                    \
  target void Scatter##unit(double* const* columns, const double* factors, const Panel& panel, int nBegin, int nEnd) { \
    ScatterRows<Simd##simd>(columns, factors, panel, nBegin, nEnd);                                                    \
  }                                                                                                                    \
  constexpr PanelKernel c_kernel##unit = {c_nWidth<Simd##simd>, Update##unit,       Finish##unit, Subtract##unit,      \
                                          FinishBack##unit,     FactoriseOwn##unit, Gather##unit, Scatter##unit};
// NOLINTEND(bugprone-macro-parentheses)

SKYFRAME_PANEL_FUNCTIONS(Baseline, 16, )
#if defined(__x86_64__)
SKYFRAME_PANEL_FUNCTIONS(Sse3, 16, [[gnu::target("sse3")]])
SKYFRAME_PANEL_FUNCTIONS(Avx2, 32, [[gnu::target("avx2,fma")]])
SKYFRAME_PANEL_FUNCTIONS(Avx512, 64, [[gnu::target("avx512f")]])
SKYFRAME_PANEL_FUNCTIONS(Avx512Tall, 64Tall, [[gnu::target("avx512f")]])
#endif
#undef SKYFRAME_PANEL_FUNCTIONS

}  // namespace

PanelKernel SelectKernel([[maybe_unused]] VectorUnit unit, [[maybe_unused]] bool bTall) {
#if defined(__x86_64__)
  switch (Resolve(unit)) {
    case VectorUnit::Bytes64:
      return bTall ? c_kernelAvx512Tall : c_kernelAvx512;
    case VectorUnit::Bytes32:
      return c_kernelAvx2;
    case VectorUnit::Bytes16:
      return c_kernelSse3;
    default:
      break;
  }
#endif
  return c_kernelBaseline;
}

}  // namespace skyframe::skyline
