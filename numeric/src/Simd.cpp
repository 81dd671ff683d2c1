#include "Simd.h"

namespace skyframe::skyline {

bool IsAvailable(VectorUnit unit) {
  switch (unit) {
#if defined(__x86_64__)
    case VectorUnit::Bytes64:
      return __builtin_cpu_supports("avx512f") != 0;
    case VectorUnit::Bytes32:
      return __builtin_cpu_supports("avx2") != 0 && __builtin_cpu_supports("fma") != 0;
    case VectorUnit::Bytes16:
      return __builtin_cpu_supports("sse3") != 0;
#endif
    case VectorUnit::Best:
    case VectorUnit::Baseline:
      return true;
    default:
      return false;
  }
}

VectorUnit Resolve(VectorUnit unit) {
  if (unit != VectorUnit::Best) return unit;
  for (const VectorUnit wide : {VectorUnit::Bytes64, VectorUnit::Bytes32, VectorUnit::Bytes16}) {
    if (IsAvailable(wide)) return wide;
  }
  return VectorUnit::Baseline;
}

bool HasWideVectors(VectorUnit unit) {
  const VectorUnit resolved = Resolve(unit);
  return resolved == VectorUnit::Bytes32 || resolved == VectorUnit::Bytes64;
}

}  // namespace skyframe::skyline
