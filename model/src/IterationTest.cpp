#include "skyframe/model/IterationTest.h"

#include <cmath>

namespace skyframe {
namespace {

/// A reference norm of no more than this counts as none.
constexpr double c_dNoReference = 1.0e-15;

}  // namespace

/// value / reference <= tolerance, and the value has come down.
bool IterationTest::IsSmallAgainst(double dReference, double dValue) const {
  if (bMetWithoutReference && std::abs(dReference) <= c_dNoReference) return true;
  return std::abs(dValue / dReference) <= dTolerance && dValue < dReference;
}

bool IterationTest::IsConverged(double dResidual, double dForce, double dIncrement, double dReference) const {
  switch (nCriterion) {
    case c_nAbsoluteForce:
      return dResidual <= dTolerance;
    case c_nAbsoluteDisplacement:
      return dIncrement <= dTolerance;
    case c_nRelativeForce:
      return IsSmallAgainst(dForce, dResidual);
    case c_nRelativeDisplacement:
      return IsSmallAgainst(dReference, dIncrement);
    default:
      return false;
  }
}

}  // namespace skyframe
