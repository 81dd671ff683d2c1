#include <gtest/gtest.h>

#include <unistd.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "TestPlatform.h"
#include "skyframe/dialogs/DynOptionDlg.h"
#include "skyframe/dialogs/ModeDlg.h"
#include "skyframe/dialogs/NewmarkDlg.h"
#include "skyframe/dialogs/NonlinStaticDlg.h"
#include "skyframe/dialogs/SpectrumDlg.h"
#include "skyframe/dialogs/WilsonDlg.h"
#include "skyframe/host/CommandLine.h"
#include "skyframe/host/Scripts.h"
#include "skyframe/hostdata/HostData.h"

namespace skyframe::host {
namespace {

namespace fs = std::filesystem;

struct Outcome {
  int nStatus = 0;
  std::string strOut;
  std::string strErr;
};

/// A directory of its own for each test, and the program run in this process.
class CommandLine : public ::testing::Test {
 protected:
  void SetUp() override {
    const auto* pInfo = ::testing::UnitTest::GetInstance()->current_test_info();
    m_directory = fs::temp_directory_path() / ("skyframe_" + std::string(pInfo->name()) + std::to_string(getpid()));
    fs::create_directories(m_directory);
  }
  void TearDown() override { fs::remove_all(m_directory); }

  static Outcome Run(const std::vector<std::string>& arguments) {
    std::ostringstream out;
    std::ostringstream err;
    const int nStatus = RunCommandLine(arguments, out, err);
    return {nStatus, out.str(), err.str()};
  }

  std::string Path(const std::string& strName) const { return (m_directory / strName).string(); }

  std::string Write(const std::string& strName, const std::string& strText) const {
    std::ofstream(Path(strName)) << strText;
    return Path(strName);
  }

  std::string CopyExample(const std::string& strName) const {
    fs::copy_file(fs::path(SKYFRAME_SOURCE_DIR) / "examples" / strName, m_directory / strName);
    return Path(strName);
  }

  /// Runs without the module's progress lines on the standard output.
  Outcome RunJobFile(const std::string& strPath) const { return Run({"run", strPath, "--log", Path("log.txt")}); }

  std::size_t CountFiles() const {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(m_directory), fs::directory_iterator()));
  }

  fs::path m_directory;
};

/// Numbers that follow the label on its line.
std::vector<double> GetNumbers(const std::string& strText, const std::string& strLabel) {
  std::vector<double> numbers;
  const std::size_t n = strText.find(strLabel);
  if (n == std::string::npos) return numbers;
  std::istringstream words(strText.substr(n + strLabel.size(), strText.find('\n', n) - n - strLabel.size()));
  for (std::string strWord; words >> strWord;) {
    std::istringstream word(strWord);
    double dValue = 0.0;
    if (word >> dValue) numbers.push_back(dValue);
  }
  return numbers;
}

/// Cantilever of the length 4 m, A = 0.01 m2, I = 2e-5 m4, loaded at its free end; the ids are not consecutive.
std::string MakeCantilever(const std::string& strSupport, const std::string& strAnalyses) {
  return R"({"nodes": [{"id": 90, "x": 4, "y": 0, "z": 0}, {"id": 5, "x": 0, "y": 0, "z": 0, "restraint": ")" +
         strSupport + R"("}],
    "sections": [{"id": "S", "shape": 2, "area": 1e4, "Ix": 4e7, "Iy": 2e7, "Iz": 2e7}],
    "elements": [{"type": "beam", "i": 5, "j": 90, "section": "S"}],
    "loads": [{"case": 2, "node": 90, "direction": "Z", "value": -4}, {"case": 0, "node": 90, "direction": "Z", "value": -8},
              {"case": 2, "node": 5, "direction": "Z", "value": -100}],
    "analyses": [)" +
         strAnalyses + "]}";
}

