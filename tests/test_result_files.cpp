// Readers of result files: what is damaged, or belongs to another model, is refused.

#include "ResultFiles.h"
#include "TestPlatform.h"

namespace skyframe::host {
namespace {

class ResultFiles : public testing::Test {
 protected:
  static std::string GetSample(const std::string& strName) {
    std::ifstream strm(SKYFRAME_SOURCE_DIR "/tests/fuzz/corpus/" + strName, std::ios::binary);
    return {std::istreambuf_iterator<char>(strm), {}};
  }
  std::string Write(const std::string& strText) const {
    m_folder.Write(".txt", strText);
    return m_folder.GetPath(".txt");
  }

  const test::CJobFolder m_folder{"result_files"};
};

/// The samples belong to a model of two nodes and one element.
TEST_F(ResultFiles, ReadWholeAndNoPart) {
  using Nodes = std::vector<JobNode>;
  const struct {
    const char* pszSample;
    std::function<std::string(const std::string&, int)> getError;
    bool bCounts = true;
  } cases[] = {
      {"mode_file/cantilever.txt",
       [](const auto& path, int nNodes) { return ReadModeResultFile(path, Nodes(nNodes)).strError; }},
      {"mode_file/spectrum.txt",
       [](const auto& path, int nNodes) { return ReadSpectrumResultFile(path, Nodes(nNodes)).strError; }},
      {"mode_file/virtual_mode.txt",
       [](const auto& path, int nNodes) { return ReadVirtualModeFile(path, Nodes(nNodes)).strError; }},
      {"mode_file/virtual_response.txt",
       [](const auto& path, int /*nNodes*/) { return ReadVirtualResponseFile(path).strError; }, false},
      {"static_result/cantilever.txt",
       [](const auto& path, int nNodes) { return ReadStaticResultFile(path, nNodes).strError; }},
      {"history_file/newmark.txt",
       [](const auto& path, int nNodes) {
         return ReadHistoryFile(path, {nNodes, 1}).strError;
       }},
      {"history_file/newmark.txt",
       [](const auto& path, int nNodes) {
         return ReadHistory(path, {nNodes, 1}, {c_nHistoryY, 1}).strError;
       }},
      {"history_file/one_history.txt",
       [](const auto& path, int nNodes) {
         return ReadHistoryExtract(path, {nNodes, 1}).strError;
       }},
  };
  const std::string strDamaged = "is damaged or belongs to another model";
  for (const auto& c : cases) {
    SCOPED_TRACE(c.pszSample);
    const std::string strText = GetSample(c.pszSample);
    EXPECT_EQ(c.getError(Write(strText), 2), "");
    EXPECT_EQ(c.getError(Write(strText + "1"), 2), strDamaged);
    EXPECT_EQ(c.getError(Write(strText), 3), c.bCounts ? strDamaged : "");
    const std::size_t nLast = strText.find_last_of(" \n", strText.find_last_not_of(" \n"));
    for (std::size_t n = 0; n <= nLast; ++n) ASSERT_EQ(c.getError(Write(strText.substr(0, n)), 2), strDamaged) << n;
    EXPECT_EQ(c.getError(m_folder.GetPath(".none"), 2), "cannot be opened");
  }
}

TEST_F(ResultFiles, WideNumbersTouchTheNext) {
  std::string strText = GetSample("static_result/cantilever.txt");
  const std::string strTwo = "-20000.000     -19000.000     ";
  strText.replace(strText.find(strTwo), strTwo.size(), "-200000000000.000190000000000.000inf ");
  strText.replace(strText.find("-18000.000"), 10, "          ");
  const auto& moments = test::Take(ReadStaticResultFile(Write(strText), 2)).members.at(0).diagrams.at(c_nMzx);
  EXPECT_EQ(moments[0], -2e11);
  EXPECT_EQ(moments[1], 1.9e11);
}

}  // namespace
}  // namespace skyframe::host
