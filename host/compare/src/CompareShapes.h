#pragma once

#include "LargestDifference.h"
#include "skyframe/results/ModeResultFile.h"

namespace skyframe::host {

/// Frequencies mode by mode, and shapes, of as many modes as both have. The nodes of both stand in the same order.
[[nodiscard]] std::vector<Difference> CompareModes(const ModeResultFile& first, const ModeResultFile& second,
                                                   const std::vector<JobNode>& nodes, double dTolerance);

}  // namespace skyframe::host
