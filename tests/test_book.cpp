// The calculation report against the findings of the runs.

#include <regex>

#include "CommandFolder.h"
#include "skyframe/connect/Findings.h"
#include "skyframe/generate/Generate.h"
#include "skyframe/job/JobFile.h"
#include "skyframe/job/Text.h"
#include "skyframe/results/SpectrumResultFile.h"
#include "skyframe/values/SpectrumSite.h"

namespace skyframe::host {
namespace {

const JobCombination c_gravity = {{0, -1.0}, {1, -0.5}};

StaticJob MakeStatic(bool bNonlinear, const JobCombination& combination) {
  return {bNonlinear, {}, {}, {}, combination};
}
ModalJob MakeModes(int nModes, const JobCombination& combination) { return {nModes, {}, {}, {}, {}, combination}; }

/// The page's text: a line a row, | behind each cell; no pictures.
std::string Flatten(const std::string& strPage) {
  std::string strText = std::regex_replace(strPage, std::regex("&ensp;"), " ");
  for (const char* pszSkipped : {"svg", "style"}) {
    const std::string strStart = std::string("<") + pszSkipped, strEnd = std::string("</") + pszSkipped + ">";
    for (std::size_t n; (n = strText.find(strStart)) != std::string::npos;) {
      strText.erase(n, strText.find(strEnd, n) + strEnd.size() - n);
    }
  }
  strText = std::regex_replace(strText, std::regex("</t[dh]>"), "|");
  return std::regex_replace(strText, std::regex("<[^>]*>"), "");
}

/// Cells of the rows below a caption, with the head; empty without such a table.
std::vector<test::Strings> TakeTable(const std::string& strText, const std::string& strCaption) {
  std::vector<test::Strings> rows;
  std::istringstream lines(strText.substr(std::min(strText.find(strCaption), strText.size())));
  std::string strLine;
  std::getline(lines, strLine);
  while (std::getline(lines, strLine) && (strLine.empty() || strLine.back() == '|')) {
    test::Strings row;
    std::istringstream cells(strLine);
    for (std::string strCell; std::getline(cells, strCell, '|');) row.push_back(strCell);
    if (!row.empty()) rows.push_back(row);
  }
  return rows;
}

/// Names in brackets at the ends of lines, once each.
std::set<std::string> ListNames(const std::string& strLines) {
  const std::regex name("\\[([a-z-]+)\\]\n");
  std::set<std::string> names;
  for (std::sregex_iterator it(strLines.begin(), strLines.end(), name), end; it != end; ++it) names.insert((*it)[1]);
  return names;
}

/// All elements end in the order in which they begin, and no two have one name.
void ExpectWellFormed(const std::string& strPage) {
  test::Strings open;
  std::set<std::string> ids;
  const std::regex id(" id=\"([^\"]*)\"");
  for (std::size_t n = strPage.find('<'); n != std::string::npos; n = strPage.find('<', n + 1)) {
    const std::string strTag = strPage.substr(n + 1, strPage.find('>', n) - n - 1);
    ASSERT_EQ(strTag.find('<'), std::string::npos) << strTag;
    std::smatch match;
    const bool bNamed = std::regex_search(strTag, match, id);
    EXPECT_TRUE(!bNamed || ids.insert(match[1]).second) << strTag;
    if (strTag.front() == '!' || strTag.back() == '/' || strTag.starts_with("meta ")) continue;
    if (strTag.front() != '/') {
      open.push_back(strTag.substr(0, strTag.find_first_of(" \n")));
      continue;
    }
    ASSERT_FALSE(open.empty());
    ASSERT_EQ(open.back(), strTag.substr(1)) << strPage.substr(n > 200 ? n - 200 : 0, 220);
    open.pop_back();
  }
  EXPECT_TRUE(open.empty());
}

/// No words of the other language but names.
void ExpectOneLanguage(std::string strText, bool bChinese) {
  if (!bChinese) {
    for (std::size_t n = 0; n < strText.size(); ++n) {
      const auto nByte = static_cast<unsigned char>(strText[n]);
      const bool bForeign = (0xE3 <= nByte && nByte <= 0xE9) || (nByte == 0xEF && strText.compare(n, 3, "\uFFFD") != 0);
      ASSERT_FALSE(bForeign) << strText.substr(n > 40 ? n - 40 : 0, 100);
    }
    return;
  }
  const std::regex names(
      "\\[[a-z-]+\\]|analyses/[0-9]/"
      "[a-z]+|job[._][A-Za-z_.]+|alert|script|title|onload|svg|amp|quot|ensp|GB|JGJ|Skyframe|El Centro|"
      "Newmark|Wilson|CQC|Sturm|max|min|outputs|case|kN|mm|json|Hz");
  strText = std::regex_replace(strText, names, "");
  std::smatch match;
  EXPECT_FALSE(std::regex_search(strText, match, std::regex("[A-Za-z]{3,}[^\n]{0,60}"))) << match.str();
}

class CalculationReport : public ::testing::Test {
 protected:
  /// The report's text and what was said on the error stream.
  std::string Tell(const std::string& strLanguage = "en") {
    const auto outcome =
        test::CCommandFolder::Call({"report", m_folder.GetPath(".json"), "-o", m_strPage, "--lang", strLanguage});
    EXPECT_EQ(outcome.nStatus, 0) << outcome.strErr;
    m_strErr = outcome.strErr;
    return Flatten(m_folder.Read("-report.html"));
  }
  void Solve(const Job& job) const {
    WriteJob(job);
    const auto outcome = m_folder.Solve();
    ASSERT_EQ(outcome.nStatus, 0) << outcome.strErr << outcome.strOut;
  }
  /// Two storeys, two bays along X and one along Y, with all analyses.
  static Job MakeBuilding() {
    Job job = GenerateBuilding({.nBaysX = 2, .nBaysY = 1, .nStoreys = 2});
    job.report.nStructure = c_nSteelFrame;
    NewmarkJob history;
    history.nLoad = 1;
    history.damping = {0.05, 0.05};
    history.combination = c_gravity;
    EarthquakeJob& quake = history.earthquake.emplace();
    quake.dTimeStep = 0.02;
    quake.dDuration = 0.4;
    quake.directions = {true};
    quake.peaks[0] = 0.7;
    job.analyses = {MakeStatic(false, {{0, 1.2}, {1, 1.4}}), MakeModes(36, c_gravity), MakeSpectrum({1.0, 0.0, 0.0}),
                    history};
    return job;
  }
  static SpectrumJob MakeSpectrum(const std::array<double, 3>& direction, int nModes = 36) {
    SpectrumJob spectrum;
    spectrum.nModes = nModes;
    spectrum.direction = direction;
    spectrum.nSiteClass = 2;
    spectrum.nZoneGroup = 1;
    spectrum.nIntensity = 3;
    spectrum.dDamping = 0.05;
    spectrum.nMethod = 1;
    spectrum.combination = c_gravity;
    return spectrum;
  }

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
  std::string m_strErr;
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

// 4 m, E I = 4.12e6 Nm2, 1.2 8 + 1.4 4 = 15.2 kN downwards: P L^3/(3 E I), P L; 0.04 m3 of 7900 kg/m3.
TEST_F(CalculationReport, CantileverByHand) {
  m_folder.Write(
      ".json",
      test::MakeCantilever("111111", R"({"type": "static", "nonlinear": false, "combination": {"0": 1.2, "2": 1.4}})"));
  const auto outcome = m_folder.Solve();
  ASSERT_EQ(outcome.nStatus, 0) << outcome.strErr << outcome.strOut;
  const std::string strPage = Tell();
  ExpectAll(strPage, {"\nZ|-78.71|90|\n", "\nZ|-15.200|-15.200|0.000|\n", "\n5|0.0|0.0|-15.2|0.0|", "|0.316|\n",
                      "\n0 (dead)|1|0.0|0.0|-8.0|", "\n2 (variable)|2|0.0|0.0|-104.0|", "1.2 × case 0 + 1.4 × case 2",
                      "deflection over the span, static|78.71 mm = L/51|", "Not applicable: the job has no such"});
  const auto extremes = TakeTable(strPage, "Extreme member forces");
  ASSERT_EQ(extremes.size(), 2U);
  EXPECT_EQ(extremes[1][1], "—");
  EXPECT_EQ(extremes[1][4].substr(extremes[1][4].find("15.2")), "15.2 (1)");
  EXPECT_EQ(extremes[1][6].substr(extremes[1][6].find("60.8")), "60.8 (1)");
  EXPECT_EQ(m_strErr, "");
}

TEST_F(CalculationReport, BaseShearIsThatOfAnIndependentCombination) {
  Job job = MakeBuilding();
  job.analyses.pop_back();
  Solve(job);
  const ModalFindings& modal = GetModalFindings();
  const auto alpha = [](double T) {  // 0.16, Tg = 0.35 s, damping 0.05
    if (T < 0.1) return 0.16 * (0.45 + 5.5 * T);
    return T < 0.35   ? 0.16
           : T < 1.75 ? 0.16 * std::pow(0.35 / T, 0.9)
                      : 0.16 * (std::pow(0.2, 0.9) - 0.02 * (T - 1.75));
  };
  std::vector<double> V;
  double dMass = 0.0, dSquare = 0.0;
  for (std::size_t i = 0; i < modal.omega.size(); ++i) {
    V.push_back(alpha(2.0 * std::numbers::pi / modal.omega[i]) * 9.8 * modal.effectiveMasses[i][0]);
    dMass += modal.effectiveMasses[i][0];
  }
  for (std::size_t i = 0; i < V.size(); ++i) {
    for (std::size_t j = 0; j < V.size(); ++j) {
      const double r = modal.omega[j] / modal.omega[i], z = 0.0025;
      dSquare +=
          V[i] * V[j] * 8.0 * z * (1 + r) * std::pow(r, 1.5) / (std::pow(1 - r * r, 2) + 4 * z * r * (1 + r) * (1 + r));
    }
  }
  const std::string strPage = Tell();
  const double dShear = 1e-3 * std::sqrt(dSquare), G = 9.81e-3 * modal.totalMass[0];
  ExpectAll(strPage,
            {Format("\nCQC|||||%.1f|", dShear), Format("base shear %.1f kN (%.2f %% of G)", dShear, 100 * dShear / G),
             Format("participating mass|X|—|%.1f %%|", 100.0 * dMass / modal.totalMass[0]),
             Format("storey shear over weight|X|1|%.2f %%|≥ 3.20 %%|GB 50011—2001 5.2.5|", 100 * dShear / G)});
  // 2 storeys of 12 m by 6 m under 5 + 2/2 kN/m2
  ExpectAll(strPage, {Format("Total G|%.1f kN|", G), "(−1.0 × case 0 − 0.5 × case 1)|864.0 kN|"});
}

/// The combined values of a single mode have the mode's ratios: storeys follow from the members and supports of the
/// file.
TEST_F(CalculationReport, StoreysOfOneModeAgainstTheMembersOfTheFile) {
  Job job = MakeBuilding();
  job.analyses = {MakeModes(3, c_gravity)};
  Solve(job);
  const auto& mass = GetModalFindings().effectiveMasses[0];
  const std::size_t d = mass[0] > mass[1] ? 0 : 1;
  job.analyses.push_back(MakeSpectrum(d == 0 ? std::array{1.0, 0.0, 0.0} : std::array{0.0, 1.0, 0.0}, 1));
  Solve(job);
  const auto file = ReadSpectrumResultFile(m_folder.GetPath(".spec"), job.nodes);
  ASSERT_TRUE(file);
  std::array<double, 2> shear = {}, angle = {};
  for (const SpectrumMember& member : file->members) {
    const JobElement& element = job.elements[static_cast<std::size_t>(member.nElement - 1)];
    const auto i = static_cast<std::size_t>(element.nNodeI - 1), j = static_cast<std::size_t>(element.nNodeJ - 1);
    const double h = std::abs(job.nodes[i].dZ - job.nodes[j].dZ);
    if (h < 1.0) continue;
    const std::size_t nStorey = std::max(job.nodes[i].dZ, job.nodes[j].dZ) > 4.0 ? 1 : 0;
    shear[nStorey] += std::hypot(member.stations.front()[1], member.stations.front()[2]);
    angle[nStorey] = std::max(angle[nStorey], std::abs(file->displacements[i][d] - file->displacements[j][d]) / h);
  }
  double dSupports = 0.0;
  for (const SpectrumSupport& support : file->supports) dSupports += support.forces[d];
  const std::string strPage = Tell();
  const auto forces = TakeTable(strPage, "Storey forces, shears");
  const auto drifts = TakeTable(strPage, "Storey displacements and drifts");
  ASSERT_EQ(forces.size(), 3U);
  ASSERT_EQ(drifts.size(), 3U);
  for (std::size_t k = 0; k < 2; ++k) {
    EXPECT_NEAR(std::stod(forces[2 - k][4]), 1e-3 * shear[k], 0.06) << k;
    EXPECT_NEAR(std::stod(drifts[2 - k][8].substr(2)), 1.0 / angle[k], 1.0) << k;
  }
  EXPECT_NEAR(std::stod(forces[2][4]), 1e-3 * dSupports, 0.06);
  EXPECT_NEAR(std::stod(forces[2][3]), 1e-3 * (shear[0] - shear[1]), 0.11);
  EXPECT_NEAR(std::stod(forces[2][8]), 3.3e-3 * (shear[0] + shear[1]), 0.11);
}

TEST_F(CalculationReport, TellsOfResultsThatDoNotBelongTogether) {
  const std::string strShear = "storey shear over weight|X|—|—|—|—|not checked: ";
  const auto cut = [this](const char* pszSuffix) {
    const std::string strText = m_folder.Read(pszSuffix);
    m_folder.Write(pszSuffix, strText.substr(0, strText.size() / 2));
  };
  const auto runModes = [this](int nModes, const JobCombination& combination) {
    Job modal = MakeBuilding();
    modal.analyses = {MakeModes(nModes, combination)};
    Solve(modal);
    WriteJob(MakeBuilding());
  };
  using Names = std::set<std::string>;
  const struct {
    const char* pszName;
    std::function<void()> change;  ///< after the building's run
    Names names;
    test::Strings parts;
    const char* pszAbsent;
  } cases[] = {
      {"sound", [] {}, {}, {"storey shear over weight|X|1|", "Modal|job.mode|20"}, "not checked:"},
      {"other masses",
       [this] {
         Job job = MakeBuilding();
         std::get<ModalJob>(job.analyses[1]).combination = {{0, -0.5}};
         Solve(job);
       },
       {"mixed-results"},
       {strShear + "the modes have other masses", "Earthquake along X, frequent|not checked"},
       "% of G"},
      {"later modes of other masses",
       [&] {
         runModes(36, {{0, -0.5}});
       },
       {"mixed-results"},
       {strShear + "run the spectrum again", "parameters not the job's",
        "duration of the record|X|—|—|—|—|not checked: run the time history again"},
       "% of G"},
      {"fewer modes",
       [&] { runModes(2, c_gravity); },
       {"missing-mass", "mixed-results"},
       {strShear + "run the spectrum again", "asks for 36 modes, job.mode has 2",
        "E: combined forces of the spectrum along X (job.spec)"},
       "?"},
      {"two spectra",
       [this] {
         Job job = MakeBuilding();
         job.analyses.insert(job.analyses.begin() + 3, MakeSpectrum({0.0, 1.0, 0.0}));
         Solve(job);
       },
       {"mixed-results"},
       {"job.spec holds those along Y alone", "storey shear over weight|X|1|", "storey shear over weight|Y|1|",
        "holds the last spectrum run, along Y"},
       "not checked:"},
      {"half a file of modes",
       [&] { cut(".mode"); },
       {"unread-result", "mixed-results"},
       {strShear, "Modal|job.mode|—|—|cannot be read|", "job.mode is damaged", "Without modes nothing"},
       "% of G"},
      {"half a spectrum",
       [&] { cut(".spec"); },
       {"unread-result"},
       {"Response spectrum|job.spec|—|—|cannot be read|", "job.spec is damaged"},
       "% of G"},
      {"noise for a history",
       [this] { m_folder.Write("_HisTime.txt", "\x01\x80\xff 7 -nan"); },
       {"unread-result"},
       {"job_HisTime.txt is damaged", "storey shear over weight|X|1|"},
       "duration of the record"},
      {"another model",
       [this] {
         Job job = MakeBuilding();
         job.sections[0].dArea *= 1.5;
         WriteJob(job);
       },
       {"outdated-result"},
       {strShear + "out of date", "First period T₁|out of date|",
        "duration of the record|X|—|—|—|—|not checked: out of date", "Static, linear|job_StaticLinearSol.txt|20"},
       "of this model|"},
      {"spectrum of other parameters, unknown",
       [this] {
         Job job = MakeBuilding();
         std::get<SpectrumJob>(job.analyses[2]).dDamping = 0.02;
         Solve(job);
         WriteJob(MakeBuilding());
         std::filesystem::remove(m_folder.GetPath(".stamp"));
       },
       {"mixed-results"},
       {strShear + "run the spectrum again", "It is not known which run wrote job.spec"},
       "% of G"},
      {"no spectrum in the job, unknown",
       [this] {
         Job job = MakeBuilding();
         job.analyses.erase(job.analyses.begin() + 2);
         WriteJob(job);
         std::filesystem::remove(m_folder.GetPath(".stamp"));
       },
       {"mixed-results"},
       {"It is not known which spectrum job.spec holds"},
       "storey shear over weight"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.pszName);
    Solve(MakeBuilding());
    c.change();
    const std::string strPage = Tell();
    EXPECT_EQ(ListNames(m_strErr), c.names) << m_strErr;
    for (const std::string& strPart : c.parts) EXPECT_NE(strPage.find(strPart), std::string::npos) << strPart;
    EXPECT_EQ(strPage.find(c.pszAbsent), std::string::npos) << c.pszAbsent;
    std::istringstream lines(m_strErr);
    const std::string strList = strPage.substr(strPage.find("\nB.2 "));
    for (std::string strLine; std::getline(lines, strLine);) {
      EXPECT_NE(strList.find(strLine), std::string::npos) << strLine;
    }
    Tell("zh");
    EXPECT_EQ(ListNames(m_strErr), c.names) << m_strErr;
  }
}

TEST_F(CalculationReport, IsOnePageInOneLanguageWhateverTheTitles) {
  Job job = MakeBuilding();
  const std::string strHostile = "</title><script>alert(1)</script><svg onload='x'>\x01 & \"";
  job.strTitle = strHostile;
  job.report.strProject = strHostile;
  job.report.strEngineer = strHostile;
  job.sections[0].strId = "</td>\"<b>";
  job.analyses.push_back(MakeStatic(true, {{0, 1.2}, {1, 1.4}}));
  job.analyses.insert(job.analyses.begin() + 3, MakeSpectrum({0.0, 0.0, 1.0}));
  WilsonJob wilson;
  wilson.combination = c_gravity;
  wilson.outputs.nodes = {{1, 0}};
  job.analyses.push_back(wilson);
  m_folder.Write(".impulse", "");
  WriteJob(job);
  (void)m_folder.Solve();
  for (int k = 0; k < 2; ++k) {
    for (const char* pszLanguage : {"en", "zh"}) {
      Tell(pszLanguage);
      const std::string strPage = m_folder.Read("-report.html");
      ExpectWellFormed(strPage);
      EXPECT_EQ(strPage.find("<script"), std::string::npos);
      EXPECT_EQ(strPage.find('\x01'), std::string::npos);
      const std::string strVisible = std::regex_replace(
          std::regex_replace(strPage, std::regex("<style[^]*?</style>"), ""), std::regex("<[^>]*>"), " ");
      ExpectOneLanguage(strVisible, *pszLanguage == 'z');
    }
    job.sections[0].dArea *= 2.0;  // all is out of date
    WriteJob(job);
  }
}

}  // namespace
}  // namespace skyframe::host
