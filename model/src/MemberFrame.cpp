#include "skyframe/model/MemberFrame.h"

#include <cmath>

#include "skyframe/numeric/VectorAlgebra.h"

namespace skyframe {
namespace {

/// A component of no more than this, m, counts as none.
constexpr double c_dNoComponent = 1.0e-15;

bool IsNone(double dComponent) { return std::abs(dComponent) <= c_dNoComponent; }

Vector3 Normalise(const Vector3& a) {
  const double f = 1.0 / Norm(a);
  return {a[0] * f, a[1] * f, a[2] * f};
}

Vector3 Cross(const Vector3& a, const Vector3& b) {
  return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

/// w = unit(d × h).
Vector3 FormNormal(const Vector3& d, const Vector3& d0) {
  if (IsNone(d0[1])) {
    const bool bAlongY = IsNone(d[0]) && IsNone(d[2]);
    return Normalise(Cross(bAlongY ? d0 : d, {0.0, 1.0, 0.0}));
  }
  const bool bVertical = IsNone(d[0]) && IsNone(d[1]);
  const Vector3& plan = bVertical ? d0 : d;
  const double dSign = std::copysign(1.0, d0[1]);
  return Normalise(Cross(d, {dSign * plan[1], -dSign * plan[0], 0.0}));
}

}  // namespace

LocalAxes FormLocalAxes(const Vector3& d, const Vector3& d0, double c, double s) {
  const Vector3 x = Normalise(d);
  const Vector3 w = FormNormal(d, d0);
  const Vector3 hPerp = Cross(w, x);
  Vector3 y, z;
  for (int i = 0; i < 3; ++i) {
    y[i] = c * hPerp[i] - s * w[i];
    z[i] = s * y[i] + c * w[i];
  }
  // Deliberate: (s + c) w_Z, not from y_Z; the same when the angle is zero.
  z[2] = (s + c) * w[2];
  return {x, y, z};
}

void MemberFrame::SetEnds(const Vector3& xi, const Vector3& xj) {
  m_chord = {xj[0] - xi[0], xj[1] - xi[1], xj[2] - xi[2]};
  m_dLength = Norm(m_chord);
  if (m_bPlaced) return;
  m_initialChord = m_chord;
  m_dInitialLength = m_dLength;
  m_bPlaced = true;
}

void MemberFrame::TurnAxes(double c, double s) {
  m_axes = FormLocalAxes(m_chord, m_initialChord, c, s);
  if (m_bTurned) return;
  m_initialAxes = m_axes;
  m_bTurned = true;
}

double MemberFrame::GetTwist() const {
  // The axes turn about Z (h in plan) or about Y (h = Y); the member's own component of that is x_pole times it.
  const int nPole = IsNone(m_initialChord[1]) ? 1 : 2;
  const int p = (nPole + 1) % 3, q = (nPole + 2) % 3;
  const Vector3 &a = m_initialChord, &b = m_chord;
  const double dTurn = std::atan2(a[p] * b[q] - a[q] * b[p], a[p] * b[p] + a[q] * b[q]);
  return std::abs(m_axes[0][nPole] * dTurn);
}

}  // namespace skyframe
