#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "skyframe/advice/Advice.h"
#include "skyframe/job/Job.h"
#include "skyframe/platform/Platform.h"

namespace skyframe::host {

/// Streams a command writes to.
struct HostStreams {
  std::ostream& out;                  ///< summaries
  std::ostream& err;                  ///< messages of the module, errors
  std::ostream& console;              ///< progress and trace lines of the module
  std::ostream* pProgress = nullptr;  ///< terminal for a progress bar; null: none
};

/// How the runs of a job ended.
struct RunOutcome {
  bool bGood = true;               ///< every analysis is done, with no error in its advice and all its files written
  bool bWarned = false;            ///< a warning was given
  std::vector<AdviceList> advice;  ///< by analysis
};

/// Runs every analysis of the job in order through the module's entry points, the dialogs scripted, and prints a
/// summary of each with what is to be known about it. Result files are named strJobPath plus a suffix. After a
/// failure the later analyses still run.
/// pWindows: the dialogs appear there with the job's values, for a person to change and to confirm; a cancelled
/// analysis has failed. Messages and progress are shown there too.
[[nodiscard]] RunOutcome RunJob(const Job& job, const std::string& strJobPath, const std::string& strProgramPath,
                                const HostStreams& streams, IPlatform* pWindows = nullptr);

/// Builds the analysis model and prints counts, equations, profile and cost of the factorisation, in
/// the job's numbering and in the one the modal analysis would use.
/// False when the module refuses the model.
[[nodiscard]] bool CheckJob(const Job& job, const HostStreams& streams);

}  // namespace skyframe::host
