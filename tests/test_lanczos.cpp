// Tridiagonal QL, the Lanczos recurrence on pencils of its own, root-loss tests, and modes of models.

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <numeric>
#include <random>

#include "HostModel.h"
#include "ModalModels.h"
#include "TestPlatform.h"
#include "skyframe/modal/LanczosSolver.h"
#include "skyframe/modal/ModalReport.h"
#include "skyframe/modal/RootLossTest.h"

namespace skyframe::test {
namespace {

using std::numbers::pi;
using Vector = std::vector<double>;

// ---- tridiagonal QL ----

TEST(TridiagonalQl, LaplacianHasItsClosedForm) {
  // tridiag(-1, 2, -1): theta_k = 2 - 2 cos(k pi / (n + 1)), s_k(j) ~ sin(j k pi / (n + 1))
  for (const int n : {1, 2, 3, 10, 101, 400}) {
    SCOPED_TRACE(n);
    const Vector d(n, 2.0), e(n - 1, -1.0);
    const TridiagonalEigen eigen = SolveTridiagonal(d, e, 1e-16);
    ASSERT_TRUE(eigen.bConverged);
    for (int i = 0; i < n; ++i) {
      const int k = n - i;  // descending
      EXPECT_NEAR(eigen.values[i], 2.0 - 2.0 * std::cos(k * pi / (n + 1)), 1e-13 * n);
      const double dScale = std::sqrt(2.0 / (n + 1));
      const double dSign = eigen.GetVector(0, i) < 0.0 ? -1.0 : 1.0;
      for (int j = 0; j < n; ++j) {
        EXPECT_NEAR(dSign * eigen.GetVector(j, i), dScale * std::sin((j + 1) * k * pi / (n + 1)), 1e-11);
      }
    }
  }
}

TEST(TridiagonalQl, SortsByMagnitudeAndSplits) {
  // Two uncoupled blocks: {-5} and [[1, 2], [2, 1]] with roots 3 and -1.
  const TridiagonalEigen eigen = SolveTridiagonal(Vector{-5, 1, 1}, Vector{0, 2}, 1e-16);
  const Vector expected = {-5, 3, -1};
  for (int i = 0; i < 3; ++i) EXPECT_NEAR(eigen.values[i], expected[i], 1e-14);
  EXPECT_NEAR(std::abs(eigen.GetVector(0, 0)), 1.0, 1e-15);
}

TEST(TridiagonalQl, ToleranceDecidesWhatIsNegligible) {
  // |e| = 0.01 against t = |d| + |e| = 1.01
  EXPECT_EQ(SolveTridiagonal(Vector{1, 2}, Vector{0.01}, 0.01).values, (Vector{2, 1}));
  EXPECT_NEAR(SolveTridiagonal(Vector{1, 2}, Vector{0.01}, 0.0098).values[0], 1.5 + std::hypot(0.5, 0.01), 1e-15);
}

TEST(TridiagonalQl, ComesBackFromNanAndFromAnUnreachableTolerance) {
  EXPECT_FALSE(SolveTridiagonal(Vector{1, std::nan(""), 2}, Vector{1, 1}, 1e-16).bConverged);
  const TridiagonalEigen eigen = SolveTridiagonal(Vector(30, 2.0), Vector(29, -1.0), 1e-300);
  EXPECT_NEAR(eigen.values[0], 2.0 + 2.0 * std::cos(pi / 31), 1e-13);
}

// ---- Lanczos on dense pencils ----

/// Pencil with K = I and M = V D V^T: theta are the D, multiplicities as wanted. V is a product of
/// two reflections, so everything is known exactly.
class CKnownPencil {
 public:
  CKnownPencil(Vector theta, bool bRotate) : m_theta(std::move(theta)), m_bRotate(bRotate) {}
  [[nodiscard]] int GetOrder() const { return static_cast<int>(m_theta.size()); }

  Vector MultiplyM(std::span<const double> x) const {
    Vector y(x.begin(), x.end());
    Reflect(y, 1.0);
    Reflect(y, 0.3);
    for (std::size_t i = 0; i < y.size(); ++i) y[i] *= m_theta[i];
    Reflect(y, 0.3);
    Reflect(y, 1.0);
    return y;
  }

  CLanczosSolver MakeSolver() const {
    return CLanczosSolver(
        GetOrder(),
        [](std::span<const double> b, std::span<double> y) {
          std::copy(b.begin(), b.end(), y.begin());
          return true;
        },
        [this](std::span<const double> x, std::span<double> y) {
          const Vector product = MultiplyM(x);
          std::copy(product.begin(), product.end(), y.begin());
        });
  }

