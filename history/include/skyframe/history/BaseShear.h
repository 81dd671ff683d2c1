#pragma once

#include <array>
#include <span>
#include <utility>
#include <vector>

namespace skyframe {

class CNodeTable;
class SparseMatrix;

/// Sums of the forces of the structure on its supports along X, Y and Z,
///   V_d = -r_d^T K u, r_d = 1 at the restrained translations along d:
/// the base shear by elastic forces, as the response spectrum has it. Source: Chopra (2012), section 9.4.
class CBaseShear {
 public:
  CBaseShear() = default;
  /// K over all equations; only the columns of r_d^T K that are not 0 are kept.
  CBaseShear(SparseMatrix& K, const CNodeTable& nodes);

  /// Of the displacements u of the free equations of a linear structure.
  [[nodiscard]] std::array<double, 3> Compute(std::span<const double> u) const;
  /// Of given reactions; entry k belongs to equation F + k.
  [[nodiscard]] std::array<double, 3> Sum(std::span<const double> reactions) const;

 private:
  struct Term {
    std::size_t nEquation;
    double dFactor;
  };

  std::array<std::vector<std::size_t>, 3> m_supports;  ///< k of the restrained equations F + k
  std::array<std::vector<Term>, 3> m_terms;            ///< of -r_d^T K
};

}  // namespace skyframe
