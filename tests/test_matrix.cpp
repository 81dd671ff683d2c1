#include "TestPlatform.h"
#include "skyframe/numeric/Matrix.h"

namespace skyframe::test {
namespace {

CMatrix Make(int nRows, int nCols, std::initializer_list<double> values) {
  CMatrix M(nRows, nCols);
  std::copy(values.begin(), values.end(), M[0]);
  return M;
}

void ExpectEqual(const CMatrix& M, int nRows, int nCols, const std::vector<double>& values) {
  ASSERT_EQ(M.GetRows(), nRows);
  ASSERT_EQ(M.GetCols(), nCols);
  EXPECT_EQ(std::vector<double>(M[0], M[0] + values.size()), values);
}

TEST(Matrix, ConstructionAndShape) {
  EXPECT_EQ(CMatrix().GetRows() + 100 * CMatrix().GetCols(), 1616);
  CMatrix M(2, 3, 1.5);
  ExpectEqual(M, 2, 3, {1.5, 1.5, 1.5, 1.5, 1.5, 1.5});
  M.Resize(3, 1);
  M.Fill(-1.0);
  ExpectEqual(M, 3, 1, {-1, -1, -1});
  CMatrix empty(0, 4, 7.0), assigned;  // no rows: a valid shape
  assigned = empty;
  EXPECT_EQ(assigned.GetCols(), 4);
  empty *= 2.0;
  EXPECT_EQ((empty * CMatrix(4, 2, 1.0)).GetRows(), 0);
  ExpectEqual(CMatrix(2, 0) * CMatrix(0, 2), 2, 2, {0, 0, 0, 0});
}

TEST(Matrix, CopiesAreDeepAndSameShapeKeepsItsStorage) {
  const CMatrix source = Make(2, 2, {1, 2, 3, 4});
  CMatrix M(2, 2, 0.0), other(1, 5);
  const double* const pStorage = M[0];
  M = source;
  EXPECT_EQ(M[0], pStorage);
  M[0][0] = 9.0;
  EXPECT_EQ(source[0][0], 1.0);
  other = source;
  ExpectEqual(other, 2, 2, {1, 2, 3, 4});
  const CMatrix& alias = other;
  other = alias;
  ExpectEqual(other, 2, 2, {1, 2, 3, 4});
}

TEST(Matrix, Algebra) {
  const CMatrix A = Make(2, 3, {1, 2, 3, 4, 5, 6}), B = Make(3, 2, {7, 8, 9, 10, 11, 12});
  ExpectEqual(A * B, 2, 2, {58, 64, 139, 154});
  ExpectEqual(A * 2.0, 2, 3, {2, 4, 6, 8, 10, 12});
  ExpectEqual(A + A, 2, 3, {2, 4, 6, 8, 10, 12});
  ExpectEqual(A - A * 3.0, 2, 3, {-2, -4, -6, -8, -10, -12});
  CMatrix C(A);
  C += A;
  C *= 0.5;
  ExpectEqual(C, 2, 3, {1, 2, 3, 4, 5, 6});
  CMatrix T;
  ExpectEqual(T.SetTranspose(A), 3, 2, {1, 4, 2, 5, 3, 6});
  ExpectEqual(CMatrix().SetTranspose(CMatrix(12, 1, 2.0)), 1, 12, std::vector<double>(12, 2.0));
  CMatrix S = Make(2, 2, {1, 2, 3, 4});
  ExpectEqual(S.SetTranspose(S), 2, 2, {1, 3, 2, 4});
  S *= S;
  ExpectEqual(S, 2, 2, {7, 15, 10, 22});
  S *= Make(2, 2, {0, 1, 1, 0});
  ExpectEqual(S, 2, 2, {15, 7, 22, 10});
  S *= Make(2, 3, {1, 0, 5, 0, 1, 5});  // the shape stays
  ExpectEqual(S, 2, 2, {15, 7, 22, 10});
  CMatrix narrow = Make(1, 2, {1, 2});
  narrow *= Make(2, 1, {10, 100});
  ExpectEqual(narrow, 1, 2, {210, 2});
}

TEST(Matrix, ShapeMismatchesShowTheirTextAndContinue) {
  const char* const strRows = "The row of matrix1 doesn't equal the row of matrix2, while adding";
  const char* const strCols = "The col of matrix1 doesn't equal the col of matrix2, while adding";
  using Operation = CMatrix (*)(CMatrix & A, const CMatrix& M);
  const Operation product = [](CMatrix& A, const CMatrix& M) { return A * M; };
  const Operation inPlaceProduct = [](CMatrix& A, const CMatrix& M) { return A *= M; };
  const Operation sum = [](CMatrix& A, const CMatrix& M) { return A + M; };
  const Operation difference = [](CMatrix& A, const CMatrix& M) { return A - M; };
  const Operation inPlaceSum = [](CMatrix& A, const CMatrix& M) { return A += M; };
  const struct {
    Operation operation;
    int nRows, nCols;  ///< of the second operand; the first is 2 x 2 of threes
    const char* strText;
    int nResult = 2;  ///< rows and columns of the result
  } cases[] = {
      {inPlaceProduct, 3, 2, "The row of Matrix1 doesn't equal the col of Matrix2, while multiplying"},
      {product, 3, 3, "The row of CMatrix 1 doesn't equal the col of CMatrix 2, while multiplying", 16},
      {sum, 3, 3, strRows},
      {sum, 2, 3, strCols},
      {difference, 3, 2, strRows},
      {difference, 2, 3, strCols},
      {inPlaceSum, 3, 3, strRows},
      {inPlaceSum, 2, 1, strCols},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.strText << ' ' << c.nRows << ' ' << c.nCols);
    CTestPlatform platform;
    CMatrix A(2, 2, 3.0);
    const CMatrix R = c.operation(A, CMatrix(c.nRows, c.nCols, 1.0));
    EXPECT_EQ(platform.GetMessages(), Strings{c.strText});
    ExpectEqual(A, 2, 2, {3, 3, 3, 3});
    EXPECT_EQ(R.GetRows(), c.nResult);
    EXPECT_EQ(R.GetCols(), c.nResult);
    if (c.nResult == 2) ExpectEqual(R, 2, 2, {3, 3, 3, 3});
  }
}

}  // namespace
}  // namespace skyframe::test
