// Modal combination, and the spectrum analysis from the mode file to the ".spec" file.

#include "ModalModels.h"
#include "ResultFiles.h"
#include "skyframe/modal/DesignSpectrum.h"
#include "skyframe/modal/ModalCombination.h"

namespace skyframe::test {
namespace {

using Vector = std::vector<double>;

// ---- combination ----

TEST(ModalCombination, WorkedValues) {
  struct Case {
    int nMethod;
    double dZeta;
    Vector omega, R;
    double dExpected;
  };
  const Case cases[] = {
      {c_nSrss, 0.05, {10, 11}, {3, 4}, 5.0},
      {-1, 0.05, {10, 11}, {3, 4}, 5.0},
      {c_nCqc, 0.05, {10, 11}, {3, 4}, 6.12839},
      {c_nCqc, 0.05, {11, 10}, {1, -10}, std::sqrt(101.0 - 20.0 * 0.523215)},
      {c_nCqc, 0.0, {10, 11}, {3, 4}, 5.0},  // zero damping is legal
      {c_nCqc, 0.0, {10, 10}, {3, 4}, 7.0},
      {c_nCqc, 0.05, {3, 3, 3, 3}, {2.7, 1.5, -4.4, 0.2}, 0.0},  // the terms add up to -1e-30
      {c_nGrp, 0.05, {10, 11}, {3, -4}, 7.0},
      {c_nGrp, 0.05, {10, 11.05}, {3, 4}, std::sqrt(37.0)},  // Deliberate: one of the two ordered pairs only
      {c_nGrp, 0.05, {11.05, 10}, {3, 4}, std::sqrt(37.0)},
      {c_nGrp, 0.05, {10, 11, 12}, {1, 1, 1}, std::sqrt(3.0 + 2.0 + 2.0)},
      {7, 0.05, {10, 12}, {3, 4}, 5.0},
  };
  for (const Case& c : cases) {
    const CModalCombination combination(c.nMethod, c.omega, Vector(c.omega.size(), c.dZeta));
    EXPECT_NEAR(combination.Combine(c.R), c.dExpected, 6e-6)
        << "method " << c.nMethod << ", omega_2 " << c.omega.back();
  }
  EXPECT_NEAR(FormCorrelation(11, 10, 0.02, 0.07), FormCorrelation(10, 11, 0.07, 0.02), 1e-15);
}

// ---- analysis ----

/// Modal run on the host's model, dead loads as masses, then a fresh model with its mode file read. X direction,
/// intensity 7 (0.10g), zone 1, class II: Tg = 0.35 s, alpha_max = 0.08.
struct CSpectrumRun : Session {
  CAnalysisModel model;

  template <class FillHost>
  CSpectrumRun(FillHost fill, int nModes, int nExpand, int bShear = 0) {
    fill(host);
    CAnalysisModel modal;
    for (CAnalysisModel* const pModel : {&modal, &model}) {
      pModel->m_nLoadCaseFlag[0] = 1;
      pModel->BuildModelForModes(true);
    }
    modal.m_nModes = nModes;
    modal.m_bShear = bShear;
    modal.SolveModes(job.GetJobPath(), 0, true);
    model.m_nExpandModes = nExpand;
    model.m_nSiteClass = 2;
    model.m_dDampRatio = 0.05;
    model.m_nMeshDiv = 5;
    EXPECT_TRUE(model.ReadModeFile(job.GetJobPath()));
  }
  void Analyse() { model.SpectrumAnalysis(job.GetJobPath(), 0, true); }
};

void ExpectRow(std::span<const double> actual, const Vector& expected, double dTolerance = 1e-12) {
  ASSERT_EQ(actual.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_NEAR(actual[i], expected[i], 3e-5 * std::abs(expected[i]) + dTolerance) << "column " << i;
  }
}

TEST(SpectrumAnalysis, OneBarLetterForLetter) {
  CSpectrumRun run([](CHostModel& h) { FillOneBar(h); }, 1, 1);
  run.platform->SetClock({{2025, 12, 31, 23, 59, 9}});
  run.model.m_nCombMethod = c_nCqc;
  run.Analyse();
  EXPECT_TRUE(run.platform.GetMessages().empty());
  EXPECT_EQ(run.job.Read(".spec"),
            "The_Data_of_Zan's_Spectrum_Analysis\n\n12/31/2025  23:59:9\nv1.0\n\n1 2 0 2 1\n101.224        \n"
            "各阶振型参与质量:\n10246.4        \n总计算参与质量:10246.4\n总参与质量:10246.3\n0.05           \n"
            "Spectrum_Combine_method: CQC\nNode_Dis:\n1       0              0              0              \n"
            "2       4.35969e-06    0              0              \nForce:\n1       0       6       4490.48        \n"
            "Support:\n1       4490.48        0              0              \n"
            "2       0              0              0              \n");
}

/// Two storeys that sway along X only: K = k [2 -1; -1 1], consistent M of the columns plus the storeys'
/// load masses. Solved by the quadratic formula.
struct ShearFrame {
  static constexpr double L = 3.0, A = 0.01, I = 8e-5;
  double k = 12.0 * c_dSteelE * I / (L * L * L);
  double m11, m12, m22;
  std::array<double, 2> omega, gamma, factor;
  std::array<std::array<double, 2>, 2> phi;  ///< [mode][storey]
  double dTotalMass;

