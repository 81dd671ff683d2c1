#include <regex>

#include "CommandFolder.h"

namespace skyframe::test {
namespace {

/// The text with lines first .. first + count - 1 behind a mark replaced by what becomes of their numbers and of those
/// that stand as far behind another mark.
std::string Mix(const std::string& strText, const std::string& strMark, const std::string& strOther, double c,
                double s) {
  const auto getLines = [&](const std::string& strBehind) {
    std::istringstream strm(strText.substr(strText.find('\n', strText.find('\n', strText.find(strBehind)) + 1) + 1));
    return std::array<std::string, 2>{[&] {
                                        std::string l;
                                        std::getline(strm, l);
                                        return l;
                                      }(),
                                      [&] {
                                        std::string l;
                                        std::getline(strm, l);
                                        return l;
                                      }()};
  };
  std::string strMixed = strText;
  const auto lines = getLines(strMark), others = getLines(strOther);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    std::istringstream one(lines[i]), other(others[i]);
    std::ostringstream line;
    std::string strNumber;
    one >> strNumber, other >> strNumber;
    line << strNumber;
    for (double a = 0.0, b = 0.0; one >> a && other >> b;) line << "  " << c * a + s * b;
    strMixed.replace(strMixed.find(lines[i], strMixed.find(strMark)), lines[i].size(), line.str());
  }
  return strMixed;
}

class Compare : public ::testing::Test, protected CCommandFolder {};

// The bending modes of the cantilever come in pairs of one frequency.
TEST_F(Compare, TellsChangesFromWhatIsNone) {
  const std::string strAnalyses = R"({"type": "static", "nonlinear": false, "combination": {"0": 1}},
      {"type": "modal", "modes": 6}, {"type": "spectrum", "modes": 6, "direction": [1, 1, 0]})";
  const std::string strJob = MakeCantilever("111111", strAnalyses);
  const std::string strOtherOrder =
      std::regex_replace(strJob, std::regex(R"((\{"id": 90.*?\}), (\{"id": 5.*?\}))"), "$2, $1");
  for (const auto& [strName, strText] : {std::pair<std::string, std::string>("_a", strJob), {"_b", strOtherOrder}}) {
    Write(strName + ".json", strText);
    ASSERT_EQ(Call({"run", GetPath(strName + ".json"), "--quiet"}).nStatus, 0);
  }
  ASSERT_NE(Read("_a_StaticLinearSol.txt"), Read("_b_StaticLinearSol.txt"));
  const std::string strModes = Read("_b.mode"), strStatic = Read("_b_StaticLinearSol.txt"),
                    strSpectrum = Read("_b.spec");
  const auto mark = [](int nMode) { return "FREQ_" + std::to_string(nMode) + ":"; };
  const auto change = [](const std::string& strText, const std::string& strPattern, const std::string& strNew) {
    const std::string strChanged = std::regex_replace(strText, std::regex(strPattern), strNew);
    EXPECT_NE(strChanged, strText) << strPattern;
    return strChanged;
  };
  struct Case {
    std::string strSuffix, strText, strExpected;
    int nStatus = 0;
  };
  const Case cases[] = {
      {".mode", strModes, "No difference is above"},
      {".mode", Mix(strModes, mark(6), mark(6), -1.0, 0.0), "No difference is above"},
      {".mode", Mix(Mix(strModes, mark(1), mark(2), 0.6, 0.8), mark(2), mark(1), 1.0 / 0.6, -0.8 / 0.6),
       "No difference is above"},
      {".mode", Mix(strModes, mark(6), mark(6), 1.001, 0.0),
       "shape, translations: mode 6 node 90 X, -0.0974355 and -0.0975329; above", 1},
      {".mode", Mix(strModes, mark(2), mark(1), 0.0, 1.0), "shape, translations: mode 1 node 90 Z, 0.11357456 and", 1},
      {".mode", Mix(strModes, mark(2), mark(3), 0.0, 1.0), "shapes of equal frequencies, space: mode 1, 0 and 0.68", 1},
      {"_StaticLinearSol.txt", change(strStatic, "Z向支反力  -8000.000", "Z向支反力  -8000.001"),
       "No difference is above"},
      {"_StaticLinearSol.txt", change(strStatic, "Z向支反力  -8000.000", "Z向支反力  -8008.000"),
       "reaction force: node 5 Z, -8000 and -8008; above", 1},
      {"_StaticLinearSol.txt", change(strStatic, "-0.0414\\d*", "-nan"),
       "displacement: node 90 Z, -0.0414239 and nan; above", 1},
      {"_StaticLinearSol.txt", "Linear Solution", "is damaged or belongs to another model", 2},
      {".spec", change(strSpectrum, "总参与质量:", "总参与质量:1"), "participating mass", 1},
      {".spec", change(strSpectrum, " 6 +\n27[^\n]*\n", " 5\n"), "same members and stations", 2},
  };
  for (const Case& c : cases) {
    const std::string strBefore = Read("_b" + c.strSuffix);
    Write("_b" + c.strSuffix, c.strText);
    const CommandOutcome outcome = Call({"compare", GetPath("_a.json"), GetPath("_b.json")});
    EXPECT_EQ(outcome.nStatus, c.nStatus) << c.strText;
    EXPECT_NE((outcome.strOut + outcome.strErr).find(c.strExpected), std::string::npos)
        << c.strExpected << '\n'
        << outcome.strOut << outcome.strErr;
    Write("_b" + c.strSuffix, strBefore);
  }
  EXPECT_EQ(Call({"compare", GetPath("_a.json"), GetPath("_b.json"), "--tolerance", "0"}).nStatus, 0);
  Write("_b.mode", Mix(strModes, mark(6), mark(6), 1.001, 0.0));
  const auto getFigures = [&](const char* pszTolerance) {
    const std::string strOut =
        Call({"compare", GetPath("_a.json"), GetPath("_b.json"), "--tolerance", pszTolerance}).strOut;
    return std::regex_replace(strOut.substr(0, strOut.rfind(pszTolerance)),
                              std::regex("; (above|one in)[^\n]*|\n[^\n]*$"), "");
  };
  EXPECT_EQ(getFigures("0.2"), getFigures("1e-09")) << "the tolerance judges the figures and does not make them";
  std::filesystem::remove(GetPath("_b.mode"));
  EXPECT_NE(Call({"compare", GetPath("_a.json"), GetPath("_b.json")})
                .strOut.find("Modal analysis\n  only the first has it\nResp"),
            std::string::npos);
}

