#pragma once

#include <cstddef>
#include <span>

/// The inner loops of the skyline matrix, A = L D L^T in place (see SparseMatrix for the storage rule).
/// Nothing here tests pivots, allocates results or shows messages.
namespace skyframe::skyline {

/// The leading n columns: diag and height have n entries each, heights at least 1.
struct Profile {
  std::span<const int> diag;
  std::span<const int> height;

  [[nodiscard]] int GetOrder() const { return static_cast<int>(diag.size()); }
  /// First row of column i in force.
  [[nodiscard]] int GetTop(int i) const { return i - height[static_cast<std::size_t>(i)] + 1; }
  /// Offset in the values at which row 0 of column i would stand: A(r, i) is values[offset + r].
  [[nodiscard]] std::ptrdiff_t GetOffset(int i) const {
    return static_cast<std::ptrdiff_t>(diag[static_cast<std::size_t>(i)]) - i;
  }
};

/// Width of the vectors that the inner loops use. Baseline: 16 bytes, on every processor.
enum class VectorUnit { Best, Baseline, Bytes16, Bytes32, Bytes64 };

/// True when this processor has the unit (16 bytes: SSE3; 32 bytes: AVX2 and FMA; 64 bytes: AVX-512 F).
[[nodiscard]] bool IsAvailable(VectorUnit unit);

/// Replaces A(i, j), i < j, by L(i, j) and puts D into pivots (n values). The diagonal of values is
/// read and left as it is. Blocks of columns are copied into a work space of about 150 column heights (240 of tall
/// ones); throws std::bad_alloc before anything is changed when there is no room for it. Left-looking by blocks; source
/// of the column scheme: Bathe (1996), section 8.2.
void FactoriseLdlt(const Profile& profile, double* values, std::span<double> pivots,
                   VectorUnit unit = VectorUnit::Best);

/// b <- L^-1 b.
void ForwardReduce(const Profile& profile, const double* values, std::span<double> b,
                   VectorUnit unit = VectorUnit::Best);

/// b <- L^-T b.
void BackSubstitute(const Profile& profile, const double* values, std::span<double> b,
                    VectorUnit unit = VectorUnit::Best);

/// X <- A^-1 X for several right-hand sides at a time: B holds nColumns columns of n values, one behind the
/// other; pivots is D. Throws std::bad_alloc before anything is changed when there is no room for the work
/// space of about 16 vectors and 48 column heights.
void SolveColumns(const Profile& profile, const double* values, std::span<const double> pivots, std::span<double> B,
                  int nColumns, VectorUnit unit = VectorUnit::Best);

}  // namespace skyframe::skyline
