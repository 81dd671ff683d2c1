#include "skyframe/modal/DesignSpectrum.h"

#include <algorithm>
#include <cmath>

#include "skyframe/model/RayleighDamping.h"
#include "texts.h"

namespace skyframe {
namespace {

constexpr int c_nZoneGroups = 3;
constexpr int c_nSiteClasses = 4;

/// Frequent and rare, from intensity 6 (which has no rare earthquake) to 11.
constexpr double c_dAlphaMax[][2] = {{0.04, 0.0}, {0.08, 0.50}, {0.12, 0.72}, {0.16, 0.90}, {0.24, 1.20}, {0.32, 1.40}};
/// s, by zone group and site class. Deliberate: no increase for rare earthquakes.
constexpr double c_dTg[c_nZoneGroups][c_nSiteClasses] = {
    {0.25, 0.35, 0.45, 0.65}, {0.30, 0.40, 0.55, 0.75}, {0.35, 0.45, 0.65, 0.90}};

constexpr double c_dPlateauStart = 0.1;  ///< s
constexpr double c_dSpectrumEnd = 6.0;   ///< s
constexpr double c_dZero = 1e-15;

bool IsWithin(int n, int nFirst, int nLast) { return n >= nFirst && n <= nLast; }

}  // namespace

DampingFactors FormDampingFactors(double dDampRatio) {
  const double zeta = dDampRatio;
  return {.dGamma = 0.9 + (0.05 - zeta) / (0.5 + 5.0 * zeta),
          .dEta1 = std::max(0.02 + (0.05 - zeta) * 0.125, 0.0),
          .dEta2 = std::max(1.0 + (0.05 - zeta) / (0.06 + 1.7 * zeta), 0.55)};
}

CDesignSpectrum::CDesignSpectrum(const SpectrumSite& site)
    : CDesignSpectrum(c_dAlphaMax[site.m_nIntensity - c_nLowestIntensity][site.m_nQuakeLevel],
                      c_dTg[site.m_nZoneGroup - 1][site.m_nSiteClass - 1]) {}

double CDesignSpectrum::GetAlpha(double dPeriod, double dDampRatio) const {
  const double T = dPeriod, Tg = m_dTg;
  const auto [gamma, eta1, eta2] = FormDampingFactors(dDampRatio);
  if (T < c_dPlateauStart) return (0.45 + 10.0 * (eta2 - 0.45) * T) * m_dAlphaMax;
  if (T < Tg) return eta2 * m_dAlphaMax;
  if (T < 5.0 * Tg) return std::pow(Tg / T, gamma) * eta2 * m_dAlphaMax;
  if (T < c_dSpectrumEnd) return (std::pow(0.2, gamma) - (T - 5.0 * Tg) * eta1 / eta2) * eta2 * m_dAlphaMax;
  return 0.0;  // Deliberate: no extension beyond 6 s
}

std::optional<std::string_view> FindSiteError(const SpectrumSite& site) {
  const std::pair<bool, std::string_view> checks[] = {
      {!IsWithin(site.m_nQuakeLevel, 0, 1), texts::c_strBadQuakeLevel},
      {!IsWithin(site.m_nIntensity, c_nLowestIntensity, c_nHighestIntensity), texts::c_strBadIntensity},
      {site.m_nQuakeLevel == 1 && site.m_nIntensity == c_nLowestIntensity, texts::c_strNoRareCheck},
      {!IsWithin(site.m_nZoneGroup, 1, c_nZoneGroups), texts::c_strBadZoneGroup},
      {!IsWithin(site.m_nSiteClass, 1, c_nSiteClasses), texts::c_strBadSiteClass},
  };
  for (const auto& [bFailed, strText] : checks) {
    if (bFailed) return strText;
  }
  return std::nullopt;
}

std::optional<std::array<double, 3>> NormaliseDirection(const std::array<double, 3>& c) {
  const double dLength = std::hypot(c[0], c[1], c[2]);
  const std::array<double, 3> unit = {c[0] / dLength, c[1] / dLength, c[2] / dLength};
  const bool bLeft = std::ranges::any_of(unit, [](double d) { return std::abs(d) >= c_dZero; });
  return bLeft && std::isfinite(dLength) ? std::optional(unit) : std::nullopt;
}

std::vector<double> InterpolateDamping(std::span<const double> omega, double dFirst, double dSecond) {
  std::vector<double> zeta(omega.size(), dFirst);
  zeta[1] = dSecond;
  const auto rayleigh = FormRayleigh(omega, dFirst, dSecond);
  for (std::size_t i = 2; rayleigh && i < omega.size(); ++i) zeta[i] = GetDampingRatio(*rayleigh, omega[i]);
  return zeta;
}

}  // namespace skyframe
