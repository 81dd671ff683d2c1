#include <gtest/gtest.h>

#include <unistd.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "skyframe/host/CommandLine.h"

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
      "elements": [{"type": "cable", "i": 1, "j": 2, "section": "S"}], "analyses": [{"type": "static"}]})");
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
  EXPECT_NE(outcome.strOut.find("no result file"), std::string::npos);
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