TEST_F(CommandLine, HelpIsEverywhere) {
  const std::vector<std::vector<std::string>> commands = {{},
                                                          {"run"},
                                                          {"check"},
                                                          {"generate"},
                                                          {"generate", "building"},
                                                          {"generate", "tower"},
                                                          {"generate", "dome"},
                                                          {"generate", "arch"}};
  for (std::vector<std::string> arguments : commands) {
    arguments.emplace_back("--help");
    const Outcome outcome = Run(arguments);
    EXPECT_EQ(outcome.nStatus, 0);
    EXPECT_NE(outcome.strOut.find("Usage:"), std::string::npos);
    EXPECT_TRUE(outcome.strErr.empty());
  }
}

TEST_F(CommandLine, WrongArgumentsEndWithStatusTwo) {
  const std::vector<std::vector<std::string>> commands = {
      {},
      {"solve"},
      {"run"},
      {"check", "a.json", "b.json"},
      {"generate"},
      {"generate", "tower", "--panels", "0"},
      {"generate", "building", "--nodes", "30000"},
      {"generate", "building", "--nodes", "500", "--storeys", "3"},
      {"generate", "building", "--bays-x", "200", "--bays-y", "200"},
      {"generate", "dome", "--segments", "2"},
      {"generate", "dome", "--rise", "30"},
      {"generate", "arch", "--segments", "5"},
      {"generate", "arch", "--rise", "nan"},
      {"generate", "arch", "-o", Path("no/such/directory.json")},
  };
  for (const auto& arguments : commands) {
    const Outcome outcome = Run(arguments);
    EXPECT_EQ(outcome.nStatus, 2) << (arguments.empty() ? "" : arguments.back());
    EXPECT_FALSE(outcome.strErr.empty());
    EXPECT_EQ(outcome.strOut.find("nodes"), std::string::npos);
  }
}

TEST_F(CommandLine, ABadJobListsItsErrorsAndWritesNothing) {
  const std::string strJob = Write("bad.json", "{\"nodes\": [{\"id\": 1}],\n \"elements\": 3}");
  for (const char* pszCommand : {"run", "check"}) {
    const Outcome outcome = Run({pszCommand, strJob});
    EXPECT_EQ(outcome.nStatus, 2);
    EXPECT_EQ(outcome.strOut, "");
    EXPECT_EQ(outcome.strErr, strJob + ": /nodes/0/x: missing\n" + strJob + ": /nodes/0/y: missing\n" + strJob +
                                  ": /nodes/0/z: missing\n" + strJob + ": /elements: must be an array\n");
  }
  EXPECT_EQ(CountFiles(), 1U);
  EXPECT_EQ(Run({"run", Path("none.json")}).strErr, Path("none.json") + ": /: cannot be opened\n");
}

// P L^3/(3 E I) with P = 1 * 8 + 0.5 * 4 kN. Case 1 has no loads, the loads come out of order, and the
// load on the support must not count.
TEST_F(CommandLine, CantileverThroughTheDialogs) {
  const std::string strJob =
      Write("beam.json",
            MakeCantilever("111111", R"({"type": "static", "nonlinear": false, "combination": {"0": 1, "2": 0.5}})"));
  const Outcome outcome = RunJobFile(strJob);
  ASSERT_EQ(outcome.nStatus, 0) << outcome.strErr;
  const std::vector<double> displacement = GetNumbers(outcome.strOut, "largest displacement");
  ASSERT_FALSE(displacement.empty());
  EXPECT_NEAR(displacement[0], 10.0e3 * 64.0 / (3.0 * 2.06e11 * 2.0e-5), 1.0e-6);
  EXPECT_NE(outcome.strOut.find("at node 90:"), std::string::npos) << outcome.strOut;
  EXPECT_NE(outcome.strOut.find("number the nodes in the order"), std::string::npos);
  EXPECT_NE(outcome.strOut.find(Path("beam_StaticLinearSol.txt") + ", "), std::string::npos);
  EXPECT_NE(outcome.strOut.find("sum of loads          X 0.000, Y 0.000, Z -10.000 kN"), std::string::npos);
  EXPECT_NE(outcome.strOut.find("force on supports     X 0.000, Y 0.000, Z -10.000 kN"), std::string::npos);

  std::ifstream log(Path("log.txt"));
  std::stringstream text;
  text << log.rdbuf();
  EXPECT_NE(text.str().find("荷载组装"), std::string::npos);
  EXPECT_NE(Run({"run", strJob}).strOut.find("荷载组装"), std::string::npos);
}

