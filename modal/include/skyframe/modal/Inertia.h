#pragma once

#include <optional>
#include <vector>

#include "skyframe/values/Findings.h"

namespace skyframe {

class CAnalysisModel;

/// M x of each x over the nodes in host order. Restrained DOFs of x do not count, those of M x are 0. Nothing, after
/// the kernel's message, when there is no memory for M.
[[nodiscard]] std::optional<std::vector<std::vector<NodeValues>>> FormInertia(
    const CAnalysisModel& model, bool bUseLoadMass, const std::vector<std::vector<NodeValues>>& accelerations);

}  // namespace skyframe
