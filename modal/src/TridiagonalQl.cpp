#include "skyframe/modal/TridiagonalQl.h"

#include <algorithm>
#include <cmath>

namespace skyframe {
namespace {

constexpr int c_nMaxIterations = 50;  ///< per eigenvalue

/// The matrix (d, e) on its way to diagonal form and the product S of the rotations.
class CQlIteration {
 public:
  CQlIteration(std::span<const double> diagonal, std::span<const double> offDiagonal, double dTolerance)
      : m_n(diagonal.size()),
        m_d(diagonal.begin(), diagonal.end()),
        m_e(offDiagonal.begin(), offDiagonal.end()),
        m_S(m_n * m_n, 0.0),
        m_dTolerance(dTolerance) {
    m_e.resize(m_n, 0.0);
    for (std::size_t k = 0; k < m_n; ++k) m_S[k * m_n + k] = 1.0;
  }

  /// False when an eigenvalue does not settle.
  bool Run() {
    for (std::size_t l = 0; l < m_n; ++l) {
      m_dLargest = std::max(m_dLargest, std::abs(m_d[l]) + std::abs(m_e[l]));
      int nIteration = 0;
      for (std::size_t m = FindSplit(l); m != l; m = FindSplit(l)) {
        if (++nIteration > c_nMaxIterations) return false;
        Sweep(l, m);
      }
    }
    return true;
  }

  void SortByMagnitude() {
    for (std::size_t i = 0; i < m_n; ++i) {
      for (std::size_t k = i + 1; k < m_n; ++k) {
        if (std::abs(m_d[k]) > std::abs(m_d[i])) Exchange(i, k);
      }
    }
  }

  TridiagonalEigen TakeResult(bool bConverged) { return {std::move(m_d), std::move(m_S), bConverged}; }

 private:
  /// Last row of the unreduced block that starts at row l.
  [[nodiscard]] std::size_t FindSplit(std::size_t l) const {
    std::size_t m = l;
    while (m + 1 < m_n && !(std::abs(m_e[m]) <= m_dTolerance * m_dLargest)) ++m;
    return m;
  }

  /// One implicit QL step on the block l..m, shifted by the eigenvalue of its top 2 x 2 nearest d_l.
  void Sweep(std::size_t l, std::size_t m) {
    const double h = (m_d[l + 1] - m_d[l]) / (2.0 * m_e[l]);
    double g = m_d[m] - m_d[l] + m_e[l] / (h + std::copysign(std::hypot(h, 1.0), h));
    double s = 1.0;
    double c = 1.0;
    double p = 0.0;
    for (std::size_t i = m; i-- > l;) {
      const double f = s * m_e[i];
      const double b = c * m_e[i];
      const double r = std::hypot(f, g);
      m_e[i + 1] = r;
      if (r == 0.0) {  // the block falls apart at row i + 1
        m_d[i + 1] -= p;
        m_e[m] = 0.0;
        return;
      }
      s = f / r;
      c = g / r;
      g = m_d[i + 1] - p;
      const double t = (m_d[i] - g) * s + 2.0 * c * b;
      p = s * t;
      m_d[i + 1] = g + p;
      g = c * t - b;
      Rotate(i, c, s);
    }
    m_d[l] -= p;
    m_e[l] = g;
    m_e[m] = 0.0;
  }

  /// (s_i, s_i+1) <- (c s_i - s s_i+1, s s_i + c s_i+1)
  void Rotate(std::size_t i, double c, double s) {
    double* const x = m_S.data() + i * m_n;
    double* const y = x + m_n;
    for (std::size_t k = 0; k < m_n; ++k) {
      const double f = y[k];
      y[k] = s * x[k] + c * f;
      x[k] = c * x[k] - s * f;
    }
  }

  void Exchange(std::size_t i, std::size_t k) {
    std::swap(m_d[i], m_d[k]);
    std::swap_ranges(m_S.data() + i * m_n, m_S.data() + (i + 1) * m_n, m_S.data() + k * m_n);
  }

  std::size_t m_n;
  std::vector<double> m_d;
  std::vector<double> m_e;  ///< e_k couples rows k and k + 1; the last entry is 0
  std::vector<double> m_S;
  double m_dTolerance;
  double m_dLargest = 0.0;
};

}  // namespace

double TridiagonalEigen::GetVector(int k, int i) const {
  return vectors[static_cast<std::size_t>(i) * values.size() + static_cast<std::size_t>(k)];
}

TridiagonalEigen SolveTridiagonal(std::span<const double> diagonal, std::span<const double> offDiagonal,
                                  double dTolerance) {
  CQlIteration iteration(diagonal, offDiagonal, dTolerance);
  const bool bConverged = iteration.Run();
  iteration.SortByMagnitude();
  return iteration.TakeResult(bConverged);
}

}  // namespace skyframe
