#include <regex>

#include "CommandFolder.h"

namespace skyframe::host {
namespace {

namespace fs = std::filesystem;
using test::CCommandFolder;
using test::CommandOutcome;
using test::MakeCantilever;

class CommandLine : public ::testing::Test, protected CCommandFolder {};

/// The number that follows the label; 0 without one.
double GetNumber(const std::string& strText, const std::string& strLabel) {
  const std::size_t n = strText.find(strLabel);
  return n == std::string::npos ? 0.0 : std::atof(strText.c_str() + n + strLabel.size());
}

TEST_F(CommandLine, HelpIsEverywhereAndWrongArgumentsEndWithStatusTwo) {
  const std::vector<test::Strings> commandsWithHelp = {{}, {"run"}, {"check"}, {"generate"}, {"generate", "tower"}};
  for (test::Strings arguments : commandsWithHelp) {
    arguments.emplace_back("--help");
    const CommandOutcome outcome = Call(arguments);
    EXPECT_NE(outcome.strOut.find("Usage:"), std::string::npos);
    EXPECT_EQ(std::tuple(outcome.nStatus, outcome.strErr), std::tuple(0, ""));
  }
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
    const CommandOutcome outcome = Call(arguments);
    EXPECT_EQ(outcome.nStatus, 2) << (arguments.empty() ? "" : arguments.back());
    EXPECT_FALSE(outcome.strErr.empty());
    EXPECT_EQ(outcome.strErr.find('\x1b'), std::string::npos);
    EXPECT_EQ(outcome.strOut.find("nodes"), std::string::npos);
  }
}

TEST_F(CommandLine, ABadJobListsItsErrorsAndWritesNothing) {
  Write(".json", "{\"nodes\": [{\"id\": 1}],\n \"elements\": 3}");
  const std::string strJob = GetPath(".json");
  for (const char* pszCommand : {"run", "check"}) {
    const CommandOutcome outcome = Call({pszCommand, strJob});
    EXPECT_EQ(outcome.nStatus, 2);
    EXPECT_EQ(outcome.strOut, "");
    EXPECT_EQ(outcome.strErr, strJob + ": /nodes/0/x: missing\n" + strJob + ": /nodes/0/y: missing\n" + strJob +
                                  ": /nodes/0/z: missing\n" + strJob + ": /elements: must be an array\n");
  }
  EXPECT_EQ(List().size(), 1U);
  EXPECT_EQ(Call({"run", GetPath("none.json")}).strErr, GetPath("none.json") + ": cannot be opened\n");
}

TEST_F(CommandLine, OutputThatCannotBeWrittenIsReported) {
  const std::string strAnalysis = R"({"type": "static", "nonlinear": false, "combination": {"0": 1}})";
  ASSERT_EQ(Solve(MakeCantilever("111111", strAnalysis)).nStatus, 0);
  const std::string strJob = GetPath(".json");
  fs::create_hard_link(strJob, GetPath("same"));
  const std::string strOwn = ": belongs to the job; choose another name\n";
  struct Case {
    std::string strOutput, strReason;
    int nRun = 2, nPlot = 2;
  };
  std::vector<Case> cases = {
      {GetPath("no/such.svg"), ": No such file or directory\n"},
      {strJob, strOwn},
      {GetPath("none/../job.json"), strOwn},
      {GetPath("same"), strOwn},
      {GetPath("_StaticLinearSol.txt"), strOwn},
      {GetPath(".mode"), strOwn},
  };
  if (test::MakeLink("job.json", GetPath("link"))) cases.push_back({GetPath("link"), strOwn});
  if (test::MakeLink("absent", GetPath("dangling"))) cases.push_back({GetPath("dangling"), ": is a symbolic link\n"});
  if (test::MakePipeFile(GetPath("pipe"))) {
    cases.push_back({GetPath("pipe"), ": is not a regular file\n"});
    cases.push_back({"/dev/null", "", 0, 0});
    cases.push_back({"/dev/full", ": No space left on device\n", 1});
  }
  for (const Case& c : cases) {
    const std::string strExpected =
        c.strReason.empty() ? "" : (c.strReason == strOwn ? "" : "cannot write ") + c.strOutput + c.strReason;
    const CommandOutcome run = Call({"run", strJob, "--log", c.strOutput});
    EXPECT_EQ(std::tuple(run.nStatus, run.strErr), std::tuple(c.nRun, strExpected));
    EXPECT_EQ(run.strOut.empty(), c.nRun == 2);
    const CommandOutcome plot = Call({"plot", strJob, "--deformed", "-o", c.strOutput});
    EXPECT_EQ(std::tuple(plot.nStatus, plot.strErr), std::tuple(c.nPlot, strExpected));
  }
  EXPECT_EQ(Call({"plot", strJob, "", "--deformed", "-o", GetPath("p.svg")}).strErr, "an argument is empty\n");
  EXPECT_EQ(Call({"check", GetPath("pipe")}).strErr, GetPath("pipe") + ": cannot be opened\n");
}

// P L^3/(3 E I) with P = 1 * 8 + 0.5 * 4 kN. Case 1 has no loads, the loads come out of order, and the
// load on the support must not count.
TEST_F(CommandLine, CantileverThroughTheDialogs) {
  const CommandOutcome outcome =
      Solve(MakeCantilever("111111", R"({"type": "static", "nonlinear": false, "combination": {"0": 1, "2": 0.5}})"));
  ASSERT_EQ(outcome.nStatus, 0) << outcome.strErr;
  EXPECT_NEAR(GetNumber(outcome.strOut, "largest displacement"), 10.0e3 * 64.0 / (3.0 * 2.06e11 * 2.0e-5), 1e-6);
  for (const std::string& strPart :
       {std::string("at node 90:"), std::string("number the nodes in the order"),
        GetPath("_StaticLinearSol.txt") + ", ", std::string("sum of loads          X 0.000, Y 0.000, Z -10.000 kN"),
        std::string("force on supports     X 0.000, Y 0.000, Z -10.000 kN")}) {
    EXPECT_NE(outcome.strOut.find(strPart), std::string::npos) << strPart << outcome.strOut;
  }
  for (const std::string& strLog : {Read(".log"), Call({"run", GetPath(".json")}).strOut}) {
    EXPECT_NE(strLog.find("荷载组装"), std::string::npos);
  }
}

TEST_F(CommandLine, AFailedAnalysisEndsWithStatusOneAndTheRestRuns) {
  // A result left by an earlier run must not pass for a new one.
  Write("_StaticNonlinearSol.txt", "old");
  fs::last_write_time(GetPath("_StaticNonlinearSol.txt"), fs::file_time_type::clock::now() - std::chrono::hours(1));
  const std::string strStatic = R"({"type": "static", "combination": {"0": 1}, "nonlinear": )";
  const CommandOutcome outcome = Solve(MakeCantilever("101111", strStatic + "false}," + strStatic + "true}"));
  EXPECT_EQ(outcome.nStatus, 1);
  EXPECT_TRUE(outcome.strErr.ends_with("[mechanism]\n结构几何可变\n结构几何可变\n")) << outcome.strErr;
  const std::size_t nNonlinear = outcome.strOut.find("Static analysis, nonlinear");
  EXPECT_NE(outcome.strOut.find("no result", nNonlinear), std::string::npos);
  EXPECT_EQ(outcome.strOut.find("largest displacement"), std::string::npos);

  const CommandOutcome cable = Solve(R"({"nodes": [{"id": 1, "x": 0, "y": 0, "z": 0, "joint": "pinned"},
      {"id": 2, "x": 1, "y": 0, "z": 0, "joint": "pinned"}], "sections": [{"id": "S", "area": 1}],
      "elements": [{"type": "cable", "i": 1, "j": 2, "section": "S"}], "analyses": [{"type": "modal"}]})");
  EXPECT_EQ(cable.nStatus, 1);
  EXPECT_TRUE(cable.strErr.ends_with("[mechanism]\n不能计算索单元!\n"));
  EXPECT_EQ(Call({"check", GetPath(".json")}).nStatus, 1);
}