/// The text with the number so many behind a mark, from 0, another one of the same width or less.
std::string SetNumber(const std::string& strText, const std::string& strMark, int nBehind, const std::string& strNew) {
  std::size_t n = strText.find(strMark);
  EXPECT_NE(n, std::string::npos) << strMark;
  n += strMark.size();
  for (int k = 0; k <= nBehind; ++k) {
    n = strText.find_first_not_of(" \n", k == 0 ? n : strText.find_first_of(" \n", n));
  }
  std::string strChanged = strText;
  const std::size_t nLength = strText.find_first_of(" \n", n) - n;
  return strChanged.replace(n, nLength,
                            strNew + std::string(strNew.size() < nLength ? nLength - strNew.size() : 0, ' '));
}

/// A frame of two beams that bend about all axes; the ids are not consecutive.
const std::string c_strFrame = R"({"nodes": [{"id": 90, "x": 4, "y": 0, "z": 0}, {"id": 7, "x": 4, "y": 3, "z": 0},
      {"id": 5, "x": 0, "y": 0, "z": 0, "restraint": "111111"}],
    "sections": [{"id": "S", "shape": 2, "area": 1e4, "Ix": 4e7, "Iy": 2e7, "Iz": 3e7}],
    "elements": [{"type": "beam", "i": 5, "j": 90, "section": "S"}, {"type": "beam", "i": 90, "j": 7, "section": "S"}],
    "loads": [{"case": 0, "node": 90, "direction": "Z", "value": -8}, {"case": 0, "node": 7, "direction": "X", "value": 3}],
    "analyses": [{"type": "static", "nonlinear": false, "combination": {"0": 1}}, {"type": "modal", "modes": 3},
      {"type": "spectrum", "modes": 3, "direction": [1, 1, 0]}, {"type": "time_history", "method": "newmark",
       "load": "ground_motion", "earthquake": {"time_step": 0.02, "duration": 0.1, "directions": ["Y"]}}]})";

class CompareFrames : public ::testing::Test, protected CCommandFolder {
 protected:
  CompareFrames() {
    for (const char* const pszName : {"_a.json", "_b.json"}) {
      Write(pszName, c_strFrame);
      EXPECT_EQ(Call({"run", GetPath(pszName), "--quiet"}).nStatus, 0);
    }
  }
  CommandOutcome Run(const Strings& options = {}) const {
    Strings arguments = {"compare", GetPath("_a.json"), GetPath("_b.json")};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return Call(arguments);
  }
};

