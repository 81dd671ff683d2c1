// Impulse load text: exact composition, tokens, block parsing, and damaged texts.

#include <chrono>

#include "TestPlatform.h"
#include "skyframe/history/ImpulseScript.h"
#include "skyframe/values/Findings.h"

namespace skyframe::test {
namespace {

// --- composing

TEST(ImpulseCompose, StepCountTruncatesAsTheArithmeticGivesIt) {
  constexpr double c_dNaN = std::numeric_limits<double>::quiet_NaN();
  const struct {
    double dTime, dStep;
    int nCount;
  } cases[] = {{0.05, 0.01, 5},  {0.049, 0.01, 4}, {0.3, 0.1, 2},  {0.05, 0.02, 2},
               {0.009, 0.01, 0}, {1.0, 0.0, 0},    {1.0, -0.1, 0}, {-1.0, 0.1, 0},
               {c_dNaN, 0.1, 0}, {1.0, c_dNaN, 0}, {0.0, 0.0, 0},  {1e300, 1e-9, 2147483647}};
  for (const auto& c : cases) EXPECT_EQ(CountSteps(c.dTime, c.dStep), c.nCount) << c.dTime << " / " << c.dStep;
}

TEST(ImpulseCompose, ExactText) {
  const std::vector<ImpulseLoad> two = {{7, 0, 12.5}, {12, 2, -3.0}};
  const std::vector<ImpulseLoad> one = {{1, 1, 10.0}};
  const struct {
    const char* strName;
    std::vector<ImpulseLoad> entries;
    int nShape;
    double dTime, dStep;
    std::string strText;
  } cases[] = {
      {"rectangle", two, 1, 0.02, 0.01,
       "/IMPULSELOAD/\r\n"
       "   7   12.500   0.000   0.000\r\n   12   0.000   0.000   -3.000\r\n##\r\n"
       "   7   12.500   0.000   0.000\r\n   12   0.000   0.000   -3.000\r\n##\r\n/END/"},
      {"triangle", one, 0, 0.05, 0.02,
       "/IMPULSELOAD/\r\n"
       "   1   0.000   5.000   0.000\r\n##\r\n   1   0.000   10.000   0.000\r\n##\r\n"
       "   1   0.000   5.000   0.000\r\n##\r\n   1   0.000   0.000   0.000\r\n##\r\n/END/"},
      {"unloads within a step", one, 1, 0.005, 0.01, "/IMPULSELOAD/\r\n/END/"},
      {"unknown shape", one, 2, 1.0, 0.1, "/IMPULSELOAD/\r\n"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(ComposeImpulseScript(c.entries, c.nShape, c.dTime, c.dStep), c.strText) << c.strName;
  }
}

// --- tokens

TEST(ImpulseTokens, Integers) {
  const struct {
    std::string strText;
    int nValue;
    std::size_t nPos;
  } cases[] = {{"node 7,", 7, 6},
               {"+5", 5, 2},
               {"-3x", -3, 2},
               {" .5", 0, 1},
               {"12.5", 12, 2},
               {"1-2", 1, 3},
               {"+-3", 0, 3},
               {"", -1, 0},
               {",/", -1, 2},
               {"99999999999", 2147483647, 11},
               {"-2147483648", -2147483647, 11}};
  for (const auto& c : cases) {
    std::size_t nPos = 0;
    EXPECT_EQ(CImpulseScript(c.strText).ReadIntToken(nPos), c.nValue) << c.strText;
    EXPECT_EQ(nPos, c.nPos) << c.strText;
  }
}

TEST(ImpulseTokens, Reals) {
  constexpr double c_dInfinity = std::numeric_limits<double>::infinity();
  const std::string strZeros(400, '0');
  const std::pair<std::string, double> cases[] = {{"x.5", 0.5},
                                                  {"-1.25e2 ", -125.0},
                                                  {"+2E-1", 0.2},
                                                  {"1.5-3", 1.5},
                                                  {"1e+", 1.0},
                                                  {".", 0.0},
                                                  {"+-5", 0.0},
                                                  {"0x10", 0.0},
                                                  {"nan", -1.0},
                                                  {"-1e999", -c_dInfinity},
                                                  {"1e-999", 0.0},  //
                                                  {"0." + strZeros + "1e99999999999999999999", c_dInfinity}};
  for (const auto& [strText, dValue] : cases) {
    std::size_t nPos = 0;
    EXPECT_EQ(CImpulseScript(strText).ReadRealToken(nPos), dValue) << strText;
  }
}

TEST(ImpulseTokens, BlockEndIsExactlyTwoSigns) {
  const struct {
    std::string strText;
    bool bEnd;
    std::size_t nPos;
  } cases[] = {{" \r\n##1", true, 5}, {"#", false, 1},   {"###", false, 3},
               {"\t##", false, 0},    {"  1", false, 2}, {"", false, 0}};
  for (const auto& c : cases) {
    std::size_t nPos = 0;
    EXPECT_EQ(CImpulseScript(c.strText).IsBlockEnd(nPos), c.bEnd) << c.strText;
    EXPECT_EQ(nPos, c.nPos) << c.strText;
  }
}

TEST(ImpulseTokens, TagsAreFoundOnceAndInOrder) {
  CImpulseScript script("ab/END/cd/END/");
  EXPECT_EQ(script.FindTag("/END/"), 7);
  EXPECT_EQ(script.FindTag("/X/"), -1);
  EXPECT_EQ(script.GetError(), "Can not find the data: /X/");
  EXPECT_TRUE(CImpulseScript("x /IMPULSELOAD//END/ z").FindBlocks());
  for (const char* strText : {"/IMPULSELOAD/", "/END/", "/END/ /IMPULSELOAD/ /END/", ""}) {
    EXPECT_FALSE(CImpulseScript(strText).FindBlocks()) << strText;
  }
}

// --- blocks

/// node direction value of every record, 0-based nodes.
std::string Describe(const CLoadCase& loadCase) {
  std::ostringstream strm;
  for (const CNodalLoad& load : loadCase.m_records) {
    strm << load.m_nNode << '/' << load.m_nDirection << '/' << load.m_dValue << ' ';
  }
  return strm.str();
}

TEST(ImpulseBlocks, RecordPattern) {
  const struct {
    const char* strName;
    const char* strText;
    std::vector<const char*> blocks;
  } cases[] = {
      // Only the last line's Z force acts; the last appended record stays zero.
      {"two lines", "1 0 0 5 2 0 0 7 ##", {"0/0/0 0/1/0 1/0/0 1/1/0 1/2/7000 0/0/0 "}},
      {"fewer lines than before",
       "1 1 1 1 2 2 2 2 ## 3 3 3 3 ##",
       {"0/0/1000 0/1/1000 1/0/2000 1/1/2000 1/2/2000 0/0/0 ", "2/0/3000 2/1/3000 2/2/3000 0/0/0 0/0/0 0/0/0 "}},
      {"more lines than before",
       "1 1 1 1 ## 2 2 2 2 3 3 3 3 4 4 4 4 ##",
       {"0/0/1000 0/1/1000 0/2/1000 ", "1/0/2000 1/1/2000 2/0/3000 2/1/3000 3/0/4000 3/1/4000 3/2/4000 "}},
      {"empty block after a full one",
       "1 1 1 1 ## ## 1 2 2 2 ##",
       {"0/0/1000 0/1/1000 0/2/1000 ", "0/0/0 0/0/0 0/0/0 ", "0/0/2000 0/1/2000 0/2/2000 "}},
      {"the last Z force acts in every block",
       "1 0 0 1 ## 1 0 0 2 ## 1 0 0 3 ##",
       {"0/0/0 0/1/0 0/2/1000 ", "0/0/0 0/1/0 0/2/2000 ", "0/0/0 0/1/0 0/2/3000 "}},
      {"end tag", "/IMPULSELOAD/ 1 1 1 1\t\tword\r\n/END/ 5 5 5 5", {"0/0/1000 0/1/1000 0/2/1000 "}},
      {"line cut by the end of the text", "2 4.5", {"1/0/4500 1/1/-1000 1/2/-1000 "}},
  };
  for (const auto& c : cases) {
    CImpulseScript script(c.strText);
    EXPECT_EQ(script.FindBlocks(), c.strText[0] == '/');
    CLoadCase loadCase;
    for (const char* strBlock : c.blocks) {
      script.ReadBlock(loadCase);
      EXPECT_EQ(Describe(loadCase), strBlock) << c.strName;
    }
  }
}

// --- damaged texts

TEST(ImpulseDamage, LongTextsStayLinear) {
  const auto repeat = [](const std::string& strPart, int nTimes) {
    std::string strText = "/IMPULSELOAD/";
    for (int i = 0; i < nTimes; ++i) strText += strPart;
    return strText + "/END/";
  };
  const auto start = std::chrono::steady_clock::now();
  for (const std::string& strText : {repeat("   1   1.000   0.000   0.000\r\n##\r\n", 1000000),
                                     repeat("1 1 1 1 # ### \t", 200000), repeat("#", 1000000)}) {
    CImpulseScript script(strText);
    ASSERT_TRUE(script.FindBlocks());
    int nBlocks = 0;
    for (CLoadCase loadCase; !script.IsUsedUp(); ++nBlocks) script.ReadBlock(loadCase);
    EXPECT_EQ(nBlocks, strText[13] == ' ' ? 1000000 : 1);
  }
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

}  // namespace
}  // namespace skyframe::test
