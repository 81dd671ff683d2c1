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
        if (++nIteration > c_nMaxIterations) {
          AddShift(l, m_n);
          return false;
        }
        Sweep(l, m);
      }
      AddShift(l, l + 1);
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

  /// Moves rows l and below by the eigenvalue of the top 2 x 2 nearest d_l; the shifts add up.
  void Shift(std::size_t l) {
    const double g = (m_d[l + 1] - m_d[l]) / (2.0 * m_e[l]);
    const double q = g + std::copysign(std::hypot(g, 1.0), g);
    const double dShift = m_d[l] - m_e[l] / q;
    m_d[l] = m_e[l] / q;
    m_d[l + 1] = m_e[l] * q;
    for (std::size_t i = l + 2; i < m_n; ++i) m_d[i] -= dShift;
    m_dShift += dShift;
  }

  void AddShift(std::size_t nFirst, std::size_t nLast) {
    for (std::size_t i = nFirst; i < nLast; ++i) m_d[i] += m_dShift;
  }

  /// One shifted QL step on the block l..m.
  void Sweep(std::size_t l, std::size_t m) {
    Shift(l);
    const double dShifted = m_d[l + 1];
    const double dCoupling = m_e[l + 1];
    double p = m_d[m];
    double c = 1.0, c2 = 1.0, c3 = 1.0;
    double s = 0.0, s2 = 0.0;
    for (std::size_t i = m; i-- > l;) {
      c3 = c2;
      c2 = c;
      s2 = s;
      const double g = c * m_e[i];
      const double h = c * p;
      const double r = std::hypot(p, m_e[i]);
      m_e[i + 1] = s * r;
      s = m_e[i] / r;
      c = p / r;
      p = c * m_d[i] - s * g;
      m_d[i + 1] = h + s * (c * g + s * m_d[i]);
      Rotate(i, c, s);
    }
    // A product, not a difference: the coupling goes down to any tolerance.
    p = -s * s2 * c3 * dCoupling * m_e[l] / dShifted;
    m_e[l] = s * p;
    m_d[l] = c * p;
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
  double m_dShift = 0.0;  ///< already taken off the rows that are not finished
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
