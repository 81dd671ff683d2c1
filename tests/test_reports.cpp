#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>

#include "../host/src/HistoryReport.h"
#include "../host/src/HostPlatform.h"
#include "../host/src/ModalReport.h"
#include "../host/src/ModeLoader.h"
#include "MastJob.h"
#include "TestPlatform.h"
#include "skyframe/host/DataDirectory.h"
#include "skyframe/modal/DesignSpectrum.h"
#include "skyframe/modal/ModeFile.h"

namespace skyframe::host {
namespace {

namespace fs = std::filesystem;

class Reports : public ::testing::Test, protected test::MastJob {
 protected:
  bool Says(const std::string& strText) const { return strOut.find(strText) != std::string::npos; }

  /// The number behind the last place of a label.
  double Number(const std::string& strLabel) const {
    const std::size_t n = strOut.rfind(strLabel);
    return n == std::string::npos ? std::nan("") : std::stod(strOut.substr(n + strLabel.size()));
  }
};

const std::string c_strModal = R"({"type": "modal", "modes": 12, "root_check": "compare", "verify_modes": true,
    "combination": {"0": 1}})";

TEST_F(Reports, AllModesHoldAllMass) {
  ASSERT_EQ(Solve(c_strModal), 0) << strErr;
  EXPECT_FALSE(Says("below 90"));
  EXPECT_TRUE(Says("Sturm count           no mode below "));
  EXPECT_TRUE(Says("  time                  0hour: 0min: "));
  // Free nodes: 1.5 of two halves of beams, less what the consistent mass couples to the support, and the load
  const double dBeams = 7850.0 * 0.01 * 8.0;
  const double dLoad = 20.0e3 / 9.81;
  EXPECT_GT(Number("total mass"), dLoad + 0.6 * dBeams);
  EXPECT_LT(Number("total mass"), dLoad + dBeams);

  // A file that misses a mode is told of.
  test::CTestPlatform platform;
  const auto pModel = LoadModes({{0, 1.0}}, strPath, 3);
  ASSERT_TRUE(pModel);
  pModel->Omega.erase(pModel->Omega.begin());
  pModel->Omega.resize(2);
  ASSERT_TRUE(WriteModeFile(*pModel, strPath, pModel->m_modalFindings));
  ModalJob analysis;
  analysis.combination = {{0, 1.0}};
  analysis.bVerify = true;
  std::ostringstream out;
  PrintModalReport(analysis, strPath, out);
  EXPECT_NE(out.str().find("  warning: the mode file misses 1 modes below "), std::string::npos) << out.str();
}

/// Shear of one mode: m_eff alpha g. With the virtual mode the rest of the mass acts, too, and the SRSS
/// of both is the whole; the two bending planes do not mix.
TEST_F(Reports, BaseShearByHand) {
  const std::string strSpectrum =
      c_strModal +
      R"j(,{"type": "spectrum", "modes": 2, "direction": [0, 1, 0], "site_class": 2, "intensity": "8 (0.20g)",
      "damping": 0.05, "combination": {"0": 1})j";
  ASSERT_EQ(Solve(strSpectrum + "}"), 0) << strErr;
  // the table's rows: mode, f, T, then kg, %, sum for X, Y, Z
  std::istringstream rows(strOut.substr(strOut.find("sum\n") + 4));
  double dShear = 0.0;
  double dHeld = 0.0;
  const CDesignSpectrum spectrum(SpectrumSite{0, 9, 1, 2});
  for (int i = 0; i < 2; ++i) {
    double nMode, f, T, X, percent, sum, Y;
    rows >> nMode >> f >> T >> X >> percent >> sum >> Y;
    rows.ignore(1000, '\n');
    dShear = std::hypot(dShear, Y * spectrum.GetAlpha(T, 0.05) * 9.8e-3);
    dHeld += Y;
  }
  EXPECT_TRUE(Says("combination           SRSS of 2 modes, damping ratio 0.05"));
  EXPECT_NEAR(Number("base shear            X 0.000, Y "), dShear, 1e-3 * dShear) << strOut;
  EXPECT_TRUE(Says(" m at node 10, combined"));
  EXPECT_FALSE(Says("VirtMode"));

  ASSERT_EQ(Solve(strSpectrum + R"(, "virtual_mode": true, "pseudo_load": 1})"), 0) << strErr;
  EXPECT_TRUE(Says("SRSS of 2 modes and the virtual mode"));
  EXPECT_TRUE(Says("mast_VirtMode.spec, ") && Says("mastVIRTRESP.log, "));
  std::ifstream strm(strPath + "VIRTRESP.log");
  std::string strTitle;
  double gamma = 0.0, alpha = 0.0;
  strm >> strTitle >> gamma >> alpha;
  const double dRest = (Number("total mass") - dHeld) * alpha * 9.8e-3;
  // total mass of X equals that of Y
  EXPECT_NEAR(Number("base shear            X 0.000, Y "), std::hypot(dShear, dRest), 1e-3 * dShear) << strOut;

  EXPECT_EQ(Solve(strSpectrum + R"(, "virtual_mode": true, "pseudo_load": -1})"), 1);
  EXPECT_EQ(strErr, "错误:虚拟地震静力序号\n");
}

