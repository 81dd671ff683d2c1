// Tridiagonal QL, the Lanczos recurrence on pencils of its own, root-loss tests, and modes of models.

#include "ModalModels.h"
#include "skyframe/modal/LanczosSolver.h"
#include "skyframe/modal/ModeCount.h"
#include "skyframe/modal/RootLossTest.h"

namespace skyframe::test {
namespace {

using std::numbers::pi;
using Vector = std::vector<double>;

// ---- tridiagonal QL ----

TEST(TridiagonalQl, SplitsByTheToleranceSortsByMagnitudeAndEnds) {
  // Two uncoupled blocks: {-5} and [[1, 2], [2, 1]] with roots 3 and -1.
  const TridiagonalEigen eigen = SolveTridiagonal(Vector{-5, 1, 1}, Vector{0, 2}, 1e-16);
  for (int i = 0; i < 3; ++i) EXPECT_NEAR(eigen.values[i], (Vector{-5, 3, -1})[i], 1e-14);
  EXPECT_NEAR(std::abs(eigen.GetVector(0, 0)), 1.0, 1e-15);
  // |e| = 0.01 against t = |d| + |e| = 1.01
  EXPECT_EQ(SolveTridiagonal(Vector{1, 2}, Vector{0.01}, 0.01).values, (Vector{2, 1}));
  EXPECT_NEAR(SolveTridiagonal(Vector{1, 2}, Vector{0.01}, 0.0098).values[0], 1.5 + std::hypot(0.5, 0.01), 1e-15);
  EXPECT_FALSE(SolveTridiagonal(Vector{1, std::nan(""), 2}, Vector{1, 1}, 1e-16).bConverged);
}

// ---- Lanczos on dense pencils ----

/// For the pencil K = I, M = diag(theta): its Ritz values are theta, multiplicities as wanted.
CLanczosSolver MakeSolver(const Vector& theta) {
  return CLanczosSolver(
      static_cast<int>(theta.size()),
      [](std::span<const double> b, std::span<double> y) {
        std::ranges::copy(b, y.begin());
        return true;
      },
      [theta](std::span<const double> x, std::span<double> y) {
        std::ranges::transform(x, theta, y.begin(), std::multiplies());
      });
}

Vector Spread(int n, double dRatio) {
  Vector theta;
  for (int i = 0; i < n; ++i) theta.push_back(std::pow(dRatio, i));
  return theta;
}

TEST(Lanczos, FindsAllRootsOfKnownPencils) {
  struct Case {
    const char* pName;
    Vector theta;       ///< descending
    Vector x0;          ///< empty: random
    int nExpectedSize;  ///< columns there are
  };
  const Case cases[] = {
      {"distinct", Spread(37, 0.8), {}, 37},
      {"pairs: the recurrence breaks down at the half", {9, 9, 7, 7, 5, 5, 3, 3, 1, 1}, {}, 10},
      {"one root six times", {4, 4, 4, 4, 4, 4, 1}, {}, 7},
      {"start vector is an eigenvector", {8, 4, 2, 1}, {0, 0, 1, 0}, 4},
      {"zero start vector", Spread(6, 0.5), Vector(6, 0.0), 6},
      {"start vector without mass", {3, 2, 1, 0, 0}, {0, 0, 0, 0, 1}, 3},
      {"three masses among seven: nothing is left after three", {5, 4, 3, 0, 0, 0, 0}, {}, 3},
      {"over twenty orders of magnitude: one sweep would not do", Spread(40, 0.3), Vector(40, 1.0), 40},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.pName);
    CLanczosSolver solver = MakeSolver(c.theta);
    solver.Start(c.x0.empty() ? solver.MakeRandomVector() : c.x0);
    ASSERT_TRUE(solver.Extend(static_cast<int>(c.theta.size())));
    ASSERT_EQ(solver.GetSize(), c.nExpectedSize);
    solver.SolveRitz(1e-16);
    for (int i = 0; i < c.nExpectedSize; ++i) {
      EXPECT_NEAR(solver.GetRitzValues()[i], c.theta[i], 1e-11);
      for (int j = 0; j <= i; ++j) {
        double dProduct = i == j ? -1.0 : 0.0;  // Q^T M Q - I
        for (std::size_t k = 0; k < c.theta.size(); ++k) {
          dProduct += solver.GetBasis().GetColumn(i)[k] * c.theta[k] * solver.GetBasis().GetColumn(j)[k];
        }
        EXPECT_NEAR(dProduct, 0.0, 1e-9);
      }
    }
  }
}

// ---- root-loss tests and enlargement ----

TEST(RootLoss, ModeComparisonLooksAtTheHighestFrequencyFromTheSecondPassOn) {
  // n = 10: S = (10 - 6) omega_10, slack 10 / 600: omega_10 may drop by 0.00417. The others do not matter.
  const std::pair<double, RootCheck> passes[] = {{50.0, RootCheck::Enlarge},
                                                 {49.9, RootCheck::Enlarge},
                                                 {49.8957, RootCheck::Enlarge},
                                                 {49.8916, RootCheck::Accept}};
  CModeComparisonTest test;
  double dOther = 1.0;
  for (const auto& [dOmega, expected] : passes) {
    Vector theta(10, dOther);
    theta.back() = 1.0 / (dOmega * dOmega);
    EXPECT_EQ(test.Check(theta), expected) << dOmega;
    dOther = 10.0 - dOther;
  }
}

TEST(RootLoss, SturmCountsBelowTheLastTwo) {
  using enum RootCheck;
  struct Case {
    const char* pName;
    int nModes;
    std::vector<int> counts;          ///< answers in order; -1: factorisation fails
    std::vector<int> asked;           ///< mode (1-based) whose frequency each question is about
    std::vector<RootCheck> expected;  ///< of each pass
    int nProven = -1;                 ///< count that stands at the end, below the highest mode; -1: none
  };
  const Case cases[] = {
      {"none lost", 4, {3, 2}, {4, 3}, {Accept}, 3},
      {"fewer below are welcome", 4, {2, 2}, {4, 3}, {Accept}, 2},
      {"lost below the highest, then below the last but one", 4, {4, 3, 3}, {4, 4, 3}, {Enlarge, Enlarge}, 3},
      // Deliberate: once passed, the question about the highest is not repeated
      {"the highest passed before", 4, {3, 3, 2}, {4, 3, 3}, {Enlarge, Accept}, 3},
      {"one mode needs one count", 1, {1, 0}, {1, 1}, {Enlarge, Accept}, 0},
      {"factorisation fails", 4, {-1}, {4}, {Failed}},
      {"second factorisation fails", 4, {3, -1}, {4, 3}, {Failed}, 3},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.pName);
    Vector theta;
    for (int i = 1; i <= c.nModes; ++i) theta.push_back(1.0 / (100.0 * i * i));
    std::size_t nAsked = 0;
    CSturmTest test([&](double dOmega2) -> std::optional<int> {
      EXPECT_NEAR(dOmega2, 0.9998 * 100.0 * std::pow(c.asked.at(nAsked), 2), 1e-9);
      const int nCount = c.counts.at(nAsked++);
      return nCount < 0 ? std::nullopt : std::optional(nCount);
    });
    for (const RootCheck expected : c.expected) EXPECT_EQ(test.Check(theta), expected);
    EXPECT_EQ(nAsked, c.counts.size());
    const SturmCount proof = test.GetProof().value_or(SturmCount{0.0, -1});
    EXPECT_EQ(proof.nBelow, c.nProven);
    EXPECT_NEAR(proof.dShift, c.nProven < 0 ? 0.0 : 99.98 * c.nModes * c.nModes, 1e-9);
  }
  CTestPlatform platform;
  SparseMatrix missing;  // its copy said so already
  EXPECT_EQ(CountBelowShift(missing, CRowMatrix(), 1.0), std::nullopt);
  EXPECT_TRUE(platform.GetMessages().empty());
}

