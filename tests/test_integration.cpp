// Direct integration: constants, order and energy of the schemes, whole runs on the analysis model.

#include <cmath>
#include <limits>
#include <numbers>

#include "HostModel.h"
#include "TestPlatform.h"
#include "skyframe/history/GroundMotion.h"
#include "skyframe/history/Integrators.h"
#include "skyframe/history/NonlinearNewmark.h"
#include "skyframe/model/AnalysisModel.h"

namespace skyframe {
namespace {

// --- constants

TEST(Rayleigh, Coefficients) {
  const struct {
    std::vector<double> omega;
    double zeta1, zeta2, dMass, dStiffness;
  } cases[] = {
      {{10, 25}, 0.02, 0.03, 0.1904762, 0.00209524},
      {{10, 10, 10, 25}, 0.02, 0.03, 0.1904762, 0.00209524},  // equal frequencies are skipped
      {{10, 25}, 0.0, 0.0, 0.0, 0.0},
      {{10, 10}, 0.02, 0.03, 0.0, 0.0},
      {{10}, 0.02, 0.03, 0.0, 0.0},
      {{}, 0.02, 0.03, 0.0, 0.0},
  };
  for (const auto& c : cases) {
    const RayleighCoefficients found = FormRayleigh(c.omega, c.zeta1, c.zeta2);
    EXPECT_NEAR(found.dMass, c.dMass, 1e-7);
    EXPECT_NEAR(found.dStiffness, c.dStiffness, 1e-8);
  }
}

TEST(Rayleigh, GivesBothRatiosBack) {
  const double w1 = 3.7, w2 = 21.0;
  const RayleighCoefficients r = FormRayleigh(std::vector<double>{w1, w1, w2}, 0.02, 0.07);
  EXPECT_NEAR(r.dMass / (2 * w1) + r.dStiffness * w1 / 2, 0.02, 1e-15);
  EXPECT_NEAR(r.dMass / (2 * w2) + r.dStiffness * w2 / 2, 0.07, 1e-15);
}

TEST(StepConstants, TrapezoidalRuleAndWilson) {
  const double dt = 0.02;
  const NewmarkConstants n(0.25, 0.5, dt);
  EXPECT_DOUBLE_EQ(n.a0, 4 / (dt * dt));
  EXPECT_DOUBLE_EQ(n.a1, 2 / dt);
  EXPECT_DOUBLE_EQ(n.a2, 4 / dt);
  EXPECT_EQ(n.a3, 1.0);
  EXPECT_EQ(n.a4, 1.0);
  EXPECT_EQ(n.a5, 0.0);
  EXPECT_DOUBLE_EQ(n.a6, 0.01);
  EXPECT_DOUBLE_EQ(n.a7, 0.01);
  const WilsonConstants w(1.4, dt);
  EXPECT_NEAR(w.a0, 6 / (0.028 * 0.028), 1e-9);
  EXPECT_NEAR(w.a4 * 1.4, w.a0, 1e-9);
  EXPECT_NEAR(w.a6, -1.142857, 1e-6);
}

// --- schemes on two degrees of freedom: M = diag(2, 1), K = [6 -2; -2 4], omega^2 = 2 and 5

class TwoDof {
 public:
  TwoDof(double a0, double a1, double alpha, double beta) {
    Set(m_K, 6.0, -2.0, 4.0);
    Set(m_M, 2.0, 0.0, 1.0);
    const double c[3] = {2.0 * alpha + 6.0 * beta, -2.0 * beta, alpha + 4.0 * beta};
    Set(m_C, c[0], c[1], c[2]);
    Set(m_effective, 6.0 + a0 * 2.0 + a1 * c[0], -2.0 + a1 * c[1], 4.0 + a0 + a1 * c[2]);
    m_massRows = CRowMatrix(m_M, 2);
    m_dampingRows = CRowMatrix(m_C, 2);
  }

  double GetEnergy(const MotionState& s) const {
    const auto& [u, v, a] = s;
    return 0.5 * (2.0 * v[0] * v[0] + v[1] * v[1] + 6.0 * u[0] * u[0] - 4.0 * u[0] * u[1] + 4.0 * u[1] * u[1]);
  }

  CRowMatrix m_massRows, m_dampingRows;
  SparseMatrix m_effective;

