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

constexpr int c_nValueWidth = 15;
constexpr int c_nDecimals = 3;

/// Value at station p of nStations, linear between those of the diagram.
double Sample(const Diagram& diagram, int p, int nStations) {
  const double x = nStations > 1 ? static_cast<double>(p * (c_nStations - 1)) / (nStations - 1) : 0.0;
  const int k = std::min(static_cast<int>(x), c_nStations - 2);
  return diagram[k] + (x - k) * (diagram[k + 1] - diagram[k]);
}

void WriteDiagram(CTextWriter& out, std::string_view strLabel, const Diagram& values) {
  out.Text(strLabel);
  for (const double dValue : values) out.Fixed(dValue, c_nDecimals, c_nValueWidth);
  out.EndLine();
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
  WriteDiagram(out, "MYZ:  ", m_myz);
  WriteDiagram(out, "MZX:  ", m_mzx);
  WriteDiagram(out, "MXY:  ", m_mxy);
  WriteDiagram(out, "Qy:   ", m_qy);
  WriteDiagram(out, "Qz:   ", m_qz);
  WriteDiagram(out, "Fy:   ", m_fy);
  WriteDiagram(out, "Fz:   ", m_fz);
}

double CBeamElem::GetForceDiagram(Diagram& myz, Diagram& mzx, Diagram& mxy, Diagram& qy, Diagram& qz) const {
  myz = m_myz;
  mzx = m_mzx;
  mxy = m_mxy;
  qy = m_qy;
  qz = m_qz;
  return m_dAxialForce;
}

std::array<double, 2> CBeamElem::GetDeflectionDiagram(Diagram& fy, Diagram& fz) const {
  fy = m_fy;
  fz = m_fz;
  return m_axialDisplacement;
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
  for (Diagram* pDiagram : {&m_myz, &m_mzx, &m_mxy, &m_qy, &m_qz, &m_fy, &m_fz}) pDiagram->fill(0.0);
  m_axialDisplacement.fill(0.0);
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
  FillForceDiagrams();
  FillDeflectionDiagrams(bShear);
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
  std::vector<double> forces;
  for (int p = 0; p < nStations; ++p) {
    forces.push_back(m_dAxialForce);
    for (const Diagram* const pDiagram : {&m_qy, &m_qz, &m_myz, &m_mzx, &m_mxy}) {
      forces.push_back(Sample(*pDiagram, p, nStations));
    }
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

void CBeamElem::FillForceDiagrams() {
  const MemberVector& f = m_endForce;
  m_qy = FormLinearDiagram(f[1], -f[7]);
  m_qz = FormLinearDiagram(f[2], -f[8]);
  m_myz = FormLinearDiagram(f[3], -f[9]);
  m_mzx = FormLinearDiagram(f[4], -f[10]);
  m_mxy = FormLinearDiagram(f[5], -f[11]);
}

void CBeamElem::FillDeflectionDiagrams(bool bShear) {
  const BeamProperties p = GetProperties(bShear);
  for (int n = 0; n < c_nStations; ++n) {
    const double xi = GetStation(n);
    m_fy[n] = InterpolateDeflection(c_planeZ, p.phiZ, p.L, m_displacement, xi);
    m_fz[n] = InterpolateDeflection(c_planeY, p.phiY, p.L, m_displacement, xi);
  }
  m_axialDisplacement = {m_displacement[0], m_displacement[6]};
}

}  // namespace skyframe
