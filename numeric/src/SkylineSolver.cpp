#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "PanelKernel.h"
#include "RowTileMaker.h"
#include "Simd.h"
#include "skyframe/numeric/SkylineKernel.h"

namespace skyframe::skyline {

namespace {

constexpr int c_nSums = 8;    // partial sums of a dot product, vectors each
constexpr int c_nUnroll = 4;  // vectors subtracted in one step
// Entries between use and prefetch: across page ends, where the processor's own stops.
constexpr std::ptrdiff_t c_nAhead = 1024;
constexpr std::ptrdiff_t c_nLine = 8;  // entries in a cache line
constexpr int c_nDepthTile = 240;

/// sum of l(k) x(k), nBegin <= k < nEnd. One column at a time: the profile is then one stream of memory.
template <class Simd, int... u>
[[gnu::always_inline]] inline double Dot(const double* l, const double* x, std::ptrdiff_t nBegin, std::ptrdiff_t nEnd,
                                         std::integer_sequence<int, u...>) {
  constexpr int nLanes = Simd::c_nLanes;
  typename Simd::Vec sums[c_nSums] = {}, xk, lk;
  std::ptrdiff_t k = nBegin;
  for (; k + c_nSums * nLanes <= nEnd; k += c_nSums * nLanes) {
    for (std::ptrdiff_t line = 0; line < c_nSums * nLanes; line += c_nLine)
      __builtin_prefetch(l + (k + c_nAhead + line), 0, 2);
    ((Load<Simd>(lk, l + k + u * nLanes), Load<Simd>(xk, x + k + u * nLanes), sums[u] += lk * xk), ...);
  }
  for (; k + nLanes <= nEnd; k += nLanes) {
    Load<Simd>(lk, l + k);
    Load<Simd>(xk, x + k);
    sums[0] += lk * xk;
  }
  const typename Simd::Vec total =
      ((sums[0] + sums[1]) + (sums[2] + sums[3])) + ((sums[4] + sums[5]) + (sums[6] + sums[7]));
  double dSum = 0.0;
  for (int lane = 0; lane < nLanes; ++lane) dSum += total[lane];
  for (; k < nEnd; ++k) dSum += l[k] * x[k];
  return dSum;
}

/// x(k) -= l(k) factor, nBegin <= k < nEnd, from the end: memory is read downwards all the way.
template <class Simd, int... u>
[[gnu::always_inline]] inline void Subtract(const double* l, double factor, double* x, std::ptrdiff_t nBegin,
                                            std::ptrdiff_t nEnd, std::integer_sequence<int, u...>) {
  constexpr int nLanes = Simd::c_nLanes;
  typename Simd::Vec xk, lk;
  std::ptrdiff_t k = nEnd;
  for (; k - c_nUnroll * nLanes >= nBegin; k -= c_nUnroll * nLanes) {
    for (std::ptrdiff_t line = 0; line < c_nUnroll * nLanes; line += c_nLine)
      __builtin_prefetch(l + (k - c_nAhead - line), 0, 2);
    ((Load<Simd>(lk, l + k - (u + 1) * nLanes), Load<Simd>(xk, x + k - (u + 1) * nLanes), xk -= lk * factor,
      Store<Simd>(x + k - (u + 1) * nLanes, xk)),
     ...);
  }
  for (; k - nLanes >= nBegin; k -= nLanes) {
    Load<Simd>(lk, l + k - nLanes);
    Load<Simd>(xk, x + k - nLanes);
    xk -= lk * factor;
    Store<Simd>(x + k - nLanes, xk);
  }
  for (; k > nBegin; --k) x[k - 1] -= l[k - 1] * factor;
}

template <class Simd>
[[gnu::always_inline]] inline void ForwardAll(const Profile& profile, const double* values, double* b) {
  for (int i = 0; i < profile.GetOrder(); ++i) {
    b[i] -=
        Dot<Simd>(values + profile.GetOffset(i), b, profile.GetTop(i), i, std::make_integer_sequence<int, c_nSums>());
  }
}

template <class Simd>
[[gnu::always_inline]] inline void BackwardAll(const Profile& profile, const double* values, double* b) {
  for (int i = profile.GetOrder() - 1; i >= 0; --i) {
    Subtract<Simd>(values + profile.GetOffset(i), b[i], b, profile.GetTop(i), i,
                   std::make_integer_sequence<int, c_nUnroll>());
  }
}

// The templates once per unit, in functions that carry its target.
// NOLINTBEGIN(bugprone-macro-parentheses): an attribute cannot stand in parentheses
#define SKYFRAME_SOLUTION_FUNCTIONS(bytes, target)                                       \
  target void Forward##bytes(const Profile& profile, const double* values, double* b) {  \
    ForwardAll<Simd##bytes>(profile, values, b);                                         \
  }                                                                                      \
  target void Backward##bytes(const Profile& profile, const double* values, double* b) { \
    BackwardAll<Simd##bytes>(profile, values, b);                                        \
  }
// NOLINTEND(bugprone-macro-parentheses)

