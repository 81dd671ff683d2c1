#pragma once

#include <ostream>
#include <string>

#include "skyframe/host/Job.h"

namespace skyframe::host {

/// Streams a command writes to.
struct HostStreams {
  std::ostream& out;                  ///< summaries
  std::ostream& err;                  ///< messages of the module, errors
  std::ostream& console;              ///< progress and trace lines of the module
  std::ostream* pProgress = nullptr;  ///< terminal for a progress bar; null: none
};

/// Runs every analysis of the job in order through the module's entry points, the dialogs scripted,
/// and prints a summary of each. Result files are named strJobPath plus a suffix.
/// False when an analysis showed an error message or left no result file; the later ones still run.
[[nodiscard]] bool RunJob(const Job& job, const std::string& strJobPath, const std::string& strProgramPath,
                          const HostStreams& streams);

/// Builds the analysis model and prints counts, equations, profile and cost of the factorisation, in
/// the job's numbering and in the one the modal analysis would use.
/// False when the module refuses the model.
[[nodiscard]] bool CheckJob(const Job& job, const HostStreams& streams);

}  // namespace skyframe::host