TEST_F(CommandLine, AFailedAnalysisEndsWithStatusOneAndTheRestRuns) {
  const std::string strStatic = R"({"type": "static", "nonlinear": %, "combination": {"0": 1}})";
  const auto Static = [&strStatic](const std::string& strFlag) {
    return std::string(strStatic).replace(strStatic.find('%'), 1, strFlag);
  };
  const std::string strJob = Write("loose.json", MakeCantilever("101111", Static("false") + "," + Static("true")));
  const Outcome outcome = RunJobFile(strJob);
  EXPECT_EQ(outcome.nStatus, 1);
  EXPECT_EQ(outcome.strErr, "结构几何可变\n结构几何可变\n");
  EXPECT_NE(outcome.strOut.find("Static analysis, nonlinear"), std::string::npos);
  EXPECT_EQ(outcome.strOut.find("largest displacement"), std::string::npos);

  const std::string strCable = Write("cable.json", R"({"nodes": [{"id": 1, "x": 0, "y": 0, "z": 0, "joint": "pinned"},
      {"id": 2, "x": 1, "y": 0, "z": 0, "joint": "pinned"}], "sections": [{"id": "S", "area": 1}],
      "elements": [{"type": "cable", "i": 1, "j": 2, "section": "S"}], "analyses": [{"type": "static", "combination": {"0": 1}}]})");
  EXPECT_EQ(RunJobFile(strCable).nStatus, 1);
  EXPECT_EQ(RunJobFile(strCable).strErr, "不能计算索单元!\n");
  EXPECT_EQ(Run({"check", strCable}).nStatus, 1);
}

/// A result left by an earlier run must not pass for a new one.
TEST_F(CommandLine, AnOldResultFileIsNoResult) {
  const std::string strJob =
      Write("old.json", MakeCantilever("101111", R"({"type": "static", "nonlinear": true, "combination": {"0": 1}})"));
  const std::string strResult = Write("old_StaticNonlinearSol.txt", "old");
  fs::last_write_time(strResult, fs::file_time_type::clock::now() - std::chrono::hours(1));
  const Outcome outcome = RunJobFile(strJob);
  EXPECT_EQ(outcome.nStatus, 1);
  EXPECT_NE(outcome.strOut.find("no result"), std::string::npos);
}

TEST_F(CommandLine, CheckPrintsTheProfile) {
  // A chain of ten bars with the numbers of its nodes running odd, then even.
  std::string strNodes;
  std::string strElements;
  for (int i = 0; i <= 10; ++i) {
    const int nId = i % 2 == 0 ? i / 2 + 1 : 7 + i / 2;
    strNodes += (i == 0 ? "" : ",") + std::string("{\"id\":") + std::to_string(i + 1) +
                ",\"x\":" + std::to_string(i <= 5 ? 2 * i : 2 * (i - 6) + 1) + ",\"y\":0,\"z\":0,\"restraint\":\"" +
                (i == 0 ? "111111" : "000000") + "\"}";
    const int nNext = (i + 1) % 2 == 0 ? (i + 1) / 2 + 1 : 7 + (i + 1) / 2;
    if (i < 10) {
      strElements += (i == 0 ? "" : ",") + std::string("{\"type\":\"beam\",\"section\":\"S\",\"i\":") +
                     std::to_string(nId) + ",\"j\":" + std::to_string(nNext) + "}";
    }
  }
  const std::string strJob = Write("chain.json", "{\"nodes\":[" + strNodes + "],\"elements\":[" + strElements +
                                                     "],\"sections\":[{\"id\":\"S\",\"area\":1,\"Iy\":1,\"Iz\":1}]}");
  const Outcome outcome = Run({"check", strJob});
  ASSERT_EQ(outcome.nStatus, 0) << outcome.strErr;
  EXPECT_NE(outcome.strOut.find("equations    60 free, 6 restrained"), std::string::npos) << outcome.strOut;
  // Consecutive nodes: the first free node has full triangle 1..6, the others 7..12.
  const std::vector<double> renumbered = GetNumbers(outcome.strOut, "renumbered");
  const std::vector<double> own = GetNumbers(outcome.strOut, "profile");
  ASSERT_FALSE(renumbered.empty());
  ASSERT_FALSE(own.empty());
  EXPECT_EQ(renumbered[0], 21.0 + 9.0 * 57.0);
  EXPECT_GT(own[0], 2.0 * renumbered[0]);
  EXPECT_EQ(CountFiles(), 1U);
}

