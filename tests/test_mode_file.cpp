// The mode file: exact text, round trip, both readers' checks in their order, damaged files.

#include "ModalModels.h"
#include "skyframe/modal/ModeFile.h"

namespace skyframe::test {
namespace {

const char* const c_pAccess = "模态文件访问出错,计算终止!";
const char* const c_pForeign = "模态文件读入出错,计算终止!";
const char* const c_pCounts = "文件数据错误，计算终止!";
const char* const c_pRead = "文件读入出错,计算终止!";
const char* const c_pExpand = "扩展模态数大于总模态数，计算终止!";

/// One bar with the mass of 100 kN, and a rigid node that nothing touches.
const char* const c_pBarFile =
    "The_Data_of_Zan's_Mode_Analysis\n"
    "\n"
    "3/7/2024  9:5:0\n"
    "v1.0\n"
    "\n"
    "1 3 1 2 1 0\n"
    "Eigen_And_Freq:\n"
    "1     317.055        50.4608        \n"
    "Node_DOF_When_FREQ_1:\n"
    "50.4608\n"
    "1         0              0              0              \n"
    "2         0.00987906     0              0              \n"
    "3         0              0              0              0              0              0              \n";

struct CBarModel : Session {
  CAnalysisModel model;

  CBarModel() {
    FillOneBar(host);
    host.AddNode(9, 9, 9, c_nRigid, "111111");
    model.m_nLoadCaseFlag[0] = 1;
    model.BuildModelForModes(true);
    model.m_nModes = 1;
    model.m_nExpandModes = 1;
    model.m_bValid = true;
  }
};

TEST(ModeFile, TextIsExact) {
  CBarModel bar;
  bar.platform->SetClock({{2024, 3, 7, 9, 5, 0}});
  bar.job.Write(".mode", "an older and longer file\n" + std::string(4000, 'x'));
  bar.model.SolveModes(bar.job.GetJobPath(), 0, true);
  EXPECT_EQ(bar.job.Read(".mode"), c_pBarFile);
  EXPECT_EQ(bar.job.List().size(), 1U);
  EXPECT_EQ(c_dHertzPerRadian, 0.15915494580678602);  // Deliberate: 1 / 6.2831852
  bar.model.SolveModes(bar.job.GetJobPath() + "/no/such/folder", 0, true);
  EXPECT_EQ(bar.platform.GetMessages(), Strings{c_pAccess});
  int second[] = {0, 2, 3, 1};  // host node 1 became 2, 2 became 3, 3 became 1
  COMDAT.m_pSecondOrder = second;
  ASSERT_TRUE(WriteModeFile(bar.model, bar.job.GetJobPath(), bar.model.m_modalFindings));
  EXPECT_TRUE(bar.job.Read(".mode").ends_with(
      "\n2         0.00987906     0              0              \n"
      "3         0              0              0              0              0              0              \n"
      "1         0              0              0              \n"));
}

TEST(ModeFile, FrequencyReaderFillsOnlyAModelWithoutModes) {
  for (const auto& [nSolved, omega] : {std::pair{0, std::vector<double>{}}, {0, {1.0}}, {1, {}}}) {
    CBarModel bar;
    bar.job.Write(".mode", c_pBarFile);
    bar.model.Omega = omega;
    bar.model.ModesSolved = nSolved;
    EXPECT_TRUE(bar.model.ReadModeFrequencies(bar.job.GetJobPath()));
    EXPECT_EQ(bar.model.Omega, nSolved == 0 && omega.empty() ? std::vector<double>{317.055} : omega);
    EXPECT_EQ(bar.model.ModesSolved, nSolved);
  }
}

/// The bar's file with one text replaced by another, or cut before it when the other is null.
std::string Change(const std::string& strWhat, const char* pNew) {
  std::string strText = c_pBarFile;
  const std::size_t nAt = strText.find(strWhat);
  EXPECT_NE(nAt, std::string::npos) << strWhat;
  if (pNew == nullptr) return strText.substr(0, nAt);
  return strText.replace(nAt, strWhat.size(), pNew);
}

struct FileCase {
  const char* pName;
  std::string strText;
  const char* pFull;         ///< message of the full reader; null: success
  const char* pFrequencies;  ///< message of the frequency reader
};

std::vector<FileCase> MakeFileCases() {
  const std::string strCounts = "1 3 1 2 1 0";
  const std::string strOmega = "317.055        ", strValue = "0.00987906 ";
  return {
      {"as written", c_pBarFile, nullptr, nullptr},
      {"no file", "missing", c_pAccess, c_pAccess},
      {"empty", "", c_pForeign, c_pForeign},
      {"binary", std::string("\0\1\2\xff\xfe\0\0", 7) + std::string(300000, '\0'), c_pForeign, c_pForeign},
      {"foreign text", "The_Data_of_Somebody " + std::string(c_pBarFile), c_pForeign, c_pForeign},
      {"one endless token", std::string(5000000, 'T'), c_pForeign, c_pForeign},
      {"version is not checked", Change("v1.0", "v9.7"), nullptr, nullptr},
      {"too small for a double", Change(strValue, "1e-400 "), nullptr, nullptr},
      {"element count", Change(strCounts, "2 3 1 2 1 0"), c_pCounts, c_pCounts},
      {"node count", Change(strCounts, "1 4 1 2 1 0"), c_pCounts, c_pCounts},
      {"rigid count", Change(strCounts, "1 3 2 2 1 0"), c_pCounts, c_pCounts},
      {"pinned count", Change(strCounts, "1 3 1 1 1 0"), c_pCounts, c_pCounts},
      {"count of 2^31", Change(strCounts, "1 2147483648 1 2 1 0"), c_pCounts, c_pCounts},
      {"negative modes", Change(strCounts, "1 3 1 2 -5 0"), c_pExpand, c_pExpand},
      {"no modes", Change(strCounts, "1 3 1 2 0 0"), c_pExpand, c_pCounts},
      {"2^31 - 1 modes that are not there", Change(strCounts, "1 3 1 2 2147483647 0"), c_pRead, c_pRead},
      {"mode count of 2^31", Change(strCounts, "1 3 1 2 2147483648 0"), c_pRead, c_pRead},
      {"shear flag is a word", Change(strCounts, "1 3 1 2 1 yes"), c_pRead, c_pRead},
      {"no frequency mark", Change("Eigen_And_Freq:", "Eigen"), c_pRead, c_pRead},
      {"NaN frequency", Change(strOmega, "nan "), c_pRead, c_pRead},
      {"overflowing frequency", Change(strOmega, "1e999 "), c_pRead, c_pRead},
      {"zero frequency", Change(strOmega, "0 "), c_pCounts, c_pCounts},
      {"negative frequency", Change(strOmega, "-317.055 "), c_pCounts, c_pCounts},
      {"frequency whose square overflows", Change(strOmega, "1e200 "), c_pCounts, c_pCounts},
      {"frequency whose square underflows", Change(strOmega, "1e-200 "), c_pCounts, c_pCounts},
      {"shape whose square overflows", Change(strValue, "-1e200 "), c_pCounts, nullptr},
      {"shape whose square underflows", Change(strValue, "1e-200 "), c_pCounts, nullptr},
      {"NaN in a shape", Change(strValue, "nan "), c_pRead, nullptr},
      {"shape cut", Change(strValue, nullptr), c_pRead, nullptr},
      {"shape block missing", Change("Node_DOF", nullptr), c_pRead, nullptr},
      {"last value missing", std::string(c_pBarFile).substr(0, std::string(c_pBarFile).size() - 17), c_pRead, nullptr},
  };
}

TEST(ModeFile, DamagedFilesGetTheirMessage) {
  for (const FileCase& c : MakeFileCases()) {
    for (const bool bFull : {true, false}) {
      SCOPED_TRACE(testing::Message() << c.pName << (bFull ? ", full reader" : ", frequency reader"));
      CBarModel bar;
      bar.model.m_bValid = false;
      bar.model.m_nExpandModes = bFull ? 1 : 0;
      const std::string strPath = bar.job.GetJobPath();
      if (!c.strText.starts_with("missing")) bar.job.Write(".mode", c.strText);
      const char* const pMessage = bFull ? c.pFull : c.pFrequencies;
      const bool bRead = bFull ? bar.model.ReadModeFile(strPath) : bar.model.ReadModeFrequencies(strPath);
      EXPECT_EQ(bRead, pMessage == nullptr);
      EXPECT_EQ(bar.platform.GetMessages(), pMessage ? Strings{pMessage} : Strings{});
      EXPECT_EQ(bar.model.m_bValid, bFull && bRead);
      EXPECT_EQ(bar.model.ModesSolved, bFull && bRead ? 1 : 0);
    }
  }
}

TEST(ModeFile, CountMismatchComesBeforeTheStreamState) {
  // A model without other nodes: a missing fourth count reads as the right 0, and only then the end shows.
  for (const auto& [pCounts, pMessage] :
       {std::pair{"1 2 2", c_pRead}, {"1 2", c_pCounts}, {"1 2 2 9999999999", c_pRead}}) {
    Session run;
    FillCantilever(run.host, 1);
    CAnalysisModel model;
    model.BuildModelForModes(false);
    run.job.Write(".mode", std::string("The_Data_of_Zan's_Mode_Analysis d t v ") + pCounts);
    EXPECT_FALSE(model.ReadModeFrequencies(run.job.GetJobPath()));
    EXPECT_EQ(run.platform.GetMessages(), Strings{pMessage}) << pCounts;
  }
}

}  // namespace
}  // namespace skyframe::test
