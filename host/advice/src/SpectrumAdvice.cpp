#include <algorithm>

#include "AdviceBuilder.h"
#include "skyframe/job/Text.h"
#include "skyframe/values/ResultFiles.h"
#include "skyframe/values/SpectrumSite.h"
#include "texts.h"

namespace skyframe::host {

namespace {

constexpr double c_dMassNormTolerance = 1.0e-3;
constexpr double c_dEnoughMass = 0.9;
constexpr double c_dSpectrumEnd = 6.0;  ///< s
constexpr double c_dNoComponent = 1.0e-15;

/// Modes are normalised with the mass of the modal run; false when that was another one.
bool CheckMassNorms(const SpectrumFindings& findings, CAdviceBuilder& advice) {
  const auto Distance = [](double m) { return std::isnan(m) ? HUGE_VAL : std::abs(m - 1.0); };
  const auto it = std::ranges::max_element(findings.modalMass, {}, Distance);
  if (it == findings.modalMass.end() || !(Distance(*it) > c_dMassNormTolerance)) return true;
  const std::string strMode = std::to_string(it - findings.modalMass.begin() + 1);
  advice.Warn("other-combination", Say(texts::c_otherCombination, {strMode, Format("%.4g", *it)}));
  return false;
}

void CheckMasses(const SpectrumFindings& findings, CAdviceBuilder& advice) {
  if (!(findings.dQuakeMass > 0.0)) {
    advice.Warn("missing-mass", std::string(Say(texts::c_noMass)));
    return;
  }
  if (findings.bVirtual) return;  // it carries the rest
  for (std::size_t d = 0; d < 3; ++d) {
    if (std::abs(findings.direction[d]) <= c_dNoComponent || findings.totalMass[d] <= 0.0) continue;
    double dSum = 0.0;
    for (const std::array<double, 3>& mode : findings.effectiveMasses) dSum += mode[d];
    const double dShare = dSum / findings.totalMass[d];
    if (dShare >= c_dEnoughMass) continue;
    advice.Warn("missing-mass",
                Say(findings.nModes == 1 ? texts::c_massOfMode : texts::c_massOfModes,
                    {std::to_string(findings.nModes), Format("%.1f", 100.0 * dShare), c_strDirections[d]}));
  }
}

void CheckPeriods(const SpectrumFindings& findings, CAdviceBuilder& advice) {
  for (std::size_t i = 0; i < static_cast<std::size_t>(findings.nModes) && i < findings.omega.size(); ++i) {
    const double T = c_dTwoPi / findings.omega[i];
    if (T < c_dSpectrumEnd) continue;
    advice.Warn("long-period", Say(texts::c_longPeriod, {std::to_string(i + 1), Format("%.4g", T)}));
    return;
  }
}

}  // namespace

AdviceList AdviseOnSpectrum(const Job& job, const SpectrumFindings& findings) {
  CAdviceBuilder advice(job, findings);
  advice.CheckConditioning();
  const bool bSameMass = CheckMassNorms(findings, advice);
  if (findings.status != RunStatus::Done) return advice.Take();
  if (bSameMass) CheckMasses(findings, advice);  // of another mass the shapes hold no share
  CheckPeriods(findings, advice);
  for (std::size_t d = 0; d < 3; ++d) {
    const std::string strWhat = Say(texts::c_baseShear, {c_strDirections[d]});
    if (!advice.CheckFinite(findings.baseShear[d], strWhat, suffix::c_strSpectrum)) return advice.Take();
  }
  advice.CheckNodeValues(findings.displacements, texts::c_displacementAt, suffix::c_strSpectrum);
  return advice.Take();
}

}  // namespace skyframe::host
