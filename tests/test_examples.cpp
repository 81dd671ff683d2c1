#include <gtest/gtest.h>

#include <unistd.h>

#include <cmath>
#include <filesystem>
#include <sstream>

#include "../host/src/ModeLoader.h"
#include "TestPlatform.h"
#include "skyframe/host/CommandLine.h"
#include "skyframe/host/JobFile.h"
#include "skyframe/modal/ModalPencil.h"

// Every example from its job file to its results, then the same analyses once more on the filled host
// records, where the full precision of the results can be held against statics and the eigenproblem.

namespace skyframe::host {
namespace {

namespace fs = std::filesystem;

class Example : public ::testing::TestWithParam<const char*> {
 protected:
  /// Leaves the host records of the example.
  void SetUp() override {
    m_directory =
        fs::temp_directory_path() / ("skyframe_example_" + std::string(GetParam()) + std::to_string(getpid()));
    fs::create_directories(m_directory);
    const std::string strJob = (m_directory / GetParam()).string() + ".json";
    fs::copy_file(fs::path(SKYFRAME_SOURCE_DIR) / "examples" / fs::path(strJob).filename(), strJob);
    m_job = ReadJobFile(strJob).job;
    m_strPath = GetJobPath(strJob);
    std::ostringstream out;
    std::ostringstream err;
    EXPECT_EQ(RunCommandLine({"run", strJob, "--log", m_strPath + ".log"}, out, err), 0);
    EXPECT_EQ(err.str(), "");  // no message; the time report stands in the summary
    m_strSummary = out.str();
  }
  void TearDown() override { fs::remove_all(m_directory); }

