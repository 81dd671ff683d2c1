#include "TestPlatform.h"
#include "skyframe/model/BeamElement.h"
#include "skyframe/model/HingedBeams.h"
#include "skyframe/model/TrussElement.h"
#include "skyframe/numeric/VectorAlgebra.h"

namespace skyframe::test {
namespace {

using Values = std::vector<double>;

constexpr double c_E = 2.06e11, c_nu = 0.3, c_G = c_E / 2.6, c_rho = 7900.0;
constexpr double c_A = 0.01, c_J = 3.0e-5, c_Iy = 2.0e-5, c_Iz = 1.2e-5, c_kappa = 1.2;

const std::vector<Vector3> c_directions = {{4, 0, 0},  {-4, 0, 0}, {0, 4, 0},    {0, -4, 0},   {0, 0, 4},
                                           {0, 0, -4}, {2, 2, 2},  {3, -2, 0.5}, {-1, -2, -3}, {2, 0, -3}};

/// DOF places of an element among those of two rigid nodes, by type code.
std::vector<int> GetPlaces(int nTypeCode) {
  if (nTypeCode == 1) return {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11};
  if (nTypeCode == 2) return {0, 1, 2, 6, 7, 8, 9, 10, 11};
  if (nTypeCode == 3) return {0, 1, 2, 3, 4, 5, 6, 7, 8};
  return {0, 1, 2, 6, 7, 8};
}

Values Select(const Values& all, int nTypeCode) {
  Values own;
  for (const int nPlace : GetPlaces(nTypeCode)) own.push_back(all[nPlace]);
  return own;
}

Values Multiply(const CMatrix& A, const Values& x) {
  Values y(x.size(), 0.0);
  for (std::size_t i = 0; i < x.size(); ++i) {
    for (std::size_t j = 0; j < x.size(); ++j) y[i] += A[static_cast<int>(i)][j] * x[j];
  }
  return y;
}

void ExpectNear(const CMatrix& A, const CMatrix& B, double dTolerance, const char* strWhat) {
  ASSERT_EQ(A.GetRows(), B.GetRows()) << strWhat;
  for (int i = 0; i < A.GetRows(); ++i) {
    for (int j = 0; j < A.GetCols(); ++j) EXPECT_NEAR(A[i][j], B[i][j], dTolerance) << strWhat << i << "," << j;
  }
}

/// Two rigid nodes, the first at the origin, no DOF restrained, and one steel.
class ElementTest : public testing::Test {
 protected:
  ElementTest() { SetMaterial(c_nu); }
  ~ElementTest() override {
    g_pNodeTable = nullptr;
    g_pMaterials = nullptr;
  }

  void SetMaterial(double dNu) {
    m_materials.clear();
    m_materials.push_back(std::make_unique<CSteel>());
    m_materials[0]->SetProperties(c_E, dNu, c_rho, 0, 0, 0);
    g_pMaterials = &m_materials;
  }

  void SetNodes(const Vector3& d) {
    m_nodes.Resize(2);
    m_nodes.SetNode(0, 1, 0, 0, 0);
    m_nodes.SetNode(1, 1, d[0], d[1], d[2]);
    for (const int nNode : {0, 1}) m_nodes.AddListedNode(nNode, {});
    m_nodes.NumberDofs();
    g_pNodeTable = &m_nodes;
  }

  static ElementData GetData() {
    ElementData data;
    data.dArea = c_A;
    data.dIx = c_J;
    data.dIy = c_Iy;
    data.dIz = c_Iz;
    data.dTorsionAlt = 5.0;
    data.dShearCoefficient = c_kappa;
    data.dMass = c_rho * c_A;
    data.nElemNo = 6;
    return data;
  }

  template <class T>
  static std::unique_ptr<T> Make(const ElementData& data = GetData()) {
    auto pElement = std::make_unique<T>();
    pElement->SetData(data);
    pElement->ReadNodes(0, 1);
    pElement->ComputeLocalAxes();
    return pElement;
  }

  static std::vector<std::unique_ptr<CElement>> MakeAll() {
    std::vector<std::unique_ptr<CElement>> all;
    all.push_back(Make<CTrussElem>());
    all.push_back(Make<CBeamElem>());
    all.push_back(Make<CBeamHingeLeft>());
    all.push_back(Make<CBeamHingeRight>());
    all.push_back(Make<CBeamHingeBoth>());
    return all;
  }

