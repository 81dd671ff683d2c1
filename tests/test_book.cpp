// Storey quantities against a frame calculated by hand; the calculation report against the findings of the runs.

#include "CommandFolder.h"
#include "skyframe/checks/CheckList.h"
#include "skyframe/checks/HistoryResponse.h"
#include "skyframe/connect/Findings.h"
#include "skyframe/job/JobFile.h"
#include "skyframe/job/Text.h"
#include "skyframe/values/SpectrumSite.h"

namespace skyframe::host {
namespace {

// Shear frame of two storeys of 3 m with m = 10 t and k = 40 MN/m each: omega^2 = (3 -+ sqrt 5)/2 k/m, the modes are
// (0.618, 1) and (1, -0.618), gamma phi = (0.7236, 1.1708) and (0.2764, -0.1708).
constexpr double m = 1.0e4, k = 4.0e7;

JobNode MakeNode(double dX, double dZ) {
  JobNode node;
  node.dX = dX;
  node.dZ = dZ;
  return node;
}

/// A beam between two columns; between the floors a node that is no floor.
Job MakeFrame() {
  Job job;
  for (const double dZ : {6.0, 3.0, 0.0}) {
    for (const double dX : {0.0, 4.0}) job.nodes.push_back(MakeNode(dX, dZ));
  }
  job.nodes.push_back(MakeNode(4.0, 4.5));
  job.sections.push_back({});
  for (const auto& [nI, nJ] : {std::pair(1, 2), {3, 4}, {1, 3}, {2, 7}, {7, 4}, {3, 5}, {4, 6}}) {
    job.elements.push_back({c_nBeam, nI, nJ, 0});
  }
  return job;
}

/// The floor's mass stands in halves at its ends.
ModalBasis MakeBasis() {
  ModalBasis basis;
  const double r = 0.5 * (std::sqrt(5.0) - 1.0), norm = 1.0 / std::sqrt(m * (1.0 + r * r));
  const double top[] = {norm, -r * norm}, first[] = {r * norm, norm};
  basis.omega = {r * std::sqrt(k / m), std::sqrt(k / m) / r};
  basis.masses.assign(7, {});
  for (std::size_t n = 0; n < 4; ++n) basis.masses[n] = {0.5 * m, 0.5 * m, 0.5 * m};
  for (std::size_t i = 0; i < 2; ++i) {
    NodeField shape(7);
    for (std::size_t n = 0; n < 4; ++n) shape[n][0] = n < 2 ? top[i] : first[i];
    shape[6][0] = 0.5 * (top[i] + first[i]);  // without mass
    basis.shapes.push_back(shape);
    for (NodeValues& value : shape) value[0] *= 0.5 * m;
    shape[6] = {};
    basis.inertia.push_back(shape);
  }
  return basis;
}

TEST(Checks, ShearFrameByHand) {
  const Job job = MakeFrame();
  const ModalBasis basis = MakeBasis();
  const auto storeys = FormStoreys(job);
  ASSERT_TRUE(storeys);
  ASSERT_EQ(storeys->storeys.size(), 2U);
  EXPECT_EQ(storeys->storeys[1].nodes.size(), 3U);
  EXPECT_EQ(storeys->storeys[1].columns.size(), 2U);
  ModalLoads loads{{1.0, 0.0, 0.0}, 0, {0.05, 0.05}, {0.10, 0.16}, {}};
  loads.gamma = FormParticipation(basis, loads.direction);
  const auto response = FormStoreyResponse(job, *storeys, basis, loads, {1.0, 0.0});
  // alpha g m = 9.8 and 15.68 kN
  const double V2 = std::hypot(9800.0 * 1.1708204, 15680.0 * 0.1708204);
  const double V1 = std::hypot(9800.0 * 1.8944272, 15680.0 * 0.1055728);
  const double M1 = std::hypot(9800.0 * (0.7236068 * 3 + 1.1708204 * 6), 15680.0 * (0.2763932 * 3 - 0.1708204 * 6));
  const double u2 = std::hypot(9800.0 * 1.1708204 / 0.381966, 15680.0 * 0.1708204 / 2.618034) / k;
  EXPECT_NEAR(response[1].dShear, V2, 1e-2);
  EXPECT_NEAR(response[0].dShear, V1, 1e-2);
  EXPECT_NEAR(response[0].dForce, std::hypot(9800.0 * 0.7236068, 15680.0 * 0.2763932), 1e-2);
  EXPECT_NEAR(response[0].dMoment, M1, 1e-1);
  EXPECT_NEAR(response[1].dDrift, V2 / k, 1e-9);  // the shear over the storey's stiffness
  EXPECT_NEAR(response[0].dAngle, V1 / k / 3.0, 1e-9);
  EXPECT_NEAR(response[1].dLargest, u2, 1e-9);
  EXPECT_NEAR(response[0].GetShearWeight(), V1 / (2.0 * m * 9.81), 1e-9);
  EXPECT_NEAR(CombineBaseShear(basis, loads)[0], V1, 1e-2);
  EXPECT_NEAR(FormMassShares(basis, 0)[0], 0.9472136, 1e-7);

  // first floor at 10 mm, top at 13 mm: the base shear is that of the first storey
  HistoryResultFile history;
  history.nSteps = 1;
  history.displacements.resize(7);
  const double x[] = {0.013, 0.013, 0.010, 0.010, 0.0, 0.0, 0.0115};
  for (std::size_t n = 0; n < 7; ++n) history.displacements[n] = {{{x[n]}, {0.0}, {0.0}}};
  EXPECT_NEAR(FormHistoryShear(basis, history, {1.0, 0.0}).at(0), 0.010 * k, 1e-3);
  EXPECT_NEAR(FormStoreyPeaks(*storeys, history, {1.0, 0.0})[1].dAngle, 0.001, 1e-12);
}

TEST(Checks, TranslationIsToldFromTorsion) {
  const Job job = MakeFrame();
  ModalBasis basis = MakeBasis();
  for (std::size_t n = 0; n < 4; ++n) {  // about the middle of the beam, 1 : 3 with the motion along X
    basis.inertia[0][n][1] = std::sqrt(3.0) * basis.inertia[0][n][0] * (n % 2 == 0 ? -1.0 : 1.0);
  }
  const MotionShares shares = FormMotionShares(job, *FormStoreys(job), basis, 0);
  EXPECT_NEAR(shares.dX, 0.25, 1e-12);
  EXPECT_NEAR(shares.dTorsion, 0.75, 1e-12);
  const FirstModes first = FindFirstModes(std::array{shares, FormMotionShares(job, *FormStoreys(job), basis, 1)});
  EXPECT_EQ(first.torsion, 0U);
  EXPECT_EQ(first.translation, 1U);
}

TEST(Checks, OnlyBuildingsHaveStoreys) {
  Job job = MakeFrame();
  job.report.storeys = {0.0, 4.5, 6.0};  // the job's own levels
  EXPECT_EQ(FormStoreys(job)->storeys[0].floor, std::vector<std::size_t>{6});
  job.report.nStructure = c_nTower;
  EXPECT_FALSE(FormStoreys(job));
  job = MakeFrame();
  for (JobElement& element : job.elements) element.nType = c_nBar;
  EXPECT_FALSE(FormStoreys(job));
  job.report.nStructure = c_nSteelFrame;
  EXPECT_TRUE(FormStoreys(job));
}

TEST(Checks, LimitsOfTheEditions) {
  const struct {
    int nStructure, nEdition, nIntensity;
    double T1, dShearWeight, n;
  } cases[] = {
      {c_nSteelFrame, c_nEdition2001, 3, 1.0, 0.032, 300},    {c_nSteelFrame, c_nEdition2010, 3, 3.5, 0.032, 250},
      {c_nConcreteFrame, c_nEdition2001, 4, 5.0, 0.032, 550}, {c_nFrameWall, c_nEdition2010, 4, 9.0, 0.036, 800},
      {c_nWalls, c_nEdition2010, 5, 4.25, 0.056, 1000},       {c_nTower, c_nEdition2001, 0, 1.0, 0.0, 0}};
  for (const auto& c : cases) {
    JobReport report;
    report.nStructure = c.nStructure;
    report.nEdition = c.nEdition;
    const CCodeLimits limits(report);
    EXPECT_NEAR(limits.FindShearWeight(c.nIntensity, c.T1).value_or(Limit{}).dValue, c.dShearWeight, 1e-12);
    EXPECT_NEAR(limits.FindDrift(0).value_or(Limit{}).dValue, c.n > 0 ? 1.0 / c.n : 0.0, 1e-12);
  }
  JobReport own;
  own.limits.dDrift = 400.0;
  EXPECT_TRUE(CCodeLimits(own).FindDrift(0)->bOwn);
  EXPECT_NEAR(FormShearFactor({.dShear = 2.0, .dWeightAbove = 100.0}, Limit{0.032}), 1.6, 1e-12);
  EXPECT_EQ(FormCheck(CheckKind::Drift, 1.0 / 301, Limit{1.0 / 300}, false).verdict, Verdict::Satisfied);
  EXPECT_EQ(FormCheck(CheckKind::ShearWeight, 0.0319, Limit{0.032}, true).verdict, Verdict::NotSatisfied);
}

// ---- report ----

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
  m_folder.Write(".json", test::MakeCantilever("111111", ""));
  ExpectAll(Report("en"), {"Not run: there is no file job.spec", "Nothing was checked"});
  m_folder.Write(".mode", "something else");
  ExpectAll(Report("zh"), {"job.mode 无法读取"});
  const auto outcome =
      test::CCommandFolder::Call({"report", m_folder.GetPath(".json"), "-o", m_folder.GetPath(".mode")});
  EXPECT_EQ(outcome.nStatus, c_nExitBadInput);
  EXPECT_NE(outcome.strErr.find("belongs to the job"), std::string::npos);
}

}  // namespace
}  // namespace skyframe::host
