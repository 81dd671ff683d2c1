#pragma once

#include "skyframe/job/Job.h"
#include "skyframe/platform/HeadlessPlatform.h"

namespace skyframe::host {

/// What a person would do in the dialogs to run the analysis with the job's values. Values that the
/// job leaves out are not touched. Adds one script for each dialog that opens.
void AddScripts(const JobAnalysis& analysis, CHeadlessPlatform& platform);

}  // namespace skyframe::host
