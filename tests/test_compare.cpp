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
  std::filesystem::remove(GetPath("_b.mode"));
  EXPECT_NE(Call({"compare", GetPath("_a.json"), GetPath("_b.json")})
                .strOut.find("Modal analysis\n  only the first has it\nResp"),
            std::string::npos);
}

}  // namespace
}  // namespace skyframe::test
