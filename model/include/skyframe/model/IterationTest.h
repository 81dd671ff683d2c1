#pragma once

#include "skyframe/values/Settings.h"

namespace skyframe {

/// Stopping rule of the equilibrium iterations. Every comparison includes equality.
struct IterationTest {
  int nCriterion = c_nAbsoluteForce;  ///< ConvergenceCriterion; any other is never met
  double dTolerance = 0.0;
  /// A relative criterion whose reference is within 1e-15 is met at once; otherwise it is never met without one.
  bool bMetWithoutReference = true;

  /// ||R||, ||P||, ||du|| and the reference of the displacement.
  [[nodiscard]] bool IsConverged(double dResidual, double dForce, double dIncrement, double dReference) const;

 private:
  [[nodiscard]] bool IsSmallAgainst(double dReference, double dValue) const;
};

}  // namespace skyframe
