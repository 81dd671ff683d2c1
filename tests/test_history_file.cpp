// Files of the time history: exact texts, write-read identity, damaged files.

#include <cmath>
#include <limits>
#include <random>

#include "HostModel.h"
#include "TestPlatform.h"
#include "skyframe/history/HistoryFile.h"

namespace skyframe {
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

class HistoryFile : public testing::Test {
 protected:
  HistoryFile() {
    m_host.AddNode(0, 0, 0);
    m_host.AddNode(1, 0, 0);
    m_host.AddElement(test::c_nBar, 1, 2);
  }

  test::CTestPlatform m_platform;
  test::CHostModel m_host;
  const test::CJobFolder m_folder{"history_file"};
};

TEST_F(HistoryFile, ExactText) {
  ASSERT_TRUE(WriteHistory(MakeHistory(), m_folder.GetPath("_HisTime.txt")));
  EXPECT_EQ(m_folder.Read("_HisTime.txt"), c_strFile);
}

TEST_F(HistoryFile, SolutionLines) {
  const struct {
    int nMethod, nAssumption;
    const char* strLines;
  } cases[] = {{0, 0, "Solution Method:  Wilson.\nSolution Assumption:  Linear.\n--\n"},
               {1, 1, "Solution Method:  Newmark.\nSolution Assumption:  Nonlinear.\n--\n"},
               {2, 1, "Solution Assumption:  Nonlinear.\n--\n"},
               {0, -1, "Solution Method:  Wilson.\n--\n"}};
  for (const auto& c : cases) {
    HistorySet history;
    history.nMethod = c.nMethod;
    history.nAssumption = c.nAssumption;
    ASSERT_TRUE(WriteHistory(history, m_folder.GetPath(".txt")));
    EXPECT_EQ(m_folder.Read(".txt"),
              std::string("Total node number:  0\nTotal element number:  0\nTotal time step:  0\n"
                          "Time increment(s):  0\n") +
                  c.strLines);
  }
}

TEST_F(HistoryFile, WhatIsReadIsWrittenBackTheSame) {
  for (const int nSteps : {0, 1, 7}) {
    HistorySet history;
    history.Allocate(nSteps, 2, 1);
    history.nMethod = c_nNewmarkMethod;
    history.nAssumption = 1;
    history.dTimeStep = 0.01;
    std::mt19937 random(5);
    std::uniform_real_distribution<double> exponent(-320.0, 300.0);
    for (CMatrix& values : history.values) {
      for (int k = 0; k < nSteps; ++k) {
        for (int i = 0; i < values.GetCols(); ++i) {
          values[k][i] = std::pow(10.0, exponent(random)) * (random() % 2 == 0 ? 1.0 : -1.0);
        }
      }
    }
    if (nSteps > 1) {
      history.values[0][0][0] = std::numeric_limits<double>::quiet_NaN();
      history.values[0][0][1] = -std::numeric_limits<double>::infinity();
      history.values[3][1][0] = -0.0;
    }
    ASSERT_TRUE(WriteHistory(history, m_folder.GetPath("_HisTime.txt")));
    HistorySet read;
    ASSERT_TRUE(ReadHistoryFile(read));
    EXPECT_TRUE(read.bComplete);
    EXPECT_EQ(read.nSteps, nSteps);
    EXPECT_EQ(read.GetNodeCount(), 2);
    EXPECT_EQ(read.GetElementCount(), 1);
    ASSERT_TRUE(WriteHistory(read, m_folder.GetPath("_again.txt")));
    EXPECT_EQ(m_folder.Read("_again.txt"), m_folder.Read("_HisTime.txt"));
  }
}

TEST_F(HistoryFile, ReadingTellsTheHostRecord) {
  std::string strText = c_strFile;
  strText.replace(strText.find("Linear"), 6, "Nonlinear");
  m_folder.Write("_HisTime.txt", strText);
  HistorySet history;
  ASSERT_TRUE(ReadHistoryFile(history));
  EXPECT_EQ(COMDYN.m_nHistoryCount, 2);
  EXPECT_EQ(COMDYN.m_dHistoryStep, 0.02);
  EXPECT_EQ(COMDYN.m_nMethod, 1);
  EXPECT_EQ(COMDYN.m_bNonlinear, 1);
  EXPECT_EQ(history.values[c_nHistoryY][1][0], -17.0859);
  EXPECT_EQ(history.values[c_nHistoryForce][0][0], 1234570.0);
  EXPECT_EQ(m_platform->GetWaitCursorCount(), 1);
  EXPECT_EQ(m_platform->GetWaitCursorDepth(), 0);
}

TEST_F(HistoryFile, LongStepNumbersFillTheirField) {
  HistorySet history;
  history.Allocate(100001, 1, 0);
  history.values[0][100000][0] = 4.5;
  ASSERT_TRUE(WriteHistory(history, m_folder.GetPath("_HisTime.txt")));
  const std::string strText = m_folder.Read("_HisTime.txt");
  EXPECT_NE(strText.find("\nTime.100000              0"), std::string::npos);
  const std::optional<HistorySet> read = ParseHistory(strText, 1, 0);
  ASSERT_TRUE(read);
  EXPECT_EQ(read->values[0][100000][0], 4.5);
}

TEST_F(HistoryFile, DamagedFiles) {
  const auto replace = [](const std::string& strFrom, const std::string& strTo) {
    std::string strText = c_strFile;
    return strText.replace(strText.find(strFrom), strFrom.size(), strTo);
  };
  const struct {
    const char* strName;
    std::string strText;
    bool bRead;
  } cases[] = {
      {"as written", c_strFile, true},
      {"other blanks", replace("Total time step:  2\n", "Total time step:\t2   \r\n\n"), true},
      {"case counts", replace("Linear", "linear"), true},
      {"empty", "", false},
      {"other node count", replace("number:  2", "number:  3"), false},
      {"other element count", replace("element number:  1", "element number:  2"), false},
      {"negative steps", replace("step:  2", "step:  -2"), false},
      {"too many steps for the file", replace("step:  2", "step:  2000000000"), false},
      {"count beyond int", replace("step:  2", "step:  99999999999999999999"), false},
      {"one step more", replace("step:  2", "step:  3"), false},
      {"one step less", replace("step:  2", "step:  1"), false},
      {"text for a number", replace("5.0625", "abc"), false},
      {"number with a tail", replace("5.0625", "5.06x5"), false},
      {"number beyond double", replace("5.0625", "1e999 "), false},
      {"nodes in another order", replace("Node No.     1", "Node No.     2"), false},
      {"steps in another order", replace("Time.     1", "Time.     2"), false},
      {"no time label", replace("Time.     1", "Tame.     1"), false},
      {"no method line", replace("Solution Method:  Newmark.\n", ""), false},
  };
  for (const auto& c : cases) EXPECT_EQ(ParseHistory(c.strText, 2, 1).has_value(), c.bRead) << c.strName;
  // cut anywhere, but for what ends in the middle of the last number or behind it
  const std::size_t nLastNumber = c_strFile.find("-1e-07");
  for (std::size_t n = 0; n <= nLastNumber + 1; ++n) EXPECT_FALSE(ParseHistory(c_strFile.substr(0, n), 2, 1)) << n;
}

TEST_F(HistoryFile, RandomDamageGivesAResult) {
  std::mt19937 random(11);
  for (int nRun = 0; nRun < 2000; ++nRun) {
    std::string strText = c_strFile;
    for (unsigned i = random() % 8; i > 0; --i)
      strText[random() % strText.size()] = "0123456789.-e \nTN\xff"[random() % 18];
    const std::optional<HistorySet> history = ParseHistory(strText, 2, 1);
    EXPECT_LE(history ? history->nSteps : 0, 2);
  }
}

TEST_F(HistoryFile, FailuresChangeNothing) {
  HistorySet history;
  history.nSteps = 5;
  COMDYN.m_nHistoryCount = 7;
  EXPECT_FALSE(ReadHistoryFile(history));
  EXPECT_EQ(m_platform.GetMessages(), std::vector<std::string>{"没有进行时程分析。"});
  m_platform->Clear();
  m_folder.Write("_HisTime.txt", c_strFile);
  m_host.AddNode(2, 0, 0);  // the model has grown
  EXPECT_FALSE(ReadHistoryFile(history));
  EXPECT_TRUE(m_platform.GetMessages().empty());
  EXPECT_EQ(history.nSteps, 5);
  EXPECT_EQ(COMDYN.m_nHistoryCount, 7);
}

TEST_F(HistoryFile, CurveFiles) {
  const HistorySet history = MakeHistory();
  const std::string strHeader =
      "Total node number:  2\nTotal element number:  1\nTotal time step:  2\nTime increment (s):  0.02\n"
      "Solution Method:  Newmark.\nSolution Assumption:  Linear.\n--\n";
  const struct {
    HistoryCurve curve;
    const char* strSuffix;
    const char* strLines;
  } cases[] = {
      {{c_nHistoryX, 1},
       "_1_node.txt",
       "X-direction Disp(m): \nTimePoint:              1           -1.5\nTimePoint:              2         -3.375\n"},
      {{c_nHistoryY, 2},
       "_2_node.txt",
       "Y-direction Disp(m): \nTimePoint:              1        11.3906\nTimePoint:              2        25.6289\n"},
      {{c_nHistoryZ, 1},
       "_1_node.txt",
       "Z-direction Disp(m): \nTimePoint:              1       -38.4434\nTimePoint:              2       -86.4976\n"},
      {{c_nHistoryForce, 1},
       "_1_elem.txt",
       "Element internal force(N): \nTimePoint:              1    1.23457e+06\nTimePoint:              2         "
       "-1e-07\n"},
  };
  for (const auto& c : cases) {
    ASSERT_TRUE(HasCurve(history, c.curve));
    ASSERT_TRUE(WriteCurve(history, c.curve, m_folder.GetJobPath()));
    EXPECT_EQ(m_folder.Read(c.strSuffix), strHeader + c.strLines);
  }
  for (const HistoryCurve& curve : {HistoryCurve{0, 0}, {0, 3}, {0, -1}, {3, 2}, {4, 1}, {-1, 1}}) {
    EXPECT_FALSE(HasCurve(history, curve)) << curve.nQuantity << ' ' << curve.nNumber;
  }
}

TEST_F(HistoryFile, UnwritablePlacesAreReported) {
  const std::string strNowhere = m_folder.GetPath("/none/x");
  EXPECT_FALSE(WriteHistory(MakeHistory(), strNowhere));
  EXPECT_FALSE(WriteCurve(MakeHistory(), {0, 1}, strNowhere));
}

}  // namespace
}  // namespace skyframe
