#include "skyframe/modal/LanczosSolver.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "skyframe/numeric/VectorAlgebra.h"
#include "skyframe/platform/Progress.h"
#include "texts.h"

namespace skyframe {
namespace {

constexpr double c_dBreakdown = 1e-20;  ///< squared share of a vector that counts as nothing
constexpr int c_nRestartTries = 3;
constexpr int c_nRestartSweeps = 3;

/// More of it is left than round-off. Written so that NaN is refused.
bool IsLeft(double dNorm2, double dWhole2) { return std::isfinite(dNorm2) && dNorm2 > c_dBreakdown * dWhole2; }

}  // namespace

CLanczosSolver::CLanczosSolver(int n, StiffnessSolve solve, MassProduct multiply)
    : m_n(n),
      m_solve(std::move(solve)),
      m_multiply(std::move(multiply)),
      m_Q(n),
      m_MQ(n),
      m_next(static_cast<std::size_t>(n)),
      m_nextM(static_cast<std::size_t>(n)),
      m_y(static_cast<std::size_t>(n)) {}

void CLanczosSolver::Start(std::vector<double> x0) {
  const double dNorm2 = FormMassNorm2(x0);
  if (IsLeft(dNorm2, 0.0)) {
    SetNext(x0, std::sqrt(dNorm2), 0.0);
  } else {
    Restart();
  }
}

bool CLanczosSolver::Extend(int m) {
  m_Q.Reserve(m);
  m_MQ.Reserve(m);
  CProgress progress(texts::c_strModalProgress, m, GetSize());
  while (GetSize() < m && !m_bExhausted) {
    if (!Step()) return false;
    progress.Advance();
  }
  return true;
}

std::vector<double> CLanczosSolver::MakeRandomVector() {
  std::vector<double> x(static_cast<std::size_t>(m_n));
  for (double& d : x) d = static_cast<double>(m_random() % 100);
  return x;
}

/// Takes q_j into the basis and forms beta_j, q_j+1.
bool CLanczosSolver::Step() {
  const double dLastBeta = m_dNextBeta;
  if (GetSize() > 0) m_beta.push_back(dLastBeta);
  m_Q.Append(m_next);
  m_MQ.Append(m_nextM);
  const int j = GetSize() - 1;
  const std::span<const double> q = m_Q.GetColumn(j);

  // K y = M q_j, alpha_j = (M q_j)^T y
  if (!m_solve(m_nextM, m_y)) return false;
  const double dAlpha = Dot(m_nextM, m_y);
  m_alpha.push_back(dAlpha);

  // r = y - alpha_j q_j - beta_j-1 q_j-1
  const std::span<double> r = m_y;
  for (std::size_t i = 0; i < r.size(); ++i) r[i] -= dAlpha * q[i];
  if (j > 0) {
    const std::span<const double> qPrevious = m_Q.GetColumn(j - 1);
    for (std::size_t i = 0; i < r.size(); ++i) r[i] -= dLastBeta * qPrevious[i];
  }

  double dRemoved2 = Orthogonalise(r);
  double dNorm2 = FormMassNorm2(r);
  // |r|^2 before the sweep was dNorm2 + dRemoved2: once more when it dropped below one half
  if (dNorm2 < dRemoved2) {
    dRemoved2 += Orthogonalise(r);
    dNorm2 = FormMassNorm2(r);
  }
  // y^T M y = alpha_j^2 + beta_j-1^2 + what the sweeps removed + beta_j^2
  const double dWhole2 = dAlpha * dAlpha + dLastBeta * dLastBeta + dRemoved2 + dNorm2;
  if (IsLeft(dNorm2, dWhole2)) {
    const double dBeta = std::sqrt(dNorm2);
    SetNext(r, dBeta, dBeta);
  } else {
    Restart();
  }
  return true;
}

/// One classical Gram-Schmidt sweep, r <- r - Q (M Q)^T r. Returns the squared M-norm of what it took away.
double CLanczosSolver::Orthogonalise(std::span<double> r) {
  m_c.resize(static_cast<std::size_t>(GetSize()));
  m_MQ.MultiplyTransposed(r, m_c);
  m_Q.SubtractProduct(m_c, r);
  return Dot(m_c, m_c);
}

/// r^T M r; leaves M r in m_nextM.
double CLanczosSolver::FormMassNorm2(std::span<const double> r) {
  m_multiply(r, m_nextM);
  return Dot(r, m_nextM);
}

/// q_j+1 = r / norm; M r stands in m_nextM.
void CLanczosSolver::SetNext(std::span<const double> r, double dNorm, double dBeta) {
  for (std::size_t i = 0; i < r.size(); ++i) {
    m_next[i] = r[i] / dNorm;
    m_nextM[i] /= dNorm;
  }
  m_dNextBeta = dBeta;
}

/// Goes on with a random direction that the invariant subspace found so far does not hold.
void CLanczosSolver::Restart() {
  for (int nTry = 0; nTry < c_nRestartTries; ++nTry) {
    std::vector<double> r = MakeRandomVector();
    const double dWhole2 = FormMassNorm2(r);
    for (int nSweep = 0; nSweep < c_nRestartSweeps; ++nSweep) Orthogonalise(r);
    const double dNorm2 = FormMassNorm2(r);
    if (IsLeft(dNorm2, dWhole2)) return SetNext(r, std::sqrt(dNorm2), 0.0);
  }
  m_bExhausted = true;
}

CMatrix CLanczosSolver::FormRitzVectors(int nModes) const {
  CMatrix Phi(m_n, nModes);
  const std::size_t m = m_ritz.values.size();
  std::vector<double> column(static_cast<std::size_t>(m_n));
  std::vector<double> s(m);
  for (int i = 0; i < nModes; ++i) {
    const auto first = m_ritz.vectors.begin() + static_cast<std::ptrdiff_t>(static_cast<std::size_t>(i) * m);
    std::transform(first, first + static_cast<std::ptrdiff_t>(m), s.begin(), std::negate<>());
    std::fill(column.begin(), column.end(), 0.0);
    m_Q.SubtractProduct(s, column);
    for (int k = 0; k < m_n; ++k) Phi[k][i] = column[static_cast<std::size_t>(k)];
  }
  return Phi;
}

double CLanczosSolver::GetResidualNorm(int i) const {
  return m_bExhausted ? 0.0 : std::abs(m_dNextBeta * m_ritz.GetVector(GetSize() - 1, i));
}

}  // namespace skyframe
