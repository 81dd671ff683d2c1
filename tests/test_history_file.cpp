// Files of the time history: exact texts, write-read identity, damaged files.

#include "ResultFiles.h"
#include "TestPlatform.h"
#include "skyframe/history/HistoryFile.h"
#include "skyframe/values/Findings.h"

namespace skyframe::test {
namespace {

/// Two nodes, one element, two steps.
HistorySet MakeHistory() {
  HistorySet history;
  history.Allocate(2, 2, 1);
  history.dTimeStep = 0.02;
  history.nMethod = c_nNewmarkMethod;
  history.bComplete = true;
  double dValue = 1.0;
  for (std::size_t q = 0; q < 3; ++q) {
    for (int k = 0; k < 2; ++k) {
      for (int i = 0; i < 2; ++i) history.values[q][k][i] = dValue *= -1.5;
    }
  }
  history.values[c_nHistoryForce][0][0] = 1234567.0;
  history.values[c_nHistoryForce][1][0] = -1.0e-7;
  return history;
}

const std::string c_strFile =
    "Total node number:  2\n"
    "Total element number:  1\n"
    "Total time step:  2\n"
    "Time increment(s):  0.02\n"
    "Solution Method:  Newmark.\n"
    "Solution Assumption:  Linear.\n"
    "--\n"
    "Node No.     1\n"
    "Time.     1           -1.5       -7.59375       -38.4434\n"
    "Time.     2         -3.375       -17.0859       -86.4976\n"
    "Node No.     2\n"
    "Time.     1           2.25        11.3906         57.665\n"
    "Time.     2         5.0625        25.6289        129.746\n"
    "Mem No.     1\n"
    "Time.     1    1.23457e+06\n"
    "Time.     2         -1e-07\n";

std::string Replace(const std::string& strFrom, const std::string& strTo) {
  std::string strText = c_strFile;
  return strText.replace(strText.find(strFrom), strFrom.size(), strTo);
}

struct HistoryFile : testing::Test, Session {
  HistoryFile() {
    host.AddNode(0, 0, 0);
    host.AddNode(1, 0, 0);
    host.AddElement(c_nBar, 1, 2);
  }

