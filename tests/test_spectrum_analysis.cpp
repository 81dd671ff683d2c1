// Modal combination, and the spectrum analysis from the mode file to the ".spec" file.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <functional>
#include <numeric>
#include <sstream>

#include "HostModel.h"
#include "ModalModels.h"
#include "TestPlatform.h"
#include "skyframe/modal/DesignSpectrum.h"
#include "skyframe/modal/ModalCombination.h"

namespace skyframe::test {
namespace {

using Vector = std::vector<double>;

// ---- combination ----

TEST(ModalCombination, CorrelationOfTwoModes) {
  EXPECT_NEAR(FormCorrelation(10, 11, 0.05, 0.05), 0.523215, 5e-7);
  EXPECT_NEAR(FormCorrelation(11, 10, 0.05, 0.05), 0.523215, 5e-7);
  EXPECT_NEAR(FormCorrelation(10, 10, 0.02, 0.07), 1.0, 1e-15);
  EXPECT_EQ(FormCorrelation(10, 10, 0.0, 0.0), 1.0);  // zero damping is legal
  EXPECT_EQ(FormCorrelation(10, 11, 0.0, 0.0), 0.0);
}

TEST(ModalCombination, WorkedValues) {
  struct Case {
    int nMethod;
    Vector omega, R;
    double dExpected;
  };
  const Case cases[] = {
      {c_nSrss, {10, 11}, {3, 4}, 5.0},
      {c_nCqc, {10, 11}, {3, 4}, 6.12839},
      {c_nCqc, {10, 11}, {3, -4}, std::sqrt(25.0 - 24.0 * 0.523215)},
      {c_nGrp, {10, 11}, {3, 4}, 7.0},
      {c_nGrp, {10, 11}, {3, -4}, 7.0},
      {c_nGrp, {10, 11.05}, {3, 4}, std::sqrt(37.0)},  // Deliberate: one of the two ordered pairs only
      {c_nGrp, {11.05, 10}, {3, 4}, std::sqrt(37.0)},
      {c_nGrp, {10, 12}, {3, 4}, 5.0},
      {c_nGrp, {10, 10.5, 11}, {1, 1, 1}, 3.0},
      {c_nGrp, {10, 11, 12}, {1, 1, 1}, std::sqrt(3.0 + 2.0 + 2.0)},
      {c_nCqc, {10, 10}, {3, -3}, 0.0},
      {c_nSrss, {10}, {-3}, 3.0},
  };
  for (const Case& c : cases) {
    const CModalCombination combination(c.nMethod, c.omega, Vector(c.omega.size(), 0.05));
    EXPECT_NEAR(combination.Combine(c.R), c.dExpected, 6e-6)
        << "method " << c.nMethod << ", omega_2 " << c.omega.back();
  }
}

TEST(ModalCombination, CqcSumBelowZeroByRoundOffIsZero) {
  // Equal frequencies: (sum R)^2, whose terms add up to about -1e-30 in these.
  for (const Vector& R : {Vector{9.6, 6.5, -9, -3.6, -3.5}, {-7.8, -1.7, 0.1, 8.5, 1.8, -0.9}, {2.7, 1.5, -4.4, 0.2}}) {
    EXPECT_EQ(CModalCombination(c_nCqc, Vector(R.size(), 3.0), Vector(R.size(), 0.05)).Combine(R), 0.0);
  }
}

// ---- analysis ----

/// Modal run on the host's model, then a fresh model with its mode file read. X direction, intensity 7 (0.10g),
/// zone 1, class II: Tg = 0.35 s, alpha_max = 0.08.
struct CSpectrumRun {
  CTestPlatform platform;
  CHostModel host;
  CJobFolder folder{"spectrum"};
  CAnalysisModel model;

  void SolveModes(int nModes, bool bUseLoadMass = false, bool bShear = false) {
    CAnalysisModel modal;
    Prepare(modal, bUseLoadMass);
    modal.m_nModes = nModes;
    modal.m_bShear = bShear ? 1 : 0;
    modal.SolveModes(folder.GetJobPath(), 0, bUseLoadMass);
  }
  void ReadModes(int nExpand, bool bUseLoadMass = false) {
    Prepare(model, bUseLoadMass);
    model.m_nExpandModes = nExpand;
    model.m_nIntensity = 7;
    model.m_nSiteClass = 2;
    model.m_dDampRatio = 0.05;
    model.m_nMeshDiv = 5;
    model.m_bValid = false;
    (void)model.ReadModeFile(folder.GetJobPath());
  }
  void Analyse(bool bUseLoadMass = false) { model.SpectrumAnalysis(folder.GetJobPath(), 0, bUseLoadMass); }