TEST_F(CommandLine, CheckPrintsTheProfile) {
  Write(".json", R"({"sections": [{"id": "S", "area": 1, "Iy": 1, "Iz": 1}], "nodes": [
      {"id": 1, "x": 0, "y": 0, "z": 0, "restraint": "111111"}, {"id": 2, "x": 2, "y": 0, "z": 0},
      {"id": 3, "x": 1, "y": 0, "z": 0}, {"id": 4, "x": 3, "y": 0, "z": 0}], "elements": [
      {"type": "beam", "section": "S", "i": 1, "j": 3}, {"type": "beam", "section": "S", "i": 3, "j": 2},
      {"type": "beam", "section": "S", "i": 2, "j": 4}]})");
  const CommandOutcome outcome = Call({"check", GetPath(".json")});
  ASSERT_EQ(outcome.nStatus, 0) << outcome.strErr;
  EXPECT_NE(outcome.strOut.find("equations    18 free, 6 restrained"), std::string::npos) << outcome.strOut;
  // Column heights: 1..6 at the first free node, 7..12 behind a neighbour, 13..18 where node 4 reaches back to node 2.
  EXPECT_EQ(GetNumber(outcome.strOut, "renumbered"), 21.0 + 57.0 + 57.0);
  EXPECT_EQ(GetNumber(outcome.strOut, "profile"), 21.0 + 57.0 + 93.0);
  EXPECT_EQ(List().size(), 1U);
}

