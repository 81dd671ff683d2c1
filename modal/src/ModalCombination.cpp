#include "skyframe/modal/ModalCombination.h"

#include <algorithm>
#include <cmath>

#include "skyframe/numeric/VectorAlgebra.h"

namespace skyframe {
namespace {

constexpr double c_dGroupWidth = 0.1;

/// Deliberate: measured by the outer mode's frequency, so (i, j) and (j, i) may differ.
double FormGroupWeight(double dOmegaI, double dOmegaJ) {
  return std::abs((dOmegaJ - dOmegaI) / dOmegaI) <= c_dGroupWidth ? 1.0 : 0.0;
}

}  // namespace

double FormCorrelation(double dOmegaI, double dOmegaJ, double dZetaI, double dZetaJ) {
  const double lambda = dOmegaJ / dOmegaI;
  if (lambda == 1.0) return 1.0;
  const double zz = dZetaI * dZetaJ;
  const double d = 1.0 - lambda * lambda, s = 1.0 + lambda;
  return 8.0 * zz * s * std::pow(lambda, 1.5) / (d * d + 4.0 * zz * lambda * s * s);
}

CModalCombination::CModalCombination(int nMethod, std::span<const double> omega, std::span<const double> zeta)
    : m_nMethod(std::clamp<int>(nMethod, c_nSrss, c_nGrp)) {
  if (m_nMethod == c_nSrss) return;
  const std::size_t k = omega.size();
  m_weights.resize(k * k);
  for (std::size_t i = 0; i < k; ++i) {
    for (std::size_t j = 0; j < k; ++j) {
      const bool bCqc = m_nMethod == c_nCqc;
      const double dCorrelation = i == j ? 1.0 : FormCorrelation(omega[i], omega[j], zeta[i], zeta[j]);
      m_weights[i * k + j] = bCqc ? dCorrelation : FormGroupWeight(omega[i], omega[j]);
    }
  }
}

double CModalCombination::Combine(std::span<const double> R) const {
  if (m_nMethod == c_nSrss) return Norm(R);
  const std::size_t k = R.size();
  double dSum = 0.0;
  for (std::size_t i = 0; i < k; ++i) {
    double dInner = 0.0;
    if (m_nMethod == c_nCqc) {
      for (std::size_t j = 0; j < k; ++j) dInner += m_weights[i * k + j] * R[j];
      dSum += R[i] * dInner;
    } else {
      for (std::size_t j = 0; j < k; ++j) dInner += m_weights[i * k + j] * std::abs(R[j]);
      dSum += std::abs(R[i]) * dInner;
    }
  }
  return std::sqrt(std::max(dSum, 0.0));
}

}  // namespace skyframe
