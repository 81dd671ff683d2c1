#pragma once

#include "skyframe/numeric/SkylineKernel.h"

/// Vectors of doubles for the inner loops, written once as templates over one of these structures.
/// The templates are inlined into small functions that carry a target attribute, and so are compiled
/// for that vector unit in a binary that runs everywhere. Vectors are passed by reference only: by
/// value their calling convention would depend on the unit.
namespace skyframe::skyline {

struct Simd16 {
  typedef double Vec __attribute__((vector_size(16), aligned(8), may_alias));
  static constexpr int c_nLanes = 2;
};
struct Simd32 {
  typedef double Vec __attribute__((vector_size(32), aligned(8), may_alias));
  static constexpr int c_nLanes = 4;
};
struct Simd64 {
  typedef double Vec __attribute__((vector_size(64), aligned(8), may_alias));
  static constexpr int c_nLanes = 8;
};

/// The vector that begins at p; no alignment is needed.
template <class Simd>
[[gnu::always_inline]] inline typename Simd::Vec& At(double* p) {
  return *reinterpret_cast<typename Simd::Vec*>(p);
}
template <class Simd>
[[gnu::always_inline]] inline const typename Simd::Vec& At(const double* p) {
  return *reinterpret_cast<const typename Simd::Vec*>(p);
}

/// The widest unit of this processor for Best, else the unit itself.
[[nodiscard]] VectorUnit Resolve(VectorUnit unit);

}  // namespace skyframe::skyline
