#include "Simd.h"

namespace skyframe::skyline {

bool IsAvailable(VectorUnit unit) {
#if defined(__x86_64__)
  if (unit == VectorUnit::Bytes64) return __builtin_cpu_supports("avx512f") != 0;
  if (unit == VectorUnit::Bytes32) return __builtin_cpu_supports("avx2") != 0 && __builtin_cpu_supports("fma") != 0;
#endif
  return unit == VectorUnit::Best || unit == VectorUnit::Bytes16;
}

VectorUnit Resolve(VectorUnit unit) {
  if (unit != VectorUnit::Best) return unit;
  if (IsAvailable(VectorUnit::Bytes64)) return VectorUnit::Bytes64;
  return IsAvailable(VectorUnit::Bytes32) ? VectorUnit::Bytes32 : VectorUnit::Bytes16;
}

}  // namespace skyframe::skyline