  CTestPlatform m_platform;
  CNodeTable m_nodes;
  MaterialList m_materials;
};

// ---- Independent truth: exact Timoshenko solution of one plane, energies by Gauss integration ----

/// w = c0 + c1 x + c2 x^2 + c3 x^3, psi = w' + (phi L^2/12) w'''.
struct PlaneSolution {
  Values c;
  double phi, L;
  double W(double x) const { return c[0] + x * (c[1] + x * (c[2] + x * c[3])); }
  double Slope(double x) const { return c[1] + x * (2 * c[2] + 3 * x * c[3]); }
  double Psi(double x) const { return Slope(x) + phi * L * L / 2 * c[3]; }
  double Curvature(double x) const { return 2 * c[2] + 6 * x * c[3]; }
};

/// End values w, psi by slope deflection; a hinge replaces its psi by zero curvature.
PlaneSolution SolvePlane(const Values& ends, double phi, double L, bool bHingeI, bool bHingeJ) {
  const double chord = (ends[2] - ends[0]) / L, dRatio = (2 - phi) / (4 + phi);
  double a = ends[1] - chord, b = ends[3] - chord;
  if (bHingeI) a = bHingeJ ? 0.0 : -dRatio * b;
  if (bHingeJ) b = -dRatio * a;
  const double c2 = -((4 + phi) * a + (2 - phi) * b) / (2 * L * (1 + phi)), c3 = (a + b) / (L * L * (1 + phi));
  return {{ends[0], chord - L * (c2 + L * c3), c2, c3}, phi, L};
}

double Integrate(double L, const std::function<double(double)>& f) {
  constexpr double x[] = {0.0, 0.5384693101056831, 0.9061798459386640};
  constexpr double w[] = {0.5688888888888889, 0.4786286704993665, 0.2369268850561891};
  double dSum = w[0] * f(L / 2);
  for (int k = 1; k < 3; ++k) dSum += w[k] * (f(L / 2 * (1 - x[k])) + f(L / 2 * (1 + x[k])));
  return dSum * L / 2;
}

struct Energies {
  double strain, kinetic, stress;
};

struct Moments {
  double my0, my1, mz0, mz1;
};

/// Twice the energies of the member at the twelve local displacements u, bent as v and w; N and the moments for the
/// last. A member with two hinges is a bar: no rotary inertia.
Energies ComputeEnergies(const Values& u, const PlaneSolution& v, const PlaneSolution& w, bool bShear, bool bHingeI,
                         bool bHingeJ, double N, const Moments& m) {
  const double L = v.L, section = bHingeI && bHingeJ ? 0.0 : 1.0;
  const double twistI = bHingeI ? u[9] : u[3];
  const double strain = (u[6] - u[0]) / L, twist = bHingeI || bHingeJ ? 0.0 : (u[9] - u[3]) / L;
  Energies e = {};
  e.strain = Integrate(L, [&](double x) {
    const double gv = v.Slope(x) - v.Psi(x), gw = w.Slope(x) - w.Psi(x);
    const double shear = bShear ? c_G * c_A / c_kappa * (gv * gv + gw * gw) : 0.0;
    return c_E * c_A * strain * strain + c_G * c_J * twist * twist + c_E * c_Iz * std::pow(v.Curvature(x), 2) +
           c_E * c_Iy * std::pow(w.Curvature(x), 2) + shear;
  });
  e.kinetic = c_rho * Integrate(L, [&](double x) {
                const double ux = u[0] + strain * x, t = twistI + twist * x;
                return c_A * (ux * ux + std::pow(v.W(x), 2) + std::pow(w.W(x), 2)) +
                       section * (c_J * t * t + c_Iz * std::pow(v.Psi(x), 2) + c_Iy * std::pow(w.Psi(x), 2));
              });
  e.stress = Integrate(L, [&](double x) {
    const double my = m.my0 + (m.my1 - m.my0) * x / L, mz = m.mz0 + (m.mz1 - m.mz0) * x / L;
    const double dv = v.Slope(x), dw = w.Slope(x);
    return N * (strain * strain + dv * dv + dw * dw + (c_Iy + c_Iz) / c_A * twist * twist) +
           2 * (my * dv + mz * dw) * twist;
  });
  return e;
}

/// The twelve values in global axes; R has local x, y, z as its first three rows.
Values ToGlobal(const CMatrix& R, const Values& local) {
  Values global(12, 0.0);
  for (int n = 0; n < 12; ++n) {
    for (int i = 0; i < 3; ++i) global[n] += R[i][n % 3] * local[n / 3 * 3 + i];
  }
  return global;
}

TEST_F(ElementTest, MatricesGiveTheExactEnergiesInEveryDirection) {
  const double L = 0.9;  // short: shear and rotary terms matter
  std::mt19937 engine(7);
  std::uniform_real_distribution<double> uniform(-1.0, 1.0);
  for (const Vector3& d : c_directions) {
    const double n = std::hypot(d[0], d[1], d[2]) / L;
    SetNodes({d[0] / n, d[1] / n, d[2] / n});
    for (const bool bShear : {false, true}) {
      for (const auto& pElement : MakeAll()) {
        const int nType = pElement->GetTypeCode();
        SCOPED_TRACE(testing::Message() << "type " << nType << ", shear " << bShear << ", z " << d[2]);
        const bool bHingeI = nType != 1 && nType != 3, bHingeJ = nType != 1 && nType != 2;
        const CMatrix R = pElement->FormTransformation();
        Values local(12);
        std::generate(local.begin(), local.end(), [&] { return uniform(engine); });
        const Values u = ToGlobal(R, local), own = Select(u, nType);
        // Twice: total forces replace the old ones.
        for (int k = 0; k < 2; ++k) pElement->ComputeInternalForce(u, false, bShear, true);
        Diagram myz, my, mz, qy, qz;
        const double N = pElement->GetForceDiagram(myz, my, mz, qy, qz);
        const double dShear = bShear ? 12 * c_kappa * c_E / (c_G * c_A * L * L) : 0.0;
        const PlaneSolution v =
            SolvePlane({local[1], local[5], local[7], local[11]}, dShear * c_Iz, L, bHingeI, bHingeJ);
        const PlaneSolution w =
            SolvePlane({local[2], -local[4], local[8], -local[10]}, dShear * c_Iy, L, bHingeI, bHingeJ);
        const Energies e = ComputeEnergies(local, v, w, bShear, bHingeI, bHingeJ, N, {my[0], my[20], mz[0], mz[20]});
        Diagram fy, fz;
        const auto axial = pElement->GetDeflectionDiagram(fy, fz);
        EXPECT_NEAR(axial[0] - local[0], 0.0, 1e-14);
        EXPECT_NEAR(axial[1] - axial[0], N * L / (c_E * c_A), 1e-14);
        for (int p = 0; p <= 20; ++p) {
          const double x = p * L / 20;
          EXPECT_NEAR(fy[p] - v.W(x), 0.0, 1e-13);
          EXPECT_NEAR(fz[p] - w.W(x), 0.0, 1e-13);
          EXPECT_NEAR(my[p] / (c_E * c_Iy), w.Curvature(x), 1e-11);
          EXPECT_NEAR(mz[p] / (c_E * c_Iz), -v.Curvature(x), 1e-11);
          EXPECT_NEAR(qy[p] / (c_E * c_Iz), 6 * v.c[3], 1e-10);
          EXPECT_NEAR(qz[p] / (c_E * c_Iy), 6 * w.c[3], 1e-10);
        }
        const CMatrix K = pElement->FormElementStiffness(false, bShear);
        EXPECT_NEAR(Dot(own, Multiply(K, own)) / e.strain, 1.0, 1e-11);
        EXPECT_NEAR(Dot(own, Multiply(pElement->FormMassMatrix(true, bShear), own)) / e.kinetic, 1.0, 1e-11);
        if (!bShear) {
          const double dSum = Dot(own, Multiply(pElement->FormElementStiffness(true, false), own));
          EXPECT_NEAR(dSum / (e.strain + e.stress), 1.0, 1e-9);
        }
        Values force(12, 0.0);
        pElement->AssembleEndForces(force);
        EXPECT_NEAR(Dot(force, u) / e.strain, 1.0, 1e-11) << "end forces";

        // Symmetry; no force in a rigid motion: translations, then turns about the axes through end i.
        const Values motions[] = {{1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0},  {0, 1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0},
                                  {0, 0, 1, 0, 0, 0, 0, 0, 1, 0, 0, 0},  {0, 0, 0, 1, 0, 0, 0, 0, 0, 1, 0, 0},
                                  {0, 0, 0, 0, 1, 0, 0, 0, -L, 0, 1, 0}, {0, 0, 0, 0, 0, 1, 0, L, 0, 0, 0, 1}};
        for (const Values& motion : motions) {
          for (const double f : Multiply(K, Select(ToGlobal(R, motion), nType))) EXPECT_NEAR(f, 0.0, 1e-3);
        }
        const CMatrix M = pElement->FormMassMatrix(false, bShear);
        for (int i = 0; i < K.GetRows(); ++i) {
          for (int j = 0; j < K.GetCols(); ++j) {
            EXPECT_EQ(K[i][j], K[j][i]);
            const double dLumped = i == j && GetPlaces(nType)[i] % 6 < 3 ? 0.5 * c_rho * c_A * L : 0.0;
            EXPECT_NEAR(M[i][j], dLumped, 1e-12);
          }
        }
      }
    }
  }
}

// ---- Large displacements ----

/// Moves the free nodes by du and updates the element as an equilibrium iteration does.
void Step(CNodeTable& nodes, CElement& element, const Values& du) {
  nodes.MoveNodes(du);
  element.ComputeLocalAxes();
  element.ComputeInternalForce(du, true, false, false);
}

TEST_F(ElementTest, BarTangentIsTheDerivativeOfItsEndForces) {
  const std::vector<int> places = GetPlaces(0);
  Values u(12, 0.0), detour(12, 0.0);
  for (int i = 0; i < 12; ++i) u[i] = 0.2 * std::sin(2.0 + 3.0 * i);
  detour[7] = 0.5;  // only the configuration counts
  CMatrix tangent;
  const auto forceAt = [&](Values displacement) {
    SetNodes({3, -2, 0.5});
    const auto pBar = Make<CTrussElem>();
    Step(m_nodes, *pBar, detour);
    displacement[7] -= detour[7];
    Step(m_nodes, *pBar, displacement);
    Values force(12, 0.0);
    pBar->AssembleEndForces(force);
    pBar->FormTangentStiffness(tangent, u);
    return force;
  };
  constexpr double h = 1e-5;
  for (int j = 0; j < 6; ++j) {
    Values plus = u, minus = u;
    plus[places[j]] += h;
    minus[places[j]] -= h;
    const Values up = forceAt(plus), down = forceAt(minus);
    forceAt(u);
    for (int i = 0; i < 6; ++i) {
      EXPECT_NEAR(tangent[i][j], (up[places[i]] - down[places[i]]) / (2 * h), 1e-7 * tangent[0][0]) << i << "," << j;
    }
  }
}

TEST_F(ElementTest, BeamAxialForceFollowsTheChord) {
  SetNodes({3, 0, 0});
  const auto pBeam = Make<CBeamElem>();
  Values step(12, 0.0), force(12, 0.0);
  step[6] = 1e-3;
  step[7] = 0.2;
  for (int n = 0; n < 4; ++n) Step(m_nodes, *pBeam, step);
  const double L = std::hypot(3.004, 0.8);
  EXPECT_NEAR(pBeam->GetLength(), L, 1e-12);
  EXPECT_NEAR(pBeam->GetAxialForce(), c_E * c_A * (L - 3.0) / 3.0, 1e-2);
  pBeam->AssembleEndForces(force);
  for (int k = 0; k < 3; ++k) EXPECT_NEAR(force[k] + force[k + 6], 0.0, 1e-5);
  pBeam->ResetDiagrams();
  EXPECT_EQ(pBeam->GetAxialForce(), 0.0);
}

// ---- Local axes ----

TEST_F(ElementTest, AxesOfAMemberInMotion) {
  for (const Vector3& d : c_directions) {
    // At rest; turned right round; along Y and vertical, where the rule has no plane; 40 degrees to either side.
    std::vector<Vector3> targets = {d, {-d[0], -d[1], -d[2]}, {0, 4, 0}, {0, -4, 0}, {0, 0, 4}, {0, 0, -4}};
    for (const double s : {-std::sin(0.7), std::sin(0.7)}) {
      const double c = std::cos(0.7), x = d[0], y = d[1], z = d[2];
      const Vector3 swung[] = {
          {x, c * y - s * z, s * y + c * z}, {c * x + s * z, y, c * z - s * x}, {c * x - s * y, s * x + c * y, z}};
      targets.insert(targets.end(), std::begin(swung), std::end(swung));
    }
    for (const Vector3& e : targets) {
      SCOPED_TRACE(testing::PrintToString(d) + " to " + testing::PrintToString(e));
      SetNodes(d);
      const auto pBeam = Make<CBeamElem>();
      const CMatrix T0 = pBeam->FormTransformation();
      Values force(12, 0.0);
      Step(m_nodes, *pBeam, {0, 0, 0, 0, 0, 0, e[0] - d[0], e[1] - d[1], e[2] - d[2], 0, 0, 0});
      const CMatrix T = pBeam->FormTransformation();
      if (e == d) ExpectNear(T, T0, 0.0, "at rest");
      for (int n = 0; n < 9; ++n) {  // x along the member; row i x row j = row k: of unit length, normal, right-handed
        const int i = n / 3, j = (i + 1) % 3, k = (i + 2) % 3, m = n % 3, p = (m + 1) % 3, q = (m + 2) % 3;
        EXPECT_NEAR(T[0][m], e[m] / std::hypot(e[0], e[1], e[2]), 1e-15);
        EXPECT_NEAR(T[i][p] * T[j][q] - T[i][q] * T[j][p], T[k][m], 1e-14);
      }
      // The undeformed d_Y decides: z normal to Y, or y horizontal; and on which side y lies.
      EXPECT_NEAR(d[1] == 0.0 ? T[2][1] : T[1][2], 0.0, 1e-15);
      EXPECT_GE(d[1] == 0.0 ? T[1][1] : d[1] * (T[1][0] * e[1] - T[1][1] * e[0]), -1e-14);
      pBeam->AssembleEndForces(force);
      for (const double f : force) EXPECT_TRUE(std::isfinite(f));
    }
  }
}

// A column that leans to Y and sways to X: h turns with its plan projection, 45 degrees about Z.
TEST(LocalAxes, TwistOfALeaningColumn) {
  MemberFrame frame;
  for (const double dSway : {0.0, 0.01}) {
    frame.SetEnds({1, 2, 3}, {1 + dSway, 2.01, 7});
    frame.TurnAxes(1.0, 0.0);
    EXPECT_NEAR(frame.GetTwist(), dSway * 100 * std::numbers::pi / 4, 1e-4);
  }
}

TEST(LocalAxes, TurnedSectionKeepsTheSumInItsZComponent) {
  // Along X, h = Y, w = Z: at 30 degrees the usual rotation would give z = (0, 0.5, 0.866).
  const double c = std::sqrt(0.75), s = 0.5;
  const LocalAxes Q = FormLocalAxes({5, 0, 0}, {5, 0, 0}, c, s);
  EXPECT_NEAR(Q[1][1], c, 1e-15);
  EXPECT_NEAR(Q[1][2], -s, 1e-15);
  EXPECT_NEAR(Q[2][1], s * c, 1e-15);
  EXPECT_NEAR(Q[2][2], s + c, 1e-15);
}

// ---- Section data, assembly, texts ----

TEST_F(ElementTest, SectionDataRules) {
  SetNodes({4, 0, 0});
  ElementData data = GetData();
  data.dShearCoefficient = 0.0;
  const auto pBeam = Make<CBeamElem>(data);
  const CMatrix K = pBeam->FormLocalStiffness(false);
  ExpectNear(pBeam->FormLocalStiffness(true), K, 0.0, "no shear coefficient");
  CMatrix noArea = K;
  noArea[0][0] = noArea[0][6] = noArea[6][0] = noArea[6][6] = 0.0;
  pBeam->ZeroArea();
  ExpectNear(pBeam->FormLocalStiffness(false), noArea, 0.0, "no area");
  pBeam->RestoreArea();
  EXPECT_EQ(pBeam->GetArea(), c_A);

  for (const auto& [dIx, dUsed] : {std::pair(0.0, 5.0), {1e-15, 5.0}, {-1e-15, 5.0}, {2e-15, 2e-15}, {c_J, c_J}}) {
    data.dIx = dIx;
    const auto pOther = Make<CBeamElem>(data);
    EXPECT_DOUBLE_EQ(pOther->FormLocalStiffness(false)[3][3], c_G * dUsed / 4.0);
    EXPECT_DOUBLE_EQ(pOther->FormMassMatrix(true, false)[3][3], c_rho * dUsed * 4.0 / 3.0);
  }
  SetMaterial(0.5);
  EXPECT_DOUBLE_EQ(Make<CBeamElem>()->FormLocalStiffness(false)[3][3], c_E / 3.0 * c_J / 4.0);

  const auto pBar = Make<CTrussElem>();
  Values u(12, 0.0), force(12, 0.0);
  u[6] = 0.01;
  pBar->ZeroArea();
  pBar->ComputeInternalForce(u, false, false, true);
  pBar->AssembleEndForces(force);
  EXPECT_EQ(force, Values(12, 0.0));
  ExpectNear(pBar->FormElementStiffness(true, false), CMatrix(6, 6, 0.0), 0.0, "bar without area");
  CMatrix D;
  pBar->FormConstitutive(D);
  ExpectNear(D, CMatrix(1, 1, c_E), 0.0, "D");
}

template <class Write>
std::string Written(Write write) {
  std::ostringstream strm;
  CTextWriter out(strm);
  write(out);
  out.Flush();
  return strm.str();
}

TEST_F(ElementTest, ResultLines) {
  SetNodes({4, 0, 0});
  Values u(12, 0.0);
  u[6] = 4.0 / (c_E * c_A) * 1234.5678;
  const auto all = MakeAll();
  for (const auto& pElement : all) {
    pElement->ComputeInternalForce(Values(3, 1.0), false, false, true);  // ends early: zero behind its end
    pElement->ComputeInternalForce(u, false, false, true);
  }
  const auto forces = [&](int k) { return Written([&](CTextWriter& out) { all[k]->OutputInternalForce(out); }); };
  EXPECT_EQ(Written([&](CTextWriter& out) { all[0]->OutputMaterial(out); }),
            "Truss  面积:0.01  材料类型编号:0  节点号:1  2\n");
  EXPECT_EQ(forces(0), "---------输出第7号杆单元内力--------\nN = 1234.568       \n");
  std::string strExpected = "N=  1234.568       \n";
  for (const char* strLabel : {"MYZ:  ", "MZX:  ", "MXY:  ", "Qy:   ", "Qz:   ", "Fy:   ", "Fz:   "}) {
    strExpected += strLabel;
    for (int p = 0; p < 21; ++p) strExpected += "0.000          ";
    strExpected += "\n";
  }
  EXPECT_EQ(forces(1), strExpected);
}

TEST_F(ElementTest, TraceVocabulary) {
  SetNodes({4, 0, 0});
  const auto all = MakeAll();
  const int typeCodes[] = {0, 1, 2, 3, 6};
  const std::string names[] = {"杆单元", "梁单元", "左端铰接梁单元", "右端铰接梁单元", "两端铰接梁单元"};
  const char* const stiffness[] = {"", "", "形成第7号左端铰接梁单元刚度矩阵", "形成第7号右端铰接梁单元刚度矩阵",
                                   "形成第7号左端铰接梁单元刚度矩阵"};  // the last one is deliberate
  const char* const lumped[] = {"形成第7号杆单元集中质量矩阵", "", "形成第7号左端铰接梁单元质量质量矩阵",
                                "形成第7号右端铰接梁单元集中质量矩阵", "形成第7号两端铰接梁单元质量质量矩阵"};
  for (std::size_t n = 0; n < all.size(); ++n) {
    const auto text = [&](ElementStep step) { return GetProgressText(*all[n], step); };
    EXPECT_EQ(all[n]->GetTypeCode(), typeCodes[n]);
    EXPECT_EQ(text(ElementStep::FormStiffness), stiffness[n]);
    EXPECT_EQ(text(ElementStep::FormLumpedMass), lumped[n]);
    EXPECT_EQ(text(ElementStep::FormConsistentMass), "形成第7号" + names[n] + "一致质量矩阵");
    EXPECT_EQ(text(ElementStep::AssembleMass), "将第7号" + names[n] + "组装进总体质量矩阵");
    EXPECT_EQ(text(ElementStep::AssembleStiffness), "将第7号" + names[n] + "组装进总体刚度矩阵");
    EXPECT_EQ(text(ElementStep::AddToBandwidth), "加入第7号" + names[n] + "，计算总刚度矩阵带宽");
    EXPECT_EQ(text(ElementStep::ComputeInternalForce), "计算第7号" + names[n] + "内力");
    // The hinged beams share the beam's output texts.
    EXPECT_EQ(text(ElementStep::OutputMaterial), "输出第7号" + names[n == 0 ? 0 : 1] + "材料参数");
  }
  EXPECT_EQ(GetProgressText(*all[1], ElementStep::OutputInternalForce), "输出第7号梁单元内力");
}

TEST_F(ElementTest, ConsoleHasNodeReadingEquilibriumAndTheTangentTraceOnly) {
  SetNodes({2, 0, 0});
  const auto pBar = Make<CTrussElem>();
  const auto pBeam = Make<CBeamHingeLeft>();
  SparseMatrix equilibrium;
  pBar->AssembleEquilibrium(equilibrium);
  pBeam->AssembleEquilibrium(equilibrium);
  Values u(12, 0.0);
  pBeam->ComputeInternalForce(u, false, false, true);
  u[6] = 1.0;
  u[7] = -0.5;
  CMatrix tangent;
  pBar->FormTangentStiffness(tangent, u);
  const std::string strConsole = m_platform.GetConsole();
  EXPECT_TRUE(strConsole.starts_with(
      "读入杆单元节点号\n读取梁单元节点号\n将索单元7组装进平衡矩阵\n将第7号梁单元组装进平衡矩阵\nadNodeDisp----------\n"
      "0.00000        \n0.00000        \n0.00000        \n1.00000        \n-0.500000      \n0.00000        \n"
      "----------------\n-----------matT------------\nmatT(0,0)=1.00000        \nmatT(0,1)=0.00000        \n"));
  for (const char* strEntry :
       {"(5,5)=1.00000        \n---------------------------\n-----------matA------------\nmatA(0,0)=0.500000       \n",
        "(0,2)=0.00000        \n---------------------------\n-----------matG------------\nmatG(0,0)=-0.500000      \n",
        "\nmatG(1,4)=0.500000       \n",
        "(2,5)=0.500000       \n---------------------------\n-----------matBnl------------\nmatBnl(0,0)=-0.250000      "
        "\n"})
    EXPECT_NE(strConsole.find(strEntry), std::string::npos) << strEntry;
  EXPECT_TRUE(
      strConsole.ends_with("\nmatBnl(0,3)=0.250000       \nmatBnl(0,4)=-0.125000      \nmatBnl(0,5)=0.00000        \n"
                           "---------------------------\n"));
  EXPECT_EQ(std::ranges::count(strConsole, '\n'), 5 + 7 + 4 * 2 + 36 + 3 + 18 + 6);
}

// ---- Materials ----

TEST(Material, LinesDifferInTheKindAndTheBaseTakesItsSecondValueForTheUnitWeight) {
  CSteel steel, base;
  CConcrete concrete;
  steel.SetProperties(2.06e11, 0.3, 7900.0, 1.0, 2.0, 3.0);
  concrete.SetProperties(2.06e11, 0.3, 7900.0, 1.0, 2.0, 3.0);
  base.CMaterial::SetProperties(2.06e11, 0.3, 7900.0, 1.0, 2.0, 3.0);
  const auto line = [](const CMaterial& m) { return Written([&m](CTextWriter& out) { m.WriteMaterial(out); }); };
  EXPECT_EQ(line(steel), "材料类型: Steel  初始弹性模量: 2.06e+11  材料容重: 7900  泊松比: 0.3\n");
  EXPECT_EQ(line(concrete), "材料类型: Concrete  初始弹性模量: 2.06e+11  材料容重: 7900  泊松比: 0.3\n");
  EXPECT_EQ(line(base), "材料类型: Steel  初始弹性模量: 2.06e+11  材料容重: 0.3  泊松比: 0\n");
}

}  // namespace
}  // namespace skyframe::test
