// The calculation report against the findings of the runs.

#include <regex>

#include "CommandFolder.h"
#include "skyframe/connect/Findings.h"
#include "skyframe/generate/Generate.h"
#include "skyframe/job/JobFile.h"
#include "skyframe/job/Text.h"
#include "skyframe/platform/ChildProcesses.h"
#include "skyframe/results/HistoryResultFile.h"
#include "skyframe/results/SpectrumResultFile.h"
#include "skyframe/results/StaticResultFile.h"
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
      "\\[[a-z-]+\\]|analyses/[0-9](/"
      "[a-z]+)?|job[._][A-Za-z_.]+|alert|script|title|onload|svg|amp|quot|ensp|GB|JGJ|Skyframe|El Centro|"
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

TEST_F(CalculationReport, AlongASlantAndByLimitsOfTheJob) {
  Job job = MakeBuilding();
  std::get<SpectrumJob>(job.analyses[2]).direction = {{2.0, 1.0, 0.0}};
  job.report.nEdition = c_nEdition2010;
  job.report.limits.dShearWeight = 0.9;
  job.report.limits.dPeriodRatio = 0.5;
  Solve(job);
  const std::array<double, 3>& V = GetSpectrumFindings().baseShear;
  const std::string strShear = Format("\nCQC|||||%.1f|%.1f|", 1e-3 * V[0], 1e-3 * V[1]);
  ExpectAll(Tell("en"), {strShear, "elastic drift|(0.894, 0.447, 0)|", "|≤ 1/250|GB 50011—2010 5.5.1|satisfied|",
                         "|≥ 90.00 %|stated in the job|not satisfied|",
                         "|≤ 0.50|stated in the job|not satisfied (for information)|", "Response spectrum|job.spec|20",
                         "|of this model|"});
  ExpectAll(Tell("zh"), {strShear, "弹性层间位移角|(0.894, 0.447, 0)|", "|≤ 1/250|GB 50011—2010 5.5.1|满足|",
                         "|≥ 90.00 %|作业文件指定|不满足|", "|与本模型一致|"});
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
  ExpectAll(strPage, {"\nZ|-78.71|90|\n", "\nZ|-15.200|-15.200|0.000|\n", "\n5|0.0|0.0|-15.2|0.0|",
                      "\nS|1|4.0|10000|4000|2000|2000|0.316|\n", "\n0 (dead)|1|0.0|0.0|-8.0|",
                      "\n2 (variable)|2|0.0|0.0|-104.0|", "1.2 × case 0 + 1.4 × case 2",
                      "deflection over the span, static|78.71 mm = L/51|", "Not applicable: the job has no such"});
  const auto extremes = TakeTable(strPage, "Extreme member forces");
  ASSERT_EQ(extremes.size(), 2U);
  EXPECT_EQ(extremes[1][1], "—");
  EXPECT_EQ(extremes[1][4].substr(extremes[1][4].find("15.2")), "15.2 (1)");
  EXPECT_EQ(extremes[1][6].substr(extremes[1][6].find("60.8")), "60.8 (1)");
  EXPECT_EQ(m_strErr, "");
}

