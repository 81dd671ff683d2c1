#include <algorithm>
#include <cmath>
#include <cstring>
#include <functional>
#include <memory>
#include <random>

#include "TestPlatform.h"
#include "skyframe/model/BeamElement.h"
#include "skyframe/model/HingedBeams.h"
#include "skyframe/model/TrussElement.h"

namespace skyframe {
namespace {

using Dense = std::vector<std::vector<double>>;
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

Dense ToDense(const CMatrix& A) {
  Dense result(A.GetRows(), Values(A.GetCols()));
  for (int i = 0; i < A.GetRows(); ++i) {
    for (int j = 0; j < A.GetCols(); ++j) result[i][j] = A[i][j];
  }
  return result;
}

Values Multiply(const Dense& A, const Values& x) {
  Values y(A.size(), 0.0);
  for (std::size_t i = 0; i < A.size(); ++i) {
    for (std::size_t j = 0; j < x.size(); ++j) y[i] += A[i][j] * x[j];
  }
  return y;
}

double Dot(const Values& x, const Values& y) {
  double dSum = 0.0;
  for (std::size_t i = 0; i < x.size(); ++i) dSum += x[i] * y[i];
  return dSum;
}

double GetScale(const Dense& A) {
  double dLargest = 0.0;
  for (const Values& row : A) {
    for (const double dValue : row) dLargest = std::max(dLargest, std::abs(dValue));
  }
  return dLargest;
}

/// Symmetric elimination in place; the number of negative pivots.
int Eliminate(Dense& A, Values& b) {
  int nNegative = 0;
  for (std::size_t k = 0; k < A.size(); ++k) {
    if (A[k][k] < 0.0) ++nNegative;
    for (std::size_t i = k + 1; i < A.size(); ++i) {
      const double f = A[i][k] / A[k][k];
      for (std::size_t j = k; j < A.size(); ++j) A[i][j] -= f * A[k][j];
      b[i] -= f * b[k];
    }
  }
  return nNegative;
}

Values Solve(Dense A, Values b) {
  Eliminate(A, b);
  for (std::size_t k = A.size(); k-- > 0;) {
    for (std::size_t j = k + 1; j < A.size(); ++j) b[k] -= A[k][j] * b[j];
    b[k] /= A[k][k];
  }
  return b;
}

Dense Select(const Dense& A, const std::vector<int>& keep) {
  Dense result;
  for (const int i : keep) {
    result.emplace_back();
    for (const int j : keep) result.back().push_back(A[i][j]);
  }
  return result;
}

void ExpectNear(const Dense& A, const Dense& B, double dTolerance, const std::string& strWhat) {
  ASSERT_EQ(A.size(), B.size()) << strWhat;
  for (std::size_t i = 0; i < A.size(); ++i) {
    for (std::size_t j = 0; j < A.size(); ++j) {
      EXPECT_NEAR(A[i][j], B[i][j], dTolerance) << strWhat << " at " << i << "," << j;
    }
  }
}

/// A chain of rigid nodes from the origin in equal steps, no DOF restrained, and one steel.
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