  /// Lines of the ".spec" file.
  [[nodiscard]] std::vector<std::string> GetLines() const {
    std::istringstream strm(folder.Read(".spec"));
    std::vector<std::string> lines;
    for (std::string str; std::getline(strm, str);) lines.push_back(str);
    return lines;
  }
  /// The numbers of the lines between two labels.
  [[nodiscard]] std::vector<Vector> GetBlock(const std::string& strLabel, const std::string& strNext) const {
    std::vector<Vector> rows;
    bool bInside = false;
    for (const std::string& strLine : GetLines()) {
      if (strLine.rfind(strNext, 0) == 0 && bInside) break;
      if (bInside) {
        std::istringstream strm(strLine);
        rows.emplace_back();
        for (double d; strm >> d;) rows.back().push_back(d);
      }
      bInside = bInside || strLine.rfind(strLabel, 0) == 0;
    }
    return rows;
  }

 private:
  static void Prepare(CAnalysisModel& model, bool bUseLoadMass) {
    model.m_nLoadCaseFlag[0] = bUseLoadMass ? 1 : 0;
    model.BuildModelForModes(bUseLoadMass);
  }
};

void ExpectRow(const Vector& actual, const Vector& expected) {
  ASSERT_EQ(actual.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_NEAR(actual[i], expected[i], 2e-5 * std::abs(expected[i]) + 1e-12) << "column " << i;
  }
}

TEST(SpectrumAnalysis, OneBar) {
  CSpectrumRun run;
  FillOneBar(run.host);
  run.SolveModes(1, true);
  run.ReadModes(1, true);
  run.Analyse(true);
  EXPECT_TRUE(run.platform.GetMessages().empty());
  const auto displacement = run.GetBlock("Node_Dis:", "Force:");
  ASSERT_EQ(displacement.size(), 2U);
  ExpectRow(displacement[0], {1, 0, 0, 0});
  ExpectRow(displacement[1], {2, 4.35970e-6, 0, 0});
  ExpectRow(run.GetBlock("Force:", "Support:").at(0), {1, 0, 6, 4490.49});
  const auto support = run.GetBlock("Support:", "(end)");
  ASSERT_EQ(support.size(), 2U);  // node 2 holds Y and Z
  ExpectRow(support[0], {1, 4490.49, 0, 0});
  ExpectRow(support[1], {2, 0, 0, 0});
  EXPECT_NEAR(COMDAT.m_fSpectrum[2], 4.35970e-6, 1e-10);
  EXPECT_EQ(COMDAT.m_fSpectrum[1], 0.0F);
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
  for (const int nMethod : {c_nSrss, c_nCqc, c_nGrp}) {
    SCOPED_TRACE(nMethod);
    CSpectrumRun run;
    ShearFrame::Fill(run.host);
    run.SolveModes(2, true);
    run.ReadModes(2, true);
    run.model.m_nCombMethod = nMethod;
    run.Analyse(true);
    ASSERT_TRUE(run.platform.GetMessages().empty());

    const auto displacement = run.GetBlock("Node_Dis:", "Force:");
    ASSERT_EQ(displacement.size(), 3U);
    for (const int s : {0, 1}) {
      const double u = frame.Combine(nMethod, [&](int i) { return frame.factor[i] * frame.phi[i][s]; });
      ExpectRow(displacement[s + 1], {s + 2.0, u, 0, 0, 0, 0, 0});
      EXPECT_NEAR(COMDAT.m_fSpectrum[s + 2], u, 2e-5 * u);
    }
    // A header line and six stations a column; the moment runs from V L/2 to -V L/2.
    const auto force = run.GetBlock("Force:", "Support:");
    ASSERT_EQ(force.size(), 14U);
    for (const int s : {0, 1}) {
      const double V = frame.Combine(nMethod, [&](int i) { return frame.GetShear(i, s); });
      ExpectRow(force[7 * s], {s + 1.0, 1, 6});
      for (int p = 0; p < 6; ++p) {
        const double M = V * ShearFrame::L * std::abs(0.5 - p / 5.0);
        const Vector& row = force[7 * s + 1 + p];
        ASSERT_EQ(row.size(), 6U);
        EXPECT_NEAR(row[2], V, 3e-5 * V);
        EXPECT_NEAR(row[4], M, 3e-5 * V * ShearFrame::L);
        for (const int c : {0, 1, 3, 5}) EXPECT_NEAR(row[c], 0.0, 1e-9 * V);
      }
    }
    const double V = frame.Combine(nMethod, [&](int i) { return frame.GetShear(i, 0); });
    const auto support = run.GetBlock("Support:", "(end)");
    ASSERT_EQ(support.size(), 3U);
    EXPECT_NEAR(support[0][1], V, 3e-5 * V);
    EXPECT_NEAR(support[0][5], V * ShearFrame::L / 2.0, 3e-5 * V * ShearFrame::L);
    EXPECT_EQ(support[1][1], 0.0);  // free DOFs of a supported node
    EXPECT_GT(support[1][5], 0.0);
  }
}

TEST(SpectrumAnalysis, HeadOfTheFile) {
  const ShearFrame frame;
  CSpectrumRun run;
  ShearFrame::Fill(run.host);
  run.SolveModes(2, true);
  run.ReadModes(1, true);
  run.model.m_nModes = 2;
  run.model.SolveModes(run.folder.GetJobPath(), 0, true);  // all digits, not the six of the file
  run.platform->SetClock({{2025, 12, 31, 23, 59, 9}});
  run.model.m_nCombMethod = c_nCqc;
  run.Analyse(true);
  const auto format = [](double d, int nWidth) {
    char text[64];
    std::snprintf(text, sizeof text, "%-*g", nWidth, d);
    return std::string(text);
  };
  // The sign of a mode shape is free.
  const std::vector<std::string> lines = run.GetLines();
  ASSERT_GT(lines.size(), 14U);
  const std::string strGamma = format(lines[6][0] == '-' ? -frame.gamma[0] : frame.gamma[0], 15);
  const double dMass = frame.gamma[0] * frame.gamma[0];
  const std::vector<std::string> expected = {
      "The_Data_of_Zan's_Spectrum_Analysis",
      "",
      "12/31/2025  23:59:9",
      "v1.0",
      "",
      "2 3 3 0 2",
      strGamma,
      "各阶振型参与质量:",
      format(dMass, 15),
      "总计算参与质量:" + format(dMass, 0),
      "总参与质量:" + format(frame.dTotalMass, 0),
      format(0.05, 15),
      "Spectrum_Combine_method: CQC",
      "Node_Dis:",
      "1       " + format(0, 15) + format(0, 15) + format(0, 15) + format(0, 15) + format(0, 15) + format(0, 15)};
  EXPECT_EQ(std::vector(lines.begin(), lines.begin() + 15), expected);
}

TEST(SpectrumAnalysis, ListsHaveTenValuesALine) {
  for (const int k : {9, 10, 11, 20, 21}) {
    SCOPED_TRACE(k);
    CSpectrumRun run;
    FillSquareTower(run.host, 2);
    run.SolveModes(25);
    run.ReadModes(k);
    run.Analyse();
    const auto lines = run.GetLines();
    int nLine = 6, nValues = 0;
    for (; lines.at(nLine) != "各阶振型参与质量:"; ++nLine) {
      const int nHere = static_cast<int>(lines[nLine].size()) / 15;
      EXPECT_EQ(nHere, std::min(10, k - nValues));
      nValues += nHere;
    }
    EXPECT_EQ(nValues, k);
    EXPECT_EQ(nLine - 6, (k + 9) / 10);
  }
}

TEST(SpectrumAnalysis, AllModesCarryTheTotalMass) {
  for (const std::array<double, 3>& c : {std::array{1.0, 0.0, 0.0}, {0.0, 0.0, -2.0}, {3.0, 4.0, 0.0}}) {
    CSpectrumRun run;
    FillSquareTower(run.host, 1);
    run.SolveModes(24);
    run.ReadModes(24);
    run.model.m_dDirCoef = c;
    run.Analyse();
    const auto lines = run.GetLines();
    const auto number = [&](int nLine) { return std::stod(lines[nLine].substr(lines[nLine].find(':') + 1)); };
    ASSERT_EQ(lines.at(13).rfind("总计算参与质量:", 0), 0U);
    EXPECT_NEAR(number(13), number(14), 2e-5 * number(14));
    EXPECT_GT(number(14), 0.0);
  }
}

using Change = std::function<void(CAnalysisModel&)>;

TEST(SpectrumAnalysis, RefusesInOrderAndWritesNothing) {
  using Model = CAnalysisModel;
  const auto set = [](auto pMember, auto value) { return [=](Model& m) { m.*pMember = value; }; };
  const auto both = [](const Change& a, const Change& b) { return [=](Model& m) { a(m), b(m); }; };
  const std::array<double, 3> c_noDirection = {0, 0, 0}, c_nan = {std::nan(""), 0, 0};
  const Change noModes = set(&Model::ModesSolved, 0);
  struct Case {
    const char* pName;
    Change change;
    const char* pMessage;
  };
  // A case with two faults tells which check comes first.
  const Case cases[] = {
      {"direction, grid", both(set(&Model::m_dDirCoef, c_noDirection), set(&Model::m_nMeshDiv, 50)),
       "反应谱方向未输入，计算终止!"},
      {"grid, modes", both(set(&Model::m_nMeshDiv, 21), set(&Model::m_nExpandModes, 3)), "网格最多划分20格，计算终止!"},
      {"largest grid", set(&Model::m_nMeshDiv, 2147483647), "网格最多划分20格，计算终止!"},
      {"too many modes", both(set(&Model::m_nExpandModes, 3), noModes), "扩展模态数大于总模态数，计算终止!"},
      {"no modes asked for", both(set(&Model::m_nExpandModes, 0), noModes), "请正确输入扩展模态数!"},
      {"no modes there", both(noModes, set(&Model::VerticalReduction, -1.0)), "模态、频率未求解，计算终止!"},
      {"fewer shapes", set(&Model::ModeShapes, CMatrix(2, 1, 0.0)), "模态、频率未求解，计算终止!"},
      {"reduction, damping", both(set(&Model::VerticalReduction, -1e-9), set(&Model::m_dDampRatio, -1.0)),
       "请正确输入竖向折减系数!"},
      {"damping, unit direction", both(set(&Model::m_dDampRatio, -1e-9), set(&Model::m_dDirCoef, c_nan)),
       "请正确输入阻尼率!"},
      {"unit direction, level", both(set(&Model::m_dDirCoef, c_nan), set(&Model::m_nQuakeLevel, 2)),
       "反应谱方向未输入，计算终止!"},
      {"level, intensity", both(set(&Model::m_nQuakeLevel, 2), set(&Model::m_nIntensity, 5)),
       "地震类型输入错误，请检查!"},
      {"rare at 6", both(set(&Model::m_nQuakeLevel, 1), set(&Model::m_nIntensity, 6)), "6度地震不进行罕遇验算!"},
      {"site", set(&Model::m_nSiteClass, 0), "场地类型选择错误!"},
      {"virtual load number",
       both(both(set(&Model::m_nExpandModes, 1), set(&Model::m_bVirtualModes, 1)), set(&Model::m_nPseudoLoadNo, -1)),
       "错误:虚拟地震静力序号"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.pName);
    CSpectrumRun run;
    ShearFrame::Fill(run.host);
    run.SolveModes(2, true);
    run.ReadModes(2, true);
    run.folder.Write(".spec", "older");
    COMDAT.m_fSpectrum[2] = 7.0F;
    c.change(run.model);
    run.Analyse(true);
    EXPECT_EQ(run.platform.GetMessages(), std::vector<std::string>{c.pMessage});
    EXPECT_EQ(run.folder.Read(".spec"), "older");
    EXPECT_EQ(run.folder.List().size(), 2U);
    EXPECT_EQ(COMDAT.m_fSpectrum[2], 7.0F);
  }
}

TEST(SpectrumAnalysis, InvalidModelIsCheckedForGridAndDirectionOnly) {
  CTestPlatform platform;
  CJobFolder folder("spectrum");
  CAnalysisModel model;
  model.SpectrumAnalysis(folder.GetJobPath(), 0, false);
  EXPECT_TRUE(platform.GetMessages().empty());
  model.m_nMeshDiv = 21;
  model.SpectrumAnalysis(folder.GetJobPath(), 0, false);
  EXPECT_EQ(platform.GetMessages().size(), 1U);
  EXPECT_TRUE(folder.List().empty());
}

TEST(SpectrumAnalysis, GridIsIncrementedAndSamplesTheDiagrams) {
  for (const int nCells : {20, 7, 1, 0, -1}) {
    SCOPED_TRACE(nCells);
    CSpectrumRun run;
    ShearFrame::Fill(run.host);
    run.SolveModes(2, true);
    run.ReadModes(1, true);
    run.model.m_nMeshDiv = nCells;
    run.Analyse(true);
    ASSERT_TRUE(run.platform.GetMessages().empty());
    EXPECT_EQ(run.model.m_nMeshDiv, nCells + 1);  // Deliberate: the run leaves the count of stations
    const auto force = run.GetBlock("Force:", "Support:");
    ASSERT_EQ(force.size(), 2U * (1 + std::max(nCells + 1, 0)));
    EXPECT_EQ(force[0], (Vector{1, 1, nCells + 1.0}));
    for (int p = 0; p <= nCells; ++p) {  // |V| L |1/2 - x|
      const double dShare = nCells > 0 ? static_cast<double>(p) / nCells : 0.0;
      EXPECT_NEAR(force[1 + p][4], force[1][2] * ShearFrame::L * std::abs(0.5 - dShare), 2e-5 * force[1][4]);
    }
  }
}

TEST(SpectrumAnalysis, VirtualModeCompletesTheFrame) {
  // Two DOFs and one mode: what is left is exactly the second mode.
  const ShearFrame frame;
  for (const int nModes : {1, 2}) {  // also k = n < neq
    CSpectrumRun run, whole;
    ShearFrame::Fill(run.host);
    run.SolveModes(nModes, true);
    run.model.m_bVirtualModes = 1;
    run.ReadModes(1, true);
    run.Analyse(true);
    ASSERT_TRUE(run.platform.GetMessages().empty());
    ASSERT_EQ(run.model.ModeDamping.size(), 2U);
    const double u = frame.Combine(c_nSrss, [&](int i) { return frame.factor[i] * frame.phi[i][1]; });
    EXPECT_NEAR(run.GetBlock("Node_Dis:", "Force:").at(2)[1], u, 1e-4 * u);

    std::istringstream shape(run.folder.Read("_VirtMode.spec"));
    std::string strLabel;
    double dOmega = 0.0, dHertz = 0.0;
    shape >> strLabel >> dOmega >> dHertz;
    EXPECT_EQ(strLabel, "虚拟频率");
    EXPECT_NEAR(dOmega, frame.omega[1], 1e-4 * frame.omega[1]);
    EXPECT_NEAR(dHertz, dOmega / 6.2831852, 1e-5 * dHertz);
    std::istringstream response(run.folder.Read("VIRTRESP.log"));
    double dGamma = 0.0, dAlpha = 0.0, dFactor = 0.0;
    response >> strLabel >> dGamma >> dAlpha >> dFactor;
    EXPECT_NEAR(std::abs(dGamma), std::abs(frame.gamma[1]), 1e-4 * std::abs(frame.gamma[1]));
    EXPECT_NEAR(std::abs(dFactor), std::abs(frame.factor[1]), 1e-4 * std::abs(frame.factor[1]));
    EXPECT_NEAR(dFactor, dAlpha * dGamma * 9.8 / (dOmega * dOmega), 1e-4 * std::abs(dFactor));
  }
}

TEST(SpectrumAnalysis, VirtualModeIsLeftOutWhenThereIsNoMassForIt) {
  struct Case {
    int nExpand;
    std::array<double, 3> direction;
  };
  for (const Case& c : {Case{2, {1, 0, 0}}, Case{1, {0, 1, 0}}}) {  // k = neq; nothing moves along Y
    CSpectrumRun run;
    ShearFrame::Fill(run.host);
    run.SolveModes(2, true);
    run.model.m_bVirtualModes = 1;
    run.ReadModes(c.nExpand, true);
    run.model.m_dDirCoef = c.direction;
    run.Analyse(true);
    EXPECT_TRUE(run.platform.GetMessages().empty());
    EXPECT_EQ(run.model.ModeDamping.size(), static_cast<std::size_t>(c.nExpand));
    EXPECT_TRUE(run.folder.Has(".spec"));
    EXPECT_FALSE(run.folder.Has("_VirtMode.spec"));
    EXPECT_FALSE(run.folder.Has("VIRTRESP.log"));
  }
}

TEST(SpectrumAnalysis, RenumberedHostGivesTheSameFile) {
  const auto run = [](bool bRenumber) {
    CSpectrumRun analysis;
    // Mixed joints, a node that nothing touches, and no symmetry: in a repeated pair SRSS would depend on
    // how the pair is turned.
    FillSquareTower(analysis.host, 3);
    ABCD.m_fX[6] += 1.7F;
    ABCD.m_fY[11] -= 1.1F;
    ABCD.m_fX[14] += 0.6F;
    const int nTop = analysis.host.AddNode(3, 3, 12, c_nPinned);
    analysis.host.AddNode(50, 0, 0, c_nPinned);
    for (const int nCorner : {13, 14, 15, 16}) analysis.host.AddElement(c_nBeam, nTop, nCorner);
    std::vector<int> first(ABCD.m_nNodes + 1), second(ABCD.m_nNodes + 1);
    std::iota(first.begin(), first.end(), 0);
    std::iota(second.begin(), second.end(), 0);
    COMDAT.m_pFirstOrder = first.data();
    COMDAT.m_pSecondOrder = second.data();
    if (bRenumber) CCommonData::OnReNodeCode();
    analysis.SolveModes(12);
    if (bRenumber) {
      EXPECT_FALSE(std::ranges::is_sorted(second));
      CCommonData::OnRestoreNodeCode();
    }
    COMDAT.m_pFirstOrder = COMDAT.m_pSecondOrder = nullptr;
    analysis.ReadModes(12);
    analysis.model.m_dDirCoef = {1.0, 0.3, 0.2};
    analysis.Analyse();
    EXPECT_TRUE(analysis.platform.GetMessages().empty());
    return analysis.GetBlock("Node_Dis:", "Force:");
  };
  const auto plain = run(false), renumbered = run(true);
  ASSERT_EQ(plain.size(), 18U);
  ASSERT_EQ(plain.size(), renumbered.size());
  double dLargest = 0.0;
  for (const Vector& row : plain) dLargest = std::max(dLargest, row[1]);
  EXPECT_GT(dLargest, 0.0);
  for (std::size_t i = 0; i < plain.size(); ++i) {
    ASSERT_EQ(plain[i].size(), renumbered[i].size());
    for (std::size_t c = 0; c < plain[i].size(); ++c) EXPECT_NEAR(plain[i][c], renumbered[i][c], 1e-4 * dLargest);
  }
}

TEST(SpectrumAnalysis, ShearFlagOfTheModeFileRulesTheForces) {
  // A tip mass that outweighs the cantilever, L = 1 m: tip / base shear = L^3/(3EI) + kappa L/(GA).
  const double EI = c_dSteelE * 2e-5, GA = c_dSteelE / 2.6 * 0.01;
  for (const bool bShear : {false, true}) {
    CSpectrumRun run;
    FillCantilever(run.host, 4);
    for (int i = 1; i <= 5; ++i) ABCD.m_fX[i] /= 4.0F;
    run.host.AddLoad(0, 5, 2, 1e4);
    run.SolveModes(1, true, bShear);
    run.ReadModes(1, true);
    run.model.m_dDirCoef = {0, 1, 0};
    run.Analyse(true);
    const double dTip = run.GetBlock("Node_Dis:", "Force:").at(4)[2];
    const double dShear = run.GetBlock("Support:", "(end)").at(0)[2];
    const double dExpected = 1.0 / (3.0 * EI) + (bShear ? 1.0 / GA : 0.0);  // 1.9 % apart
    EXPECT_NEAR(dTip / dShear, dExpected, 1e-4 * dExpected);
  }
}

}  // namespace
}  // namespace skyframe::test
