#pragma once

#include <memory>
#include <string>

#include "skyframe/host/Job.h"
#include "skyframe/model/AnalysisModel.h"

namespace skyframe::host {

/// Gives the model the load types and factors of a combination.
void SetCombination(const JobCombination& combination, CAnalysisModel& model);

/// The model of the host records with the first nModes modes of the job's mode file, 0: all of them.
/// The combination tells the node loads that count as mass. Null when the module refuses the model or the
/// file; it has then said why.
[[nodiscard]] std::unique_ptr<CAnalysisModel> LoadModes(const JobCombination& combination,
                                                        const std::string& strJobPath, int nModes = 0);

}  // namespace skyframe::host
