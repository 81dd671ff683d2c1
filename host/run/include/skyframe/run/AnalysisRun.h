#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "skyframe/job/Job.h"
#include "skyframe/run/RunReport.h"
#include "skyframe/run/Session.h"

namespace skyframe::host {

/// One run of an analysis and what is to be told of it.
struct AnalysisRun {
  /// As it was run: with dialogs what the person confirmed; nothing when there was nothing of either.
  std::optional<JobAnalysis> analysis;
  bool bGood = false;  ///< done, with no error in its advice and all its files written
  RunReport report;
  std::vector<std::string> errors;  ///< steps that the dialogs did not take
};

/// "Static analysis, linear" in the language in force.
[[nodiscard]] std::string_view GetName(const JobAnalysis& analysis);

/// Nobody sits there: the values are the job's. Stamps the results.
[[nodiscard]] AnalysisRun RunScripted(CSession& session, const JobAnalysis& analysis, CHostPlatform& platform);

/// The dialogs appear on the windows, for a person to change and to confirm; with the values when there are any. Stamps
/// the results.
[[nodiscard]] AnalysisRun RunInDialogs(CSession& session, AnalysisKind kind, const JobAnalysis* pValues,
                                       IPlatform& windows, std::ostream& console);

}  // namespace skyframe::host
