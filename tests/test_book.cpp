// The calculation report against the findings of the runs.

#include "CommandFolder.h"
#include "skyframe/connect/Findings.h"
#include "skyframe/job/JobFile.h"
#include "skyframe/job/Text.h"
#include "skyframe/values/SpectrumSite.h"

namespace skyframe::host {
namespace {

class CalculationReport : public ::testing::Test {
 protected:
  /// The report's text, or what was said on the error stream.
  [[nodiscard]] std::string Report(const std::string& strLanguage) const {
    const auto outcome =
        test::CCommandFolder::Call({"report", m_folder.GetPath(".json"), "-o", m_strPage, "--lang", strLanguage});
    return outcome.nStatus == 0 ? m_folder.Read("-report.html") : outcome.strErr;
  }
  void WriteJob(const Job& job) const { m_folder.Write(".json", FormatJob(job)); }

  static void ExpectAll(const std::string& strText, std::initializer_list<std::string> parts) {
    for (const std::string& strPart : parts) EXPECT_NE(strText.find(strPart), std::string::npos) << strPart;
  }

  test::CTestPlatform m_platform;
  const test::CCommandFolder m_folder;
  const std::string m_strPage = m_folder.GetPath("-report.html");
};

TEST_F(CalculationReport, HoldsWhatTheRunsFound) {
  Job job = ReadJobFile(SKYFRAME_SOURCE_DIR "/examples/office10.json").job;
  for (JobAnalysis& analysis : job.analyses) {
    if (auto* pSpectrum = std::get_if<SpectrumJob>(&analysis)) pSpectrum->direction = {{2.0, 1.0, 0.0}};
  }
  job.report.strProject = "Halle <7> & \"Nord\"";
  job.report.nStructure = c_nSteelFrame;
  job.report.nEdition = c_nEdition2010;
  WriteJob(job);
  ASSERT_EQ(m_folder.Solve().nStatus, 0);
  const SpectrumFindings& spectrum = GetSpectrumFindings();
  double dShare = 0.0;
  for (const auto& mass : GetModalFindings().effectiveMasses) dShare += mass[0] / GetModalFindings().totalMass[0];
  const std::string strShear =
      Format("%.1f</td><td class=\"r\">%.1f<", 1e-3 * spectrum.baseShear[0], 1e-3 * spectrum.baseShear[1]);
  const std::string strWeight = Format(">%.1f<", 9.81e-3 * GetModalFindings().totalMass[0]);
  const std::string strShare = Format(">%.1f<", 100.0 * dShare);
  const std::string strPeriod = Format(">%.4f<", c_dTwoPi / GetModalFindings().omega[2]);
  const std::string strEnglish = Report("en"), strChinese = Report("zh");
  for (const std::string& strPage : {strEnglish, strChinese}) {
    ExpectAll(strPage, {strShear, strWeight, strShare, strPeriod, "Halle &lt;7&gt; &amp; &quot;Nord&quot;", "1/250"});
    EXPECT_EQ(strPage.find("Halle <7>"), std::string::npos);
    for (const char* pszForeign : {"http://", "src=", "href=\"http", "nan", "inf<"}) {
      const std::size_t nPlace = strPage.find(pszForeign);
      const bool bForeign = nPlace != std::string::npos && strPage.substr(nPlace, 18) != "http://www.w3.org/";  // SVG
      EXPECT_FALSE(bForeign) << pszForeign;
    }
  }
  ExpectAll(strEnglish, {"Summary of checks", "GB 50011—2010 5.5.1", "of this model", "satisfied"});
  ExpectAll(strChinese, {"验算汇总", "GB 50011—2010 5.5.1", "与本模型一致", "剪重比", "满足"});

  job.loads[0].dValue *= 2.0;
  WriteJob(job);
  ExpectAll(Report("zh"), {"过期：", ">过期<"});
}

TEST_F(CalculationReport, TellsWhatIsNotThere) {
  m_folder.Write(".json", test::MakeCantilever("111111", R"({"type": "modal"}, {"type": "spectrum"})"));
  ExpectAll(Report("en"), {"Not run: there is no file job.spec", "Not applicable: the job has no such analysis",
                           "Nothing was checked"});
  m_folder.Write(".mode", "something else");
  ExpectAll(Report("zh"), {"文件 job.mode 已损坏"});
  const auto outcome =
      test::CCommandFolder::Call({"report", m_folder.GetPath(".json"), "-o", m_folder.GetPath(".mode")});
  EXPECT_EQ(outcome.nStatus, c_nExitBadInput);
  EXPECT_NE(outcome.strErr.find("belongs to the job"), std::string::npos);
}

}  // namespace
}  // namespace skyframe::host
