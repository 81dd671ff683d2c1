#pragma once

#include <functional>
#include <random>
#include <span>
#include <utility>
#include <vector>

#include "skyframe/modal/ColumnStore.h"
#include "skyframe/modal/TridiagonalQl.h"
#include "skyframe/numeric/Matrix.h"

namespace skyframe {

/// Lanczos recurrence on K^-1 M for the pencil K phi = omega^2 M phi, K and M symmetric, M positive
/// definite: K^-1 M Q = Q T + beta_m q_m+1 e_m^T with Q^T M Q = I and T tridiagonal (alpha, beta).
/// Ritz values theta of T approximate 1 / omega^2 from below, the largest first. With M semidefinite they still
/// do, but the vectors keep what the start vector has where there is no mass.
/// Lifecycle: Start, Extend as often as needed (the recurrence goes on where it stopped), SolveRitz.
/// Invariant: Q, M Q and alpha have GetSize() columns or entries, beta one less; q_m+1, M q_m+1 and
/// beta_m wait beside them.
/// Failure: Extend returns false when a solution with K fails. A subspace that cannot grow any more
/// stays at its size and IsExhausted is true.
/// Source: Parlett (1980), chapter 13; Ericsson and Ruhe (1980).
class CLanczosSolver {
 public:
  /// y = K^-1 b, n values each; false when K is singular.
  using StiffnessSolve = std::function<bool(std::span<const double> b, std::span<double> y)>;
  /// y = M x, n values each.
  using MassProduct = std::function<void(std::span<const double> x, std::span<double> y)>;

  CLanczosSolver(int n, StiffnessSolve solve, MassProduct multiply);

  /// Takes x0 (n values) as the direction of q_1; a vector without mass is replaced by a random one.
  void Start(std::vector<double> x0);
  /// Continues until the basis has m columns, or all there are.
  [[nodiscard]] bool Extend(int m);
  /// Random integers 0..99.
  [[nodiscard]] std::vector<double> MakeRandomVector();

  [[nodiscard]] int GetSize() const { return m_Q.GetCols(); }
  [[nodiscard]] bool IsExhausted() const { return m_bExhausted; }
  [[nodiscard]] const CColumnStore& GetBasis() const { return m_Q; }
  [[nodiscard]] std::span<const double> GetDiagonal() const { return m_alpha; }
  [[nodiscard]] std::span<const double> GetOffDiagonal() const { return m_beta; }

  /// Eigenpairs of T, theta descending by magnitude. They stay as they are while the basis grows.
  void SolveRitz(double dTolerance) { m_ritz = SolveTridiagonal(m_alpha, m_beta, dTolerance); }
  [[nodiscard]] const TridiagonalEigen& GetRitz() const { return m_ritz; }
  /// Goes back to pairs of an earlier, smaller T.
  void SetRitz(TridiagonalEigen ritz) { m_ritz = std::move(ritz); }
  [[nodiscard]] std::span<const double> GetRitzValues() const { return m_ritz.values; }
  /// Phi = Q S, the first nModes columns: n x nModes, Phi^T M Phi = I. Q: as many columns as S has rows.
  [[nodiscard]] CMatrix FormRitzVectors(int nModes) const;
  /// M-norm of K^-1 M phi_i - theta_i phi_i, |beta_m s(m, i)|; for pairs of the present T.
  [[nodiscard]] double GetResidualNorm(int i) const;

 private:
  [[nodiscard]] bool Step();
  double Orthogonalise(std::span<double> r);
  double FormMassNorm2(std::span<const double> r);
  void SetNext(std::span<const double> r, double dNorm, double dBeta);
  void Restart();

  int m_n;
  StiffnessSolve m_solve;
  MassProduct m_multiply;
  std::minstd_rand m_random;  ///< fixed seed: runs repeat exactly
  CColumnStore m_Q;
  CColumnStore m_MQ;
  std::vector<double> m_alpha;
  std::vector<double> m_beta;
  std::vector<double> m_next;   ///< q_m+1
  std::vector<double> m_nextM;  ///< M q_m+1
  double m_dNextBeta = 0.0;     ///< beta_m
  bool m_bExhausted = false;
  std::vector<double> m_y;
  std::vector<double> m_c;
  TridiagonalEigen m_ritz;
};

}  // namespace skyframe