SKYFRAME_SOLUTION_FUNCTIONS(16, )
#if defined(__x86_64__)
SKYFRAME_SOLUTION_FUNCTIONS(32, [[gnu::target("avx2,fma")]])
SKYFRAME_SOLUTION_FUNCTIONS(64, [[gnu::target("avx512f")]])
#endif
#undef SKYFRAME_SOLUTION_FUNCTIONS

}  // namespace

void ForwardReduce(const Profile& profile, const double* values, std::span<double> b,
                   [[maybe_unused]] VectorUnit unit) {
#if defined(__x86_64__)
  if (Resolve(unit) == VectorUnit::Bytes64) return Forward64(profile, values, b.data());
  if (HasWideVectors(unit)) return Forward32(profile, values, b.data());
#endif
  Forward16(profile, values, b.data());
}

void BackSubstitute(const Profile& profile, const double* values, std::span<double> b,
                    [[maybe_unused]] VectorUnit unit) {
#if defined(__x86_64__)
  if (Resolve(unit) == VectorUnit::Bytes64) return Backward64(profile, values, b.data());
  if (HasWideVectors(unit)) return Backward32(profile, values, b.data());
#endif
  Backward16(profile, values, b.data());
}

namespace {

/// The narrower panel where it holds all columns.
PanelKernel SelectPanel(int nColumns, VectorUnit unit) {
  const PanelKernel widest = SelectKernel(unit);
  const bool bNarrow =
      unit == VectorUnit::Best && 2 * nColumns <= widest.nPanelWidth && IsAvailable(VectorUnit::Bytes32);
  return bNarrow ? SelectKernel(VectorUnit::Bytes32) : widest;
}

/// A few right-hand sides interleaved by row, solved as a panel.
class CPanelSolver {
 public:
  CPanelSolver(const Profile& profile, const double* values, const PanelKernel& kernel)
      : m_n(profile.GetOrder()),
        m_nWidth(kernel.nPanelWidth),
        m_kernel(kernel),
        m_tiles(profile, values),
        m_rows(static_cast<std::size_t>(m_n) * static_cast<std::size_t>(m_nWidth)) {}

  [[nodiscard]] int GetWidth() const { return m_nWidth; }

  /// columns: up to GetWidth() vectors of n values, solved in place.
  void Solve(std::span<const double> pivots, std::span<double* const> columns) {
    for (std::size_t c = 0; c < columns.size(); ++c) {
      for (int i = 0; i < m_n; ++i) *Entry(i, c) = columns[c][i];
    }
    Forward();
    for (int i = 0; i < m_n; ++i) {
      for (std::size_t c = 0; c < columns.size(); ++c) *Entry(i, c) /= pivots[static_cast<std::size_t>(i)];
    }
    Backward();
    for (std::size_t c = 0; c < columns.size(); ++c) {
      for (int i = 0; i < m_n; ++i) columns[c][i] = *Entry(i, c);
    }
  }

 private:
  double* Entry(int i, std::size_t c) {
    return m_rows.data() + static_cast<std::ptrdiff_t>(i) * m_nWidth + static_cast<std::ptrdiff_t>(c);
  }
  [[nodiscard]] Panel GetPanel() { return {m_rows.data(), 0, 0, m_n, m_nWidth}; }

  void Forward() {
    const Panel panel = GetPanel();
    for (int i0 = 0; i0 < m_n; i0 += c_nRowTile) {
      const RowTile& tile = m_tiles.Form(i0, std::min(i0 + c_nRowTile, m_n));
      for (int k = tile.nTop; k < i0; k += c_nDepthTile)
        m_kernel.Update(tile, panel, k, std::min(k + c_nDepthTile, i0));
      m_kernel.Finish(tile, panel);
    }
  }

  void Backward() {
    const Panel panel = GetPanel();
    for (int i0 = (m_n - 1) / c_nRowTile * c_nRowTile; i0 >= 0; i0 -= c_nRowTile) {
      const RowTile& tile = m_tiles.Form(i0, std::min(i0 + c_nRowTile, m_n));
      m_kernel.FinishBack(tile, panel);
      for (int k = tile.nTop; k < i0; k += c_nDepthTile)
        m_kernel.Subtract(tile, panel, k, std::min(k + c_nDepthTile, i0));
    }
  }

  int m_n;
  int m_nWidth;
  PanelKernel m_kernel;
  CRowTileMaker m_tiles;
  std::vector<double> m_rows;
};

}  // namespace

void SolveColumns(const Profile& profile, const double* values, std::span<const double> pivots, std::span<double> B,
                  int nColumns, VectorUnit unit) {
  const int n = profile.GetOrder();
  if (n == 0) return;
  CPanelSolver solver(profile, values, SelectPanel(nColumns, unit));
  std::array<double*, c_nMaxPanelWidth> columns;
  for (int c0 = 0; c0 < nColumns; c0 += solver.GetWidth()) {
    const int nCount = std::min(solver.GetWidth(), nColumns - c0);
    for (int c = 0; c < nCount; ++c) {
      columns[static_cast<std::size_t>(c)] = B.data() + static_cast<std::ptrdiff_t>(c0 + c) * n;
    }
    solver.Solve(pivots, std::span(columns).first(static_cast<std::size_t>(nCount)));
  }
}

}  // namespace skyframe::skyline
