#pragma once

#include <array>
#include <string>

#include "skyframe/advice/Advice.h"
#include "skyframe/run/Session.h"

namespace skyframe::host {

/// What is to be told of a run.
struct RunReport {
  AdviceList advice;                     ///< without the files that were not written (AdviseOnFiles)
  std::array<AdviceList, 2> adviceIn;    ///< the same by Language
  std::string strSummary;                ///< lines of text: the figures, the advice, the files
  std::array<std::string, 2> summaryIn;  ///< the same by Language
};

/// Of the last run of a kind. bCountModes: whether a Sturm count proves that a modal run missed none; it may cost a
/// factorisation.
[[nodiscard]] RunReport ReportRun(const CSession& session, AnalysisKind kind, bool bCountModes = true);

}  // namespace skyframe::host
