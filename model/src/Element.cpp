#include "skyframe/model/Element.h"

#include <algorithm>

#include "ElementWork.h"
#include "skyframe/platform/Platform.h"
#include "texts.h"

namespace skyframe {

namespace {

const texts::ElementTexts& GetTexts(int nTypeCode) {
  switch (nTypeCode) {
    case 0:
      return texts::c_trussTexts;
    case 2:
      return texts::c_hingeLeftTexts;
    case 3:
      return texts::c_hingeRightTexts;
    case 6:
      return texts::c_hingeBothTexts;
    default:
      return texts::c_beamTexts;
  }
}

}  // namespace

void CElement::AssembleMass(SparseMatrix& M, bool bShear) const {
  std::array<int, c_nMemberDofs> numbers;
  const std::span<const int> dofs = GetDofs(numbers);
  M.PrefetchElement(dofs);
  ScatterMatrix(FormMassMatrix(true, bShear), dofs, M);
}

void CElement::AssembleStiffness(SparseMatrix& K, bool bGeometric, bool bShear) const {
  std::array<int, c_nMemberDofs> numbers;
  const std::span<const int> dofs = GetDofs(numbers);
  K.PrefetchElement(dofs);
  ScatterMatrix(FormElementStiffness(bGeometric, bShear), dofs, K);
}

void CElement::ReadNodes(int nNodeI, int nNodeJ) {
  GetPlatform().GetConsole() << GetProgressText(*this, ElementStep::ReadNodes) << '\n';
  m_nNodeI = nNodeI;
  m_nNodeJ = nNodeJ;
}

void CElement::AddToBandwidth(std::span<int> heights) const {
  std::array<int, c_nMemberDofs> numbers;
  RaiseHeights(GetDofs(numbers), heights);
}

void CElement::AssembleEquilibrium(SparseMatrix& /*equilibrium*/) const {
  GetPlatform().GetConsole() << GetProgressText(*this, ElementStep::AssembleEquilibrium) << '\n';
}

void CElement::ComputeLength() {
  m_frame.SetEnds(g_pNodeTable->GetPosition(m_nNodeI), g_pNodeTable->GetPosition(m_nNodeJ));
}

void CElement::ComputeLocalAxes() {
  ComputeLength();
  m_frame.TurnAxes(m_dAngleCos, m_dAngleSin);
}

const CMatrix& CElement::FormTransformation() const { return FormTransformationOf(m_frame.GetAxes()); }

const CMatrix& CElement::FormTransformationOf(const LocalAxes& R) const {
  CMatrix& T = GetElementWork(GetDofCount()).transformation;
  T.Fill(0.0);
  for (int n = 0; n < GetDofCount(); n += 3) {
    for (int i = 0; i < 3; ++i) {
      for (int j = 0; j < 3; ++j) T[n + i][n + j] = R[i][j];
    }
  }
  return T;
}

void CElement::ResetWorkMatrices() const { GetElementWork(GetDofCount()).Reset(); }

int CElement::GetNodes(int& nNodeI, int& nNodeJ) const {
  nNodeI = m_nNodeI;
  nNodeJ = m_nNodeJ;
  return 2;
}

void CElement::StoreCommonData(const ElementData& data) {
  m_dArea = m_dSectionArea = data.dArea;
  m_dAngleCos = data.dAngleCos;
  m_dAngleSin = data.dAngleSin;
  m_dMassDensity = data.dMass / data.dArea;
  m_nMaterialNo = data.nMaterialNo;
  m_nElemNo = data.nElemNo;
}

std::span<const int> CElement::GetDofs(std::array<int, c_nMemberDofs>& numbers) const {
  for (int k = 0; k < GetDofCount(); ++k) {
    const int nPlace = m_dofPlaces[k];
    const int nNode = nPlace < c_nDofsPerNode ? m_nNodeI : m_nNodeJ;
    numbers[k] = g_pNodeTable->GetDof(nNode, nPlace % c_nDofsPerNode);
  }
  return std::span<const int>(numbers).first(m_dofPlaces.size());
}

MemberVector CElement::GatherLocal(const LocalAxes& R, std::span<const double> u) const {
  std::array<int, c_nMemberDofs> numbers;
  MemberVector values = {};
  int k = 0;
  for (const int nDof : GetDofs(numbers)) values[k++] = static_cast<std::size_t>(nDof) < u.size() ? u[nDof] : 0.0;
  return Rotate(R, values, GetDofCount());
}

double AxialRow::Compute(std::span<const double> u) const {
  double N = 0.0;
  for (std::size_t k = 0; k < factors.size(); ++k) {
    const auto e = static_cast<std::size_t>(equations[k]);
    if (e < u.size()) N += factors[k] * u[e];
  }
  return N;
}

AxialRow CElement::FormAxialRow() const {
  const double dStiffness = GetMaterial().GetElasticModulus() * m_dArea / m_frame.GetLength();
  AxialRow row;
  for (int nDirection = 0; nDirection < 3; ++nDirection) {
    const auto i = static_cast<std::size_t>(nDirection), j = i + 3;
    row.equations[i] = g_pNodeTable->GetDof(m_nNodeI, nDirection);
    row.equations[j] = g_pNodeTable->GetDof(m_nNodeJ, nDirection);
    row.factors[j] = dStiffness * m_frame.GetAxes()[0][i];
    row.factors[i] = -row.factors[j];
  }
  return row;
}

MemberVector CElement::ToGlobal(const MemberVector& local) const {
  return RotateBack(m_frame.GetAxes(), local, GetDofCount());
}

void CElement::ScatterVector(const MemberVector& values, std::span<double> vector) const {
  std::array<int, c_nMemberDofs> numbers;
  int k = 0;
  for (const int nDof : GetDofs(numbers)) vector[nDof] += values[k++];
}

void ScatterMatrix(const CMatrix& element, std::span<const int> dofs, SparseMatrix& A) { A.AddElement(element, dofs); }

void RaiseHeights(std::span<const int> dofs, std::span<int> heights) {
  const int nSmallest = *std::min_element(dofs.begin(), dofs.end());
  for (const int nDof : dofs) heights[nDof] = std::max(heights[nDof], nDof - nSmallest + 1);
}

std::string GetProgressText(const CElement& element, ElementStep step) {
  std::string strText(GetTexts(element.GetTypeCode())[static_cast<std::size_t>(step)]);
  const std::size_t nPlace = strText.find(texts::c_strNumberPlace);
  if (nPlace != std::string::npos) {
    strText.replace(nPlace, texts::c_strNumberPlace.size(), std::to_string(element.GetElemNo() + 1));
  }
  return strText;
}

}  // namespace skyframe