  void SetNodes(const Vector3& step, int nNodes = 2) {
    m_nodes.Resize(nNodes);
    for (int n = 0; n < nNodes; ++n) {
      m_nodes.SetNode(n, 1, n * step[0], n * step[1], n * step[2]);
      m_nodes.AddListedNode(n, {});
    }
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
  static std::unique_ptr<T> Make(const ElementData& data = GetData(), int nI = 0, int nJ = 1) {
    auto pElement = std::make_unique<T>();
    pElement->SetData(data);
    pElement->ReadNodes(nI, nJ);
    pElement->ComputeLength();
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

  /// Global displacements of the element's DOFs in the rigid motion translation t, rotation r about the origin.
  static Values RigidMotion(const CElement& element, const Vector3& t, const Vector3& r) {
    Values all;
    for (const int nNode : {0, 1}) {
      const Vector3& x = g_pNodeTable->GetPosition(nNode);
      all.insert(all.end(), {t[0] + r[1] * x[2] - r[2] * x[1], t[1] + r[2] * x[0] - r[0] * x[2],
                             t[2] + r[0] * x[1] - r[1] * x[0], r[0], r[1], r[2]});
    }
    Values own;
    for (const int nPlace : GetPlaces(element.GetTypeCode())) own.push_back(all[nPlace]);
    return own;
  }

  test::CTestPlatform m_platform;
  CNodeTable m_nodes;
  MaterialList m_materials;
};

Vector3 Unit(int k) { return {k == 0 ? 1.0 : 0.0, k == 1 ? 1.0 : 0.0, k == 2 ? 1.0 : 0.0}; }

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

/// End values w, psi; a hinge replaces its psi by zero curvature.
PlaneSolution SolvePlane(const Values& ends, double phi, double L, bool bHingeI, bool bHingeJ) {
  const double s = phi * L * L / 2;
  const Values psiI = bHingeI ? Values{0, 0, 2, 0} : Values{0, 1, 0, s};
  const Values psiJ = bHingeJ ? Values{0, 0, 2, 6 * L} : Values{0, 1, 2 * L, 3 * L * L + s};
  // In this order plain elimination meets no zero pivot.
  const Dense A = {{1, 0, 0, 0}, {1, L, L * L, L * L * L}, psiI, psiJ};
  const double bI = bHingeI ? 0.0 : ends[1], bJ = bHingeJ ? 0.0 : ends[3];
  return {Solve(A, {ends[0], ends[2], bI, bJ}), phi, L};
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

/// Twice the energies of the member at the twelve local displacements u; N and the end moments for the last.
Energies ComputeEnergies(const Values& u, double L, bool bShear, bool bHingeI, bool bHingeJ, double N, double my0,
                         double my1, double mz0, double mz1) {
  const double f = bShear ? 12 * c_kappa * c_E / (c_G * c_A * L * L) : 0.0;
  const PlaneSolution v = SolvePlane({u[1], u[5], u[7], u[11]}, f * c_Iz, L, bHingeI, bHingeJ);
  const PlaneSolution w = SolvePlane({u[2], -u[4], u[8], -u[10]}, f * c_Iy, L, bHingeI, bHingeJ);
  const bool bHinged = bHingeI || bHingeJ;
  const double twistI = bHingeI ? u[9] : u[3], twistJ = bHingeJ ? u[3] : u[9];
  const double strain = (u[6] - u[0]) / L, twist = (twistJ - twistI) / L;
  Energies e = {};
  e.strain = Integrate(L, [&](double x) {
    const double gv = v.Slope(x) - v.Psi(x), gw = w.Slope(x) - w.Psi(x);
    const double shear = bShear ? c_G * c_A / c_kappa * (gv * gv + gw * gw) : 0.0;
    return c_E * c_A * strain * strain + c_G * c_J * twist * twist + c_E * c_Iz * std::pow(v.Curvature(x), 2) +
           c_E * c_Iy * std::pow(w.Curvature(x), 2) + shear;
  });
  e.kinetic = c_rho * Integrate(L, [&](double x) {
                const double ux = u[0] + strain * x, t = twistI + twist * x;
                return c_A * (ux * ux + std::pow(v.W(x), 2) + std::pow(w.W(x), 2)) + c_J * t * t +
                       c_Iz * std::pow(v.Psi(x), 2) + c_Iy * std::pow(w.Psi(x), 2);
              });
  if (bHinged) return e;
  e.stress = Integrate(L, [&](double x) {
    const double my = my0 + (my1 - my0) * x / L, mz = mz0 + (mz1 - mz0) * x / L;
    const double dv = v.Slope(x), dw = w.Slope(x);
    return N * (strain * strain + dv * dv + dw * dw + (c_Iy + c_Iz) / c_A * twist * twist) +
           2 * (my * dv + mz * dw) * twist;
  });
  return e;
}

Values RandomDisplacements(std::mt19937& engine) {
  std::uniform_real_distribution<double> value(-1.0, 1.0);
  Values u(12);
  for (double& dValue : u) dValue = value(engine);
  return u;
}

TEST_F(ElementTest, MatricesGiveTheExactEnergies) {
  const double L = 0.9;  // short: shear and rotary terms matter
  SetNodes({L, 0, 0});
  std::mt19937 engine(7);
  for (const bool bShear : {false, true}) {
    for (const auto& pElement : MakeAll()) {
      const int nType = pElement->GetTypeCode();
      if (nType == 0 || nType == 6) continue;
      const Dense K = ToDense(pElement->FormElementStiffness(false, bShear));
      const Dense M = ToDense(pElement->FormMassMatrix(true, bShear));
      for (int n = 0; n < 5; ++n) {
        const Values all = RandomDisplacements(engine);
        const Energies e = ComputeEnergies(all, L, bShear, nType == 2, nType == 3, 0, 0, 0, 0, 0);
        Values u;
        for (const int nPlace : GetPlaces(nType)) u.push_back(all[nPlace]);
        EXPECT_NEAR(Dot(u, Multiply(K, u)) / e.strain, 1.0, 1e-11) << nType << bShear;
        EXPECT_NEAR(Dot(u, Multiply(M, u)) / e.kinetic, 1.0, 1e-11) << nType << bShear;
      }
    }
  }
}

TEST_F(ElementTest, GeometricStiffnessGivesTheExactStressEnergy) {
  const double L = 0.9;
  SetNodes({L, 0, 0});
  std::mt19937 engine(11);
  const auto pBeam = Make<CBeamElem>();
  for (int n = 0; n < 5; ++n) {
    pBeam->ComputeInternalForce(RandomDisplacements(engine), false, false, true);
    Diagram myz, my, mz, qy, qz;
    const double N = pBeam->GetForceDiagram(myz, my, mz, qy, qz);
    const Values u = RandomDisplacements(engine);
    const Energies e = ComputeEnergies(u, L, false, false, false, N, my[0], my[20], mz[0], mz[20]);
    EXPECT_NEAR(Dot(u, Multiply(ToDense(pBeam->FormGeometricStiffness()), u)) / e.stress, 1.0, 1e-10);
    const Dense sum = ToDense(pBeam->FormElementStiffness(true, false));
    EXPECT_NEAR(Dot(u, Multiply(sum, u)) / (e.strain + e.stress), 1.0, 1e-10);
  }
}

// ---- Invariants in all directions ----

TEST_F(ElementTest, StiffnessIsSymmetricAndFreeOfRigidMotions) {
  for (const Vector3& d : c_directions) {
    SetNodes(d);
    for (const bool bShear : {false, true}) {
      for (const auto& pElement : MakeAll()) {
        const Dense K = ToDense(pElement->FormElementStiffness(false, bShear));
        ASSERT_EQ(K.size(), GetPlaces(pElement->GetTypeCode()).size());
        for (std::size_t i = 0; i < K.size(); ++i) {
          for (std::size_t j = 0; j < i; ++j) EXPECT_EQ(K[i][j], K[j][i]);
        }
        for (int k = 0; k < 6; ++k) {
          const Vector3 t = k < 3 ? Unit(k) : Vector3{}, r = k < 3 ? Vector3{} : Unit(k - 3);
          for (const double dForce : Multiply(K, RigidMotion(*pElement, t, r))) {
            EXPECT_NEAR(dForce, 0.0, 1e-12 * GetScale(K)) << pElement->GetTypeCode() << " motion " << k;
          }
        }
      }
    }
  }
}

TEST_F(ElementTest, GeometricStiffnessIgnoresTranslations) {
  SetNodes({2, 2, 2});
  Values u(12, 0.0);
  for (int i = 0; i < 12; ++i) u[i] = 1e-3 * std::cos(i);
  for (const auto& pElement : MakeAll()) {
    pElement->ComputeInternalForce(u, false, false, false);
    const Dense elastic = ToDense(pElement->FormElementStiffness(false, false));
    const Dense K = ToDense(pElement->FormElementStiffness(true, false));
    for (int k = 0; k < 3; ++k) {
      for (const double dForce : Multiply(K, RigidMotion(*pElement, Unit(k), {}))) {
        EXPECT_NEAR(dForce, 0.0, 1e-12 * GetScale(elastic));
      }
    }
    // Work against N in a small rigid turn of the chord: N L per unit angle squared.
    if (pElement->GetTypeCode() == 0) continue;  // its elastic row changes with the flag, too
    const Vector3 turn = {1.0 / std::sqrt(2.0), -1.0 / std::sqrt(2.0), 0.0};
    const Values r = RigidMotion(*pElement, {}, turn);
    const double L = std::sqrt(12.0);
    EXPECT_NEAR(Dot(r, Multiply(K, r)) / (pElement->GetAxialForce() * L), 1.0, 1e-4);
  }
}

TEST_F(ElementTest, MassCarriesTheWholeMemberInEveryRigidMotion) {
  for (const Vector3& d : c_directions) {
    SetNodes(d);
    for (const bool bShear : {false, true}) {
      for (const auto& pElement : MakeAll()) {
        const int nType = pElement->GetTypeCode();
        const double L = std::sqrt(d[0] * d[0] + d[1] * d[1] + d[2] * d[2]), m = c_rho * c_A * L;
        const CMatrix T = pElement->FormTransformation();
        for (const bool bConsistent : {false, true}) {
          const Dense M = ToDense(pElement->FormMassMatrix(bConsistent, bShear));
          for (int k = 0; k < 3; ++k) {
            const Values t = RigidMotion(*pElement, Unit(k), {});
            EXPECT_NEAR(Dot(t, Multiply(M, t)), m, 1e-12 * m) << nType;
            if (!bConsistent) continue;
            // About local x, y, z through end i; a bar has no section inertia.
            const bool bBar = nType == 0 || nType == 6;
            const double section = bBar ? 0.0 : c_rho * L * (k == 0 ? c_J : k == 1 ? c_Iy : c_Iz);
            const double inertia = section + (k == 0 ? 0.0 : m * L * L / 3);
            const Values r = RigidMotion(*pElement, {}, {T[k][0], T[k][1], T[k][2]});
            EXPECT_NEAR(Dot(r, Multiply(M, r)), inertia, 1e-11 * m * L * L) << nType << " axis " << k;
          }
        }
      }
    }
  }
}

TEST_F(ElementTest, LumpedMassIsHalfTheMemberAtEachTranslation) {
  SetNodes({0, 4, 0});
  for (const auto& pElement : MakeAll()) {
    const Dense M = ToDense(pElement->FormMassMatrix(false, true));
    const std::vector<int> places = GetPlaces(pElement->GetTypeCode());
    for (std::size_t i = 0; i < M.size(); ++i) {
      for (std::size_t j = 0; j < M.size(); ++j) {
        EXPECT_EQ(M[i][j], i == j && places[i] % 6 < 3 ? 0.5 * c_rho * c_A * 4.0 : 0.0);
      }
    }
  }
}

// ---- Hinges ----

TEST_F(ElementTest, HingedStiffnessIsTheCondensedBeam) {
  SetNodes({3, -2, 0.5});
  for (const bool bShear : {false, true}) {
    const Dense full = ToDense(Make<CBeamElem>()->FormElementStiffness(false, bShear));
    for (const auto& pElement : MakeAll()) {
      const int nType = pElement->GetTypeCode();
      if (nType != 2 && nType != 3) continue;
      // Eliminate the hinged rotations first; what remains is the Schur complement.
      std::vector<int> order = nType == 2 ? std::vector<int>{3, 4, 5} : std::vector<int>{9, 10, 11};
      for (const int nPlace : GetPlaces(nType)) order.push_back(nPlace);
      Dense K = Select(full, order);
      for (int k = 0; k < 3; ++k) {
        for (int i = k + 1; i < 12; ++i) {
          const double f = K[i][k] / K[k][k];
          for (int j = 0; j < 12; ++j) K[i][j] -= f * K[k][j];
        }
      }
      const Dense schur = Select(K, {3, 4, 5, 6, 7, 8, 9, 10, 11});
      ExpectNear(ToDense(pElement->FormElementStiffness(false, bShear)), schur, 1e-11 * GetScale(K), "condensed");
    }
  }
}

TEST_F(ElementTest, HingesMirrorEachOther) {
  const std::vector<int> exchange = {6, 7, 8, 0, 1, 2, 3, 4, 5};  // right-hinged DOFs in the left-hinged order
  for (const Vector3& d : c_directions) {
    SetNodes(d);
    const auto pLeft = Make<CBeamHingeLeft>();
    const auto pRight = Make<CBeamHingeRight>(GetData(), 1, 0);
    for (const bool bShear : {false, true}) {
      const Dense K = ToDense(pLeft->FormElementStiffness(false, bShear));
      ExpectNear(K, Select(ToDense(pRight->FormElementStiffness(false, bShear)), exchange), 1e-11 * GetScale(K), "K");
      const Dense M = ToDense(pLeft->FormMassMatrix(true, bShear));
      ExpectNear(M, Select(ToDense(pRight->FormMassMatrix(true, bShear)), exchange), 1e-11 * GetScale(M), "M");
    }
  }
}

TEST_F(ElementTest, BothHingedIsABar) {
  SetNodes({3, -2, 0.5});
  const auto pBar = Make<CTrussElem>();
  const auto pBoth = Make<CBeamHingeBoth>();
  const Dense K = ToDense(pBar->FormElementStiffness(false, false));
  ExpectNear(ToDense(pBoth->FormElementStiffness(false, true)), K, 1e-12 * GetScale(K), "K");
  const Dense M = ToDense(pBar->FormMassMatrix(true, false));
  ExpectNear(ToDense(pBoth->FormMassMatrix(true, true)), M, 0.0, "M");
  // Stress part: N/L in all three directions.
  Values u(12, 0.0);
  u[6] = 1e-3;
  SetNodes({4, 0, 0});
  const auto pX = Make<CBeamHingeBoth>();
  pX->ComputeInternalForce(u, false, false, false);
  const double r = pX->GetAxialForce() / 4.0;
  const Dense G = ToDense(pX->FormElementStiffness(true, false)), E = ToDense(pX->FormElementStiffness(false, false));
  for (int k = 0; k < 3; ++k) {
    EXPECT_NEAR(G[k][k] - E[k][k], r, 1e-6);
    EXPECT_NEAR(G[k][k + 3] - E[k][k + 3], -r, 1e-6);
  }
}

// ---- Closed forms ----

TEST_F(ElementTest, TipComplianceOfACantileverInEveryDirection) {
  const double L = std::sqrt(12.0);
  for (const Vector3& unit : c_directions) {
    const double n = std::sqrt(unit[0] * unit[0] + unit[1] * unit[1] + unit[2] * unit[2]);
    SetNodes({unit[0] * L / n, unit[1] * L / n, unit[2] * L / n});
    const auto pBeam = Make<CBeamElem>();
    const CMatrix T = pBeam->FormTransformation();
    for (const bool bShear : {false, true}) {
      const double shear = bShear ? c_kappa * L / (c_G * c_A) : 0.0;
      const double expected[] = {L / (c_E * c_A), L * L * L / (3 * c_E * c_Iz) + shear,
                                 L * L * L / (3 * c_E * c_Iy) + shear, L / (c_G * c_J)};
      const Dense K = Select(ToDense(pBeam->FormElementStiffness(false, bShear)), {6, 7, 8, 9, 10, 11});
      for (int k = 0; k < 4; ++k) {  // unit load along local x, y, z; unit torque
        Values load(6, 0.0);
        for (int j = 0; j < 3; ++j) load[k / 3 * 3 + j] = T[k % 3][j];
        EXPECT_NEAR(Dot(load, Solve(K, load)) / expected[k], 1.0, 1e-9) << k;
      }
    }
  }
}

TEST_F(ElementTest, CantileverDiagrams) {
  const double L = 4.0, P = 1e4;
  SetNodes({L, 0, 0});
  ElementData data = GetData();
  data.dIz = c_Iy;
  const auto pBeam = Make<CBeamElem>(data);
  for (const bool bShear : {false, true}) {
    const Dense K = Select(ToDense(pBeam->FormElementStiffness(false, bShear)), {6, 7, 8, 9, 10, 11});
    const Values tip = Solve(K, {2e5, 0, P, 0, 0, 0});
    Values u(12, 0.0);
    std::copy(tip.begin(), tip.end(), u.begin() + 6);
    EXPECT_NEAR(u[8], 0.0517799 + (bShear ? 6.0583e-5 : 0.0), 1e-7);
    pBeam->ComputeInternalForce(u, false, bShear, true);
    Diagram myz, mzx, mxy, qy, qz, fy, fz;
    EXPECT_NEAR(pBeam->GetForceDiagram(myz, mzx, mxy, qy, qz), 2e5, 1e-4);
    const auto axial = pBeam->GetDeflectionDiagram(fy, fz);
    EXPECT_EQ(axial[0], 0.0);
    EXPECT_NEAR(axial[1], 2e5 * L / (c_E * c_A), 1e-15);
    for (int p = 0; p <= 20; ++p) {
      const double x = p * L / 20;
      const double w = P * x * x * (3 * L - x) / (6 * c_E * c_Iy) + (bShear ? c_kappa * P * x / (c_G * c_A) : 0.0);
      EXPECT_NEAR(mzx[p], 4e4 - P * x, 1e-5);
      EXPECT_NEAR(qz[p], -P, 1e-5);
      EXPECT_NEAR(fz[p], w, 1e-12);
      EXPECT_NEAR(std::abs(fy[p]) + std::abs(mxy[p]) + std::abs(qy[p]) + std::abs(myz[p]), 0.0, 1e-9);
    }
  }
}

TEST_F(ElementTest, HingeLoadedMember) {
  const double L = 2.0, P = 1e3;
  SetNodes({0, 0, L});
  for (const bool bShear : {false, true}) {
    for (const bool bLeft : {false, true}) {
      const std::unique_ptr<CElement> pElement =
          bLeft ? std::unique_ptr<CElement>(Make<CBeamHingeLeft>()) : Make<CBeamHingeRight>();
      const int nFirst = bLeft ? 0 : 6;  // DOFs of the hinged end
      const Dense K = Select(ToDense(pElement->FormElementStiffness(false, bShear)), {nFirst, nFirst + 1, nFirst + 2});
      const Values d = Solve(K, {0, P, 0});  // local y = Y
      const double phi = bShear ? 12 * c_kappa * c_E * c_Iz / (c_G * c_A * L * L) : 0.0;
      EXPECT_NEAR(d[1] / (P * L * L * L * (4 + phi) / (12 * c_E * c_Iz)), 1.0, 1e-12);
      Values u(12, 0.0);
      u[m_nodes.GetDof(bLeft ? 0 : 1, c_nDofY)] = d[1];
      pElement->ComputeInternalForce(u, false, bShear, true);
      Diagram myz, mzx, mxy, qy, qz, fy, fz;
      pElement->GetForceDiagram(myz, mzx, mxy, qy, qz);
      pElement->GetDeflectionDiagram(fy, fz);
      const int nHinge = bLeft ? 0 : 20;
      EXPECT_EQ(mxy[nHinge], 0.0);
      EXPECT_EQ(mzx[nHinge], 0.0);
      EXPECT_EQ(myz[0], 0.0);
      EXPECT_NEAR(std::abs(mxy[20 - nHinge]), P * L, 1e-8);
      const double w = P * (3 * L - 1) / (6 * c_E * c_Iz) + (bShear ? c_kappa * P / (c_G * c_A) : 0.0);
      EXPECT_NEAR(fy[10], w, 1e-14) << "x = 1 m from the fixed end";
      EXPECT_NEAR(fy[nHinge], d[1], 1e-16);
    }
  }
}

/// Smallest factor at which K + factor Kg of a straight chain loses stability, from the number of negative pivots.
double FindBuckling(const Dense& K, const Dense& KG) {
  double dLow = 0.0, dHigh = 1e6;
  for (int n = 0; n < 60; ++n) {
    const double f = 0.5 * (dLow + dHigh);
    Dense A = K;
    for (std::size_t i = 0; i < A.size(); ++i) {
      for (std::size_t j = 0; j < A.size(); ++j) A[i][j] += f * (KG[i][j] - K[i][j]);
    }
    Values b(A.size(), 0.0);
    (Eliminate(A, b) > 0 ? dHigh : dLow) = f;
  }
  return dLow;
}

TEST_F(ElementTest, LateralBucklingLoads) {
  constexpr int c_nElements = 8;
  const double L = 6.0;
  ElementData data = GetData();
  data.dIz = 1e-7;  // narrow strip: bends in local z, buckles in local y with twist
  data.dIx = 1e-7;
  const double strength = std::sqrt(c_E * data.dIz * c_G * data.dIx);
  // Fork supports (u_y, u_z, twist at both ends) under end moments about y; a cantilever under a tip force.
  struct Case {
    std::vector<int> fixed;
    std::vector<std::pair<int, double>> loads;
    double expected, tolerance;
  };
  const Case cases[] = {{{0, 1, 2, 3, 49, 50, 51}, {{4, 1.0}, {52, -1.0}}, std::acos(-1.0) / L * strength, 0.01},
                        {{0, 1, 2, 3, 4, 5}, {{50, 1.0}}, 4.0126 / (L * L) * strength, 0.01}};
  for (const Case& c : cases) {
    SetNodes({L / c_nElements, 0, 0}, c_nElements + 1);
    std::vector<std::unique_ptr<CBeamElem>> beams;
    for (int n = 0; n < c_nElements; ++n) beams.push_back(Make<CBeamElem>(data, n, n + 1));
    const int nDofs = m_nodes.GetTotalDofs();
    std::vector<int> free;
    for (int i = 0; i < nDofs; ++i) {
      if (std::find(c.fixed.begin(), c.fixed.end(), i) == c.fixed.end()) free.push_back(i);
    }
    const auto assemble = [&](bool bGeometric) {
      Dense sum(nDofs, Values(nDofs, 0.0));
      for (int n = 0; n < c_nElements; ++n) {
        const CMatrix& k = beams[n]->FormElementStiffness(bGeometric, false);
        for (int i = 0; i < 12; ++i) {
          for (int j = 0; j < 12; ++j) sum[6 * n + i][6 * n + j] += k[i][j];
        }
      }
      return Select(sum, free);
    };
    const Dense K = assemble(false);
    Values P(nDofs, 0.0), u(nDofs, 0.0), load;
    for (const auto& [nDof, dValue] : c.loads) P[nDof] = dValue;
    for (const int i : free) load.push_back(P[i]);
    const Values solution = Solve(K, load);
    for (std::size_t i = 0; i < free.size(); ++i) u[free[i]] = solution[i];
    for (const auto& pBeam : beams) pBeam->ComputeInternalForce(u, false, false, false);
    EXPECT_NEAR(FindBuckling(K, assemble(true)) / c.expected, 1.0, c.tolerance);
  }
}

// ---- Large displacements ----

/// Moves the free nodes by du and updates the element as an equilibrium iteration does.
void Step(CNodeTable& nodes, CElement& element, const Values& du) {
  nodes.MoveNodes(du);
  element.ComputeLength();
  element.ComputeLocalAxes();
  element.ComputeLength();
  element.ComputeInternalForce(du, true, false, false);
}

TEST_F(ElementTest, BarOnTheArchPath) {
  const double EA = 2.06e8;
  ElementData data = GetData();
  data.dArea = EA / c_E;
  struct Point {
    double w, P, N;
  };
  for (const Point& point : {Point{0.02, 114055.20, -239649.80}, Point{0.05, 272221.27, -589038.84}}) {
    SetNodes({4, 0, 1});
    const auto pBar = Make<CTrussElem>(data);
    Values step(12, 0.0), force(12, 0.0);
    step[6] = 0.3;  // a detour: only the configuration counts
    Step(m_nodes, *pBar, step);
    step[6] = -0.3;
    step[8] = -point.w;
    Step(m_nodes, *pBar, step);
    pBar->AssembleEndForces(force);
    EXPECT_NEAR(pBar->GetAxialForce(), point.N, 0.01);
    EXPECT_NEAR(-2 * force[8], point.P, 0.01);
    EXPECT_NEAR(force[0] + force[6], 0.0, 1e-9);
  }
}

TEST_F(ElementTest, BarTangentIsTheDerivativeOfItsEndForces) {
  Values u(12, 0.0);
  for (int i = 0; i < 12; ++i) u[i] = 0.2 * std::sin(2.0 + 3.0 * i);
  const auto forceAt = [&](const Values& displacement) {
    SetNodes({3, -2, 0.5});
    auto pBar = Make<CTrussElem>();
    Step(m_nodes, *pBar, displacement);
    Values force(12, 0.0);
    pBar->AssembleEndForces(force);
    return std::pair(std::move(pBar), force);
  };
  const auto [pBar, force] = forceAt(u);
  CMatrix tangent;
  pBar->FormTangentStiffness(tangent, u);
  const std::vector<int> places = GetPlaces(0);
  constexpr double h = 1e-5;
  for (int j = 0; j < 6; ++j) {
    Values plus = u, minus = u;
    plus[places[j]] += h;
    minus[places[j]] -= h;
    const Values up = forceAt(plus).second, down = forceAt(minus).second;
    for (int i = 0; i < 6; ++i) {
      const double dDerivative = (up[places[i]] - down[places[i]]) / (2 * h);
      EXPECT_NEAR(tangent[i][j], dDerivative, 1e-7 * GetScale(ToDense(tangent))) << i << "," << j;
    }
  }
}

TEST_F(ElementTest, BarStressEntersTheStiffnessWithTheFlagOnly) {
  SetNodes({2, 2, 2});
  const auto pBar = Make<CTrussElem>();
  const Values zero(12, 0.0);
  CMatrix tangent;
  pBar->FormTangentStiffness(tangent, zero);
  const Dense linear = ToDense(pBar->FormElementStiffness(false, false));
  ExpectNear(ToDense(tangent), linear, 1e-12 * GetScale(linear), "no stress");
  ExpectNear(ToDense(pBar->FormElementStiffness(true, true)), linear, 1e-12 * GetScale(linear), "no stress, flag");

  Values u(12, 0.0);
  u[6] = 0.01;
  pBar->ComputeInternalForce(u, false, false, false);
  const double L = std::sqrt(12.0), N = c_E * c_A / L * 0.01 / std::sqrt(3.0);
  EXPECT_NEAR(pBar->GetAxialForce(), N, 1e-6 * N);
  EXPECT_EQ(ToDense(pBar->FormElementStiffness(false, false)), linear);
  pBar->FormTangentStiffness(tangent, zero);
  const Dense flagged = ToDense(pBar->FormElementStiffness(true, false));
  for (int i = 0; i < 6; ++i) {
    for (int j = 0; j < 6; ++j) {
      const double stress = i == j ? N / L : std::abs(i - j) == 3 ? -N / L : 0.0;
      EXPECT_NEAR(flagged[i][j] - linear[i][j], stress, 1e-12 * GetScale(linear));
      EXPECT_NEAR(tangent[i][j], flagged[i][j], 1e-12 * GetScale(linear));
    }
  }
}

TEST_F(ElementTest, BeamAxialForceFollowsTheChord) {
  SetNodes({3, 0, 0});
  const auto pBeam = Make<CBeamElem>();
  Values step(12, 0.0), force(12, 0.0);
  for (int n = 0; n < 4; ++n) {
    step[6] = 1e-3;
    step[7] = 0.2;
    Step(m_nodes, *pBeam, step);
  }
  const double L = std::hypot(3.004, 0.8);
  EXPECT_NEAR(pBeam->GetLength(), L, 1e-12);
  EXPECT_NEAR(pBeam->GetAxialForce(), c_E * c_A * (L - 3.0) / 3.0, 1e-2);
  pBeam->AssembleEndForces(force);
  for (int k = 0; k < 3; ++k) EXPECT_NEAR(force[k] + force[k + 6], 0.0, 1e-5);

  // A tiny increment on an unloaded member is the linear solution; forces do not need the diagrams.
  SetNodes({3, -2, 0.5});
  Values du(12), linear(12, 0.0), incremental(12, 0.0);
  for (int i = 0; i < 12; ++i) du[i] = 1e-9 * std::sin(1.0 + i);
  for (const auto& pElement : MakeAll()) {
    SetNodes({3, -2, 0.5});
    std::fill(linear.begin(), linear.end(), 0.0);
    std::fill(incremental.begin(), incremental.end(), 0.0);
    pElement->ComputeInternalForce(du, false, false, false);
    pElement->AssembleEndForces(linear);
    pElement->ResetDiagrams();
    Step(m_nodes, *pElement, du);
    pElement->AssembleEndForces(incremental);
    for (int i = 0; i < 12; ++i) EXPECT_NEAR(incremental[i], linear[i], 1e-5) << pElement->GetTypeCode();
  }
}

TEST_F(ElementTest, EndForcesAreStiffnessTimesDisplacement) {
  Values u(12);
  for (int i = 0; i < 12; ++i) u[i] = 1e-3 * std::cos(3.0 * i);
  for (const Vector3& d : c_directions) {
    SetNodes(d);
    for (const auto& pElement : MakeAll()) {
      const std::vector<int> places = GetPlaces(pElement->GetTypeCode());
      for (const bool bShear : {false, true}) {
        Values own, force(12, 0.0);
        for (const int nPlace : places) own.push_back(u[nPlace]);
        const Values expected = Multiply(ToDense(pElement->FormElementStiffness(false, bShear)), own);
        pElement->ComputeInternalForce(u, false, bShear, false);
        pElement->ComputeInternalForce(u, false, bShear, false);  // replaces, does not add
        pElement->AssembleEndForces(force);
        for (std::size_t i = 0; i < places.size(); ++i) EXPECT_NEAR(force[places[i]], expected[i], 1e-5);
      }
    }
  }
}

// ---- Local axes ----

TEST(LocalAxesTest, Table) {
  struct Case {
    Vector3 d, y, z;
  };
  const Case cases[] = {{{5, 0, 0}, {0, 1, 0}, {0, 0, 1}},  {{-5, 0, 0}, {0, 1, 0}, {0, 0, -1}},
                        {{0, 0, 5}, {0, 1, 0}, {-1, 0, 0}}, {{0, 0, -5}, {0, 1, 0}, {1, 0, 0}},
                        {{0, 5, 0}, {1, 0, 0}, {0, 0, -1}}, {{0, -5, 0}, {1, 0, 0}, {0, 0, 1}}};
  for (const Case& c : cases) {
    const LocalAxes axes = FormLocalAxes(c.d, 1.0, 0.0);
    for (int k = 0; k < 3; ++k) {
      EXPECT_NEAR(axes[0][k], c.d[k] / 5, 1e-15);
      EXPECT_NEAR(axes[1][k], c.y[k], 1e-15);
      EXPECT_NEAR(axes[2][k], c.z[k], 1e-15);
    }
  }
}

TEST(LocalAxesTest, OrthonormalAndRightHanded) {
  for (const Vector3& d : c_directions) {
    const LocalAxes R = FormLocalAxes(d, 1.0, 0.0);
    EXPECT_NEAR(d[1] == 0.0 ? 0.0 : R[1][2], 0.0, 1e-15) << "local y is horizontal";
    for (int k = 0; k < 3; ++k) {
      const int a = (k + 1) % 3, b = (k + 2) % 3;
      for (int j = 0; j < 3; ++j) {
        EXPECT_NEAR(R[k][0] * R[j][0] + R[k][1] * R[j][1] + R[k][2] * R[j][2], j == k ? 1.0 : 0.0, 1e-14);
        EXPECT_NEAR(R[k][j], R[a][(j + 1) % 3] * R[b][(j + 2) % 3] - R[a][(j + 2) % 3] * R[b][(j + 1) % 3], 1e-14);
      }
    }
  }
}

TEST(LocalAxesTest, TurnedSectionKeepsTheSumInItsZComponent) {
  // Along X: h = Y, w = Z. At 90 degrees y = -Z; z_X, z_Y from y and w, z_Z = (s + c) w_Z = 1.
  const LocalAxes R = FormLocalAxes({5, 0, 0}, 0.0, 1.0);
  EXPECT_EQ(R[1], (Vector3{0, 0, -1}));
  EXPECT_EQ(R[2], (Vector3{0, 0, 1}));
  // At 30 degrees the usual rotation would give z = (0, 0.5, 0.866).
  const double c = std::sqrt(0.75), s = 0.5;
  const LocalAxes Q = FormLocalAxes({5, 0, 0}, c, s);
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
  EXPECT_EQ(ToDense(pBeam->FormLocalStiffness(true)), ToDense(pBeam->FormLocalStiffness(false)));
  EXPECT_EQ(pBeam->GetArea(), c_A);
  EXPECT_EQ(pBeam->GetLength(), 4.0);
  EXPECT_EQ(pBeam->GetMaterialNo(), 0);
  EXPECT_EQ(pBeam->GetElemNo(), 6);

  const Dense K = ToDense(pBeam->FormLocalStiffness(false));
  pBeam->ZeroArea();
  EXPECT_EQ(pBeam->GetArea(), 0.0);
  Dense expected = K;
  expected[0][0] = expected[0][6] = expected[6][0] = expected[6][6] = 0.0;
  ExpectNear(ToDense(pBeam->FormLocalStiffness(false)), expected, 0.0, "no area");
  pBeam->RestoreArea();
  EXPECT_EQ(ToDense(pBeam->FormLocalStiffness(false)), K);

  for (const auto& [dIx, dUsed] : {std::pair(0.0, 5.0), {1e-15, 5.0}, {-1e-15, 5.0}, {2e-15, 2e-15}, {c_J, c_J}}) {
    data.dIx = dIx;
    const auto pOther = Make<CBeamElem>(data);
    EXPECT_DOUBLE_EQ(pOther->FormLocalStiffness(false)[3][3], c_G * dUsed / 4.0);
    EXPECT_DOUBLE_EQ(pOther->FormMassMatrix(true, false)[3][3], c_rho * dUsed * 4.0 / 3.0);
  }
  SetMaterial(0.5);
  EXPECT_DOUBLE_EQ(Make<CBeamElem>()->FormLocalStiffness(false)[3][3], c_E / 3.0 * c_J / 4.0);

  const CMatrix& shared = pBeam->FormElementStiffness(false, false);
  EXPECT_GT(shared[0][0], 0.0);
  pBeam->ResetWorkMatrices();
  EXPECT_EQ(GetScale(ToDense(shared)), 0.0);
}

TEST_F(ElementTest, BarOfNoAreaCarriesNothing) {
  SetNodes({4, 0, 0});
  const auto pBar = Make<CTrussElem>();
  Values u(12, 0.0), force(12, 0.0);
  u[6] = 0.01;
  pBar->ZeroArea();
  pBar->ComputeInternalForce(u, false, false, true);
  pBar->AssembleEndForces(force);
  EXPECT_EQ(force, Values(12, 0.0));
  EXPECT_EQ(ToDense(pBar->FormElementStiffness(true, false)), Dense(6, Values(6, 0.0)));
  CMatrix D;
  pBar->FormConstitutive(D);
  EXPECT_EQ(ToDense(D), (Dense{{c_E}}));
}

TEST_F(ElementTest, NumberZeroIsARealEquationAndHingedRotationsAreLeftOut) {
  SetNodes({3, -2, 0.5});
  Diagram unused;
  for (const auto& pElement : MakeAll()) {
    const std::vector<int> places = GetPlaces(pElement->GetTypeCode());
    std::vector<int> heights(12, 1), expected(12, 1);
    for (const int nPlace : places) expected[nPlace] = nPlace + 1;
    pElement->AddToBandwidth(heights);
    EXPECT_EQ(heights, expected) << pElement->GetTypeCode();

    std::vector<int> diagonal(12);
    for (int i = 0; i < 12; ++i) diagonal[i] = i * (i + 3) / 2;
    SparseMatrix K, M;
    for (SparseMatrix* pMatrix : {&K, &M}) {
      pMatrix->SetProfile(12, diagonal);
      pMatrix->Fill(0.0);
    }
    pElement->AssembleStiffness(K, false, true);
    pElement->AssembleMass(M, true);
    const Dense k = ToDense(pElement->FormElementStiffness(false, true));
    const Dense m = ToDense(pElement->FormMassMatrix(true, true));
    for (std::size_t i = 0; i < places.size(); ++i) {
      for (std::size_t j = 0; j < places.size(); ++j) {
        EXPECT_EQ(K(places[i], places[j]), k[i][j]);
        EXPECT_EQ(M(places[i], places[j]), m[i][j]);
      }
    }
    EXPECT_NE(K(0, 0), 0.0);
    int nI = -1, nJ = -1;
    EXPECT_EQ(pElement->GetNodes(nI, nJ), 2);
    EXPECT_EQ(nI * 10 + nJ, 1);
    // A vector that ends early counts as zero behind its end.
    pElement->ComputeInternalForce(Values(3, 0.0), false, false, true);
    EXPECT_EQ(pElement->GetForceDiagram(unused, unused, unused, unused, unused), 0.0);
  }
}

std::string Write(const std::function<void(CTextWriter&)>& write) {
  std::ostringstream strm;
  CTextWriter out(strm);
  write(out);
  out.Flush();
  return strm.str();
}

TEST_F(ElementTest, ResultLines) {
  SetNodes({4, 0, 0});
  ElementData data = GetData();
  data.dShearCoefficient = 2.0;
  const auto pBeam = Make<CBeamElem>(data);
  EXPECT_EQ(Write([&](CTextWriter& out) { pBeam->OutputMaterial(out); }),
            "Beam  面积:0.01  绕X轴惯性矩:3e-05  绕Y轴惯性矩:2e-05  绕Z轴惯性矩:1.2e-05\n"
            "截面修正系数:2  材料类型编号:0                节点号:1  2\n");
  Values u(12, 0.0);
  u[6] = 4.0 / (c_E * c_A) * 1234.5678;
  pBeam->ComputeInternalForce(u, false, false, true);
  const auto repeat = [](const std::string& strValue) {
    std::string strRow;
    for (int p = 0; p < 21; ++p) strRow += strValue + std::string(15 - strValue.size(), ' ');
    return strRow + "\n";
  };
  std::string strExpected = "N=  1234.568       \n";
  for (const char* strLabel : {"MYZ:  ", "MZX:  ", "MXY:  ", "Qy:   ", "Qz:   ", "Fy:   ", "Fz:   "}) {
    strExpected += strLabel + repeat("0.000");
  }
  EXPECT_EQ(Write([&](CTextWriter& out) { pBeam->OutputInternalForce(out); }), strExpected);

  const auto pBar = Make<CTrussElem>();
  EXPECT_EQ(Write([&](CTextWriter& out) { pBar->OutputMaterial(out); }),
            "Truss  面积:0.01  材料类型编号:0  节点号:1  2\n");
  pBar->ComputeInternalForce(u, false, false, true);
  EXPECT_EQ(Write([&](CTextWriter& out) { pBar->OutputInternalForce(out); }),
            "---------输出第7号杆单元内力--------\nN = 1234.568       \n");
  pBar->ResetDiagrams();
  EXPECT_EQ(pBar->GetAxialForce(), 0.0);
}

TEST_F(ElementTest, ConsoleTexts) {
  SetNodes({4, 0, 0});
  const auto pBar = Make<CTrussElem>();
  const auto pBeam = Make<CBeamHingeLeft>();
  SparseMatrix equilibrium;
  pBar->AssembleEquilibrium(equilibrium);
  pBeam->AssembleEquilibrium(equilibrium);
  pBeam->ComputeInternalForce(Values(12, 0.0), false, false, true);
  EXPECT_EQ(m_platform.GetConsole(),
            "读入杆单元节点号\n读取梁单元节点号\n将索单元7组装进平衡矩阵\n将第7号梁单元组装进平衡矩阵\n");
}

TEST_F(ElementTest, TraceVocabulary) {
  SetNodes({4, 0, 0});
  const auto all = MakeAll();  // truss, beam, left, right, both
  struct Case {
    ElementStep step;
    std::vector<std::string> texts;
  };
  const Case cases[] = {
      {ElementStep::FormStiffness,
       {"", "", "形成第7号左端铰接梁单元刚度矩阵", "形成第7号右端铰接梁单元刚度矩阵",
        "形成第7号左端铰接梁单元刚度矩阵"}},  // the last one is deliberate
      {ElementStep::FormConsistentMass,
       {"形成第7号杆单元一致质量矩阵", "形成第7号梁单元一致质量矩阵", "形成第7号左端铰接梁单元一致质量矩阵",
        "形成第7号右端铰接梁单元一致质量矩阵", "形成第7号两端铰接梁单元一致质量矩阵"}},
      {ElementStep::FormLumpedMass,
       {"形成第7号杆单元集中质量矩阵", "", "形成第7号左端铰接梁单元质量质量矩阵", "形成第7号右端铰接梁单元集中质量矩阵",
        "形成第7号两端铰接梁单元质量质量矩阵"}},
      {ElementStep::AssembleStiffness,
       {"将第7号杆单元组装进总体刚度矩阵", "将第7号梁单元组装进总体刚度矩阵", "将第7号左端铰接梁单元组装进总体刚度矩阵",
        "将第7号右端铰接梁单元组装进总体刚度矩阵", "将第7号两端铰接梁单元组装进总体刚度矩阵"}},
      {ElementStep::AddToBandwidth,
       {"加入第7号杆单元，计算总刚度矩阵带宽", "加入第7号梁单元，计算总刚度矩阵带宽",
        "加入第7号左端铰接梁单元，计算总刚度矩阵带宽", "加入第7号右端铰接梁单元，计算总刚度矩阵带宽",
        "加入第7号两端铰接梁单元，计算总刚度矩阵带宽"}}};
  const int typeCodes[] = {0, 1, 2, 3, 6};
  for (std::size_t n = 0; n < all.size(); ++n) {
    EXPECT_EQ(all[n]->GetTypeCode(), typeCodes[n]);
    for (const Case& c : cases) EXPECT_EQ(GetProgressText(*all[n], c.step), c.texts[n]);
  }
}

TEST_F(ElementTest, TangentTraceIsUnconditional) {
  SetNodes({2, 0, 0});
  const auto pBar = Make<CTrussElem>();
  const std::string strBefore = m_platform.GetConsole();
  Values u(12, 0.0);
  u[6] = 1.0;
  u[7] = -0.5;
  CMatrix tangent;
  pBar->FormTangentStiffness(tangent, u);
  const auto number = [](const char* strText) {
    return std::string(strText) + std::string(15 - std::strlen(strText), ' ');
  };
  const auto entries = [&](const std::string& strName, int nRows, int nCols, const auto& value) {
    std::string strLines;
    for (int i = 0; i < nRows; ++i) {
      for (int j = 0; j < nCols; ++j) {
        strLines += strName + "(" + std::to_string(i) + "," + std::to_string(j) + ")=" + number(value(i, j)) + "\n";
      }
    }
    return strLines + "---------------------------\n";
  };
  std::string strExpected = "adNodeDisp----------\n";
  for (const char* strValue : {"0.00000", "0.00000", "0.00000", "1.00000", "-0.500000", "0.00000"}) {
    strExpected += number(strValue) + "\n";
  }
  strExpected += "----------------\n-----------matT------------\n";
  strExpected += entries("matT", 6, 6, [](int i, int j) { return i == j ? "1.00000" : "0.00000"; });
  strExpected += "-----------matA------------\n";
  const char* a[] = {"0.500000", "-0.250000", "0.00000"};
  strExpected += entries("matA", 1, 3, [&](int, int j) { return a[j]; });
  strExpected += "-----------matG------------\n";
  strExpected += entries("matG", 3, 6, [](int i, int j) {
    return j == i ? "-0.500000" : j == i + 3 ? "0.500000" : "0.00000";
  });
  strExpected += "-----------matBnl------------\n";
  const char* b[] = {"-0.250000", "0.125000", "0.00000", "0.250000", "-0.125000", "0.00000"};
  strExpected += entries("matBnl", 1, 6, [&](int, int j) { return b[j]; });
  EXPECT_EQ(m_platform.GetConsole().substr(strBefore.size()), strExpected);
}

}  // namespace
}  // namespace skyframe
