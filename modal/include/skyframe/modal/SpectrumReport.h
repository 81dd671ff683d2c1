#pragma once

#include <array>
#include <optional>

namespace skyframe {

class CAnalysisModel;

/// Combined base shears in X, Y and Z, N, of a model with the modes and parameters of a spectrum analysis:
/// per mode V_i = r_d^T M (gamma_i phi_i) alpha_i g, with what the modes leave of r in place of
/// gamma phi for the virtual one; then combined like any response. In the direction of the quake
/// V_i = gamma_i^2 alpha_i g.
/// Nothing (after a message) when the modes cannot be formed.
[[nodiscard]] std::optional<std::array<double, 3>> ComputeBaseShear(CAnalysisModel& model, bool bUseLoadMass);

}  // namespace skyframe