 private:
  static void Set(SparseMatrix& A, double d0, double dOff, double d1) {
    A.SetProfile(2, std::vector<int>{0, 2});
    A.Fill(0.0);
    A(0, 0) = d0;
    A(0, 1) = dOff;
    A(1, 1) = d1;
  }
  SparseMatrix m_K, m_M, m_C;
};

constexpr double c_dLoadFrequency = 1.3;
constexpr double c_dAlpha = 0.1, c_dBeta = 0.03;

double GetLoad(double t) { return 10.0 * (1.0 - std::cos(c_dLoadFrequency * t)); }

/// u_2(t) under the load on the second degree of freedom, by modal superposition in closed form.
double GetExact(double t) {
  const double phi[2] = {1.0 / std::sqrt(3.0), -std::sqrt(2.0 / 3.0)};  // second entries of the modes
  const double omega2[2] = {2.0, 5.0};
  double dSum = 0.0;
  for (int i = 0; i < 2; ++i) {
    const double w2 = omega2[i], w = c_dLoadFrequency, p = 10.0 * phi[i];
    const double damping = c_dAlpha + c_dBeta * w2;  // 2 zeta omega
    const double wd = std::sqrt(w2 - damping * damping / 4);
    const double D = (w2 - w * w) * (w2 - w * w) + damping * damping * w * w;
    const double A = p * (w2 - w * w) / D, B = p * damping * w / D;
    const double c1 = A - p / w2, c2 = (B * w + damping / 2 * c1) / wd;
    const double q = p / w2 - A * std::cos(w * t) - B * std::sin(w * t) +
                     std::exp(-damping / 2 * t) * (c1 * std::cos(wd * t) + c2 * std::sin(wd * t));
    dSum += phi[i] * q;
  }
  return dSum;
}

template <class Integrator, class Constants>
double GetError(const Constants& constants, int nSteps, double dt) {
  TwoDof system(constants.a0, constants.a1, c_dAlpha, c_dBeta);
  Integrator integrator(constants, system.m_massRows, system.m_dampingRows, system.m_effective);
  double dLargest = 0.0;
  for (int k = 1; k <= nSteps; ++k) {
    EXPECT_TRUE(integrator.StepForce(std::vector<double>{0.0, GetLoad(k * dt)}));
    dLargest = std::max(dLargest, std::abs(integrator.GetState().u[1] - GetExact(k * dt)));
  }
  return dLargest;
}

TEST(Schemes, ConvergeWithOrderTwo) {
  const double T = 12.0;
  double dNewmark = 0.0, dWilson = 0.0;
  for (int n = 200; n <= 1600; n *= 2) {
    const double dt = T / n;
    const double dNewmarkNext = GetError<CNewmarkIntegrator>(NewmarkConstants(0.25, 0.5, dt), n, dt);
    const double dWilsonNext = GetError<CWilsonIntegrator>(WilsonConstants(1.4, dt), n, dt);
    if (n > 200) {
      EXPECT_NEAR(std::log2(dNewmark / dNewmarkNext), 2.0, 0.05) << n;
      EXPECT_NEAR(std::log2(dWilson / dWilsonNext), 2.0, 0.1) << n;
    }
    dNewmark = dNewmarkNext;
    dWilson = dWilsonNext;
  }
  EXPECT_LT(dNewmark, 1e-3);
  EXPECT_LT(dWilson, 5e-3);
}

TEST(Schemes, TrapezoidalRuleKeepsTheEnergyOthersLoseIt) {
  const double dt = 0.3;
  const auto getRatio = [dt](double alpha, double delta) {
    const NewmarkConstants constants(alpha, delta, dt);
    TwoDof system(constants.a0, constants.a1, 0.0, 0.0);
    CNewmarkIntegrator integrator(constants, system.m_massRows, system.m_dampingRows, system.m_effective);
    for (int k = 0; k < 3; ++k) EXPECT_TRUE(integrator.StepGround(std::vector<double>{1.0, -2.0}));
    EXPECT_TRUE(integrator.StepForce(std::vector<double>{0.0, 0.0}));
    const double dStart = system.GetEnergy(integrator.GetState());
    for (int k = 0; k < 2000; ++k) EXPECT_TRUE(integrator.StepForce(std::vector<double>{0.0, 0.0}));
    return system.GetEnergy(integrator.GetState()) / dStart;
  };
  EXPECT_NEAR(getRatio(0.25, 0.5), 1.0, 1e-11);
  EXPECT_LT(getRatio(0.3025, 0.6), 0.01);
}

TEST(Schemes, WilsonExtrapolatesTheLoadAndReversesItAfterTheLastBlock) {
  const double dt = 0.01;
  const WilsonConstants c(1.4, dt);
  SparseMatrix M, K;
  for (SparseMatrix* p : {&M, &K}) {
    p->SetProfile(1, std::vector<int>{0});
    p->Fill(0.0);
  }
  K(0, 0) = 1.0;  // no mass: the displacement at t + theta dt is the extrapolated load
  const CRowMatrix rows(M, 1);
  CWilsonIntegrator integrator(c, rows, rows, K);
  MotionState before(1);
  for (const auto& [dLoad, dAhead] : {std::pair{1.0, 1.4}, {0.0, -0.4}, {0.0, 0.0}, {-2.0, -2.8}}) {
    ASSERT_TRUE(integrator.StepForce(std::vector<double>{dLoad}));
    const MotionState& s = integrator.GetState();
    const double dFound = (s.a[0] - c.a5 * before.v[0] - c.a6 * before.a[0]) / c.a4 + before.u[0];
    EXPECT_NEAR(dFound, dAhead, 1e-9);
    before = s;
  }
}

TEST(Schemes, SingularSystemEndsTheRun) {
  test::CTestPlatform platform;
  SparseMatrix zero;
  zero.SetProfile(1, std::vector<int>{0});
  zero.Fill(0.0);
  const CRowMatrix rows(zero, 1);
  CNewmarkIntegrator integrator(NewmarkConstants(0.25, 0.5, 0.1), rows, rows, zero);
  EXPECT_FALSE(integrator.StepForce(std::vector<double>{1.0}));
  EXPECT_EQ(platform.GetMessages(), std::vector<std::string>{"结构几何可变"});
}

/// Exact step of u'' + 2 zeta w u' + w^2 u = p0 + s tau. Source: Nigam and Jennings (1969).
void StepExactly(double w, double zeta, double dt, double p0, double p1, double& u, double& v) {
  const double s = (p1 - p0) / dt, wd = w * std::sqrt(1 - zeta * zeta);
  const auto particular = [&](double tau) { return (p0 + s * tau) / (w * w) - 2 * zeta * s / (w * w * w); };
  const double A = u - particular(0), B = (v - s / (w * w) + zeta * w * A) / wd;
  const double e = std::exp(-zeta * w * dt), co = std::cos(wd * dt), si = std::sin(wd * dt);
  u = e * (A * co + B * si) + particular(dt);
  v = e * (-zeta * w * (A * co + B * si) + wd * (B * co - A * si)) + s / (w * w);
}

TEST(Schemes, ElCentroAgainstPiecewiseExactIntegration) {
  const auto record = ReadAccelerationRecord(SKYFRAME_SOURCE_DIR "/data/GroundAccData/Elcentro.txt", 3.0);
  ASSERT_TRUE(record);
  const int nParts = 20;  // of the record's interval
  const double w = 2 * std::numbers::pi, zeta = 0.05, dt = 0.02 / nParts;
  const NewmarkConstants c(0.25, 0.5, dt);
  SparseMatrix A;
  const auto make = [&A](double dValue) {
    A.SetProfile(1, std::vector<int>{0});
    A.Fill(dValue);
    return CRowMatrix(A, 1);
  };
  const CRowMatrix M = make(1.0), C = make(2 * zeta * w);
  A.Fill(w * w + c.a0 + c.a1 * 2 * zeta * w);
  CNewmarkIntegrator integrator(c, M, C, A);
  double u = 0.0, v = 0.0, dPrevious = 0.0, dLargest = 0.0, dError = 0.0;
  for (const double dNext : *record) {
    for (int part = 1; part <= nParts; ++part) {
      const double g = dPrevious + (dNext - dPrevious) * part / nParts;
      ASSERT_TRUE(integrator.StepGround(std::vector<double>{-g}));
    }
    StepExactly(w, zeta, 0.02, -dPrevious, -dNext, u, v);
    dPrevious = dNext;
    dLargest = std::max(dLargest, std::abs(u));
    dError = std::max(dError, std::abs(u - integrator.GetState().u[0]));
  }
  EXPECT_GT(dLargest, 0.05);
  EXPECT_LT(dError, 1e-4 * dLargest);
}

TEST(IterationTests, Criteria) {
  const struct {
    int nCriterion;
    double dResidual, dForce, dIncrement, dReference;
    bool bConverged;
  } cases[] = {{0, 0.1, 1, 9, 1, true}, {0, 0.11, 1, 0, 1, false}, {1, 9, 1, 0.1, 1, true},   {1, 0, 1, 0.11, 1, false},
               {2, 0.1, 1, 9, 9, true}, {2, 0.2, 1, 0, 9, false},  {2, 9, 1e-15, 9, 9, true}, {3, 9, 9, 0.1, 1, true},
               {3, 9, 9, 1, 1, false},  {3, 9, 9, 9, 1e-15, true}, {4, 0, 0, 0, 0, false}};
  for (const auto& c : cases) {
    const IterationTest test = {c.nCriterion, 0.1};
    EXPECT_EQ(test.IsConverged(c.dResidual, c.dForce, c.dIncrement, c.dReference), c.bConverged) << c.nCriterion;
  }
  // a large tolerance does not accept a value that has not come down
  EXPECT_FALSE((IterationTest{2, 5.0}).IsConverged(1.0, 1.0, 0, 0));
  EXPECT_FALSE((IterationTest{3, 5.0}).IsConverged(0, 0, 1.0, 1.0));
}

TEST(NonlinearScheme, StepsSolveTheDiscreteEquilibrium) {
  // m u'' + u + 2 u^3 = P0 - m g: after every step the trapezoidal rule holds in the residual.
  SparseMatrix A;
  A.SetProfile(1, std::vector<int>{0});
  A.Fill(0.5);
  const CRowMatrix M(A, 1);
  A.Fill(0.0);
  const CRowMatrix C(A, 1);
  const NewmarkConstants c(0.25, 0.5, 0.1);
  SparseMatrix inertia;
  inertia.SetProfile(1, std::vector<int>{0});
  inertia.Fill(0.5 * c.a0);
  double dPosition = 0.0;
  std::vector<double> resistance(1);
  NonlinearStructure structure;
  structure.formTangent = [&](SparseMatrix& K) {
    K.SetProfile(1, std::vector<int>{0});
    K.Fill(1.0 + 6.0 * dPosition * dPosition);
    return true;
  };
  structure.move = [&](std::span<const double> increment) -> std::span<const double> {
    dPosition += increment[0];
    resistance[0] = dPosition + 2.0 * std::pow(dPosition, 3);
    return resistance;
  };
  CNonlinearNewmark integrator(c, {{0, 1e-12}, 50}, M, C, inertia, structure, std::vector<double>{0.7},
                               std::vector<double>{0.0});
  for (int k = 0; k < 100; ++k) {
    const double g = std::sin(0.3 * k);
    ASSERT_TRUE(integrator.StepGround(std::vector<double>{g}));
    EXPECT_GT(integrator.GetIterations(), 1);
    const auto& [u, v, a] = integrator.GetState();
    EXPECT_NEAR(u[0], dPosition, 1e-12);
    EXPECT_NEAR(0.5 * a[0] + u[0] + 2 * std::pow(u[0], 3), 0.7 + 0.5 * g, 1e-10) << k;
  }
  EXPECT_GT(std::abs(dPosition), 0.01);
}

TEST(RowMatrix, MultipliesLikeTheSkyline) {
  SparseMatrix A;
  A.SetProfile(4, std::vector<int>{0, 1, 4, 7});
  A.Fill(0.0);
  const double values[4][4] = {{4, 0, 1, 0}, {0, 5, -2, 3}, {1, -2, 6, 0}, {0, 3, 0, 0}};
  for (int i = 0; i < 4; ++i) {
    for (int j = 0; j <= i; ++j) A(i, j) = values[i][j];
  }
  for (const int n : {0, 1, 3, 4}) {
    const CRowMatrix rows(A, n);
    EXPECT_EQ(rows.GetOrder(), n);
    const std::vector<double> x = {1, 2, 3, 4};
    std::vector<double> y(static_cast<std::size_t>(n), 10.0);
    rows.MultiplyAdd(x, y);
    for (int i = 0; i < n; ++i) {
      double dSum = 10.0;
      for (int j = 0; j < n; ++j) dSum += values[i][j] * x[static_cast<std::size_t>(j)];
      EXPECT_EQ(y[static_cast<std::size_t>(i)], dSum);
    }
  }
}

// --- runs on the model

class TimeHistory : public testing::Test {
 protected:
  /// Mode file that fits the host's model.
  void WriteModes(const std::vector<double>& omega) const {
    std::ostringstream strm;
    int nRigid = 0;
    for (int i = 1; i <= ABCD.m_nNodes; ++i) nRigid += ABCD.m_nJoint[i] == 1 ? 1 : 0;
    strm.precision(17);
    strm << "The_Data_of_Zan's_Mode_Analysis\n\n1/1/2026  0:0:0\nv1.0\n\n"
         << ABCD.m_nElements << ' ' << ABCD.m_nNodes << ' ' << nRigid << ' ' << ABCD.m_nNodes - nRigid << ' '
         << omega.size() << " 0\nEigen_And_Freq:\n";
    for (std::size_t i = 0; i < omega.size(); ++i) strm << i + 1 << ' ' << omega[i] << ' ' << omega[i] / 6.28 << '\n';
    m_folder.Write(".mode", strm.str());
  }

