#include <sys/stat.h>
#include <unistd.h>

#include "FullDisk.h"
#include "TestPlatform.h"
#include "skyframe/cli/CommandLine.h"
#include "skyframe/dialogs/DynOptionDlg.h"
#include "skyframe/dialogs/NewmarkDlg.h"
#include "skyframe/dialogs/WilsonDlg.h"
#include "skyframe/hostdata/HostData.h"
#include "skyframe/run/Scripts.h"

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
  const std::vector<std::vector<std::string>> commands = {{}, {"run"}, {"check"}, {"generate"}, {"generate", "tower"}};
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
      {"solve"},
      {"run"},
      {"check", "a.json", "b.json"},
      {"generate", "tower", "--panels", "0"},
      {"generate", "building", "--nodes", "30000"},
      {"generate", "building", "--nodes", "500", "--storeys", "3"},
      {"generate", "building", "--bays-x", "200", "--bays-y", "200"},
      {"generate", "dome", "--rise", "30"},
      {"generate", "arch", "--segments", "5"},
      {"generate", "arch", "--rise", "nan"},
      {"check", "a.json", "\x1b[2J"},
  };
  for (const auto& arguments : commands) {
    const Outcome outcome = Run(arguments);
    EXPECT_EQ(outcome.nStatus, 2) << (arguments.empty() ? "" : arguments.back());
    EXPECT_FALSE(outcome.strErr.empty());
    EXPECT_EQ(outcome.strErr.find('\x1b'), std::string::npos);
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

TEST_F(CommandLine, OutputThatCannotBeWrittenIsReported) {
  const std::string strAnalysis = R"({"type": "static", "nonlinear": false, "combination": {"0": 1}})";
  const std::string strJob = Write("job.json", MakeCantilever("111111", strAnalysis));
  ASSERT_EQ(RunJobFile(strJob).nStatus, 0);
  fs::create_symlink("job.json", Path("link"));
  fs::create_hard_link(strJob, Path("same"));
  fs::create_symlink("absent", Path("dangling"));
  mkfifo(Path("pipe").c_str(), 0666);
  const std::string strOwn = ": belongs to the job; choose another name\n";
  const struct {
    std::string strOutput, strReason;
    int nRun = 2, nPlot = 2;
  } cases[] = {
      {"/dev/null", "", 0, 0},
      {"/dev/full", ": No space left on device\n", 1},
      {Path("dangling"), ": is a symbolic link\n"},
      {Path("pipe"), ": is not a regular file\n"},
      {Path("no/such.svg"), ": No such file or directory\n"},
      {strJob, strOwn},
      {Path("./none/../job.json"), strOwn},
      {Path("link"), strOwn},
      {Path("same"), strOwn},
      {Path("job_StaticLinearSol.txt"), strOwn},
      {Path("job.mode"), strOwn},
  };
  for (const auto& c : cases) {
    const std::string strExpected =
        c.strReason.empty() ? "" : (c.strReason == strOwn ? "" : "cannot write ") + c.strOutput + c.strReason;
    const Outcome run = Run({"run", strJob, "--log", c.strOutput});
    EXPECT_EQ(std::tuple(run.nStatus, run.strErr), std::tuple(c.nRun, strExpected));
    EXPECT_EQ(run.strOut.empty(), c.nRun == 2);
    const Outcome plot = Run({"plot", strJob, "--deformed", "-o", c.strOutput});
    EXPECT_EQ(std::tuple(plot.nStatus, plot.strErr), std::tuple(c.nPlot, strExpected));
  }
  for (const std::vector<std::string>& arguments : {std::vector<std::string>{"generate", "arch"}, {"--help"}}) {
    std::ofstream full("/dev/full");
    std::ostringstream err;
    EXPECT_EQ(RunCommandLine(arguments, full, err), 1);
    EXPECT_EQ(err.str(), "cannot write the standard output: No space left on device\n");
  }
  EXPECT_EQ(Run({"plot", strJob, "", "--deformed", "-o", Path("p.svg")}).strErr, "an argument is empty\n");
  EXPECT_EQ(Run({"check", Path("pipe")}).strErr, Path("pipe") + ": /: cannot be opened\n");
}

TEST_F(CommandLine, AResultThatCannotBeWrittenLeavesTheOldOne) {
  const std::pair<std::string, std::string> cases[] = {
      {R"({"type": "static", "nonlinear": false, "combination": {"0": 1}})", "job_StaticLinearSol.txt"},
      {R"({"type": "static"})", "job_StaticNonlinearSol.txt"},
      {R"({"type": "modal", "modes": 1})", "job.mode"},
  };
  for (const auto& [strAnalysis, strResult] : cases) {
    const std::string strJob = Write("job.json", MakeCantilever("111111", strAnalysis));
    EXPECT_EQ(RunJobFile(strJob).nStatus, 0) << strResult;
    const std::string strPath = Write(strResult, "old");
    {
      const test::CFullDisk full;
      EXPECT_EQ(Run({"run", strJob, "--log", "/dev/null"}).nStatus, 1);
    }
    EXPECT_EQ(fs::file_size(strPath), 3U) << strResult;
  }
}

// P L^3/(3 E I) with P = 1 * 8 + 0.5 * 4 kN. Case 1 has no loads, the loads come out of order, and the
// load on the support must not count.
TEST_F(CommandLine, CantileverThroughTheDialogs) {
  const std::string strJob =
      Write("beam.json",
            MakeCantilever("111111", R"({"type": "static", "nonlinear": false, "combination": {"0": 1, "2": 0.5}})"));
  const Outcome outcome = RunJobFile(strJob);
  ASSERT_EQ(outcome.nStatus, 0) << outcome.strErr;
  EXPECT_NEAR(GetNumbers(outcome.strOut, "largest displacement").at(0), 10.0e3 * 64.0 / (3.0 * 2.06e11 * 2.0e-5), 1e-6);
  EXPECT_NE(outcome.strOut.find("at node 90:"), std::string::npos) << outcome.strOut;
  EXPECT_NE(outcome.strOut.find("number the nodes in the order"), std::string::npos);
  EXPECT_NE(outcome.strOut.find(Path("beam_StaticLinearSol.txt") + ", "), std::string::npos);
  EXPECT_NE(outcome.strOut.find("sum of loads          X 0.000, Y 0.000, Z -10.000 kN"), std::string::npos);
  EXPECT_NE(outcome.strOut.find("force on supports     X 0.000, Y 0.000, Z -10.000 kN"), std::string::npos);

  std::stringstream text;
  text << std::ifstream(Path("log.txt")).rdbuf();
  EXPECT_NE(text.str().find("荷载组装"), std::string::npos);
  EXPECT_NE(Run({"run", strJob}).strOut.find("荷载组装"), std::string::npos);
}

TEST_F(CommandLine, AFailedAnalysisEndsWithStatusOneAndTheRestRuns) {
  const std::string strStatic = R"({"type": "static", "combination": {"0": 1}, "nonlinear": )";
  const std::string strJob = Write("loose.json", MakeCantilever("101111", strStatic + "false}," + strStatic + "true}"));
  // A result left by an earlier run must not pass for a new one.
  const std::string strResult = Write("loose_StaticNonlinearSol.txt", "old");
  fs::last_write_time(strResult, fs::file_time_type::clock::now() - std::chrono::hours(1));
  const Outcome outcome = RunJobFile(strJob);
  EXPECT_EQ(outcome.nStatus, 1);
  EXPECT_TRUE(outcome.strErr.ends_with("[mechanism]\n结构几何可变\n结构几何可变\n")) << outcome.strErr;
  const std::size_t nNonlinear = outcome.strOut.find("Static analysis, nonlinear");
  EXPECT_NE(outcome.strOut.find("no result", nNonlinear), std::string::npos);
  EXPECT_EQ(outcome.strOut.find("largest displacement"), std::string::npos);

  const std::string strCable = Write("cable.json", R"({"nodes": [{"id": 1, "x": 0, "y": 0, "z": 0, "joint": "pinned"},
      {"id": 2, "x": 1, "y": 0, "z": 0, "joint": "pinned"}], "sections": [{"id": "S", "area": 1}],
      "elements": [{"type": "cable", "i": 1, "j": 2, "section": "S"}], "analyses": [{"type": "modal"}]})");
  EXPECT_EQ(RunJobFile(strCable).nStatus, 1);
  EXPECT_TRUE(RunJobFile(strCable).strErr.ends_with("[mechanism]\n不能计算索单元!\n"));
  EXPECT_EQ(Run({"check", strCable}).nStatus, 1);
}

