#pragma once

#include <functional>
#include <span>
#include <vector>

#include "skyframe/history/Integrators.h"
#include "skyframe/model/IterationTest.h"
#include "skyframe/numeric/SparseMatrix.h"

namespace skyframe {

/// The structure of a nonlinear run; vectors over the free equations.
struct NonlinearStructure {
  /// K <- tangent stiffness at the current state.
  std::function<bool(SparseMatrix& K)> formTangent;
  /// Moves the structure by the increment and returns its resisting forces; empty when it runs away.
  std::function<std::span<const double>(std::span<const double> increment)> move;
};

/// Newmark method with modified Newton iteration in every step:
/// P = P0 + M (g + a2 v + a3 a) + C (a4 v + a5 a), psi = P - Fint(u + U) - (a0 M + a1 C) U, K^ dU = psi.
/// P0, the constant load, and the resisting forces are total; U, v and a start at 0.
class CNonlinearNewmark {
 public:
  struct Settings {
    IterationTest test;
    int nMaxIter = 0;
  };

  /// inertia: a0 M + a1 C, within the profile of K. resistance: Fint at the start. All must outlive it but resistance.
  CNonlinearNewmark(const NewmarkConstants& constants, const Settings& settings, const CRowMatrix& M,
                    const CRowMatrix& C, const CRowMatrix& inertia, NonlinearStructure structure,
                    std::span<const double> constantLoad, std::span<const double> resistance);

  /// One step with the ground accelerations g at t + dt. At the iteration limit the step is accepted as
  /// it stands. False when K^ is singular or the structure runs away.
  [[nodiscard]] bool StepGround(std::span<const double> g);
  /// Iterations of the last step.
  [[nodiscard]] int GetIterations() const { return m_nIterations; }
  /// Whether they converged; a step that did not is kept all the same.
  [[nodiscard]] bool HasConverged() const { return m_bConverged; }
  /// u: displacement since the start of the steps.
  [[nodiscard]] const MotionState& GetState() const { return m_state; }

 private:
  [[nodiscard]] bool FormEffective();
  void FormLoad(std::span<const double> g);
  void FormResidual();
  [[nodiscard]] bool Iterate();
  void Advance();

  NewmarkConstants m_constants;
  Settings m_settings;
  const CRowMatrix& m_M;
  const CRowMatrix& m_C;
  const CRowMatrix& m_inertia;
  NonlinearStructure m_structure;
  std::vector<double> m_constantLoad;
  std::vector<double> m_resistance;
  SparseMatrix m_effective;
  MotionState m_state;
  std::vector<double> m_load;  ///< P
  std::vector<double> m_step;  ///< U
  std::vector<double> m_residual;
  std::vector<double> m_p;
  std::vector<double> m_q;
  int m_nIterations = 0;
  bool m_bConverged = false;
};

}  // namespace skyframe
