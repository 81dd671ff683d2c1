#pragma once

namespace skyframe {

/// Stopping rule of the equilibrium iteration. Every comparison includes equality.
class CConvergenceTest {
 public:
  /// Reference ||P|| over the free equations, N.
  CConvergenceTest(int nCriterion, double dTolerance, double dReferenceForce);

  /// ||R|| over the free equations and ||du|| over all equations of the pass just done.
  /// The first call keeps ||du|| as the reference of the relative displacement criterion.
  [[nodiscard]] bool IsConverged(double dResidual, double dIncrement);

 private:
  int m_nCriterion;
  double m_dTolerance;
  double m_dReferenceForce;
  double m_dFirstIncrement = -1.0;
};

}  // namespace skyframe
