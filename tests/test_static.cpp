// Static analysis through the entry point with its dialogs: closed forms, equilibrium, result files,
// failures.

#include "ModalModels.h"
#include "ResultFiles.h"
#include "skyframe/connect/Findings.h"
#include "skyframe/connect/ModeConnect.h"
#include "skyframe/model/AnalysisModel.h"

namespace skyframe::test {
namespace {

constexpr double c_dE = 2.06e11;
constexpr const char* c_pLinear = "_StaticLinearSol.txt";
constexpr const char* c_pNonlinear = "_StaticNonlinearSol.txt";

struct StaticOptions {
  bool bNonlinear = false;
  std::vector<int> cases = {0};  ///< rows of the load-type list
  int nCriterion = 0;
  std::string strTolerance = "1e-6";
  std::string strMaxIter = "100";
};

void RunStatic(CTestPlatform& platform, const StaticOptions& options = {}) {
  platform->AddScript(
      16007, {Do::Tick(16063, options.bNonlinear), Do::ChooseItem(16090, options.nCriterion),
              Do::Type(16091, options.strTolerance), Do::Type(16092, options.strMaxIter), Do::Click(16059), Do::Ok()});
  std::vector<DialogStep> combination;
  for (const int nCase : options.cases) combination.push_back(Do::ToggleRow(16039, nCase));
  combination.push_back(Do::Click(16042));
  combination.push_back(Do::Ok());
  platform->AddScript(16002, combination);
  CModeConnect::OnStaticNonlinearSol();
  EXPECT_TRUE(platform->GetScriptErrors().empty());
}

struct StaticAnalysis : testing::Test, Session {};

/// The analysis itself, load case 0, absolute force criterion.
void Solve(CAnalysisModel& model, const CJobFolder& job, bool bNonlinear, double dTolerance = 1e-3,
           int nMaxIter = 500) {
  model.BuildModel();
  model.m_nLoadCaseFlag[0] = 1;
  model.m_dConvTol = dTolerance;
  model.m_nMaxIter = nMaxIter;
  bNonlinear ? model.SolveStaticNonlinear(job.GetJobPath()) : model.SolveStaticLinear(job.GetJobPath());
}

TEST_F(StaticAnalysis, CantileverFollowsBeamTheory) {
  host.SetSection(1, 2, 10000, 1e7, 2e7, 2e7);
  host.AddNode(0, 0, 0, c_nRigid, "111111");
  host.AddNode(4, 0, 0);
  host.AddElement(c_nBeam, 1, 2);
  host.AddLoad(0, 2, c_nDofZ, -10.0);
  RunStatic(platform);
  EXPECT_TRUE(platform.GetMessages().empty());
  EXPECT_NEAR(GetStaticFindings().displacements.at(1)[2], -0.0517799, 1e-7);
  // The force on the support: as the load, and 40 kNm.
  const std::string strText = job.Read(c_pLinear);
  EXPECT_EQ(strText.substr(strText.find("结点号:"), strText.find("\n\nDOF") - strText.find("结点号:")),
            "结点号:1  X向支反力  0.000            Y向支反力  0.000            Z向支反力  -10000.000       "
            "YZ平面内转角向支反力 0.000            ZX平面内转角向支反力 40000.000        XY平面内转角向支反力 0.000  "
            "        ");
  const auto diagrams = Take(host::ReadStaticResultFile(job.GetPath(c_pLinear), 2)).members.at(0).diagrams;
  EXPECT_NEAR(std::abs(diagrams.at(host::c_nMzx)[5]), 30000.0, 0.1);
  EXPECT_NEAR(std::abs(diagrams.at(host::c_nQz)[5]), 10000.0, 0.01);
  EXPECT_NEAR(diagrams.at(host::c_nFz)[5], -10000.0 * 11.0 / (6 * c_dE * 2e-5), 0.0006);
  RunStatic(platform, {.bNonlinear = true, .strTolerance = "0.01", .strMaxIter = "500"});  // without shear as well
  EXPECT_NEAR(GetStaticFindings().displacements.at(1)[2], -0.0517799, 3e-5);
}

TEST_F(StaticAnalysis, CombinesCasesWithTheirFactors) {
  ABCD.m_nLoadCases = 2;
  FillBar(host, 1000);
  for (int nCase = 0; nCase < 3; ++nCase) host.AddLoad(nCase, 2, c_nDofX, std::pow(10.0, nCase));
  RunStatic(platform, {.cases = {0, 2}});
  EXPECT_NEAR(GetStaticFindings().reactions.at(0)[0], 101.0e3, 1e-3);
  RunStatic(platform, {.cases = {}});
  EXPECT_EQ(GetStaticFindings().reactions.at(0)[0], 0.0);
}

// The reaction is the force on the support: it points as the load does.
TEST_F(StaticAnalysis, WritesTheFileLetterForLetter) {
  FillBar(host, 1000);
  host.AddLoad(0, 2, c_nDofX, 10.0);
  RunStatic(platform);
  EXPECT_EQ(job.Read(c_pLinear),
            "Linear Solution Output: \n"
            "Member forces: \n"
            "ElementNumber AxialForce \n"
            "1         ---------输出第1号杆单元内力--------\n"
            "N = 10000.000      \n"
            "\n"
            "Reactions: \n"
            "结点号:1  X向支反力  10000.000        Y向支反力  0.000            Z向支反力  0.000          \n"
            "结点号:2  Y向支反力  0.000            Z向支反力  0.000          \n"
            "\n"
            "DOF Displacements: \n"
            "UX             UY             UZ\n"
            "1         0.00000        0.00000        0.00000        \n"
            "2         9.70874e-05    0.00000        0.00000        \n");
}

TEST_F(StaticAnalysis, RandomFrameIsInEquilibrium) {
  std::mt19937 random(7);
  std::uniform_real_distribution<double> uniform(-1.0, 1.0);
  host.SetSection(1, 2, 9000, 3e7, 2e7, 5e7);
  for (int i = 0; i < 14; ++i) {
    host.AddNode(3 * uniform(random), 3 * uniform(random), i, i % 5 == 3 ? c_nPinned : c_nRigid,
                 i < 3 ? "111111" : "000000");
  }
  for (int i = 1; i <= 14; ++i) {
    for (int j = i + 1; j <= std::min(14, i + 4); ++j) host.AddElement((i + j) % 6 == 0 ? c_nBar : c_nBeam, i, j);
  }
  for (int i = 3; i <= 14; ++i) host.AddLoad(0, i, i % 6, 50 * uniform(random));  // at node 3 on a support
  CAnalysisModel model;
  Solve(model, job, false);
  EXPECT_TRUE(platform.GetMessages().empty());

  // What the run found: forces on the supports and their moments about the origin balance the loads.
  const StaticFindings& found = model.m_staticFindings;
  for (int k = 0; k < 3; ++k) {
    const int p = (k + 1) % 3, q = (k + 2) % 3;
    double dForce = 0.0, dMoment = 0.0;
    for (int n = 0; n < model.GetNodes().GetNodeCount(); ++n) {
      const auto& x = model.GetNodes().GetInitialPosition(n);
      NodeValues f = found.reactions.at(n);
      for (int i = 0; i < 6; ++i) f[i] -= found.loads.at(n)[i];
      dForce += f[k];
      dMoment += f[k + 3] + x[p] * f[q] - x[q] * f[p];
      EXPECT_EQ(found.displacements.at(n)[k + 3], model.GetNodes().GetValue(model.GetDisplacements(), n, k + 3));
    }
    EXPECT_NEAR(dForce, 0.0, 1e-9 * 50e3);
    EXPECT_NEAR(dMoment, 0.0, 1e-8 * 50e3);
  }
  EXPECT_EQ(found.status, RunStatus::Done);
  EXPECT_GT(found.conditioning.place.nNode, 0);
}

void FillArch(CHostModel& host, double dLoad) {
  test::FillArch(host);
  host.AddLoad(0, 2, c_nDofZ, -dLoad);
}

// Beam-column: H (tan kL - kL)/(P k).
TEST_F(StaticAnalysis, AxialLoadSoftensTheColumn) {
  host.SetSection(1, 2, 5000, 1e7, 2e7, 8e7);
  for (int i = 0; i <= 8; ++i) host.AddNode(0, 0, 3.0 * i / 8, c_nRigid, i == 0 ? "111111" : "000000");
  for (int i = 1; i <= 8; ++i) host.AddElement(c_nBeam, i, i + 1);
  const double L = 3.0;
  const double EI = c_dE * 2e-5;
  const double P = 0.3 * std::numbers::pi * std::numbers::pi * EI / (4 * L * L);
  const double k = std::sqrt(P / EI);
  host.AddLoad(0, 9, c_nDofX, 5.0);
  host.AddLoad(0, 9, c_nDofZ, -P / 1000);
  for (const bool bNonlinear : {false, true}) {
    CAnalysisModel model;
    Solve(model, job, bNonlinear);
    const StaticFindings& found = model.m_staticFindings;
    const double dTheory = bNonlinear ? 5000.0 * (std::tan(k * L) - k * L) / (P * k) : 5000.0 * L * L * L / (3 * EI);
    EXPECT_NEAR(found.displacements.at(8)[0], dTheory, bNonlinear ? 0.005 * dTheory : 1e-7);
    EXPECT_EQ(found.eulerRatios.size(), bNonlinear ? 8U : 0U);
    for (const double dRatio : found.eulerRatios) EXPECT_NEAR(dRatio, -0.3 / 4 / 64, 1e-5);
  }
  EXPECT_TRUE(platform.GetMessages().empty());
}

TEST(StaticNonlinear, StopsByItsCriterion) {
  const struct {
    int nCriterion;
    const char* pTolerance;
    const char* pMaxIter;
    bool bConverges;
    bool bLoaded = true;
  } cases[] = {
      {1, "1e-9", "50", true},
      {2, "1e-6", "2", false},
      {1, "10", "1", true},             // the last permitted counts
      {3, "10", "1", false},            // never on the first pass
      {3, "10", "2", true},             // then as soon as the increment has come down
      {0, "0", "1", true, false},       // equality counts
      {2, "1e-6", "50", false, false},  // the relative force needs a load
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::to_string(c.nCriterion) + " " + c.pTolerance + " " + c.pMaxIter);
    Session run;
    FillArch(run.host, 200.0);
    run.job.Write(c_pNonlinear, "older result");
    const std::vector<int> loads = c.bLoaded ? std::vector<int>{0} : std::vector<int>{};
    RunStatic(run.platform, {true, loads, c.nCriterion, c.pTolerance, c.pMaxIter});
    const std::vector<std::string> noConvergence = {"在给定的迭代步内计算不收敛！\n请增加最大迭代步数！"};
    EXPECT_EQ(run.platform.GetMessages(), c.bConverges ? Strings{} : noConvergence);
    EXPECT_EQ(run.job.Read(c_pNonlinear) == "older result", !c.bConverges);
    EXPECT_EQ(run.job.List().size(), 1U);  // no temporary file is left
  }
}

// The same path walked with the stiffness of the undeformed arch; areas are single precision.
TEST(StaticNonlinear, FindingsSayHowFarItCame) {
  for (const int nMaxIter : {0, 1, 2, 500}) {
    Session run;
    FillArch(run.host, 200.0);
    CAnalysisModel model;
    Solve(model, run.job, true, 1e-3, nMaxIter);
    const StaticFindings& found = model.m_staticFindings;
    const double P = 200e3, k = c_dE * 1e-3 / std::pow(17.0, 1.5);
    double w = 0.0, R = P, du = 0.0, dPrevious = 0.0;
    for (int n = 0; n < found.nIterations; ++n) {
      dPrevious = std::exchange(du, R / (2 * k));
      w += du;
      R = P - k * (2 * w - w * w) * (1 - w);
    }
    EXPECT_EQ(run.platform->GetWaitCursorDepth(), 0);
    EXPECT_EQ(found.status, nMaxIter == 500 ? RunStatus::Done : RunStatus::Failed);
    EXPECT_TRUE(nMaxIter == 500 || found.nIterations == nMaxIter);
    EXPECT_DOUBLE_EQ(found.dForce, P);
    EXPECT_NEAR(found.dResidual, std::abs(R), 1e-2);
    EXPECT_NEAR(found.dIncrement, std::abs(du), 1e-8);
    EXPECT_NEAR(found.dPreviousIncrement, std::abs(dPrevious), 1e-8);
    EXPECT_EQ(found.largestIncrement.nNode, nMaxIter > 0 ? 2 : 0);
    EXPECT_EQ(found.largestIncrement.nDirection, nMaxIter > 0 ? c_nDofZ : 0);
  }
}

// A support so soft that the first increment runs beyond every bound; only the positive side is watched.
TEST(StaticNonlinear, WatchesForRunaways) {
  for (const double dSign : {1.0, -1.0}) {
    Session run;
    run.host.SetSection(1, 2, 1e-15);
    run.host.AddNode(0, 0, 0, c_nPinned, "111000");
    run.host.AddNode(1, 0, 0, c_nPinned, "011000");
    run.host.AddElement(c_nBar, 1, 2);
    run.host.AddLoad(0, 2, c_nDofX, dSign * 1e5);
    RunStatic(run.platform, {.bNonlinear = true, .nCriterion = 1, .strTolerance = "1e30", .strMaxIter = "1"});
    if (dSign > 0.0) {
      EXPECT_EQ(run.platform.GetMessages(), Strings{"节点2的X向超过限定值1.0e10!\n结构几何可变，请检查！"});
      EXPECT_FALSE(run.job.Has(c_pNonlinear));
      EXPECT_EQ(GetStaticFindings().nIterations, 1);
      EXPECT_EQ(GetStaticFindings().largestIncrement.nNode, 2);
    } else {
      EXPECT_TRUE(run.platform.GetMessages().empty());
      EXPECT_TRUE(run.job.Has(c_pNonlinear));
    }
  }
}

// A bar from a fixed node to one at dX, of the given area.
TEST(StaticFailures, UnstableStructuresAreRefused) {
  const struct {
    const char* pName;
    double dX;
    Joint joint;
    const char* pRestraint;
    double dArea;
  } cases[] = {{"mechanism", 1, c_nPinned, "000000", 1000},
               {"rotation without stiffness", 1, c_nRigid, "011000", 1000},
               {"zero length", 0, c_nPinned, "011000", 1000},
               {"zero area", 1, c_nPinned, "011000", 0}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.pName);
    Session run;
    run.host.SetSection(1, 2, c.dArea);
    run.host.AddNode(0, 0, 0, c_nPinned, "111000");
    run.host.AddNode(c.dX, 0, 0, c.joint, c.pRestraint);
    run.host.AddElement(c_nBar, 1, 2);
    run.host.AddLoad(0, 2, c_nDofX, 10.0);
    run.job.Write(c_pLinear, "older result");
    RunStatic(run.platform);
    CAnalysisModel model;
    Solve(model, run.job, true);
    EXPECT_EQ(run.platform.GetMessages(), (Strings{"结构几何可变", "结构几何可变"}));
    EXPECT_TRUE(run.job.Has(c_pLinear));
    EXPECT_EQ(run.job.Read(c_pLinear), "");  // opened first, left empty
    EXPECT_FALSE(run.job.Has(c_pNonlinear));
    EXPECT_EQ(model.m_staticFindings.conditioning.place.nNode, 2);
    EXPECT_EQ(run.platform.GetConsole().find("荷载组装"), std::string::npos);  // no load without a factorised K
  }
}

