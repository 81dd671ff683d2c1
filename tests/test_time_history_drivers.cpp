// The time-history and viewer drivers through their dialogs, on one bar with a known answer.

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

#include "HostModel.h"
#include "TestPlatform.h"
#include "skyframe/connect/Histories.h"
#include "skyframe/connect/ModeConnect.h"
#include "skyframe/dialogs/HisResultDlg.h"
#include "skyframe/dialogs/Templates.h"
#include "skyframe/model/NodeTable.h"
#include "skyframe/values/HistorySet.h"

namespace skyframe::test {
namespace {

constexpr double c_dStiffness = 1.03e9;                // N/m
constexpr double c_dMass = 7900.0 * 0.01 * 2.0 / 3.0;  // kg, of the bar at its end
constexpr double c_dForce = 10.0e3;                    // N

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

TEST(TimeHistoryDrivers, NewmarkUnderAStepLoad) {
  CTestPlatform platform;
  CHostModel host;
  FillBar(host);
  const CJobFolder job("newmark");
  RunModal(platform);
  ScriptStepLoad(platform);
  EXPECT_EQ(CModeConnect::OnTimeHistoryAnalysis(), 1);
  EXPECT_TRUE(platform.GetMessages().empty());
  EXPECT_TRUE(platform->GetScriptErrors().empty());

  std::string strBlock = "   2   10.000   0.000   0.000\r\n##\r\n";
  std::string strScript = "/IMPULSELOAD/\r\n";
  for (int i = 0; i < 1000; ++i) strScript += strBlock;
  EXPECT_EQ(job.Read("_Loadinputtest.txt"), strScript + "/END/");
  EXPECT_FALSE(job.Has("_HisTime.txt"));  // nodal forces leave no history file

  const std::vector<double> u = ReadThroughViewer(platform, job);
  ASSERT_EQ(u.size(), 1000U);
  EXPECT_NEAR(u[0], 2.38008e-7, 2e-12);
  EXPECT_NEAR(u[1], 1.16670e-6, 2e-11);
}

TEST(TimeHistoryDrivers, WilsonReadsTheJobsOwnScript) {
  CTestPlatform platform;
  CHostModel host;
  FillBar(host);
  const CJobFolder job("wilson");
  RunModal(platform);
  const auto run = [&] {
    platform->AddScript(c_nIdDynOptionDlg, {DialogStep::Choose(c_nIdWilson), DialogStep::Ok()});
    platform->AddScript(c_nIdWilsonDlg, {DialogStep::Type(c_nIdDamping1, "0"), DialogStep::Type(c_nIdDamping2, "0"),
                                         DialogStep::Type(c_nIdWilsonStep, "0.001"),
                                         DialogStep::Type(c_nIdWilsonDuration, "0.0205"), DialogStep::Ok()});
    COMDYN.m_bNonlinear = 1;
    EXPECT_EQ(CModeConnect::OnTimeHistoryAnalysis(), 1);
    EXPECT_EQ(COMDYN.m_bNonlinear, 0);
  };
  run();
  EXPECT_EQ(platform.GetMessages(), std::vector<std::string>{"冲击荷载数据文件读入有误"});
  EXPECT_EQ(COMDYN.m_bHistoryAvailable, 0);

  platform->Clear();
  std::string strScript = "/IMPULSELOAD/\n";
  for (int i = 0; i < 30; ++i) strScript += "2 10 0 0\n##\n";
  job.Write("impulseload.log", strScript + "/END/");
  run();
  EXPECT_TRUE(platform.GetMessages().empty());
  // This dialog hands over no load combination: the bar's own mass alone.
  const std::vector<double> u = ReadThroughViewer(platform, job);
  ASSERT_EQ(u.size(), 20U);
  const double h = 1.4e-3, u1 = 1.4 * c_dForce / (c_dStiffness + 6.0 * c_dMass / (h * h));  // first step from rest
  EXPECT_NEAR(u[0], 1e-6 / 6.0 * 6.0 / (h * h) / 1.4 * u1, 1e-4 * u1);
}

TEST(TimeHistoryDrivers, GroundMotionWritesTheHistoryFile) {
  CTestPlatform platform;
  CHostModel host;
  FillBar(host);
  const CJobFolder job("ground");
  RunModal(platform);
  job.Write("_Xacc.txt", "0 0.5 1 -1 0.5 0 0 0 0 0");
  platform->AddScript(c_nIdDynOptionDlg, {DialogStep::Choose(c_nIdNewmark), DialogStep::Ok()});
  platform->AddScript(c_nIdEarthquakeDlg,
                      {DialogStep::Tick(c_nIdQuakeX), DialogStep::Type(c_nIdStep, "0.01"),
                       DialogStep::Type(c_nIdDuration, "0.105"), DialogStep::Type(c_nIdPeakX, "2"), DialogStep::Ok()});
  platform->AddScript(c_nIdNewmarkDlg, {DialogStep::Choose(c_nIdGroundMotion), DialogStep::Tick(c_nIdFromFile),
                                        DialogStep::Click(c_nIdEarthquake), DialogStep::Ok()});
  EXPECT_EQ(CModeConnect::OnTimeHistoryAnalysis(), 1);
  EXPECT_TRUE(platform.GetMessages().empty());
  const std::string strFile = job.Read("_HisTime.txt");
  EXPECT_TRUE(
      strFile.starts_with("Total node number:  2\nTotal element number:  1\nTotal time step:  10\n"
                          "Time increment(s):  0.01\nSolution Method:  Newmark.\nSolution Assumption:  Linear.\n--\n"));
  const std::vector<double> shown = ReadThroughViewer(platform, job);

  // Another session has nothing in memory and reads the file.
  COMDYN.m_bHistoryAvailable = 0;
  EXPECT_EQ(ReadThroughViewer(platform, job), shown);
  EXPECT_EQ(shown.size(), 10U);
  // Period 1.4 ms, step 10 ms: the relative displacement follows -m a / k nearly statically.
  EXPECT_NEAR(shown[2], -c_dMass * 2.0 / c_dStiffness, 0.3 * c_dMass * 2.0 / c_dStiffness);
}

TEST(TimeHistoryDrivers, EndEarly) {
  CTestPlatform platform;
  CHostModel host;
  FillBar(host);
  const CJobFolder job("history_early");
  EXPECT_EQ(CModeConnect::OnTimeHistoryAnalysis(), 0);  // cancelled
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
}

}  // namespace
}  // namespace skyframe::test
