#pragma once

#include <array>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "skyframe/values/SpectrumSite.h"

namespace skyframe {

/// m/s2 per unit of the influence coefficient. Deliberate: not the 9.81 of the load masses.
inline constexpr double c_dSpectrumGravity = 9.8;

/// Corrections of the reference curve for the damping ratio; gamma 0.9, eta1 0.02, eta2 1 at 0.05.
struct DampingFactors {
  double dGamma = 0.9;  ///< exponent of the descending curve
  double dEta1 = 0.02;  ///< slope of the linear segment, >= 0
  double dEta2 = 1.0;   ///< height of the plateau, >= 0.55
};
[[nodiscard]] DampingFactors FormDampingFactors(double dDampRatio);

/// Seismic influence coefficient alpha(T): rise below 0.1 s, plateau to Tg, curve to 5 Tg, line to 6 s, then 0.
/// Source: Chinese code for seismic design of buildings, four-segment horizontal spectrum.
class CDesignSpectrum {
 public:
  CDesignSpectrum(double dAlphaMax, double dTg) : m_dAlphaMax(dAlphaMax), m_dTg(dTg) {}
  /// The site must have passed FindSiteError.
  explicit CDesignSpectrum(const SpectrumSite& site);

  [[nodiscard]] double GetAlphaMax() const { return m_dAlphaMax; }
  /// Characteristic period, s.
  [[nodiscard]] double GetTg() const { return m_dTg; }
  [[nodiscard]] double GetAlpha(double dPeriod, double dDampRatio) const;

 private:
  double m_dAlphaMax;
  double m_dTg;
};

/// Message of the first table check that fails: level, intensity, zone group, site class.
[[nodiscard]] std::optional<std::string_view> FindSiteError(const SpectrumSite& site);

/// c / |c|; nothing when no component is left outside +-1e-15.
[[nodiscard]] std::optional<std::array<double, 3>> NormaliseDirection(const std::array<double, 3>& c);

/// Damping ratio of each mode from those of modes 1 and 2: modes 3 and up follow a Rayleigh curve
/// through mode 1 and the first mode whose frequency differs from it. omega: rad/s, two modes or more.
[[nodiscard]] std::vector<double> InterpolateDamping(std::span<const double> omega, double dFirst, double dSecond);

}  // namespace skyframe
