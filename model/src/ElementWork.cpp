#include "ElementWork.h"

#include <algorithm>
#include <cassert>

namespace skyframe {

namespace {

std::array<ElementWork, 3> g_elementWork = {ElementWork(6), ElementWork(9), ElementWork(12)};

constexpr Diagram c_stations = [] {
  Diagram stations = {};
  for (int p = 0; p < c_nStations; ++p) stations[p] = GetStation(p);
  return stations;
}();

/// Rows of A for block nRow and columns for block nCol: R^t A_block R into out.
void RotateBlock(const CMatrix& A, const LocalAxes& R, int nRow, int nCol, CMatrix& out) {
  std::array<Vector3, 3> AR = {};
  for (int i = 0; i < 3; ++i) {
    for (int k = 0; k < 3; ++k) {
      for (int j = 0; j < 3; ++j) AR[i][j] += A[nRow + i][nCol + k] * R[k][j];
    }
  }
  for (int i = 0; i < 3; ++i) {
    for (int j = 0; j < 3; ++j) {
      out[nRow + i][nCol + j] = R[0][i] * AR[0][j] + R[1][i] * AR[1][j] + R[2][i] * AR[2][j];
    }
  }
}

}  // namespace

ElementWork::ElementWork(int nSize)
    : transformation(nSize, nSize, 0.0),
      local(nSize, nSize, 0.0),
      geometric(nSize, nSize, 0.0),
      stiffness(nSize, nSize, 0.0),
      mass(nSize, nSize, 0.0),
      hingeMap(c_nMemberDofs, nSize, 0.0) {}

void ElementWork::Reset() {
  for (CMatrix* pMatrix : {&local, &geometric}) pMatrix->Fill(0.0);
}

ElementWork& GetElementWork(int nSize) {
  assert(nSize == 6 || nSize == 9 || nSize == 12);
  return g_elementWork[nSize / 3 - 2];
}

void MirrorUpper(CMatrix& A) {
  for (int i = 1; i < A.GetRows(); ++i) {
    for (int j = 0; j < i; ++j) A[i][j] = A[j][i];
  }
}

void RotateToGlobal(const CMatrix& A, const LocalAxes& R, CMatrix& out) {
  for (int nRow = 0; nRow < A.GetRows(); nRow += 3) {
    for (int nCol = nRow; nCol < A.GetCols(); nCol += 3) RotateBlock(A, R, nRow, nCol, out);
  }
  MirrorUpper(out);
}

MemberVector Rotate(const LocalAxes& R, const MemberVector& x, int nCount) {
  MemberVector y = {};
  for (int n = 0; n < nCount; n += 3) {
    for (int i = 0; i < 3; ++i) y[n + i] = R[i][0] * x[n] + R[i][1] * x[n + 1] + R[i][2] * x[n + 2];
  }
  return y;
}

MemberVector RotateBack(const LocalAxes& R, const MemberVector& x, int nCount) {
  MemberVector y = {};
  for (int n = 0; n < nCount; n += 3) {
    for (int i = 0; i < 3; ++i) y[n + i] = R[0][i] * x[n] + R[1][i] * x[n + 1] + R[2][i] * x[n + 2];
  }
  return y;
}

void FormCongruence(const CMatrix& A, const CMatrix& T, CMatrix& out) {
  const int nSize = out.GetRows();
  std::array<MemberVector, c_nMemberDofs> AT = {};
  for (int i = 0; i < c_nMemberDofs; ++i) {
    for (int k = 0; k < c_nMemberDofs; ++k) {
      if (A[i][k] == 0.0) continue;
      for (int j = 0; j < nSize; ++j) AT[i][j] += A[i][k] * T[k][j];
    }
  }
  for (int i = 0; i < nSize; ++i) {
    for (int j = i; j < nSize; ++j) {
      double dSum = 0.0;
      for (int k = 0; k < c_nMemberDofs; ++k) dSum += T[k][i] * AT[k][j];
      out[i][j] = dSum;
    }
  }
  MirrorUpper(out);
}

Diagram FormLinearDiagram(double dI, double dJ) {
  Diagram values;
  std::ranges::transform(c_stations, values.begin(), [=](double xi) { return (1.0 - xi) * dI + xi * dJ; });
  return values;
}

void FormBarMass(double m, bool bConsistent, CMatrix& out) {
  out.Fill(0.0);
  for (int i = 0; i < 3; ++i) {
    out[i][i] = out[i + 3][i + 3] = bConsistent ? m / 3.0 : m / 2.0;
    out[i][i + 3] = out[i + 3][i] = bConsistent ? m / 6.0 : 0.0;
  }
}

}  // namespace skyframe
