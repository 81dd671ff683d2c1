#include "skyframe/checks/ModalQuantities.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numeric>
#include <utility>

#include "skyframe/values/SpectrumSite.h"

namespace skyframe::host {

namespace {

/// The horizontal direction in which more mass is free to move; it holds for the whole structure, so that the masses
/// of floors add up to its own.
std::size_t FindMassDirection(const ModalBasis& basis) {
  constexpr double c_dMore = 1.0 + 1.0e-9;
  const Vector3 total = SumMasses(basis);
  return total[1] > c_dMore * total[0] ? 1 : 0;
}

/// Masses by node from the products of the unit translations.
std::vector<Vector3> TakeMasses(const std::vector<NodeField>& products) {
  std::vector<Vector3> masses(products[0].size());
  for (std::size_t n = 0; n < masses.size(); ++n) {
    for (std::size_t d = 0; d < 3; ++d) masses[n][d] = products[d][n][d];
  }
  return masses;
}

double Divide(double dDividend, double dDivisor) { return dDivisor > 0.0 ? dDividend / dDivisor : 0.0; }

}  // namespace

double ModalBasis::GetPeriod(std::size_t i) const { return c_dTwoPi / omega[i]; }

std::vector<NodeField> FormUnitTranslations(std::size_t nNodes) {
  std::vector<NodeField> fields(3, NodeField(nNodes));
  for (std::size_t d = 0; d < fields.size(); ++d) {
    for (NodeValues& values : fields[d]) values[d] = 1.0;
  }
  return fields;
}

ModeSettings FormModeSettings(const JobCombination& combination, bool bShear) {
  ModeSettings settings;
  settings.bShear = bShear;
  for (const auto& [nCase, dFactor] : combination) {
    settings.loadFlags[static_cast<std::size_t>(nCase)] = 1;
    settings.loadFactors[static_cast<std::size_t>(nCase)] = dFactor;
  }
  return settings;
}

std::optional<ModalBasis> FormBasis(std::vector<double> omega, std::vector<NodeField> shapes, std::size_t nNodes,
                                    const ModeSettings& settings) {
  std::vector<NodeField> accelerations = FormUnitTranslations(nNodes);
  accelerations.insert(accelerations.end(), shapes.begin(), shapes.end());
  std::optional<std::vector<NodeField>> products = FormInertia(accelerations, settings);
  if (!products) return std::nullopt;
  ModalBasis basis;
  basis.masses = TakeMasses(*products);
  basis.omega = std::move(omega);
  basis.shapes = std::move(shapes);
  basis.inertia.assign(std::make_move_iterator(products->begin() + 3), std::make_move_iterator(products->end()));
  return basis;
}

Vector3 SumMasses(const ModalBasis& basis) {
  Vector3 sum = {};
  for (const Vector3& mass : basis.masses) {
    for (std::size_t d = 0; d < 3; ++d) sum[d] += mass[d];
  }
  return sum;
}

double GetGravityMass(const ModalBasis& basis) { return SumMasses(basis)[FindMassDirection(basis)]; }

double FormModalMass(const ModalBasis& basis, std::size_t i) {
  double dSum = 0.0;
  for (std::size_t n = 0; n < basis.shapes[i].size(); ++n) {
    const NodeValues &phi = basis.shapes[i][n], &inertia = basis.inertia[i][n];
    dSum = std::inner_product(phi.begin(), phi.end(), inertia.begin(), dSum);
  }
  return dSum;
}

Vector3 SumInertia(const ModalBasis& basis, std::size_t i) {
  Vector3 sum = {};
  for (const NodeValues& force : basis.inertia[i]) {
    for (std::size_t d = 0; d < 3; ++d) sum[d] += force[d];
  }
  return sum;
}

Vector3 FormMassShares(const ModalBasis& basis, std::size_t i) {
  const Vector3 M = SumMasses(basis), L = SumInertia(basis, i);
  Vector3 shares = {};
  for (std::size_t d = 0; d < 3; ++d) shares[d] = Divide(L[d] * L[d], M[d]);
  return shares;
}

StoreyMass FormStoreyMass(const Job& job, const ModalBasis& basis, std::span<const std::size_t> nodes) {
  const std::size_t d = FindMassDirection(basis);
  StoreyMass mass;
  for (const std::size_t n : nodes) {
    const double m = basis.masses[n][d];
    mass.dMass += m;
    mass.dX += m * job.nodes[n].dX;
    mass.dY += m * job.nodes[n].dY;
  }
  mass.dX = Divide(mass.dX, mass.dMass);
  mass.dY = Divide(mass.dY, mass.dMass);
  return mass;
}

MotionShares FormMotionShares(const Job& job, const StoreyModel& storeys, const ModalBasis& basis, std::size_t i) {
  const std::size_t d = FindMassDirection(basis);
  MotionShares shares;
  for (const Storey& storey : storeys.storeys) {
    const StoreyMass centre = FormStoreyMass(job, basis, storey.nodes);
    double Px = 0.0, Py = 0.0, L = 0.0, J = 0.0;
    for (const std::size_t n : storey.nodes) {
      const double x = job.nodes[n].dX - centre.dX, y = job.nodes[n].dY - centre.dY;
      const NodeValues& force = basis.inertia[i][n];
      Px += force[0];
      Py += force[1];
      L += x * force[1] - y * force[0];
      J += basis.masses[n][d] * (x * x + y * y);
    }
    shares.dX += Divide(Px * Px, centre.dMass);
    shares.dY += Divide(Py * Py, centre.dMass);
    shares.dTorsion += Divide(L * L, J);
  }
  const double dSum = shares.dX + shares.dY + shares.dTorsion;
  constexpr double c_dLeast = 0.01;  // phi^T M phi is 1: below it the floors as a whole stand still
  if (dSum < c_dLeast) return {};
  return {shares.dX / dSum, shares.dY / dSum, shares.dTorsion / dSum};
}

FirstModes FindFirstModes(std::span<const MotionShares> shares) {
  FirstModes first;
  for (std::size_t i = 0; i < shares.size(); ++i) {
    if (!first.translation && shares[i].IsTranslation()) first.translation = i;
    if (!first.torsion && shares[i].IsTorsion()) first.torsion = i;
  }
  return first;
}

}  // namespace skyframe::host
