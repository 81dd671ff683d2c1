#include "TimeHistoryRun.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

#include "skyframe/hostdata/HostData.h"
#include "skyframe/model/RayleighDamping.h"
#include "skyframe/numeric/VectorAlgebra.h"
#include "skyframe/platform/Platform.h"
#include "skyframe/platform/Progress.h"
#include "texts.h"

namespace skyframe {

namespace {

/// "2026-11-21 23:05:09"
std::string FormatTime(const LocalTime& t) {
  std::array<char, 80> text = {};
  std::snprintf(text.data(), text.size(), "%04d-%02d-%02d %02d:%02d:%02d", t.nYear, t.nMonth, t.nDay, t.nHour,
                t.nMinute, t.nSecond);
  return text.data();
}

}  // namespace

void CTimeHistoryRun::DescribeRun(int nMethod, int nAssumption, bool bGroundMotion) {
  m_findings.status = RunStatus::Refused;  // until the input is accepted
  m_findings.nMethod = nMethod;
  m_findings.nAssumption = nAssumption;
  m_findings.bGroundMotion = bGroundMotion;
  m_findings.nSteps = CountSteps(m_model.m_dDuration, m_model.m_dTimeStep);
  m_findings.dTimeStep = m_model.m_dTimeStep;
}

bool CTimeHistoryRun::Start(int nMethod, int nAssumption, bool bGroundMotion) {
  HistorySet& history = m_model.m_history;
  history = HistorySet();
  DescribeRun(nMethod, nAssumption, bGroundMotion);
  if (!m_model.m_bValid) return false;
  const int N = m_findings.nSteps;
  const int nNodes = m_model.GetNodes().GetNodeCount();
  const int nElements = static_cast<int>(m_model.GetElements().size());
  // Histories of an earlier run stay until this one is done.
  const double dBytes = HistorySet::CountBytes(N, nNodes, nElements) + m_model.m_dKeptHistoryBytes;
  if (dBytes > GetPlatform().GetPhysicalMemory()) {
    GetPlatform().ShowMessage(texts::c_strHistoryTooLarge);
    return false;
  }

  COMDYN.m_nHistoryCount = N;
  COMDYN.m_dHistoryStep = m_model.m_dTimeStep;
  COMDYN.m_nMethod = nMethod;
  // Deliberate: a run under nodal forces leaves the nonlinear setting of the Newmark method as it was.
  if (nMethod == c_nWilsonMethod || bGroundMotion) COMDYN.m_bNonlinear = nAssumption;
  if (!m_model.ReadModeFrequencies(m_strPrefix)) {
    GetPlatform().ShowMessage(texts::c_strNoModes);
    return false;
  }
  FormDamping();
  history.Allocate(N, nNodes, nElements);
  history.baseShear = CHistoryTable(N, 3);
  history.dTimeStep = m_model.m_dTimeStep;
  history.nMethod = nMethod;
  history.nAssumption = nAssumption;
  return true;
}

bool CTimeHistoryRun::RunWilson() {
  m_model.ReadLoadLog(m_strPrefix);
  CImpulseScript script(m_model.LoadScript);
  if (!OpenScript(script)) return false;
  const WilsonConstants constants(m_model.m_dWilsonTheta, m_model.m_dTimeStep);
  if (!FormOperators(constants.a0, constants.a1) || !FactoriseEffective()) return false;
  CWilsonIntegrator integrator(constants, m_massRows, m_dampingRows, m_stiffness);
  return StepNodalForces(integrator, script);
}

bool CTimeHistoryRun::RunNodalForce() {
  if (m_model.m_bLoadFromFile == 1) m_model.ReadLoadLog(m_strPrefix);
  CImpulseScript script(m_model.LoadScript);
  if (!OpenScript(script)) return false;
  // Deliberate: nodal forces have no nonlinear run; it ends here without a word.
  if (m_model.m_history.nAssumption == 1) return false;
  const NewmarkConstants constants = GetNewmark();
  if (!FormOperators(constants.a0, constants.a1) || !FactoriseEffective()) return false;
  CNewmarkIntegrator integrator(constants, m_massRows, m_dampingRows, m_stiffness);
  return StepNodalForces(integrator, script);
}

bool CTimeHistoryRun::RunGroundMotion() {
  CGroundMotion motion;
  if (!motion.Read(m_model, m_model.m_bLoadFromFile == 1, m_strPrefix)) return false;
  const NewmarkConstants constants = GetNewmark();
  if (!FormOperators(constants.a0, constants.a1)) return false;
  return m_model.m_history.nAssumption == 1 ? StepNonlinearGround(motion) : StepLinearGround(motion);
}

void CTimeHistoryRun::Finish(bool bDone) {
  if (m_findings.nAssumption == 0) m_findings.conditioning = m_model.DescribeConditioning(m_stiffness);
  if (!bDone) {
    m_model.m_history = HistorySet();
    return;
  }
  m_findings.status = RunStatus::Done;
  m_model.m_history.bComplete = true;
  m_model.m_history.strFinished = FormatTime(GetPlatform().GetLocalTime());
  COMDYN.m_bHistoryAvailable = 1;
}

bool CTimeHistoryRun::OpenScript(CImpulseScript& script) const {
  if (script.FindBlocks()) return true;
  GetPlatform().ShowMessage(texts::c_strBadScript);
  return false;
}

template <class Integrator>
bool CTimeHistoryRun::StepNodalForces(Integrator& integrator, CImpulseScript& script) {
  CProgress progress(texts::c_strIntegration, m_model.m_history.nSteps);
  for (int k = 0; k < m_model.m_history.nSteps; ++k) {
    FormStepLoad(script);
    if (!integrator.StepForce(m_model.GetLoadVector().first(GetFreeCount()))) return false;
    if (!RecordLinear(k, integrator.GetState().u)) return false;
    progress.Advance();
  }
  return true;
}

bool CTimeHistoryRun::StepLinearGround(const CGroundMotion& motion) {
  if (!FactoriseEffective()) return false;
  CNewmarkIntegrator integrator(GetNewmark(), m_massRows, m_dampingRows, m_stiffness);
  std::vector<double> g(GetFreeCount());
  CProgress progress(texts::c_strIntegration, m_model.m_history.nSteps);
  for (int k = 0; k < m_model.m_history.nSteps; ++k) {
    motion.FormVector(k, m_model.GetNodes(), g);
    if (!integrator.StepGround(g)) return false;
    if (!RecordLinear(k, integrator.GetState().u)) return false;
    progress.Advance();
  }
  return true;
}

bool CTimeHistoryRun::StepNonlinearGround(const CGroundMotion& motion) {
  m_model.ClearDisplacements();
  if (!ApplyStaticLoad()) return false;

  NonlinearStructure structure;
  structure.formTangent = [this](SparseMatrix& K) { return m_model.AssembleStiffness(K, true, IsShear()); };
  structure.move = [this](std::span<const double> increment) -> std::span<const double> {
    return Move(increment) ? m_model.GetInternalForce() : std::span<const double>();
  };
  const std::span<const double> P0 = m_model.GetLoadVector().first(GetFreeCount());
  const std::span<const double> Fint = m_model.GetInternalForce().first(GetFreeCount());
  CNonlinearNewmark integrator(GetNewmark(), {GetTest(), m_model.m_nMaxIter}, m_massRows, m_dampingRows, m_inertia,
                               structure, P0, Fint);
  std::vector<double> g(GetFreeCount());
  CProgress progress(texts::c_strIntegration, m_model.m_history.nSteps);
  for (int k = 0; k < m_model.m_history.nSteps; ++k) {
    motion.FormVector(k, m_model.GetNodes(), g);
    if (!integrator.StepGround(g)) return false;
    if (!integrator.HasConverged()) ++m_findings.nRoughSteps;
    RecordNonlinear(k);
    progress.Advance();
  }
  return true;
}

void CTimeHistoryRun::FormDamping() {
  const RayleighCoefficients rayleigh =
      FormRayleigh(m_model.Omega, m_model.m_pDamping[0], m_model.m_pDamping[1]).value_or(RayleighCoefficients{});
  m_findings.dMassDamping = rayleigh.dMass;
  m_findings.dStiffnessDamping = rayleigh.dStiffness;
  m_findings.omega = m_model.Omega;
  for (const double w : m_model.Omega) m_findings.damping.push_back(GetDampingRatio(rayleigh, w));
}

bool CTimeHistoryRun::FormOperators(double a0, double a1) {
  m_findings.status = RunStatus::Failed;  // until the last step
  const int F = m_model.GetFreeDofs();
  // M and then K in the same memory
  if (!m_model.AssembleMass(m_stiffness, IsShear())) return false;
  m_model.AddStaticLoadMass(m_stiffness);
  m_massRows = CRowMatrix(m_stiffness, F);
  if (!m_model.AssembleStiffness(m_stiffness, false, IsShear())) return false;
  const CRowMatrix K(m_stiffness, F);
  m_stiffness.RestoreHeights();  // M may stand where K has zeros
  if (m_massRows.GetOrder() != F || K.GetOrder() != F) return false;
  m_baseShear = CBaseShear(m_stiffness, m_model.GetNodes());
  m_dampingRows = CRowMatrix::Combine(m_findings.dMassDamping, m_massRows, m_findings.dStiffnessDamping, K);
  m_inertia = CRowMatrix::Combine(a0, m_massRows, a1, m_dampingRows);
  return true;
}

bool CTimeHistoryRun::FactoriseEffective() {
  m_axialRows.reserve(m_model.GetElements().size());
  for (const auto& pElement : m_model.GetElements()) {
    if (pElement) m_axialRows.emplace_back(pElement->GetElemNo(), pElement->FormAxialRow());
  }
  m_inertia.AddTo(m_stiffness, 1.0);
  return m_stiffness.Decompose(m_model.GetFreeDofs());
}

void CTimeHistoryRun::FormStepLoad(CImpulseScript& script) {
  if (script.IsUsedUp()) {
    m_model.ClearLoads();
    return;
  }
  script.ReadBlock(m_stepLoad);
  m_model.BuildLoadVector(m_stepLoad);
}

bool CTimeHistoryRun::ApplyStaticLoad() {
  const std::size_t F = GetFreeCount();
  m_model.AssembleCombinedLoad();
  const std::span<const double> P = m_model.GetLoadVector().first(F);
  const std::span<const double> Fint = m_model.GetInternalForce();
  std::vector<double> residual(P.begin(), P.end());
  std::vector<double> increment(F);
  const IterationTest test = GetTest();
  const double dForce = Norm(P);
  m_findings.bRoughStart = true;
  CProgress progress(texts::c_strStartLoad, m_model.m_nMaxIter);
  for (int k = 0; k < m_model.m_nMaxIter && m_findings.bRoughStart; ++k) {
    // K du = R with the tangent stiffness; R = P - Fint
    SparseMatrix& K = m_stiffness;
    if (!m_model.AssembleStiffness(K, true, IsShear())) return false;
    std::copy(residual.begin(), residual.end(), increment.begin());
    const bool bSolved = K.Solve(m_model.GetFreeDofs(), increment);
    if (k == 0) m_findings.conditioning = m_model.DescribeConditioning(K);
    if (!bSolved) return false;
    if (!Move(increment)) return false;
    for (std::size_t i = 0; i < F; ++i) residual[i] = P[i] - Fint[i];
    const double dTotal = Norm(m_model.GetDisplacements().first(F));
    progress.Advance();
    m_findings.bRoughStart = !test.IsConverged(Norm(residual), dForce, Norm(increment), dTotal);
  }
  m_stiffness.Release();
  m_model.m_staticForce.clear();
  for (const auto& pElement : m_model.GetElements()) {
    m_model.m_staticForce.push_back(pElement ? pElement->GetAxialForce() : 0.0);
  }
  return true;
}

bool CTimeHistoryRun::Move(std::span<const double> increment) {
  m_model.ApplyIncrement(increment, IsShear(), false);
  return m_model.IsWithinLimit(m_model.GetDisplacements().first(GetFreeCount()));
}

bool CTimeHistoryRun::RecordLinear(int nStep, std::span<const double> u) {
  if (!m_model.IsWithinLimit(u)) return false;
  double* const forces = m_model.m_history.values[c_nHistoryForce][nStep];
  for (const auto& [nElement, row] : m_axialRows) forces[nElement] = row.Compute(u);
  Record(nStep, u, m_baseShear.Compute(u));
  return true;
}

void CTimeHistoryRun::RecordNonlinear(int nStep) {
  double* const forces = m_model.m_history.values[c_nHistoryForce][nStep];
  for (const auto& pElement : m_model.GetElements()) {
    if (pElement) forces[pElement->GetElemNo()] = pElement->GetAxialForce();
  }
  Record(nStep, m_model.GetDisplacements().first(GetFreeCount()), m_baseShear.Sum(m_model.GetReactions()));
}

void CTimeHistoryRun::Record(int nStep, std::span<const double> u, const std::array<double, 3>& baseShear) {
  HistorySet& history = m_model.m_history;
  for (int nDirection = 0; nDirection < 3; ++nDirection) {
    double* row = history.values[static_cast<std::size_t>(nDirection)][nStep];
    for (const int nNode : m_model.GetNodes().GetListedNodes()) {
      row[nNode] = m_model.GetNodes().GetValue(u, nNode, nDirection);
    }
  }
  for (std::size_t d = 0; d < baseShear.size(); ++d) {
    history.baseShear[nStep][d] = baseShear[d];
    m_findings.baseShear[d] = std::max(m_findings.baseShear[d], std::abs(baseShear[d]));
  }
  ++m_findings.nStepsDone;
  if (m_findings.nBadStep == 0) FindBadValue(nStep);
}

void CTimeHistoryRun::FindBadValue(int nStep) {
  for (int nQuantity = 0; nQuantity < c_nHistoryQuantities; ++nQuantity) {
    const CHistoryTable& table = m_model.m_history.values[static_cast<std::size_t>(nQuantity)];
    const std::span<const double> row(table[nStep], static_cast<std::size_t>(table.GetCols()));
    const auto it = std::ranges::find_if_not(row, [](double d) { return std::isfinite(d); });
    if (it == row.end()) continue;
    m_findings.nBadQuantity = nQuantity;
    m_findings.nBadStep = nStep + 1;
    m_findings.nBadNumber = static_cast<int>(it - row.begin()) + 1;
    return;
  }
}

}  // namespace skyframe