TEST_F(CommandLine, CheckPrintsTheProfile) {
  const std::string strJob = Write("chain.json", R"({"sections": [{"id": "S", "area": 1, "Iy": 1, "Iz": 1}], "nodes": [
      {"id": 1, "x": 0, "y": 0, "z": 0, "restraint": "111111"}, {"id": 2, "x": 2, "y": 0, "z": 0},
      {"id": 3, "x": 1, "y": 0, "z": 0}, {"id": 4, "x": 3, "y": 0, "z": 0}], "elements": [
      {"type": "beam", "section": "S", "i": 1, "j": 3}, {"type": "beam", "section": "S", "i": 3, "j": 2},
      {"type": "beam", "section": "S", "i": 2, "j": 4}]})");
  const Outcome outcome = Run({"check", strJob});
  ASSERT_EQ(outcome.nStatus, 0) << outcome.strErr;
  EXPECT_NE(outcome.strOut.find("equations    18 free, 6 restrained"), std::string::npos) << outcome.strOut;
  // Column heights: 1..6 at the first free node, 7..12 behind a neighbour, 13..18 where node 4 reaches back to node 2.
  EXPECT_EQ(GetNumbers(outcome.strOut, "renumbered").at(0), 21.0 + 57.0 + 57.0);
  EXPECT_EQ(GetNumbers(outcome.strOut, "profile").at(0), 21.0 + 57.0 + 93.0);
  EXPECT_EQ(CountFiles(), 1U);
}

