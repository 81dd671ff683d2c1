#pragma once

#include <array>
#include <vector>

#include "skyframe/model/AnalysisModel.h"

namespace skyframe {

/// r over the F free equations: c at the translations, 0 elsewhere. |c| <= 1e-15 counts as 0.
[[nodiscard]] std::vector<double> FormDirectionVector(const CAnalysisModel& model, const std::array<double, 3>& c);

/// y = A x with the compressed rows of A.
[[nodiscard]] std::vector<double> Multiply(const SparseMatrix& A, std::span<const double> x);
[[nodiscard]] double Dot(std::span<const double> x, std::span<const double> y);

}  // namespace skyframe