  static void Fill(CHostModel& host) {
    host.SetSection(1, 3, 10000, 1e4, 8e7, 8e7);
    for (int s = 0; s <= 2; ++s) host.AddNode(0, 0, L * s, c_nRigid, s == 0 ? "111111" : "011111");
    for (int s = 0; s < 2; ++s) host.AddElement(c_nBeam, s + 1, s + 2, 103);
    host.AddLoad(0, 2, 2, 200.0);
    host.AddLoad(0, 3, 2, 150.0);
  }

  ShearFrame() {
    const double mA = c_dSteelDensity * A * L, q = c_dSteelDensity * I / L;
    const double A1 = mA * 13.0 / 35.0 + 1.2 * q, A2 = mA * 9.0 / 70.0 - 1.2 * q;
    m11 = 2.0 * A1 + 200.0 * 1000.0 / 9.81;
    m12 = A2;
    m22 = A1 + 150.0 * 1000.0 / 9.81;
    dTotalMass = m11 + 2.0 * m12 + m22;
    // det(K - w2 M) = a w2^2 + b w2 + c
    const double a = m11 * m22 - m12 * m12, b = -k * (m11 + 2.0 * m22 + 2.0 * m12), c = k * k;
    for (const int i : {0, 1}) {
      const double w2 = (-b + (i == 0 ? -1.0 : 1.0) * std::sqrt(b * b - 4.0 * a * c)) / (2.0 * a);
      const double u1 = 1.0, u2 = (2.0 * k - w2 * m11) / (k + w2 * m12);
      const double dNorm = std::sqrt(m11 * u1 * u1 + 2.0 * m12 * u1 * u2 + m22 * u2 * u2);
      phi[i] = {u1 / dNorm, u2 / dNorm};
      omega[i] = std::sqrt(w2);
      gamma[i] = (m11 + m12) * phi[i][0] + (m12 + m22) * phi[i][1];
      factor[i] = CDesignSpectrum(0.08, 0.35).GetAlpha(6.2831852 / omega[i], 0.05) * gamma[i] * 9.8 / w2;
    }
  }

