#include "skyframe/checks/HistoryResponse.h"

#include <algorithm>
#include <cmath>

namespace skyframe::host {

namespace {

/// Dense symmetric positive definite matrix, factorised as L L^T. An unknown whose pivot vanishes becomes 0: its
/// column depends on those before it.
class CNormalEquations {
 public:
  explicit CNormalEquations(std::vector<std::vector<double>> A) : m_L(std::move(A)) {
    constexpr double c_dDependent = 1.0e-9;
    for (std::size_t j = 0; j < m_L.size(); ++j) {
      const double dDiagonal = m_L[j][j];
      for (std::size_t k = 0; k < j; ++k) m_L[j][j] -= m_L[j][k] * m_L[j][k];
      const double dPivot = m_L[j][j] > c_dDependent * dDiagonal ? std::sqrt(m_L[j][j]) : 0.0;
      m_L[j][j] = dPivot;
      for (std::size_t i = j + 1; i < m_L.size(); ++i) {
        for (std::size_t k = 0; k < j; ++k) m_L[i][j] -= m_L[i][k] * m_L[j][k];
        m_L[i][j] = dPivot > 0.0 ? m_L[i][j] / dPivot : 0.0;
      }
    }
  }

  void Solve(std::vector<double>& x) const {
    const auto divide = [this](double d, std::size_t i) { return m_L[i][i] > 0.0 ? d / m_L[i][i] : 0.0; };
    for (std::size_t i = 0; i < x.size(); ++i) {
      for (std::size_t k = 0; k < i; ++k) x[i] -= m_L[i][k] * x[k];
      x[i] = divide(x[i], i);
    }
    for (std::size_t i = x.size(); i-- > 0;) {
      for (std::size_t k = i + 1; k < x.size(); ++k) x[i] -= m_L[k][i] * x[k];
      x[i] = divide(x[i], i);
    }
  }

 private:
  std::vector<std::vector<double>> m_L;
};

std::vector<std::vector<double>> FormNormalMatrix(const ModalBasis& basis) {
  const std::size_t k = basis.GetCount();
  std::vector<std::vector<double>> A(k, std::vector<double>(k, 0.0));
  for (std::size_t i = 0; i < k; ++i) {
    for (std::size_t j = 0; j < k; ++j) {
      for (std::size_t n = 0; n < basis.masses.size(); ++n) {
        for (std::size_t d = 0; d < 3; ++d) {
          A[i][j] += basis.masses[n][d] * basis.shapes[i][n][d] * basis.shapes[j][n][d];
        }
      }
    }
  }
  return A;
}

/// phi_i^T m u at a step
double Project(const ModalBasis& basis, const HistoryResultFile& history, std::size_t i, std::size_t nStep) {
  double dSum = 0.0;
  for (std::size_t n = 0; n < basis.masses.size(); ++n) {
    for (std::size_t d = 0; d < 3; ++d) {
      dSum += basis.masses[n][d] * basis.shapes[i][n][d] * history.displacements[n][d][nStep];
    }
  }
  return dSum;
}

double GetAlong(const HistoryResultFile& history, std::size_t n, std::size_t nStep, const std::array<double, 2>& e) {
  return e[0] * history.displacements[n][0][nStep] + e[1] * history.displacements[n][1][nStep];
}

/// Whether the file holds this run, as far as its digits tell.
bool IsOfRun(const HistorySet& run, const HistoryResultFile& history) {
  constexpr double c_dFileDigits = 1.0e-5;
  if (!run.bComplete || run.nSteps != history.nSteps || run.dTimeStep != history.dTimeStep) return false;
  if (run.GetNodeCount() != std::ssize(history.displacements)) return false;
  double dLargest = 0.0, dDifference = 0.0;
  for (std::size_t d = 0; d < 3; ++d) {
    for (int k = 0; k < run.nSteps; ++k) {
      const double* const u = run.values[d][k];
      for (std::size_t n = 0; n < history.displacements.size(); ++n) {
        dLargest = std::max(dLargest, std::abs(u[n]));
        dDifference = std::max(dDifference, std::abs(u[n] - history.displacements[n][d][static_cast<std::size_t>(k)]));
      }
    }
  }
  return dDifference <= c_dFileDigits * dLargest;
}

/// Largest magnitude over the steps.
template <class Value>
double FindLargest(std::size_t nSteps, Value value) {
  double dLargest = 0.0;
  for (std::size_t k = 0; k < nSteps; ++k) dLargest = std::max(dLargest, std::abs(value(k)));
  return dLargest;
}

}  // namespace

std::vector<double> FormHistoryShear(const ModalBasis& basis, const HistoryResultFile& history,
                                     const std::array<double, 2>& e) {
  const CNormalEquations equations(FormNormalMatrix(basis));
  std::vector<double> stiffness;  // omega_i^2 L_i
  for (std::size_t i = 0; i < basis.GetCount(); ++i) {
    const Vector3 L = SumInertia(basis, i);
    stiffness.push_back(basis.omega[i] * basis.omega[i] * (e[0] * L[0] + e[1] * L[1]));
  }
  std::vector<double> shear(static_cast<std::size_t>(history.nSteps));
  std::vector<double> q(basis.GetCount());
  for (std::size_t k = 0; k < shear.size(); ++k) {
    for (std::size_t i = 0; i < q.size(); ++i) q[i] = Project(basis, history, i, k);
    equations.Solve(q);
    for (std::size_t i = 0; i < q.size(); ++i) shear[k] += stiffness[i] * q[i];
  }
  return shear;
}

std::optional<std::vector<double>> FindHistoryShear(const HistorySet& run, const HistoryResultFile& history,
                                                    const std::array<double, 2>& e) {
  if (run.baseShear.GetRows() != history.nSteps || history.nSteps == 0 || !IsOfRun(run, history)) return std::nullopt;
  std::vector<double> shear(static_cast<std::size_t>(history.nSteps));
  for (int k = 0; k < history.nSteps; ++k) {
    shear[static_cast<std::size_t>(k)] = e[0] * run.baseShear[k][0] + e[1] * run.baseShear[k][1];
  }
  return shear;
}

std::vector<StoreyPeaks> FormStoreyPeaks(const StoreyModel& storeys, const HistoryResultFile& history,
                                         const std::array<double, 2>& e) {
  const auto nSteps = static_cast<std::size_t>(history.nSteps);
  std::vector<StoreyPeaks> peaks;
  for (const Storey& storey : storeys.storeys) {
    StoreyPeaks& peak = peaks.emplace_back();
    for (const std::size_t n : storey.floor) {
      const auto u = [&](std::size_t k) { return GetAlong(history, n, k, e); };
      peak.dDisplacement = std::max(peak.dDisplacement, FindLargest(nSteps, u));
    }
    for (const auto& column : storey.columns) {
      const auto difference = [&](std::size_t k) {
        return GetAlong(history, column.first, k, e) - GetAlong(history, column.second, k, e);
      };
      peak.dDrift = std::max(peak.dDrift, FindLargest(nSteps, difference));
    }
    peak.dAngle = peak.dDrift / storey.GetHeight();
  }
  return peaks;
}

}  // namespace skyframe::host
