#include "ModalSolution.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <new>
#include <utility>

#include "Participation.h"
#include "skyframe/modal/ModalPencil.h"
#include "skyframe/modal/ModeFile.h"
#include "skyframe/numeric/VectorAlgebra.h"
#include "skyframe/platform/Platform.h"
#include "skyframe/platform/Progress.h"
#include "texts.h"

namespace skyframe {
namespace {

constexpr int c_nLargeModel = 1000;  ///< from here on: unit start vector, mode comparison by default
constexpr double c_dStartNoise = 1e-14;
constexpr int c_nRefinement = 4;          ///< Lanczos steps between two looks at the residuals
constexpr double c_dLeastTheta = 1e-15;   ///< s2
constexpr double c_dGreatestTheta = 1e6;  ///< s2; beyond it a free structure shows through round-off
constexpr double c_dGoodResidual = 1e-8;  ///< |K phi - omega^2 M phi| / |K phi|
constexpr double c_dRoundOff = 1e-15;     ///< relative Lanczos residual that more steps cannot better

/// First check that fails.
std::optional<std::string_view> FindParameterError(const CAnalysisModel& model) {
  const std::pair<bool, std::string_view> checks[] = {
      {model.m_nModes > model.GetFreeDofs(), texts::c_strTooManyModes},
      {model.m_nModes <= 0, texts::c_strBadModeCount},
      {!(model.m_dModeTol > 0.0), texts::c_strBadTolerance},
      {model.m_nIterMultiple <= 0, texts::c_strBadMultiple},
  };
  for (const auto& [bFailed, strText] : checks) {
    if (bFailed) return strText;
  }
  return std::nullopt;
}

ModalFindings FormInitialFindings(const CAnalysisModel& model, bool bUseLoadMass) {
  ModalFindings findings;
  findings.status = RunStatus::Refused;
  findings.nEquations = model.GetFreeDofs();
  findings.bShear = model.m_bShear != 0;
  if (!bUseLoadMass) return findings;
  findings.loadFlags = model.m_nLoadCaseFlag;
  findings.loadFactors = model.m_dLoadFactor;
  return findings;
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
            return m_factors.Solve(m_nFree, y);
          },
          [this](std::span<const double> x, std::span<double> y) { m_M.Multiply(x, y); }) {}

bool CModalSolution::Solve(bool bGeometric, bool bUseLoadMass) {
  if (!Assemble(bGeometric, bUseLoadMass) || !m_factors.Decompose(m_nFree)) return false;
  m_lanczos.Start(MakeStartVector());
  if (!IterateToAcceptance()) return false;
  m_shifted.Release();
  Refine();
  return true;
}

/// A large model starts from e1, with noise of the size of round-off: from e1 alone the recurrence never leaves
/// the part of the structure that its equation belongs to.
std::vector<double> CModalSolution::MakeStartVector() {
  std::vector<double> x0 = m_lanczos.MakeRandomVector();
  if (m_nFree < c_nLargeModel) return x0;
  for (double& d : x0) d *= c_dStartNoise / 100.0;
  x0.front() += 1.0;
  return x0;
}

/// M and then K are assembled in the same memory and kept by rows.
bool CModalSolution::Assemble(bool bGeometric, bool bUseLoadMass) {
  // Deliberate: 1, the second radio button, means Sturm, and so does any choice for a small model.
  const bool bSturm = m_model.m_nRootCheck == 1 || m_nFree < c_nLargeModel;
  if (!AssembleMassRows(m_model, bUseLoadMass, m_factors, m_M)) return false;
  if (!AssembleStiffnessRows(m_model, bGeometric, m_factors, m_K)) return false;
  if (bSturm) {
    m_pRootTest = std::make_unique<CSturmTest>([this](double dShift) { return CountBelow(dShift); });
  } else {
    m_pRootTest = std::make_unique<CModeComparisonTest>();
  }
  return true;
}

std::optional<int> CModalSolution::CountBelow(double dShift) {
  const CProgress progress(texts::c_strRootCount);
  if (!m_shifted.IsAllocated()) {
    m_shifted.SetProfile(m_nFree, m_factors.GetDiagonal(), m_nFree);
  }
  m_shifted.Fill(0.0);
  if (m_shifted.IsAllocated()) m_K.AddTo(m_shifted, 1.0);
  return CountBelowShift(m_shifted, m_M, dShift);
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
      GetPlatform().ShowMessage(texts::c_strNoConvergedModes);
      return false;
    }
    m = *larger;
  }
}

