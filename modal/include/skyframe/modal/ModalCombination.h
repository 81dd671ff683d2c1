#pragma once

#include <span>
#include <vector>

namespace skyframe {

enum CombinationMethod : int { c_nSrss, c_nCqc, c_nGrp };

/// Correlation of two modes under white noise; 1 for equal frequencies, whatever the damping.
/// Source: Wilson, Der Kiureghian and Bayo (1981).
[[nodiscard]] double FormCorrelation(double dOmegaI, double dOmegaJ, double dZetaI, double dZetaJ);

/// Combines modal maxima R_i of one response quantity into one value >= 0.
/// SRSS: sqrt(sum_i R_i^2); CQC: sqrt(sum_ij rho_ij R_i R_j), 0 where round-off makes the sum negative; GRP (grouping):
/// sqrt(sum_ij |R_i R_j|) over the ordered pairs with |omega_j - omega_i| <= 0.1 omega_i.
class CModalCombination {
 public:
  /// nMethod: SRSS, CQC or GRP; what lies outside counts as the nearest of them. omega (rad/s) and zeta: k values each.
  CModalCombination(int nMethod, std::span<const double> omega, std::span<const double> zeta);

  /// R: k values.
  [[nodiscard]] double Combine(std::span<const double> R) const;

 private:
  int m_nMethod;
  std::vector<double> m_weights;  ///< k x k by rows; empty for SRSS
};

}  // namespace skyframe
