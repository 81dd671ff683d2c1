#include "skyframe/model/AnalysisModel.h"

#include <algorithm>

#include "skyframe/hostdata/HostData.h"
#include "skyframe/platform/Platform.h"
#include "skyframe/platform/Progress.h"
#include "skyframe/values/ResultFiles.h"
#include "texts.h"

namespace skyframe {
namespace {

// Field of a reaction in the result files: fixed notation, left-justified.
constexpr int c_nReactionDecimals = 3;
constexpr int c_nReactionWidth = 15;

constexpr double c_dDisplacementLimit = 1.0e10;  // m, rad

/// The host's own number, 1-based, of a node index.
int GetHostNumber(int nNode) { return COMDAT.m_pFirstOrder == nullptr ? nNode + 1 : COMDAT.m_pFirstOrder[nNode + 1]; }

}  // namespace

CAnalysisModel::CAnalysisModel() { m_dLoadFactor.fill(1.0); }

CAnalysisModel::~CAnalysisModel() {
  if (g_pNodeTable == &m_nodes) g_pNodeTable = nullptr;
  if (g_pMaterials == &m_materials) g_pMaterials = nullptr;
}

void CAnalysisModel::ClearDisplacements() { std::ranges::fill(m_displacement, 0.0); }

void CAnalysisModel::ClearLoads() {
  std::ranges::fill(m_load, 0.0);
  std::ranges::fill(m_secondLoad, 0.0);
}

void CAnalysisModel::BuildLoadVector(const CLoadCase& loadCase) {
  GetPlatform().GetConsole() << texts::c_strGetLoadVector << '\n';
  ClearLoads();
  for (const CNodalLoad& load : loadCase.m_records) load.AddToVector(m_load, m_secondLoad);
}

void CAnalysisModel::AssembleCombinedLoad() {
  ClearLoads();
  const int nGroups = std::min(static_cast<int>(m_loadCases.size()), c_nLoadTypes);
  for (int g = 0; g < nGroups; ++g) {
    if (m_nLoadCaseFlag[g] == 0) continue;
    const double dFactor = m_dLoadFactor[g] * c_dNewtonPerKilonewton;
    for (const CNodalLoad& load : m_loadCases[g].m_records) load.AddToVector(m_load, m_secondLoad, dFactor);
  }
}

bool CAnalysisModel::ClearMatrix(SparseMatrix& A) const {
  if (A.IsAllocated() && std::ranges::equal(A.GetDiagonal(), m_diagonal)) {
    A.RestoreHeights();
  } else {
    A.SetProfile(GetTotalDofs(), m_diagonal, GetFreeDofs());
  }
  A.Fill(0.0);
  return A.IsAllocated();
}

bool CAnalysisModel::AssembleStiffness(SparseMatrix& K, bool bGeometric, bool bShear) const {
  if (!ClearMatrix(K)) return false;
  CProgress progress(texts::c_strStiffness, static_cast<double>(m_elements.size()));
  for (const auto& pElement : m_elements) {
    if (pElement) pElement->AssembleStiffness(K, bGeometric, bShear);
    progress.Advance();
  }
  ApplyConstraints(K);
  return true;
}

void CAnalysisModel::ApplyConstraints(SparseMatrix& K) const {
  // Deliberate: the spring equations stay restrained, so spring supports act as rigid ones.
  for (const CNodeTable::Spring& spring : m_nodes.GetSprings()) {
    for (int nDirection = 0; nDirection < 3; ++nDirection) {
      const double dStiffness = spring.stiffness[nDirection];
      const int nDof = m_nodes.GetDof(spring.nNode, nDirection);
      if (dStiffness > 0.0) K(nDof, nDof) += dStiffness;
    }
  }
}

bool CAnalysisModel::AssembleMass(SparseMatrix& M, bool bShear) const {
  if (!ClearMatrix(M)) return false;
  CProgress progress(texts::c_strMass, static_cast<double>(m_elements.size()));
  for (const auto& pElement : m_elements) {
    if (pElement) pElement->AssembleMass(M, bShear);
    progress.Advance();
  }
  return true;
}

void CAnalysisModel::AssembleInternalForce() {
  std::fill(m_internalForce.begin(), m_internalForce.end(), 0.0);
  for (const auto& pElement : m_elements) {
    if (pElement) pElement->AssembleEndForces(m_internalForce);
  }
  const int F = GetFreeDofs();
  for (std::size_t k = 0; k < m_reaction.size(); ++k) m_reaction[k] = 0.0 - m_internalForce[F + k];  // no -0
}

void CAnalysisModel::ApplyIncrement(std::span<const double> increment, bool bShear, bool bFillDiagrams) {
  for (std::size_t i = 0; i < increment.size(); ++i) m_displacement[i] += increment[i];
  m_nodes.MoveNodes(increment);
  for (const auto& pElement : m_elements) {
    if (!pElement) continue;
    pElement->ComputeLocalAxes();
    pElement->ComputeInternalForce(increment, true, bShear, bFillDiagrams);
  }
  AssembleInternalForce();
}

bool CAnalysisModel::IsWithinLimit(std::span<const double> v) const {
  const auto it = std::find_if(v.begin(), v.end(), [](double d) { return d > c_dDisplacementLimit; });
  if (it == v.end()) return true;
  std::string_view strDof;
  const int nNode = m_nodes.FindNodeOfDof(static_cast<int>(it - v.begin()), strDof);
  std::string strMessage(texts::c_strRunawayParts[0]);
  strMessage.append(std::to_string(nNode + 1)).append(texts::c_strRunawayParts[1]);
  GetPlatform().ShowMessage(strMessage.append(strDof).append(texts::c_strRunawayParts[2]));
  return false;
}

DofPlace CAnalysisModel::FindDofPlace(int nEquation) const {
  for (const int nNode : m_nodes.GetListedNodes()) {
    for (int nDirection = 0; nDirection < c_nDofsPerNode; ++nDirection) {
      if (m_nodes.FindDof(nNode, nDirection) == nEquation) return {GetHostNumber(nNode), nDirection};
    }
  }
  return {};
}

Conditioning CAnalysisModel::DescribeConditioning(const SparseMatrix& A) const {
  const LostDigits lost = A.GetLostDigits();
  if (lost.nEquation < 0) return {};
  return {lost.dDigits, FindDofPlace(lost.nEquation)};
}

std::vector<NodeValues> CAnalysisModel::GatherNodeValues(std::span<const double> u) const {
  std::vector<NodeValues> values(static_cast<std::size_t>(m_nodes.GetNodeCount()));
  for (const int nNode : m_nodes.GetListedNodes()) {
    NodeValues& value = values[static_cast<std::size_t>(GetHostNumber(nNode) - 1)];
    for (int nDirection = 0; nDirection < c_nDofsPerNode; ++nDirection) {
      value[static_cast<std::size_t>(nDirection)] = m_nodes.GetValue(u, nNode, nDirection);
    }
  }
  return values;
}

std::vector<double> CAnalysisModel::ScatterFreeValues(std::span<const NodeValues> values) const {
  std::vector<double> u(static_cast<std::size_t>(GetFreeDofs()), 0.0);
  for (const int nNode : m_nodes.GetListedNodes()) {
    const NodeValues& value = values[static_cast<std::size_t>(GetHostNumber(nNode) - 1)];
    for (int nDirection = 0; nDirection < m_nodes.GetDofCount(nNode); ++nDirection) {
      const int e = m_nodes.GetDof(nNode, nDirection);
      if (e < GetFreeDofs()) u[static_cast<std::size_t>(e)] = value[static_cast<std::size_t>(nDirection)];
    }
  }
  return u;
}

void CAnalysisModel::WriteReactions(CTextWriter& out) const {
  const std::span<const int> listed = m_nodes.GetListedNodes();
  for (int k = 0; k < static_cast<int>(listed.size()); ++k) {
    bool bSupported = false;
    for (int nDirection = 0; nDirection < c_nDofsPerNode; ++nDirection) {
      if (!m_nodes.HasDof(listed[k], nDirection) || !m_nodes.IsRestrained(k, nDirection)) continue;
      if (!bSupported) out.Text(label::c_strNode).Integer(listed[k] + 1);
      bSupported = true;
      const double dReaction = m_reaction[m_nodes.GetDof(listed[k], nDirection) - GetFreeDofs()];
      out.Text("  ").Text(label::c_strReactions[nDirection]).Text(nDirection < 3 ? "  " : " ");
      out.Fixed(dReaction, c_nReactionDecimals, c_nReactionWidth);
    }
    if (bSupported) out.EndLine();
  }
}

}  // namespace skyframe
