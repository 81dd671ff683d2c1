#pragma once

#include <array>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "skyframe/history/BaseShear.h"
#include "skyframe/history/GroundMotion.h"
#include "skyframe/history/ImpulseScript.h"
#include "skyframe/history/Integrators.h"
#include "skyframe/history/NonlinearNewmark.h"
#include "skyframe/model/AnalysisModel.h"

namespace skyframe {

/// One time-history run on a built model: set-up, excitation, steps, histories.
/// Lifecycle: Start, one Run..., Finish with its result.
/// Failure: one message (none for what is silent by intention), then false.
class CTimeHistoryRun {
 public:
  CTimeHistoryRun(CAnalysisModel& model, std::string strPrefix)
      : m_model(model), m_findings(model.m_historyFindings), m_strPrefix(std::move(strPrefix)) {}

  /// Step count, memory, mode file; makes room for the histories and tells COMDYN.
  [[nodiscard]] bool Start(int nMethod, int nAssumption, bool bGroundMotion);
  [[nodiscard]] bool RunWilson();
  [[nodiscard]] bool RunNodalForce();
  [[nodiscard]] bool RunGroundMotion();
  /// Declares the histories available, or drops what there is of them.
  void Finish(bool bDone);

 private:
  /// What was asked for, into the findings.
  void DescribeRun(int nMethod, int nAssumption, bool bGroundMotion);
  [[nodiscard]] bool OpenScript(CImpulseScript& script) const;
  /// Linear steps under nodal forces; Step takes the forces at t + dt.
  template <class Integrator>
  [[nodiscard]] bool StepNodalForces(Integrator& integrator, CImpulseScript& script);
  [[nodiscard]] bool StepLinearGround(const CGroundMotion& motion);
  [[nodiscard]] bool StepNonlinearGround(const CGroundMotion& motion);

  /// The Rayleigh pair and what it gives every mode, into the findings.
  void FormDamping();
  /// K as the skyline; M, C = alpha M + beta K and a0 M + a1 C by rows.
  [[nodiscard]] bool FormOperators(double a0, double a1);
  /// L D L^T of K + a0 M + a1 C in the place of K, which is all a linear run keeps.
  [[nodiscard]] bool FactoriseEffective();
  void FormStepLoad(CImpulseScript& script);

  /// Equilibrium iteration under the load combination with the tangent stiffness; accepted as it stands
  /// at the iteration limit.
  [[nodiscard]] bool ApplyStaticLoad();
  /// u += du, moves the nodes and updates every element and Fint; false when the structure runs away.
  [[nodiscard]] bool Move(std::span<const double> increment);

  /// Row nStep of the histories but for the axial forces, which must stand there.
  void Record(int nStep, std::span<const double> u, const std::array<double, 3>& baseShear);
  /// Row nStep of a linear run, whose displacements are u. False when the structure runs away.
  [[nodiscard]] bool RecordLinear(int nStep, std::span<const double> u);
  /// Row nStep of a nonlinear run from the elements as they stand.
  void RecordNonlinear(int nStep);
  /// First value of row nStep that is not finite, into the findings.
  void FindBadValue(int nStep);

  [[nodiscard]] NewmarkConstants GetNewmark() const {
    return {m_model.m_dNewmarkAlpha, m_model.m_dNewmarkDelta, m_model.m_dTimeStep};
  }
  [[nodiscard]] IterationTest GetTest() const { return {m_model.m_nConvCriterion, m_model.m_dConvTol}; }
  [[nodiscard]] bool IsShear() const { return m_model.m_bShear != 0; }
  [[nodiscard]] std::size_t GetFreeCount() const { return static_cast<std::size_t>(m_model.GetFreeDofs()); }

  CAnalysisModel& m_model;
  HistoryFindings& m_findings;
  std::string m_strPrefix;
  CLoadCase m_stepLoad;      ///< keeps its records from step to step
  SparseMatrix m_stiffness;  ///< K, then K^ of a linear run
  CRowMatrix m_inertia;      ///< a0 M + a1 C
  CRowMatrix m_massRows;     ///< M
  CRowMatrix m_dampingRows;  ///< C
  CBaseShear m_baseShear;
  std::vector<std::pair<int, AxialRow>> m_axialRows;  ///< of a linear run, with the numbers of the elements
};

}  // namespace skyframe