TEST_F(CommandLine, GeneratedStructuresAreInEquilibrium) {
  const std::vector<std::vector<std::string>> commands = {
      {"generate", "building", "--bays-x", "2", "--bays-y", "1", "--storeys", "4"},
      {"generate", "building", "--nodes", "90"},
      {"generate", "tower", "--panels", "5"},
      {"generate", "dome", "--rings", "3", "--segments", "8"},
      {"generate", "dome", "--rings", "3", "--segments", "8", "--beams"},
      {"generate", "arch"},
      {"generate", "arch", "--segments", "10"},
  };
  int nJob = 0;
  for (std::vector<std::string> arguments : commands) {
    const std::string strJob = Path("job" + std::to_string(++nJob) + ".json");
    EXPECT_EQ(Run(arguments).strOut.substr(0, 1), "{");
    arguments.insert(arguments.end(), {"--output", strJob});
    EXPECT_EQ(Run(arguments).strOut, "");
    EXPECT_EQ(Run({"check", strJob}).nStatus, 0);
    const Outcome outcome = RunJobFile(strJob);
    EXPECT_EQ(outcome.nStatus, 0) << arguments[1] << outcome.strErr;
    const std::vector<double> load = GetNumbers(outcome.strOut, "sum of loads");
    const std::vector<double> support = GetNumbers(outcome.strOut, "force on supports");
    ASSERT_EQ(load.size(), 3U);
    EXPECT_LT(load[2], -1.0);
    for (std::size_t d = 0; d < 3; ++d) EXPECT_NEAR(support[d], load[d], 0.0011) << arguments[1];
  }
}

constexpr int c_nCaseCount = 4;

/// The dialogs as the job's script leaves them.
class Scripts : public ::testing::Test {
 protected:
  void SetUp() override { ResetHostData(); }

  template <class Dialog>
  std::unique_ptr<Dialog> Open(const JobAnalysis& analysis) {
    m_platform->Clear();
    std::visit([this](const auto& parameters) { AddScripts(parameters, *m_platform); }, analysis);
    auto pDialog = std::make_unique<Dialog>();
    if constexpr (requires { pDialog->m_loadComb; }) pDialog->m_loadComb.nLoadTypes = c_nCaseCount;
    EXPECT_EQ(pDialog->DoModal(), c_nIdOk);
    EXPECT_EQ(m_platform->GetScriptErrors(), std::vector<std::string>{});
    EXPECT_EQ(m_platform.GetMessages(), std::vector<std::string>{});
    return pDialog;
  }

  test::CTestPlatform m_platform;
};

std::vector<double> GetFactors(const LoadCombination& combination) {
  std::vector<double> factors;
  for (int k = 0; k < c_nCaseCount; ++k) factors.push_back(combination.flags[k] * combination.factors[k]);
  return factors;
}