TEST_F(CalculationReport, HistoriesUnderNodalForcesStandThereOnce) {
  m_folder.Write(".json", test::MakeCantilever("111111", R"({"type": "modal", "modes": 2}, {"type": "time_history",
      "method": "newmark", "load": "nodal_force", "impulse": {"peak_time": 0.04, "duration": 0.1, "loads": [{"node": 90,
      "direction": "X", "peak": 10}]}, "outputs": {"elements": [1]}})"));
  ASSERT_EQ(m_folder.Solve().nStatus, 0);
  std::string strPage = Tell();
  EXPECT_EQ(strPage.find("whether it ran is not known"), std::string::npos);
  ExpectAll(strPage, {"Files|job_1_elem.txt|", "Peaks of the histories written"});
  m_folder.Write("_1_elem.txt", m_folder.Read("_1_elem.txt") + " ");
  strPage = Tell();
  EXPECT_EQ(strPage.find("Peaks of the histories written"), std::string::npos) << "another's";
  ExpectAll(m_strErr, {"The file job_1_elem.txt is not as the run wrote it. [unread-result]"});
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

/// What stands in a table about forces, found again in the result files by brute force.
TEST_F(CalculationReport, ForcesAreThoseOfTheFiles) {
  Job job = MakeBuilding();
  job.analyses.insert(job.analyses.begin(), MakeStatic(true, {{0, 1.2}, {1, 1.4}}));
  std::get<SpectrumJob>(job.analyses[3]).direction = {{3.0, 2.0, 1.0}};
  job.loads.push_back({0, 7, 1, 30.0});
  Solve(job);
  const auto linear = ReadStaticResultFile(m_folder.GetPath("_StaticLinearSol.txt"), job.nodes.size());
  const auto second = ReadStaticResultFile(m_folder.GetPath("_StaticNonlinearSol.txt"), job.nodes.size());
  const auto quake = ReadSpectrumResultFile(m_folder.GetPath(".spec"), job.nodes);
  ASSERT_TRUE(linear && second && quake);
  const std::string strPage = Tell();

  const auto supports = TakeTable(strPage, "static S and earthquake ±E");
  ASSERT_EQ(supports.size(), linear->supports.size() + 1);
  for (std::size_t k = 0; k < linear->supports.size(); ++k) {
    const auto& S = linear->supports[k].forces;
    const auto& E = quake->supports[k].forces;
    ASSERT_EQ(linear->supports[k].nNode, quake->supports[k].nNode);
    const double expected[] = {*S[0],        E[0],         *S[1], E[1], *S[2], E[2],
                               *S[2] + E[2], *S[2] - E[2], *S[3], E[3], *S[4], E[4]};
    for (std::size_t c = 0; c < std::size(expected); ++c) {
      EXPECT_NEAR(std::stod(supports[k + 1][c + 1]), 1e-3 * expected[c], 0.0501) << k << ' ' << c;
    }
  }

  // N, Qy, Qz, Mx, My, Mz of the static file
  constexpr int c_nDiagram[] = {-1, c_nQy, c_nQz, c_nMyz, c_nMzx, c_nMxy};
  const auto envelopes = TakeTable(strPage, "Largest S + E and smallest");
  const auto extremes = TakeTable(strPage, "Extreme member forces by section");
  ASSERT_EQ(envelopes.size(), 6 * job.sections.size() + 1);
  ASSERT_EQ(extremes.size(), job.sections.size() + 1);
  for (std::size_t k = 0; k < job.sections.size(); ++k) {
    for (std::size_t q = 0; q < 6; ++q) {
      double dMax = -HUGE_VAL, dMin = HUGE_VAL, dHigh = 0.0, dLow = 0.0;
      for (std::size_t e = 0; e < job.elements.size(); ++e) {
        if (job.elements[e].nSection != static_cast<int>(k)) continue;
        const StaticMember& member = linear->members[e];
        for (const std::size_t nStation : {0U, 20U}) {
          const double S = q == 0 ? member.dAxialForce : member.diagrams[c_nDiagram[q]][nStation];
          const auto& stations = quake->members[e].stations;
          const double E = (nStation == 0 ? stations.front() : stations.back())[q];
          dMax = std::max(dMax, S + E);
          dMin = std::min(dMin, S - E);
        }
        for (std::size_t n = 0; n < 21; ++n) {
          const double S = q == 0 ? member.dAxialForce : member.diagrams[c_nDiagram[q]][n];
          dHigh = std::max(dHigh, S);
          dLow = std::min(dLow, S);
        }
      }
      const test::Strings &envelope = envelopes[6 * k + q + 1], &extreme = extremes[k + 1];
      EXPECT_EQ(envelope[0], job.sections[k].strId);
      EXPECT_NEAR(std::stod(envelope[2]), 1e-3 * dMax, 0.0501) << k << ' ' << q;
      EXPECT_NEAR(std::stod(envelope[3]) + std::stod(envelope[4]), 1e-3 * dMax, 0.11) << k << ' ' << q;
      EXPECT_NEAR(std::stod(envelope[6]), 1e-3 * dMin, 0.0501) << k << ' ' << q;
      EXPECT_NEAR(std::stod(envelope[7]) - std::stod(envelope[8]), 1e-3 * dMin, 0.11) << k << ' ' << q;
      if (q == 0) {
        EXPECT_EQ(extreme[1] == "—" ? 0.0 : std::stod(extreme[1]), std::round(1e-2 * dHigh) / 10.0) << k;
        EXPECT_NEAR(std::stod(extreme[2]), 1e-3 * dLow, 0.0501) << k;
      } else {
        EXPECT_NEAR(std::abs(std::stod(extreme[q + 2])), 1e-3 * std::max(dHigh, -dLow), 0.0501) << k << ' ' << q;
      }
    }
  }
  const auto order = TakeTable(strPage, "Second order against linear");
  ASSERT_EQ(order.size(), 5U);
  for (std::size_t d = 0; d < 3; ++d) {
    const auto find = [&](const StaticResultFile& file) {
      double dLargest = 0.0;
      for (const NodeValues& u : file.displacements) dLargest = std::max(dLargest, std::abs(u[d]));
      return 1e3 * dLargest;
    };
    EXPECT_NEAR(std::stod(order[d + 1][1]), find(*linear), 0.501e-3);
    EXPECT_NEAR(std::stod(order[d + 1][2]), find(*second), 0.501e-3);
    EXPECT_NEAR(std::stod(order[d + 1][3]), find(*second) / find(*linear), 0.501e-4);
  }
}

TEST_F(CalculationReport, HistoryAgainstTheSpectrum) {
  Solve(MakeBuilding());
  const std::string strPage = Tell();
  const ModalFindings& modal = GetModalFindings();
  const double dRatio = 100.0 * GetHistoryFindings().baseShear[0] / GetSpectrumFindings().baseShear[0];
  ASSERT_GT(dRatio, 1.0);
  const std::string strRatio = Format("|X|—|%.1f %%|≥ ", dRatio);
  const char* const pszVerdict = dRatio >= 65.0 ? "satisfied" : "not satisfied";
  ExpectAll(strPage,
            {"the spectrum's" + strRatio + "65.0 %|GB 50011—2001 5.1.2|" + pszVerdict + "|",
             "(one record)" + strRatio + "80.0 %|", "that of the run itself", "Time step, duration|0.02 s, 0.4 s|",
             "Peak acceleration|0.7 m/s²|", "Peak of the code (table 5.1.2-2)|0.70 m/s²"});
  // In a process of its own the run is not known: its shear is fitted.
  CChildProcesses other;
  std::string strReason;
  ASSERT_NE(other.Start(SKYFRAME_PROGRAM, {"report", m_folder.GetPath(".json"), "-o", m_strPage, "--lang", "en"},
                        m_folder.GetPath(".log"), strReason),
            0)
      << strReason;
  EXPECT_EQ(other.Wait().nCode, 0);
  const std::string strFitted = Flatten(m_folder.Read("-report.html")), strBefore = "(one record)|X|—|";
  ExpectAll(strFitted, {"fitted to the displacements", strBefore});
  EXPECT_NEAR(std::stod(strFitted.substr(strFitted.find(strBefore) + strBefore.size())), dRatio, 0.06);
  const Job job = MakeBuilding();
  const auto file = ReadHistoryFile(m_folder.GetPath("_HisTime.txt"),
                                    {static_cast<int>(job.nodes.size()), static_cast<int>(job.elements.size())});
  ASSERT_TRUE(file);
  const auto peaks = TakeTable(strPage, "Largest storey displacements and drifts over time");
  ASSERT_EQ(peaks.size(), 3U);
  for (const int nStorey : {1, 2}) {
    double dPeak = 0.0, dDrift = 0.0;
    for (std::size_t n = 0; n < job.nodes.size(); ++n) {
      const JobNode& upper = job.nodes[n];
      if (std::abs(upper.dZ - 3.3 * nStorey) > 1e-6) continue;
      const auto lower =
          static_cast<std::size_t>(std::ranges::find_if(job.nodes,
                                                        [&upper](const JobNode& node) {
                                                          return node.dX == upper.dX && node.dY == upper.dY &&
                                                                 std::abs(upper.dZ - node.dZ - 3.3) < 1e-6;
                                                        }) -
                                   job.nodes.begin());
      for (std::size_t k = 0; k < 20; ++k) {
        const double u = file->displacements[n][0][k];
        dPeak = std::max(dPeak, std::abs(u));
        dDrift = std::max(dDrift, std::abs(u - file->displacements[lower][0][k]));
      }
    }
    const test::Strings& row = peaks[static_cast<std::size_t>(3 - nStorey)];
    EXPECT_EQ(row[0] + " " + row[1], Format("%d %.2f", nStorey, 3.3 * nStorey));
    EXPECT_NEAR(std::stod(row[2]), 1e3 * dPeak, 0.0051);
    EXPECT_NEAR(std::stod(row[3]), 1e3 * dDrift, 0.0051);
    EXPECT_EQ(row[4], Format("1/%.0f", 3.3 / dDrift));
  }
  const auto modes = TakeTable(strPage, "Periods, participating masses");
  ASSERT_EQ(modes.size(), 37U);
  std::array<double, 3> sum = {};
  std::size_t nFirst = 36;  // of translation
  for (std::size_t i = 0; i < 36; ++i) {
    const test::Strings& row = modes[i + 1];
    EXPECT_EQ(row[1], Format("%.4f", 2.0 * std::numbers::pi / modal.omega[i]));
    for (std::size_t d = 0; d < 3; ++d) {
      const double dShare = 100.0 * modal.effectiveMasses[i][d] / modal.totalMass[d];
      sum[d] += dShare;
      EXPECT_NEAR(std::stod(row[3 + 2 * d]), dShare, 0.0501) << i;
      EXPECT_NEAR(std::stod(row[4 + 2 * d]), sum[d], 0.0501) << i;
    }
    if (nFirst == 36 && std::stod(row[9]) + std::stod(row[10]) > 0.5) nFirst = i;
  }
  ASSERT_LT(nFirst, 36U);
  ExpectAll(strPage,
            {Format("\nduration of the record|X|—|%.1f T₁|≥ 5.0 T₁|GB 50011—2001 5.1.2 (commentary)|not satisfied|",
                    0.4 * modal.omega[nFirst] / (2.0 * std::numbers::pi)),
             "A Sturm count finds 35 modes below"});
}

// 2 by 1 bays of 6 m, 2 storeys of 3.3 m: 12 columns of 3.3 m, 14 beams of 6 m, 72 m2 under 5 + 2/2 kN/m2 a floor.
TEST_F(CalculationReport, ModelByHand) {
  Job job = MakeBuilding();
  job.analyses = {MakeModes(3, c_gravity)};
  Solve(job);
  std::array<double, 3> G = {0.0, 432.0, 432.0};  // by level, half a member at each end
  double dMembers = 0.0;
  for (const JobElement& element : job.elements) {
    const JobNode& i = job.nodes[static_cast<std::size_t>(element.nNodeI - 1)];
    const JobNode& j = job.nodes[static_cast<std::size_t>(element.nNodeJ - 1)];
    const double dArea = job.sections[static_cast<std::size_t>(element.nSection)].dArea;
    const double dWeight = 9.81e-3 * 7900.0 * 1e-6 * dArea * (i.dZ == j.dZ ? 6.0 : 3.3);
    dMembers += dWeight;
    for (const double dZ : {i.dZ, j.dZ}) G[static_cast<std::size_t>(std::lround(dZ / 3.3))] += 0.5 * dWeight;
    if (i.dZ + j.dZ == 3.3) G[1] -= 9.0 / 70.0 * dWeight;  // what couples with the held end; a little less with shear
  }
  const std::string strPage = Tell();
  ExpectAll(strPage, {"Nodes|18: 18 rigid, 0 pinned|", "Members|26: 26 beams, 0 bars, 0 others|",
                      "12.00 m × 6.00 m × 6.60 m|", "\nX Y Z RX RY RZ|6|1, ", "\n0 (dead)|"});
  const auto sections = TakeTable(strPage, "Table 3-1 Sections");
  ASSERT_EQ(sections.size(), job.sections.size() + 2);
  EXPECT_EQ(sections.back()[1] + " " + sections.back()[2], "26 123.6");
  EXPECT_NEAR(std::stod(sections.back()[7]), dMembers / 9.81, 0.051);
  const std::string strOwn = "of it the members|";
  EXPECT_NEAR(std::stod(strPage.substr(strPage.find(strOwn) + strOwn.size())), G[1] + G[2] - 864.0, 0.151);
  const auto storeys = TakeTable(strPage, "Representative gravity loads of the storeys");
  ASSERT_EQ(storeys.size(), 4U);
  const struct {
    double dWeight, dSum;
    const char* pszLevel;
  } expected[] = {{G[2], G[2], "6.60"}, {G[1], G[1] + G[2], "3.30"}};
  for (std::size_t k = 0; k < 2; ++k) {
    const test::Strings& row = storeys[k + 1];
    const double dTolerance = k == 0 ? 0.051 : 0.151;
    EXPECT_EQ(row[0] + " " + row[1] + " " + row[2] + " " + row[3],
              Format("%d %s 3.30 6", 2 - static_cast<int>(k), expected[k].pszLevel));
    EXPECT_NEAR(std::stod(row[4]), expected[k].dWeight / 9.81, dTolerance);
    EXPECT_NEAR(std::stod(row[5]), expected[k].dWeight, dTolerance);
    EXPECT_EQ(row[6] + " " + row[7], "6.00 3.00");
    EXPECT_NEAR(std::stod(row[8]), expected[k].dSum, dTolerance);
  }
}

TEST_F(CalculationReport, TowersHaveDisplacementsInPlaceOfStoreys) {
  Job job = GenerateTower({.nPanels = 3});
  job.analyses = {MakeModes(12, {{0, -1.0}}), MakeSpectrum({0.0, 1.0, 0.0}, 12)};
  std::get<SpectrumJob>(job.analyses[1]).combination = {{0, -1.0}};
  Solve(job);
  const auto file = ReadSpectrumResultFile(m_folder.GetPath(".spec"), job.nodes);
  ASSERT_TRUE(file);
  const std::string strPage = Tell();
  const auto rows = TakeTable(strPage, "Combined displacements");
  ASSERT_EQ(rows.size(), 5U);
  double dTop = 0.0;
  std::array<double, 3> largest = {};
  for (std::size_t n = 0; n < job.nodes.size(); ++n) {
    const NodeValues& u = file->displacements[n];
    for (std::size_t d = 0; d < 3; ++d) largest[d] = std::max(largest[d], std::abs(u[d]));
    if (job.nodes[n].dZ > 8.99) dTop = std::max(dTop, std::abs(u[1]));
    if (std::to_string(job.nodes[n].nId) != rows[1][1]) continue;
    EXPECT_NEAR(job.nodes[n].dZ, 9.0, 1e-9);
    for (std::size_t d = 0; d < 3; ++d) EXPECT_NEAR(std::stod(rows[1][d + 2]), 1e3 * std::abs(u[d]), 0.0051) << d;
  }
  for (std::size_t d = 0; d < 3; ++d) EXPECT_NEAR(std::stod(rows[d + 2][d + 2]), 1e3 * largest[d], 0.0051) << d;
  ASSERT_GT(dTop, 0.0);
  const std::string strCheck = Format("displacement of the top, earthquake|Y|—|%.2f mm = L/", 1e3 * dTop);
  ExpectAll(strPage, {strCheck, "Checks of storeys|not applicable|"});
  EXPECT_NEAR(std::stod(strPage.substr(strPage.find(strCheck) + strCheck.size())), 9.0 / dTop, 1e-4 * 9.0 / dTop);
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
        "E: combined forces of the spectrum along X (job.spec)", "warning: job.mode: effective mass in X is "},
       "what it gives with these modes"},
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
  (void)m_folder.Solve();  // the pulses of the last analysis are not there
  for (const char* pszSuffix : {"_StaticNonlinearSol.txt", ".spec", "_HisTime.txt"}) {
    ASSERT_TRUE(std::filesystem::exists(m_folder.GetPath(pszSuffix))) << pszSuffix;
  }
  for (int k = 0; k < 2; ++k) {
    for (const char* pszLanguage : {"en", "zh"}) {
      Tell(pszLanguage);
      const std::string strPage = m_folder.Read("-report.html");
      ExpectWellFormed(strPage);
      const std::string strPlain = std::regex_replace(strPage, std::regex("http://www.w3.org/[0-9]*/(svg|xlink)"), "");
      for (const char* pszForeign :
           {"<script", "http:", "https:", "src=", "href=\"/", "url(", "@import", "nan", "inf<"}) {
        EXPECT_EQ(strPlain.find(pszForeign), std::string::npos) << pszForeign;
      }
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
