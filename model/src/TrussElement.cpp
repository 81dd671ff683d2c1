#include "skyframe/model/TrussElement.h"

#include "ElementWork.h"
#include "skyframe/platform/Platform.h"
#include "texts.h"

namespace skyframe {

namespace {

constexpr int c_nBarDofs = 6;
constexpr int c_barPlaces[] = {0, 1, 2, 6, 7, 8};
using BarRow = std::array<double, c_nBarDofs>;

constexpr int c_nValueWidth = 15;
constexpr int c_nDecimals = 3;

/// G, 3 x 6: displacement differences over the length.
void FormStrainGradient(double L, CMatrix& G) {
  G.Fill(0.0);
  for (int r = 0; r < 3; ++r) {
    G[r][r] = -1.0 / L;
    G[r][r + 3] = 1.0 / L;
  }
}

/// out = V (E B^t B + sigma G^t G)
void FormBarStiffness(double V, double E, const BarRow& B, double sigma, const CMatrix& G, CMatrix& out) {
  for (int i = 0; i < c_nBarDofs; ++i) {
    for (int j = 0; j < c_nBarDofs; ++j) {
      const double GtG = G[0][i] * G[0][j] + G[1][i] * G[1][j] + G[2][i] * G[2][j];
      out[i][j] = V * (E * B[i] * B[j] + sigma * GtG);
    }
  }
}

/// Trace values: one a line.
class CTrace {
 public:
  CTrace() : m_out(GetPlatform().GetConsole()) {}

  void Line(std::string_view strText) { m_out.Text(strText).EndLine(); }

  void Value(double dValue) { m_out.GeneralPoint(dValue, c_nValueWidth).EndLine(); }

  void Entry(std::string_view strName, int i, int j, double dValue) {
    m_out.Text(strName).Text("(").Integer(i).Text(",").Integer(j).Text(")=");
    Value(dValue);
  }