// The largest value of each file is the peak that the summary takes from the run itself.
TEST_F(CommandLine, HistoriesAreWrittenOutForEveryMethod) {
  Write("impulseload.log", "/IMPULSELOAD/ 1 0 0 5 ## 1 0 0 8 ## /END/");
  const std::string strNewmark = R"("newmark", "load": )", strQuake = strNewmark + R"("ground_motion", "earthquake":
      {"directions": ["Y"], "duration": 0.1})";
  const std::tuple<std::string, std::string, std::string, double> cases[] = {
      {R"("wilson", "duration": 0.05)", "Z", "peak displacement Z   ", 1.0},
      {strNewmark + R"("nodal_force", "impulse": {"loads": [{"node": 90, "direction": "X", "peak": 10}],
       "peak_time": 0.04, "duration": 0.1})",
       "X", "peak axial force      ", 1.0e3},
      {strQuake, "Y", "peak displacement Y   ", 1.0},
  };
  for (const auto& [strMethod, strDirection, strPeak, dUnit] : cases) {
    const bool bElement = dUnit != 1.0;
    const CommandOutcome outcome = Solve(
        MakeCantilever("111111", R"({"type": "modal", "modes": 2}, {"type": "time_history", "method": )" + strMethod +
                                     R"(, "outputs": {"elements": [1], "nodes": [{"node": 90, "direction": ")" +
                                     strDirection + "\"}]}}"));
    EXPECT_EQ(outcome.nStatus, 0) << outcome.strErr;
    for (const char* const pszSuffix : {"_1_node.txt", "_1_elem.txt"}) {
      EXPECT_NE(outcome.strOut.find(GetPath(pszSuffix) + ", "), std::string::npos) << outcome.strOut;
    }
    const std::string strText = Read(bElement ? "_1_elem.txt" : "_1_node.txt");
    EXPECT_EQ(strText.find(strDirection + "-direction Disp(m)") == std::string::npos, bElement) << strText;
    std::istringstream lines(strText.substr(strText.find("TimePoint")));
    double dLargest = 0.0, dValue = 0.0;
    for (std::string strWord, strStep; lines >> strWord >> strStep >> dValue;) {
      if (std::abs(dValue) > std::abs(dLargest)) dLargest = dValue;
    }
    const double dPeak = dUnit * GetNumber(outcome.strOut, strPeak);
    EXPECT_NE(dPeak, 0.0) << outcome.strOut;
    EXPECT_NEAR(dLargest, dPeak, 1.0e-5 * std::abs(dPeak)) << strText;
  }
  std::filesystem::remove(GetPath("_1_node.txt"));
  std::filesystem::create_directory(GetPath("_1_node.txt"));
  const CommandOutcome outcome = Solve();
  EXPECT_EQ(std::tuple(outcome.nStatus, outcome.strErr), std::tuple(1, "结果文件无法写入!\n"));
  EXPECT_EQ(outcome.strOut.find("_1_node.txt"), std::string::npos);
}

