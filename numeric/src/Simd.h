#pragma once

#include "skyframe/numeric/SkylineKernel.h"

/// Vectors of doubles for the inner loops, written once as templates over one of these structures.
/// The templates are inlined into small functions that carry a target attribute, and so are compiled
/// for that vector unit in a binary that runs everywhere. Vectors are passed by reference only: by
/// value their calling convention would depend on the unit.
namespace skyframe::skyline {

struct Simd16 {
  typedef double Vec __attribute__((vector_size(16)));
  static constexpr int c_nLanes = 2;
  static constexpr int c_nPanelVectors = 2;  ///< of a panel row, six of which stay in registers
};
struct Simd32 {
  typedef double Vec __attribute__((vector_size(32)));
  static constexpr int c_nLanes = 4;
  static constexpr int c_nPanelVectors = 2;
};
struct Simd64 {
  typedef double Vec __attribute__((vector_size(64)));
  static constexpr int c_nLanes = 8;
  static constexpr int c_nPanelVectors = 2;
};
/// Twice as many registers as the other units have: six rows of four vectors stay in them.
struct Simd64Tall : Simd64 {
  static constexpr int c_nPanelVectors = 4;
};

/// A vector in memory, where only the doubles are aligned.
template <class Simd>
struct __attribute__((packed, aligned(8), may_alias)) Stored {
  typename Simd::Vec v;
};

template <class Simd>
[[gnu::always_inline]] inline void Load(typename Simd::Vec& v, const double* p) {
  v = reinterpret_cast<const Stored<Simd>*>(p)->v;
}
template <class Simd>
[[gnu::always_inline]] inline void Store(double* p, const typename Simd::Vec& v) {
  reinterpret_cast<Stored<Simd>*>(p)->v = v;
}

/// The widest unit of this processor for Best, else the unit itself.
[[nodiscard]] VectorUnit Resolve(VectorUnit unit);

/// Vectors of 32 bytes or more.
[[nodiscard]] bool HasWideVectors(VectorUnit unit);

}  // namespace skyframe::skyline