/// The root-loss tests look at frequencies alone, and of those at two; a mode that passes may still be rough in
/// shape, and copies of a multiple one may be missing. Goes on with the recurrence, a few steps at a time within the
/// permitted size; every pass replaces the accepted modes as a whole, or not at all.
void CModalSolution::Refine() {
  const auto nLimit = static_cast<std::int64_t>(m_model.m_nIterMultiple) * m_nFirstSize;
  try {
    while (!IsComplete() && !(HasAllCounted() && IsSharp())) {
      const int m = std::min(m_lanczos.GetSize() + c_nRefinement, m_nFree);
      if ((m > nLimit && m < m_nFree) || !m_lanczos.Extend(m)) return;
      TridiagonalEigen accepted = m_lanczos.GetRitz();
      m_lanczos.SolveRitz(m_model.m_dModeTol);
      if (!m_lanczos.GetRitz().bConverged || !IsSupported()) return m_lanczos.SetRitz(std::move(accepted));
    }
  } catch (const std::bad_alloc&) {
    return;  // no memory to refine: what was accepted stands
  }
}

bool CModalSolution::RunPass(int m) {
  ++m_nPasses;
  if (!m_lanczos.Extend(m)) return false;
  m_lanczos.SolveRitz(m_model.m_dModeTol);
  if (IsSupported()) return true;
  GetPlatform().ShowMessage(texts::c_strRigidBody);
  return false;
}

/// Every wanted theta is a finite period's; a mode that the mass cannot supply counts as none.
bool CModalSolution::IsSupported() const {
  const std::span<const double> theta = m_lanczos.GetRitzValues();
  return static_cast<int>(theta.size()) >= m_nModes &&
         std::ranges::all_of(GetWanted(), [](double d) { return d > c_dLeastTheta && d <= c_dGreatestTheta; });
}

/// The Ritz values hold every mode that the Sturm test counted.
bool CModalSolution::HasAllCounted() const {
  const std::optional<SturmCount> proof = m_pRootTest->GetProof();
  if (!proof) return true;
  const auto nFound = std::ranges::count_if(m_lanczos.GetRitzValues(),
                                            [&](double theta) { return theta > 0.0 && 1.0 / theta < proof->dShift; });
  return nFound >= proof->nBelow;
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
  for (int i = nRough; i < m_nModes; ++i) {
    if (m_lanczos.GetResidualNorm(i) <= c_dRoundOff * theta[i]) continue;
    if (FormResidual(GetColumn(Phi, i), theta[i]) > c_dGoodResidual) return false;
  }
  return true;
}

/// |K phi - M phi / theta| / |K phi|
double CModalSolution::FormResidual(std::span<const double> phi, double dTheta) const {
  std::vector<double> residual(phi.size());
  std::vector<double> inertia(phi.size());
  m_K.Multiply(phi, residual);
  m_M.Multiply(phi, inertia);
  const double dForce2 = Dot(residual, residual);
  for (std::size_t i = 0; i < phi.size(); ++i) residual[i] -= inertia[i] / dTheta;
  return std::sqrt(Dot(residual, residual) / dForce2);
}

std::vector<double> CModalSolution::GetFrequencies() const {
  std::vector<double> omega;
  for (const double theta : GetWanted()) omega.push_back(std::sqrt(1.0 / theta));
  return omega;
}

void CModalSolution::DescribeRun(ModalFindings& findings) const {
  findings.conditioning = m_model.DescribeConditioning(m_factors);
  findings.nSubspace = m_lanczos.GetSize();
  findings.nIterations = m_nPasses;
  const std::optional<SturmCount> proof = m_pRootTest ? m_pRootTest->GetProof() : std::nullopt;
  if (!proof) return;
  findings.sturmCount = proof->nBelow;
  findings.dCountedBelow = std::sqrt(proof->dShift);
}

void CModalSolution::DescribeModes(const CMatrix& Phi, ModalFindings& findings) const {
  const CTranslationMasses masses(m_model, m_M);
  findings.totalMass = masses.GetTotal();
  findings.omega = GetFrequencies();
  for (int i = 0; i < m_nModes; ++i) {
    const std::vector<double> phi = GetColumn(Phi, i);
    findings.residuals.push_back(FormResidual(phi, GetWanted()[static_cast<std::size_t>(i)]));
    findings.effectiveMasses.push_back(masses.FormEffective(phi));
  }
}

void CAnalysisModel::SolveModes(const std::string& strJobPath, int nAnalysisType, bool bUseLoadMass) {
  m_modalFindings = FormInitialFindings(*this, bUseLoadMass);
  if (!m_bValid) return;
  if (const auto strError = FindParameterError(*this)) return GetPlatform().ShowMessage(*strError);
  const CWaitCursorScope waitCursor;
  m_modalFindings.status = RunStatus::Failed;
  CModalSolution solution(*this);
  const bool bSolved = solution.Solve(nAnalysisType != 0, bUseLoadMass);
  solution.DescribeRun(m_modalFindings);
  if (!bSolved) return;
  Omega = solution.GetFrequencies();
  ModeShapes = solution.FormModeShapes();
  ModesSolved = 1;
  solution.DescribeModes(ModeShapes, m_modalFindings);
  if (!WriteModeFile(*this, strJobPath, m_modalFindings)) return GetPlatform().ShowMessage(texts::c_strModeFileAccess);
  m_modalFindings.status = RunStatus::Done;
}

}  // namespace skyframe
