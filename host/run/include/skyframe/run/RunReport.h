#pragma once

#include <array>
#include <string>

#include "skyframe/advice/Advice.h"
#include "skyframe/job/Language.h"
#include "skyframe/run/Session.h"

namespace skyframe::host {

/// What is to be told of a run.
struct RunReport {
  std::array<AdviceList, 2> adviceIn;    ///< by Language; without the files that were not written (AdviseOnFiles)
  std::array<std::string, 2> summaryIn;  ///< by Language; lines of text: the figures, the advice, the files

  // In the language in force:
  [[nodiscard]] const AdviceList& GetAdvice() const { return adviceIn[static_cast<std::size_t>(GetLanguage())]; }
  [[nodiscard]] const std::string& GetSummary() const { return summaryIn[static_cast<std::size_t>(GetLanguage())]; }
};

/// Of the last run of a kind. bCountModes: whether a Sturm count proves that a modal run missed none; it may cost a
/// factorisation.
[[nodiscard]] RunReport ReportRun(const CSession& session, AnalysisKind kind, bool bCountModes = true);

}  // namespace skyframe::host
