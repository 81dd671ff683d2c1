#pragma once

#include <span>
#include <vector>

namespace skyframe {

/// Factor from the kN of host load records and impulse texts to N.
inline constexpr double c_dNewtonPerKilonewton = 1000.0;
/// kg of a load of 1 N that becomes mass: 1 / 9.81.
inline constexpr double c_dMassPerNewton = 0.1019367991845056;

/// One scalar nodal load component. A new record is all zeros.
struct CNodalLoad {
  int m_nTarget = 0;     ///< 0: load vector, 1: second load vector
  int m_nDirection = 0;  ///< 0..5 = X, Y, Z, RY, RZ, RX
  int m_nNode = 0;       ///< 0-based
  double m_dValue = 0.0;

  /// Writes "荷载组装" to the console and adds dFactor times the value into the vector chosen by the
  /// target. Returns the equation number, or -1 when there is none and nothing was added.
  int AddToVector(std::span<double> loadVector, std::span<double> secondVector, double dFactor = 1.0) const;
};

/// A load group: records that act together.
struct CLoadCase {
  std::vector<CNodalLoad> m_records;
};

}  // namespace skyframe
