#include "CommandFolder.h"
#include "ModalModels.h"
#include "skyframe/job/JobFile.h"

// Every example from its job file to its results, then the same analyses once more on the filled host
// records, where the full precision of the results can be held against statics and the eigenproblem.

namespace skyframe::host {
namespace {

class Example : public ::testing::TestWithParam<const char*> {
 protected:
  /// Leaves the host records of the example.
  void SetUp() override {
    const std::string strExample = std::string(SKYFRAME_SOURCE_DIR "/examples/") + GetParam() + ".json";
    std::filesystem::copy_file(strExample, m_folder.GetPath(".json"));
    const JobFile file = ReadJobFile(strExample);
    EXPECT_EQ(file.warnings.size(), 0U);
    EXPECT_TRUE(file.job.HasConsecutiveIds());
    m_job = file.job;
    const test::CommandOutcome outcome = m_folder.Solve();
    EXPECT_EQ(outcome.nStatus, 0);
    EXPECT_EQ(outcome.strErr, "");  // no message; the time report stands in the summary
    m_strSummary = outcome.strOut;
  }

  test::CTestPlatform m_platform;
  const test::CCommandFolder m_folder;
  Job m_job;
  std::string m_strSummary;
};

/// The summary's errors would end the program with another status: balance of loads and support forces among them.
TEST_P(Example, ModesSolveTheirEigenproblem) {
  EXPECT_EQ(m_strSummary.find("error: "), std::string::npos) << m_strSummary;
  for (const JobAnalysis& analysis : m_job.analyses) {
    const auto* pModal = std::get_if<ModalJob>(&analysis);
    if (pModal == nullptr) continue;
    EXPECT_NE(m_strSummary.find("Sturm count           no mode below"), std::string::npos);
    CAnalysisModel model;
    for (const auto& [nCase, dFactor] : pModal->combination) {
      model.m_nLoadCaseFlag[static_cast<std::size_t>(nCase)] = 1;
      model.m_dLoadFactor[static_cast<std::size_t>(nCase)] = dFactor;
    }
    model.m_bLoadComb = !pModal->combination.empty();
    model.BuildModelForModes(model.m_bLoadComb);
    ASSERT_TRUE(model.m_bValid);
    model.m_nModes = pModal->nModes.value();
    model.m_nRootCheck = pModal->nRootCheck.value();
    model.SolveModes(m_folder.GetJobPath(), 0, model.m_bLoadComb);
    ASSERT_EQ(static_cast<int>(model.Omega.size()), model.m_nModes);
    const test::ModeErrors errors = test::FormModeErrors(model, model.m_bLoadComb);
    EXPECT_LE(errors.dResidual, 1.0e-6);
    EXPECT_LE(errors.dOrthogonality, 1.0e-9);
    if (std::string(GetParam()) == "tower72") {  // square in plan: every bending mode comes twice
      for (const auto& [a, b] : {std::pair(0U, 1U), std::pair(3U, 4U)}) {
        EXPECT_NEAR(model.Omega[a] / model.Omega[b], 1.0, 1.0e-9);
      }
      EXPECT_GT(model.Omega[2], 1.1 * model.Omega[1]);
    }
  }
  EXPECT_EQ(m_platform.GetMessages(), std::vector<std::string>{});
}

INSTANTIATE_TEST_SUITE_P(All, Example, ::testing::Values("tower25", "tower72", "dome", "arch2", "office10"),
                         [](const auto& parameter) { return std::string(parameter.param); });

}  // namespace
}  // namespace skyframe::host