TEST(RootLoss, SubspaceSizes) {
  struct Case {
    int m, n, neq, nFirst, nMultiple;
    std::optional<int> expected;
  };
  const Case cases[] = {
      {14, 1, 100, 14, 6, 18},             // (1 + 8) / 2 = 4
      {95, 10, 100, 23, 1, 100},           // cut back to neq: the multiple does not matter
      {91, 10, 100, 23, 3, std::nullopt},  // reaches neq exactly, 100 > 69
      {37, 10, 1000, 23, 2, 46},
      {38, 10, 1000, 23, 2, std::nullopt},
      {2000000000, 2000000000, 2147483647, 1, 2147483647, 2147483647},
  };
  for (const Case& c : cases) EXPECT_EQ(EnlargeSubspace(c.m, c.n, c.neq, c.nFirst, c.nMultiple), c.expected) << c.m;
  EXPECT_EQ(ChooseFirstSize(10, 1000), 23);
  EXPECT_EQ(ChooseFirstSize(20, 1000), 40);
  EXPECT_EQ(ChooseFirstSize(20, 30), 30);
}

// ---- modes of models ----

struct CModalRun : Session {
  CAnalysisModel model;

  void Solve(int nModes, int nRootCheck = 0, bool bUseLoadMass = false) {
    model.BuildModelForModes(bUseLoadMass);
    model.m_nModes = nModes;
    model.m_nRootCheck = nRootCheck;
    model.SolveModes(job.GetJobPath(), 0, bUseLoadMass);
  }
};

