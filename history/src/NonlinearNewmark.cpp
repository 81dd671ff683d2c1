#include "skyframe/history/NonlinearNewmark.h"

#include <algorithm>
#include <cmath>

#include "skyframe/numeric/VectorAlgebra.h"

namespace skyframe {

namespace {

std::vector<double> MakeVector(int n) { return std::vector<double>(static_cast<std::size_t>(n)); }

}  // namespace

CNonlinearNewmark::CNonlinearNewmark(const NewmarkConstants& constants, const Settings& settings, const CRowMatrix& M,
                                     const CRowMatrix& C, const CRowMatrix& inertia, NonlinearStructure structure,
                                     std::span<const double> constantLoad, std::span<const double> resistance)
    : m_constants(constants),
      m_settings(settings),
      m_M(M),
      m_C(C),
      m_inertia(inertia),
      m_structure(std::move(structure)),
      m_constantLoad(constantLoad.begin(), constantLoad.end()),
      m_resistance(resistance.begin(), resistance.end()),
      m_state(M.GetOrder()),
      m_load(MakeVector(M.GetOrder())),
      m_step(MakeVector(M.GetOrder())),
      m_residual(MakeVector(M.GetOrder())),
      m_p(MakeVector(M.GetOrder())),
      m_q(MakeVector(M.GetOrder())) {}

bool CNonlinearNewmark::StepGround(std::span<const double> g) {
  if (!FormEffective()) return false;
  FormLoad(g);
  if (!Iterate()) return false;
  Advance();
  return true;
}

bool CNonlinearNewmark::FormEffective() {
  // K^ = K + a0 M + a1 C
  if (!m_structure.formTangent(m_effective)) return false;
  m_inertia.AddTo(m_effective, 1.0);
  return true;
}

void CNonlinearNewmark::FormLoad(std::span<const double> g) {
  const auto& c = m_constants;
  const auto& [u, v, a] = m_state;
  // P = P0 + M (g + a2 v + a3 a) + C (a4 v + a5 a)
  for (std::size_t i = 0; i < m_load.size(); ++i) {
    m_load[i] = m_constantLoad[i];
    m_p[i] = g[i] + c.a2 * v[i] + c.a3 * a[i];
    m_q[i] = c.a4 * v[i] + c.a5 * a[i];
  }
  m_M.MultiplyAdd(m_p, m_load);
  m_C.MultiplyAdd(m_q, m_load);
}

void CNonlinearNewmark::FormResidual() {
  // psi = P - Fint - M (a0 U) - C (a1 U)
  for (std::size_t i = 0; i < m_load.size(); ++i) {
    m_residual[i] = m_load[i] - m_resistance[i];
    m_p[i] = -m_constants.a0 * m_step[i];
    m_q[i] = -m_constants.a1 * m_step[i];
  }
  m_M.MultiplyAdd(m_p, m_residual);
  m_C.MultiplyAdd(m_q, m_residual);
}

bool CNonlinearNewmark::Iterate() {
  std::fill(m_step.begin(), m_step.end(), 0.0);
  const double dForce = Norm(m_load);
  double dFirstIncrement = 0.0;
  FormResidual();
  m_bConverged = false;
  for (m_nIterations = 0; m_nIterations < m_settings.nMaxIter;) {
    // K^ dU = psi; the residual becomes the increment
    if (!m_effective.Solve(m_M.GetOrder(), m_residual)) return false;
    const double dIncrement = Norm(m_residual);
    if (m_nIterations++ == 0) dFirstIncrement = dIncrement;
    for (std::size_t i = 0; i < m_step.size(); ++i) m_step[i] += m_residual[i];
    const std::span<const double> resistance = m_structure.move(m_residual);
    if (resistance.size() < m_resistance.size()) return false;
    std::copy_n(resistance.begin(), m_resistance.size(), m_resistance.begin());
    FormResidual();
    const double dResidual = Norm(m_residual);
    m_bConverged = m_settings.test.IsConverged(dResidual, dForce, dIncrement, dFirstIncrement);
    if (m_bConverged || !std::isfinite(dResidual)) break;  // it cannot come back
  }
  return true;
}

void CNonlinearNewmark::Advance() {
  const auto& c = m_constants;
  auto& [u, v, a] = m_state;
  for (std::size_t i = 0; i < u.size(); ++i) {
    // a(t + dt) = a0 U - a2 v - a3 a;  v(t + dt) = v + a6 a + a7 a(t + dt)
    const double dNext = c.a0 * m_step[i] - c.a2 * v[i] - c.a3 * a[i];
    u[i] += m_step[i];
    v[i] += c.a6 * a[i] + c.a7 * dNext;
    a[i] = dNext;
  }
}

}  // namespace skyframe