// One number of the second set is changed by one part in a hundred or so of the quantity's largest.
TEST_F(CompareFrames, OneChangedNumberIsFoundInItsPlace) {
  ASSERT_EQ(Run({"--tolerance", "0"}).nStatus, 0);
  for (const char* const pszNone : {"nan", "-1e-9", "1.1", "x"}) EXPECT_EQ(Run({"--tolerance", pszNone}).nStatus, 2);
  const std::string strStatic = "_b_StaticLinearSol.txt", strHistory = "_b_HisTime.txt";
  struct Case {
    std::string strSuffix, strMark;
    int nBehind;
    std::string strNew, strExpected;  ///< without the figures in front
  };
  const Case cases[] = {
      {strStatic, "N= ", 0, "3030.000", "N         axial force: element 1 N, 3000 and 3030"},
      {strStatic, "MYZ: ", 4, "10.000", "N·m       moment: element 1 Mx at station 5, "},
      {strStatic, "MZX: ", 1, "-30080.000", "N·m       moment: element 1 My at station 2, -30400 and -30080"},
      {strStatic, "MXY: ", 20, "9320.000", "N·m       moment: element 1 Mz at station 21, 9000 and 9320"},
      {strStatic, "Qy: ", 0, "80.000", "N         shear force: element 1 Qy at station 1, "},
      {strStatic, "Qz: ", 20, "7920.000", "N         shear force: element 1 Qz at station 21, 8000 and 7920"},
      {strStatic, "Fy: ", 20, "-0.052", "m         deflection: element 1 Fy at station 21, -0.012 and -0.052"},
      {strStatic, "YZ平面内转角向支反力", 0, "320.000", "N·m       reaction moment: node 5 RX, "},
      {strStatic, "X向支反力", 0, "2960.000", "N         reaction force: node 5 X, 3000 and 2960"},
      {".mode", "Node_DOF_When_FREQ_2:\n4.15928\n", 1, "1e-3", "/√kg      shape, translations: mode 2 node 90 X, "},
      {".mode", "Node_DOF_When_FREQ_3:\n8.9263\n", 5, "-0.0258", "/(m√kg)   shape, rotations: mode 3 node 90 RY, "},
      {".spec", "Node_Dis:\n", 1, "5.6e-6", "m         displacement: node 90 X, "},
      {".spec", "Node_Dis:\n", 6, "0.00017", "rad       rotation: node 90 RZ, 0.000173932 and 0.00017"},
      {".spec", "总计算参与质量:", 0, "39.0", "kg        participating mass: "},
      {".spec", "Force:\n", 14, "470", "N·m       moment: element 1 Mz at station 2, 384.531 and 470"},
      {".spec", "Support:\n", 3, "1.6", "N         reaction force: node 5 Z, "},
      {strHistory, "Node No.     2\nTime.     1 ", 1, "-6.6e-07", "m         displacement: node 7 Y at 0.02 s, "},
      {strHistory, "Mem No.     2\nTime.     1 ", 0, "-0.099000", "N         axial force: element 2 N at 0.02 s, "},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.strExpected);
    const std::string strSuffix = c.strSuffix.starts_with("_b") ? c.strSuffix : "_b" + c.strSuffix;
    const std::string strBefore = Read(strSuffix);
    Write(strSuffix, SetNumber(strBefore, c.strMark, c.nBehind, c.strNew));
    const CommandOutcome outcome = Run();
    EXPECT_EQ(outcome.nStatus, 1) << outcome.strErr;
    std::size_t nAbove = 0;
    std::istringstream lines(outcome.strOut);
    for (std::string strLine; std::getline(lines, strLine);) {
      if (!strLine.ends_with("; above the tolerance")) continue;
      EXPECT_EQ(strLine.find(c.strExpected), 23U) << strLine;
      ++nAbove;
    }
    EXPECT_EQ(nAbove, 1U) << outcome.strOut;
    EXPECT_EQ(Run({"--tolerance", "1"}).nStatus, 0) << "within a tolerance of all";
    Write(strSuffix, strBefore);
  }
}

