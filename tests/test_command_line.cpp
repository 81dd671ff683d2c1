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
  EXPECT_EQ(Call({"run", GetPath("none.json")}).strErr, GetPath("none.json") + ": /: cannot be opened\n");
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
  EXPECT_EQ(Call({"check", GetPath("pipe")}).strErr, GetPath("pipe") + ": /: cannot be opened\n");
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