TEST(ModalSolution, RefusesInOrderAndWritesNothing) {
  struct Case {
    int nModes;
    double dTol;
    int nMultiple;
    const char* pMessage;
  };
  const Case cases[] = {
      {49, 0.0, 0, "模态数大于结构自由度,计算终止!"},
      {0, 0.0, 0, "请正确输入模态数!"},
      {2, 0.0, 0, "请正确输入迭代精度!"},
      {2, std::nan(""), 1, "请正确输入迭代精度!"},
      {2, 1e-16, 0, "请正确输入迭代倍数!"},
  };
  for (const Case& c : cases) {
    CModalRun run;
    run.model.SolveModes(run.job.GetJobPath(), 0, false);  // not built: nothing happens
    FillCantilever(run.host, 8);
    run.job.Write(".mode", "older");
    run.model.m_dModeTol = c.dTol;
    run.model.m_nIterMultiple = c.nMultiple;
    run.Solve(c.nModes);
    EXPECT_EQ(run.platform.GetMessages(), Strings{c.pMessage});
    EXPECT_EQ(run.model.m_modalFindings.status, RunStatus::Refused);
    EXPECT_EQ(run.job.Read(".mode"), "older");
    EXPECT_EQ(run.model.ModesSolved, 0);
  }
}

void ExpectGoodModes(const CModalRun& run, int nModes) {
  EXPECT_EQ(run.platform.GetMessages(), Strings{});
  ASSERT_EQ(run.model.Omega.size(), static_cast<std::size_t>(nModes));
  EXPECT_EQ(run.model.ModeShapes.GetCols(), nModes);
  EXPECT_TRUE(std::ranges::is_sorted(run.model.Omega));
  const ModeErrors errors = FormModeErrors(run.model, false);
  EXPECT_LT(errors.dResidual, 1e-6);
  EXPECT_LT(errors.dOrthogonality, 1e-9);
  const ModalFindings& findings = run.model.m_modalFindings;
  EXPECT_EQ(findings.status, RunStatus::Done);
  EXPECT_EQ(findings.omega, run.model.Omega);
  EXPECT_NEAR(std::ranges::max(findings.residuals), errors.dResidual, 1e-8 + 0.2 * errors.dResidual);
  EXPECT_GT(findings.conditioning.dLostDigits, 0.1);
}

TEST(ModalSolution, CantileverHasItsClosedForm) {
  // Euler-Bernoulli 7.987, 50.05, 140.2 Hz; consistent mass with rotary inertia and 8 elements: slightly less.
  const double c_dHertz[] = {7.985, 7.985, 49.96, 49.96, 139.6, 139.6};
  const double c_dShare[] = {0.6131, 0.1883, 0.0647};  // effective masses of the bending pairs
  const double dWhole = c_dSteelDensity * 0.01 * 4.0;
  for (const auto& [nElements, n] : {std::pair{8, 1}, {8, 6}, {24, 144}}) {
    SCOPED_TRACE(n);
    CModalRun run;
    FillCantilever(run.host, nElements);
    run.Solve(n);
    ExpectGoodModes(run, n);
    for (int i = 0; i < std::min(n, 6); ++i)
      EXPECT_NEAR(run.model.Omega[i], c_dHertz[i] * 2 * pi, 0.0063 * c_dHertz[i]);
    if (n < 144) continue;
    const ModalFindings& masses = run.model.m_modalFindings;
    for (const int d : {0, 1, 2}) {
      double dSum = 0.0;
      for (const auto& mode : masses.effectiveMasses) dSum += mode[d];
      EXPECT_NEAR(dSum, masses.totalMass[d], 1e-9 * masses.totalMass[d]);  // all modes together carry all free mass
      EXPECT_NEAR(masses.totalMass[d], dWhole, 0.05 * dWhole);
      for (int k = 0; k < 3 && d > 0; ++k) {
        const double dPair = masses.effectiveMasses[2 * k][d] + masses.effectiveMasses[2 * k + 1][d];
        EXPECT_NEAR(dPair / dWhole, c_dShare[k], 0.01 * c_dShare[k]);
      }
    }
  }
}

