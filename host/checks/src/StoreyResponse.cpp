#include "skyframe/checks/StoreyResponse.h"

#include <algorithm>
#include <cmath>

#include "skyframe/connect/Inquiries.h"

namespace skyframe::host {

namespace {

using Plan = std::array<double, 2>;

CombinationRule FormRule(const ModalBasis& basis, const ModalLoads& loads) {
  return {loads.nMethod, basis.omega, loads.zeta};
}

/// Acceleration of the mode as a whole: alpha gamma g
double GetAcceleration(const ModalLoads& loads, std::size_t i) {
  return loads.alpha[i] * loads.gamma[i] * c_dSpectrumGravity;
}

/// alpha gamma g / omega^2
double GetDisplacement(const ModalBasis& basis, const ModalLoads& loads, std::size_t i) {
  return GetAcceleration(loads, i) / (basis.omega[i] * basis.omega[i]);
}

double Along(const Plan& e, const NodeValues& values) { return e[0] * values[0] + e[1] * values[1]; }

/// Forces, shears and moments of all storeys in mode i, three a storey.
std::vector<double> FormForces(const Job& job, const StoreyModel& storeys, const ModalBasis& basis,
                               const ModalLoads& loads, const Plan& e, std::size_t i) {
  const double f = GetAcceleration(loads, i);
  std::vector<double> forces(3 * storeys.storeys.size());
  double dShear = 0.0, dMoment = 0.0;
  for (std::size_t j = storeys.storeys.size(); j-- > 0;) {
    const Storey& storey = storeys.storeys[j];
    double dForce = 0.0;
    // M_j = M_j+1 + V_j+1 h_j + moment of the floor's own forces about the lower level
    dMoment += dShear * storey.GetHeight();
    for (const std::size_t n : storey.nodes) {
      const double F = f * Along(e, basis.inertia[i][n]);
      dForce += F;
      dMoment += F * (job.nodes[n].dZ - storey.dBottom);
    }
    dShear += dForce;
    forces[3 * j] = dForce;
    forces[3 * j + 1] = dShear;
    forces[3 * j + 2] = dMoment;
  }
  return forces;
}

/// Displacements of the floor's nodes in mode i, then differences over its columns.
std::vector<double> FormMovements(const Storey& storey, const ModalBasis& basis, const ModalLoads& loads, const Plan& e,
                                  std::size_t i) {
  const double f = GetDisplacement(basis, loads, i);
  const auto u = [&](std::size_t n) { return f * Along(e, basis.shapes[i][n]); };
  std::vector<double> movements;
  for (const std::size_t n : storey.floor) movements.push_back(u(n));
  for (const auto& [nUpper, nLower] : storey.columns) movements.push_back(u(nUpper) - u(nLower));
  return movements;
}

template <class Form>
std::vector<double> Combine(const ModalBasis& basis, const ModalLoads& loads, Form form) {
  std::vector<std::vector<double>> maxima;
  for (std::size_t i = 0; i < basis.GetCount(); ++i) maxima.push_back(form(i));
  return CombineMaxima(FormRule(basis, loads), maxima);
}

void TakeMovements(std::span<const double> movements, const Storey& storey, StoreyResponse& response) {
  const auto floor = movements.first(storey.floor.size());
  const auto columns = movements.subspan(storey.floor.size());
  if (!floor.empty()) {
    response.dLargest = std::ranges::max(floor);
    response.dMean = 0.5 * (response.dLargest + std::ranges::min(floor));
  }
  if (columns.empty()) return;
  response.dDrift = std::ranges::max(columns);
  response.dMeanDrift = 0.5 * (response.dDrift + std::ranges::min(columns));
  response.dAngle = response.dDrift / storey.GetHeight();
}

}  // namespace

std::vector<double> FormParticipation(const ModalBasis& basis, const Vector3& direction) {
  std::vector<double> gamma;
  for (std::size_t i = 0; i < basis.GetCount(); ++i) {
    const Vector3 L = SumInertia(basis, i);
    gamma.push_back(direction[0] * L[0] + direction[1] * L[1] + direction[2] * L[2]);
  }
  return gamma;
}

Vector3 FormModalBaseShear(const ModalBasis& basis, const ModalLoads& loads, std::size_t i) {
  Vector3 shear = SumInertia(basis, i);
  for (double& V : shear) V *= GetAcceleration(loads, i);
  return shear;
}

Vector3 CombineBaseShear(const ModalBasis& basis, const ModalLoads& loads) {
  const std::vector<double> V = Combine(basis, loads, [&](std::size_t i) {
    const Vector3 shear = FormModalBaseShear(basis, loads, i);
    return std::vector<double>(shear.begin(), shear.end());
  });
  return {V[0], V[1], V[2]};
}

NodeField CombineDisplacements(const ModalBasis& basis, const ModalLoads& loads) {
  constexpr std::size_t c_nDofs = std::tuple_size_v<NodeValues>;
  const std::vector<double> u = Combine(basis, loads, [&](std::size_t i) {
    std::vector<double> values;
    for (const NodeValues& phi : basis.shapes[i]) {
      for (const double d : phi) values.push_back(GetDisplacement(basis, loads, i) * d);
    }
    return values;
  });
  NodeField field(u.size() / c_nDofs);
  for (std::size_t k = 0; k < u.size(); ++k) field[k / c_nDofs][k % c_nDofs] = u[k];
  return field;
}

std::optional<std::array<double, 2>> FindHorizontal(const Vector3& direction) {
  constexpr double c_dVertical = 1.0e-6;
  const double dLength = std::hypot(direction[0], direction[1]);
  if (dLength < c_dVertical) return std::nullopt;
  return Plan{direction[0] / dLength, direction[1] / dLength};
}

std::vector<StoreyResponse> FormStoreyResponse(const Job& job, const StoreyModel& storeys, const ModalBasis& basis,
                                               const ModalLoads& loads, const std::array<double, 2>& e) {
  const std::vector<double> forces =
      Combine(basis, loads, [&](std::size_t i) { return FormForces(job, storeys, basis, loads, e, i); });
  std::vector<StoreyResponse> responses(storeys.storeys.size());
  double dWeight = 0.0;
  for (std::size_t j = responses.size(); j-- > 0;) {
    const Storey& storey = storeys.storeys[j];
    StoreyResponse& response = responses[j];
    response.dForce = forces[3 * j];
    response.dShear = forces[3 * j + 1];
    response.dMoment = forces[3 * j + 2];
    response.dWeight = c_dGravity * FormStoreyMass(job, basis, storey.nodes).dMass;
    response.dWeightAbove = dWeight += response.dWeight;
    TakeMovements(Combine(basis, loads, [&](std::size_t i) { return FormMovements(storey, basis, loads, e, i); }),
                  storey, response);
  }
  return responses;
}

}  // namespace skyframe::host
