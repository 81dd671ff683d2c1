#pragma once

#include "skyframe/model/Element.h"

namespace skyframe {

/// Square work matrices of one element size; hingeMap is 12 x size.
struct ElementWork {
  explicit ElementWork(int nSize);
  /// Clears the local ones, as SetData asks; each of all is formed as a whole before it is read.
  void Reset();

  CMatrix transformation;
  CMatrix local;
  CMatrix geometric;
  CMatrix stiffness;
  CMatrix mass;
  CMatrix hingeMap;
};

/// The set shared by all elements with nSize DOFs: 12, 9 or 6.
ElementWork& GetElementWork(int nSize);

/// Copies the upper triangle to the lower one.
void MirrorUpper(CMatrix& A);

/// out = T^t A T for a symmetric A, T having the 3 x 3 block R on its diagonal for every three DOFs.
void RotateToGlobal(const CMatrix& A, const LocalAxes& R, CMatrix& out);

/// y = R x (or R^t x) for every three of the nCount values.
MemberVector Rotate(const LocalAxes& R, const MemberVector& x, int nCount);
MemberVector RotateBack(const LocalAxes& R, const MemberVector& x, int nCount);

/// out = T^t A T for a symmetric 12 x 12 matrix A and T with as many columns as out.
void FormCongruence(const CMatrix& A, const CMatrix& T, CMatrix& out);

/// Values at the stations, linear from end i to end j.
[[nodiscard]] Diagram FormLinearDiagram(double dI, double dJ);

/// Mass of a bar of total mass m, the same in X, Y and Z: consistent m/3, m/6; lumped m/2.
void FormBarMass(double m, bool bConsistent, CMatrix& out);

}  // namespace skyframe