TEST_F(Scripts, WhatAJobLeavesOutKeepsTheDialogsDefault) {
  const auto pFirst = std::make_unique<CNonlinStaticDlg>();
  const auto pSecond = Open<CNonlinStaticDlg>(StaticJob{});
  EXPECT_EQ(pSecond->m_bNonlinear, pFirst->m_bNonlinear);
  EXPECT_EQ(pSecond->m_nCriterion, pFirst->m_nCriterion);
  EXPECT_EQ(pSecond->m_dTolerance, pFirst->m_dTolerance);
  EXPECT_EQ(pSecond->m_nMaxIter, pFirst->m_nMaxIter);
  EXPECT_EQ(GetFactors(pSecond->m_loadComb), (std::vector<double>{0, 0, 0, 0}));
  EXPECT_FALSE(m_platform->HasUnusedScripts());
}

TEST_F(Scripts, StaticAndModalValuesArrive) {
  const auto pNonlinear = Open<CNonlinStaticDlg>(StaticJob{false, 3, 1.25e-7, 77, {{0, 1.2}, {3, -0.3333333333}}});
  EXPECT_EQ(pNonlinear->m_bNonlinear, 0);
  EXPECT_EQ(pNonlinear->m_nCriterion, 3);
  EXPECT_EQ(pNonlinear->m_dTolerance, 1.25e-7);
  EXPECT_EQ(pNonlinear->m_nMaxIter, 77);
  EXPECT_EQ(GetFactors(pNonlinear->m_loadComb), (std::vector<double>{1.2, 0, 0, -0.3333333333}));

  const auto pModal = Open<CModeDlg>(ModalJob{6, 1, 1e-10, 9, true, {{2, 0.5}}});
  EXPECT_EQ(pModal->m_nModes, 6);
  EXPECT_EQ(pModal->m_nRootCheck, 1);
  EXPECT_EQ(pModal->m_dModeTol, 1e-10);
  EXPECT_EQ(pModal->m_nIterMultiple, 9);
  EXPECT_EQ(pModal->m_bShear, 1);
  EXPECT_EQ(GetFactors(pModal->m_loadComb), (std::vector<double>{0, 0, 0.5, 0}));
}

TEST_F(Scripts, SpectrumValuesArrive) {
  for (int k = 0; k < 6; ++k) {
    const auto pDialog =
        Open<CSpectrumDlg>(SpectrumJob{8, 3, std::array{0.6, 0.8, 0.1}, 4, 2, k, 1, 0.035, 2, {{0, 1.0}, {1, 0.5}}});
    EXPECT_EQ(pDialog->m_nIntensity, k);
    EXPECT_EQ(pDialog->m_nExpandModes, 8);
    EXPECT_EQ(pDialog->m_nMeshDiv, 3);
    EXPECT_EQ(pDialog->m_dDirCoef, (std::array{0.6, 0.8, 0.1}));
    EXPECT_EQ(COMDYN.m_nSiteClass, 4);
    EXPECT_EQ(COMDYN.m_nZoneGroup, 2);
    EXPECT_EQ(pDialog->m_nQuakeLevel, 1);
    EXPECT_EQ(pDialog->m_dDampRatio, 0.035);
    EXPECT_EQ(pDialog->m_nCombMethod, 2);
    EXPECT_EQ(GetFactors(pDialog->m_loadComb), (std::vector<double>{1.0, 0.5, 0, 0}));
  }
}

