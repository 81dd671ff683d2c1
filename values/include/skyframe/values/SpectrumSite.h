#pragma once

namespace skyframe {

/// T = c_dTwoPi / omega. Deliberate: truncated, not std::numbers::pi.
inline constexpr double c_dTwoPi = 6.2831852;
/// Frequency in Hz per rad/s. Deliberate: 1 / 6.2831852, not 1 / (2 pi).
inline constexpr double c_dHertzPerRadian = 0.15915494580678602;

/// Earthquake intensities of the design spectrum, code of the first and of the last.
inline constexpr int c_nLowestIntensity = 6;
inline constexpr int c_nHighestIntensity = 11;

/// What the design spectrum depends on beside period and damping.
struct SpectrumSite {
  int m_nQuakeLevel = 0;  ///< 0 frequent, 1 rare
  int m_nIntensity = 7;   ///< 6..11: 6 (0.05 g), 7 (0.10 g), 7 (0.15 g), 8 (0.20 g), 8 (0.30 g), 9 (0.40 g)
  int m_nZoneGroup = 1;   ///< 1..3
  int m_nSiteClass = 3;   ///< 1..4
};

}  // namespace skyframe
