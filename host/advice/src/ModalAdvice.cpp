#include <algorithm>

#include "AdviceBuilder.h"
#include "skyframe/connect/Inquiries.h"
#include "skyframe/job/Text.h"
#include "skyframe/values/ResultFiles.h"
#include "texts.h"

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
    const std::string strMode = std::to_string(i + 1);
    bool bFinite = advice.CheckFinite(findings.omega[i], Say(texts::c_frequency, {strMode}), suffix::c_strModes);
    for (std::size_t d = 0; bFinite && i < findings.effectiveMasses.size() && d < 3; ++d) {
      bFinite = advice.CheckFinite(findings.effectiveMasses[i][d], Say(texts::c_shape, {strMode}), suffix::c_strModes);
    }
    if (!bFinite) return false;
  }
  return true;
}

void CheckResiduals(const ModalFindings& findings, CAdviceBuilder& advice) {
  const auto Size = [](double d) { return std::isnan(d) ? HUGE_VAL : d; };
  const auto it = std::ranges::max_element(findings.residuals, {}, Size);
  if (it == findings.residuals.end() || *it <= c_dRough) return;
  advice.Warn("rough-mode",
              Say(texts::c_roughMode, {std::to_string(it - findings.residuals.begin() + 1), Format("%.1e", *it)}));
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
    advice.Warn("modes-not-counted", std::string(Say(texts::c_notCounted)));
    return advice.Take();
  }
  const std::string strLimit = Format("%.4f", count->dBelow * c_dHertzPerRadian);
  const int nMissed = count->nCounted - count->nFound;
  if (nMissed > 0) {
    const bool bOtherCheck = !findings.sturmCount && findings.nEquations >= c_nComparisonModel;
    const std::string_view strRemedy = Say(bOtherCheck ? texts::c_otherCheck : texts::c_moreModes);
    advice.Warn("missed-modes", Say(nMissed == 1 ? texts::c_missedMode : texts::c_missedModes,
                                    {std::to_string(nMissed), strLimit, strRemedy}));
  } else if (nMissed < 0) {
    advice.Warn("modes-in-doubt",
                Say(texts::c_modesInDoubt, {std::to_string(count->nFound), strLimit, std::to_string(count->nCounted)}));
  }
  return advice.Take();
}

}  // namespace skyframe::host