TEST_F(Scripts, TimeHistoryValuesArrive) {
  const WilsonJob wilson{std::array{0.01, 0.03}, 1.37, 0.002, 4.0, true, JobPeaks{0.1, 0.2, 0.3, 0.4}, {{1, 2.0}}};
  EXPECT_EQ(Open<CDynOptionDlg>(wilson)->m_nMethod, 0);
  const auto pFirst = Open<CWilsonDlg>(wilson);
  EXPECT_EQ(pFirst->m_dDamping, (std::array{0.01, 0.03}));
  EXPECT_EQ(pFirst->m_dTheta, 1.37);
  EXPECT_EQ(pFirst->m_dTimeStep, 0.002);
  EXPECT_EQ(pFirst->m_dDuration, 4.0);
  EXPECT_EQ(pFirst->m_dPeak, (std::array{0.1, 0.2, 0.3}));
  EXPECT_EQ(pFirst->m_dPeakOblique, 0.4);

  NewmarkJob impulse;
  impulse.bNonlinear = true;
  impulse.nCriterion = 2;
  impulse.dTolerance = 0.003;
  impulse.impulse = ImpulseLoadJob{1, {{11, 2, -3.5}, {4, 0, 8.25}}, 0.1, 0.25, 0.005, 1.5};
  EXPECT_EQ(Open<CDynOptionDlg>(impulse)->m_nMethod, 1);
  const auto pSecond = Open<CNewmarkDlg>(impulse);
  EXPECT_EQ(pSecond->m_nLoadType, 0);
  EXPECT_EQ(pSecond->m_nCriterion, 2);
  EXPECT_EQ(pSecond->m_dTolerance, 0.003);
  ASSERT_EQ(pSecond->m_impulses.size(), 2U);
  EXPECT_EQ(pSecond->m_impulses[0].nNode, 11);
  EXPECT_EQ(pSecond->m_impulses[1].dPeak, 8.25);
  EXPECT_EQ(pSecond->m_nImpulseType, 1);
  EXPECT_EQ(pSecond->m_dImpulseTime, 0.25);
  EXPECT_EQ(pSecond->m_dTimeStep, 0.005);

  NewmarkJob quake;
  quake.nLoad = 1;
  quake.earthquake = EarthquakeJob{0.02, 9.0, 0, {true, false, true}, {}, JobPeaks{0.7, {}, 0.5, {}}};
  const auto pThird = Open<CNewmarkDlg>(quake);
  EXPECT_EQ(pThird->m_nLoadType, 1);
  EXPECT_EQ(pThird->m_bQuakeDir, (std::array{1, 0, 1}));
  EXPECT_EQ(pThird->m_dPeak, (std::array{0.7, 0.35, 0.5}));
  EXPECT_EQ(pThird->m_dDuration, 9.0);

  quake.earthquake = EarthquakeJob{{}, {}, 1, {}, std::array{0.0, 3.0, 4.0}, JobPeaks{std::nullopt, {}, {}, 0.9}};
  const auto pFourth = Open<CNewmarkDlg>(quake);
  EXPECT_EQ(pFourth->m_nQuakeMode, 1);
  EXPECT_NEAR(pFourth->m_dObliqueCoef[2], 0.8, 1e-12);
  EXPECT_EQ(pFourth->m_dPeakOblique, 0.9);

  NewmarkJob fromFile;
  fromFile.bFromFile = true;
  fromFile.generalLoad = GeneralLoadJob{0.004, 2.5};
  const auto pFifth = Open<CNewmarkDlg>(fromFile);
  EXPECT_EQ(pFifth->m_bFromFile, 1);
  EXPECT_EQ(pFifth->m_dTimeStep, 0.004);
}

// At P = 200 kN the apex descends by 0.0359399 m: P = EA (2 h w - w^2)(h - w)/L0^3.
TEST_F(CommandLine, ArchExampleFollowsItsClosedForm) {
  const Outcome outcome = RunJobFile(CopyExample("arch2.json"));
  ASSERT_EQ(outcome.nStatus, 0) << outcome.strErr;
  const std::string strNonlinear = outcome.strOut.substr(outcome.strOut.find("Static analysis, nonlinear"));
  const double w = GetNumbers(strNonlinear, "largest displacement").at(0);
  EXPECT_NEAR(2.06e8 * (2.0 * w - w * w) * (1.0 - w) / std::pow(17.0, 1.5), 200.0e3, 1.0);
}

TEST_F(CommandLine, ExamplesSolve) {
  for (const char* pszName : {"tower25.json", "tower72.json", "office10.json", "dome.json"}) {
    const Outcome outcome = RunJobFile(CopyExample(pszName));
    EXPECT_EQ(outcome.nStatus, 0) << pszName << '\n' << outcome.strOut << outcome.strErr;
  }
}

}  // namespace
}  // namespace skyframe::host