 private:
  CTextWriter m_out;
};

void TraceMatrix(CTrace& trace, std::string_view strHeading, std::string_view strName, const CMatrix& A) {
  trace.Line(strHeading);
  for (int i = 0; i < A.GetRows(); ++i) {
    for (int j = 0; j < A.GetCols(); ++j) trace.Entry(strName, i, j, A[i][j]);
  }
  trace.Line(texts::c_strTraceEnd);
}

void TraceRow(CTrace& trace, std::string_view strHeading, std::string_view strName, std::span<const double> row) {
  trace.Line(strHeading);
  for (std::size_t j = 0; j < row.size(); ++j) trace.Entry(strName, 0, static_cast<int>(j), row[j]);
  trace.Line(texts::c_strTraceEnd);
}

}  // namespace

CTrussElem::CTrussElem() : CElement(c_barPlaces), m_stress(1, 1, 0.0), m_strainGradient(3, c_nBarDofs, 0.0) {}

const CMatrix& CTrussElem::FormMassMatrix(bool bConsistent, bool /*bShear*/) const {
  CMatrix& mass = GetElementWork(c_nBarDofs).mass;
  FormBarMass(GetMaterial().GetUnitWeight() * m_dArea * m_frame.GetLength(), bConsistent, mass);
  return mass;
}

void CTrussElem::OutputMaterial(CTextWriter& out) const {
  out.Text(texts::c_strTrussArea).General(m_dArea);
  out.Text(texts::c_strMaterialNumber).Integer(m_nMaterialNo);
  out.Text(texts::c_strNodeNumbers).Integer(m_nNodeI + 1).Text(texts::c_strNodeGap).Integer(m_nNodeJ + 1).EndLine();
}

void CTrussElem::OutputInternalForce(CTextWriter& out) const {
  out.Text(GetProgressText(*this, ElementStep::OutputInternalForce)).EndLine();
  out.Text(texts::c_strTrussAxialForce).Fixed(m_dAxialForce, c_nDecimals, c_nValueWidth).EndLine();
}

double CTrussElem::GetForceDiagram(Diagram& myz, Diagram& mzx, Diagram& mxy, Diagram& qy, Diagram& qz) const {
  for (Diagram* pDiagram : {&myz, &mzx, &mxy, &qy, &qz}) pDiagram->fill(0.0);
  return m_dAxialForce;
}

std::array<double, 2> CTrussElem::GetDeflectionDiagram(Diagram& fy, Diagram& fz) const {
  const MemberVector& u = m_displacement;
  fy = FormLinearDiagram(u[1], u[4]);
  fz = FormLinearDiagram(u[2], u[5]);
  return {u[0], u[3]};
}

void CTrussElem::ComputeLength() {
  CElement::ComputeLength();
  FormStrainGradient(m_frame.GetLength(), m_strainGradient);
}

void CTrussElem::SetData(const ElementData& data) {
  StoreCommonData(data);
  ResetWorkMatrices();
  ResetDiagrams();
}

void CTrussElem::ResetDiagrams() {
  m_dAxialForce = 0.0;
  m_stress.Fill(0.0);
  m_displacement.fill(0.0);
}

void CTrussElem::ComputeInternalForce(std::span<const double> u, bool bIncremental, bool /*bShear*/,
                                      bool /*bFillDiagrams*/) {
  const double E = GetMaterial().GetElasticModulus(), A = m_dArea, L = m_frame.GetLength(),
               L0 = m_frame.GetInitialLength();
  if (!bIncremental) m_displacement.fill(0.0);
  const MemberVector du = GatherLocal(m_frame.GetAxes(), u);
  for (int i = 0; i < c_nBarDofs; ++i) m_displacement[i] += du[i];
  if (bIncremental) {
    m_stress[0][0] = E * (L * L - L0 * L0) / (2.0 * L0 * L0);
    m_dAxialForce = A * m_stress[0][0] * L / L0;
  } else {
    m_dAxialForce = E * A / L * (du[3] - du[0]);
    m_stress[0][0] = A == 0.0 ? 0.0 : m_dAxialForce / A;
  }
}

const CMatrix& CTrussElem::FormElementStiffness(bool bGeometric, bool /*bShear*/) const {
  const double A = m_dArea, L = m_frame.GetLength(), L0 = m_frame.GetInitialLength();
  const double b = bGeometric ? L / (L0 * L0) : 1.0 / L;
  const double sigma = bGeometric ? m_stress[0][0] : 0.0;
  ElementWork& work = GetElementWork(c_nBarDofs);
  FormBarStiffness(A * L, GetMaterial().GetElasticModulus(), {-b, 0, 0, b, 0, 0}, sigma, m_strainGradient, work.local);
  RotateToGlobal(work.local, m_frame.GetAxes(), work.stiffness);
  return work.stiffness;
}

void CTrussElem::AssembleEndForces(std::span<double> vector) const {
  ScatterVector(ToGlobal({-m_dAxialForce, 0.0, 0.0, m_dAxialForce}), vector);
}

void CTrussElem::FormTangentStiffness(CMatrix& out, std::span<const double> u) const {
  const double A = m_dArea, L0 = m_frame.GetInitialLength();
  const MemberVector d = GatherLocal(m_frame.GetInitialAxes(), u);
  const Vector3 a = {(d[3] - d[0]) / L0, (d[4] - d[1]) / L0, (d[5] - d[2]) / L0};
  CMatrix G(3, c_nBarDofs);
  FormStrainGradient(L0, G);
  BarRow Bnl, B;
  for (int j = 0; j < c_nBarDofs; ++j) {
    Bnl[j] = a[0] * G[0][j] + a[1] * G[1][j] + a[2] * G[2][j];
    B[j] = G[0][j] + Bnl[j];  // the linear row is the first row of G
  }
  ElementWork& work = GetElementWork(c_nBarDofs);
  FormBarStiffness(A * L0, GetMaterial().GetElasticModulus(), B, m_stress[0][0], G, work.local);
  out.Resize(c_nBarDofs, c_nBarDofs);
  RotateToGlobal(work.local, m_frame.GetInitialAxes(), out);
  TraceTangent(u, a, G, Bnl);
}

void CTrussElem::FormConstitutive(CMatrix& out) const {
  out.Resize(1, 1);
  out[0][0] = GetMaterial().GetElasticModulus();
}

void CTrussElem::TraceTangent(std::span<const double> u, const Vector3& a, const CMatrix& G,
                              std::span<const double> Bnl) const {
  constexpr LocalAxes identity = {{{1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}}};
  const MemberVector nodal = GatherLocal(identity, u);
  CTrace trace;
  trace.Line(texts::c_strTraceDisplacement);
  for (int i = 0; i < c_nBarDofs; ++i) trace.Value(nodal[i]);
  trace.Line(texts::c_strTraceDisplacementEnd);
  TraceMatrix(trace, texts::c_strTraceTransformation, "matT", FormTransformationOf(m_frame.GetInitialAxes()));
  TraceRow(trace, texts::c_strTraceA, "matA", a);
  TraceMatrix(trace, texts::c_strTraceG, "matG", G);
  TraceRow(trace, texts::c_strTraceBnl, "matBnl", Bnl);
}

}  // namespace skyframe
