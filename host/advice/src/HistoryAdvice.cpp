#include <algorithm>

#include "AdviceBuilder.h"
#include "skyframe/job/Places.h"
#include "skyframe/job/Text.h"
#include "skyframe/results/Histories.h"
#include "skyframe/values/ResultFiles.h"
#include "texts.h"

namespace skyframe::host {

namespace {

void CheckDamping(const HistoryFindings& findings, CAdviceBuilder& advice) {
  constexpr double c_dRoundOff = 1.0e-12;
  const auto it = std::ranges::min_element(findings.damping);
  if (it == findings.damping.end() || !(*it < -c_dRoundOff)) return;
  const auto i = static_cast<std::size_t>(it - findings.damping.begin());
  advice.Warn("negative-damping",
              Say(texts::c_negativeDamping,
                  {std::to_string(i + 1), Format("%.4g", findings.omega[i]), Format("%.2g", 100.0 * *it)}));
}

void CheckIterations(const HistoryFindings& findings, CAdviceBuilder& advice) {
  if (findings.bRoughStart) {
    advice.Warn("rough-steps", std::string(Say(texts::c_roughStart)));
  }
  if (findings.nRoughSteps == 0) return;
  advice.Warn("rough-steps",
              Say(texts::c_roughSteps, {std::to_string(findings.nRoughSteps), std::to_string(findings.nSteps)}));
}

void CheckValues(const Job& job, const HistoryFindings& findings, CAdviceBuilder& advice) {
  if (findings.nBadStep == 0) return;
  const std::string strTime = Format("%g", findings.nBadStep * findings.dTimeStep);
  const std::string strWhat =
      findings.nBadQuantity == c_nHistoryForce
          ? Say(texts::c_axialForce, {std::to_string(findings.nBadNumber), strTime})
          : Say(texts::c_displacementFrom, {DescribePlace(job, {findings.nBadNumber, findings.nBadQuantity}), strTime});
  advice.CheckFinite(std::nan(""), strWhat, findings.bGroundMotion ? suffix::c_strHistory : Say(texts::c_history));
}

/// The result of a run in which nothing moves looks like one.
void CheckResponse(const HistoryFindings& findings, const HistorySet& kept, CAdviceBuilder& advice) {
  if (findings.status != RunStatus::Done) return;
  for (int q = 0; q < c_nHistoryQuantities; ++q) {
    const HistoryPeak peak = FindPeak(kept, q);
    if (peak.nNumber != 0 || !peak.bFinite) return;
  }
  advice.Warn("no-response", Say(texts::c_noResponse, {std::to_string(findings.nSteps)}));
}

/// A run without result leaves the histories of an earlier one to the viewer.
void CheckKept(const HistoryFindings& findings, const HistorySet& kept, CAdviceBuilder& advice) {
  const bool bBrokenOff = findings.status == RunStatus::Failed && findings.nStepsDone < findings.nSteps;
  if (!(findings.status == RunStatus::Refused || bBrokenOff) || !kept.bComplete) return;
  advice.Warn("older-history", Say(texts::c_olderHistory, {DescribeHistory(kept)}));
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
