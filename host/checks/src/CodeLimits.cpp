#include "skyframe/checks/CodeLimits.h"

#include <algorithm>
#include <array>

namespace skyframe::host {

namespace {

using ByIntensity = std::array<double, c_strIntensities.size()>;  // 0: no value

constexpr double c_dShortPeriod = 3.5, c_dLongPeriod = 5.0;
constexpr std::array<ByIntensity, c_strEditions.size()> c_shortShearWeight = {
    {{0.0, 0.016, 0.024, 0.032, 0.048, 0.064}, {0.008, 0.016, 0.024, 0.032, 0.048, 0.064}}};
constexpr std::array<ByIntensity, c_strEditions.size()> c_longShearWeight = {
    {{0.0, 0.012, 0.018, 0.024, 0.032, 0.040}, {0.006, 0.012, 0.018, 0.024, 0.036, 0.048}}};

/// n of 1/n by StructureKind, frequent and rare earthquake. 0: no limit.
using DriftLimits = std::array<std::array<double, 2>, c_strStructures.size()>;
constexpr std::array<DriftLimits, c_strEditions.size()> c_drifts = {{
    {{{300, 50}, {550, 50}, {800, 100}, {1000, 120}, {0, 0}, {0, 0}, {0, 0}}},
    {{{250, 50}, {550, 50}, {800, 100}, {1000, 120}, {0, 0}, {0, 0}, {0, 0}}},
}};

/// m/s2, frequent and rare earthquake.
constexpr std::array<ByIntensity, 2> c_peaks = {
    {{0.18, 0.35, 0.55, 0.70, 1.10, 1.40}, {0.0, 2.20, 3.10, 4.00, 5.10, 6.20}}};
constexpr double c_dRarePeakOf6In2010 = 1.25;

template <class Table>
auto At(const Table& table, int nIndex) {
  return table[static_cast<std::size_t>(nIndex)];
}

Limit Choose(const std::optional<double>& own, double dCode) { return {own.value_or(dCode), own.has_value()}; }

}  // namespace

Limit CCodeLimits::GetMassParticipation() const { return Choose(m_report.limits.dMassParticipation, 0.90); }

std::optional<Limit> CCodeLimits::FindShearWeight(int nIntensity, double dFirstPeriod) const {
  if (m_report.limits.dShearWeight) return Limit{*m_report.limits.dShearWeight, true};
  const double dShort = At(At(c_shortShearWeight, GetEdition()), nIntensity);
  const double dLong = At(At(c_longShearWeight, GetEdition()), nIntensity);
  const double t = std::clamp((dFirstPeriod - c_dShortPeriod) / (c_dLongPeriod - c_dShortPeriod), 0.0, 1.0);
  return dShort > 0.0 ? std::optional(Limit{dShort + t * (dLong - dShort), false}) : std::nullopt;
}

std::optional<Limit> CCodeLimits::FindDrift(int nLevel) const {
  const std::optional<double>& own = nLevel == 0 ? m_report.limits.dDrift : m_report.limits.dRareDrift;
  const int nStructure = m_report.nStructure.value_or(c_nOther);
  const double n = own.value_or(At(At(At(c_drifts, GetEdition()), nStructure), nLevel));
  return n > 0.0 ? std::optional(Limit{1.0 / n, own.has_value()}) : std::nullopt;
}

Limit CCodeLimits::GetPeriodRatio() const { return Choose(m_report.limits.dPeriodRatio, 0.90); }

Limit CCodeLimits::GetDisplacementRatio() const { return Choose(m_report.limits.dDisplacementRatio, 1.5); }

std::optional<double> FindPeakAcceleration(int nEdition, int nIntensity, int nLevel) {
  double dPeak = At(At(c_peaks, nLevel), nIntensity);
  if (dPeak == 0.0 && nEdition == c_nEdition2010) dPeak = c_dRarePeakOf6In2010;
  return dPeak > 0.0 ? std::optional(dPeak) : std::nullopt;
}

}  // namespace skyframe::host
