#include <cstring>
#include <string>
#include <vector>

#include "HostModel.h"
#include "RecordLayout.h"
#include "TestPlatform.h"
#include "skyframe/values/Records.h"

extern "C" const std::size_t c_layoutInC[];

namespace skyframe::test {
namespace {

TEST(CInterface, BothCompilersSeeTheSameRecords) {
  const std::vector<std::size_t> layout = RECORD_LAYOUT;
  for (std::size_t i = 0; i < layout.size(); ++i) EXPECT_EQ(c_layoutInC[i], layout[i]) << i;
}

TEST(CInterface, AHostOfOtherCapacitiesGetsNoRecord) {
  const CTestPlatform platform;
  RecordSizes sizes = c_recordSizes;
  EXPECT_EQ(skyframe_abcd(), nullptr);
  EXPECT_EQ(skyframe_open(&sizes), 1);
  EXPECT_EQ(skyframe_abcd(), &ABCD);
  ++sizes.nComDat;
  EXPECT_EQ(skyframe_open(&sizes), 0);
  EXPECT_EQ(skyframe_abcd(), nullptr);
  EXPECT_EQ(platform.GetMessages(), Strings{"宿主数据记录与本模块不符,计算终止!"});
}

/// What the functions of a host in C receive.
struct Heard {
  static void Message(void* pContext, const char* pszText) {
    auto& heard = *static_cast<Heard*>(pContext);
    heard.messages.emplace_back(pszText);
    heard.nChanged += skyframe_use_callbacks(nullptr, nullptr, nullptr);
  }
  static void Console(void* pContext, const char* pszText) { static_cast<Heard*>(pContext)->strConsole += pszText; }

  Strings messages;
  std::string strConsole;
  int nChanged = 0;  ///< platforms replaced inside a call
};

TEST(CInterface, RunsWithStepsAndTellsTheHostsFunctions) {
  Heard heard;
  CHostModel host;
  const CJobFolder job("c");
  EXPECT_EQ(skyframe_click(c_nIdNonlinStaticDlg, c_nIdLoadComb), 0);  // no platform that takes steps
  ASSERT_EQ(skyframe_use_callbacks(Heard::Message, Heard::Console, &heard), 1);
  const int fixed[] = {1, 1, 1, 1, 1, 1};
  host.AddNode(0, 0, 0);
  host.AddNode(2, 0, 0);
  host.SetSection(1, 2, 1.0e4, 1.0e7, 1.0e7, 1.0e7);
  host.AddElement(c_nBeam, 1, 2);
  ABCD.m_nRestraint[1] = skyframe_encode_restraint(fixed);
  host.AddLoadCode(skyframe_encode_load(0, 2), 2, -1.0);
  EXPECT_EQ(skyframe_encode_load(0, 6), 0);
  EXPECT_EQ(skyframe_set_job_path(std::string(c_nMaxPath, 'x').c_str()), 0);
  EXPECT_EQ(g_FilePathName, job.GetJobPath());

  skyframe_tick(c_nIdNonlinStaticDlg, c_nIdNonlinear, 0);
  skyframe_click(c_nIdNonlinStaticDlg, c_nIdLoadComb);
  skyframe_toggle_row(c_nIdLoadCombDlg, c_nIdAvailable, 0);
  skyframe_click(c_nIdLoadCombDlg, c_nIdAdd);
  skyframe_on_static_nonlinear_sol();
  EXPECT_EQ(skyframe_get_status(c_nAnalysisStatic), c_nRunDone);
  EXPECT_EQ(skyframe_get_file(c_nAnalysisStatic, 0), job.GetPath("_StaticLinearSol.txt"));
  EXPECT_EQ(skyframe_get_file(c_nAnalysisStatic, 1), nullptr);
  EXPECT_NE(heard.strConsole.find("荷载组装\n"), std::string::npos);

  skyframe_type(c_nIdModeDlg, c_nIdModes, "1");
  skyframe_choose(c_nIdModeDlg, 4711);
  skyframe_on_mode();
  skyframe_click(c_nIdSpectrumDlg, c_nIdCancel);
  EXPECT_EQ(skyframe_on_ansys_spectrum(), 0);
  EXPECT_EQ(heard.messages, Strings{"dialog 16000, step 2, control 4711: there is no such control"});
  EXPECT_EQ(heard.nChanged, 0);
  EXPECT_EQ(skyframe_get_status(c_nAnalysisModal), c_nRunCancelled);
  skyframe_close();
  EXPECT_EQ(skyframe_type(c_nIdModeDlg, c_nIdModes, "1"), 0);
}

}  // namespace
}  // namespace skyframe::test
