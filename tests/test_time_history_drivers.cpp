// The time-history and viewer drivers through their dialogs, against the same runs on the model.

#include "ModalModels.h"
#include "ResultFiles.h"
#include "skyframe/connect/Histories.h"
#include "skyframe/connect/ModeConnect.h"
#include "skyframe/dialogs/HisResultDlg.h"
#include "skyframe/dialogs/Templates.h"
#include "skyframe/history/ImpulseScript.h"
#include "skyframe/hostdata/HostData.h"
#include "skyframe/model/AnalysisModel.h"

namespace skyframe::test {
namespace {

/// Steps of the history of node 2 along X as the viewer writes it.
std::vector<double> ReadThroughViewer(CTestPlatform& platform, const CJobFolder& job) {
  platform->AddScript(c_nIdHisResultDlg,
                      {Do::Type(c_nIdHistoryNode, "2"), Do::Click(c_nIdRefresh), Do::Click(c_nIdOutput), Do::Ok()});
  CModeConnect::OnTimeHistoryRes();
  EXPECT_TRUE(platform->GetScriptErrors().empty());
  return Take(host::ReadHistoryExtract(job.GetPath("_2_node.txt"), {ABCD.m_nNodes, ABCD.m_nElements})).values;
}

const std::vector<std::string> c_noHistory = {"没有进行时程分析。", "错误:动力时程未计算."};

struct TimeHistoryDrivers : testing::Test, Session {};

TEST_F(TimeHistoryDrivers, HostRecordThatOutlivedTheHistories) {
  if (GetHistories().bComplete) GTEST_SKIP() << "only before the first run";
  COMDYN.m_bHistoryAvailable = 1;
  CModeConnect::OnTimeHistoryRes();
  EXPECT_EQ(platform.GetMessages(), c_noHistory);
}

/// Two load types of 60 and 40 kN along +Z.
void FillFrame(CHostModel& host) {
  FillLeaningFrame(host);
  host.AddLoad(0, 2, c_nDofZ, 60.0);
  host.AddLoad(1, 3, c_nDofZ, 40.0);
  ABCD.m_nLoadCases = 1;
}

using Fields = std::vector<std::pair<int, std::string>>;

Steps Join(Steps steps, const Fields& fields, const Steps& last = {}) {
  for (const auto& [nId, strText] : fields) steps.push_back(Do::Type(nId, strText));
  steps.insert(steps.end(), last.begin(), last.end());
  steps.push_back(Do::Ok());
  return steps;
}

/// The first load type by 0.8, the second one by 1.3.
void CombineLoads(CTestPlatform& platform) {
  const DialogStep add = Do::Click(c_nIdAdd);
  platform->AddScript(c_nIdLoadCombDlg, Join({Do::Type(c_nIdFactor, "0.8"), Do::ToggleRow(c_nIdAvailable, 0), add},
                                             {{c_nIdFactor, "1.3"}}, {Do::ToggleRow(c_nIdAvailable, 1), add}));
}
void CombineLoads(CAnalysisModel& model) {
  model.m_nLoadCaseFlag[0] = model.m_nLoadCaseFlag[1] = 1;
  model.m_dLoadFactor[0] = 0.8;
  model.m_dLoadFactor[1] = 1.3;
}

/// Four modes with shear.
void RunModal(CTestPlatform& platform) {
  platform->AddScript(c_nIdModeDlg, Join({Do::Tick(c_nIdShear), Do::Click(c_nIdModeLoadComb)}, {{c_nIdModes, "4"}}));
  CombineLoads(platform);
  CModeConnect::OnMode();
  platform->Clear();
}
struct WholeRun {
  std::string strName;
  std::vector<std::pair<int, Steps>> scripts;  ///< of the dialogs behind the choice of the method
  std::function<void(CAnalysisModel&)> run;    ///< the same without dialogs
};

int RunDriver(CTestPlatform& platform, const WholeRun& run) {
  const bool bWilson = run.scripts.front().first == c_nIdWilsonDlg;
  platform->AddScript(c_nIdDynOptionDlg, Join({Do::Choose(bWilson ? c_nIdWilson : c_nIdNewmark)}, {}));
  for (const auto& [nDialog, steps] : run.scripts) platform->AddScript(nDialog, steps);
  CombineLoads(platform);
  return CModeConnect::OnTimeHistoryAnalysis();
}

/// Newmark without a default left: the steps, then the fields all runs have in common.
Steps NewmarkSteps(Steps steps) {
  steps.push_back(Do::Click(c_nIdLoadComb));
  return Join(steps, {{c_nIdDamping1, "0.03"}, {c_nIdDamping2, "0.08"}, {c_nIdAlpha, "0.31"}, {c_nIdDelta, "0.6"}});
}
void SetNewmark(CAnalysisModel& model, double dTimeStep, double dDuration) {
  CombineLoads(model);
  model.m_pDamping = {0.03, 0.08};
  model.m_dNewmarkAlpha = 0.31;
  model.m_dNewmarkDelta = 0.6;
  model.m_dTimeStep = dTimeStep;
  model.m_dDuration = dDuration;
}

WholeRun MakeWilson() {
  const Fields fields = {{c_nIdDamping1, "0.03"},
                         {c_nIdDamping2, "0.08"},
                         {c_nIdTheta, "1.9"},
                         {c_nIdWilsonStep, "0.004"},
                         {c_nIdWilsonDuration, "0.1"}};
  return {"Wilson",
          {{c_nIdWilsonDlg, Join({Do::Tick(c_nIdNonlinear), Do::Click(c_nIdLoadComb)}, fields)}},
          [](CAnalysisModel& model) {  // deliberate: this dialog hands over no load combination
            model.m_pDamping = {0.03, 0.08};
            model.m_dWilsonTheta = 1.9;
            model.m_dTimeStep = 0.004;
            model.m_dDuration = 0.1;
            model.WilsonTheta(g_FilePathName);
          }};
}

std::string ComposeImpulses() {
  return ComposeImpulseScript(std::vector<ImpulseLoad>{{3, 1, -7.0}}, c_nRectangularImpulse, 0.0301, 0.005);
}

/// 40 steps.
WholeRun MakeImpulse(const std::string& strUnloadTime) {
  const Fields fields = {{c_nIdImpulseNode, "3"}, {c_nIdImpulseDirection, "1"},     {c_nIdImpulsePeak, "-7"},
                         {c_nIdPeakTime, "0.01"}, {c_nIdUnloadTime, strUnloadTime}, {c_nIdStep, "0.005"},
                         {c_nIdDuration, "0.2"}};
  return {"impulse",
          {{c_nIdNewmarkDlg, NewmarkSteps({Do::Click(c_nIdImpulseLoad)})},
           {c_nIdImpulseLoadDlg, Join({Do::Choose(c_nIdRectangular)}, fields, {Do::Click(c_nIdImpulseInsert)})}},
          [](CAnalysisModel& model) {
            SetNewmark(model, 0.005, 0.2);
            model.LoadScript = ComposeImpulses();
            model.NewmarkIntegration(g_FilePathName, 0, 0);
          }};
}

WholeRun MakeStandardRecord() {
  return {"standard record along Y",
          {{c_nIdNewmarkDlg, NewmarkSteps({Do::Choose(c_nIdGroundMotion), Do::Click(c_nIdEarthquake)})},
           {c_nIdEarthquakeDlg, Join({Do::Tick(c_nIdQuakeY), Do::Tick(c_nIdQuakeZ)},
                                     {{c_nIdPeakY, "2"}, {c_nIdStep, "0.02"}, {c_nIdDuration, "1.1"}})}},
          [](CAnalysisModel& model) {
            SetNewmark(model, 0.02, 1.1);
            model.m_strQuakeFile = g_ProgramPath + "\\GroundAccData\\Elcentro.txt";
            model.m_bQuakeDir = {0, 1, 1};
            model.m_dPeak = {0.35, 2.0, 0.35};
            model.NewmarkIntegration(g_FilePathName, 0, 1);
          }};
}

/// Oblique ground motion of 37 steps.
WholeRun MakeNonlinear(int nCriterion, double dTolerance, int nMaxIter) {
  const Fields fields = {{c_nIdObliqueX, "3"},     {c_nIdObliqueY, "-4"}, {c_nIdObliqueZ, "12"},
                         {c_nIdPeakOblique, "40"}, {c_nIdStep, "0.008"},  {c_nIdDuration, "0.3"}};
  return {
      "nonlinear, criterion " + std::to_string(nCriterion),
      {{c_nIdNewmarkDlg,
        NewmarkSteps({Do::Choose(c_nIdGroundMotion), Do::Tick(c_nIdFromFile), Do::Tick(c_nIdNonlinear),
                      Do::ChooseItem(c_nIdCriterion, nCriterion), Do::Type(c_nIdTolerance, std::to_string(dTolerance)),
                      Do::Type(c_nIdMaxIter, std::to_string(nMaxIter)), Do::Click(c_nIdEarthquake)})},
       {c_nIdEarthquakeDlg, Join({Do::Choose(c_nIdOblique)}, fields)}},
      [=](CAnalysisModel& model) {
        SetNewmark(model, 0.008, 0.3);
        model.m_bLoadFromFile = 1;
        model.m_nQuakeMode = 1;
        model.m_dObliqueCoef = {3.0 / 13.0, -4.0 / 13.0, 12.0 / 13.0};
        model.m_dPeakOblique = 40.0;
        model.m_nConvCriterion = nCriterion;
        model.m_dConvTol = dTolerance;
        model.m_nMaxIter = nMaxIter;
        model.NewmarkIntegration(g_FilePathName, 1, 1);
      }};
}

TEST_F(TimeHistoryDrivers, EverySettingOfTheDialogsReachesTheRun) {
  FillFrame(host);
  g_ProgramPath = SKYFRAME_SOURCE_DIR "/data";
  job.Write("impulseload.log", "/IMPULSELOAD/2 10 3 5 ## 3 0 8 0 ## 2 -4 0 0 ##/END/");  // Wilson reads it
  job.Write("_Tacc.txt", "1 -3 2 5 -4 1 0 2 -1 -2 3 1");
  platform->SetClock({{2026, 3, 4, 5, 6, 7}});
  // The last two stop at the tolerance and at the last iteration.
  for (const WholeRun& run : {MakeWilson(), MakeImpulse("0.0301"), MakeStandardRecord(), MakeNonlinear(3, 0.01, 25),
                              MakeNonlinear(1, 1e-6, 2)}) {
    SCOPED_TRACE(run.strName);
    RunModal(platform);
    CAnalysisModel direct;
    direct.BuildModel();
    run.run(direct);
    const HistorySet &expected = direct.m_history, &found = GetHistories();
    ASSERT_TRUE(expected.bComplete);

    COMDYN.m_bNonlinear = 7;
    EXPECT_EQ(RunDriver(platform, run), 1);
    EXPECT_EQ(platform->GetScriptErrors(), Strings{});
    EXPECT_FALSE(platform->HasUnusedScripts());
    EXPECT_TRUE(platform.GetMessages().empty());
    for (std::size_t q = 0; q < c_nHistoryQuantities; ++q) {
      EXPECT_LT(Compare(found.values[q], expected.values[q]), 1e-9) << q;
    }
    EXPECT_EQ(std::tie(found.nMethod, found.nAssumption, found.dTimeStep, found.strFinished),
              std::tuple(expected.nMethod, expected.nAssumption, expected.dTimeStep, "2026-03-04 05:06:07"));
    EXPECT_EQ(COMDYN.m_bNonlinear, run.strName == "impulse" ? 7 : found.nAssumption);
  }
  EXPECT_EQ(job.Read("_Loadinputtest.txt"), ComposeImpulses());

  // Another session has nothing in memory and reads the file of the last run.
  const std::vector<double> shown = ReadThroughViewer(platform, job);
  EXPECT_EQ(shown.size(), 37U);
  COMDYN.m_bHistoryAvailable = 0;
  EXPECT_EQ(ReadThroughViewer(platform, job), shown);
}

TEST_F(TimeHistoryDrivers, EndEarly) {
  FillFrame(host);
  EXPECT_EQ(CModeConnect::OnTimeHistoryAnalysis(), 0);  // cancelled
  COMDYN.m_bNonlinear = 1;
  EXPECT_EQ(RunDriver(platform, {"cancelled later", {{c_nIdWilsonDlg, {Do::Cancel()}}}, {}}), 0);
  EXPECT_EQ(COMDYN.m_bNonlinear, 0);
  CModeConnect::OnTimeHistoryRes();
  EXPECT_EQ(platform.GetMessages(), c_noHistory);

  const auto run = [this](const std::string& strUnloadTime) {
    platform->Clear();
    EXPECT_EQ(RunDriver(platform, MakeImpulse(strUnloadTime)), 1);
    return platform.GetMessages();
  };
  const Strings noModes = {"模态文件访问出错,计算终止!", "错误:模态未分析"};
  EXPECT_EQ(run("0.03"), noModes);
  EXPECT_EQ(run("1e300"), Strings{"冲击荷载步数过多,计算终止!"});  // no text of two thousand million blocks
  RunModal(platform);
  EXPECT_EQ(run("0.03"), Strings{});

  // A broken run leaves the histories of the one before.
  std::filesystem::remove(job.GetPath(".mode"));
  EXPECT_EQ(run("0.03"), noModes);
  EXPECT_EQ(ReadThroughViewer(platform, job).size(), 40U);

  // Only they and the new ones are held at once: twice 40 steps of 3 * 4 + 4 numbers.
  RunModal(platform);
  platform->SetPhysicalMemory(2 * 5120 - 1);
  EXPECT_EQ(run("0.03"), Strings{"时程结果所需内存超出本机内存,计算终止!"});
  platform->SetPhysicalMemory(2 * 5120);
  EXPECT_EQ(run("0.03"), Strings{});
}

}  // namespace
}  // namespace skyframe::test
