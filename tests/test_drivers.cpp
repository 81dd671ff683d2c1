// The modal and spectrum drivers: elapsed time, renumbering bracket, parameters, early ends.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <map>
#include <random>
#include <sstream>

#include "HostModel.h"
#include "TestPlatform.h"
#include "skyframe/connect/ModeConnect.h"
#include "skyframe/model/AnalysisModel.h"

namespace skyframe::test {
namespace {

/// Two storeys of three by two bays whose nodes are numbered at random.
void FillShuffledFrame(CHostModel& host) {
  host.SetSection(1, 2, 90000, 1.1e9, 6.75e8, 6.75e8);
  host.SetSection(2, 2, 60000, 4.1e8, 2.0e8, 8.0e8);
  const auto index = [](int i, int j, int k) { return (k * 3 + j) * 4 + i; };
  std::vector<int> order(36);
  for (int n = 0; n < 36; ++n) order[n] = n;
  std::shuffle(order.begin(), order.end(), std::mt19937(3));
  std::vector<int> number(36);
  for (const int n : order) {
    const int i = n % 4, j = n / 4 % 3, k = n / 12;
    number[n] = host.AddNode(6.0 * i, 5.0 * j + 0.3 * i, 3.6 * k, c_nRigid, k == 0 ? "111111" : "000000");
  }
  for (int n = 0; n < 36; ++n) {
    const int i = n % 4, j = n / 4 % 3, k = n / 12;
    if (k < 2) host.AddElement(c_nBeam, number[n], number[index(i, j, k + 1)], 102);
    if (k > 0 && i < 3) host.AddElement(c_nBeam, number[n], number[index(i + 1, j, k)], 202);
    if (k > 0 && j < 2) host.AddElement(c_nBeam, number[n], number[index(i, j + 1, k)], 202);
    if (k > 0) host.AddLoad(0, number[n], c_nDofZ, 10.0 + n);
  }
}

std::vector<DialogStep> SelectDeadLoad() {
  return {DialogStep::ToggleRow(16039, 0), DialogStep::Click(16042), DialogStep::Ok()};
}

void RunModal(CTestPlatform& platform, bool bDeadLoad, const std::string& strModes = "6") {
  std::vector<DialogStep> steps = {DialogStep::Type(16000, strModes)};
  if (bDeadLoad) {
    steps.push_back(DialogStep::Click(16044));
    platform->AddScript(16002, SelectDeadLoad());
  }
  steps.push_back(DialogStep::Ok());
  platform->AddScript(16000, steps);
  CModeConnect::OnMode();
  EXPECT_TRUE(platform->GetScriptErrors().empty());
}

int RunSpectrum(CTestPlatform& platform, bool bDeadLoad, std::vector<DialogStep> steps = {}) {
  steps.insert(steps.begin(), DialogStep::Type(16006, "6"));
  if (bDeadLoad) {
    steps.push_back(DialogStep::Click(16030));
    platform->AddScript(16002, SelectDeadLoad());
  }
  steps.push_back(DialogStep::Ok());
  platform->AddScript(16001, steps);
  const int nResult = CModeConnect::OnAnsysSpectrum();
  EXPECT_TRUE(platform->GetScriptErrors().empty());
  return nResult;
}

/// Combined displacements by node number from a ".spec" file.
std::map<int, std::vector<double>> ReadNodeDisplacements(const std::string& strText) {
  std::map<int, std::vector<double>> displacements;
  std::istringstream strm(strText.substr(strText.find("Node_Dis:")));
  std::string strLine;
  std::getline(strm, strLine);
  while (std::getline(strm, strLine) && !strLine.starts_with("Force:")) {
    std::istringstream words(strLine);
    int nNode = 0;
    words >> nNode;
    for (double d = 0.0; words >> d;) displacements[nNode].push_back(d);
  }
  return displacements;
}

TEST(Drivers, ReportTheTimeOnTheWall) {
  const struct {
    LocalTime start;
    LocalTime end;
    const char* pMessage;
  } cases[] = {
      {{2026, 1, 1, 10, 59, 50}, {2026, 1, 1, 11, 0, 5}, "OK!\nTime = 0hour: 0min: 15s"},
      {{2026, 1, 1, 23, 59, 59}, {2026, 1, 2, 0, 0, 1}, "OK!\nTime = 0hour: 0min: 2s"},
      {{2026, 1, 1, 10, 30, 30}, {2026, 1, 1, 12, 20, 40}, "OK!\nTime = 1hour: 50min: 10s"},
      {{2026, 1, 1, 10, 0, 1}, {2026, 1, 1, 12, 0, 0}, "OK!\nTime = 1hour: 59min: 59s"},
      {{2026, 1, 1, 8, 0, 0}, {2026, 1, 2, 9, 0, 0}, "OK!\nTime = 1hour: 0min: 0s"},
  };
  for (const auto& c : cases) {
    CTestPlatform platform;
    CHostModel host;
    FillShuffledFrame(host);
    const CJobFolder job("elapsed");
    // The clock is read at the start and the end of the analysis, and once for the file's date line.
    platform->SetClock({c.start, c.start, c.end});
    RunModal(platform, false);
    EXPECT_EQ(platform.GetMessages(), std::vector<std::string>{c.pMessage});
    EXPECT_TRUE(job.Has(".mode"));
  }
}

TEST(Drivers, RenumberingLeavesNoTrace) {
  CTestPlatform platform;
  CHostModel host;
  FillShuffledFrame(host);
  const CJobFolder job("bracket");
  const auto pBefore = std::make_unique<tagAbcd>(ABCD);
  const auto unchanged = [&] {
    return std::memcmp(pBefore.get(), &ABCD, sizeof ABCD) == 0 && COMDAT.m_pFirstOrder == nullptr &&
           COMDAT.m_pSecondOrder == nullptr && platform->GetModuleDepth() == 0;
  };
  RunModal(platform, false);
  EXPECT_TRUE(unchanged());
  RunModal(platform, false, "100000");  // more modes than equations
  EXPECT_EQ(platform.GetMessages().at(1), "模态数大于结构自由度,计算终止!");
  EXPECT_TRUE(unchanged());
  platform->AddScript(16000, {DialogStep::Cancel()});
  CModeConnect::OnMode();
  EXPECT_TRUE(unchanged());
  EXPECT_EQ(RunSpectrum(platform, false), 1);
  EXPECT_TRUE(unchanged());

  ABCD.m_nElementType[0] = c_nCable;  // the build refuses: no analysis, no time
  *pBefore = ABCD;
  const std::size_t nMessages = platform.GetMessages().size();
  RunModal(platform, false);
  EXPECT_EQ(platform.GetMessages().size(), nMessages + 1);
  EXPECT_EQ(platform.GetMessages().back(), "不能计算索单元!");
  EXPECT_TRUE(unchanged());
}

TEST(Drivers, SpectrumIsTheSameUnderAnyNumbering) {
  CTestPlatform platform;
  CHostModel host;
  FillShuffledFrame(host);
  const CJobFolder job("numbering");
  RunModal(platform, false);
  EXPECT_EQ(RunSpectrum(platform, false), 1);
  const auto renumbered = ReadNodeDisplacements(job.Read(".spec"));

  CAnalysisModel model;  // the host's own numbering throughout
  model.BuildModelForModes(false);
  model.m_nModes = 6;
  model.SolveModes(job.GetJobPath(), 0, false);
  EXPECT_EQ(RunSpectrum(platform, false), 1);
  const auto identical = ReadNodeDisplacements(job.Read(".spec"));

  ASSERT_EQ(renumbered.size(), 36U);
  ASSERT_EQ(identical.size(), 36U);
  double dLargest = 0.0;
  for (const auto& [nNode, u] : identical) dLargest = std::max(dLargest, u[0]);
  EXPECT_GT(dLargest, 1e-5);
  for (const auto& [nNode, u] : identical) {
    for (std::size_t i = 0; i < u.size(); ++i) EXPECT_NEAR(renumbered.at(nNode)[i], u[i], 1e-4 * dLargest) << nNode;
  }
}

// Loads as masses: only when a load type was chosen, and alike in both analyses.
TEST(Drivers, LoadMassesFollowTheCombination) {
  std::map<bool, double> frequency;
  for (const bool bDeadLoad : {false, true}) {
    CTestPlatform platform;
    CHostModel host;
    FillShuffledFrame(host);
    const CJobFolder job("masses");
    RunModal(platform, bDeadLoad);
    std::istringstream strm(job.Read(".mode"));
    std::string strWord;
    while (strm >> strWord && strWord != "Eigen_And_Freq:") continue;
    int nMode = 0;
    strm >> nMode >> frequency[bDeadLoad];
    EXPECT_EQ(nMode, 1);
  }
  EXPECT_LT(frequency.at(true), 0.8 * frequency.at(false));
}

TEST(Drivers, SpectrumEndsEarly) {
  CTestPlatform platform;
  CHostModel host;
  FillShuffledFrame(host);
  const CJobFolder job("early");
  EXPECT_EQ(CModeConnect::OnAnsysSpectrum(), 0);  // no script: cancelled
  EXPECT_EQ(RunSpectrum(platform, false), 1);
  EXPECT_EQ(platform.GetMessages(), std::vector<std::string>{"模态文件访问出错,计算终止!"});
  RunModal(platform, false);
  job.Write(".spec", "older result");
  // A mesh of 21 becomes 22; intensity 6 has no rare earthquake; the vector has no direction.
  const std::pair<std::vector<DialogStep>, const char*> cases[] = {
      {{DialogStep::Type(16009, "21")}, "网格最多划分20格，计算终止!"},
      {{DialogStep::Type(16022, "0")}, "反应谱方向未输入，计算终止!"},
      {{DialogStep::Type(16022, "0"), DialogStep::Type(16009, "21")}, "反应谱方向未输入，计算终止!"},
      {{DialogStep::Type(16022, "0"), DialogStep::Type(16029, "0"), DialogStep::Type(16007, "-1")},
       "反应谱方向未输入，计算终止!"},
      {{DialogStep::Type(16009, "5"), DialogStep::Type(16022, "1"), DialogStep::Type(16007, "-1")},
       "请正确输入阻尼率!"},
      {{DialogStep::Type(16007, "0.05"), DialogStep::Choose(16010), DialogStep::Choose(16014)},
       "6度地震不进行罕遇验算!"},
  };
  for (const auto& [steps, pMessage] : cases) {
    platform->Clear();
    EXPECT_EQ(RunSpectrum(platform, false, steps), 1);
    ASSERT_EQ(platform.GetMessages().size(), 2U) << pMessage;  // and the time
    EXPECT_EQ(platform.GetMessages()[0], pMessage);
    EXPECT_EQ(job.Read(".spec"), "older result");
  }
}

TEST(Drivers, HostAsksForTheVirtualMode) {
  CTestPlatform platform;
  CHostModel host;
  FillShuffledFrame(host);
  const CJobFolder job("virtual");
  RunModal(platform, false);
  COMDYN.m_bVirtualModes = 1;
  COMDYN.m_nPseudoLoadNo = -1;
  RunSpectrum(platform, false);
  EXPECT_EQ(platform.GetMessages().at(1), "错误:虚拟地震静力序号");
  EXPECT_FALSE(job.Has(".spec"));
  COMDYN.m_nPseudoLoadNo = 1;
  RunSpectrum(platform, false);
  EXPECT_TRUE(job.Has(".spec"));
  EXPECT_TRUE(job.Has("_VirtMode.spec"));
}

}  // namespace
}  // namespace skyframe::test
