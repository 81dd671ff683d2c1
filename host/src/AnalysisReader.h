#pragma once

#include <optional>

#include "JobReader.h"

namespace skyframe::host {

/// Reads one entry of "analyses". nHighestCase bounds the cases of its load combination.
/// Nothing when the type is unknown; the error is then noted.
[[nodiscard]] std::optional<JobAnalysis> ReadAnalysis(CJobObject& object, int nHighestCase);

}  // namespace skyframe::host
