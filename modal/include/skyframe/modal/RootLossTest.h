#pragma once

#include <functional>
#include <optional>
#include <span>

#include "skyframe/numeric/RowMatrix.h"
#include "skyframe/numeric/SparseMatrix.h"

namespace skyframe {

enum class RootCheck { Accept, Enlarge, Failed };

/// So many modes lie below omega^2 = dShift.
struct SturmCount {
  double dShift = 0.0;
  int nBelow = 0;
};

/// Decides after each pass whether a root was lost among the wanted ones.
/// theta: the n wanted Ritz values, 1 / omega^2, descending.
class IRootLossTest {
 public:
  virtual ~IRootLossTest() = default;
  [[nodiscard]] virtual RootCheck Check(std::span<const double> theta) = 0;
  /// The highest shift that passed a count, with that count; nothing from a test that does not count.
  [[nodiscard]] virtual std::optional<SturmCount> GetProof() const { return std::nullopt; }
};

/// Accepts when the wanted frequencies did not come down from one pass to the next.
class CModeComparisonTest final : public IRootLossTest {
 public:
  [[nodiscard]] RootCheck Check(std::span<const double> theta) override;

 private:
  std::optional<double> m_previous;
};

/// Counts by Sturm sequences the modes below the highest wanted one and, once that count is right and
/// from then on, below the one before it.
class CSturmTest final : public IRootLossTest {
 public:
  /// Number of eigenvalues omega^2 below the argument; nothing when it cannot be found.
  using CountBelow = std::function<std::optional<int>(double dOmega2)>;

  explicit CSturmTest(CountBelow countBelow) : m_countBelow(std::move(countBelow)) {}
  [[nodiscard]] RootCheck Check(std::span<const double> theta) override;
  [[nodiscard]] std::optional<SturmCount> GetProof() const override { return m_proof; }

 private:
  [[nodiscard]] RootCheck CheckBelow(double dTheta, int nAllowed);

  CountBelow m_countBelow;
  std::optional<SturmCount> m_proof;
};

/// Eigenvalues of the pencil (K, M) below a shift: the negative pivots of S = K - shift M over the leading
/// F x F block (Sylvester's law of inertia), F the order of M. S holds K at first, and the factors at last.
/// Nothing (after the kernel's message) when S was not allocated or cannot be factorised.
[[nodiscard]] std::optional<int> CountBelowShift(SparseMatrix& S, const CRowMatrix& M, double dShift);

/// Next subspace size after m: (n + 8) / 2 more columns, at most neq. Nothing when that exceeds
/// nMultiple times the first size, unless all neq are reached by cutting back.
[[nodiscard]] std::optional<int> EnlargeSubspace(int m, int nModes, int nEquations, int nFirstSize, int nMultiple);

/// First subspace size: the larger of n + 13 and 2 n, at most neq.
[[nodiscard]] int ChooseFirstSize(int nModes, int nEquations);

}  // namespace skyframe
