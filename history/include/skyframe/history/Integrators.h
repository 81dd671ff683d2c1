#pragma once

#include <span>
#include <vector>

#include "skyframe/numeric/RowMatrix.h"
#include "skyframe/numeric/SparseMatrix.h"

// Step-by-step solution of M u'' + C u' + K u = R(t). Source: Bathe (1996), chapter 9.

namespace skyframe {

struct NewmarkConstants {
  double a0, a1, a2, a3, a4, a5, a6, a7;

  NewmarkConstants(double alpha, double delta, double dt);
};

struct WilsonConstants {
  double theta;
  double dt;
  double a0, a1, a2, a3, a4, a5, a6, a7, a8;

  WilsonConstants(double theta, double dt);
};

/// Displacement, velocity and acceleration at a time; n values each, 0 at the start.
struct MotionState {
  std::vector<double> u, v, a;

  explicit MotionState(int n) : u(static_cast<std::size_t>(n)), v(u), a(u) {}
};

/// What the steps of a linear run have in common: the operators and the solution of K^ u = R^.
/// The matrices must outlive it; K^ (effective) is factorised at the first step and reused.
class CLinearIntegrator {
 public:
  [[nodiscard]] const MotionState& GetState() const { return m_state; }

 protected:
  CLinearIntegrator(const CRowMatrix& M, const CRowMatrix& C, SparseMatrix& effective);

  /// target <- K^-1 (target + M m_p + C m_q)
  [[nodiscard]] bool SolveEffective(std::span<double> target);

  MotionState m_state;
  std::vector<double> m_p;  ///< factor of M
  std::vector<double> m_q;  ///< factor of C

 private:
  const CRowMatrix& m_M;
  const CRowMatrix& m_C;
  SparseMatrix& m_effective;
};

/// Newmark method, K^ = K + a0 M + a1 C.
class CNewmarkIntegrator : public CLinearIntegrator {
 public:
  CNewmarkIntegrator(const NewmarkConstants& constants, const CRowMatrix& M, const CRowMatrix& C,
                     SparseMatrix& effective);

  /// One step with the nodal forces R at t + dt. False when K^ is singular.
  [[nodiscard]] bool StepForce(std::span<const double> R);
  /// One step with the accelerations g at t + dt that act on the masses.
  [[nodiscard]] bool StepGround(std::span<const double> g);

 private:
  [[nodiscard]] bool Step();

  NewmarkConstants m_constants;
  std::vector<double> m_next;  ///< R^, then u(t + dt)
};

/// Wilson-theta method, K^ = K + a0 M + a1 C.
class CWilsonIntegrator : public CLinearIntegrator {
 public:
  CWilsonIntegrator(const WilsonConstants& constants, const CRowMatrix& M, const CRowMatrix& C,
                    SparseMatrix& effective);

  /// One step with the nodal forces R at t + dt; those at t are kept from the step before, 0 at first.
  [[nodiscard]] bool StepForce(std::span<const double> R);

 private:
  WilsonConstants m_constants;
  std::vector<double> m_load;   ///< R(t)
  std::vector<double> m_ahead;  ///< R^, then u(t + theta dt)
};

}  // namespace skyframe
