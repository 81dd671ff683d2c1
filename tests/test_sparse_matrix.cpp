#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "TestPlatform.h"
#include "reference_skyline.h"
#include "skyframe/numeric/SkylineKernel.h"
#include "skyframe/numeric/SparseMatrix.h"
#include "skyframe/numeric/TallColumns.h"

namespace skyframe {
namespace {

using skyline::VectorUnit;
using test::CTestPlatform;
using test::ProfileShape;
using test::RandomSkyline;
using test::Skyline;

using Vector = std::vector<double>;
using Messages = std::vector<std::string>;

constexpr double c_dNan = std::numeric_limits<double>::quiet_NaN();
constexpr double c_dInfinity = std::numeric_limits<double>::infinity();
const char* const c_strUnstable = "结构几何可变";

std::size_t Index(int i) { return static_cast<std::size_t>(i); }

/// Assembled through the accessor, as elements do it.
SparseMatrix ToSparse(const Skyline& A) {
  SparseMatrix S;
  S.SetProfile(A.Order(), A.diag);
  S.Fill(0.0);
  for (int i = 0; i < A.Order(); ++i) {
    for (int r = A.Top(i); r <= i; ++r) S(i, r) += A(r, i);
  }
  return S;
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

/// tridiag(-1, 2, -1) - sigma I.
SparseMatrix MakeSecondDifference(int n, double dSigma = 0.0) {
  std::vector<int> diag;
  for (int i = 0; i < n; ++i) diag.push_back(2 * i);
  SparseMatrix S;
  S.SetProfile(n, diag);
  S.Fill(-1.0);
  for (int i = 0; i < n; ++i) S(i, i) = 2.0 - dSigma;
  return S;
}

std::vector<Vector> ToDense(const Skyline& A, int n) {
  std::vector<Vector> D(Index(n), Vector(Index(n), 0.0));
  for (int i = 0; i < n; ++i) {
    for (int r = A.Top(i); r <= i; ++r) D[Index(r)][Index(i)] = D[Index(i)][Index(r)] = A(r, i);
  }
  return D;
}

/// Gaussian elimination with partial pivoting.
Vector SolveDense(std::vector<Vector> A, Vector b) {
  const std::size_t n = b.size();
  for (std::size_t k = 0; k < n; ++k) {
    std::size_t p = k;
    for (std::size_t i = k + 1; i < n; ++i) p = std::abs(A[i][k]) > std::abs(A[p][k]) ? i : p;
    std::swap(A[k], A[p]);
    std::swap(b[k], b[p]);
    for (std::size_t i = k + 1; i < n; ++i) {
      const double f = A[i][k] / A[k][k];
      for (std::size_t j = k; j < n; ++j) A[i][j] -= f * A[k][j];
      b[i] -= f * b[k];
    }
  }
  for (std::size_t k = n; k-- > 0;) {
    for (std::size_t j = k + 1; j < n; ++j) b[k] -= A[k][j] * b[j];
    b[k] /= A[k][k];
  }
  return b;
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

TEST(SparseMatrix, ProfileAndAccessor) {
  CTestPlatform platform;
  // Heights 1, 2, 1, 3.
  SparseMatrix S = MakeSparse({0, 2, 3, 6}, {1, 2, 3, 4, 5, 6, 7});
  EXPECT_EQ(std::vector<int>(S.GetHeights().begin(), S.GetHeights().end()), (std::vector<int>{1, 2, 1, 3}));
  EXPECT_EQ(Vector(S.GetValues().begin(), S.GetValues().end()), (Vector{1, 2, 3, 4, 5, 6, 7}));
  EXPECT_EQ(S(1, 3), 5.0);
  EXPECT_EQ(&S(1, 3), &S(3, 1));
  // Above the skyline: reads 0, swallows writes.
  S(0, 3) = 99.0;
  EXPECT_EQ(S(3, 0), 0.0);
  EXPECT_EQ(Vector(S.GetValues().begin(), S.GetValues().end()), (Vector{1, 2, 3, 4, 5, 6, 7}));
  EXPECT_TRUE(platform.GetMessages().empty());
}

TEST(SparseMatrix, AccessorRangeTests) {
  struct Case {
    int nRow, nCol;
    Messages messages;
  };
  // Order 2. Only the smaller index is tested, and only for being greater than 2.
  const Case cases[] = {
      {0, 3, {}},
      {3, 0, {}},
      {2, 2, {}},
      {2, 7, {}},
      {0, 2000000000, {}},
      {3, 4, {"The row is out of range, while doing operator()"}},
      {4, 3, {"The col is out of range, while doing operator()"}},
      {3, 3, {"The col is out of range, while doing operator()"}},
  };
  SparseMatrix S = MakeSecondDifference(2);
  for (const Case& c : cases) {
    SCOPED_TRACE(std::to_string(c.nRow) + ", " + std::to_string(c.nCol));
    CTestPlatform platform;
    S(c.nRow, c.nCol) = 5.0;
    EXPECT_EQ(S(c.nRow, c.nCol), 0.0);
    Messages twice = c.messages;
    twice.insert(twice.end(), c.messages.begin(), c.messages.end());
    EXPECT_EQ(platform.GetMessages(), twice);
    EXPECT_EQ(Vector(S.GetValues().begin(), S.GetValues().end()), (Vector{2, -1, 2}));
  }
}

TEST(SparseMatrix, UnallocatedRefusals) {
  struct Case {
    const char* strName;
    std::function<void(SparseMatrix&)> operation;
    const char* strText;
  };
  const char* const strSolve = "The element buffer of SparseMatrix has not been allocated, while ldlt solving";
  const char* const strMultiply = "The element buffer of SparseMatrix has not been allocated, while multiplying";
  const char* const strAdd = "The element buffer of SparseMatrix has not been allocated, while adding";
  Vector b(3, 1.0), d(3, 1.0);
  SparseMatrix full = MakeSecondDifference(3);
  const Case cases[] = {
      {"access", [](SparseMatrix& S) { EXPECT_EQ(S(1, 1), 0.0); },
       "The element buffer of SparseMatrix has not been allocated, while while doing operator()"},
      {"scale", [](SparseMatrix& S) { S *= 2.0; }, strMultiply},
      {"product", [](SparseMatrix& S) { EXPECT_EQ((S * CMatrix(3, 1, 1.0)).GetRows(), 16); }, strMultiply},
      {"add to", [&](SparseMatrix& S) { S += full; }, strAdd},
      {"add from", [&](SparseMatrix& S) { full += S; }, strAdd},
      {"add neither", [](SparseMatrix& S) { S += S; }, strAdd},
      {"decompose", [](SparseMatrix& S) { EXPECT_FALSE(S.Decompose(3)); }, strSolve},
      {"solve", [&](SparseMatrix& S) { EXPECT_FALSE(S.Solve(3, b)); }, strSolve},
      {"solve, D apart", [&](SparseMatrix& S) { EXPECT_FALSE(S.SolveKeepDiagonal(3, d, b)); }, strSolve},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.strName);
    CTestPlatform platform;
    SparseMatrix S;
    S.SetProfile(3, std::vector<int>{0, 2, 4});
    c.operation(S);
    EXPECT_EQ(platform.GetMessages(), Messages{c.strText});
    EXPECT_FALSE(S.IsAllocated());
  }
  EXPECT_EQ(full(0, 0), 2.0);
  EXPECT_EQ(b, Vector(3, 1.0));
}

TEST(SparseMatrix, LifecycleFlags) {
  CTestPlatform platform;
  SparseMatrix S = MakeSecondDifference(3);
  const SparseMatrix zero = MakeSecondDifference(3, 2.0);
  const std::pair<const char*, std::function<void()>> changes[] = {
      {"fill", [&] { S.Fill(1.0); }}, {"allocate", [&] { S.Allocate(); }}, {"scale", [&] { S *= 2.0; }},
      {"add", [&] { S += zero; }},    {"assign", [&] { S = zero; }},
  };
  for (const auto& [strName, change] : changes) {
    SCOPED_TRACE(strName);
    S = MakeSecondDifference(3);
    ASSERT_TRUE(S.Decompose(3));
    EXPECT_TRUE(S.IsFactorised());
    change();
    EXPECT_FALSE(S.IsFactorised());
    EXPECT_TRUE(S.IsAllocated());
  }
  S.Release();
  EXPECT_FALSE(S.IsAllocated());
  S.Fill(4.0);
  EXPECT_EQ(S(1, 2), 4.0);
}

TEST(SparseMatrix, AssignmentCarriesAFactorisedMatrix) {
  CTestPlatform platform;
  SparseMatrix S = MakeSecondDifference(3);
  Vector b{1, 0, 0};
  ASSERT_TRUE(S.Solve(3, b));
  SparseMatrix copy(S), assigned = MakeSecondDifference(5);
  assigned = S;
  const SparseMatrix& alias = assigned;
  assigned = alias;
  for (SparseMatrix* pMatrix : {&copy, &assigned}) {
    EXPECT_TRUE(pMatrix->IsFactorised());
    Vector x{1, 0, 0};
    ASSERT_TRUE(pMatrix->Solve(3, x));
    EXPECT_EQ(x, b);
  }
  assigned = SparseMatrix();
  EXPECT_EQ(assigned.GetOrder(), 0);
  EXPECT_FALSE(assigned.IsAllocated());
}

TEST(SparseMatrix, AssignmentKeepsAProfileOfTheSameOrderAndSize) {
  SparseMatrix S = MakeSparse({0, 1, 3}, {1, 2, 3, 4});
  const SparseMatrix other = MakeSparse({0, 2, 3}, {5, 6, 7, 8});
  S = other;
  EXPECT_EQ(S.GetDiagonal()[1], 1);
  EXPECT_EQ(Vector(S.GetValues().begin(), S.GetValues().end()), (Vector{5, 6, 7, 8}));
}

TEST(SparseMatrix, MemoryThatIsNotThereIsReported) {
  CTestPlatform platform;
  SparseMatrix S;
  S.SetProfile(2, std::vector<int>{0, -7});
  S.Fill(0.0);
  EXPECT_FALSE(S.IsAllocated());
  EXPECT_EQ(platform.GetMessages(), Messages{"内存不足，无法为稀疏矩阵分配存储空间"});
}

// --- sums and products ------------------------------------------------------------------------

TEST(SparseMatrix, ElementMatricesAreScattered) {
  // Equations in any order; the pair (0, 3) lies above the skyline of heights 1, 2, 3, 3.
  SparseMatrix S = MakeSparse({0, 2, 5, 8}, {1, 0, 0, 0, 0, 0, 0, 0, 0});
  CMatrix element(3, 3);
  constexpr double c_dUpper = 99.0;  // not read
  const double rows[3][3] = {{1, c_dUpper, c_dUpper}, {2, 4, c_dUpper}, {3, 5, 6}};
  for (int i = 0; i < 3; ++i) std::copy(rows[i], rows[i] + 3, element[i]);
  const int equations[] = {3, 0, 2};
  S.AddElement(element, equations);
  EXPECT_EQ(Vector(S.GetValues().begin(), S.GetValues().end()), (Vector{5, 0, 0, 5, 0, 6, 0, 3, 1}));

  CTestPlatform platform;
  SparseMatrix none;
  none.AddElement(element, equations);
  EXPECT_EQ(platform.GetMessages().size(), 1U);
}

TEST(SparseMatrix, ScalingSkipsZeros) {
  SparseMatrix S = MakeSparse({0, 2}, {1, 0, 2});
  S *= 3.0;
  EXPECT_EQ(Vector(S.GetValues().begin(), S.GetValues().end()), (Vector{3, 0, 6}));
  S *= c_dNan;
  EXPECT_EQ(S(0, 1), 0.0);
  EXPECT_TRUE(std::isnan(S(0, 0)));
}

TEST(SparseMatrix, AdditionTakesTheCommonPartOfTheProfiles) {
  const Vector wide{1, 2, 3, 4, 5, 6};  // full 3 x 3
  const Vector narrow{10, 20, 30, 40};  // heights 1, 1, 2
  struct Case {
    std::vector<int> diag;
    Vector values;
    std::vector<int> addedDiag;
    Vector added, expected;
  };
  const Case cases[] = {
      {{0, 2, 5}, wide, {0, 2, 5}, wide, {2, 4, 6, 8, 10, 12}},
      {{0, 2, 5}, wide, {0, 1, 3}, narrow, {11, 2, 23, 4, 35, 46}},
      {{0, 1, 3}, narrow, {0, 2, 5}, wide, {11, 23, 35, 46}},
      {{0, 2, 5}, wide, {0, 2}, {1, 1, 1}, {2, 3, 4, 4, 5, 6}},
      {{0, 2}, {1, 1, 1}, {0, 2, 5}, wide, {2, 3, 4}},
  };
  for (const Case& c : cases) {
    SparseMatrix S = MakeSparse(c.diag, c.values);
    S += MakeSparse(c.addedDiag, c.added);
    EXPECT_EQ(Vector(S.GetValues().begin(), S.GetValues().end()), c.expected);
  }
}

TEST(SparseMatrix, ProductsAgreeWithTheDenseMatrix) {
  CTestPlatform platform;
  std::mt19937 random(11);
  for (int nCase = 0; nCase < 60; ++nCase) {
    const int n = 1 + nCase;
    Skyline A = RandomSkyline({n, 1 + n / 2, nCase % 3 + 1, true}, random);
    for (std::size_t k = 0; k < A.values.size(); k += 3) A.values[k] = 0.0;
    SparseMatrix S = ToSparse(A);
    const int m = nCase % 2 == 0 ? n : 1 + n / 2;
    const Vector x = RandomVector(m, random);
    const auto D = ToDense(A, m);
    Vector expected(Index(m), 0.0), rows(Index(m));
    for (int i = 0; i < m; ++i) {
      for (int j = 0; j < m; ++j) expected[Index(i)] += D[Index(i)][Index(j)] * x[Index(j)];
    }
    S.TrimProfile(m);
    S.BuildRows(m);
    S.MultiplyRows(x, rows);
    CMatrix column(m, 1), row(1, m);
    std::copy(x.begin(), x.end(), column[0]);
    std::copy(x.begin(), x.end(), row[0]);
    const CMatrix y = S * column, z = S * row;
    ASSERT_EQ(y.GetRows(), m);
    ASSERT_EQ(z.GetCols(), m);
    const double dTolerance = 1e-15 * n * n;
    EXPECT_LE(LargestDifference(rows, expected), dTolerance);
    EXPECT_LE(LargestDifference(Vector(y[0], y[0] + m), expected), dTolerance);
    EXPECT_LE(LargestDifference(Vector(z[0], z[0] + m), expected), dTolerance);
  }
  EXPECT_TRUE(platform.GetMessages().empty());
}

TEST(SparseMatrix, ProductWantsAVector) {
  CTestPlatform platform;
  const SparseMatrix S = MakeSecondDifference(3);
  EXPECT_EQ((S * CMatrix(2, 2, 1.0)).GetCols(), 16);
  EXPECT_EQ(platform.GetMessages(), Messages{"Vector Definition Error!"});
  // A longer vector than the order: what the matrix does not reach is zero.
  EXPECT_EQ((S * CMatrix(5, 1, 1.0))[4][0], 0.0);
}

TEST(SparseMatrix, TrimmingAndCompressedRows) {
  //     | 4 0 0 1 |        heights 1, 2, 3, 4 trimmed to 1, 1, 2, 4
  // A = |   0 2 0 |        (a zero diagonal entry is not a compressed one)
  //     |     5 0 |
  //     |       6 |
  SparseMatrix S = MakeSparse({0, 2, 5, 9}, {4, 0, 0, 0, 2, 5, 1, 0, 0, 6});
  const auto ints = [](std::span<const int> s) { return std::vector<int>(s.begin(), s.end()); };
  S.TrimProfile(4);
  EXPECT_EQ(ints(S.GetHeights()), (std::vector<int>{1, 1, 2, 4}));
  EXPECT_EQ(ints(S.GetRowExtents()), (std::vector<int>{4, 3, 2, 1}));
  EXPECT_TRUE(S.BuildRows(4));
  EXPECT_EQ(ints(S.GetRowStarts()), (std::vector<int>{0, 2, 3, 5, 7}));
  EXPECT_EQ(ints(S.GetRowColumns()), (std::vector<int>{0, 3, 2, 1, 2, 0, 3}));
  EXPECT_EQ(Vector(S.GetRowValues().begin(), S.GetRowValues().end()), (Vector{4, 1, 2, 2, 5, 1, 6}));
  S.RestoreHeights();
  EXPECT_EQ(ints(S.GetHeights()), (std::vector<int>{1, 2, 3, 4}));
  // Row extents end at the last column that reaches the row.
  SparseMatrix narrow = MakeSparse({0, 2, 3, 5}, {1, 1, 1, 1, 1, 1});
  narrow.TrimProfile(4);
  EXPECT_EQ(ints(narrow.GetRowExtents()), (std::vector<int>{2, 1, 2, 1}));
  narrow.TrimProfile(3);
  EXPECT_EQ(ints(narrow.GetRowExtents()), (std::vector<int>{2, 1, 1}));
}

// --- factorisation and solution ---------------------------------------------------------------

TEST(SparseMatrix, SecondDifferenceMatrix) {
  CTestPlatform platform;
  SparseMatrix S = MakeSecondDifference(3);
  Vector b{1, 0, 0};
  ASSERT_TRUE(S.Solve(3, b));
  EXPECT_LE(LargestDifference(b, {0.75, 0.5, 0.25}), 1e-15);
  EXPECT_LE(LargestDifference({S(0, 0), S(1, 1), S(2, 2)}, {2.0, 1.5, 4.0 / 3.0}), 1e-15);
  // Sylvester: as many negative pivots as eigenvalues below sigma (2 - sqrt 2, 2, 2 + sqrt 2).
  for (const auto& [dSigma, nBelow] : {std::pair{0.5, 0}, {1.0, 1}, {3.0, 2}, {3.5, 3}}) {
    SparseMatrix shifted = MakeSecondDifference(3, dSigma);
    Vector d(3), x(3, 1.0);
    // sigma = 1 and 3 meet a zero leading minor of order 2: shift a little.
    const bool bSolved = shifted.SolveKeepDiagonal(3, d, x);
    if (!bSolved) {
      shifted = MakeSecondDifference(3, dSigma + 1e-6);
      ASSERT_TRUE(shifted.SolveKeepDiagonal(3, d, x));
    }
    EXPECT_EQ(std::count_if(d.begin(), d.end(), [](double dPivot) { return dPivot < 0.0; }), nBelow) << dSigma;
  }
}

TEST(SparseMatrix, PivotTest) {
  struct Case {
    double dPivot;
    bool bAccepted;
  };
  const Case cases[] = {{1e-15, false}, {-1e-15, false}, {0.0, false}, {c_dNan, false}, {c_dInfinity, false},
                        {2e-15, true},  {-2e-15, true},  {-3.0, true}, {4.0, true}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.dPivot);
    CTestPlatform platform;
    SparseMatrix S = MakeSparse({0}, {c.dPivot}), kept(S), decomposed(S);
    Vector b{c.dPivot * 2.0}, x{c.dPivot * 2.0}, d(1);
    EXPECT_EQ(S.Solve(1, b), c.bAccepted);
    EXPECT_EQ(kept.SolveKeepDiagonal(1, d, x), c.bAccepted);
    EXPECT_EQ(decomposed.Decompose(1), c.bAccepted);
    EXPECT_EQ(S.IsFactorised(), c.bAccepted);
    EXPECT_EQ(platform.GetMessages(), c.bAccepted ? Messages{} : Messages(3, c_strUnstable));
    if (c.bAccepted) {
      EXPECT_EQ(b[0], 2.0);
      EXPECT_EQ(x[0], 2.0);
    }
  }
}

TEST(SparseMatrix, RefusalComesAfterAllColumns) {
  CTestPlatform platform;
  // The pivot of equation 1 vanishes; column 2 does not touch it and is reduced all the same.
  SparseMatrix S = MakeSparse({0, 2, 5}, {2, 2, 2, 1, 1, 3});
  SparseMatrix kept(S);
  EXPECT_FALSE(S.Decompose(3));
  EXPECT_FALSE(S.IsFactorised());
  EXPECT_EQ(S(0, 1), 1.0);
  EXPECT_EQ(S(1, 1), 0.0);
  EXPECT_EQ(S(0, 2), 0.5);
  Vector d(3), b(3, 1.0);
  EXPECT_FALSE(kept.SolveKeepDiagonal(3, d, b));
  EXPECT_EQ(d[1], 0.0);
  EXPECT_EQ(kept(1, 1), 2.0);
  EXPECT_EQ(b, Vector(3, 1.0));
}

TEST(SparseMatrix, NotANumberAndInfinityAreRefusedWhereverTheyStand) {
  std::mt19937 random(5);
  const Skyline A = RandomSkyline({230, 120, 1, false}, random);
  for (const double dBad : {c_dNan, c_dInfinity, -c_dInfinity}) {
    for (std::size_t k = 0; k < A.values.size(); k += 997) {
      CTestPlatform platform;
      Skyline B = A;
      B.values[k] = dBad;
      SparseMatrix S = ToSparse(B);
      Vector b(230, 1.0);
      EXPECT_FALSE(S.Solve(230, b)) << dBad << " at " << k;
      EXPECT_EQ(platform.GetMessages(), Messages{c_strUnstable});
    }
  }
}

TEST(SparseMatrix, OrderZeroWorks) {
  CTestPlatform platform;
  SparseMatrix none, some = MakeSecondDifference(2);
  none.SetProfile(0, {});
  none.Fill(0.0);
  EXPECT_TRUE(none.IsAllocated());
  none.TrimProfile(0);
  none.BuildRows(0);
  none += some;
  EXPECT_TRUE(none.Decompose(0));
  EXPECT_TRUE(none.Solve(0, {}));
  EXPECT_TRUE(some.Solve(0, {}));
  EXPECT_EQ((none * CMatrix(0, 1)).GetRows(), 0);
  EXPECT_TRUE(platform.GetMessages().empty());
}

TEST(SparseMatrix, SolutionsAgreeWithADenseSolve) {
  CTestPlatform platform;
  std::mt19937 random(17);
  for (int nCase = 0; nCase < 120; ++nCase) {
    const int n = 1 + nCase;
    const Skyline A = RandomSkyline({n, n, nCase % 2 == 0 ? 6 : 1, nCase % 3 == 0}, random);
    const int m = nCase % 4 == 0 ? 1 + n / 2 : n;
    const Vector b = RandomVector(m, random), expected = SolveDense(ToDense(A, m), b);
    SparseMatrix S = ToSparse(A);
    if (nCase % 5 == 0) S.TrimProfile(n);
    Vector x = b;
    ASSERT_TRUE(S.Solve(m, x));
    EXPECT_LE(LargestDifference(x, expected), 1e-13);
    // A second solution uses the factors; factorising them once more would give another one.
    Vector again = b;
    ASSERT_TRUE(S.Solve(m, again));
    EXPECT_EQ(again, x);
  }
}

TEST(SparseMatrix, SeveralRightHandSides) {
  std::mt19937 random(19);
  const int n = 90, nColumns = 11;
  const Skyline A = RandomSkyline({n, 60, 1, true}, random);
  Vector B = RandomVector(n * nColumns, random);
  SparseMatrix S = ToSparse(A);
  std::vector<Vector> expected;
  for (int c = 0; c < nColumns; ++c)
    expected.push_back(SolveDense(ToDense(A, n), Vector(B.begin() + c * n, B.begin() + (c + 1) * n)));
  ASSERT_TRUE(S.SolveColumns(n, B, nColumns));
  for (int c = 0; c < nColumns; ++c)
    EXPECT_LE(LargestDifference(Vector(B.begin() + c * n, B.begin() + (c + 1) * n), expected[Index(c)]), 1e-13);
  EXPECT_TRUE(S.SolveColumns(n, B, 0));

  CTestPlatform platform;
  SparseMatrix none, singular = MakeSparse({0, 2}, {1, 1, 1});
  EXPECT_FALSE(none.SolveColumns(0, {}, 0));
  Vector b(4, 1.0);
  EXPECT_FALSE(singular.SolveColumns(2, b, 2));
  EXPECT_EQ(platform.GetMessages(),
            (Messages{"The element buffer of SparseMatrix has not been allocated, while ldlt solving", c_strUnstable}));
  EXPECT_EQ(b, Vector(4, 1.0));
}

TEST(SparseMatrix, DiagonalKeptApart) {
  CTestPlatform platform;
  std::mt19937 random(23);
  const int n = 150;
  const Skyline A = RandomSkyline({n, 90, 1, true}, random);
  const Vector b = RandomVector(n, random);
  SparseMatrix inside = ToSparse(A), apart = ToSparse(A);
  Vector x = b, y = b, d(Index(n), c_dNan);
  ASSERT_TRUE(inside.Solve(n, x));
  ASSERT_TRUE(apart.SolveKeepDiagonal(n, d, y));
  EXPECT_EQ(x, y);
  for (int i = 0; i < n; ++i) {
    EXPECT_EQ(d[Index(i)], inside(i, i));
    EXPECT_EQ(apart(i, i), A(i, i));
  }
  // Factorised: D is the caller's copy, used and not touched.
  for (double& dPivot : d) dPivot *= 2.0;
  const Vector doubled = d;
  Vector z = b;
  ASSERT_TRUE(apart.SolveKeepDiagonal(n, d, z));
  EXPECT_EQ(d, doubled);
  for (double& dEntry : z) dEntry *= 2.0;
  EXPECT_EQ(z, y);
}

// --- the kernels against the textbook loops ---------------------------------------------------

/// Trims leading zeros that it puts there, so that heights and addresses differ.
void TrimAtRandom(Skyline& A, std::mt19937& random) {
  for (int i = 1; i < A.Order(); i += 2) {
    const int nCut = static_cast<int>(random() % static_cast<unsigned>(A.height[Index(i)]));
    for (int q = 0; q < nCut; ++q) A(A.Top(i) + q, i) = 0.0;
    A.height[Index(i)] -= nCut;
  }
}

void CompareWithTextbook(const Skyline& A, int n, VectorUnit unit, std::mt19937& random) {
  Skyline expected = A, actual = A;
  Vector d(Index(n)), dExpected(Index(n)), x = RandomVector(n, random), xExpected = x;
  test::ReferenceFactorise(expected, n, dExpected);
  test::ReferenceSolve(expected, n, dExpected, xExpected);
  const skyline::Profile profile{std::span<const int>(actual.diag).first(Index(n)),
                                 std::span<const int>(actual.height).first(Index(n))};
  skyline::FactoriseLdlt(profile, actual.values.data(), d, unit);
  skyline::ForwardReduce(profile, actual.values.data(), x, unit);
  for (int i = 0; i < n; ++i) x[Index(i)] /= d[Index(i)];
  skyline::BackSubstitute(profile, actual.values.data(), x, unit);
  for (int i = 0; i < n; ++i) {
    ASSERT_LE(std::abs(d[Index(i)] - dExpected[Index(i)]), 1e-13 * std::abs(dExpected[Index(i)])) << "pivot " << i;
    ASSERT_EQ(actual(i, i), A(i, i)) << "the diagonal is left alone";
    expected(i, i) = A(i, i);
  }
  // |L| <= 1 here; what lies beyond n or above the heights in force must not change at all.
  ASSERT_LE(LargestDifference(actual.values, expected.values), 1e-13);
  ASSERT_LE(LargestDifference(x, xExpected), 1e-13);

  // Several right-hand sides: full panels, and one that is not.
  const int nColumns = 1 + static_cast<int>(random() % 20);
  Vector B = RandomVector(n * nColumns, random), BExpected;
  for (int c = 0; c < nColumns; ++c) {
    Vector b(B.begin() + c * n, B.begin() + (c + 1) * n);
    test::ReferenceSolve(expected, n, dExpected, b);
    BExpected.insert(BExpected.end(), b.begin(), b.end());
  }
  skyline::SolveColumns(profile, actual.values.data(), d, B, nColumns, unit);
  ASSERT_LE(LargestDifference(B, BExpected), 1e-13);
}

class SkylineKernel : public testing::TestWithParam<VectorUnit> {};

TEST_P(SkylineKernel, AgreesWithTheTextbookOnRandomProfiles) {
  if (!skyline::IsAvailable(GetParam())) GTEST_SKIP() << "not on this processor";
  std::mt19937 random(29);
  constexpr int nNodes[] = {1, 3, 6};
  for (int nCase = 0; nCase < 1500; ++nCase) {
    const int nLargest = nCase % 25 == 0 ? 420 : 130;
    const int n = 1 + static_cast<int>(random() % static_cast<unsigned>(nLargest));
    const int nHeight = 1 + static_cast<int>(random() % static_cast<unsigned>(n + 20));
    Skyline A = RandomSkyline({n, nHeight, nNodes[nCase % 3], nCase % 2 == 0}, random);
    if (nCase % 5 == 0) TrimAtRandom(A, random);
    const int m = nCase % 4 == 0 ? 1 + static_cast<int>(random() % static_cast<unsigned>(n)) : n;
    SCOPED_TRACE("case " + std::to_string(nCase) + ", n = " + std::to_string(n) + ", leading " + std::to_string(m));
    CompareWithTextbook(A, m, GetParam(), random);
    if (HasFatalFailure()) return;
  }
}

TEST_P(SkylineKernel, LongColumnsCrossEveryTile) {
  if (!skyline::IsAvailable(GetParam())) GTEST_SKIP() << "not on this processor";
  std::mt19937 random(31);
  for (const int nNode : {1, 6}) {
    CompareWithTextbook(RandomSkyline({760, 700, nNode, true}, random), 757, GetParam(), random);
  }
  // Tall enough for the wider blocks.
  CompareWithTextbook(RandomSkyline({1350, 1340, 6, false}, random), 1350, GetParam(), random);
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

std::string GetUnitName(const testing::TestParamInfo<VectorUnit>& info) {
  constexpr const char* names[] = {"Best", "Baseline", "Bytes16", "Bytes32", "Bytes64"};
  return names[static_cast<std::size_t>(info.param)];
}

INSTANTIATE_TEST_SUITE_P(Units, SkylineKernel,
                         testing::Values(VectorUnit::Best, VectorUnit::Baseline, VectorUnit::Bytes16,
                                         VectorUnit::Bytes32, VectorUnit::Bytes64),
                         GetUnitName);

}  // namespace
}  // namespace skyframe