TEST_F(CompareFrames, RoundingNumbersThatAreNoneAndOtherFiles) {
  const std::string strStatic = Read("_b_StaticLinearSol.txt"), strSpectrum = Read("_b.spec"),
                    strHistory = Read("_b_HisTime.txt");
  struct Case {
    std::string strSuffix, strText, strExpected;
    int nStatus;
  };
  const Case cases[] = {
      {"_b_StaticLinearSol.txt", SetNumber(strStatic, "Fz: ", 20, "-0.042"),
       "2.38e-02   1.00e-03 m         deflection: element 1 Fz at station 21, -0.041 and -0.042; one in the last digit",
       0},
      {"_b_StaticLinearSol.txt", SetNumber(strStatic, "Fz: ", 20, "-0.043"), "-0.041 and -0.043; above", 1},
      {"_b.spec", SetNumber(strSpectrum, "Force:\n", 14, "384.532"), "384.531 and 384.532; one in the last digit", 0},
      {"_b.spec", SetNumber(strSpectrum, "Force:\n", 14, "384.533"), "384.531 and 384.533; above", 1},
      {"_b.spec", SetNumber(strSpectrum, "Support:\n", 3, "inf"), "inf; above", 1},
      {"_b_HisTime.txt", SetNumber(strHistory, "Time increment(s): ", 0, "0.01"), "5 steps of 0.02 s and 5 of 0.01 s",
       2},
      {"_b.spec", "", "is damaged or belongs to another model", 2},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.strExpected);
    const std::string strBefore = Read(c.strSuffix);
    Write(c.strSuffix, c.strText);
    const CommandOutcome outcome = Run();
    EXPECT_EQ(outcome.nStatus, c.nStatus) << outcome.strOut;
    EXPECT_NE((outcome.strOut + outcome.strErr).find(c.strExpected), std::string::npos)
        << outcome.strOut << outcome.strErr;
    Write(c.strSuffix, strBefore);
  }
  // A force that is nowhere a number has no size to be measured by, and yet differs.
  const std::string strZeros = std::regex_replace(strHistory, std::regex(R"((Time\. +\d+) +[-\d.e]+\n)"), "$1 0\n"),
                    strNone = std::regex_replace(strHistory, std::regex(R"((Time\. +\d+) +[-\d.e]+\n)"), "$1 nan\n");
  ASSERT_NE(strZeros, strHistory);
  Write("_a_HisTime.txt", strZeros);
  Write("_b_HisTime.txt", strNone);
  EXPECT_EQ(Run().nStatus, 1);
  EXPECT_NE(Run().strOut.find("axial force: element 1 N at 0.02 s, 0 and nan; above"), std::string::npos)
      << Run().strOut;
  Write("_a_HisTime.txt", strNone);
  EXPECT_EQ(Run().nStatus, 0) << "the same";
}

TEST_F(CompareFrames, ModelsAgesAndLanguages) {
  const auto change = [](const std::string& strFrom, const std::string& strTo) {
    return std::regex_replace(c_strFrame, std::regex(strFrom), strTo);
  };
  const std::pair<std::string, std::string> refused[] = {
      {change(R"((: )7([,}]))", "$018$2"), "the second model has no node 7\n"},
      {change(R"(\{"type": "beam", "i": 5[^}]*\},)", ""), "the models have 2 and 1 elements\n"},
      {change("\"nodes\": \\[", R"("nodes": [{"id": 1, "x": 9, "y": 9, "z": 9}, )"), "the models have 3 and 4 nodes\n"},
  };
  for (const auto& [strJob, strError] : refused) {
    Write("_b.json", strJob);
    const CommandOutcome outcome = Run();
    EXPECT_EQ(outcome.nStatus, 2);
    EXPECT_NE(outcome.strErr.find(strError), std::string::npos) << outcome.strErr;
  }
  Write("_b.json", change("\"area\": 1e4", "\"area\": 2e4"));
  const CommandOutcome outdated = Run();
  EXPECT_EQ(outdated.nStatus, 0);
  for (const char* const pszFile : {"_StaticLinearSol.txt", ".mode", ".spec", "_HisTime.txt"}) {
    const std::string strName = "warning: job_b" + std::string(pszFile);
    EXPECT_NE(outdated.strErr.find(strName), std::string::npos) << outdated.strErr;
  }
  EXPECT_EQ(outdated.strErr.find("job_a"), std::string::npos);
  Write("_b.json", c_strFrame);
  EXPECT_EQ(Run().strErr, "");
  Write("_b.spec", SetNumber(Read("_b.spec"), "Node_Dis:\n", 1, "5.6e-6"));
  const std::string strChinese = Run({"--lang", "zh"}).strOut;
  EXPECT_NE(strChinese.find("m         位移：节点 90 X，8.63988e-08 和 5.6e-06；超过容差"), std::string::npos)
      << strChinese;
  for (const char* const pszHalf : {": ", "; ", ", "})
    EXPECT_EQ(strChinese.find(pszHalf), std::string::npos) << pszHalf;
  for (const char* const pszSuffix : {"_StaticLinearSol.txt", ".mode", ".spec", "_HisTime.txt"})
    std::filesystem::remove(GetPath("_b" + std::string(pszSuffix)));
  EXPECT_EQ(Run().strErr, "no result file of the same kind stands beside both jobs\n");
  EXPECT_EQ(Run().nStatus, 2);
}

}  // namespace
}  // namespace skyframe::test