TEST_F(Reports, HistoriesInMemoryAndOnFile) {
  // A slow rectangle of 1 kN along X at the top: twice P L^3/(3 E I) at most, and nothing along Y.
  const std::string strNewmark =
      R"(,{"type": "time_history", "method": "newmark", "damping": [0.0, 0.0], "combination": {"0": 1},)";
  ASSERT_EQ(Solve(c_strModal + strNewmark +
                  R"("impulse": {"shape": "rectangular", "time_step": 0.01, "duration": 3, "unload_time": 3,
      "loads": [{"node": 10, "direction": "X", "peak": 1}]}})"),
            0)
      << strErr;
  EXPECT_TRUE(Says("  steps                 300 of 0.01 s\n"));
  EXPECT_TRUE(Says("mast_Loadinputtest.txt, "));
  EXPECT_TRUE(Says(" m at node 10, t = "));
  const double dStatic = 1.0e3 * 512.0 / (3.0 * 2.06e11 * 2.0e-5);
  const double dPeak = Number("peak displacement X   ");
  EXPECT_NEAR(dPeak / dStatic, 2.0, 0.05);

  ASSERT_EQ(Solve(c_strModal + strNewmark + R"("load": "ground_motion", "earthquake": {"time_step": 0.02, "duration": 2,
      "directions": ["Z"], "peaks": {"Z": 1}}})"),
            0)
      << strErr;
  EXPECT_TRUE(Says("mast_HisTime.txt, "));
  EXPECT_TRUE(Says("peak displacement X   none\n"));
  EXPECT_TRUE(Says(" kN in element 1, t = "));  // all the mass hangs on the lower one
}

TEST(HostPlatform, KeepsTheTimeReportApartAndErasesItsBar) {
  std::ostringstream messages, console, terminal;
  CHostPlatform platform(messages, console, &terminal);
  platform.ReportProgress(0.504, "steps");
  platform.ReportProgress(0.506, "steps");  // the same per cent: not drawn again
  EXPECT_EQ(terminal.str(), "\r\x1b[K[" + std::string(20, '#') + std::string(20, '.') + "]  50 %  steps");
  platform.ShowMessage("OK!\nTime = 0hour: 1min: 2s");
  EXPECT_EQ(platform.GetElapsedTime(), "0hour: 1min: 2s");
  EXPECT_TRUE(platform.GetMessages().empty());
  EXPECT_TRUE(terminal.str().ends_with("steps\r\x1b[K"));
  platform.ShowMessage("OK?");
  EXPECT_EQ(messages.str(), "OK?\n");
  platform.StartRun();
  EXPECT_EQ(platform.GetElapsedTime(), "");
}

TEST(DataDirectory, TheEnvironmentComesFirst) {
  unsetenv("SKYFRAME_DATA");
  EXPECT_TRUE(fs::exists(fs::path(FindDataDirectory()) / "GroundAccData" / "Elcentro.txt"));
  setenv("SKYFRAME_DATA", "/some/place", 1);
  EXPECT_EQ(FindDataDirectory(), "/some/place");
  unsetenv("SKYFRAME_DATA");
}

}  // namespace
}  // namespace skyframe::host
