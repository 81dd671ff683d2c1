#pragma once

#include "skyframe/job/Job.h"
#include "skyframe/platform/HeadlessPlatform.h"

namespace skyframe::host {

/// What a person would do in the dialogs to run the analysis with the job's values. Values that the
/// job leaves out are not touched. Adds one script for each dialog that opens.
void AddScripts(const StaticJob& analysis, CHeadlessPlatform& platform);
void AddScripts(const ModalJob& analysis, CHeadlessPlatform& platform);
void AddScripts(const SpectrumJob& analysis, CHeadlessPlatform& platform);
void AddScripts(const WilsonJob& analysis, CHeadlessPlatform& platform);
void AddScripts(const NewmarkJob& analysis, CHeadlessPlatform& platform);

}  // namespace skyframe::host