/// Of 167 beams, 100 m: 1002 equations.
void FillMast(CHostModel& host, bool bStanding) {
  FillCantilever(host, 167);
  for (int n = 1; n <= 168; ++n) {
    ABCD.m_fX[n] *= 25.0F;
    if (bStanding) std::swap(ABCD.m_fX[n], ABCD.m_fZ[n]);
  }
}

TEST(ModalSolution, NoCopyOfARepeatedModeIsMissing) {
  struct Case {
    const char* pName;
    std::function<void(CHostModel&)> fill;
    int nModes;
    int nEqual;  ///< lowest modes that are equal, by symmetry
  };
  const Case cases[] = {
      // 1000 equations and more: the first equation's part of the structure is not all of it.
      {"mast along X", [](CHostModel& h) { FillMast(h, false); }, 10, 2},
      {"mast along Z", [](CHostModel& h) { FillMast(h, true); }, 10, 2},
      {"two towers", [](CHostModel& h) { FillSquareTower(h, 21, 2); }, 10, 4},
      // Below: more copies than the two counts of the root-loss test tell apart.
      {"four tables", [](CHostModel& h) { FillSquareTower(h, 1, 4); }, 10, 8},
      {"six tables", [](CHostModel& h) { FillSquareTower(h, 1, 6); }, 20, 12},
  };
  for (std::size_t k = 0; k < 2 * std::size(cases); ++k) {
    const Case& c = cases[k / 2];
    const int nRadio = static_cast<int>(k % 2);
    SCOPED_TRACE(testing::Message() << c.pName << ", radio " << nRadio);
    CModalRun run;
    c.fill(run.host);
    run.Solve(c.nModes, nRadio);
    ExpectGoodModes(run, c.nModes);
    const std::vector<double>& w = run.model.Omega;
    if (w.empty()) continue;
    EXPECT_NEAR(w[0], w[c.nEqual - 1], 1e-7 * w[0]);
    EXPECT_GT(w[c.nEqual], 1.01 * w[0]);
    EXPECT_EQ(CountModesBelow(run.model, 0.5 * (w[0] + w[c.nEqual]), false), c.nEqual);
    const auto countFound = [&](double d) { return std::ranges::count_if(w, [d](double v) { return v < d; }); };
    EXPECT_EQ(CountModesBelow(run.model, 0.9999 * w.back(), false), countFound(0.9999 * w.back()));
    const ModalFindings& findings = run.model.m_modalFindings;
    EXPECT_EQ(findings.sturmCount.has_value(), run.model.GetFreeDofs() < 1000 || nRadio == 1);
    EXPECT_EQ(findings.sturmCount.value_or(0), countFound(findings.dCountedBelow));
  }
}

TEST(ModalSolution, FreeStructuresAreRefused) {
  const std::vector<std::string> free = {"结构存在平动，请约束"}, unstable = {"结构几何可变"};
  struct Case {
    const char* pName;
    std::function<void(CHostModel&)> fill;
    bool bFree, bUnstable;  ///< messages allowed: round-off decides whether K factorises
  };
  const Case cases[] = {
      {"free tower", [](CHostModel& h) { FillSquareTower(h, 2), std::fill_n(ABCD.m_nRestraint + 1, 4, 0); }, true,
       true},
      {"no lateral support", [](CHostModel& h) { FillOneBar(h), ABCD.m_nRestraint[2] = 0; }, false, true},
      // k = E A / L = 1.03e-4 N/m and the mass of 100 kN: T > 6283 s
      {"nearly free", [](CHostModel& h) { FillOneBar(h), SECT.m_fArea[1] = 1e-9F; }, true, false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.pName);
    CModalRun run;
    c.fill(run.host);
    run.model.m_nLoadCaseFlag[0] = 1;
    run.Solve(1, 0, true);
    const auto messages = run.platform.GetMessages();
    EXPECT_TRUE((c.bFree && messages == free) || (c.bUnstable && messages == unstable));
    EXPECT_EQ(run.model.m_modalFindings.status, RunStatus::Failed);
    EXPECT_EQ(run.model.m_modalFindings.conditioning.dLostDigits > 12.0, c.bUnstable);
    EXPECT_FALSE(run.job.Has(".mode"));
    EXPECT_EQ(run.model.ModesSolved, 0);
  }
}

}  // namespace
}  // namespace skyframe::test
