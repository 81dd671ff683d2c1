#include "ConvergenceTest.h"

#include <cmath>

namespace skyframe {
namespace {

enum Criterion : int { c_nAbsoluteForce, c_nAbsoluteDisplacement, c_nRelativeForce, c_nRelativeDisplacement };

/// value / reference <= tolerance, and the value has come down.
bool IsSmallAgainst(double dReference, double dValue, double dTolerance) {
  return std::abs(dValue / dReference) <= dTolerance && dValue < dReference;
}

}  // namespace

CConvergenceTest::CConvergenceTest(int nCriterion, double dTolerance, double dReferenceForce)
    : m_nCriterion(nCriterion), m_dTolerance(dTolerance), m_dReferenceForce(dReferenceForce) {}

bool CConvergenceTest::IsConverged(double dResidual, double dIncrement) {
  if (m_dFirstIncrement < 0.0) m_dFirstIncrement = dIncrement;
  switch (m_nCriterion) {
    case c_nAbsoluteForce:
      return dResidual <= m_dTolerance;
    case c_nAbsoluteDisplacement:
      return dIncrement <= m_dTolerance;
    case c_nRelativeForce:
      return IsSmallAgainst(m_dReferenceForce, dResidual, m_dTolerance);
    case c_nRelativeDisplacement:
      return IsSmallAgainst(m_dFirstIncrement, dIncrement, m_dTolerance);
    default:
      return false;
  }
}

}  // namespace skyframe
