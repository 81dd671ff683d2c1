#include "skyframe/model/Element.h"

#include <algorithm>
#include <cmath>

#include "ElementWork.h"
#include "skyframe/platform/Platform.h"
#include "texts.h"

namespace skyframe {

namespace {

/// A member whose plan projection has no more than this along Y takes global Y as its auxiliary vector.
constexpr double c_dNoYComponent = 1.0e-15;

double Dot(const Vector3& a, const Vector3& b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }

double Norm(const Vector3& a) { return std::sqrt(Dot(a, a)); }

Vector3 Scale(const Vector3& a, double f) { return {a[0] * f, a[1] * f, a[2] * f}; }

Vector3 Cross(const Vector3& a, const Vector3& b) {
  return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

/// Horizontal unit vector, perpendicular to the plan projection of d or global Y.
Vector3 FormAuxiliary(const Vector3& d, double L) {
  if (std::abs(d[1]) <= c_dNoYComponent) return {0.0, 1.0, 0.0};
  const Vector3 h = {L, -L * d[0] / d[1], 0.0};
  return Scale(h, 1.0 / Norm(h));
}

/// d = x_j - x_i.
Vector3 FormChord(int nNodeI, int nNodeJ) {
  const Vector3& xi = g_pNodeTable->GetPosition(nNodeI);
  const Vector3& xj = g_pNodeTable->GetPosition(nNodeJ);
  return {xj[0] - xi[0], xj[1] - xi[1], xj[2] - xi[2]};
}

const ElementTexts& GetTexts(int nTypeCode) {
  switch (nTypeCode) {
    case 0:
      return c_trussTexts;
    case 2:
      return c_hingeLeftTexts;
    case 3:
      return c_hingeRightTexts;
    case 6:
      return c_hingeBothTexts;
    default:
      return c_beamTexts;
  }
}

}  // namespace

LocalAxes FormLocalAxes(const Vector3& d, double c, double s) {
  const double L = Norm(d);
  const Vector3 x = Scale(d, 1.0 / L);
  const Vector3 h = FormAuxiliary(d, L);
  const Vector3 xh = Cross(x, h);
  const double dNorm = Norm(xh);
  const double dProjection = Dot(x, h);
  const Vector3 w = Scale(xh, 1.0 / dNorm);
  Vector3 y, z;
  for (int i = 0; i < 3; ++i) {
    const double hPerp = (h[i] - dProjection * x[i]) / dNorm;
    y[i] = c * hPerp - s * w[i];
    z[i] = s * y[i] + c * w[i];
  }
  // Deliberate: (s + c) w_Z, not from y_Z; the same when the angle is zero.
  z[2] = (s + c) * w[2];
  return {x, y, z};
}

LocalAxes CarryLocalAxes(const LocalAxes& axes, const Vector3& d) {
  const Vector3& x = axes[0];
  const Vector3 xNew = Scale(d, 1.0 / Norm(d));
  const Vector3 v = Cross(x, xNew);
  const double c = Dot(x, xNew);
  // a' = c a + v x a + v (v . a)/(1 + c)
  const auto rotate = [&](const Vector3& a) {
    const Vector3 va = Cross(v, a);
    const double f = Dot(v, a) / (1.0 + c);
    return Vector3{c * a[0] + va[0] + f * v[0], c * a[1] + va[1] + f * v[1], c * a[2] + va[2] + f * v[2]};
  };
  return {xNew, rotate(axes[1]), rotate(axes[2])};
}

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

void CElement::AddToBandwidth(std::span<int> heights) const {
  std::array<int, c_nMemberDofs> numbers;
  RaiseHeights(GetDofs(numbers), heights);
}

void CElement::AssembleEquilibrium(SparseMatrix& /*equilibrium*/) const {
  GetPlatform().GetConsole() << GetProgressText(*this, ElementStep::AssembleEquilibrium) << '\n';
}

void CElement::ComputeLength() {
  m_dLength = Norm(FormChord(m_nNodeI, m_nNodeJ));
  if (m_dInitialLength == 0.0) m_dInitialLength = m_dLength;
}

void CElement::ComputeLocalAxes() {
  ComputeLength();
  const Vector3 d = FormChord(m_nNodeI, m_nNodeJ);
  if (m_bAxesKnown) {
    m_axes = CarryLocalAxes(m_initialAxes, d);
  } else {
    m_axes = m_initialAxes = FormLocalAxes(d, m_dAngleCos, m_dAngleSin);
    m_bAxesKnown = true;
  }
}

const CMatrix& CElement::FormTransformation() const { return FormTransformationOf(m_axes); }

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

MemberVector CElement::ToGlobal(const MemberVector& local) const { return RotateBack(m_axes, local, GetDofCount()); }

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
  const std::size_t nPlace = strText.find(c_strNumberPlace);
  if (nPlace != std::string::npos) {
    strText.replace(nPlace, c_strNumberPlace.size(), std::to_string(element.GetElemNo() + 1));
  }
  return strText;
}

}  // namespace skyframe
