#include "BeamMatrices.h"

#include "ElementWork.h"
#include "skyframe/values/HermiteCubic.h"

namespace skyframe {

namespace {

/// Terms of one bending plane: u-u at one end and between the ends, u-theta at the same end (end i)
/// and at the other, theta-theta at one end and between the ends. The rest follows by symmetry.
struct PlaneTerms {
  double uu, uv, ut, us, tt, ts;
};

/// Upper triangle only.
void SetPlane(CMatrix& A, const BendingPlane& p, const PlaneTerms& t) {
  A[p.ui][p.ui] = A[p.uj][p.uj] = t.uu;
  A[p.ui][p.uj] = t.uv;
  A[p.ui][p.ti] = p.sign * t.ut;
  A[p.uj][p.tj] = -p.sign * t.ut;
  A[p.ui][p.tj] = p.sign * t.us;
  A[p.ti][p.uj] = -p.sign * t.us;
  A[p.ti][p.ti] = A[p.tj][p.tj] = t.tt;
  A[p.ti][p.tj] = t.ts;
}

/// Upper triangle only: the axial (0) or torsional (3) pair.
void SetPair(CMatrix& A, int i, double same, double cross) {
  A[i][i] = A[i + 6][i + 6] = same;
  A[i][i + 6] = cross;
}

PlaneTerms FormElasticTerms(double EI, double L, double phi) {
  const auto [a, b, c, d] = FormBendingTerms(EI, L, phi);
  return {a, -a, b, b, c, d};
}

/// Exact Timoshenko shape functions: translation part over mA = rho A L, rotary part over rho I/L.
PlaneTerms FormMassTerms(const BeamProperties& p, double I, double phi) {
  const double L = p.L, phi2 = phi * phi;
  const double f = 1.0 / ((1.0 + phi) * (1.0 + phi));
  const double m = f * p.rho * p.A * L;
  const double q = f * p.rho * I / L;
  const double A1 = m * (13.0 / 35.0 + 7.0 / 10.0 * phi + phi2 / 3.0) + 6.0 / 5.0 * q;
  const double A2 = m * (9.0 / 70.0 + 3.0 / 10.0 * phi + phi2 / 6.0) - 6.0 / 5.0 * q;
  const double B1 = L * (m * (11.0 / 210.0 + 11.0 / 120.0 * phi + phi2 / 24.0) + q * (1.0 / 10.0 - phi / 2.0));
  const double B2 = L * (m * (13.0 / 420.0 + 3.0 / 40.0 * phi + phi2 / 24.0) - q * (1.0 / 10.0 - phi / 2.0));
  const double C1 = L * L * (m * (1.0 / 105.0 + phi / 60.0 + phi2 / 120.0) + q * (2.0 / 15.0 + phi / 6.0 + phi2 / 3.0));
  const double C2 =
      -L * L * (m * (1.0 / 140.0 + phi / 60.0 + phi2 / 120.0) + q * (1.0 / 30.0 + phi / 6.0 - phi2 / 6.0));
  return {A1, A2, B1, -B2, C1, C2};
}

/// Coupling of a plane's deflection with the twist, from the moment that runs from m0 to m1.
void SetTwistCoupling(CMatrix& A, const BendingPlane& p, double m0, double m1, double L) {
  const double s = (m0 + m1) / (2.0 * L);
  const double t = p.sign * (m0 - m1) / 12.0;
  A[p.ui][3] = A[p.uj][9] = s;
  A[p.ui][9] = A[3][p.uj] = -s;
  A[3][p.tj] = A[p.ti][9] = t;
  A[3][p.ti] = A[9][p.tj] = -t;
}

/// Shape functions at the stations, without shear deformation.
constexpr auto c_shapes = [] {
  std::array<HermiteCubic, c_nStations> shapes = {};
  for (int p = 0; p < c_nStations; ++p) shapes[p] = FormHermiteCubic(GetStation(p));
  return shapes;
}();

int FindPlace(std::span<const int> places, int nPlace) {
  int k = 0;
  while (places[k] != nPlace) ++k;
  return k;
}

}  // namespace

double ComputeShearParameter(double kappa, double E, double I, double G, double A, double L) {
  return 12.0 * kappa * E * I / (G * A * L * L);
}

BendingTerms FormBendingTerms(double EI, double L, double phi) {
  const double r = EI / ((1.0 + phi) * L);
  return {12.0 * r / (L * L), 6.0 * r / L, (4.0 + phi) * r, (2.0 - phi) * r};
}

void FormElasticMatrix(const BeamProperties& p, CMatrix& out) {
  out.Fill(0.0);
  SetPair(out, 0, p.E * p.A / p.L, -p.E * p.A / p.L);
  SetPair(out, 3, p.G * p.J / p.L, -p.G * p.J / p.L);
  SetPlane(out, c_planeZ, FormElasticTerms(p.E * p.Iz, p.L, p.phiZ));
  SetPlane(out, c_planeY, FormElasticTerms(p.E * p.Iy, p.L, p.phiY));
  MirrorUpper(out);
}

void FormConsistentMass(const BeamProperties& p, CMatrix& out) {
  const double m = p.rho * p.A * p.L;
  const double j = p.rho * p.J * p.L;
  out.Fill(0.0);
  SetPair(out, 0, m / 3.0, m / 6.0);
  SetPair(out, 3, j / 3.0, j / 6.0);
  SetPlane(out, c_planeZ, FormMassTerms(p, p.Iz, p.phiZ));
  SetPlane(out, c_planeY, FormMassTerms(p, p.Iy, p.phiY));
  MirrorUpper(out);
}

void FormGeometricMatrix(const BeamProperties& p, double N, const EndMoments& m, CMatrix& out) {
  const double L = p.L;
  const double twist = (p.Iy + p.Iz) * N / (p.A * L);
  const PlaneTerms terms = {1.2 * N / L, -1.2 * N / L, N / 10.0, N / 10.0, 2.0 * N * L / 15.0, -N * L / 30.0};
  out.Fill(0.0);
  SetPair(out, 0, N / L, -N / L);
  SetPair(out, 3, twist, -twist);
  SetPlane(out, c_planeZ, terms);
  SetPlane(out, c_planeY, terms);
  SetTwistCoupling(out, c_planeZ, m.my0, m.my1, L);
  SetTwistCoupling(out, c_planeY, m.mz0, m.mz1, L);
  MirrorUpper(out);
}

void FormHingeMatrix(const BeamProperties& p, HingedEnd hinge, std::span<const int> places, CMatrix& out) {
  out.Fill(0.0);
  for (std::size_t k = 0; k < places.size(); ++k) out[places[k]][static_cast<int>(k)] = 1.0;
  for (const BendingPlane& plane : {c_planeZ, c_planeY}) {
    const int ui = FindPlace(places, plane.ui), uj = FindPlace(places, plane.uj);
    if (hinge == HingedEnd::Both) {
      // theta_i = theta_j = (u_j - u_i)/L
      for (const int nHinge : {plane.ti, plane.tj}) {
        out[nHinge][ui] = -plane.sign / p.L;
        out[nHinge][uj] = plane.sign / p.L;
      }
      continue;
    }
    // theta = [6 (u_j - u_i)/L + (phi - 2) theta_other]/(4 + phi)
    const double phi = plane.sign > 0.0 ? p.phiZ : p.phiY;
    const int nHinge = hinge == HingedEnd::I ? plane.ti : plane.tj;
    const int nOther = hinge == HingedEnd::I ? plane.tj : plane.ti;
    out[nHinge][ui] = -plane.sign * 6.0 / (p.L * (4.0 + phi));
    out[nHinge][uj] = plane.sign * 6.0 / (p.L * (4.0 + phi));
    out[nHinge][FindPlace(places, nOther)] = (phi - 2.0) / (4.0 + phi);
  }
  // The twist follows the end that is held.
  if (hinge == HingedEnd::I) out[3][FindPlace(places, 9)] = 1.0;
  if (hinge == HingedEnd::J) out[9][FindPlace(places, 3)] = 1.0;
}

Diagram FormDeflectionDiagram(const BendingPlane& plane, double phi, double L, const MemberVector& u) {
  Diagram values;
  for (int p = 0; p < c_nStations; ++p) {
    const HermiteCubic N = phi == 0.0 ? c_shapes[p] : FormHermiteCubic(GetStation(p), phi);
    values[p] = N.dI * u[plane.ui] + N.dJ * u[plane.uj] +
                plane.sign * (L * N.dSlopeI * u[plane.ti] + L * N.dSlopeJ * u[plane.tj]);
  }
  return values;
}

}  // namespace skyframe
