#include "skyframe/history/Integrators.h"

#include <algorithm>

namespace skyframe {

namespace {

std::vector<double> MakeVector(int n) { return std::vector<double>(static_cast<std::size_t>(n)); }

}  // namespace

NewmarkConstants::NewmarkConstants(double alpha, double delta, double dt)
    : a0(1.0 / (alpha * dt * dt)),
      a1(delta / (alpha * dt)),
      a2(1.0 / (alpha * dt)),
      a3(1.0 / (2.0 * alpha) - 1.0),
      a4(delta / alpha - 1.0),
      a5((delta / alpha - 2.0) * dt / 2.0),
      a6((1.0 - delta) * dt),
      a7(delta * dt) {}

WilsonConstants::WilsonConstants(double theta_, double dt_)
    : theta(theta_),
      dt(dt_),
      a0(6.0 / (theta * dt * theta * dt)),
      a1(3.0 / (theta * dt)),
      a2(2.0 * a1),
      a3(theta * dt / 2.0),
      a4(a0 / theta),
      a5(-a2 / theta),
      a6(1.0 - 3.0 / theta),
      a7(dt / 2.0),
      a8(dt * dt / 6.0) {}

CLinearIntegrator::CLinearIntegrator(const CRowMatrix& M, const CRowMatrix& C, SparseMatrix& effective)
    : m_state(M.GetOrder()),
      m_p(MakeVector(M.GetOrder())),
      m_q(MakeVector(M.GetOrder())),
      m_M(M),
      m_C(C),
      m_effective(effective) {}

bool CLinearIntegrator::SolveEffective(std::span<double> target) {
  m_M.MultiplyAdd(m_p, target);
  m_C.MultiplyAdd(m_q, target);
  return m_effective.Solve(m_M.GetOrder(), target);
}

CNewmarkIntegrator::CNewmarkIntegrator(const NewmarkConstants& constants, const CRowMatrix& M, const CRowMatrix& C,
                                       SparseMatrix& effective)
    : CLinearIntegrator(M, C, effective), m_constants(constants), m_next(MakeVector(M.GetOrder())) {}

bool CNewmarkIntegrator::StepForce(std::span<const double> R) {
  std::copy(R.begin(), R.end(), m_next.begin());
  std::fill(m_p.begin(), m_p.end(), 0.0);
  return Step();
}

bool CNewmarkIntegrator::StepGround(std::span<const double> g) {
  std::fill(m_next.begin(), m_next.end(), 0.0);
  std::copy(g.begin(), g.end(), m_p.begin());
  return Step();
}

bool CNewmarkIntegrator::Step() {
  const auto& [a0, a1, a2, a3, a4, a5, a6, a7] = m_constants;
  auto& [u, v, a] = m_state;
  const std::size_t n = u.size();
  // R^ = R + M (g + a0 u + a2 v + a3 a) + C (a1 u + a4 v + a5 a)
  for (std::size_t i = 0; i < n; ++i) {
    m_p[i] += a0 * u[i] + a2 * v[i] + a3 * a[i];
    m_q[i] = a1 * u[i] + a4 * v[i] + a5 * a[i];
  }
  if (!SolveEffective(m_next)) return false;
  for (std::size_t i = 0; i < n; ++i) {
    // a(t + dt) = a0 (u(t + dt) - u) - a2 v - a3 a;  v(t + dt) = v + a6 a + a7 a(t + dt)
    const double dNext = a0 * (m_next[i] - u[i]) - a2 * v[i] - a3 * a[i];
    v[i] += a6 * a[i] + a7 * dNext;
    a[i] = dNext;
  }
  u.swap(m_next);
  return true;
}

CWilsonIntegrator::CWilsonIntegrator(const WilsonConstants& constants, const CRowMatrix& M, const CRowMatrix& C,
                                     SparseMatrix& effective)
    : CLinearIntegrator(M, C, effective),
      m_constants(constants),
      m_load(MakeVector(M.GetOrder())),
      m_ahead(MakeVector(M.GetOrder())) {}

bool CWilsonIntegrator::StepForce(std::span<const double> R) {
  const auto& [theta, dt, a0, a1, a2, a3, a4, a5, a6, a7, a8] = m_constants;
  auto& [u, v, a] = m_state;
  const std::size_t n = u.size();
  // R^ = (theta - 1)(R(t + dt) - R(t)) + R(t + dt) + M (a0 u + a2 v + 2 a) + C (a1 u + 2 v + a3 a)
  for (std::size_t i = 0; i < n; ++i) {
    m_ahead[i] = (theta - 1.0) * (R[i] - m_load[i]) + R[i];
    m_load[i] = R[i];
    m_p[i] = a0 * u[i] + a2 * v[i] + 2.0 * a[i];
    m_q[i] = a1 * u[i] + 2.0 * v[i] + a3 * a[i];
  }
  if (!SolveEffective(m_ahead)) return false;
  for (std::size_t i = 0; i < n; ++i) {
    // a(t + dt) = a4 (u(t + theta dt) - u) + a5 v + a6 a
    const double dNext = a4 * (m_ahead[i] - u[i]) + a5 * v[i] + a6 * a[i];
    // u(t + dt) = u + dt v + a8 (a(t + dt) + 2 a);  v(t + dt) = v + a7 (a(t + dt) + a)
    u[i] += dt * v[i] + a8 * (dNext + 2.0 * a[i]);
    v[i] += a7 * (dNext + a[i]);
    a[i] = dNext;
  }
  return true;
}

}  // namespace skyframe