  test::CTestPlatform m_platform;
  fs::path m_directory;
  Job m_job;
  std::string m_strPath;
  std::string m_strSummary;
};

/// Sums of the reactions and of the loads at the free translations.
void ExpectEquilibrium(const CAnalysisModel& model) {
  std::array<double, 3> reaction{};
  std::array<double, 3> load{};
  const int F = model.GetFreeDofs();
  double dScale = 0.0;
  for (int nNode = 0; nNode < model.GetNodes().GetNodeCount(); ++nNode) {
    for (int d = 0; d < 3; ++d) {
      const int e = model.GetNodes().FindDof(nNode, d);
      if (e >= F) reaction[static_cast<std::size_t>(d)] += model.GetReactions()[static_cast<std::size_t>(e - F)];
      if (e < 0 || e >= F) continue;
      load[static_cast<std::size_t>(d)] += model.GetLoadVector()[static_cast<std::size_t>(e)];
      dScale += std::abs(model.GetLoadVector()[static_cast<std::size_t>(e)]);
    }
  }
  ASSERT_GT(dScale, 0.0);
  for (std::size_t d = 0; d < 3; ++d) EXPECT_NEAR(reaction[d], load[d], 1.0e-9 * dScale) << "direction " << d;
}

TEST_P(Example, ReactionsBalanceLoads) {
  int nStatic = 0;
  for (const JobAnalysis& analysis : m_job.analyses) {
    const auto* pStatic = std::get_if<StaticJob>(&analysis);
    if (pStatic == nullptr) continue;
    ++nStatic;
    CAnalysisModel model;
    model.BuildModel();
    ASSERT_TRUE(model.m_bValid);
    SetCombination(pStatic->combination, model);
    if (pStatic->bNonlinear == true) {
      model.m_nConvCriterion = 2;
      model.m_dConvTol = 5.0e-10;  // half of what is asked for below; round-off of the coordinates allows 1e-10
      model.m_nMaxIter = 2000;
      model.SolveStaticNonlinear(m_strPath);
    } else {
      model.SolveStaticLinear(m_strPath);
    }
    ExpectEquilibrium(model);
  }
  EXPECT_EQ(nStatic, 2);
  EXPECT_EQ(m_platform.GetMessages(), std::vector<std::string>{});
}

std::vector<double> Multiply(const SparseMatrix& A, const CMatrix& Phi, int nMode) {
  std::vector<double> x;
  for (int k = 0; k < Phi.GetRows(); ++k) x.push_back(Phi[k][nMode]);
  std::vector<double> y(x.size());
  A.MultiplyRows(x, y);
  return y;
}

TEST_P(Example, ModesSolveTheirEigenproblem) {
  for (const JobAnalysis& analysis : m_job.analyses) {
    const auto* pModal = std::get_if<ModalJob>(&analysis);
    if (pModal == nullptr) continue;
    EXPECT_NE(m_strSummary.find("Sturm count           no mode below"), std::string::npos);
    CAnalysisModel model;
    SetCombination(pModal->combination, model);
    model.BuildModelForModes(model.m_bLoadComb);
    ASSERT_TRUE(model.m_bValid);
    model.m_nModes = pModal->nModes.value();
    model.m_nRootCheck = pModal->nRootCheck.value();
    model.SolveModes(m_strPath, 0, model.m_bLoadComb);
    ASSERT_EQ(static_cast<int>(model.Omega.size()), model.m_nModes);

    SparseMatrix K, M;
    ASSERT_TRUE(AssembleModalMass(model, model.m_bLoadComb, M) &&
                model.AssembleStiffness(K, false, model.m_bShear != 0));
    const int F = model.GetFreeDofs();
    ASSERT_TRUE(PrepareProducts(K, F) && PrepareProducts(M, F));
    const CMatrix& Phi = model.ModeShapes;
    for (int i = 0; i < model.m_nModes; ++i) {
      const double omega = model.Omega[static_cast<std::size_t>(i)];
      const std::vector<double> Kphi = Multiply(K, Phi, i);
      const std::vector<double> Mphi = Multiply(M, Phi, i);
      double dResidual2 = 0.0;
      double dForce2 = 0.0;
      for (std::size_t k = 0; k < Kphi.size(); ++k) {
        dResidual2 += std::pow(Kphi[k] - omega * omega * Mphi[k], 2);
        dForce2 += Kphi[k] * Kphi[k];
      }
      EXPECT_LE(std::sqrt(dResidual2 / dForce2), 1.0e-6) << "mode " << i + 1;
      for (int j = 0; j < model.m_nModes; ++j) {
        double dProduct = 0.0;
        for (int k = 0; k < F; ++k) dProduct += Phi[k][j] * Mphi[static_cast<std::size_t>(k)];
        EXPECT_NEAR(dProduct, i == j ? 1.0 : 0.0, 1.0e-9) << "modes " << i + 1 << ", " << j + 1;
      }
    }
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

/// The frame's whole day: enough mass along X and Y, the quake's shear within the bounds of the spectrum, and
/// a roof that goes as far under the record, within a factor of two, as under the spectrum it was scaled to.
class Office : public Example {};
TEST_P(Office, SpectrumAndHistoryAgreeInSize) {
  const auto Number = [this](const std::string& strLabel) {
    const std::size_t n = m_strSummary.rfind(strLabel);
    return n == std::string::npos ? 0.0 : std::stod(m_strSummary.substr(n + strLabel.size()));
  };
  EXPECT_EQ(m_strSummary.find("mass in X is"), std::string::npos) << m_strSummary;
  EXPECT_EQ(m_strSummary.find("mass in Y is"), std::string::npos);
  const double dWeight = 9.8e-3 * Number("total mass");
  EXPECT_GT(Number("base shear            X"), 0.032 * dWeight);
  EXPECT_LT(Number("base shear            X"), 0.16 * dWeight);
  const double dRatio = std::abs(Number("peak displacement X   ")) / Number("largest displacement  ");
  EXPECT_GT(dRatio, 0.5);
  EXPECT_LT(dRatio, 2.0);
}
INSTANTIATE_TEST_SUITE_P(All, Office, ::testing::Values("office10"));

}  // namespace
}  // namespace skyframe::host
