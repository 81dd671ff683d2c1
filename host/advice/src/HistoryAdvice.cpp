#include <algorithm>

#include "AdviceBuilder.h"
#include "skyframe/job/Places.h"
#include "skyframe/job/Text.h"
#include "skyframe/results/Histories.h"
#include "skyframe/values/ResultFiles.h"

namespace skyframe::host {

namespace {

void CheckDamping(const HistoryFindings& findings, CAdviceBuilder& advice) {
  constexpr double c_dRoundOff = 1.0e-12;
  const auto it = std::ranges::min_element(findings.damping);
  if (it == findings.damping.end() || !(*it < -c_dRoundOff)) return;
  const auto i = static_cast<std::size_t>(it - findings.damping.begin());
  advice.Warn("negative-damping", Format("the damping ratios give mode %d (%.4g rad/s) %.2g %%: it is driven, not "
                                         "damped",
                                         static_cast<int>(i) + 1, findings.omega[i], 100.0 * *it));
}

void CheckIterations(const HistoryFindings& findings, CAdviceBuilder& advice) {
  if (findings.bRoughStart) {
    advice.Warn("rough-steps",
                "the static loads of the start did not reach equilibrium within the permitted iterations: "
                "permit more");
  }
  if (findings.nRoughSteps == 0) return;
  advice.Warn("rough-steps", Format("in %d of %d steps equilibrium was not reached within the permitted iterations: "
                                    "permit more, or take a smaller time step",
                                    findings.nRoughSteps, findings.nSteps));
}

void CheckValues(const Job& job, const HistoryFindings& findings, CAdviceBuilder& advice) {
  if (findings.nBadStep == 0) return;
  const std::string strPlace =
      findings.nBadQuantity == c_nHistoryForce
          ? "axial force of element " + std::to_string(findings.nBadNumber)
          : "displacement at " + DescribePlace(job, {findings.nBadNumber, findings.nBadQuantity});
  const std::string strTime = Format(" from t = %g s on", findings.nBadStep * findings.dTimeStep);
  advice.CheckFinite(std::nan(""), strPlace + strTime, findings.bGroundMotion ? suffix::c_strHistory : "history");
}

/// The result of a run in which nothing moves looks like one.
void CheckResponse(const HistoryFindings& findings, const HistorySet& kept, CAdviceBuilder& advice) {
  if (findings.status != RunStatus::Done) return;
  for (int q = 0; q < c_nHistoryQuantities; ++q) {
    const HistoryPeak peak = FindPeak(kept, q);
    if (peak.nNumber != 0 || !peak.bFinite) return;
  }
  advice.Warn("no-response", Format("nothing moves in %d steps: no force or acceleration acts, or none in a free "
                                    "direction",
                                    findings.nSteps));
}

/// A run without result leaves the histories of an earlier one to the viewer.
void CheckKept(const HistoryFindings& findings, const HistorySet& kept, CAdviceBuilder& advice) {
  const bool bBrokenOff = findings.status == RunStatus::Failed && findings.nStepsDone < findings.nSteps;
  if (!(findings.status == RunStatus::Refused || bBrokenOff) || !kept.bComplete) return;
  advice.Warn("older-history", "the viewer still shows an earlier run: " + DescribeHistory(kept));
}

}  // namespace

AdviceList AdviseOnHistory(const Job& job, const HistoryFindings& findings, const HistorySet& kept) {
  CAdviceBuilder advice(job, findings);
  advice.CheckConditioning();
  CheckDamping(findings, advice);
  CheckIterations(findings, advice);
  CheckValues(job, findings, advice);
  CheckResponse(findings, kept, advice);
  CheckKept(findings, kept, advice);
  return advice.Take();
}

}  // namespace skyframe::host
