#include "TestPlatform.h"
#include "skyframe/numeric/SkylineKernel.h"
#include "skyframe/numeric/SparseMatrix.h"
#include "skyframe/numeric/TallColumns.h"

namespace skyframe::test {
namespace {

using skyline::VectorUnit;

using Vector = std::vector<double>;

constexpr double c_dNan = std::numeric_limits<double>::quiet_NaN();
constexpr double c_dInfinity = std::numeric_limits<double>::infinity();
const char* const c_strUnstable = "结构几何可变";

std::size_t Index(int i) { return static_cast<std::size_t>(i); }

/// Symmetric matrix, upper triangle by columns: A(r, i) = values[diag[i] - (i - r)].
struct Skyline {
  std::vector<int> diag;
  std::vector<int> height;  ///< column heights in force; may be trimmed below those that diag gives
  Vector values;

  std::size_t At(int r, int i) const { return Index(diag[Index(i)] - (i - r)); }
  int Top(int i) const { return i - height[Index(i)] + 1; }
  int Order() const { return static_cast<int>(diag.size()); }
  double& operator()(int r, int i) { return values[At(r, i)]; }
  double operator()(int r, int i) const { return values[At(r, i)]; }
};

/// How a random profile looks.
struct ProfileShape {
  int nOrder = 1;
  int nMaxHeight = 1;
  int nNode = 1;             ///< columns that share their top; 1: every column for itself
  bool bIndefinite = false;  ///< diagonal entries of either sign
};

/// Diagonally dominant, hence well conditioned and safe without pivoting.
Skyline RandomSkyline(const ProfileShape& shape, std::mt19937& random) {
  Skyline A;
  std::uniform_int_distribution<int> height(1, std::max(shape.nMaxHeight, 1));
  std::uniform_real_distribution<double> entry(-1.0, 1.0);
  Vector rowSum(Index(shape.nOrder), 0.0);
  int nTop = 0, nDiagonal = -1;
  for (int i = 0; i < shape.nOrder; ++i) {
    if (i % shape.nNode == 0) nTop = std::max(0, i - height(random) + 1);
    A.height.push_back(i - nTop + 1);
    nDiagonal += A.height.back();
    A.diag.push_back(nDiagonal);
    for (int r = nTop; r <= i; ++r) {
      A.values.push_back(entry(random));
      rowSum[Index(r)] += std::abs(A.values.back());
      rowSum[Index(i)] += std::abs(A.values.back());
    }
  }
  for (int i = 0; i < shape.nOrder; ++i) {
    const double dSign = shape.bIndefinite && entry(random) < 0.0 ? -1.0 : 1.0;
    A(i, i) = dSign * (rowSum[Index(i)] + 1.0);
  }
  return A;
}

/// Full columns, values by position.
SparseMatrix MakeSparse(const std::vector<int>& diag, const Vector& values) {
  SparseMatrix S;
  const int n = static_cast<int>(diag.size());
  S.SetProfile(n, diag);
  S.Allocate();
  std::size_t k = 0;
  for (int i = 0; i < n; ++i) {
    for (int r = i - S.GetHeights()[Index(i)] + 1; r <= i; ++r) S(r, i) = values[k++];
  }
  return S;
}

SparseMatrix ToSparse(const Skyline& A) { return MakeSparse(A.diag, A.values); }

/// tridiag(-1, 2, -1).
SparseMatrix MakeSecondDifference(int n) {
  std::vector<int> diag;
  for (int i = 0; i < n; ++i) diag.push_back(2 * i);
  SparseMatrix S;
  S.SetProfile(n, diag);
  S.Fill(-1.0);
  for (int i = 0; i < n; ++i) S(i, i) = 2.0;
  return S;
}

Vector GetValues(const SparseMatrix& S) { return Vector(S.GetValues().begin(), S.GetValues().end()); }

/// The leading part of A, times x.
Vector Multiply(const Skyline& A, const Vector& x) {
  Vector y(x.size(), 0.0);
  for (int i = 0; Index(i) < x.size(); ++i) {
    for (int r = A.Top(i); r <= i; ++r) {
      y[Index(r)] += A(r, i) * x[Index(i)];
      if (r < i) y[Index(i)] += A(r, i) * x[Index(r)];
    }
  }
  return y;
}

Vector RandomVector(int n, std::mt19937& random) {
  std::uniform_real_distribution<double> entry(-1.0, 1.0);
  Vector x(Index(n));
  for (double& d : x) d = entry(random);
  return x;
}

double LargestDifference(const Vector& a, const Vector& b) {
  double dLargest = 0.0;
  for (std::size_t i = 0; i < a.size(); ++i) {
    const double d = std::abs(a[i] - b[i]);
    if (!(d <= dLargest)) dLargest = d;  // NaN shows
  }
  return dLargest;
}

// --- storage ----------------------------------------------------------------------------------

TEST(SparseMatrix, Accessor) {
  // Heights 1, 2. Only the smaller index is tested, and only for being greater than 2.
  const std::tuple<int, int, Strings> cases[] = {
      {0, 3, {}},
      {2, 2, {}},
      {2000000000, 0, {}},
      {3, 4, {"The row is out of range, while doing operator()"}},
      {4, 3, {"The col is out of range, while doing operator()"}},
      {3, 3, {"The col is out of range, while doing operator()"}},
  };
  SparseMatrix S = MakeSecondDifference(2);
  for (const auto& [nRow, nCol, messages] : cases) {
    CTestPlatform platform;
    S(nRow, nCol) = 5.0;
    EXPECT_EQ(platform.GetMessages(), messages) << nRow << ", " << nCol;
    EXPECT_EQ(S(nRow, nCol), 0.0);
    EXPECT_EQ(GetValues(S), (Vector{2, -1, 2}));
  }
  SparseMatrix high = MakeSparse({0, 2, 3, 6}, {1, 2, 3, 4, 5, 6, 7});
  EXPECT_EQ(high(1, 3), 5.0);
  EXPECT_EQ(&high(1, 3), &high(3, 1));
  high(0, 3) = 99.0;  // above the skyline: reads 0, swallows writes
  EXPECT_EQ(high(3, 0), 0.0);
  EXPECT_EQ(GetValues(high), (Vector{1, 2, 3, 4, 5, 6, 7}));
}

TEST(SparseMatrix, UnallocatedRefusals) {
  const char* const strSolve = "The element buffer of SparseMatrix has not been allocated, while ldlt solving";
  const char* const strMultiply = "The element buffer of SparseMatrix has not been allocated, while multiplying";
  const char* const strAdd = "The element buffer of SparseMatrix has not been allocated, while adding";
  Vector b(3, 1.0), d(3, 1.0);
  SparseMatrix full = MakeSecondDifference(3);
  const std::pair<std::function<void(SparseMatrix&)>, const char*> cases[] = {
      {[](SparseMatrix& S) { EXPECT_EQ(S(1, 1), 0.0); },
       "The element buffer of SparseMatrix has not been allocated, while while doing operator()"},
      {[](SparseMatrix& S) { S *= 2.0; }, strMultiply},
      {[](SparseMatrix& S) { EXPECT_EQ((S * CMatrix(3, 1, 1.0)).GetRows(), 16); }, strMultiply},
      {[&](SparseMatrix& S) { S += full; }, strAdd},
      {[&](SparseMatrix& S) { full += S; }, strAdd},
      {[](SparseMatrix& S) { S += S; }, strAdd},
      {[](SparseMatrix& S) { EXPECT_FALSE(S.Decompose(3)); }, strSolve},
      {[&](SparseMatrix& S) { EXPECT_FALSE(S.Solve(3, b)); }, strSolve},
      {[&](SparseMatrix& S) { EXPECT_FALSE(S.SolveKeepDiagonal(3, d, b)); }, strSolve},
      {[](SparseMatrix& S) { EXPECT_FALSE(S.SolveColumns(0, {}, 0)); }, strSolve},
  };
  for (const auto& [operation, strText] : cases) {
    CTestPlatform platform;
    SparseMatrix S;
    S.SetProfile(3, std::vector<int>{0, 2, 4});
    operation(S);
    EXPECT_EQ(platform.GetMessages(), Strings{strText});
    EXPECT_FALSE(S.IsAllocated());
  }
  EXPECT_EQ(full(0, 0), 2.0);
  EXPECT_EQ(b, Vector(3, 1.0));
}

TEST(SparseMatrix, ChangesEndTheFactorisation) {
  CTestPlatform platform;
  SparseMatrix S;
  const SparseMatrix other = MakeSecondDifference(3);
  const std::function<void()> changes[] = {[&] { S.Fill(1.0); }, [&] { S.Allocate(); }, [&] { S *= 2.0; },
                                           [&] { S += other; }, [&] { S = other; }};
  for (const auto& change : changes) {
    S = MakeSecondDifference(3);
    ASSERT_TRUE(S.Decompose(3));
    EXPECT_TRUE(S.IsFactorised());
    change();
    EXPECT_FALSE(S.IsFactorised());
    EXPECT_TRUE(S.IsAllocated());
  }
  S.Release();
  EXPECT_FALSE(S.IsAllocated());
}

TEST(SparseMatrix, Assignment) {
  SparseMatrix assigned = MakeSecondDifference(3);
  ASSERT_TRUE(assigned.Decompose(3));
  const SparseMatrix& alias = assigned;
  assigned = alias;
  EXPECT_TRUE(assigned.IsFactorised());
  // A profile of the same order and size is kept.
  SparseMatrix kept = MakeSparse({0, 1, 3}, {1, 2, 3, 4});
  const SparseMatrix other = MakeSparse({0, 2, 3}, {5, 6, 7, 8});
  kept = other;
  EXPECT_EQ(kept.GetDiagonal()[1], 1);
  EXPECT_EQ(GetValues(kept), (Vector{5, 6, 7, 8}));
}

// The leading block fills more than a large page, and begins at one.
TEST(SparseMatrix, LargeBlocksAreCopiedAndReplaced) {
  constexpr int n = 800, nLeading = 730;
  std::vector<int> diagonal(Index(n));
  for (int i = 1; i < n; ++i) diagonal[Index(i)] = diagonal[Index(i - 1)] + i + 1;
  SparseMatrix A;
  A.SetProfile(n, diagonal, nLeading);
  A.Fill(0.0);
  A(0, 0) = 2.0;
  A(3, n - 1) = 5.0;
  SparseMatrix B(A);
  A.SetProfile(2, diagonal);
  A.Fill(1.0);
  SparseMatrix C = A;
  A = B;
  B = C;
  EXPECT_EQ(A(0, 0), 2.0);
  EXPECT_EQ(A(3, n - 1), 5.0);
  EXPECT_EQ(A(4, n - 1), 0.0);
  EXPECT_EQ(B(1, 1), 1.0);
}

TEST(SparseMatrix, MemoryThatIsNotThereIsReported) {
  CTestPlatform platform;
  SparseMatrix S;
  S.SetProfile(2, std::vector<int>{0, -7});
  S.Fill(0.0);
  EXPECT_FALSE(S.IsAllocated());
  EXPECT_EQ(platform.GetMessages(), Strings{"内存不足，无法为稀疏矩阵分配存储空间"});
}

// --- sums and products ------------------------------------------------------------------------

TEST(SparseMatrix, ElementMatricesAreScattered) {
  // Equations in any order; the pair (0, 3) lies above the skyline of heights 1, 2, 3, 3.
  SparseMatrix S = MakeSparse({0, 2, 5, 8}, {1, 0, 0, 0, 0, 0, 0, 0, 0});
  CMatrix element(3, 3, 99.0);  // the upper half is not read
  constexpr double c_lower[3][3] = {{1}, {2, 4}, {3, 5, 6}};
  for (int i = 0; i < 3; ++i) std::copy(c_lower[i], c_lower[i] + i + 1, element[i]);
  S.AddElement(element, std::vector<int>{3, 0, 2});
  EXPECT_EQ(GetValues(S), (Vector{5, 0, 0, 5, 0, 6, 0, 3, 1}));
}

TEST(SparseMatrix, ScalingSkipsZeros) {
  SparseMatrix S = MakeSparse({0, 2}, {1, 0, 2});
  S *= 3.0;
  EXPECT_EQ(GetValues(S), (Vector{3, 0, 6}));
  S *= c_dNan;
  EXPECT_EQ(S(0, 1), 0.0);
}

TEST(SparseMatrix, AdditionTakesTheCommonPartOfTheProfiles) {
  const SparseMatrix wide = MakeSparse({0, 2, 5}, {1, 2, 3, 4, 5, 6}), narrow = MakeSparse({0, 1, 3}, {10, 20, 30, 40});
  const SparseMatrix small = MakeSparse({0, 2}, {1, 1, 1});
  const std::tuple<SparseMatrix, SparseMatrix, Vector> cases[] = {{wide, narrow, {11, 2, 23, 4, 35, 46}},
                                                                  {narrow, wide, {11, 23, 35, 46}},
                                                                  {wide, small, {2, 3, 4, 4, 5, 6}},
                                                                  {small, wide, {2, 3, 4}}};
  for (auto [S, added, expected] : cases) {
    S += added;
    EXPECT_EQ(GetValues(S), expected);
  }
}

TEST(SparseMatrix, ProductsAgreeWithPlainSums) {
  CTestPlatform platform;
  std::mt19937 random(11);
  for (int n = 1; n <= 60; ++n) {
    Skyline A = RandomSkyline({n, 1 + n / 2, n % 3 + 1, true}, random);
    for (std::size_t k = 0; k < A.values.size(); k += 3) A.values[k] = 0.0;
    SparseMatrix S = ToSparse(A);
    const int m = n % 2 == 0 ? n : 1 + n / 2;
    const Vector x = RandomVector(m, random), expected = Multiply(A, x);
    Vector rows(Index(m));
    S.TrimProfile(m);
    S.BuildRows(m);
    S.MultiplyRows(x, rows);
    CMatrix column(m, 1), row(1, m);
    std::copy(x.begin(), x.end(), column[0]);
    std::copy(x.begin(), x.end(), row[0]);
    const CMatrix y = S * column, z = S * row;
    EXPECT_LE(LargestDifference(rows, expected), 1e-15 * n * n);
    EXPECT_LE(LargestDifference(Vector(y[0], y[0] + m), expected), 1e-15 * n * n);
    EXPECT_LE(LargestDifference(Vector(z[0], z[0] + m), expected), 1e-15 * n * n);
  }
  const SparseMatrix S = MakeSecondDifference(3);
  EXPECT_EQ((S * CMatrix(5, 1, 1.0))[4][0], 0.0);  // what the matrix does not reach is zero
  EXPECT_TRUE(platform.GetMessages().empty());
  EXPECT_EQ((S * CMatrix(2, 2, 1.0)).GetCols(), 16);
  EXPECT_EQ(platform.GetMessages(), Strings{"Vector Definition Error!"});
}

// --- factorisation and solution ---------------------------------------------------------------

TEST(SparseMatrix, PivotTest) {
  const std::pair<double, bool> cases[] = {{1e-15, false},  {-1e-15, false},      {0.0, false},
                                           {c_dNan, false}, {c_dInfinity, false}, {2e-15, true},
                                           {-2e-15, true},  {-3.0, true},         {4.0, true}};
  for (const auto& [dPivot, bAccepted] : cases) {
    SCOPED_TRACE(dPivot);
    CTestPlatform platform;
    SparseMatrix S = MakeSparse({0}, {dPivot}), kept(S), decomposed(S), columns(S);
    Vector b{dPivot * 2.0}, x = b, B(2, b[0]), d(1);
    EXPECT_EQ(S.Solve(1, b), bAccepted);
    EXPECT_EQ(kept.SolveKeepDiagonal(1, d, x), bAccepted);
    EXPECT_EQ(decomposed.Decompose(1), bAccepted);
    EXPECT_EQ(columns.SolveColumns(1, B, 2), bAccepted);
    EXPECT_EQ(S.IsFactorised(), bAccepted);
    EXPECT_EQ(platform.GetMessages(), bAccepted ? Strings{} : Strings(4, c_strUnstable));
    if (!bAccepted) continue;
    EXPECT_EQ((Vector{b[0], x[0], B[0], B[1]}), Vector(4, 2.0));
  }
}

TEST(SparseMatrix, RefusalComesAfterAllColumnsAndLostDigitsAreThoseOfTheWorstEquation) {
  CTestPlatform platform;
  // The pivot of equation 1 vanishes; column 2 does not touch it and is reduced all the same.
  SparseMatrix S = MakeSparse({0, 2, 5}, {2, 2, 2, 1, 1, 3});
  EXPECT_FALSE(S.Decompose(3));
  EXPECT_FALSE(S.IsFactorised());
  EXPECT_EQ(S(0, 1), 1.0);
  EXPECT_EQ(S(1, 1), 0.0);
  EXPECT_EQ(S(0, 2), 0.5);
  EXPECT_EQ(S.GetLostDigits().nEquation, 1);
  EXPECT_EQ(S.GetLostDigits().dDigits, c_dInfinity);
  SparseMatrix weak = MakeSparse({0, 2, 3}, {1, 1, 1.001, 7});  // D = 1, 0.001, 7
  EXPECT_TRUE(weak.Decompose(3));
  EXPECT_EQ(weak.GetLostDigits().nEquation, 1);
  EXPECT_NEAR(weak.GetLostDigits().dDigits, std::log10(1001.0), 1e-12);
}

TEST(SparseMatrix, NotANumberAndInfinityAreRefusedWhereverTheyStand) {
  std::mt19937 random(5);
  const Skyline A = RandomSkyline({230, 120, 1, false}, random);
  for (std::size_t k = 0; k < A.values.size(); k += 331) {
    CTestPlatform platform;
    Skyline B = A;
    B.values[k] = std::vector{c_dNan, c_dInfinity, -c_dInfinity}[k % 3];
    EXPECT_FALSE(ToSparse(B).Decompose(230)) << B.values[k] << " at " << k;
    EXPECT_EQ(platform.GetMessages(), Strings{c_strUnstable});
  }
}

TEST(SparseMatrix, OrderZeroWorks) {
  CTestPlatform platform;
  SparseMatrix none, some = MakeSecondDifference(2);
  none.SetProfile(0, {});
  none.Fill(0.0);
  none.TrimProfile(0);
  none.BuildRows(0);
  none += some;
  EXPECT_TRUE(none.Decompose(0));
  EXPECT_TRUE(none.Solve(0, {}));
  EXPECT_TRUE(some.Solve(0, {}));
  EXPECT_EQ((none * CMatrix(0, 1)).GetRows(), 0);
  EXPECT_TRUE(platform.GetMessages().empty());
}

TEST(SparseMatrix, SolutionsSatisfyTheEquations) {
  CTestPlatform platform;
  std::mt19937 random(17);
  for (int n = 1; n <= 120; ++n) {
    const Skyline A = RandomSkyline({n, n, n % 2 == 0 ? 6 : 1, n % 3 == 0}, random);
    const int m = n % 4 == 0 ? 1 + n / 2 : n;
    const Vector b = RandomVector(m, random);
    SparseMatrix S = ToSparse(A), apart = S;
    if (n % 5 == 0) S.TrimProfile(n);
    Vector x = b, y = b, again = b, d(Index(m), c_dNan);
    ASSERT_TRUE(S.Solve(m, x));
    EXPECT_LE(LargestDifference(Multiply(A, x), b), 1e-12);
    // A second solution uses the factors; factorising them once more would give another one.
    ASSERT_TRUE(S.Solve(m, again));
    EXPECT_EQ(again, x);
    // D apart; once factorised it is the caller's copy, used and not touched.
    ASSERT_TRUE(apart.SolveKeepDiagonal(m, d, y));
    EXPECT_LE(LargestDifference(y, x), 1e-12);
    for (int i = 0; i < m; ++i) EXPECT_EQ(apart(i, i), A(i, i));
    for (double& dPivot : d) dPivot *= 0.5;
    const Vector halved = d;
    ASSERT_TRUE(apart.SolveKeepDiagonal(m, d, again = b));
    EXPECT_EQ(d, halved);
    for (double& dEntry : again) dEntry *= 0.5;
    EXPECT_EQ(again, y);
  }
}

// --- the kernels

/// Trims leading zeros that it puts there, so that heights and addresses differ.
void TrimAtRandom(Skyline& A, std::mt19937& random) {
  for (int i = 1; i < A.Order(); i += 2) {
    const int nCut = static_cast<int>(random() % static_cast<unsigned>(A.height[Index(i)]));
    for (int q = 0; q < nCut; ++q) A(A.Top(i) + q, i) = 0.0;
    A.height[Index(i)] -= nCut;
  }
}

/// Factorises and solves the leading n equations; the residuals judge.
void ExpectSolved(const Skyline& A, int n, VectorUnit unit, std::mt19937& random) {
  Skyline factors = A;
  const int nColumns = 1 + static_cast<int>(random() % 20);  // full panels, and one that is not
  Vector d(Index(n)), B = RandomVector(n * nColumns, random), X = B, x(B.begin(), B.begin() + n);
  const skyline::Profile profile{std::span<const int>(A.diag).first(Index(n)),
                                 std::span<const int>(A.height).first(Index(n))};
  skyline::FactoriseLdlt(profile, factors.values.data(), d, unit);
  skyline::ForwardReduce(profile, factors.values.data(), x, unit);
  for (int i = 0; i < n; ++i) x[Index(i)] /= d[Index(i)];
  skyline::BackSubstitute(profile, factors.values.data(), x, unit);
  skyline::SolveColumns(profile, factors.values.data(), d, X, nColumns, unit);
  ASSERT_LE(LargestDifference(x, X), 1e-13);
  for (auto b = B.begin(), y = X.begin(); b != B.end(); b += n, y += n)
    ASSERT_LE(LargestDifference(Multiply(A, Vector(y, y + n)), Vector(b, b + n)), 1e-11);
  // What lies beyond n or above the heights in force does not change, nor does the diagonal.
  for (int i = 0, nFirst = 0; i < A.Order(); nFirst = A.diag[Index(i++)] + 1) {
    const int nEnd = A.diag[Index(i)] + 1 - (i < n ? A.height[Index(i)] : 0);
    ASSERT_TRUE(std::equal(A.values.begin() + nFirst, A.values.begin() + nEnd, factors.values.begin() + nFirst));
    ASSERT_EQ(factors(i, i), A(i, i));
  }
}

class SkylineKernel : public testing::TestWithParam<VectorUnit> {};

TEST_P(SkylineKernel, SolvesRandomProfiles) {
  if (!skyline::IsAvailable(GetParam())) GTEST_SKIP() << "not on this processor";
  std::mt19937 random(29);
  constexpr int nNodes[] = {1, 3, 6};
  for (int nCase = 0; nCase < 600; ++nCase) {
    const int n = 1 + static_cast<int>(random() % (nCase % 25 == 0 ? 420U : 130U));
    const int nHeight = 1 + static_cast<int>(random() % static_cast<unsigned>(n + 20));
    Skyline A = RandomSkyline({n, nHeight, nNodes[nCase % 3], nCase % 2 == 0}, random);
    if (nCase % 5 == 0) TrimAtRandom(A, random);
    const int m = nCase % 4 == 0 ? 1 + static_cast<int>(random() % static_cast<unsigned>(n)) : n;
    SCOPED_TRACE("case " + std::to_string(nCase) + ", n = " + std::to_string(n) + ", leading " + std::to_string(m));
    ExpectSolved(A, m, GetParam(), random);
    if (HasFatalFailure()) return;
  }
  // Long columns cross every tile.
  for (const int nNode : {1, 6}) ExpectSolved(RandomSkyline({760, 700, nNode, true}, random), 757, GetParam(), random);
  // Tall enough for the wider blocks and, on the average, for the wider panels.
  ExpectSolved(RandomSkyline({1250, 6000, 6, true}, random), 1243, GetParam(), random);
}

TEST_P(SkylineKernel, TallColumnsAgreeWithPlainSums) {
  if (!skyline::IsAvailable(GetParam())) GTEST_SKIP() << "not on this processor";
  std::mt19937 random(37);
  for (const int n : {1, 7, 16, 61}) {
    for (int m = 0; m < 10; ++m) {
      const Vector A = RandomVector(n * m, random), x = RandomVector(n, random), f = RandomVector(m, random);
      Vector c(Index(m)), cExpected(Index(m), 0.0), y = x, yExpected = x;
      for (int k = 0; k < m; ++k) {
        for (int i = 0; i < n; ++i) {
          cExpected[Index(k)] += A[Index(k * n + i)] * x[Index(i)];
          yExpected[Index(i)] -= A[Index(k * n + i)] * f[Index(k)];
        }
      }
      tall::MultiplyTransposed(A.data(), x, c, GetParam());
      tall::SubtractProduct(A.data(), f, y, GetParam());
      ASSERT_LE(LargestDifference(c, cExpected), 1e-14) << n << " x " << m;
      ASSERT_LE(LargestDifference(y, yExpected), 1e-14) << n << " x " << m;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Units, SkylineKernel,
                         testing::Values(VectorUnit::Best, VectorUnit::Baseline, VectorUnit::Bytes16,
                                         VectorUnit::Bytes32, VectorUnit::Bytes64),
                         [](const auto& unit) { return std::to_string(static_cast<int>(unit.param)); });

}  // namespace
}  // namespace skyframe::test
