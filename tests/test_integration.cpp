// Direct integration: constants, whole runs on the analysis model.

#include "ModalModels.h"
#include "skyframe/history/GroundMotion.h"
#include "skyframe/history/Integrators.h"
#include "skyframe/model/AnalysisModel.h"
#include "skyframe/model/IterationTest.h"
#include "skyframe/model/RayleighDamping.h"

namespace skyframe::test {
namespace {

TEST(Rayleigh, Coefficients) {
  const struct {
    std::vector<double> omega;
    double zeta1, zeta2, dMass, dStiffness;
  } cases[] = {{{10, 25}, 0.02, 0.03, 0.1904762, 0.00209524},
               {{10, 10, 10, 25}, 0.02, 0.03, 0.1904762, 0.00209524},  // equal frequencies are skipped
               {{10, 25}, 0.0, 0.0, 0.0, 0.0},
               {{10, 10}, 0.02, 0.03, 0.0, 0.0},
               {{}, 0.02, 0.03, 0.0, 0.0}};
  for (const auto& c : cases) {
    const RayleighCoefficients found = FormRayleigh(c.omega, c.zeta1, c.zeta2).value_or(RayleighCoefficients{});
    EXPECT_NEAR(found.dMass, c.dMass, 1e-7);
    EXPECT_NEAR(found.dStiffness, c.dStiffness, 1e-8);
  }
}

TEST(StepConstants, OfAnotherNewmarkRule) {
  const auto [a0, a1, a2, a3, a4, a5, a6, a7] = NewmarkConstants(0.5, 0.75, 0.2);
  const double found[] = {a0, a1, a2, a3, a4, a5, a6, a7}, expected[] = {50, 7.5, 10, 0, 0.5, -0.05, 0.05, 0.15};
  for (int i = 0; i < 8; ++i) EXPECT_NEAR(found[i], expected[i], 1e-12) << "a" << i;
}

TEST(Newmark, SingularSystemEndsTheRun) {
  CTestPlatform platform;
  SparseMatrix zero;
  zero.SetProfile(1, std::vector{0});
  zero.Fill(0.0);
  const CRowMatrix rows(zero, 1);
  EXPECT_FALSE(CNewmarkIntegrator(NewmarkConstants(0.25, 0.5, 0.1), rows, rows, zero).StepForce(std::vector{1.0}));
  EXPECT_EQ(platform.GetMessages(), Strings{"结构几何可变"});
}

TEST(IterationTests, Criteria) {
  const struct {
    int nCriterion;
    double dTolerance, dResidual, dForce, dIncrement, dReference;
    bool bConverged;
  } cases[] = {{0, 0.1, 0.1, 1, 9, 1, true},   {0, 0.1, 0.11, 1, 0, 1, false}, {1, 0.1, 9, 1, 0.1, 1, true},
               {1, 0.1, 0, 1, 0.11, 1, false}, {2, 0.1, 0.1, 1, 9, 9, true},   {2, 0.1, 0.2, 1, 0, 9, false},
               {2, 0.1, 9, 1e-15, 9, 9, true}, {3, 0.1, 9, 9, 0.1, 1, true},   {3, 0.1, 9, 9, 0.2, 1, false},
               {3, 0.1, 9, 9, 9, 1e-15, true}, {2, 5.0, 1, 1, 0, 0, false},    {3, 5.0, 0, 0, 1, 1, false}};
  for (const auto& c : cases) {
    const IterationTest test = {c.nCriterion, c.dTolerance};
    EXPECT_EQ(test.IsConverged(c.dResidual, c.dForce, c.dIncrement, c.dReference), c.bConverged) << c.nCriterion;
  }
  const IterationTest strict = {c_nRelativeForce, 0.1, false};
  EXPECT_FALSE(strict.IsConverged(0, 0, 0, 0));
}

// --- runs on the model

std::string MakeScript(int nBlocks, const std::string& strLine) {
  std::string strText = "/IMPULSELOAD/";
  for (int i = 0; i < nBlocks; ++i) strText += strLine + "##\r\n";
  return strText + "/END/";
}

struct TimeHistory : testing::Test, Session {
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
    job.Write(".mode", strm.str());
  }