TEST_F(StaticAnalysis, NothingHappensWithoutAModelOrAfterCancel) {
  RunStatic(platform);
  EXPECT_EQ(platform.GetMessages(), Strings{"缺少节点!"});
  CAnalysisModel model;
  model.m_staticFindings.nIterations = 7;  // of a run before
  Solve(model, job, true);
  EXPECT_EQ(model.m_staticFindings.status, RunStatus::Refused);
  EXPECT_EQ(model.m_staticFindings.nIterations, 0);
  FillArch(host, 1.0);
  platform->AddScript(16007, {Do::Cancel()});
  CModeConnect::OnStaticNonlinearSol();
  EXPECT_TRUE(job.List().empty());
  EXPECT_EQ(platform->GetModuleDepth(), 0);
  EXPECT_EQ(platform->GetWaitCursorDepth(), 0);  // what a refused build left on ends with the call
}

TEST_F(StaticAnalysis, RestrainedAndUnusedNodesAreHarmless) {
  host.SetSection(1, 2, 1000);
  host.AddNode(0, 0, 0, c_nPinned, "111000");
  host.AddNode(1, 0, 0, c_nPinned, "111000");
  host.AddNode(5, 0, 0);
  host.AddElement(c_nBar, 1, 2);
  host.AddElement(8, 1, 2);           // unknown type
  host.AddLoad(0, 2, c_nDofX, 10.0);  // on a support: it does not reach the structure
  host.AddLoad(0, 3, c_nDofX, 10.0);  // on a node without DOFs
  host.AddLoad(0, 2, c_nDofRX, 10.0);
  for (const bool bNonlinear : {false, true}) {
    RunStatic(platform, {.bNonlinear = bNonlinear});
    EXPECT_EQ(GetStaticFindings().displacements, std::vector<NodeValues>(3));
    EXPECT_EQ(GetStaticFindings().reactions, std::vector<NodeValues>(3));
    EXPECT_EQ(GetStaticFindings().eulerRatios, std::vector<double>(bNonlinear ? 2 : 0));
    EXPECT_TRUE(job.Has(bNonlinear ? c_pNonlinear : c_pLinear));
  }
  EXPECT_TRUE(platform.GetMessages().empty());
}

}  // namespace
}  // namespace skyframe::test
