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

/// Replaces A(i, j), i < j, by L(i, j) and puts D into pivots (n values). The diagonal of values is
/// read and left as it is. Source: Bathe (1996), section 8.2 (active columns).
void FactoriseLdlt(const Profile& profile, double* values, std::span<double> pivots);

/// b <- L^-1 b.
void ForwardReduce(const Profile& profile, const double* values, std::span<double> b);

/// b <- L^-T b.
void BackSubstitute(const Profile& profile, const double* values, std::span<double> b);

}  // namespace skyframe::skyline