TEST_F(CommandLine, GeneratedStructuresRun) {
  const std::vector<std::vector<std::string>> commands = {
      {"generate", "building", "--nodes", "90"},
      {"generate", "tower", "--panels", "5"},
      {"generate", "dome", "--rings", "3", "--segments", "8", "--beams"},
      {"generate", "arch", "--segments", "10"},
  };
  int nJob = 0;
  for (std::vector<std::string> arguments : commands) {
    const std::string strJob = Path("job" + std::to_string(++nJob) + ".json");
    EXPECT_EQ(Run(arguments).strOut.substr(0, 1), "{");
    arguments.insert(arguments.end(), {"--output", strJob});
    EXPECT_EQ(Run(arguments).strOut, "");
    EXPECT_EQ(Run({"check", strJob}).nStatus, 0);
    const Outcome outcome = RunJobFile(strJob);  // no balance is an error
    EXPECT_EQ(outcome.nStatus, 0) << arguments[1] << outcome.strErr;
    EXPECT_LT(GetNumbers(outcome.strOut, "sum of loads").at(2), -1.0);
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

TEST_F(Scripts, TimeHistoryValuesArrive) {
  const WilsonJob wilson{std::array{0.01, 0.03}, 1.37, 0.002, 4.0, true, JobPeaks{0.1, 0.2, 0.3, 0.4}, {{1, 2.0}}};
  EXPECT_EQ(Open<CDynOptionDlg>(wilson)->m_nMethod, 0);
  const auto p1 = Open<CWilsonDlg>(wilson);
  EXPECT_EQ(std::tuple(p1->m_pDamping[0], p1->m_pDamping[1], p1->m_dWilsonTheta, p1->m_dTimeStep, p1->m_dDuration,
                       p1->m_peaks.m_dPeak, p1->m_peaks.m_dPeakOblique, p1->m_bNonlinear),
            std::tuple(0.01, 0.03, 1.37, 0.002, 4.0, std::array{0.1, 0.2, 0.3}, 0.4, 1));

  NewmarkJob impulse;
  std::tie(impulse.bNonlinear, impulse.nCriterion, impulse.dTolerance) = std::tuple(true, 2, 0.003);
  impulse.impulse = ImpulseLoadJob{1, {{11, 2, -3.5}, {4, 0, 8.25}}, 0.1, 0.25, 0.005, 1.5};
  EXPECT_EQ(Open<CDynOptionDlg>(impulse)->m_nMethod, 1);
  const auto p2 = Open<CNewmarkDlg>(impulse);
  ASSERT_EQ(p2->m_impulses.size(), 2U);
  EXPECT_EQ(std::tuple(p2->m_nLoadType, p2->m_nConvCriterion, p2->m_dConvTol, p2->m_impulses[0].nNode,
                       p2->m_impulses[1].dPeak, p2->m_nImpulseType, p2->m_dImpulseTime, p2->m_dTimeStep),
            std::tuple(0, 2, 0.003, 11, 8.25, 1, 0.25, 0.005));

  NewmarkJob quake;
  quake.nLoad = 1;
  quake.earthquake = EarthquakeJob{0.02, 9.0, 0, {true, false, true}, {}, JobPeaks{0.7, {}, 0.5, {}}};
  const auto p3 = Open<CNewmarkDlg>(quake);
  EXPECT_EQ(std::tuple(p3->m_nLoadType, p3->m_quake.m_bQuakeDir, p3->m_quake.m_dPeak, p3->m_dDuration),
            std::tuple(1, std::array{1, 0, 1}, std::array{0.7, 0.35, 0.5}, 9.0));
  quake.earthquake = EarthquakeJob{{}, {}, 1, {}, std::array{0.0, 3.0, 4.0}, JobPeaks{std::nullopt, {}, {}, 0.9}};
  const auto p4 = Open<CNewmarkDlg>(quake);
  EXPECT_EQ(std::tuple(p4->m_quake.m_nQuakeMode, p4->m_quake.m_dPeakOblique), std::tuple(1, 0.9));
  EXPECT_NEAR(p4->m_quake.m_dObliqueCoef[2], 0.8, 1e-12);

  NewmarkJob fromFile;
  fromFile.bFromFile = true;
  fromFile.generalLoad = GeneralLoadJob{0.004, 2.5};
  const auto p5 = Open<CNewmarkDlg>(fromFile);
  EXPECT_EQ(std::tuple(p5->m_bLoadFromFile, p5->m_dTimeStep), std::tuple(1, 0.004));
}

}  // namespace
}  // namespace skyframe::host
