#include "ModalSolution.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <new>
#include <utility>

#include "WaitCursor.h"
#include "skyframe/modal/ModalPencil.h"
#include "skyframe/modal/ModeFile.h"
#include "skyframe/platform/Platform.h"
#include "texts.h"

namespace skyframe {
namespace {

constexpr int c_nLargeModel = 1000;       ///< from here on: unit start vector, mode comparison by default
constexpr int c_nRefinement = 4;          ///< Lanczos steps between two looks at the residuals
constexpr double c_dLeastTheta = 1e-15;   ///< s2
constexpr double c_dGreatestTheta = 1e6;  ///< s2; beyond it a free structure shows through round-off
constexpr double c_dGoodResidual = 1e-8;  ///< |K phi - omega^2 M phi| / |K phi|
constexpr double c_dRoundOff = 1e-15;     ///< relative Lanczos residual that more steps cannot better

/// First check that fails, in the required order.
std::optional<std::string_view> FindParameterError(const CAnalysisModel& model) {
  const std::pair<bool, std::string_view> checks[] = {
      {model.m_nModes > model.GetFreeDofs(), c_strTooManyModes},
      {model.m_nModes <= 0, c_strBadModeCount},
      {!(model.m_dModeTol > 0.0), c_strBadTolerance},
      {model.m_nIterMultiple <= 0, c_strBadMultiple},
  };
  for (const auto& [bFailed, strText] : checks) {
    if (bFailed) return strText;
  }
  return std::nullopt;
}

double Norm2(std::span<const double> v) {
  double dSum = 0.0;
  for (const double d : v) dSum += d * d;
  return dSum;
}

}  // namespace

CModalSolution::CModalSolution(const CAnalysisModel& model)
    : m_model(model),
      m_nFree(model.GetFreeDofs()),
      m_nModes(model.m_nModes),
      m_nFirstSize(ChooseFirstSize(m_nModes, m_nFree)),
      m_lanczos(
          m_nFree,
          [this](std::span<const double> b, std::span<double> y) {
            std::ranges::copy(b, y.begin());
            return m_K.Solve(m_nFree, y);
          },
          [this](std::span<const double> x, std::span<double> y) { m_M.Multiply(x, y); }) {}

bool CModalSolution::Solve(bool bGeometric, bool bUseLoadMass) {
  if (!Assemble(bGeometric, bUseLoadMass)) return false;
  std::vector<double> x0(static_cast<std::size_t>(m_nFree), 0.0);
  x0.front() = 1.0;
  m_lanczos.Start(m_nFree < c_nLargeModel ? m_lanczos.MakeRandomVector() : std::move(x0));
  if (!IterateToAcceptance()) return false;
  Refine();
  return true;
}

/// M and then K are assembled in the same memory; copies are kept only where the Sturm test can use them.
bool CModalSolution::Assemble(bool bGeometric, bool bUseLoadMass) {
  // Deliberate: 1, the second radio button, means Sturm, and so does any choice for a small model.
  const bool bSturm = m_model.m_nRootCheck == 1 || m_nFree < c_nLargeModel;
  if (!AssembleModalMass(m_model, bUseLoadMass, m_K)) return false;
  m_M = CRowMatrix(m_K, m_nFree);
  if (m_M.GetOrder() != m_nFree) return false;
  if (bSturm) m_plainM = m_K;

  if (!m_model.AssembleStiffness(m_K, bGeometric, m_model.m_bShear != 0)) return false;
  if (bSturm) m_plainK = m_K;
  if (!PrepareProducts(m_K, m_nFree)) return false;

  if (!bSturm) {
    m_pRootTest = std::make_unique<CModeComparisonTest>();
    return true;
  }
  m_pRootTest = std::make_unique<CSturmTest>(CSturmCount(m_plainK, m_plainM, m_nFree));
  return m_plainK.IsAllocated() && m_plainM.IsAllocated();
}

/// Passes of growing subspaces until the root-loss test is content or there is nothing left to add.
bool CModalSolution::IterateToAcceptance() {
  int m = m_nFirstSize;
  while (true) {
    if (!RunPass(m)) return false;
    if (IsComplete()) return true;
    const RootCheck check = m_pRootTest->Check(GetWanted());
    if (check != RootCheck::Enlarge) return check == RootCheck::Accept;
    const auto larger = EnlargeSubspace(m, m_nModes, m_nFree, m_nFirstSize, m_model.m_nIterMultiple);
    if (!larger) {
      GetPlatform().ShowMessage(c_strNoConvergedModes);
      return false;
    }
    m = *larger;
  }
}

/// The root-loss tests look at frequencies alone; a mode that passes may still be rough in shape. Goes
/// on with the recurrence, a few steps at a time within the permitted size; every pass replaces the accepted modes as a
/// whole, or not at all.
void CModalSolution::Refine() {
  const auto nLimit = static_cast<std::int64_t>(m_model.m_nIterMultiple) * m_nFirstSize;
  try {
    while (!IsComplete() && !IsSharp()) {
      const int m = std::min(m_lanczos.GetSize() + c_nRefinement, m_nFree);
      if ((m > nLimit && m < m_nFree) || !ExtendTo(m)) return;
      TridiagonalEigen accepted = m_lanczos.GetRitz();
      m_lanczos.SolveRitz(m_model.m_dModeTol);
      if (!m_lanczos.GetRitz().bConverged || !IsSupported()) return m_lanczos.SetRitz(std::move(accepted));
    }
  } catch (const std::bad_alloc&) {
    return;  // no memory to refine: what was accepted stands
  }
}

bool CModalSolution::ExtendTo(int m) {
  GetPlatform().ReportProgress(static_cast<double>(m_lanczos.GetSize()) / m, c_strModalProgress);
  return m_lanczos.Extend(m);
}

bool CModalSolution::RunPass(int m) {
  if (!ExtendTo(m)) return false;
  m_lanczos.SolveRitz(m_model.m_dModeTol);
  if (IsSupported()) return true;
  GetPlatform().ShowMessage(c_strRigidBody);
  return false;
}

/// Every wanted theta is a finite period's; a mode that the mass cannot supply counts as none.
bool CModalSolution::IsSupported() const {
  const std::span<const double> theta = m_lanczos.GetRitzValues();
  return static_cast<int>(theta.size()) >= m_nModes &&
         std::ranges::all_of(GetWanted(), [](double d) { return d > c_dLeastTheta && d <= c_dGreatestTheta; });
}

/// True when every wanted mode has a small residual or cannot be improved.
bool CModalSolution::IsSharp() const {
  const std::span<const double> theta = GetWanted();
  int nRough = 0;
  while (nRough < m_nModes && m_lanczos.GetResidualNorm(nRough) <= c_dRoundOff * theta[nRough]) ++nRough;
  if (nRough == m_nModes) return true;
  // The residual of forces is the greater one: no need to form it where this one is too great.
  for (int i = nRough; i < m_nModes; ++i) {
    if (m_lanczos.GetResidualNorm(i) > c_dGoodResidual * theta[i]) return false;
  }

  const CMatrix Phi = FormModeShapes();
  std::vector<double> phi(static_cast<std::size_t>(m_nFree));
  for (int i = nRough; i < m_nModes; ++i) {
    if (m_lanczos.GetResidualNorm(i) <= c_dRoundOff * theta[i]) continue;
    for (int k = 0; k < m_nFree; ++k) phi[k] = Phi[k][i];
    if (FormResidual(phi, theta[i]) > c_dGoodResidual) return false;
  }
  return true;
}

/// |K phi - M phi / theta| / |K phi|
double CModalSolution::FormResidual(std::span<const double> phi, double dTheta) const {
  std::vector<double> residual(phi.size());
  std::vector<double> inertia(phi.size());
  m_K.MultiplyRows(phi, residual);
  m_M.Multiply(phi, inertia);
  const double dForce2 = Norm2(residual);
  for (std::size_t i = 0; i < phi.size(); ++i) residual[i] -= inertia[i] / dTheta;
  return std::sqrt(Norm2(residual) / dForce2);
}

std::vector<double> CModalSolution::GetFrequencies() const {
  std::vector<double> omega;
  for (const double theta : GetWanted()) omega.push_back(std::sqrt(1.0 / theta));
  return omega;
}

void CAnalysisModel::SolveModes(const std::string& strJobPath, int nAnalysisType, bool bUseLoadMass) {
  if (!m_bValid) return;
  if (const auto strError = FindParameterError(*this)) return GetPlatform().ShowMessage(*strError);
  const CWaitCursor cursor;
  CModalSolution solution(*this);
  if (!solution.Solve(nAnalysisType != 0, bUseLoadMass)) return;
  Omega = solution.GetFrequencies();
  ModeShapes = solution.FormModeShapes();
  ModesSolved = 1;
  if (!WriteModeFile(*this, strJobPath, m_modalFindings)) GetPlatform().ShowMessage(c_strModeFileAccess);
}

}  // namespace skyframe
