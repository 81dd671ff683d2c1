#pragma once

#include <array>
#include <span>
#include <vector>

#include "skyframe/model/AnalysisModel.h"

namespace skyframe {

/// Modal part of a spectrum analysis. Entry i of each list belongs to mode i.
struct SpectrumModes {
  std::vector<double> omega;               ///< rad/s
  std::vector<std::vector<double>> shape;  ///< over the F free equations
  std::vector<double> gamma;               ///< participation factors r^T M phi
  std::vector<double> zeta;
  std::vector<double> alpha;                           ///< influence coefficients
  std::vector<double> factor;                          ///< modal displacement = factor * shape, m
  std::vector<double> modalMass;                       ///< phi^T M phi
  std::vector<std::array<double, 3>> effectiveMasses;  ///< (r^T M phi)^2 along X, Y, Z
  std::array<double, 3> directionMass = {};            ///< r^T M r along X, Y, Z, kg
  double dTotalMass = 0.0;                             ///< r^T M r along the earthquake, kg
  bool bVirtual = false;                               ///< the last mode is the virtual one

  [[nodiscard]] std::size_t GetCount() const { return omega.size(); }
};

/// Combined maxima, all >= 0.
struct SpectrumResult {
  std::vector<double> displacement;               ///< N, m
  std::vector<double> reaction;                   ///< N, newton; 0 at the free equations
  std::vector<std::vector<double>> elementForce;  ///< by slot: N of a bar, or N Qy Qz MYZ MZX MXY a station
  std::array<double, 3> baseShear = {};           ///< support forces summed mode by mode, the sums combined, newton
};

/// Modes, participation and response factors for the unit direction c, and the model's ModeDamping; in the
/// model's findings the conditioning of K where it was factorised. False (after a message) when a matrix cannot be
/// formed or factorised.
[[nodiscard]] bool FormSpectrumModes(CAnalysisModel& model, const std::array<double, 3>& c, bool bGeometric,
                                     bool bUseLoadMass, SpectrumModes& modes);

/// Forms every response quantity mode by mode and combines it.
[[nodiscard]] SpectrumResult CombineModes(const CAnalysisModel& model, const SpectrumModes& modes);

}  // namespace skyframe