  /// Combines a response given per mode.
  [[nodiscard]] double Combine(int nMethod, const std::function<double(int)>& response) const {
    const double a = response(0), b = response(1);
    const double lambda = omega[1] / omega[0], z2 = 0.05 * 0.05;
    const double rho = 8.0 * z2 * (1 + lambda) * std::pow(lambda, 1.5) /
                       (std::pow(1 - lambda * lambda, 2) + 4.0 * z2 * lambda * std::pow(1 + lambda, 2));
    return std::sqrt(a * a + b * b + (nMethod == c_nCqc ? 2.0 * rho * a * b : 0.0));
  }
  /// Storey drift of a mode times k: the column shear.
  [[nodiscard]] double GetShear(int nMode, int nStorey) const {
    const auto& u = phi[nMode];
    return k * factor[nMode] * (nStorey == 0 ? u[0] : u[1] - u[0]);
  }
};

TEST(SpectrumAnalysis, TwoStoreyShearFrameByHand) {
  const ShearFrame frame;
  ASSERT_GT(frame.omega[1], 1.2 * frame.omega[0]);  // far apart: GRP equals SRSS here
  for (const auto& [nMethod, nCells] :
       {std::pair{c_nSrss, 20}, {c_nCqc, 7}, {c_nGrp, 1}, {c_nSrss, 0}, {c_nSrss, -1}}) {
    SCOPED_TRACE(testing::Message() << "method " << nMethod << ", cells " << nCells);
    CSpectrumRun run(ShearFrame::Fill, 2, 2);
    run.model.m_nCombMethod = nMethod;
    run.model.m_nMeshDiv = nCells;
    run.Analyse();
    ASSERT_TRUE(run.platform.GetMessages().empty());
    EXPECT_EQ(run.model.m_nMeshDiv, nCells + 1);  // Deliberate: the run leaves the count of stations

    // The moment runs from V L/2 to -V L/2.
    const auto file = ReadSpectrum(run.job);
    ASSERT_EQ(file.members.size(), 2U);
    EXPECT_EQ(std::ranges::count(run.job.Read(".spec"), '\n'), 22 + 2 * (nCells + 2));  // a station a line
    for (const int s : {0, 1}) {
      EXPECT_NEAR(std::abs(file.gamma.at(s)), std::abs(frame.gamma[s]), 3e-5 * std::abs(frame.gamma[s]));
      EXPECT_NEAR(file.masses.at(s), frame.gamma[s] * frame.gamma[s], 6e-5 * file.masses[s]);
      const double u = frame.Combine(nMethod, [&](int i) { return frame.factor[i] * frame.phi[i][s]; });
      const double V = frame.Combine(nMethod, [&](int i) { return frame.GetShear(i, s); });
      ExpectRow(file.displacements[s + 1], {u, 0, 0, 0, 0, 0});
      EXPECT_NEAR(COMDAT.m_fSpectrum[s + 2], u, 2e-5 * u);
      ASSERT_EQ(file.members[s].stations.size(), nCells + 1U);
      for (int p = 0; p <= nCells; ++p) {
        const double dShare = nCells > 0 ? static_cast<double>(p) / nCells : 0.0;
        ExpectRow(file.members[s].stations[p], {0, 0, V, 0, V * ShearFrame::L * std::abs(0.5 - dShare), 0}, 3e-5 * V);
      }
    }
    const double V = frame.Combine(nMethod, [&](int i) { return frame.GetShear(i, 0); });
    ASSERT_EQ(file.supports.size(), 3U);
    ExpectRow(file.supports[0].forces, {V, 0, 0, 0, V * ShearFrame::L / 2.0, 0}, 3e-5 * V);
    EXPECT_EQ(file.supports[1].forces[0], 0.0);  // free DOFs of a supported node
    EXPECT_GT(file.supports[1].forces[4], 0.0);
    const SpectrumFindings& findings = run.model.m_spectrumFindings;
    EXPECT_EQ(findings.status, RunStatus::Done);
    ExpectRow(Vector(findings.baseShear.begin(), findings.baseShear.end()), {V, 0, 0}, 1e-9 * V);
    ExpectRow(findings.modalMass, {1, 1});
    for (const int i : {0, 1}) {
      EXPECT_NEAR(findings.alpha[i], CDesignSpectrum(0.08, 0.35).GetAlpha(6.2831852 / frame.omega[i], 0.05), 1e-6);
      EXPECT_NEAR(findings.effectiveMasses[i][0], frame.gamma[i] * frame.gamma[i], 1e-4 * frame.dTotalMass);
      ExpectRow(findings.displacements[i + 1],
                Vector(file.displacements[i + 1].begin(), file.displacements[i + 1].end()));
    }
    ExpectRow(Vector{findings.totalMass[0], findings.dQuakeMass, file.dTotalMass}, Vector(3, frame.dTotalMass));
  }
}

TEST(SpectrumAnalysis, FindingsBelongToTheFileThatAnotherCombinationGave) {
  // Modes of a run with load masses, combined without them: V of the supports, not r^T M phi alpha g.
  CSpectrumRun run(ShearFrame::Fill, 2, 2);
  run.model.SpectrumAnalysis(run.job.GetJobPath(), 0, false);
  const SpectrumFindings& findings = run.model.m_spectrumFindings;
  EXPECT_LT(findings.modalMass[0], 0.2);
  EXPECT_NEAR(findings.baseShear[0], ReadSpectrum(run.job).supports.at(0).forces[0], 1e-5 * findings.baseShear[0]);
}

TEST(SpectrumAnalysis, AllModesCarryTheTotalMassAndListsHaveTenValuesALine) {
  using Direction = std::array<double, 3>;
  for (const auto& [direction, k] : {std::pair{Direction{0, 0, -2}, 24}, {{3, 4, 0}, 24}, {{1, 0, 0}, 10}}) {
    CSpectrumRun run([](CHostModel& h) { FillSquareTower(h, 1); }, 24, k);
    run.model.m_dDirCoef = direction;
    run.Analyse();
    const std::string strText = run.job.Read(".spec");
    const std::size_t nList = strText.find('\n', strText.find("各阶振型参与质量:")) + 1;
    EXPECT_EQ(strText.find('\n', nList), nList + 150U);
    EXPECT_EQ(strText.find("总计算参与质量:"), nList + (k == 24 ? 24 * 15 + 3U : 150 + 1U));
    const auto file = ReadSpectrum(run.job);
    EXPECT_NEAR(file.dComputedMass / file.dTotalMass, 1.0, k == 24 ? 2e-5 : 0.5);
  }
}

TEST(SpectrumAnalysis, RefusesInOrderAndWritesNothing) {
  struct Case {
    std::function<void(CAnalysisModel&)> change;
    const char* pMessage;
    RunStatus status = RunStatus::Refused;
  };
  // A case with two faults tells which check comes first.
  const Case cases[] = {
      {[](auto& m) { m.m_dDirCoef.fill(0.0), m.m_nMeshDiv = 50; }, "反应谱方向未输入，计算终止!"},
      {[](auto& m) { m.m_nMeshDiv = 21, m.m_nExpandModes = 3; }, "网格最多划分20格，计算终止!"},
      {[](auto& m) { m.m_bValid = false, m.m_nMeshDiv = 2147483647; }, "网格最多划分20格，计算终止!"},
      {[](auto& m) { m.m_nExpandModes = 3, m.ModesSolved = 0; }, "扩展模态数大于总模态数，计算终止!"},
      {[](auto& m) { m.m_nExpandModes = 0, m.ModesSolved = 0; }, "请正确输入扩展模态数!"},
      {[](auto& m) { m.ModesSolved = 0, m.VerticalReduction = -1.0; }, "模态、频率未求解，计算终止!"},
      {[](auto& m) { m.ModeShapes = CMatrix(2, 1, 0.0); }, "模态、频率未求解，计算终止!"},
      {[](auto& m) { m.VerticalReduction = -1e-9, m.m_dDampRatio = -1.0; }, "请正确输入竖向折减系数!"},
      {[](auto& m) { m.m_dDampRatio = -1e-9, m.m_dDirCoef[0] = HUGE_VAL; }, "请正确输入阻尼率!"},
      {[](auto& m) { m.m_dDirCoef[0] = std::nan(""), m.m_nQuakeLevel = 2; }, "反应谱方向未输入，计算终止!"},
      {[](auto& m) { m.m_nQuakeLevel = 2, m.m_nIntensity = 5; }, "地震类型输入错误，请检查!"},
      {[](auto& m) { m.m_nSiteClass = 0, m.m_bVirtualModes = 1, m.m_nPseudoLoadNo = -1; }, "场地类型选择错误!"},
      {[](auto& m) { m.m_nExpandModes = m.m_bVirtualModes = 1, m.m_nPseudoLoadNo = -1; }, "错误:虚拟地震静力序号"},
      {[](auto& m) { m.m_bValid = false, m.m_nExpandModes = 3; }, nullptr},
      {[](auto& m) { m.ModeShapes = CMatrix(2, 2, 1e155); }, "文件数据错误，计算终止!", RunStatus::Failed},
  };
  for (const Case& c : cases) {
    CSpectrumRun run(ShearFrame::Fill, 2, 2);
    run.job.Write(".spec", "older");
    COMDAT.m_fSpectrum[2] = 7.0F;
    c.change(run.model);
    run.Analyse();
    std::vector<std::string> expected;
    if (c.pMessage) expected.emplace_back(c.pMessage);
    EXPECT_EQ(run.platform.GetMessages(), expected);
    EXPECT_EQ(run.model.m_spectrumFindings.status, c.status);
    EXPECT_EQ(run.job.Read(".spec"), "older");
    EXPECT_EQ(run.job.List().size(), 2U);
    EXPECT_EQ(COMDAT.m_fSpectrum[2], 7.0F);
  }
}

TEST(SpectrumAnalysis, VirtualModeCompletesTheFrame) {
  // Two DOFs and one mode: what is left is exactly the second mode. None for k = neq, nor along Y, where nothing moves.
  const ShearFrame frame;
  for (const auto& [nModes, nExpand, dX, bAdded] :
       {std::tuple{2, 1, 1.0, true}, {1, 1, 1.0, true}, {2, 2, 1.0, false}, {2, 1, 0.0, false}}) {
    CSpectrumRun run(ShearFrame::Fill, nModes, nExpand);
    run.model.m_bVirtualModes = 1;
    run.model.m_dDirCoef = {dX, 1.0 - dX, 0.0};
    run.Analyse();
    EXPECT_TRUE(run.platform.GetMessages().empty());
    EXPECT_EQ(run.model.ModeDamping.size(), static_cast<std::size_t>(nExpand + (bAdded ? 1 : 0)));
    EXPECT_EQ(run.job.List().size(), bAdded ? 4U : 2U);
    EXPECT_EQ(run.model.m_spectrumFindings.bVirtual, bAdded);
    EXPECT_EQ(run.model.m_spectrumFindings.nModes, nExpand);
    EXPECT_EQ(run.model.m_spectrumFindings.conditioning.place.nNode > 0, bAdded);
    if (!bAdded) continue;
    const double u = frame.Combine(c_nSrss, [&](int i) { return frame.factor[i] * frame.phi[i][1]; });
    EXPECT_NEAR(ReadSpectrum(run.job).displacements.at(2)[0], u, 1e-4 * u);
    const auto mode = Take(host::ReadVirtualModeFile(run.job.GetPath("_VirtMode.spec"), GetJobNodes()));
    const auto response = Take(host::ReadVirtualResponseFile(run.job.GetPath("VIRTRESP.log")));
    EXPECT_NEAR(mode.omega, frame.omega[1], 1e-4 * frame.omega[1]);
    EXPECT_NEAR(mode.dHertz, mode.omega / 6.2831852, 1e-5 * mode.dHertz);
    EXPECT_EQ(mode.shape.at(0)[0], 0.0);
    for (const int s : {0, 1}) EXPECT_NEAR(std::abs(mode.shape.at(s + 1)[0]), std::abs(frame.phi[1][s]), 1e-6);
    EXPECT_NEAR(std::abs(response.gamma), std::abs(frame.gamma[1]), 1e-4 * std::abs(frame.gamma[1]));
    EXPECT_NEAR(std::abs(response.dFactor), std::abs(frame.factor[1]), 1e-4 * std::abs(frame.factor[1]));
  }
}

TEST(SpectrumAnalysis, ShearFlagOfTheModeFileRulesTheForces) {
  // A tip mass that outweighs the cantilever, L = 1 m: tip / base shear = L^3/(3EI) + kappa L/(GA).
  const double EI = c_dSteelE * 2e-5, GA = c_dSteelE / 2.6 * 0.01;
  for (const int bShear : {0, 1}) {
    const auto fill = [](CHostModel& host) {
      FillCantilever(host, 4);
      for (int i = 1; i <= 5; ++i) ABCD.m_fX[i] /= 4.0F;
      host.AddLoad(0, 5, 2, 1e4);
    };
    CSpectrumRun run(fill, 1, 1, bShear);
    run.model.m_dDirCoef = {0, 1, 0};
    run.Analyse();
    const double dTip = ReadSpectrum(run.job).displacements.at(4)[1];
    const double dShear = ReadSpectrum(run.job).supports.at(0).forces[1];
    const double dExpected = 1.0 / (3.0 * EI) + bShear / GA;  // 1.9 % apart
    EXPECT_NEAR(dTip / dShear, dExpected, 1e-4 * dExpected);
    EXPECT_NEAR(std::pow(run.model.Omega[0], 2) * dExpected * 1e7 / 9.81, 1.0, 1e-3);
  }
}

}  // namespace
}  // namespace skyframe::test
