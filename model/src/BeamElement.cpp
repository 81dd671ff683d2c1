#include "skyframe/model/BeamElement.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "BeamMatrices.h"
#include "ElementWork.h"
#include "texts.h"

namespace skyframe {

namespace {

constexpr int c_beamPlaces[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11};

/// A torsion constant of no more than this counts as not given.
constexpr double c_dNoTorsion = 1.0e-15;

/// Components of the end forces at an end.
enum ForceComponent : int { c_nQy = 1, c_nQz, c_nMyz, c_nMzx, c_nMxy };

constexpr int c_nValueWidth = 15;
constexpr int c_nDecimals = 3;

/// Value at station p of nStations, linear between those of the diagram.
double Sample(const Diagram& diagram, int p, int nStations) {
  const double x = nStations > 1 ? static_cast<double>(p * (c_nStations - 1)) / (nStations - 1) : 0.0;
  const int k = std::min(static_cast<int>(x), c_nStations - 2);
  return diagram[k] + (x - k) * (diagram[k + 1] - diagram[k]);
}

void WriteDiagram(CTextWriter& out, std::string_view strLabel, const Diagram& values) {
  out.Text(strLabel).FixedRow(values, c_nDecimals, c_nValueWidth).EndLine();
}

}  // namespace

CBeamElem::CBeamElem() : CBeamElem(c_beamPlaces) {}

CBeamElem::CBeamElem(std::span<const int> dofPlaces) : CElement(dofPlaces) {}

const CMatrix& CBeamElem::FormMassMatrix(bool bConsistent, bool bShear) const {
  ElementWork& work = GetElementWork(GetDofCount());
  const BeamProperties p = GetProperties(bShear);
  if (bConsistent) {
    CMatrix& full = GetElementWork(c_nMemberDofs).mass;
    FormConsistentMass(p, full);
    Condense(full, bShear, work.local);
    RotateToGlobal(work.local, m_frame.GetAxes(), work.mass);
    return work.mass;
  }
  work.mass.Fill(0.0);
  for (int k = 0; k < GetDofCount(); ++k) {
    const bool bTranslation = m_dofPlaces[k] % c_nDofsPerNode < 3;
    if (bTranslation) work.mass[k][k] = 0.5 * p.rho * p.A * p.L;
  }
  return work.mass;
}

void CBeamElem::OutputMaterial(CTextWriter& out) const {
  out.Text(texts::c_strBeamArea).General(m_dArea);
  out.Text(texts::c_strInertiaX).General(m_dIx);
  out.Text(texts::c_strInertiaY).General(m_dIy);
  out.Text(texts::c_strInertiaZ).General(m_dIz);
  out.Text(texts::c_strShearCoefficient).General(m_dShearCoefficient);
  out.Text(texts::c_strMaterialNumber).Integer(m_nMaterialNo, c_nValueWidth);
  out.Text(texts::c_strNodeNumbers).Integer(m_nNodeI + 1).Text(texts::c_strNodeGap).Integer(m_nNodeJ + 1).EndLine();
}

void CBeamElem::OutputInternalForce(CTextWriter& out) const {
  out.Text(texts::c_strBeamAxialForce).Fixed(m_dAxialForce, c_nDecimals, c_nValueWidth).EndLine();
  WriteDiagram(out, "MYZ:  ", FormForceDiagram(c_nMyz));
  WriteDiagram(out, "MZX:  ", FormForceDiagram(c_nMzx));
  WriteDiagram(out, "MXY:  ", FormForceDiagram(c_nMxy));
  WriteDiagram(out, "Qy:   ", FormForceDiagram(c_nQy));
  WriteDiagram(out, "Qz:   ", FormForceDiagram(c_nQz));
  Diagram fy, fz;
  GetDeflectionDiagram(fy, fz);
  WriteDiagram(out, "Fy:   ", fy);
  WriteDiagram(out, "Fz:   ", fz);
}

double CBeamElem::GetForceDiagram(Diagram& myz, Diagram& mzx, Diagram& mxy, Diagram& qy, Diagram& qz) const {
  myz = FormForceDiagram(c_nMyz);
  mzx = FormForceDiagram(c_nMzx);
  mxy = FormForceDiagram(c_nMxy);
  qy = FormForceDiagram(c_nQy);
  qz = FormForceDiagram(c_nQz);
  return m_dAxialForce;
}

std::array<double, 2> CBeamElem::GetDeflectionDiagram(Diagram& fy, Diagram& fz) const {
  const MemberVector& u = m_shown.displacement;
  fy = FormDeflectionDiagram(c_planeZ, m_shown.dPhiZ, m_shown.dLength, u);
  fz = FormDeflectionDiagram(c_planeY, m_shown.dPhiY, m_shown.dLength, u);
  return {u[0], u[6]};
}

void CBeamElem::SetData(const ElementData& data) {
  StoreCommonData(data);
  m_dIx = data.dIx;
  m_dIy = data.dIy;
  m_dIz = data.dIz;
  m_dTorsionAlt = data.dTorsionAlt;
  m_dShearCoefficient = data.dShearCoefficient;
  ResetWorkMatrices();
  ResetDiagrams();
}

void CBeamElem::ResetDiagrams() {
  m_shown = {};
  m_endForce.fill(0.0);
  m_displacement.fill(0.0);
  m_dAxialForce = 0.0;
  m_dForceLength = 0.0;
}

void CBeamElem::ComputeInternalForce(std::span<const double> u, bool bIncremental, bool bShear, bool bFillDiagrams) {
  if (!bIncremental) {
    m_endForce.fill(0.0);
    m_displacement.fill(0.0);
  }
  const double dPrevious = m_endForce[6];
  AddIncrement(GatherLocal(m_frame.GetAxes(), u), bShear);
  if (bIncremental) {
    // dN = E A (L - L_prev)/L0
    const double L = m_frame.GetLength(), L0 = m_frame.GetInitialLength();
    const double dPreviousLength = m_dForceLength == 0.0 ? L0 : m_dForceLength;
    const double EA = GetMaterial().GetElasticModulus() * GetArea();
    SetAxialForce(dPrevious + EA * (L - dPreviousLength) / L0);
  }
  m_dForceLength = m_frame.GetLength();
  m_dAxialForce = m_endForce[6];
  if (!bFillDiagrams) return;
  const BeamProperties p = GetProperties(bShear);
  m_shown = {m_endForce, m_displacement, p.L, p.phiY, p.phiZ};
}

const CMatrix& CBeamElem::FormElementStiffness(bool bGeometric, bool bShear) const {
  ElementWork& work = GetElementWork(GetDofCount());
  FormLocalStiffness(bShear);
  if (bGeometric) {
    Condense(FormGeometricStiffness(), bShear, work.stiffness);
    work.local += work.stiffness;
  }
  RotateToGlobal(work.local, m_frame.GetAxes(), work.stiffness);
  return work.stiffness;
}

void CBeamElem::AssembleEndForces(std::span<double> vector) const { ScatterVector(GetGlobalEndForces(), vector); }

const CMatrix& CBeamElem::FormLocalStiffness(bool bShear) const {
  CMatrix& full = GetElementWork(c_nMemberDofs).geometric;
  CMatrix& local = GetElementWork(GetDofCount()).local;
  FormElasticMatrix(GetProperties(bShear), full);
  Condense(full, bShear, local);
  return local;
}

const CMatrix& CBeamElem::FormGeometricStiffness() const {
  CMatrix& full = GetElementWork(c_nMemberDofs).geometric;
  const EndMoments moments = {m_endForce[4], -m_endForce[10], m_endForce[5], -m_endForce[11]};
  FormGeometricMatrix(GetProperties(false), m_dAxialForce, moments, full);
  return full;
}

MemberVector CBeamElem::GetGlobalEndForces() const {
  MemberVector own = {};
  for (int k = 0; k < GetDofCount(); ++k) own[k] = m_endForce[m_dofPlaces[k]];
  return ToGlobal(own);
}

std::vector<double> CBeamElem::SampleForces(int nStations) const {
  const std::array<Diagram, 5> diagrams = {FormForceDiagram(c_nQy), FormForceDiagram(c_nQz), FormForceDiagram(c_nMyz),
                                           FormForceDiagram(c_nMzx), FormForceDiagram(c_nMxy)};
  std::vector<double> forces;
  for (int p = 0; p < nStations; ++p) {
    forces.push_back(m_dAxialForce);
    for (const Diagram& diagram : diagrams) forces.push_back(Sample(diagram, p, nStations));
  }
  return forces;
}

double CBeamElem::GetEulerRatio() const {
  const double E = GetMaterial().GetElasticModulus(), I = std::min(m_dIy, m_dIz), L = m_frame.GetLength();
  if (I <= 0.0) return 0.0;
  return m_dAxialForce * L * L / (std::numbers::pi * std::numbers::pi * E * I);
}

void CBeamElem::Condense(const CMatrix& full, bool /*bShear*/, CMatrix& out) const { out = full; }

MemberVector CBeamElem::Expand(const MemberVector& own, bool /*bShear*/) const { return own; }

BeamProperties CBeamElem::GetProperties(bool bShear) const {
  const CMaterial& material = GetMaterial();
  const double E = material.GetElasticModulus(), nu = material.GetPoissonRatio();
  const double G = E / (nu + 1.0 + nu + 1.0);
  const double A = GetArea(), L = m_frame.GetLength(), kappa = m_dShearCoefficient;
  const double J = std::abs(m_dIx) <= c_dNoTorsion ? m_dTorsionAlt : m_dIx;
  const double phiY = bShear ? ComputeShearParameter(kappa, E, m_dIy, G, A, L) : 0.0;
  const double phiZ = bShear ? ComputeShearParameter(kappa, E, m_dIz, G, A, L) : 0.0;
  return {E, G, A, J, m_dIy, m_dIz, L, material.GetUnitWeight(), phiY, phiZ};
}

void CBeamElem::AddIncrement(const MemberVector& du, bool bShear) {
  const CMatrix& k = FormLocalStiffness(bShear);
  for (int i = 0; i < GetDofCount(); ++i) {
    for (int j = 0; j < GetDofCount(); ++j) m_endForce[m_dofPlaces[i]] += k[i][j] * du[j];
  }
  const MemberVector all = Expand(du, bShear);
  for (int i = 0; i < c_nMemberDofs; ++i) m_displacement[i] += all[i];
}

void CBeamElem::SetAxialForce(double N) {
  m_endForce[0] = -N;
  m_endForce[6] = N;
}

Diagram CBeamElem::FormForceDiagram(int nComponent) const {
  const MemberVector& f = m_shown.endForce;
  return FormLinearDiagram(f[nComponent], -f[nComponent + c_nDofsPerNode]);
}

}  // namespace skyframe
