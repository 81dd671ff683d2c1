#pragma once

#include <string>
#include <vector>

#include "skyframe/advice/Advice.h"
#include "skyframe/job/JobFile.h"

namespace skyframe::host {

struct CalculationReport {
  std::string strPage;
  AdviceList warnings;  ///< that the page tells: of results that are damaged, out of date or do not belong together
};

/// The calculation report of a job as one HTML page that needs no other file, to be read on a screen and printed on A4;
/// in the language in force. It tells what the result files beside the job hold, and nothing of those that are not
/// there. No analysis is run, but the module is asked about the masses of the model: the host records then hold the
/// job, settings of the dialogs stay.
/// warnings: those of the job file.
[[nodiscard]] CalculationReport WriteReport(const Job& job, const std::string& strJobPath,
                                            const std::vector<JobProblem>& warnings = {});

}  // namespace skyframe::host