  /// A new model; iterations by the relative force.
  CAnalysisModel& Build(double dt, double dDuration, double dTolerance = 0.1) {
    m_model.emplace();
    m_model->BuildModel();
    m_model->m_dTimeStep = dt;
    m_model->m_dDuration = dDuration;
    m_model->m_nConvCriterion = 2;
    m_model->m_dConvTol = dTolerance;
    return *m_model;
  }
  double GetRow(std::size_t nQuantity, int k, int nColumn) const {
    return m_model->m_history.values[nQuantity][k][nColumn];
  }

  std::optional<CAnalysisModel> m_model;
};

TEST_F(TimeHistory, StaticLoadsBecomeMass) {
  host.SetSection(1, 2, 10000.0, 1e8, 1e8, 1e8);
  host.AddNode(0, 0, 0, c_nRigid, "111111");
  host.AddNode(2, 0, 0);
  host.AddNode(4, 0, 0, c_nPinned, "001000");
  host.AddElement(c_nBeam, 1, 2);
  host.AddElement(c_nBar, 2, 3);
  host.AddLoad(0, 2, c_nDofZ, 3.0);
  host.AddLoad(0, 2, c_nDofX, 50.0);  // only vertical loads count
  host.AddLoad(1, 2, c_nDofZ, 4.0);
  host.AddLoad(1, 3, c_nDofZ, 2.0);     // restrained in Z, free in X and Y
  host.AddLoad(2, 2, c_nDofZ, 1000.0);  // not selected
  CAnalysisModel& model = Build(0.01, 1.0);
  model.m_nLoadCaseFlag[0] = model.m_nLoadCaseFlag[1] = 1;
  for (const double dSign : {1.0, -1.0}) {  // downward loads add nothing
    model.m_dLoadFactor[0] = dSign;
    model.m_dLoadFactor[1] = 0.5 * dSign;
    SparseMatrix M;
    M.SetProfile(model.GetTotalDofs(), model.GetDiagonalAddresses());
    M.Fill(0.0);
    model.AddStaticLoadMass(M);
    const double expected[] = {5, 5, 5, 0, 0, 0, 1, 1};  // kN: 3 + 0.5 * 4; 0.5 * 2
    for (int i = 0; i < 8; ++i) EXPECT_NEAR(M(i, i) * 9.81e-3, dSign > 0 ? expected[i] : 0.0, 1e-12) << i;
  }
}

// The first steps by the definitions of the two schemes, the extremes by the closed form.
TEST_F(TimeHistory, OneBarUnderAStepLoad) {
  FillOneBar(host);
  WriteModes({317.0546, 1000.0});
  const double dStatic = 1.0e4 / 1.03e9;
  const int nBlocks = 970, nSteps = 1000;  // the load ends before the run
  job.Write("impulseload.log", MakeScript(nBlocks, "2 10 0 0 "));
  for (const bool bWilson : {false, true}) {
    CAnalysisModel& model = Build(0.001, 1.0005);
    model.m_nLoadCaseFlag[0] = 1;
    model.m_pDamping[0] = model.m_pDamping[1] = 0.05;
    model.m_bLoadFromFile = 1;
    COMDYN.m_bNonlinear = 1;
    if (bWilson) {
      model.WilsonTheta(job.GetJobPath());
    } else {
      model.NewmarkIntegration(job.GetJobPath(), 0, 0);
    }
    ASSERT_EQ(model.m_history.nSteps, nSteps);
    EXPECT_NEAR(GetRow(c_nHistoryX, 0, 1), bWilson ? 1.54175e-7 : 2.34384e-7, 1e-12);
    EXPECT_NEAR(GetRow(c_nHistoryX, 1, 1), bWilson ? 1.05931e-6 : 1.14215e-6, 1e-11);
    EXPECT_NEAR(GetRow(c_nHistoryX, 9, 1), bWilson ? 1.78374e-5 : 1.78177e-5, 1e-10);
    double dLargest = 0.0, dLeast = 0.0;
    for (int k = 0; k < nSteps; ++k) {
      const double u = GetRow(c_nHistoryX, k, 1);
      (k < nBlocks ? dLargest : dLeast) = k < nBlocks ? std::max(dLargest, u) : std::min(dLeast, u);
      EXPECT_NEAR(GetRow(c_nHistoryForce, k, 0), 1.03e9 * u, 0.01);
      EXPECT_NEAR(model.m_history.baseShear[k][0], 1.03e9 * u, 0.01);
      EXPECT_EQ(GetRow(c_nHistoryX, k, 0), 0.0);
    }
    EXPECT_NEAR(dLargest, 1.8545 * dStatic, 0.02 * dStatic);
    EXPECT_NEAR(dLeast, -0.8545 * dStatic, 0.02 * dStatic);
    EXPECT_EQ(COMDYN.m_nMethod, bWilson ? 0 : 1);
    EXPECT_EQ(COMDYN.m_bNonlinear, bWilson ? 0 : 1) << "nodal forces leave the nonlinear setting of Newmark";
  }
  EXPECT_FALSE(job.Has("_HisTime.txt"));
  EXPECT_TRUE(platform.GetMessages().empty());
  int nVectors = 0;
  std::istringstream console(platform.GetConsole());
  for (std::string strLine; std::getline(console, strLine);) nVectors += strLine == "获取荷载向量" ? 1 : 0;
  EXPECT_EQ(nVectors, 2 * nBlocks);
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

TEST_F(TimeHistory, OneBarUnderElCentroAgainstPiecewiseExactIntegration) {
  FillOneBar(host, 1.0);
  const double m = 100000.0 / 9.81 + 7900.0 * 1e-6 * 2.0 / 3.0, w = std::sqrt(1.03e5 / m), zeta = 0.05;
  WriteModes({w, w, 5.0 * w});
  CAnalysisModel& model = Build(0.02, 35.001);  // beyond the record
  model.m_nLoadCaseFlag[0] = 1;
  model.m_pDamping[0] = model.m_pDamping[1] = zeta;
  model.m_strQuakeFile = SKYFRAME_SOURCE_DIR "\\data\\GroundAccData\\Elcentro.txt";
  model.m_bQuakeDir = {1, 1, 1};
  model.m_dPeak = {2.0, 99.0, 99.0};
  model.NewmarkIntegration(job.GetJobPath(), 0, 1);
  ASSERT_EQ(model.m_history.nSteps, 1750);
  auto record = *ReadAccelerationRecord(model.m_strQuakeFile, 2.0);
  record.resize(1750, 0.0);
  double u = 0.0, v = 0.0, dPrevious = 0.0, dLargest = 0.0, dError = 0.0;
  for (int k = 0; const double dNext : record) {
    StepExactly(w, zeta, 0.02, -dPrevious, -dNext, u, v);
    dPrevious = dNext;
    dLargest = std::max(dLargest, std::abs(u));
    dError = std::max(dError, std::abs(u - GetRow(c_nHistoryX, k++, 1)));
  }
  EXPECT_LT(dError, 0.01 * dLargest);
  EXPECT_EQ(COMDYN.m_nHistoryCount, 1750);
  EXPECT_EQ(COMDYN.m_dHistoryStep, 0.02);
  EXPECT_EQ(COMDYN.m_bHistoryAvailable, 1);
  EXPECT_TRUE(job.Has("_HisTime.txt"));
}

TEST_F(TimeHistory, SmallNonlinearRunIsTheLinearOne) {
  FillLeaningFrame(host);
  WriteModes({60.0, 200.0});
  job.Write("_Tacc.txt", "1 -3 2 5 -4 1 0 2 -1 -2 3 1");
  HistorySet histories[2];
  for (const int nAssumption : {0, 1}) {
    CAnalysisModel& model = Build(0.004, 0.2, 1e-13);
    model.m_bLoadFromFile = 1;
    model.m_nQuakeMode = 1;
    model.m_dObliqueCoef = {0.6, 0.64, 0.48};
    model.m_dPeakOblique = 1e-2;
    model.NewmarkIntegration(job.GetJobPath(), nAssumption, 1);
    ASSERT_TRUE(model.m_history.bComplete);
    EXPECT_EQ(COMDYN.m_bNonlinear, nAssumption);
    histories[nAssumption] = model.m_history;
  }
  for (std::size_t q = 0; q < c_nHistoryQuantities; ++q)
    EXPECT_LT(Compare(histories[1].values[q], histories[0].values[q]), 1e-5) << q;
  EXPECT_LT(Compare(histories[1].baseShear, histories[0].baseShear), 1e-5);
}

// Free and without damping: V = -sum m a, the accelerations by the rule of Newmark.
TEST_F(TimeHistory, BaseShearOfTwoMassesIsTheirInertia) {
  FillOneBar(host, 1.0);
  host.AddNode(5, 0, 0, c_nPinned, "011000");
  host.AddElement(c_nBar, 2, 3, 102);
  host.AddLoad(0, 3, c_nDofZ, 60.0);
  WriteModes({2.0, 5.0});
  job.Write("impulseload.log", MakeScript(3, "3 10 0 0 "));
  CAnalysisModel& model = Build(0.05, 5.001);
  model.m_nLoadCaseFlag[0] = model.m_bLoadFromFile = 1;
  model.m_pDamping = {0.0, 0.0};
  model.NewmarkIntegration(job.GetJobPath(), 0, 0);
  const auto [a0, a1, a2, a3, a4, a5, a6, a7] = NewmarkConstants(model.m_dNewmarkAlpha, model.m_dNewmarkDelta, 0.05);
  const double mass[] = {1.0e5 / 9.81, 6.0e4 / 9.81};
  double u[2] = {}, v[2] = {}, a[2] = {}, dLargest = 0.0;
  for (int k = 0; k < 100; ++k) {
    double dInertia = 0.0;
    for (int i = 0; i < 2; ++i) {
      const double dNext = a0 * (GetRow(c_nHistoryX, k, i + 1) - u[i]) - a2 * v[i] - a3 * a[i];
      v[i] += a6 * a[i] + a7 * dNext;
      u[i] = GetRow(c_nHistoryX, k, i + 1);
      dInertia -= mass[i] * (a[i] = dNext);
    }
    dLargest = std::max(dLargest, std::abs(model.m_history.baseShear[k][0]));
    if (k < 3) continue;  // the load acts
    EXPECT_NEAR(model.m_history.baseShear[k][0], dInertia, 1e-4 * dLargest) << k;
  }
  EXPECT_GT(dLargest, 1000.0);
  EXPECT_EQ(model.m_historyFindings.baseShear, (std::array{dLargest, 0.0, 0.0}));
}

/// The arch's apex under the load P below the limit load: descent, and axial force of a bar.
struct ArchState {
  double w, dForce;
};
ArchState SolveArch(double P) {
  const double EA = 2.06e8, L0 = std::sqrt(17.0);
  double w = 0.0, dHigh = 1.0 - 1.0 / std::sqrt(3.0);
  for (int i = 0; i < 100; ++i) {
    const double dMid = 0.5 * (w + dHigh);
    (EA * (2 * dMid - dMid * dMid) * (1 - dMid) / (L0 * L0 * L0) < P ? w : dHigh) = dMid;
  }
  const double L2 = 16.0 + (1 - w) * (1 - w);
  return {w, EA * (L2 - 17.0) / 34.0 * std::sqrt(L2 / 17.0)};
}

TEST_F(TimeHistory, ArchHoldsItsStaticState) {
  FillArch(host);
  host.AddLoad(0, 2, c_nDofZ, -200.0);
  WriteModes({500.0, 5000.0});
  CAnalysisModel& model = Build(0.001, 0.0205, 1e-12);
  model.m_nLoadCaseFlag[0] = 1;
  model.m_nMaxIter = 50;
  model.NewmarkIntegration(job.GetJobPath(), 1, 1);  // no direction: no ground motion
  ASSERT_TRUE(model.m_history.bComplete);
  EXPECT_NEAR(model.m_staticForce.at(0), SolveArch(2.0e5).dForce, 1.0);
  for (int k = 0; k < 20; ++k) {
    EXPECT_NEAR(GetRow(c_nHistoryZ, k, 1), -0.0359399, 1e-7) << k;
    EXPECT_NEAR(GetRow(c_nHistoryForce, k, 0), model.m_staticForce[0], 1.0) << k;
    EXPECT_NEAR(model.m_history.baseShear[k][2], -2.0e5, 1.0) << k;
  }
}

TEST_F(TimeHistory, ArchStaysOnItsPathUnderSlowLoad) {
  FillArch(host);
  WriteModes({500.0, 5000.0});
  const int N = 1000;
  const double m = 2.0 * 7900.0 * 1e-3 * std::sqrt(17.0) / 3.0;
  const double dPeak = 0.9 * 1131206.66 / m;  // downward: the ground moves up
  const auto getPart = [](int k) { return 0.5 * (1.0 - std::cos(std::numbers::pi * k / N)); };
  std::ostringstream strm;
  strm.precision(17);
  for (int k = 1; k <= N; ++k) strm << getPart(k) << '\n';
  job.Write("_Zacc.txt", strm.str());
  CAnalysisModel& model = Build(0.001, 1.0005, 1e-8);
  model.m_bLoadFromFile = 1;
  model.m_bQuakeDir = {0, 0, 1};
  model.m_dPeak = {1.0, 1.0, dPeak};
  model.m_pDamping[0] = model.m_pDamping[1] = 0.2;
  model.NewmarkIntegration(job.GetJobPath(), 1, 1);
  ASSERT_TRUE(model.m_history.bComplete);
  for (int k = 200; k <= N; k += 100) {
    const auto [w, dForce] = SolveArch(m * dPeak * getPart(k));
    EXPECT_NEAR(-GetRow(c_nHistoryZ, k - 1, 1), w, 0.01 * w) << k;
    EXPECT_NEAR(GetRow(c_nHistoryForce, k - 1, 0), dForce, 0.01 * std::abs(dForce)) << k;
  }
}

TEST_F(TimeHistory, NoStepsAndNoFreeEquations) {
  host.SetSection(1, 2, 100.0);
  for (const double dX : {0.0, 1.0}) host.AddNode(dX, 0, 0, c_nPinned, "111000");
  host.AddElement(c_nBar, 1, 2);
  WriteModes({500.0, 5000.0});
  for (const int nAssumption : {0, 1}) {
    for (const double dt : {0.01, -1.0}) {
      Build(dt, 0.05).NewmarkIntegration(job.GetJobPath(), nAssumption, 1);
      EXPECT_EQ(m_model->m_history.bComplete ? m_model->m_history.nSteps : -1, dt > 0.0 ? 5 : 0);
    }
  }
  EXPECT_TRUE(job.Read("_HisTime.txt").ends_with("--\nNode No.     1\nNode No.     2\nMem No.     1\n"));
}

TEST_F(TimeHistory, Findings) {
  FillOneBar(host);
  WriteModes({34.27, 37.80, 150.0});
  job.Write("_Xacc.txt", "0 0 0");  // scaled by 0 / 0
  CAnalysisModel& model = Build(0.01, 0.055);
  model.m_pDamping = {0.05, 0.04};
  model.m_bLoadFromFile = 1;
  model.m_bQuakeDir = {1, 0, 0};
  model.NewmarkIntegration(job.GetJobPath(), 0, 1);
  const HistoryFindings& found = model.m_historyFindings;
  EXPECT_EQ(found.status, RunStatus::Done);
  EXPECT_EQ(found.files, Strings{job.GetPath("_HisTime.txt")});
  EXPECT_EQ(std::tie(found.nMethod, found.bGroundMotion, found.nSteps, found.nStepsDone, found.dTimeStep),
            std::tuple(1, true, 5, 5, 0.01));
  EXPECT_EQ(std::tie(found.nBadQuantity, found.nBadStep, found.nBadNumber), std::tuple(c_nHistoryX, 1, 2));
  EXPECT_EQ(std::tie(found.conditioning.place.nNode, found.conditioning.place.nDirection), std::tuple(2, c_nDofX));
  const double expected[] = {0.05, 0.04, -0.1012};
  ASSERT_EQ(found.damping.size(), 3U);
  for (std::size_t i = 0; i < 3; ++i) EXPECT_NEAR(found.damping[i], expected[i], 1e-4) << found.omega[i];
}

TEST_F(TimeHistory, FailuresLeaveEverythingAsItWas) {
  FillOneBar(host);
  const std::string strNoFile = "模态文件访问出错,计算终止!", strNoModes = "错误:模态未分析";
  const std::string strBadScript = "冲击荷载数据文件读入有误", strNoRecord = "X方向加速度数据文件读入有误";
  const std::string strRunaway = "节点2的X向超过限定值1.0e10!\n结构几何可变，请检查！";
  const std::string strMemory = "时程结果所需内存超出本机内存,计算终止!";
  const struct {
    const char* strName;
    int nMethod, nAssumption, bGround;
    std::string strScript;
    double dPeak, dTimeStep;
    std::vector<std::string> messages;
    RunStatus status = RunStatus::Refused;
    int nStepsDone = 0;
  } cases[] = {
      {"no mode file", 1, 0, 1, "", 1.0, 0.01, {strNoFile, strNoModes}},
      {"no mode file, Wilson", 0, 0, 0, "", 1.0, 0.01, {strNoFile, strNoModes}},
      {"no script", 1, 0, 0, "", 1.0, 0.01, {strBadScript}},
      {"Wilson reads the file only", 0, 0, 0, "", 1.0, 0.01, {strBadScript}},
      {"nodal forces are not nonlinear", 1, 1, 0, MakeScript(3, "2 1 0 0 "), 1.0, 0.01, {}},
      {"nonlinear, but the script comes first", 1, 1, 0, "", 1.0, 0.01, {strBadScript}},
      {"no record", 1, 0, 1, "", 0.0, 0.01, {strNoRecord}},
      {"runs away", 1, 0, 0, MakeScript(1, "2 1 0 0 ##2 1e20 0 0 "), 1.0, 0.01, {strRunaway}, RunStatus::Failed, 1},
      {"ground runs away", 1, 0, 1, "", -1e25, 0.01, {strRunaway}, RunStatus::Failed},
      {"nonlinear ground runs away", 1, 1, 1, "", -1e25, 0.01, {strRunaway}, RunStatus::Failed},
      {"histories beyond the memory", 1, 0, 1, "", 1.0, 1e-300, {strMemory}}};
  job.Write("_HisTime.txt", "older");
  job.Write("_record.txt", "1 1 1 1 1");
  for (int n = 0; const auto& c : cases) {
    platform->Clear();
    if (n++ == 2) WriteModes({317.0});
    CAnalysisModel& model = Build(c.dTimeStep, 0.05);
    model.m_strQuakeFile = job.GetPath(c.dPeak == 0.0 ? "_none.txt" : "_record.txt");
    model.m_bQuakeDir = {1, 0, 0};
    model.m_dPeak = {c.dPeak, 1.0, 1.0};
    model.LoadScript = c.strScript;
    if (c.nMethod == 0) {
      model.WilsonTheta(job.GetJobPath());
    } else {
      model.NewmarkIntegration(job.GetJobPath(), c.nAssumption, c.bGround);
    }
    EXPECT_EQ(platform.GetMessages(), c.messages) << c.strName;
    EXPECT_FALSE(model.m_history.bComplete) << c.strName;
    EXPECT_EQ(model.m_historyFindings.status, c.status) << c.strName;
    EXPECT_EQ(model.m_historyFindings.nStepsDone, c.nStepsDone) << c.strName;
    EXPECT_EQ(COMDYN.m_bHistoryAvailable, 0) << c.strName;
    EXPECT_EQ(job.Read("_HisTime.txt"), "older") << c.strName;
  }
  EXPECT_NE(platform.GetConsole().find("Couldn't open log file! \n"), std::string::npos);

  platform->Clear();
  CAnalysisModel().NewmarkIntegration(job.GetJobPath(), 0, 1);  // not built: not a word
  // large negative displacements pass
  Build(0.01, 0.015).LoadScript = MakeScript(1, "2 -1e25 0 0 ");
  m_model->NewmarkIntegration(job.GetJobPath(), 0, 0);
  EXPECT_LT(GetRow(c_nHistoryX, 0, 1), -1.0e10);
  EXPECT_TRUE(platform.GetMessages().empty());
}

}  // namespace
}  // namespace skyframe::test