  RunFindings m_findings;
};

TEST_F(HistoryFile, ExactText) {
  HistorySet history = MakeHistory();
  const struct {
    int nMethod, nAssumption;
    std::string strLines;
  } cases[] = {{1, 0, "Solution Method:  Newmark.\nSolution Assumption:  Linear.\n"},
               {0, 1, "Solution Method:  Wilson.\nSolution Assumption:  Nonlinear.\n"},
               {2, -1, ""}};
  for (const auto& c : cases) {
    history.nMethod = c.nMethod;
    history.nAssumption = c.nAssumption;
    ASSERT_TRUE(WriteHistory(history, job.GetPath("_HisTime.txt"), m_findings));
    EXPECT_EQ(job.Read("_HisTime.txt"), Replace(cases[0].strLines, c.strLines));
  }
}

TEST_F(HistoryFile, ReadingTellsTheHostRecordAndFailuresChangeNothing) {
  HistorySet history;
  EXPECT_FALSE(ReadHistoryFile(history));
  EXPECT_EQ(platform.GetMessages(), Strings{"没有进行时程分析。"});
  platform->Clear();
  job.Write("_HisTime.txt", Replace("Linear", "Nonlinear"));
  ASSERT_TRUE(ReadHistoryFile(history));
  host.AddNode(2, 0, 0);  // the model grows
  EXPECT_FALSE(ReadHistoryFile(history));
  EXPECT_TRUE(platform.GetMessages().empty());
  EXPECT_EQ(COMDYN.m_nHistoryCount, 2);
  EXPECT_EQ(COMDYN.m_dHistoryStep, 0.02);
  EXPECT_EQ(COMDYN.m_nMethod, 1);
  EXPECT_EQ(COMDYN.m_bNonlinear, 1);
  EXPECT_EQ(history.values[c_nHistoryY][1][0], -17.0859);
  EXPECT_EQ(history.values[c_nHistoryForce][0][0], 1234570.0);
  EXPECT_EQ(platform->GetWaitCursorCount(), 2);
  EXPECT_EQ(platform->GetWaitCursorDepth(), 0);
}

TEST_F(HistoryFile, LongStepNumbersFillTheirField) {
  HistorySet history;
  history.Allocate(100001, 1, 2);
  history.nMethod = c_nNewmarkMethod;
  history.nAssumption = 1;
  history.values[c_nHistoryX][100000][0] = 4.5;
  history.values[c_nHistoryForce][100000][1] = -7.0;
  const std::string strPath = job.GetPath("_HisTime.txt");
  ASSERT_TRUE(WriteHistory(history, strPath, m_findings));
  const std::string strText = job.Read("_HisTime.txt");
  EXPECT_NE(strText.find("\nTime.100000              0"), std::string::npos);
  const std::optional<HistorySet> read = ParseHistory(strText, 1, 2);
  ASSERT_TRUE(read);
  EXPECT_EQ(read->values[0][100000][0], 4.5);

  const auto file = test::Take(host::ReadHistoryFile(strPath, {1, 2}));
  EXPECT_EQ(file.nMethod + file.nAssumption, 2);
  EXPECT_EQ(file.displacements.at(0)[0].back(), 4.5);
  EXPECT_EQ(file.forces.at(1).back(), -7.0);
  const host::HistoryChoice choices[] = {{c_nHistoryForce, 2}, {c_nHistoryX, 1}, {c_nHistoryZ, 1}};
  const auto some = test::Take(host::ReadHistories(strPath, {1, 2}, choices));
  EXPECT_EQ(some[0].values, file.forces[1]);
  EXPECT_EQ(some[1].values, file.displacements[0][0]);
  EXPECT_EQ(some[2].values, file.displacements[0][2]);
}

TEST_F(HistoryFile, DamagedFiles) {
  const struct {
    const char* strName;
    std::string strText;
    bool bRead;
  } cases[] = {
      {"other blanks", Replace("Total time step:  2\n", "Total time step:\t2   \r\n\n"), true},
      {"empty", "", false},
      {"other node count", Replace("number:  2", "number:  3"), false},
      {"negative steps", Replace("step:  2", "step:  -2"), false},
      {"too many steps for the file", Replace("step:  2", "step:  2000000000"), false},
      {"count beyond int", Replace("step:  2", "step:  99999999999999999999"), false},
      {"one step less", Replace("step:  2", "step:  1"), false},
      {"text for a number", Replace("5.0625", "abc"), false},
      {"number beyond double", Replace("5.0625", "1e999 "), false},
      {"numbers are not compared", Replace("Node No.     1\nTime.     1", "Node No.     +7\nTime.x"), true},
      {"plus signs", Replace("2.25        11.3906         57.665", "+2.25 +1.13e+01 +nan"), true},
      {"two signs", Replace("2.25 ", "+-2.25 "), false},
      {"no step",
       "Total node number: 2 Total element number: 1 Total time step: 0 Time increment(s): 0.02 Solution Method: "
       "Newmark. Solution Assumption: Linear. -- Node No. 1 Node No. 2 Mem No. 1",
       true},
      {"no method line", Replace("Solution Method:  Newmark.\n", ""), false},
  };
  for (const auto& c : cases) EXPECT_EQ(ParseHistory(c.strText, 2, 1).has_value(), c.bRead) << c.strName;
  // cut anywhere, but for what ends in the middle of the last number or behind it
  const std::size_t nLastNumber = c_strFile.find("-1e-07");
  for (std::size_t n = 0; n <= nLastNumber + 1; ++n) EXPECT_FALSE(ParseHistory(c_strFile.substr(0, n), 2, 1)) << n;
}

TEST_F(HistoryFile, CurveFiles) {
  const HistorySet history = MakeHistory();
  const std::string strHeader =
      "Total node number:  2\nTotal element number:  1\nTotal time step:  2\nTime increment (s):  0.02\nSolution "
      "Method:  Newmark.\nSolution Assumption:  Linear.\n--\n";
  const struct {
    HistoryCurve curve;
    std::string strSuffix, strTitle, strFirst, strSecond;
  } cases[] = {{{0, 1}, "_1_node.txt", "X-direction Disp(m): ", "           -1.5", "         -3.375"},
               {{1, 2}, "_2_node.txt", "Y-direction Disp(m): ", "        11.3906", "        25.6289"},
               {{2, 1}, "_1_node.txt", "Z-direction Disp(m): ", "       -38.4434", "       -86.4976"},
               {{3, 1}, "_1_elem.txt", "Element internal force(N): ", "    1.23457e+06", "         -1e-07"}};
  for (const auto& c : cases) {
    ASSERT_TRUE(WriteCurve(history, c.curve, job.GetJobPath()));
    EXPECT_EQ(job.Read(c.strSuffix), strHeader + c.strTitle + "\nTimePoint:              1" + c.strFirst +
                                         "\nTimePoint:              2" + c.strSecond + "\n");
  }
  EXPECT_FALSE(WriteCurve(history, {0, 1}, job.GetPath("/none/x")));
}

}  // namespace
}  // namespace skyframe::test
