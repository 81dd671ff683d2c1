#pragma once

#include <optional>
#include <string>
#include <vector>

#include "skyframe/job/JobFile.h"
#include "skyframe/values/Findings.h"
#include "skyframe/values/HistorySet.h"

namespace skyframe::host {

enum class Severity { Warning, Error };

/// Something a person should know about a run before its figures are used, in the language that was in force.
struct Advice {
  Severity severity = Severity::Warning;
  std::string strName;  ///< short and stable, as "mechanism"; the manual explains cause and remedy under it
  std::string strText;

  bool operator==(const Advice&) const = default;
};
using AdviceList = std::vector<Advice>;

[[nodiscard]] bool HasError(const AdviceList& list);
/// "warning: text [name]".
[[nodiscard]] std::string FormatAdvice(const Advice& advice);

/// "cannot write path: reason".
[[nodiscard]] std::string FormatFailure(const FileFailure& failure);

/// What a job file tells before any run.
[[nodiscard]] AdviceList AdviseOnInput(const std::vector<JobProblem>& warnings);

// What the findings of a run tell. The job gives the nodes their ids.

/// Files that could not be written, and why.
[[nodiscard]] AdviceList AdviseOnFiles(const RunFindings& findings);

/// Conditioning, balance of forces and moments, finite values, the way of an iteration, compressed members.
[[nodiscard]] AdviceList AdviseOnStatic(const Job& job, const StaticFindings& findings);

/// Conditioning, finite values, rough modes and, from the count, missed modes.
[[nodiscard]] AdviceList AdviseOnModes(const Job& job, const ModalFindings& findings);
/// With the same list whether modes are missing: by the run's own Sturm count or one of its own, which costs a
/// factorisation.
struct ModeCount {
  int nCounted = 0;     ///< modes below the limit
  int nFound = 0;       ///< of those of the run
  double dBelow = 0.0;  ///< rad/s
};
[[nodiscard]] std::optional<ModeCount> CountModes(const ModalFindings& findings);
[[nodiscard]] AdviceList AdviseOnCount(const ModalFindings& findings, const std::optional<ModeCount>& count);

/// Combination of another modal run, mass that the modes leave out, periods beyond the spectrum, finite values.
[[nodiscard]] AdviceList AdviseOnSpectrum(const Job& job, const SpectrumFindings& findings);

/// Negative damping ratios, finite values; for a run without result what the viewer shows instead.
[[nodiscard]] AdviceList AdviseOnHistory(const Job& job, const HistoryFindings& findings, const HistorySet& kept);

}  // namespace skyframe::host
