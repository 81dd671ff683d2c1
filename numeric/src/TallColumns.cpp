#include "skyframe/numeric/TallColumns.h"

#include <utility>

#include "Simd.h"

namespace skyframe::tall {

namespace {

using skyline::Load;
using skyline::Simd16;
using skyline::Simd32;
using skyline::Store;

constexpr std::size_t c_nBlock = 4;  ///< columns per pass over the vector
using BlockColumns = std::make_index_sequence<c_nBlock>;
using OneColumn = std::make_index_sequence<1>;

/// c(k) = a_k^T x for neighbouring columns; two partial sums each, of vectors.
template <class Simd, std::size_t... k>
[[gnu::always_inline]] inline void DotColumns(const double* a, std::span<const double> x, double* c,
                                              std::index_sequence<k...>) {
  constexpr std::size_t nLanes = Simd::c_nLanes, nColumns = sizeof...(k);
  const std::size_t n = x.size();
  typename Simd::Vec sums[nColumns][2] = {}, x0, x1, a0, a1;
  std::size_t i = 0;
  for (; i + 2 * nLanes <= n; i += 2 * nLanes) {
    Load<Simd>(x0, x.data() + i);
    Load<Simd>(x1, x.data() + i + nLanes);
    ((Load<Simd>(a0, a + k * n + i), Load<Simd>(a1, a + k * n + i + nLanes), sums[k][0] += a0 * x0,
      sums[k][1] += a1 * x1),
     ...);
  }
  for (std::size_t q = 0; q < nColumns; ++q) {
    const typename Simd::Vec total = sums[q][0] + sums[q][1];
    c[q] = 0.0;
    for (std::size_t lane = 0; lane < nLanes; ++lane) c[q] += total[lane];
  }
  for (; i < n; ++i) ((c[k] += a[k * n + i] * x[i]), ...);
}

/// y <- y - sum of c(k) a_k over neighbouring columns.
template <class Simd, std::size_t... k>
[[gnu::always_inline]] inline void SubtractColumns(const double* a, const double* c, std::span<double> y,
                                                   std::index_sequence<k...>) {
  constexpr std::size_t nLanes = Simd::c_nLanes;
  const std::size_t n = y.size();
  typename Simd::Vec yi, ai;
  std::size_t i = 0;
  for (; i + nLanes <= n; i += nLanes) {
    Load<Simd>(yi, y.data() + i);
    ((Load<Simd>(ai, a + k * n + i), yi -= ai * c[k]), ...);
    Store<Simd>(y.data() + i, yi);
  }
  for (; i < n; ++i) ((y[i] -= c[k] * a[k * n + i]), ...);
}

template <class Simd>
[[gnu::always_inline]] inline void MultiplyAll(const double* A, std::span<const double> x, std::span<double> c) {
  std::size_t k = 0;
  for (; k + c_nBlock <= c.size(); k += c_nBlock) DotColumns<Simd>(A + k * x.size(), x, &c[k], BlockColumns());
  for (; k < c.size(); ++k) DotColumns<Simd>(A + k * x.size(), x, &c[k], OneColumn());
}

template <class Simd>
[[gnu::always_inline]] inline void SubtractAll(const double* A, std::span<const double> c, std::span<double> y) {
  std::size_t k = 0;
  for (; k + c_nBlock <= c.size(); k += c_nBlock) SubtractColumns<Simd>(A + k * y.size(), &c[k], y, BlockColumns());
  for (; k < c.size(); ++k) SubtractColumns<Simd>(A + k * y.size(), &c[k], y, OneColumn());
}

void Multiply16(const double* A, std::span<const double> x, std::span<double> c) { MultiplyAll<Simd16>(A, x, c); }
void Subtract16(const double* A, std::span<const double> c, std::span<double> y) { SubtractAll<Simd16>(A, c, y); }

#if defined(__x86_64__)
[[gnu::target("avx2,fma")]] void Multiply32(const double* A, std::span<const double> x, std::span<double> c) {
  MultiplyAll<Simd32>(A, x, c);
}
[[gnu::target("avx2,fma")]] void Subtract32(const double* A, std::span<const double> c, std::span<double> y) {
  SubtractAll<Simd32>(A, c, y);
}
#endif

}  // namespace

void MultiplyTransposed(const double* A, std::span<const double> x, std::span<double> c,
                        [[maybe_unused]] skyline::VectorUnit unit) {
#if defined(__x86_64__)
  if (skyline::HasWideVectors(unit)) return Multiply32(A, x, c);
#endif
  Multiply16(A, x, c);
}

void SubtractProduct(const double* A, std::span<const double> c, std::span<double> y,
                     [[maybe_unused]] skyline::VectorUnit unit) {
#if defined(__x86_64__)
  if (skyline::HasWideVectors(unit)) return Subtract32(A, c, y);
#endif
  Subtract16(A, c, y);
}

}  // namespace skyframe::tall
