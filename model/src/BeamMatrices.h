#pragma once

#include <array>

#include "skyframe/model/Element.h"
#include "skyframe/model/HingedBeams.h"

namespace skyframe {

/// What the matrices of a beam depend on; units N, m, kg.
struct BeamProperties {
  double E, G, A, J, Iy, Iz, L;
  double rho;   ///< mass density
  double phiY;  ///< shear parameter of the plane of Iy: 0 without shear
  double phiZ;  ///< of the plane of Iz
};

/// phi = 12 kappa E I/(G A L^2).
[[nodiscard]] double ComputeShearParameter(double kappa, double E, double I, double G, double A, double L);

/// Places of u_i, theta_i, u_j, theta_j of a bending plane among the twelve local DOFs. The plane
/// (u_z, theta_y) has every u-theta term reversed, because theta_y = -w'.
struct BendingPlane {
  int ui, ti, uj, tj;
  double sign;
};
inline constexpr BendingPlane c_planeZ = {1, 5, 7, 11, 1.0};   ///< u_y, theta_z, Iz
inline constexpr BendingPlane c_planeY = {2, 4, 8, 10, -1.0};  ///< u_z, theta_y, Iy

/// a u-u, b u-theta, c theta-theta at one end, d between the ends.
struct BendingTerms {
  double a, b, c, d;
};
/// a = 12EI/((1+phi)L^3), b = 6EI/((1+phi)L^2), c = (4+phi)EI/((1+phi)L), d = (2-phi)EI/((1+phi)L).
[[nodiscard]] BendingTerms FormBendingTerms(double EI, double L, double phi);

/// Local 12 x 12 matrices; out is overwritten.
void FormElasticMatrix(const BeamProperties& p, CMatrix& out);
void FormConsistentMass(const BeamProperties& p, CMatrix& out);

/// End moments of the two stations 0 and L: my = MZX, mz = MXY.
struct EndMoments {
  double my0, my1, mz0, mz1;
};
/// From 1/2 Int N(u'^2 + v'^2 + w'^2 + (Iy + Iz) t'^2/A) + Int (my v' t' + mz w' t'), t the twist.
void FormGeometricMatrix(const BeamProperties& p, double N, const EndMoments& m, CMatrix& out);

/// T of u12 = T u: identity on the DOFs kept, the hinged rotations from zero hinge moments.
/// places: those kept; out is 12 x their number.
void FormHingeMatrix(const BeamProperties& p, HingedEnd hinge, std::span<const int> places, CMatrix& out);

/// Deflection of the plane at the stations from the twelve local displacements, exact for end loads.
[[nodiscard]] Diagram FormDeflectionDiagram(const BendingPlane& plane, double phi, double L, const MemberVector& u);

}  // namespace skyframe