/// English words: four letters and more that are no name, path, option, key in quotes or heading of a command.
std::string FindEnglish(std::string strText) {
  const std::regex names(
      R"(\[[a-z-]+\]|"[^"]*"|'[^']*'|--(what|of) [a-z]+|--[a-z-]+|\w+(\|\w+)+|缺省 \w+|用法：.*|[\w.:~\\-]*[/\\_.][\w./\\:~-]*|\n  [a-z]+ )");
  strText = std::regex_replace(strText, names, "\n");
  const test::Strings known = {"HTML",    "JSON",   "Schema",        "GFLOP", "Sturm", "SRSS",
                               "Newmark", "Wilson", "GroundAccData", "true",  "false"};
  std::string strFound;
  const std::regex word("[A-Za-z]{4,}");
  for (std::sregex_iterator it(strText.begin(), strText.end(), word), end; it != end; ++it) {
    if (std::ranges::find(known, it->str()) == known.end()) strFound += it->str() + ' ';
  }
  return strFound;
}

/// Of a terminal.
std::ptrdiff_t CountColumns(std::string_view strLine) {
  const auto count = [&](unsigned char cLowest) {
    return std::ranges::count_if(strLine, [&](char c) { return static_cast<unsigned char>(c) >= cLowest; });
  };
  const auto nContinuations = count(0x80) - count(0xc0);
  return std::ssize(strLine) - nContinuations + count(0xe3);
}

TEST_F(CommandLine, SpeaksChineseThroughoutOnRequest) {
  const std::string strJob = GetPath(".json"), strLog = GetPath(".log");
  Write(".json", MakeCantilever("111111", R"(
      {"type": "static", "nonlinear": false, "combination": {"1": 1}},
      {"type": "static", "nonlinear": true, "combination": {"0": 1, "2": 200}, "max_iterations": 3},
      {"type": "modal", "modes": 1, "combination": {"2": -1}},
      {"type": "spectrum", "modes": 1, "direction": [1, 1, 0], "combination": {"0": -9}, "damping": 0.05},
      {"type": "time_history", "method": "wilson", "nonlinear": true, "time_step": 0},
      {"type": "time_history", "method": "newmark", "load": "ground_motion", "combination": {"2": 1}},
      {"type": "time_history", "method": "newmark", "load": "nodal_force", "nonlinear": true})"));
  Write("_other.json", Read(".json"));
  Write("_bad.json", R"({"nodes": [{"id": 1, "joint": "x", "restraint": "012", "y": "a"}, {"id": 1}], "foo": 1,
      "elements": [{"type": "bar", "i": 1, "j": 1, "section": 2}], "loads": [{"case": -1, "node": 3}, 4],
      "analyses": [{"type": "modal", "modes": 0, "shear": 1, "combination": {"7": 1}},
                   {"type": "time_history", "method": "newmark", "load": "ground_motion", "impulse": {"loads": []},
                    "tolerance": 1, "earthquake": {"directions": ["Q"], "peaks": {"Z": 1}, "oblique_axis": [1, 2]}}]})");
  std::vector<test::Strings> commands = {
      {"run", strJob, "--log", strLog},
      {"run", GetPath("_other.json"), "--quiet"},
      {"run", strJob, "--log", strJob},
      {"check", strJob},
      {"check", GetPath("_bad.json")},
      {"check", GetPath("_none.json")},
      {"--help"},
      {"run", "--help"},
      {"generate", "--help"},
      {"generate", "building", "--help"},
      {"plot", "--help"},
      {"report", "--help"},
      {"schema", "--help"},
      {"compare", "--help"},
      {"compare", strJob, GetPath("_other.json")},
      {"compare", strJob, GetPath("_none.json")},
      {"table", "--help"},
      {"table", strJob, "--what", "modes", "--of", "linear"},
      {"table", strJob, "--what", "reactions", "--mode", "2"},
      {"table", strJob, "--what", "forces", "--of", "linear", "-o", GetPath("_table.csv")},
      {"run", strJob, GetPath("_other.json"), "--dialogs"},
      {"plot", strJob, "-o", GetPath("p.svg"), "--reactions", "--of", "history"},
      {"plot", strJob, "-o", GetPath("p.svg"), "--reactions", "--deformed"},
      {"plot", strJob, "-o", GetPath("p.svg"), "--loads", "1.2*0+1.4*1"},
      {},
      {"check", "a", "b"},
      {"run", "a", "--data"},
      {"schema", "--table", "a"},
      {"plot", "a"},
      {"plot", "a", "-o", "b"},
      {"plot", "a", "-o", "b", "--mode", "1", "--dir", "X"},
      {"generate", "tower", "--panels", "0"},
      {"generate", "building", "--nodes", "500", "--storeys", "3"},
      {"generate", "arch", "--segments", "5"},
      {"generate", "tower", "-o", GetPath("/no/such")},
  };
  for (const char* pszText :
       {"{", "[1 2]", "{\"a\" 1}", "{1}", "\"a", "-", "1e", "nul", "{\"a\":1,\"a\":2}", "[1e999]"}) {
    const std::string strSuffix = "_text" + std::to_string(commands.size()) + ".json";
    Write(strSuffix, pszText);
    commands.push_back({"check", GetPath(strSuffix)});
  }
  for (test::Strings arguments : commands) {
    const bool bBehind = arguments.size() % 2 == 1;
    arguments.insert(bBehind ? arguments.end() : arguments.begin(), {"--lang", "zh"});
    const CommandOutcome outcome = Call(arguments);
    const std::string strText = outcome.strOut + outcome.strErr;
    EXPECT_EQ(FindEnglish(strText), "") << strText;
    EXPECT_NE(CountColumns(strText), std::ssize(strText)) << strText;
  }
  const auto getTable = [&](const char* pszLanguage, const char* pszHead) {
    const std::string strOut = Call({"run", strJob, "--log", strLog, "--lang", pszLanguage}).strOut;
    const std::size_t nHead = strOut.find("[kg]");
    EXPECT_NE(strOut.find(pszHead), std::string::npos) << strOut;
    return strOut.substr(strOut.rfind('\n', nHead), strOut.find('\n', nHead) - strOut.rfind('\n', nHead));
  };
  EXPECT_EQ(CountColumns(getTable("zh", "\n模态分析\n")), CountColumns(getTable("en", "\nModal analysis\n")));
  EXPECT_EQ(Call({"--lang", "de", "--help"}).nStatus, 2);
}

TEST_F(CommandLine, GeneratedStructuresRun) {
  const std::vector<std::vector<std::string>> commands = {
      {"generate", "building", "--nodes", "90"},
      {"generate", "tower", "--panels", "5"},
      {"generate", "dome", "--rings", "3", "--segments", "8", "--beams"},
      {"generate", "arch", "--segments", "10"},
  };
  for (std::vector<std::string> arguments : commands) {
    EXPECT_EQ(Call(arguments).strOut.substr(0, 1), "{");
    arguments.insert(arguments.end(), {"--output", GetPath(".json")});
    EXPECT_EQ(Call(arguments).strOut, "");
    EXPECT_EQ(Call({"check", GetPath(".json")}).nStatus, 0);
    const CommandOutcome outcome = Solve();  // no balance is an error
    EXPECT_EQ(outcome.nStatus, 0) << arguments[1] << outcome.strErr;
    const double dLoads = GetNumber(outcome.strOut.substr(outcome.strOut.find("sum of loads")), "Z ");
    EXPECT_LT(dLoads, -1.0);
    if (arguments[1] != "building") continue;
    const double dFloors = -dLoads * 6.0 / 7.0 * 1000.0 / 9.81;  // of 5 + 2 kN/m2, 5 + 2/2 become mass; steel the rest
    EXPECT_GT(GetNumber(outcome.strOut, "total mass"), 1.05 * dFloors);
    EXPECT_LT(GetNumber(outcome.strOut, "total mass"), 1.2 * dFloors);
    EXPECT_GT(GetNumber(outcome.strOut, "base shear            X"), 0.03 * 9.8e-3 * dFloors);
  }
}

}  // namespace
}  // namespace skyframe::host