  /// A bar along X, fixed at node 1, guided in X at node 2: k = 1.03e9 (A / 0.01 m2) N/m; 100 kN of
  /// load that counts as mass.
  void MakeBar(double dArea = 10000.0) {
    m_host.SetSection(1, 2, dArea);
    m_host.AddNode(0, 0, 0, test::c_nPinned, "111000");
    m_host.AddNode(2, 0, 0, test::c_nPinned, "011000");
    m_host.AddElement(test::c_nBar, 1, 2);
    m_host.AddLoad(0, 2, c_nDofZ, 100.0);
  }

  /// Two bars to an apex 1 m above the supports, half-span 4 m, EA = 2.06e8 N.
  void MakeArch() {
    m_host.SetSection(1, 2, 1000.0);
    m_host.AddNode(-4, 0, 0, test::c_nPinned, "111000");
    m_host.AddNode(0, 0, 1, test::c_nPinned, "010000");
    m_host.AddNode(4, 0, 0, test::c_nPinned, "111000");
    m_host.AddElement(test::c_nBar, 1, 2);
    m_host.AddElement(test::c_nBar, 3, 2);
  }

  void Build() {
    m_model.BuildModel();
    ASSERT_TRUE(m_model.m_bValid);
  }

  static std::string MakeScript(int nBlocks, const std::string& strLine) {
    std::string strText = "/IMPULSELOAD/";
    for (int i = 0; i < nBlocks; ++i) strText += strLine + "##\r\n";
    return strText + "/END/";
  }

