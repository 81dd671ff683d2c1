// Readers of result files: what is damaged, or belongs to another model, is refused.

#include "ResultFiles.h"
#include "TestPlatform.h"
#include "fuzz/TextPlatform.h"

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

}  // namespace
}  // namespace skyframe::host
