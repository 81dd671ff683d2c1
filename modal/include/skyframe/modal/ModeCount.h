#pragma once

#include <optional>

namespace skyframe {

class CAnalysisModel;

/// Number of modes below dOmega, rad/s, by a Sturm count of K - dOmega^2 M. Nothing (after the kernel's
/// message) when that matrix is singular.
[[nodiscard]] std::optional<int> CountModesBelow(const CAnalysisModel& model, double dOmega, bool bUseLoadMass);

}  // namespace skyframe
