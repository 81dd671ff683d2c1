#pragma once

#include <optional>
#include <unordered_map>

#include "JobReader.h"

namespace skyframe::host {

/// What an analysis of a job may refer to.
struct AnalysisContext {
  int nHighestCase = 0;
  int nElements = 0;
  const std::unordered_map<int, int>& numberOfId;  ///< host number by node id
};

/// Reads one entry of "analyses". Nothing when its kind is unknown; the error is then noted.
[[nodiscard]] std::optional<JobAnalysis> ReadAnalysis(CJobObject& object, const AnalysisContext& context);

}  // namespace skyframe::host