  double GetRow(int nQuantity, int k, int nColumn) const {
    return m_model.m_history.values[static_cast<std::size_t>(nQuantity)][k][nColumn];
  }

  test::CTestPlatform m_platform;
  test::CHostModel m_host;
  const test::CJobFolder m_folder{"integration"};
  CAnalysisModel m_model;
};

TEST_F(TimeHistory, StaticLoadsBecomeMass) {
  m_host.SetSection(1, 2, 10000.0, 1e8, 1e8, 1e8);
  m_host.AddNode(0, 0, 0, test::c_nRigid, "111111");
  m_host.AddNode(2, 0, 0);
  m_host.AddNode(4, 0, 0, test::c_nPinned, "001000");
  m_host.AddElement(test::c_nBeam, 1, 2);
  m_host.AddElement(test::c_nBar, 2, 3);
  m_host.AddLoad(0, 2, c_nDofZ, 3.0);
  m_host.AddLoad(0, 2, c_nDofX, 50.0);  // only vertical loads count
  m_host.AddLoad(0, 2, c_nDofRY, 50.0);
  m_host.AddLoad(1, 2, c_nDofZ, 4.0);
  m_host.AddLoad(1, 3, c_nDofZ, 2.0);     // restrained in Z, free in X and Y
  m_host.AddLoad(2, 2, c_nDofZ, 1000.0);  // not selected
  Build();
  m_model.m_nLoadCaseFlag[0] = m_model.m_nLoadCaseFlag[1] = 1;
  m_model.m_dLoadFactor[1] = 0.5;
  const auto getAdded = [this] {
    SparseMatrix M;
    M.SetProfile(m_model.GetTotalDofs(), m_model.GetDiagonalAddresses());
    M.Fill(0.0);
    m_model.AddStaticLoadMass(M);
    std::vector<double> diagonal;
    for (int i = 0; i < m_model.GetFreeDofs(); ++i) diagonal.push_back(M(i, i) * 9.81 / 1000.0);
    return diagonal;
  };
  // node 2: 3 + 0.5 * 4 kN; node 3: 0.5 * 2 kN
  const std::vector<double> expected = {5, 5, 5, 0, 0, 0, 1, 1};
  const std::vector<double> found = getAdded();
  ASSERT_EQ(found.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) EXPECT_NEAR(found[i], expected[i], 1e-12) << i;
  // downward loads add nothing
  m_model.m_dLoadFactor[0] = m_model.m_dLoadFactor[1] = -1.0;
  EXPECT_EQ(getAdded(), std::vector<double>(8, 0.0));
}

TEST_F(TimeHistory, OneBarUnderAStepLoad) {
  MakeBar();
  WriteModes({317.0546});
  const double P = 1.0e4, k = 1.03e9;
  m_folder.Write("impulseload.log", MakeScript(1000, "2 10 0 0 "));
  for (const bool bWilson : {false, true}) {
    CAnalysisModel model;
    model.BuildModel();
    model.m_nLoadCaseFlag[0] = 1;
    model.m_pDamping[0] = model.m_pDamping[1] = 0.0;
    model.m_dTimeStep = 0.001;
    model.m_dDuration = 1.0005;
    model.m_bLoadFromFile = 1;
    if (bWilson) {
      model.WilsonTheta(m_folder.GetJobPath());
    } else {
      model.NewmarkIntegration(m_folder.GetJobPath(), 0, 0);
    }
    ASSERT_TRUE(model.m_history.bComplete);
    ASSERT_EQ(model.m_history.nSteps, 1000);
    const CMatrix& X = model.m_history.values[c_nHistoryX];
    const CMatrix& N = model.m_history.values[c_nHistoryForce];
    EXPECT_NEAR(X[0][1], bWilson ? 1.57488e-7 : 2.38008e-7, 1e-12);
    EXPECT_NEAR(X[1][1], bWilson ? 1.08577e-6 : 1.16670e-6, 1e-11);
    double dLargest = 0.0;
    for (int i = 0; i < 1000; ++i) {
      dLargest = std::max(dLargest, X[i][1]);
      EXPECT_NEAR(N[i][0], k * X[i][1], 1e-6 * P);
      EXPECT_EQ(X[i][0], 0.0);
    }
    EXPECT_NEAR(dLargest, (bWilson ? dLargest : 1.988 * P / k), 0.0005 * P / k);
    EXPECT_EQ(COMDYN.m_nMethod, bWilson ? 0 : 1);
  }
  EXPECT_FALSE(m_folder.Has("_HisTime.txt"));
  EXPECT_TRUE(m_platform.GetMessages().empty());
}

TEST_F(TimeHistory, LoadsEndWithTheBlocks) {
  MakeBar();
  WriteModes({317.0});
  Build();
  m_model.m_dTimeStep = 0.001;
  m_model.m_dDuration = 0.0105;
  m_model.LoadScript = MakeScript(3, "2 10 0 0 ");
  m_model.NewmarkIntegration(m_folder.GetJobPath(), 0, 0);
  ASSERT_TRUE(m_model.m_history.bComplete);
  const std::string strConsole = m_platform.GetConsole();
  const auto count = [&](const std::string& strLine) {
    int nCount = 0;
    for (auto n = strConsole.find(strLine); n != std::string::npos; n = strConsole.find(strLine, n + 1)) ++nCount;
    return nCount;
  };
  EXPECT_EQ(count("获取荷载向量\n"), 3);
  EXPECT_EQ(count("荷载组装\n"), 9);
}

TEST_F(TimeHistory, OneBarUnderElCentro) {
  MakeBar(1.0);
  const double m = 100000.0 / 9.81 + 7900.0 * 1e-6 * 2.0 / 3.0, w = std::sqrt(1.03e5 / m), zeta = 0.05;
  WriteModes({w, w, 5.0 * w});
  Build();
  m_model.m_nLoadCaseFlag[0] = 1;
  m_model.m_pDamping[0] = m_model.m_pDamping[1] = zeta;
  m_model.m_dTimeStep = 0.02;
  m_model.m_dDuration = 35.001;  // beyond the record
  m_model.m_strQuakeFile = SKYFRAME_SOURCE_DIR "\\data\\GroundAccData\\Elcentro.txt";
  m_model.m_bQuakeDir = {1, 1, 1};
  m_model.m_dPeak = {2.0, 99.0, 99.0};
  m_model.NewmarkIntegration(m_folder.GetJobPath(), 0, 1);
  ASSERT_TRUE(m_model.m_history.bComplete);
  ASSERT_EQ(m_model.m_history.nSteps, 1750);

  auto record = *ReadAccelerationRecord(m_model.m_strQuakeFile, 2.0);
  record.resize(1750, 0.0);
  double u = 0.0, v = 0.0, dPrevious = 0.0, dLargest = 0.0, dError = 0.0;
  for (int k = 0; k < 1750; ++k) {
    const double dNext = record[static_cast<std::size_t>(k)];
    StepExactly(w, zeta, 0.02, -dPrevious, -dNext, u, v);
    dPrevious = dNext;
    dLargest = std::max(dLargest, std::abs(u));
    dError = std::max(dError, std::abs(u - GetRow(c_nHistoryX, k, 1)));
  }
  EXPECT_LT(dError, 0.01 * dLargest);
  EXPECT_EQ(COMDYN.m_nHistoryCount, 1750);
  EXPECT_EQ(COMDYN.m_dHistoryStep, 0.02);
  EXPECT_EQ(COMDYN.m_nMethod, 1);
  EXPECT_EQ(COMDYN.m_bNonlinear, 0);
  EXPECT_EQ(COMDYN.m_bHistoryAvailable, 1);
  EXPECT_TRUE(m_folder.Has("_HisTime.txt"));
}

TEST_F(TimeHistory, SmallNonlinearRunIsTheLinearOne) {
  m_host.SetSection(1, 2, 6000.0, 5e6, 2e7, 4e7);
  m_host.AddNode(0, 0, 0, test::c_nRigid, "111111");
  m_host.AddNode(0.2, 0.1, 3);
  m_host.AddNode(4, 0, 3.1);
  m_host.AddNode(4, 0.3, 0, test::c_nPinned, "111000");
  m_host.AddElement(test::c_nBeam, 1, 2);
  m_host.AddElement(test::c_nBeam, 2, 3);
  m_host.AddElement(test::c_nBeam, 3, 4);
  m_host.AddElement(test::c_nBar, 1, 3);
  WriteModes({60.0, 200.0});
  m_folder.Write("_Tacc.txt", "1 -3 2 5 -4 1 0 2 -1 -2 3 1");
  HistorySet linear;
  for (const int nAssumption : {0, 1}) {
    CAnalysisModel model;
    model.BuildModel();
    model.m_dTimeStep = 0.004;
    model.m_dDuration = 0.2;
    model.m_bLoadFromFile = 1;
    model.m_nQuakeMode = 1;
    model.m_dObliqueCoef = {0.6, 0.64, 0.48};
    model.m_dPeakOblique = 1e-2;
    model.m_nConvCriterion = 2;
    model.m_dConvTol = 1e-13;
    model.NewmarkIntegration(m_folder.GetJobPath(), nAssumption, 1);
    ASSERT_TRUE(model.m_history.bComplete);
    if (nAssumption == 0) {
      linear = model.m_history;
      continue;
    }
    for (std::size_t q = 0; q < 4; ++q) {
      double dLargest = 0.0, dDifference = 0.0;
      for (int k = 0; k < linear.nSteps; ++k) {
        for (int j = 0; j < 4; ++j) {
          dLargest = std::max(dLargest, std::abs(linear.values[q][k][j]));
          dDifference = std::max(dDifference, std::abs(linear.values[q][k][j] - model.m_history.values[q][k][j]));
        }
      }
      EXPECT_GT(dLargest, 0.0);
      EXPECT_LT(dDifference, 1e-5 * dLargest) << q;
    }
    EXPECT_EQ(COMDYN.m_bNonlinear, 1);
  }
}

/// Descent of the arch's apex under the load P, below the limit load.
double SolveArch(double P) {
  const double EA = 2.06e8, h = 1.0, L0 = std::sqrt(17.0);
  double dLow = -0.5, dHigh = h * (1.0 - 1.0 / std::sqrt(3.0));
  for (int i = 0; i < 200; ++i) {
    const double w = 0.5 * (dLow + dHigh);
    (EA * (2 * h * w - w * w) * (h - w) / (L0 * L0 * L0) < P ? dLow : dHigh) = w;
  }
  return 0.5 * (dLow + dHigh);
}

TEST_F(TimeHistory, ArchHoldsItsStaticState) {
  MakeArch();
  m_host.AddLoad(0, 2, c_nDofZ, -200.0);
  WriteModes({500.0, 5000.0});
  Build();
  m_model.m_nLoadCaseFlag[0] = 1;
  m_model.m_dTimeStep = 0.001;
  m_model.m_dDuration = 0.0205;
  m_model.m_nConvCriterion = 2;
  m_model.m_dConvTol = 1e-12;
  m_model.m_nMaxIter = 50;
  m_model.NewmarkIntegration(m_folder.GetJobPath(), 1, 1);  // no direction: no ground motion
  ASSERT_TRUE(m_model.m_history.bComplete);
  for (int k = 0; k < 20; ++k) {
    EXPECT_NEAR(GetRow(c_nHistoryZ, k, 1), -0.0359399, 1e-7) << k;
    EXPECT_NEAR(GetRow(c_nHistoryForce, k, 0), m_model.m_staticForce.at(0), 1.0) << k;
  }
  const double w = SolveArch(2.0e5), L2 = 16.0 + (1 - w) * (1 - w);
  EXPECT_NEAR(m_model.m_staticForce.at(1), 2.06e8 * (L2 - 17.0) / 34.0 * std::sqrt(L2 / 17.0), 1.0);
}

TEST_F(TimeHistory, ArchStaysOnItsPathUnderSlowLoad) {
  MakeArch();
  WriteModes({500.0, 5000.0});
  Build();
  const int N = 1000;
  const double m = 2.0 * 7900.0 * 1e-3 * std::sqrt(17.0) / 3.0;
  const double dPeak = 0.9 * 1131206.66 / m;  // downward: the ground moves up
  std::ostringstream strm;
  strm.precision(17);
  for (int k = 1; k <= N; ++k) strm << 0.5 * (1.0 - std::cos(std::numbers::pi * k / N)) << '\n';
  m_folder.Write("_Zacc.txt", strm.str());
  m_model.m_bLoadFromFile = 1;
  m_model.m_bQuakeDir = {0, 0, 1};
  m_model.m_dPeak = {1.0, 1.0, dPeak};
  m_model.m_pDamping[0] = m_model.m_pDamping[1] = 0.2;
  m_model.m_dTimeStep = 0.001;
  m_model.m_dDuration = 1.0005;
  m_model.m_nConvCriterion = 2;
  m_model.m_dConvTol = 1e-8;
  m_model.NewmarkIntegration(m_folder.GetJobPath(), 1, 1);
  ASSERT_TRUE(m_model.m_history.bComplete);
  for (int k = 199; k < N; k += 100) {
    const double P = m * dPeak * 0.5 * (1.0 - std::cos(std::numbers::pi * (k + 1) / N));
    const double w = SolveArch(P);
    EXPECT_NEAR(-GetRow(c_nHistoryZ, k, 1), w, 0.01 * w) << k;
    const double L2 = 16.0 + (1 - w) * (1 - w), force = 2.06e8 * (L2 - 17.0) / 34.0 * std::sqrt(L2 / 17.0);
    EXPECT_NEAR(GetRow(c_nHistoryForce, k, 0), force, 0.01 * std::abs(force)) << k;
    EXPECT_NEAR(GetRow(c_nHistoryX, k, 1), 0.0, 1e-9);
  }
}

TEST_F(TimeHistory, StepsAndEmptyRuns) {
  MakeBar();
  WriteModes({317.0});
  const struct {
    double dDuration, dTimeStep;
    int nSteps;
  } cases[] = {{0.05, 0.01, 5}, {0.049, 0.01, 4}, {0.3, 0.1, 2}, {0.005, 0.01, 0}, {1.0, 0.0, 0}, {1.0, -1.0, 0}};
  for (const auto& c : cases) {
    CAnalysisModel model;
    model.BuildModel();
    model.m_dDuration = c.dDuration;
    model.m_dTimeStep = c.dTimeStep;
    model.NewmarkIntegration(m_folder.GetJobPath(), 0, 1);
    EXPECT_TRUE(model.m_history.bComplete);
    EXPECT_EQ(model.m_history.nSteps, c.nSteps);
    EXPECT_EQ(COMDYN.m_nHistoryCount, c.nSteps);
  }
  EXPECT_EQ(m_folder.Read("_HisTime.txt"),
            "Total node number:  2\nTotal element number:  1\nTotal time step:  0\nTime increment(s):  -1\n"
            "Solution Method:  Newmark.\nSolution Assumption:  Linear.\n--\nNode No.     1\nNode No.     2\n"
            "Mem No.     1\n");
}

// --- failures: the messages, no histories, an older file untouched

TEST_F(TimeHistory, FailuresLeaveEverythingAsItWas) {
  MakeBar();
  const std::string strNoFile = "模态文件访问出错,计算终止!";
  const std::string strRunaway = "节点2的X向超过限定值1.0e10!\n结构几何可变，请检查！";
  const struct {
    const char* strName;
    bool bModes;
    int nMethod, nAssumption, bGround;
    std::string strScript;
    double dPeak;
    std::vector<std::string> messages;
  } cases[] = {
      {"no mode file", false, 1, 0, 1, "", 1.0, {strNoFile, "错误:模态未分析"}},
      {"no mode file, Wilson", false, 0, 0, 0, "", 1.0, {strNoFile, "错误:模态未分析"}},
      {"no script", true, 1, 0, 0, "", 1.0, {"冲击荷载数据文件读入有误"}},
      {"Wilson reads the file only", true, 0, 0, 0, "", 1.0, {"冲击荷载数据文件读入有误"}},
      {"tags in the wrong order", true, 1, 0, 0, "/END/ /IMPULSELOAD/", 1.0, {"冲击荷载数据文件读入有误"}},
      {"nodal forces are not nonlinear", true, 1, 1, 0, MakeScript(3, "2 1 0 0 "), 1.0, {}},
      {"nonlinear, but the script comes first", true, 1, 1, 0, "", 1.0, {"冲击荷载数据文件读入有误"}},
      {"no record", true, 1, 0, 1, "", 0.0, {"X方向加速度数据文件读入有误"}},
      {"runs away", true, 1, 0, 0, MakeScript(3, "2 1e20 0 0 "), 1.0, {strRunaway}},
      {"infinite force", true, 1, 0, 0, MakeScript(3, "2 1e999 0 0 "), 1.0, {strRunaway}},
      {"ground runs away", true, 1, 0, 1, "", -1e25, {strRunaway}},
      {"nonlinear ground runs away", true, 1, 1, 1, "", -1e25, {strRunaway}},
  };
  m_folder.Write("_HisTime.txt", "older");
  for (const auto& c : cases) {
    m_platform->Clear();
    if (c.bModes) WriteModes({317.0});
    CAnalysisModel model;
    model.BuildModel();
    model.m_dTimeStep = 0.01;
    model.m_dDuration = 0.05;
    model.m_strQuakeFile = m_folder.GetPath("_none.txt");
    if (c.dPeak != 0.0) {
      m_folder.Write("_record.txt", "1 1 1 1 1");
      model.m_strQuakeFile = m_folder.GetPath("_record.txt");
    }
    model.m_bQuakeDir = {1, 0, 0};
    model.m_dPeak = {c.dPeak, 1.0, 1.0};
    model.LoadScript = c.strScript;
    if (c.nMethod == 0) {
      model.WilsonTheta(m_folder.GetJobPath());
    } else {
      model.NewmarkIntegration(m_folder.GetJobPath(), c.nAssumption, c.bGround);
    }
    EXPECT_EQ(m_platform.GetMessages(), c.messages) << c.strName;
    EXPECT_FALSE(model.m_history.bComplete) << c.strName;
    EXPECT_EQ(model.m_history.nSteps, 0) << c.strName;
    EXPECT_EQ(COMDYN.m_bHistoryAvailable, 0) << c.strName;
    EXPECT_EQ(m_folder.Read("_HisTime.txt"), "older") << c.strName;
  }
  EXPECT_NE(m_platform.GetConsole().find("Couldn't open log file! \n"), std::string::npos);
}

TEST_F(TimeHistory, LargeNegativeDisplacementsPass) {
  MakeBar();
  WriteModes({317.0});
  Build();
  m_model.m_dTimeStep = 0.01;
  m_model.m_dDuration = 0.015;
  m_model.LoadScript = MakeScript(1, "2 -1e25 0 0 ");
  m_model.NewmarkIntegration(m_folder.GetJobPath(), 0, 0);
  ASSERT_TRUE(m_model.m_history.bComplete);
  EXPECT_LT(GetRow(c_nHistoryX, 0, 1), -1.0e10);
  EXPECT_TRUE(m_platform.GetMessages().empty());
}

TEST_F(TimeHistory, HistoriesBeyondTheMemoryAreRefused) {
  MakeBar();
  for (int i = 0; i < 1000; ++i) m_host.AddNode(0, 0, i);
  WriteModes({317.0});
  Build();
  m_model.m_dTimeStep = 1e-9;
  m_model.m_dDuration = 1e9;
  COMDYN.m_nHistoryCount = 7;
  m_model.NewmarkIntegration(m_folder.GetJobPath(), 0, 1);
  EXPECT_EQ(m_platform.GetMessages(), std::vector<std::string>{"时程结果所需内存超出本机内存,计算终止!"});
  EXPECT_EQ(COMDYN.m_nHistoryCount, 7);
}

TEST_F(TimeHistory, InvalidModelsAndFixedOnesDoNothing) {
  CAnalysisModel empty;
  empty.WilsonTheta(m_folder.GetJobPath());
  empty.NewmarkIntegration(m_folder.GetJobPath(), 0, 1);
  EXPECT_TRUE(m_platform.GetMessages().empty());

  m_host.SetSection(1, 2, 100.0);
  m_host.AddNode(0, 0, 0, test::c_nPinned, "111000");
  m_host.AddNode(1, 0, 0, test::c_nPinned, "111000");
  m_host.AddElement(test::c_nBar, 1, 2);
  WriteModes({});
  Build();
  m_model.m_dDuration = 0.05;
  for (const int nAssumption : {0, 1}) {
    m_model.NewmarkIntegration(m_folder.GetJobPath(), nAssumption, 1);
    ASSERT_TRUE(m_model.m_history.bComplete);
    EXPECT_EQ(GetRow(c_nHistoryForce, 4, 0), 0.0);
  }
}

TEST_F(TimeHistory, NodalForcesLeaveTheNonlinearSetting) {
  MakeBar();
  WriteModes({317.0});
  m_folder.Write("impulseload.log", MakeScript(3, "2 1 0 0 "));
  Build();
  m_model.m_dDuration = 0.05;
  m_model.LoadScript = MakeScript(3, "2 1 0 0 ");
  COMDYN.m_bNonlinear = 1;
  m_model.NewmarkIntegration(m_folder.GetJobPath(), 0, 0);
  EXPECT_EQ(COMDYN.m_bNonlinear, 1);
  m_model.WilsonTheta(m_folder.GetJobPath());
  EXPECT_EQ(COMDYN.m_bNonlinear, 0);
}

}  // namespace
}  // namespace skyframe
