#include "skyframe/modal/RootLossTest.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace skyframe {
namespace {

constexpr double c_dShiftFactor = 0.9998;  ///< of omega^2: just below the root itself
constexpr double c_dComparisonSlack = 0.0016666666666666666;

}  // namespace

RootCheck CModeComparisonTest::Check(std::span<const double> theta) {
  const int n = static_cast<int>(theta.size());
  // Deliberate: the highest wanted frequency that many times, not a sum over the upper third.
  const std::int64_t nTerms = n - 2 * static_cast<std::int64_t>(n) / 3;
  const double S = static_cast<double>(nTerms) * std::sqrt(1.0 / theta.back());
  const bool bSettled = m_previous && S >= *m_previous - n * c_dComparisonSlack;
  m_previous = S;
  return bSettled ? RootCheck::Accept : RootCheck::Enlarge;
}

RootCheck CSturmTest::Check(std::span<const double> theta) {
  const int n = static_cast<int>(theta.size());
  if (!m_proof) {
    const RootCheck highest = CheckBelow(theta[theta.size() - 1], n - 1);
    if (highest != RootCheck::Accept || n < 2) return highest;
  }
  return CheckBelow(theta[theta.size() - 2], n - 2);
}

/// The first count that passes is about the highest mode, and no later shift lies above it: Ritz values of
/// omega^2 come down as the subspace grows.
RootCheck CSturmTest::CheckBelow(double dTheta, int nAllowed) {
  const double dShift = c_dShiftFactor / dTheta;
  const std::optional<int> count = m_countBelow(dShift);
  if (!count) return RootCheck::Failed;
  if (*count > nAllowed) return RootCheck::Enlarge;
  if (!m_proof) m_proof = {dShift, *count};
  return RootCheck::Accept;
}

std::optional<int> CountBelowShift(SparseMatrix& S, const CRowMatrix& M, double dShift) {
  if (!S.IsAllocated()) return std::nullopt;
  const int F = M.GetOrder();
  M.AddTo(S, -dShift);
  if (!S.Decompose(F)) return std::nullopt;
  const std::span<const int> diagonal = S.GetDiagonal().first(static_cast<std::size_t>(F));
  const std::span<const double> values = S.GetValues();
  return static_cast<int>(
      std::ranges::count_if(diagonal, [&](int k) { return values[static_cast<std::size_t>(k)] < 0.0; }));
}

std::optional<int> EnlargeSubspace(int m, int nModes, int nEquations, int nFirstSize, int nMultiple) {
  const std::int64_t nLarger = static_cast<std::int64_t>(m) + (static_cast<std::int64_t>(nModes) + 8) / 2;
  if (nLarger > nEquations) return nEquations;
  if (nLarger > static_cast<std::int64_t>(nMultiple) * nFirstSize) return std::nullopt;
  return static_cast<int>(nLarger);
}

int ChooseFirstSize(int nModes, int nEquations) {
  const std::int64_t n = nModes;
  return static_cast<int>(std::min<std::int64_t>(std::max(n + 13, 2 * n), nEquations));
}

}  // namespace skyframe
