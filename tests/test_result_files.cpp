// Readers of result files: what is damaged, or belongs to another model, is refused.

#include "ResultFiles.h"
#include "TestPlatform.h"
#include "fuzz/TextPlatform.h"
#include "skyframe/results/Histories.h"
#include "skyframe/results/ResultKind.h"
#include "skyframe/results/ResultList.h"

namespace skyframe::host {
namespace {

/// Of a model of two nodes and one element.
std::string GetSample(const std::string& strName) {
  std::ifstream strm(SKYFRAME_SOURCE_DIR "/tests/fuzz/corpus/" + strName, std::ios::binary);
  return {std::istreambuf_iterator<char>(strm), {}};
}

TEST(ResultFiles, AreReadWholeOrNotAtAll) {
  using Nodes = std::vector<JobNode>;
  using GetError = std::function<std::string(const std::string&, int)>;
  const auto model = [](int nNodes) { return HistoryModel{nNodes, 1}; };
  const std::pair<const char*, GetError> cases[] = {
      {"mode_file/cantilever.txt", [](auto path, int n) { return ReadModeResultFile(path, Nodes(n)).strError; }},
      {"mode_file/spectrum.txt", [](auto path, int n) { return ReadSpectrumResultFile(path, Nodes(n)).strError; }},
      {"mode_file/virtual_mode.txt", [](auto path, int n) { return ReadVirtualModeFile(path, Nodes(n)).strError; }},
      {"mode_file/virtual_response.txt", [](auto path, int) { return ReadVirtualResponseFile(path).strError; }},
      {"static_result/cantilever.txt", [](auto path, int n) { return ReadStaticResultFile(path, n).strError; }},
      {"history_file/newmark.txt", [&](auto path, int n) { return ReadHistoryFile(path, model(n)).strError; }},
      {"history_file/newmark.txt", [&](auto path, int n) { return ReadHistories(path, model(n), {}).strError; }},
      {"history_file/one_history.txt", [&](auto path, int n) { return ReadHistoryExtract(path, model(n)).strError; }},
  };
  for (const auto& [pszSample, read] : cases) {
    const auto& getError = read;
    SCOPED_TRACE(pszSample);
    const std::string strText = GetSample(pszSample), strDamaged = "is damaged or belongs to another model";
    const auto expectError = [&](const std::string& strContent, int nNodes, const std::string& strError) {
      const test::CTextPlatform platform(strContent);
      EXPECT_EQ(getError("", nNodes), strError) << strContent;
    };
    expectError(strText, 2, "");
    expectError(strText + "1", 2, strDamaged);
    expectError(strText, 3, strText.starts_with("虚拟振型") ? "" : strDamaged);
    const std::size_t nLast = strText.find_last_of(" \n", strText.find_last_not_of(" \n"));
    for (std::size_t n = 0; n <= nLast; ++n) expectError(strText.substr(0, n), 2, strDamaged);
    EXPECT_EQ(getError("/none", 2), "cannot be opened");
  }
}

TEST(ResultFiles, WideNumbersTouchTheNext) {
  std::string strText = GetSample("static_result/cantilever.txt");
  const std::string strThree = "-20000.000     -19000.000     -18000.000";
  strText.replace(strText.find(strThree), strThree.size(), "-200000000000.000190000000000.000inf");
  const test::CTextPlatform platform(strText);
  const StaticResultFile file = test::Take(ReadStaticResultFile("", 2));
  const auto& moments = file.members.at(0).diagrams.at(c_nMzx);
  EXPECT_EQ(moments[0], -2e11);
  EXPECT_EQ(moments[1], 1.9e11);
}

TEST(ResultFiles, NameNodesOfTheModelAlone) {
  for (const char* const pszNode : {"0", "3", "-1", "99999999999", "x"}) {
    std::string strText = GetSample("static_result/cantilever.txt");
    const std::string strNode = "结点号:1 ";
    strText.replace(strText.find(strNode), strNode.size(), "结点号:" + std::string(pszNode) + " ");
    const test::CTextPlatform platform(strText);
    EXPECT_EQ(ReadStaticResultFile("", 2).strError, "is damaged or belongs to another model") << pszNode;
  }
}

TEST(ResultFiles, HistoriesKeepTheirPlaces) {
  const test::CTextPlatform platform(GetSample("history_file/newmark.txt"));
  const HistorySet set = FormHistorySet(test::Take(ReadHistoryFile("", {2, 1})));
  EXPECT_EQ(std::tuple(set.bComplete, set.nSteps, set.dTimeStep), std::tuple(true, 2, 0.02));
  EXPECT_EQ(set.values[c_nHistoryX][1][0], -3.375);
  EXPECT_EQ(set.values[c_nHistoryY][0][1], 11.3906);
  const struct {
    int nQuantity;
    HistoryPeak peak;
  } cases[] = {{c_nHistoryX, {5.0625, 2, 0.04, true}},
               {c_nHistoryY, {25.6289, 2, 0.04, true}},
               {c_nHistoryZ, {-86.4976, 1, 0.04, false}},  // what is no number does not count, but is told of
               {c_nHistoryForce, {1.23457e6, 1, 0.02, true}}};
  for (const auto& [nQuantity, expected] : cases) {
    const HistoryPeak peak = FindPeak(set, nQuantity);
    EXPECT_EQ(std::tuple(peak.dValue, peak.nNumber, peak.dTime, peak.bFinite),
              std::tuple(expected.dValue, expected.nNumber, expected.dTime, expected.bFinite));
  }
  EXPECT_EQ(DescribeHistory(set), "Newmark, linear, 2 steps of 0.02 s");
  HistoryRun run = set;
  run.nMethod = 0, run.nAssumption = 1, run.strFinished = "2026-11-21 23:05:09";
  EXPECT_EQ(DescribeHistory(run), "Wilson, nonlinear, 2 steps of 0.02 s, finished 2026-11-21 23:05:09");
  HistorySet none;
  none.Allocate(2, 2, 1);
  EXPECT_EQ(FindPeak(none, c_nHistoryX).nNumber, 0);
}

TEST(ResultFiles, OfAJobAreListedWithoutThoseOfOthers) {
  const test::CJobFolder folder("list");
  const test::Strings own = {".mode", ".spec", "_1_node.txt", "_StaticLinearSol.txt", "_Xacc.txt"};
  const test::Strings others = {".json", ".stamp", "2.mode", "s.mode", "-1.txt", ""};
  for (const test::Strings& list : {own, others}) {
    for (const std::string& strSuffix : list) folder.Write(strSuffix, "x");
  }
  std::filesystem::create_directory(folder.GetPath("_folder"));
  std::vector<std::string> expected;
  for (const std::string& strSuffix : own) expected.push_back("job" + strSuffix);
  EXPECT_EQ(ListResultFiles(folder.GetJobPath()), expected);
  EXPECT_EQ(ListResultFiles(folder.GetPath("/none/such")).size(), 0U);
  for (const ResultKind kind : c_resultKinds) {
    for (const ResultKind other : c_resultKinds) {
      EXPECT_EQ(GetSuffix(kind) == GetSuffix(other), kind == other);
    }
    EXPECT_NE(GetAnalysisName(kind).strEnglish, GetAnalysisName(kind).strChinese);
  }
}

}  // namespace
}  // namespace skyframe::host
