// The modal and spectrum drivers: elapsed time, renumbering bracket, parameters, early ends.

#include "EntryPoints.h"
#include "ModalModels.h"
#include "skyframe/connect/Findings.h"
#include "skyframe/connect/ModeConnect.h"
#include "skyframe/model/AnalysisModel.h"

namespace skyframe::test {
namespace {

struct CDriverRun : Session {
  CDriverRun() { FillMast(host); }

  void RunModal(bool bDeadLoad = false, const std::string& strModes = "6", Steps steps = {}) {
    steps.insert(steps.begin(), Do::Type(16000, strModes));
    AddScript(16000, std::move(steps), bDeadLoad, 16044);
    CModeConnect::OnMode();
    EXPECT_TRUE(platform->GetScriptErrors().empty());
  }
  void RunSpectrum(bool bDeadLoad = false, Steps steps = {}) {
    steps.insert(steps.begin(), Do::Type(16006, "6"));
    AddScript(16001, std::move(steps), bDeadLoad, 16030);
    EXPECT_EQ(CModeConnect::OnAnsysSpectrum(), 1);
    EXPECT_TRUE(platform->GetScriptErrors().empty());
  }

 private:
  void AddScript(int nDialog, Steps steps, bool bDeadLoad, int nButton) {
    if (bDeadLoad) {
      steps.push_back(Do::Click(nButton));
      platform->AddScript(16002, {Do::ToggleRow(16039, 0), Do::Click(16042), Do::Ok()});
    }
    steps.push_back(Do::Ok());
    platform->AddScript(nDialog, std::move(steps));
  }
};

TEST(Drivers, ReportTheTimeOnTheWall) {
  const struct {
    LocalTime start;
    LocalTime end;
    const char* pMessage;
  } cases[] = {
      {{2026, 1, 1, 10, 59, 50}, {2026, 1, 1, 11, 0, 5}, "OK!\nTime = 0hour: 0min: 15s"},
      {{2026, 1, 1, 23, 59, 59}, {2026, 1, 2, 0, 0, 1}, "OK!\nTime = 0hour: 0min: 2s"},
      {{2026, 1, 1, 10, 30, 30}, {2026, 1, 1, 12, 20, 40}, "OK!\nTime = 1hour: 50min: 10s"},
      {{2026, 1, 1, 8, 0, 0}, {2026, 1, 2, 9, 0, 0}, "OK!\nTime = 1hour: 0min: 0s"},
  };
  for (const auto& c : cases) {
    CDriverRun run;
    // The clock is read at the start and the end of the analysis, and once for the file's date line.
    run.platform->SetClock({c.start, c.start, c.end});
    run.RunModal();
    EXPECT_EQ(run.platform.GetMessages(), Strings{c.pMessage});
    EXPECT_TRUE(run.job.Has(".mode"));
  }
}

TEST(Drivers, TellOfEveryStepFromItsBeginningToItsEnd) {
  CDriverRun run;
  run.job.Write("_Xacc.txt", "0.1 -0.2 0.1 0.1");
  const Strings expected[] = {
      {"组装质量矩阵", "组装刚度矩阵", "矩阵分解", "模态分析", "丢根判断", "丢根判断", "写模态文件"},
      {"读模态文件", "组装质量矩阵", "振型组合", "写反应谱结果文件"},
      {"组装刚度矩阵", "矩阵分解", "平衡迭代", "写静力结果文件"},
      {"组装质量矩阵", "组装刚度矩阵", "矩阵分解", "时程积分", "写时程结果文件"},
      {"读时程结果文件"}};
  std::size_t nTold = 0;
  for (std::size_t n = 0; const EntryPoint& point : GetEntryPoints()) {
    for (const auto& [nDialog, steps] : point.scripts) run.platform->AddScript(nDialog, steps);
    point.call();
    Strings names;
    for (; nTold < run.platform.GetProgress().size(); ++nTold) {
      const auto& [strName, fractions] = run.platform.GetProgress()[nTold];
      names.push_back(strName);
      EXPECT_EQ(fractions.front(), 0.0) << strName;
      EXPECT_TRUE(fractions.back() == 1.0 || strName == "平衡迭代") << strName << ' ' << fractions.back();
      EXPECT_TRUE(strName != "时程积分" || fractions.size() == 4U) << "every step";
    }
    EXPECT_EQ(names, expected[n++]);
  }
}

TEST(Drivers, RenumberingLeavesNoTrace) {
  CDriverRun run;
  ABCD.m_nLoadCases = std::numeric_limits<int>::max();
  const auto pBefore = std::make_unique<tagAbcd>(ABCD);
  const auto unchanged = [&] {
    return std::memcmp(pBefore.get(), &ABCD, sizeof ABCD) == 0 && COMDAT.m_pFirstOrder == nullptr &&
           COMDAT.m_pSecondOrder == nullptr && run.platform->GetModuleDepth() == 0;
  };
  run.RunModal();
  EXPECT_TRUE(unchanged());
  run.RunModal(false, "100000");  // more modes than equations
  EXPECT_EQ(run.platform.GetMessages().at(1), "模态数大于结构自由度,计算终止!");
  EXPECT_TRUE(unchanged());
  run.platform->AddScript(16000, {Do::Click(16044), Do::Cancel()});
  CModeConnect::OnMode();
  EXPECT_EQ(run.platform.GetMessages().at(3), "荷载类型过多,计算终止!");
  EXPECT_TRUE(unchanged());
  run.RunSpectrum();
  EXPECT_TRUE(unchanged());

  // The build refuses: no analysis, no time.
  const std::pair<std::function<void()>, const char*> refused[] = {
      {[] { ABCD.m_nElementType[0] = c_nCable; }, "不能计算索单元!"},
      {[] { ABCD.m_nNodes = std::numeric_limits<int>::max(); }, "模型规模超出容量,计算终止!"}};
  for (const auto& [spoil, pMessage] : refused) {
    spoil();
    *pBefore = ABCD;
    run.platform->Clear();
    run.RunModal();
    EXPECT_EQ(run.platform.GetMessages(), Strings{pMessage});
    EXPECT_TRUE(unchanged());
  }
}

TEST(Drivers, SpectrumIsTheSameUnderAnyNumbering) {
  CDriverRun run;
  run.RunModal();
  run.RunSpectrum();
  const std::vector<NodeValues> renumbered = GetSpectrumFindings().displacements;

  CAnalysisModel model;  // the host's own numbering throughout
  model.BuildModelForModes(false);
  model.m_nModes = 6;
  model.SolveModes(run.job.GetJobPath(), 0, false);
  run.RunSpectrum();
  const std::vector<NodeValues>& identical = GetSpectrumFindings().displacements;
  ASSERT_EQ(renumbered.size(), 4U);
  EXPECT_GT(identical[2][0], 1e-5);
  for (int i = 0; i < 4 * 6; ++i) EXPECT_NEAR(renumbered[i / 6][i % 6], identical[i / 6][i % 6], 1e-6) << i / 6;
}

TEST(Drivers, DialogValuesReachTheModalRun) {
  CDriverRun run;
  ABCD.m_nNodes = ABCD.m_nElements = ABCD.m_nLoads = 0;
  FillSquareTower(run.host, 45);  // large enough for the radio to matter
  // With multiple 1 the comparison cannot have its second pass; the second radio means Sturm, which needs none.
  const std::pair<Steps, const char*> cases[] = {{{Do::Choose(16001)}, "达到迭代要求次数，结果不收敛"},
                                                 {{Do::Type(16003, "0")}, "请正确输入迭代精度!"},
                                                 {{Do::Type(16004, "0")}, "请正确输入迭代倍数!"},
                                                 {{Do::Choose(16002), Do::Tick(16005)}, "OK!"}};
  for (const auto& [steps, pMessage] : cases) {
    COMDYN.m_nIterMultiple = 1;
    run.platform->Clear();
    run.RunModal(false, "1", steps);
    EXPECT_TRUE(run.platform.GetMessages().at(0).starts_with(pMessage)) << run.platform.GetMessages()[0];
  }
  EXPECT_NE(run.job.Read(".mode").find("\n360 184 184 0 1 1\n"), std::string::npos);  // the last: shear
}

TEST(Drivers, DialogValuesReachTheSpectrumRun) {
  CDriverRun run;
  run.RunModal();
  Steps steps = {Do::Choose(16015), Do::Choose(16021), Do::Choose(16011), Do::Choose(16014), Do::Choose(16026)};
  for (const auto& [nId, pText] :
       {std::pair{16006, "4"}, {16009, "3"}, {16022, "0.3"}, {16028, "0.4"}, {16029, "0.5"}, {16007, "0.07"}})
    steps.push_back(Do::Type(nId, pText));
  run.platform->SetClock({{2026, 1, 1, 1, 1, 1}});
  run.RunSpectrum(false, steps);
  const std::string strByDialog = run.job.Read(".spec");

  CAnalysisModel model;
  model.BuildModelForModes(false);
  model.m_nSiteClass = 1;
  model.m_nZoneGroup = 3;
  model.m_nIntensity = 9;
  model.m_nQuakeLevel = 1;
  model.m_nCombMethod = 1;
  model.m_nExpandModes = 4;
  model.m_nMeshDiv = 3;
  model.m_dDirCoef = {0.3, 0.4, 0.5};
  model.m_dDampRatio = 0.07;
  ASSERT_TRUE(model.ReadModeFile(run.job.GetJobPath()));
  model.SpectrumAnalysis(run.job.GetJobPath(), 0, false);
  EXPECT_EQ(strByDialog, run.job.Read(".spec"));
}

// Loads as masses: only when a load type was chosen, alike in both analyses, and only what is positive.
TEST(Drivers, LoadMassesFollowTheCombination) {
  std::vector<double> omega, mass;
  for (const auto& [bDeadLoad, fFactor] : {std::pair{false, 1.0F}, {true, -1.0F}, {true, 1.0F}}) {
    CDriverRun run;
    for (float& f : std::span(ABCD.m_fLoadValue, ABCD.m_nLoads)) f *= fFactor;
    run.RunModal(bDeadLoad);
    run.RunSpectrum(bDeadLoad);
    omega.push_back(GetModalFindings().omega.at(0));
    mass.push_back(GetSpectrumFindings().totalMass[0]);
  }
  EXPECT_EQ(omega[1], omega[0]);
  EXPECT_EQ(mass[1], mass[0]);
  EXPECT_LT(omega[2], 0.8 * omega[0]);
  EXPECT_NEAR(mass[2] - mass[0], 20.0 * 1000.0 / 9.81, 1e-5 * mass[2]);
}

TEST(Drivers, SpectrumEndsEarly) {
  CDriverRun run;
  EXPECT_EQ(CModeConnect::OnAnsysSpectrum(), 0);  // no script: cancelled
  run.RunSpectrum();
  EXPECT_EQ(run.platform.GetMessages(), Strings{"模态文件访问出错,计算终止!"});
  run.RunModal();
  run.job.Write(".spec", "older result");
  run.platform->Clear();
  // Intensity 6 has no rare earthquake.
  run.RunSpectrum(false, {Do::Choose(16010), Do::Choose(16014)});
  ASSERT_EQ(run.platform.GetMessages().size(), 2U);  // and the time
  EXPECT_EQ(run.platform.GetMessages()[0], "6度地震不进行罕遇验算!");
  EXPECT_EQ(run.job.Read(".spec"), "older result");
}

TEST(Drivers, AnyFailureEndsWithItsMessage) {
  CDriverRun run;
  run.RunModal();
  CModeConnect::OnMode();  // cancelled
  EXPECT_TRUE(GetModalFindings().omega.empty());
  run.platform->Clear();
  run.platform->AddScript(16000, {Do::Inspect([](const IDialogView&) { throw std::runtime_error(""); })});
  CModeConnect::OnMode();
  EXPECT_EQ(run.platform.GetMessages(), Strings{"内部错误,计算终止!"});
  EXPECT_EQ(GetModalFindings().status, RunStatus::Failed);
}

TEST(Drivers, HostAsksForTheVirtualMode) {
  CDriverRun run;
  run.RunModal();
  COMDYN.m_bVirtualModes = 1;
  COMDYN.m_nPseudoLoadNo = -1;
  run.RunSpectrum();
  EXPECT_EQ(run.platform.GetMessages().at(1), "错误:虚拟地震静力序号");
  EXPECT_FALSE(run.job.Has(".spec"));
  COMDYN.m_nPseudoLoadNo = 1;
  run.RunSpectrum();
  EXPECT_TRUE(run.job.Has(".spec"));
  EXPECT_TRUE(run.job.Has("_VirtMode.spec"));
}

}  // namespace
}  // namespace skyframe::test