 private:
  /// y <- (I - 2 v v^T) y, v_i ~ cos(a i)
  void Reflect(Vector& y, double a) const {
    if (!m_bRotate) return;
    double vv = 0.0, vy = 0.0;
    for (std::size_t i = 0; i < y.size(); ++i) {
      vv += std::pow(std::cos(a * i), 2);
      vy += std::cos(a * i) * y[i];
    }
    for (std::size_t i = 0; i < y.size(); ++i) y[i] -= 2.0 * vy / vv * std::cos(a * i);
  }

  Vector m_theta;
  bool m_bRotate;
};

/// Worst |Q^T M Q - I|.
double FormBasisError(const CLanczosSolver& solver, const CKnownPencil& pencil) {
  double dWorst = 0.0;
  for (int i = 0; i < solver.GetSize(); ++i) {
    const Vector Mq = pencil.MultiplyM(solver.GetBasis().GetColumn(i));
    for (int j = 0; j < solver.GetSize(); ++j) {
      const auto q = solver.GetBasis().GetColumn(j);
      dWorst = std::max(dWorst, std::abs(std::inner_product(q.begin(), q.end(), Mq.begin(), i == j ? -1.0 : 0.0)));
    }
  }
  return dWorst;
}

struct PencilCase {
  const char* pName;
  Vector theta;       ///< descending
  Vector x0;          ///< empty: random
  int nSize;          ///< columns asked for
  int nExpectedSize;  ///< columns there are
};

Vector Spread(int n, double dRatio) {
  Vector theta;
  for (int i = 0; i < n; ++i) theta.push_back(std::pow(dRatio, i));
  return theta;
}

Vector Unit(int n, int k) {
  Vector x(n, 0.0);
  x[k] = 1.0;
  return x;
}

TEST(Lanczos, FindsAllRootsOfKnownPencils) {
  const PencilCase cases[] = {
      {"distinct", Spread(37, 0.8), {}, 37, 37},
      {"pairs: the recurrence breaks down at the half", {9, 9, 7, 7, 5, 5, 3, 3, 1, 1}, {}, 10, 10},
      {"one root six times", {4, 4, 4, 4, 4, 4, 1}, {}, 7, 7},
      {"unit matrix: breakdown at every step", Vector(5, 2.0), {}, 5, 5},
      {"start vector is an eigenvector", Spread(8, 0.5), Unit(8, 3), 8, 8},
      {"start vector spans two directions", Spread(8, 0.5), {1, 0, 0, 1, 0, 0, 0, 0}, 8, 8},
      {"zero start vector", Spread(6, 0.5), Vector(6, 0.0), 6, 6},
      {"start vector without mass", {3, 2, 1, 0, 0}, Unit(5, 4), 3, 3},
      {"three masses among seven: nothing is left after three", {5, 4, 3, 0, 0, 0, 0}, {}, 7, 3},
      {"order one", {2}, {}, 1, 1},
      {"over twenty orders of magnitude: one sweep would not do", Spread(40, 0.3), Vector(40, 1.0), 40, 40},
  };
  for (const bool bRotate : {false, true}) {
    for (const PencilCase& c : cases) {
      if (bRotate && !c.x0.empty()) continue;  // those vectors are special in the unrotated pencil
      SCOPED_TRACE(c.pName);
      const CKnownPencil pencil(c.theta, bRotate);
      CLanczosSolver solver = pencil.MakeSolver();
      solver.Start(c.x0.empty() ? solver.MakeRandomVector() : c.x0);
      ASSERT_TRUE(solver.Extend(c.nSize));
      ASSERT_EQ(solver.GetSize(), c.nExpectedSize);
      EXPECT_LT(FormBasisError(solver, pencil), 1e-9);
      solver.SolveRitz(1e-16);
      for (int i = 0; i < c.nExpectedSize; ++i) EXPECT_NEAR(solver.GetRitzValues()[i], c.theta[i], 1e-11);
    }
  }
}

TEST(Lanczos, ContinuesWhereItStopped) {
  const CKnownPencil pencil(Spread(60, 0.9), true);
  CLanczosSolver once = pencil.MakeSolver(), inTwo = pencil.MakeSolver();
  once.Start(Vector(60, 1.0));
  inTwo.Start(Vector(60, 1.0));
  ASSERT_TRUE(once.Extend(25));
  ASSERT_TRUE(inTwo.Extend(11));
  inTwo.SolveRitz(1e-16);
  ASSERT_TRUE(inTwo.Extend(25));
  EXPECT_TRUE(std::ranges::equal(once.GetDiagonal(), inTwo.GetDiagonal()));
  EXPECT_TRUE(std::ranges::equal(once.GetOffDiagonal(), inTwo.GetOffDiagonal()));
}

TEST(Lanczos, ResidualNormIsThatOfTheRitzVector) {
  // K = I: |M phi - theta phi| in the M-norm
  const CKnownPencil pencil(Spread(40, 0.9), true);
  CLanczosSolver solver = pencil.MakeSolver();
  solver.Start(Vector(40, 1.0));
  ASSERT_TRUE(solver.Extend(14));
  solver.SolveRitz(1e-16);
  const CMatrix Phi = solver.FormRitzVectors(8);
  for (int i = 0; i < 8; ++i) {
    Vector phi(40);
    for (int k = 0; k < 40; ++k) phi[k] = Phi[k][i];
    Vector r = pencil.MultiplyM(phi);
    for (int k = 0; k < 40; ++k) r[k] -= solver.GetRitzValues()[i] * phi[k];
    const Vector Mr = pencil.MultiplyM(r);
    EXPECT_NEAR(solver.GetResidualNorm(i), std::sqrt(std::inner_product(r.begin(), r.end(), Mr.begin(), 0.0)), 1e-13);
  }
}

TEST(Lanczos, StopsWhenTheSolveFails) {
  int nSolves = 0;
  CLanczosSolver solver(
      3, [&](std::span<const double>, std::span<double>) { return ++nSolves < 2; },
      [](std::span<const double> x, std::span<double> y) { std::copy(x.begin(), x.end(), y.begin()); });
  solver.Start({1, 2, 3});
  EXPECT_FALSE(solver.Extend(3));
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

struct SturmCase {
  const char* pName;
  int nModes;
  std::vector<int> counts;  ///< answers in order; -1: factorisation fails
  RootCheck expected;
  std::vector<int> asked;  ///< mode (1-based) whose frequency each question is about
};

TEST(RootLoss, SturmCountsBelowTheLastTwo) {
  const SturmCase cases[] = {
      {"none lost", 4, {3, 2}, RootCheck::Accept, {4, 3}},
      {"fewer below are welcome", 4, {2, 2}, RootCheck::Accept, {4, 3}},
      {"lost below the highest", 4, {4}, RootCheck::Enlarge, {4}},
      {"lost below the last but one", 4, {3, 3}, RootCheck::Enlarge, {4, 3}},
      {"one mode needs one count", 1, {0}, RootCheck::Accept, {1}},
      {"one mode, lost", 1, {1}, RootCheck::Enlarge, {1}},
      {"factorisation fails", 4, {-1}, RootCheck::Failed, {4}},
      {"second factorisation fails", 4, {3, -1}, RootCheck::Failed, {4, 3}},
  };
  for (const SturmCase& c : cases) {
    SCOPED_TRACE(c.pName);
    Vector theta;
    for (int i = 1; i <= c.nModes; ++i) theta.push_back(1.0 / (100.0 * i * i));
    std::size_t nAsked = 0;
    CSturmTest test([&](double dOmega2) -> std::optional<int> {
      const int nMode = c.asked.at(nAsked);
      EXPECT_NEAR(dOmega2, 0.9998 * 100.0 * nMode * nMode, 1e-9);
      const int nCount = c.counts.at(nAsked++);
      return nCount < 0 ? std::nullopt : std::optional(nCount);
    });
    EXPECT_EQ(test.Check(theta), c.expected);
    EXPECT_EQ(nAsked, c.counts.size());
  }
}

TEST(RootLoss, SturmAsksAboutTheHighestOnlyUntilItPassed) {
  std::vector<double> asked;
  int nCount = 1;  // n - 1 of the first question, one too many for the second
  CSturmTest test([&](double dOmega2) {
    asked.push_back(dOmega2 / 0.9998);
    return std::optional(nCount);
  });
  const Vector theta = {1.0, 0.25};
  EXPECT_EQ(test.Check(theta), RootCheck::Enlarge);
  nCount = 0;
  EXPECT_EQ(test.Check(theta), RootCheck::Accept);
  ASSERT_EQ(asked.size(), 3U);
  EXPECT_NEAR(asked[2], 1.0, 1e-12);  // Deliberate: the first question is not repeated
}

TEST(RootLoss, CountsNegativePivots) {
  // tridiag(-1, 2, -1), n = 3: roots 0.586, 2, 3.414
  const int diag[] = {0, 2, 4};
  SparseMatrix K, M;
  K.SetProfile(3, diag);
  K.Fill(0.0);
  for (int i = 0; i < 3; ++i) K(i, i) = 2.0;
  K(0, 1) = K(1, 2) = -1.0;
  M = K;
  M *= 0.0;
  for (int i = 0; i < 3; ++i) M(i, i) = 1.0;
  M.TrimProfile(3);  // the shifted matrix needs the full columns all the same
  const std::pair<double, int> cases[] = {{0.5, 0}, {1.1, 1}, {2.9, 2}, {4.0, 3}};
  CTestPlatform platform;
  for (const auto& [dShift, nExpected] : cases) EXPECT_EQ(CSturmCount(K, M, 3)(dShift), nExpected) << dShift;
  EXPECT_EQ(CSturmCount(K, M, 2)(1.5), 1);  // the leading 2 x 2 has roots 1 and 3
  EXPECT_TRUE(platform.GetMessages().empty());
  EXPECT_EQ(CSturmCount(K, M, 3)(2.0), std::nullopt);
  EXPECT_EQ(platform.GetMessages(), std::vector<std::string>{"结构几何可变"});
}

TEST(RootLoss, EnlargementRule) {
  struct Case {
    int m, n, neq, nFirst, nMultiple;
    std::optional<int> expected;
  };
  const Case cases[] = {
      {23, 10, 100, 23, 6, 32},            // (10 + 8) / 2 = 9
      {14, 1, 100, 14, 6, 18},             // (1 + 8) / 2 = 4
      {95, 10, 100, 23, 1, 100},           // cut back to neq: the multiple does not matter
      {91, 10, 100, 23, 3, std::nullopt},  // reaches neq exactly, 100 > 69
      {91, 10, 100, 23, 5, 100},
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

struct CModalRun {
  CTestPlatform platform;
  CHostModel host;
  CJobFolder folder{"lanczos"};
  CAnalysisModel model;

  void Solve(int nModes, int nRootCheck = 0, bool bUseLoadMass = false) {
    model.BuildModelForModes(bUseLoadMass);
    model.m_nModes = nModes;
    model.m_nRootCheck = nRootCheck;
    model.SolveModes(folder.GetJobPath(), 0, bUseLoadMass);
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
      {-1, 0.0, 0, "请正确输入模态数!"},
      {2, 0.0, 0, "请正确输入迭代精度!"},
      {2, -1e-9, 1, "请正确输入迭代精度!"},
      {2, std::nan(""), 1, "请正确输入迭代精度!"},
      {2, 1e-16, 0, "请正确输入迭代倍数!"},
      {2, 1e-16, -3, "请正确输入迭代倍数!"},
  };
  for (const Case& c : cases) {
    CModalRun run;
    FillCantilever(run.host, 8);
    run.folder.Write(".mode", "older");
    run.model.m_dModeTol = c.dTol;
    run.model.m_nIterMultiple = c.nMultiple;
    run.Solve(c.nModes);
    EXPECT_EQ(run.platform.GetMessages(), std::vector<std::string>{c.pMessage});
    EXPECT_EQ(run.folder.Read(".mode"), "older");
    EXPECT_EQ(run.folder.List().size(), 1U);
    EXPECT_EQ(run.model.ModesSolved, 0);
  }
}

TEST(ModalSolution, ModelThatWasNotBuiltIsLeftAlone) {
  CModalRun run;
  run.model.SolveModes(run.folder.GetJobPath(), 0, false);
  EXPECT_TRUE(run.platform.GetMessages().empty());
  EXPECT_TRUE(run.folder.List().empty());
}

TEST(ModalSolution, CantileverHasItsClosedForm) {
  // Euler-Bernoulli 7.987, 50.05, 140.2 Hz; consistent mass with rotary inertia and 8 elements: slightly less.
  for (const int n : {1, 2, 6, 48}) {
    SCOPED_TRACE(n);
    CModalRun run;
    FillCantilever(run.host, 8);
    run.Solve(n);
    EXPECT_TRUE(run.platform.GetMessages().empty());
    EXPECT_EQ(run.platform->GetWaitCursorDepth(), 0);
    ASSERT_EQ(run.model.Omega.size(), static_cast<std::size_t>(n));
    EXPECT_EQ(run.model.ModeShapes.GetCols(), n);
    EXPECT_EQ(run.model.ModesSolved, 1);
    const double c_dHertz[] = {7.985, 7.985, 49.96, 49.96, 139.6, 139.6};
    for (int i = 0; i < std::min(n, 6); ++i) {
      EXPECT_NEAR(run.model.Omega[i] / (2 * pi), c_dHertz[i], 5e-4 * c_dHertz[i]);
    }
    EXPECT_TRUE(std::ranges::is_sorted(run.model.Omega));
    const ModeErrors errors = FormModeErrors(run.model, false);
    EXPECT_LT(errors.dResidual, 1e-6);
    EXPECT_LT(errors.dOrthogonality, 1e-9);
  }
}

TEST(ModalSolution, EffectiveMassesOfTheCantilever) {
  CModalRun run;
  FillCantilever(run.host, 24);
  run.Solve(144);
  const auto masses = ComputeEffectiveMasses(run.model, false);
  ASSERT_TRUE(masses);
  const double dWhole = c_dSteelDensity * 0.01 * 4.0;
  const double c_dShare[] = {0.6131, 0.1883, 0.0647};
  for (const int d : {1, 2}) {
    for (int k = 0; k < 3; ++k) {
      const double dPair = masses->modes[2 * k][d] + masses->modes[2 * k + 1][d];
      EXPECT_NEAR(dPair / dWhole, c_dShare[k], 0.01 * c_dShare[k]);  // slender, fine mesh
    }
  }
  for (int d = 0; d < 3; ++d) {  // all modes together carry all free mass
    double dSum = 0.0;
    for (const auto& mode : masses->modes) dSum += mode[d];
    EXPECT_NEAR(dSum, masses->total[d], 1e-9 * masses->total[d]);
    EXPECT_GT(masses->total[d], 0.9 * dWhole);
    EXPECT_LT(masses->total[d], dWhole);
  }
}

TEST(ModalSolution, SturmFindsTheRepeatedPairsOfASquareTower) {
  struct Case {
    int nStoreys, nModes, nRootCheck;
  };
  // F = 24 per storey: below and above 1000 equations, where the first radio button changes its meaning.
  for (const Case& c : {Case{6, 8, 0}, Case{6, 9, 1}, Case{20, 12, 0}, Case{45, 12, 1}, Case{45, 12, 0}}) {
    SCOPED_TRACE(testing::Message() << c.nStoreys << " storeys, radio " << c.nRootCheck);
    CModalRun run;
    FillSquareTower(run.host, c.nStoreys);
    run.Solve(c.nModes, c.nRootCheck);
    ASSERT_EQ(run.model.Omega.size(), static_cast<std::size_t>(c.nModes));
    EXPECT_EQ(CountMissedModes(run.model, false), 0);
    const auto& w = run.model.Omega;
    EXPECT_NEAR(w[0], w[1], 1e-9 * w[0]);  // the sway pair
    EXPECT_GT(w[2], 1.01 * w[1]);          // then torsion alone
    const ModeErrors errors = FormModeErrors(run.model, false);
    EXPECT_LT(errors.dResidual, 1e-6);
    EXPECT_LT(errors.dOrthogonality, 1e-9);
  }
}

TEST(ModalSolution, CountsModesBelowAFrequency) {
  CModalRun run;
  FillSquareTower(run.host, 3);
  run.Solve(72);
  const auto& w = run.model.Omega;
  for (const int k : {1, 5, 20, 71}) {
    if (w[k] - w[k - 1] < 1e-6 * w[k]) continue;
    EXPECT_EQ(CountModesBelow(run.model, 0.5 * (w[k - 1] + w[k]), false), k);
  }
  // A model that lost one of its pairs is found out.
  run.model.Omega = {w[0], w[2], w[3], w[6]};
  EXPECT_EQ(CountMissedModes(run.model, false), 3);
}

TEST(ModalSolution, RadioAndSizeChooseTheTestAndTheSubspaceIsBounded) {
  // With multiple 1 no second pass is allowed. The Sturm test needs none for one mode, the comparison always does.
  struct Case {
    int nStoreys, nRootCheck;
    bool bSolved;
  };
  // Deliberate: the second radio button, 1, means Sturm; the first one does so for small models only.
  for (const Case& c : {Case{20, 0, true}, Case{20, 1, true}, Case{45, 0, false}, Case{45, 1, true}}) {
    SCOPED_TRACE(testing::Message() << c.nStoreys << " storeys, radio " << c.nRootCheck);
    CModalRun run;
    FillSquareTower(run.host, c.nStoreys);
    run.folder.Write(".mode", "older");
    run.model.m_nIterMultiple = 1;
    run.Solve(1, c.nRootCheck);
    const std::vector<std::string> refused = {"达到迭代要求次数，结果不收敛"};
    EXPECT_EQ(run.platform.GetMessages(), c.bSolved ? std::vector<std::string>{} : refused);
    EXPECT_EQ(run.folder.Read(".mode") == "older", !c.bSolved);
    EXPECT_EQ(run.model.ModesSolved, c.bSolved ? 1 : 0);
    EXPECT_EQ(run.platform->GetWaitCursorDepth(), 0);
  }
}

TEST(ModalSolution, FreeStructuresAreRefused) {
  struct Case {
    const char* pName;
    std::function<void(CHostModel&)> fill;
    std::vector<std::string> allowed;  ///< round-off decides whether K factorises
  };
  const Case cases[] = {
      {"free beam",
       [](CHostModel& h) {
         FillCantilever(h, 3);
         ABCD.m_nRestraint[1] = 0;
       },
       {"结构存在平动，请约束", "结构几何可变"}},
      {"free tower",
       [](CHostModel& h) {
         FillSquareTower(h, 2);
         for (int i = 1; i <= 4; ++i) ABCD.m_nRestraint[i] = 0;
       },
       {"结构存在平动，请约束", "结构几何可变"}},
      {"bar without lateral support",
       [](CHostModel& h) {
         h.SetSection(1, 2, 10000);
         h.AddNode(0, 0, 0, c_nPinned, "111000");
         h.AddNode(2, 0, 0, c_nPinned);
         h.AddElement(c_nBar, 1, 2);
       },
       {"结构几何可变"}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.pName);
    CModalRun run;
    c.fill(run.host);
    run.Solve(2);
    ASSERT_EQ(run.platform.GetMessages().size(), 1U);
    EXPECT_TRUE(std::ranges::count(c.allowed, run.platform.GetMessages()[0])) << run.platform.GetMessages()[0];
    EXPECT_FALSE(run.folder.Has(".mode"));
    EXPECT_EQ(run.model.ModesSolved, 0);
  }
}

TEST(ModalSolution, NearlyFreeStructureIsToldByItsPeriod) {
  // A bar so soft that T > 6283 s: k = E A / L, m from the load. omega^2 = k / m < 1e-6.
  CModalRun run;
  FillOneBar(run.host);
  SECT.m_fArea[1] = 1e-9F;  // 1e-15 m2, k = 1.03e-4 N/m
  run.model.m_nLoadCaseFlag[0] = 1;
  run.Solve(1, 0, true);
  EXPECT_EQ(run.platform.GetMessages(), std::vector<std::string>{"结构存在平动，请约束"});
}

TEST(ModalSolution, LoadMassesCountAtFreeTranslations) {
  struct Case {
    double dLoad, dFactor;
    int nFlag;
    double dMass;  ///< kg at the bar's free end, beside its own 52.667
  };
  const Case cases[] = {{100.0, 1.0, 1, 10193.67991845056},
                        {100.0, 0.5, 1, 5096.83995922528},
                        {100.0, 1.0, 0, 0.0},
                        {-100.0, 1.0, 1, 0.0},
                        {-100.0, -1.0, 1, 10193.67991845056}};
  for (const Case& c : cases) {
    CModalRun run;
    FillOneBar(run.host);
    ABCD.m_fLoadValue[0] = static_cast<float>(c.dLoad);
    run.model.m_nLoadCaseFlag[0] = c.nFlag;
    run.model.m_dLoadFactor[0] = c.dFactor;
    run.Solve(1, 0, true);
    ASSERT_EQ(run.model.Omega.size(), 1U);
    const double dOmega = std::sqrt(1.03e9 / (c.dMass + c_dSteelDensity * 0.01 * 2.0 / 3.0));
    EXPECT_NEAR(run.model.Omega[0], dOmega, 1e-7 * dOmega);
  }
}

TEST(ModalSolution, ShearFlagSoftensAndRunsRepeatExactly) {
  const auto solve = [](int bShear) {
    CModalRun run;
    FillCantilever(run.host, 4);
    run.model.m_bShear = bShear;
    run.Solve(4);
    return run.model.Omega;
  };
  const Vector plain = solve(0), shear = solve(1);
  EXPECT_EQ(plain, solve(0));
  for (int i = 0; i < 4; ++i) EXPECT_LT(shear[i], plain[i]);
}

}  // namespace
}  // namespace skyframe::test
