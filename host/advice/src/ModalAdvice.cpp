#include <algorithm>

#include "AdviceBuilder.h"
#include "skyframe/connect/Inquiries.h"
#include "skyframe/job/Text.h"
#include "skyframe/values/ResultFiles.h"

namespace skyframe::host {

namespace {

constexpr double c_dRough = 1.0e-3;       ///< |K phi - omega^2 M phi| / |K phi|
constexpr double c_dJustBelow = 0.9999;   ///< of the highest frequency, past its round-off
constexpr int c_nComparisonModel = 1000;  ///< free equations from which on the root check can be chosen

int CountBelow(const std::vector<double>& omega, double dLimit) {
  return static_cast<int>(std::ranges::count_if(omega, [dLimit](double w) { return w < dLimit; }));
}

bool CheckFinite(const ModalFindings& findings, CAdviceBuilder& advice) {
  for (std::size_t i = 0; i < findings.omega.size(); ++i) {
    const std::string strMode = "mode " + std::to_string(i + 1);
    bool bFinite = advice.CheckFinite(findings.omega[i], "the frequency of " + strMode, suffix::c_strModes);
    for (std::size_t d = 0; bFinite && i < findings.effectiveMasses.size() && d < 3; ++d) {
      bFinite = advice.CheckFinite(findings.effectiveMasses[i][d], "the shape of " + strMode, suffix::c_strModes);
    }
    if (!bFinite) return false;
  }
  return true;
}

void CheckResiduals(const ModalFindings& findings, CAdviceBuilder& advice) {
  const auto Size = [](double d) { return std::isnan(d) ? HUGE_VAL : d; };
  const auto it = std::ranges::max_element(findings.residuals, {}, Size);
  if (it == findings.residuals.end() || *it <= c_dRough) return;
  advice.Warn("rough-mode", Format("mode %d satisfies K phi = omega^2 M phi only to %.1e: ask for a larger iteration "
                                   "multiple",
                                   static_cast<int>(it - findings.residuals.begin()) + 1, *it));
}

}  // namespace

AdviceList AdviseOnModes(const Job& job, const ModalFindings& findings) {
  CAdviceBuilder advice(job, findings);
  advice.CheckConditioning();
  if (findings.status == RunStatus::Done && CheckFinite(findings, advice)) CheckResiduals(findings, advice);
  return advice.Take();
}

std::optional<ModeCount> CountModes(const ModalFindings& findings) {
  if (findings.omega.empty()) return std::nullopt;
  const double dLimit = c_dJustBelow * findings.omega.back();
  if (findings.sturmCount && findings.dCountedBelow >= dLimit * c_dJustBelow) {
    return ModeCount{*findings.sturmCount, CountBelow(findings.omega, findings.dCountedBelow), findings.dCountedBelow};
  }
  const std::optional<int> count = CountModesBelow(dLimit, {findings.bShear, findings.loadFlags, findings.loadFactors});
  if (!count) return std::nullopt;
  return ModeCount{*count, CountBelow(findings.omega, dLimit), dLimit};
}

AdviceList AdviseOnCount(const ModalFindings& findings, const std::optional<ModeCount>& count) {
  const Job job;
  CAdviceBuilder advice(job, findings);
  if (findings.omega.empty()) return {};
  if (!count) {
    advice.Warn("modes-not-counted", "the Sturm count failed: nothing is known about missed modes");
    return advice.Take();
  }
  const double f = count->dBelow * c_dHertzPerRadian;
  const int nMissed = count->nCounted - count->nFound;
  if (nMissed > 0) {
    const bool bOtherCheck = !findings.sturmCount && findings.nEquations >= c_nComparisonModel;
    advice.Warn("missed-modes", Format("%d mode%s below %.4f Hz %s missing: %s", nMissed, nMissed == 1 ? "" : "s", f,
                                       nMissed == 1 ? "is" : "are",
                                       bOtherCheck ? "use \"root_check\": \"compare\""
                                                   : "ask for more modes or a larger iteration multiple"));
  } else if (nMissed < 0) {
    advice.Warn("modes-in-doubt", Format("%d modes below %.4f Hz were found, a Sturm count says %d: equal or rough "
                                         "modes near that limit",
                                         count->nFound, f, count->nCounted));
  }
  return advice.Take();
}

}  // namespace skyframe::host
