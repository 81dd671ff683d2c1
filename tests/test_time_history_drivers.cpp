// The time-history and viewer drivers through their dialogs, against the same runs on the model.

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <sstream>
#include <utility>

#include "HostModel.h"
#include "TestPlatform.h"
#include "skyframe/connect/Histories.h"
#include "skyframe/connect/ModeConnect.h"
#include "skyframe/dialogs/HisResultDlg.h"
#include "skyframe/dialogs/Templates.h"
#include "skyframe/history/ImpulseScript.h"
#include "skyframe/hostdata/HostData.h"
#include "skyframe/model/AnalysisModel.h"
#include "skyframe/values/HistorySet.h"

namespace skyframe::test {
namespace {

/// A bar of two metres free along X at its end, which carries a load of 100 kN along +Z as mass.
void FillBar(CHostModel& host) {
  host.SetSection(1, 2, 10000);
  host.AddNode(0, 0, 0, c_nPinned, "111000");
  host.AddNode(2, 0, 0, c_nPinned, "011000");
  host.AddElement(c_nBar, 1, 2);
  host.AddLoad(0, 2, c_nDofZ, 100.0);
}

std::vector<DialogStep> SelectDeadLoad() {
  return {DialogStep::ToggleRow(c_nIdAvailable, 0), DialogStep::Click(c_nIdAdd), DialogStep::Ok()};
}

void RunModal(CTestPlatform& platform) {
  platform->AddScript(c_nIdModeDlg,
                      {DialogStep::Type(c_nIdModes, "1"), DialogStep::Click(c_nIdModeLoadComb), DialogStep::Ok()});
  platform->AddScript(c_nIdLoadCombDlg, SelectDeadLoad());
  CModeConnect::OnMode();
  platform->Clear();
}

/// 10 kN along X from the start to the end of 1000 steps of a millisecond, without damping.
void ScriptStepLoad(CTestPlatform& platform, const std::string& strUnloadTime = "1.0005") {
  platform->AddScript(c_nIdDynOptionDlg, {DialogStep::Choose(c_nIdNewmark), DialogStep::Ok()});
  platform->AddScript(c_nIdImpulseLoadDlg,
                      {DialogStep::Choose(c_nIdRectangular), DialogStep::Type(c_nIdImpulseNode, "2"),
                       DialogStep::Type(c_nIdImpulsePeak, "10"), DialogStep::Type(c_nIdUnloadTime, strUnloadTime),
                       DialogStep::Type(c_nIdStep, "0.001"), DialogStep::Type(c_nIdDuration, "1.0005"),
                       DialogStep::Click(c_nIdImpulseInsert), DialogStep::Ok()});
  platform->AddScript(c_nIdLoadCombDlg, SelectDeadLoad());
  platform->AddScript(c_nIdNewmarkDlg,
                      {DialogStep::Type(c_nIdDamping1, "0"), DialogStep::Type(c_nIdDamping2, "0"),
                       DialogStep::Click(c_nIdImpulseLoad), DialogStep::Click(c_nIdLoadComb), DialogStep::Ok()});
}

/// Steps of the history of node 2 along X as the viewer writes it.
std::vector<double> ReadThroughViewer(CTestPlatform& platform, const CJobFolder& job) {
  platform->AddScript(c_nIdHisResultDlg, {DialogStep::Type(c_nIdHistoryNode, "2"), DialogStep::Click(c_nIdRefresh),
                                          DialogStep::Click(c_nIdOutput), DialogStep::Ok()});
  CModeConnect::OnTimeHistoryRes();
  EXPECT_TRUE(platform->GetScriptErrors().empty());
  std::istringstream strm(job.Read("_2_node.txt"));
  std::vector<double> values;
  for (std::string strWord; strm >> strWord;) {
    if (!strWord.starts_with("TimePoint:")) continue;
    int nStep = 0;
    strm >> nStep >> values.emplace_back();
    EXPECT_EQ(nStep, static_cast<int>(values.size()));
  }
  return values;
}

const std::vector<std::string> c_noHistory = {"没有进行时程分析。", "错误:动力时程未计算."};

TEST(TimeHistoryDrivers, HostRecordThatOutlivedTheHistories) {
  if (GetHistories().bComplete) GTEST_SKIP() << "only before the first run";
  CTestPlatform platform;
  const CHostModel host;
  const CJobFolder job("outlived");
  COMDYN.m_bHistoryAvailable = 1;
  CModeConnect::OnTimeHistoryRes();
  EXPECT_EQ(platform.GetMessages(), c_noHistory);
}

/// A frame that leans every way; two load types of 60 and 40 kN along +Z.
void FillFrame(CHostModel& host) {
  host.SetSection(1, 2, 6000.0, 5e6, 2e7, 4e7);
  host.AddNode(0, 0, 0, c_nRigid, "111111");
  host.AddNode(0.2, 0.1, 3);
  host.AddNode(4, 0, 3.1);
  host.AddNode(4, 0.3, 0, c_nPinned, "111000");
  for (const int n : {1, 2, 3}) host.AddElement(c_nBeam, n, n + 1);
  host.AddElement(c_nBar, 1, 3);
  host.AddLoad(0, 2, c_nDofZ, 60.0);
  host.AddLoad(1, 3, c_nDofZ, 40.0);
  ABCD.m_nLoadCases = 1;
}

/// Both load types, the first one by 0.8, the second one by 1.3.
std::vector<DialogStep> CombineLoads() {
  return {DialogStep::Type(c_nIdFactor, "0.8"),
          DialogStep::ToggleRow(c_nIdAvailable, 0),
          DialogStep::Click(c_nIdAdd),
          DialogStep::Type(c_nIdFactor, "1.3"),
          DialogStep::ToggleRow(c_nIdAvailable, 1),
          DialogStep::Click(c_nIdAdd),
          DialogStep::Ok()};
}
void CombineLoads(CAnalysisModel& model) {
  model.m_nLoadCaseFlag[0] = model.m_nLoadCaseFlag[1] = 1;
  model.m_dLoadFactor[0] = 0.8;
  model.m_dLoadFactor[1] = 1.3;
}

using Scripts = std::vector<std::pair<int, std::vector<DialogStep>>>;

struct WholeRun {
  const char* strName;
  Scripts scripts;                           ///< of the dialogs behind the choice of the method
  std::function<void(CAnalysisModel&)> run;  ///< the same without dialogs
};

/// Newmark without a default left; further steps before OK.
std::vector<DialogStep> NewmarkSteps(std::vector<DialogStep> further) {
  std::vector<DialogStep> steps = {DialogStep::Type(c_nIdDamping1, "0.03"), DialogStep::Type(c_nIdDamping2, "0.08"),
                                   DialogStep::Type(c_nIdAlpha, "0.31"), DialogStep::Type(c_nIdDelta, "0.6"),
                                   DialogStep::Click(c_nIdLoadComb)};
  steps.insert(steps.end(), further.begin(), further.end());
  steps.push_back(DialogStep::Ok());
  return steps;
}
void SetNewmark(CAnalysisModel& model, double dTimeStep, double dDuration) {
  CombineLoads(model);
  model.m_pDamping = {0.03, 0.08};
  model.m_dNewmarkAlpha = 0.31;
  model.m_dNewmarkDelta = 0.6;
  model.m_dTimeStep = dTimeStep;
  model.m_dDuration = dDuration;
}

std::vector<DialogStep> ObliqueSteps() {
  return {DialogStep::Choose(c_nIdOblique),         DialogStep::Type(c_nIdObliqueX, "3"),
          DialogStep::Type(c_nIdObliqueY, "-4"),    DialogStep::Type(c_nIdObliqueZ, "12"),
          DialogStep::Type(c_nIdPeakOblique, "40"), DialogStep::Type(c_nIdStep, "0.008"),
          DialogStep::Type(c_nIdDuration, "0.3"),   DialogStep::Ok()};
}

/// Oblique nonlinear ground motion.
WholeRun MakeNonlinearRun(const char* strName, int nCriterion, double dTolerance, int nMaxIter) {
  return {
      strName,
      {{c_nIdNewmarkDlg,
        NewmarkSteps({DialogStep::Choose(c_nIdGroundMotion), DialogStep::Tick(c_nIdFromFile),
                      DialogStep::Tick(c_nIdNonlinear), DialogStep::ChooseItem(c_nIdCriterion, nCriterion),
                      DialogStep::Type(c_nIdTolerance, std::to_string(dTolerance)),
                      DialogStep::Type(c_nIdMaxIter, std::to_string(nMaxIter)), DialogStep::Click(c_nIdEarthquake)})},
       {c_nIdEarthquakeDlg, ObliqueSteps()}},
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

std::string ComposeImpulses() {
  return ComposeImpulseScript(std::vector<ImpulseEntry>{{2, 1, 10.0}, {3, 0, -7.0}}, 1, 0.0301, 0.005);
}

std::vector<WholeRun> MakeRuns() {
  const WholeRun wilson = {"Wilson",
                           {{c_nIdWilsonDlg,
                             {DialogStep::Type(c_nIdDamping1, "0.03"), DialogStep::Type(c_nIdDamping2, "0.08"),
                              DialogStep::Type(c_nIdTheta, "1.9"), DialogStep::Type(c_nIdWilsonStep, "0.004"),
                              DialogStep::Type(c_nIdWilsonDuration, "0.1"), DialogStep::Tick(c_nIdNonlinear),
                              DialogStep::Click(c_nIdLoadComb), DialogStep::Ok()}}},
                           [](CAnalysisModel& model) {  // deliberate: this dialog hands over no load combination
                             model.m_pDamping = {0.03, 0.08};
                             model.m_dWilsonTheta = 1.9;
                             model.m_dTimeStep = 0.004;
                             model.m_dDuration = 0.1;
                             model.WilsonTheta(g_FilePathName);
                           }};
  const WholeRun impulse = {"impulses",
                            {{c_nIdNewmarkDlg, NewmarkSteps({DialogStep::Click(c_nIdImpulseLoad)})},
                             {c_nIdImpulseLoadDlg,
                              {DialogStep::Choose(c_nIdRectangular), DialogStep::Type(c_nIdImpulseNode, "2"),
                               DialogStep::Type(c_nIdImpulseDirection, "1"), DialogStep::Type(c_nIdImpulsePeak, "10"),
                               DialogStep::Click(c_nIdImpulseInsert), DialogStep::Type(c_nIdImpulseNode, "3"),
                               DialogStep::Type(c_nIdImpulseDirection, "0"), DialogStep::Type(c_nIdImpulsePeak, "-7"),
                               DialogStep::Click(c_nIdImpulseInsert), DialogStep::Type(c_nIdPeakTime, "0.01"),
                               DialogStep::Type(c_nIdUnloadTime, "0.0301"), DialogStep::Type(c_nIdStep, "0.005"),
                               DialogStep::Type(c_nIdDuration, "0.2"), DialogStep::Ok()}}},
                            [](CAnalysisModel& model) {
                              SetNewmark(model, 0.005, 0.2);
                              model.LoadScript = ComposeImpulseScript(
                                  std::vector<ImpulseEntry>{{2, 1, 10.0}, {3, 0, -7.0}}, 1, 0.0301, 0.005);
                              model.NewmarkIntegration(g_FilePathName, 0, 0);
                            }};
  const WholeRun file = {
      "forces of a file",
      {{c_nIdNewmarkDlg, NewmarkSteps({DialogStep::Tick(c_nIdFromFile), DialogStep::Click(c_nIdGeneralLoad)})},
       {c_nIdGeneralLoadDlg,
        {DialogStep::Type(c_nIdStep, "0.006"), DialogStep::Type(c_nIdDuration, "0.2"), DialogStep::Ok()}}},
      [](CAnalysisModel& model) {
        SetNewmark(model, 0.006, 0.2);
        model.m_bLoadFromFile = 1;
        model.NewmarkIntegration(g_FilePathName, 0, 0);
      }};
  const WholeRun ground = {
      "standard record along Y",
      {{c_nIdNewmarkDlg, NewmarkSteps({DialogStep::Choose(c_nIdGroundMotion), DialogStep::Click(c_nIdEarthquake)})},
       {c_nIdEarthquakeDlg,
        {DialogStep::Tick(c_nIdQuakeY), DialogStep::Tick(c_nIdQuakeZ), DialogStep::Type(c_nIdPeakY, "2"),
         DialogStep::Type(c_nIdStep, "0.02"), DialogStep::Type(c_nIdDuration, "1.1"), DialogStep::Ok()}}},
      [](CAnalysisModel& model) {
        SetNewmark(model, 0.02, 1.1);
        model.m_strQuakeFile = g_ProgramPath + "\\GroundAccData\\Elcentro.txt";
        model.m_bQuakeDir = {0, 1, 1};
        model.m_dPeak = {0.35, 2.0, 0.35};
        model.NewmarkIntegration(g_FilePathName, 0, 1);
      }};
  return {wilson,
          impulse,
          file,
          ground,
          MakeNonlinearRun("nonlinear, to the tolerance", 3, 0.01, 25),
          MakeNonlinearRun("nonlinear, to the last iteration", 1, 1e-6, 2)};
}

/// Largest difference over largest value of a table.
double Compare(const CHistoryTable& found, const CHistoryTable& expected) {
  if (found.GetRows() != expected.GetRows() || found.GetCols() != expected.GetCols()) return 1.0;
  double dLargest = 0.0, dDifference = 0.0;
  for (int k = 0; k < found.GetRows(); ++k) {
    for (int i = 0; i < found.GetCols(); ++i) {
      dLargest = std::max(dLargest, std::abs(expected[k][i]));
      dDifference = std::max(dDifference, std::abs(found[k][i] - expected[k][i]));
    }
  }
  return dLargest > 0.0 ? dDifference / dLargest : 1.0;
}

TEST(TimeHistoryDrivers, EverySettingOfTheDialogsReachesTheRun) {
  CTestPlatform platform;
  CHostModel host;
  FillFrame(host);
  const CJobFolder job("every_setting");
  g_ProgramPath = SKYFRAME_SOURCE_DIR "/data";
  job.Write("impulseload.log", "/IMPULSELOAD/2 10 3 5 ## 3 0 8 0 ## 2 -4 0 0 ##/END/");
  job.Write("_Tacc.txt", "1 -3 2 5 -4 1 0 2 -1 -2 3 1");
  platform->SetClock({{2026, 3, 4, 5, 6, 7}});
  for (const WholeRun& run : MakeRuns()) {
    CAnalysisModel modes, direct;
    CombineLoads(modes);
    modes.BuildModelForModes(true);
    modes.m_nModes = 4;
    modes.m_bShear = 1;
    modes.SolveModes(job.GetJobPath(), 0, true);
    direct.BuildModel();
    run.run(direct);
    ASSERT_TRUE(direct.m_history.bComplete) << run.strName;
    std::filesystem::remove(job.GetPath(".mode"));

    platform->AddScript(c_nIdModeDlg, {DialogStep::Type(c_nIdModes, "4"), DialogStep::Tick(c_nIdShear),
                                       DialogStep::Click(c_nIdModeLoadComb), DialogStep::Ok()});
    platform->AddScript(c_nIdLoadCombDlg, CombineLoads());
    CModeConnect::OnMode();
    const bool bWilson = run.scripts.front().first == c_nIdWilsonDlg;
    platform->AddScript(c_nIdDynOptionDlg,
                        {DialogStep::Choose(bWilson ? c_nIdWilson : c_nIdNewmark), DialogStep::Ok()});
    for (const auto& [nDialog, steps] : run.scripts) platform->AddScript(nDialog, steps);
    platform->AddScript(c_nIdLoadCombDlg, CombineLoads());
    COMDYN.m_bNonlinear = 7;
    EXPECT_EQ(CModeConnect::OnTimeHistoryAnalysis(), 1);
    EXPECT_EQ(platform->GetScriptErrors(), std::vector<std::string>{}) << run.strName;
    EXPECT_FALSE(platform->HasUnusedScripts()) << run.strName;
    EXPECT_EQ(platform.GetMessages().size(), 1U) << run.strName;  // the time of the modal analysis
    const HistorySet& history = GetHistories();
    for (std::size_t q = 0; q < c_nHistoryQuantities; ++q) {
      EXPECT_LT(Compare(history.values[q], direct.m_history.values[q]), 1e-9) << run.strName << ", quantity " << q;
    }
    EXPECT_EQ(history.nMethod, direct.m_history.nMethod) << run.strName;
    EXPECT_EQ(history.nAssumption, direct.m_history.nAssumption) << run.strName;
    EXPECT_EQ(history.dTimeStep, direct.m_history.dTimeStep) << run.strName;
    EXPECT_EQ(history.strFinished, "2026-03-04 05:06:07");
    const bool bNodalForce = !bWilson && run.scripts.back().first != c_nIdEarthquakeDlg;
    EXPECT_EQ(COMDYN.m_bNonlinear, bNodalForce ? 7 : history.nAssumption) << run.strName;
    platform->Clear();
  }
  EXPECT_EQ(job.Read("_Loadinputtest.txt"), ComposeImpulses());

  // Another session has nothing in memory and reads the file of the last run.
  const std::vector<double> shown = ReadThroughViewer(platform, job);
  EXPECT_EQ(shown.size(), 37U);
  COMDYN.m_bHistoryAvailable = 0;
  EXPECT_EQ(ReadThroughViewer(platform, job), shown);
}

TEST(TimeHistoryDrivers, EndEarly) {
  CTestPlatform platform;
  CHostModel host;
  FillBar(host);
  const CJobFolder job("history_early");
  EXPECT_EQ(CModeConnect::OnTimeHistoryAnalysis(), 0);  // cancelled
  platform->AddScript(c_nIdDynOptionDlg, {DialogStep::Choose(c_nIdWilson), DialogStep::Ok()});
  COMDYN.m_bNonlinear = 1;
  EXPECT_EQ(CModeConnect::OnTimeHistoryAnalysis(), 0);  // cancelled later
  EXPECT_EQ(COMDYN.m_bNonlinear, 0);
  CModeConnect::OnTimeHistoryRes();
  EXPECT_EQ(platform.GetMessages(), c_noHistory);
  platform->Clear();
  ScriptStepLoad(platform);
  EXPECT_EQ(CModeConnect::OnTimeHistoryAnalysis(), 1);
  EXPECT_EQ(platform.GetMessages(), (std::vector<std::string>{"模态文件访问出错,计算终止!", "错误:模态未分析"}));
  platform->Clear();
  ScriptStepLoad(platform, "1e300");  // no text of two thousand million blocks is composed
  EXPECT_EQ(CModeConnect::OnTimeHistoryAnalysis(), 1);
  EXPECT_EQ(platform.GetMessages(), std::vector<std::string>{"冲击荷载步数过多,计算终止!"});
  platform->Clear();
  RunModal(platform);

  // A broken run leaves the histories of the one before.
  ScriptStepLoad(platform);
  EXPECT_EQ(CModeConnect::OnTimeHistoryAnalysis(), 1);
  std::filesystem::remove(job.GetPath(".mode"));
  ScriptStepLoad(platform);
  EXPECT_EQ(CModeConnect::OnTimeHistoryAnalysis(), 1);
  EXPECT_EQ(ReadThroughViewer(platform, job).size(), 1000U);

  // Only they and the new ones are held at once: twice 1000 steps of 3 * 2 + 1 numbers.
  RunModal(platform);
  for (const bool bEnough : {false, true}) {
    platform->SetPhysicalMemory(bEnough ? 112000.0 : 111999.0);
    ScriptStepLoad(platform);
    EXPECT_EQ(CModeConnect::OnTimeHistoryAnalysis(), 1);
    EXPECT_EQ(platform.GetMessages().size(), bEnough ? 0U : 1U);
    platform->Clear();
  }
}

}  // namespace
}  // namespace skyframe::test
