#pragma once

#include <array>
#include <span>
#include <vector>

#include "skyframe/model/AnalysisModel.h"
#include "skyframe/numeric/RowMatrix.h"

namespace skyframe {

/// r over the F free equations: c at the translations, 0 elsewhere. |c| <= 1e-15 counts as 0.
[[nodiscard]] std::vector<double> FormDirectionVector(const CAnalysisModel& model, const std::array<double, 3>& c);

/// Masses that take part in rigid translations r along X, Y and Z; kg.
class CTranslationMasses {
 public:
  CTranslationMasses(const CAnalysisModel& model, const CRowMatrix& M);

  /// r^T M r
  [[nodiscard]] const std::array<double, 3>& GetTotal() const { return m_total; }
  /// (r^T M phi)^2
  [[nodiscard]] std::array<double, 3> FormEffective(std::span<const double> phi) const;

 private:
  std::array<std::vector<double>, 3> m_Mr;
  std::array<double, 3> m_total = {};
};

/// y = A x
[[nodiscard]] std::vector<double> Multiply(const CRowMatrix& A, std::span<const double> x);
[[nodiscard]] std::vector<double> GetColumn(const CMatrix& A, int nColumn);

}  // namespace skyframe
