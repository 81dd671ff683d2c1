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
  if (!m_bHighestPassed) {
    const RootCheck highest = CheckBelow(theta[theta.size() - 1], n - 1);
    if (highest != RootCheck::Accept || n < 2) return highest;
    m_bHighestPassed = true;
  }
  return CheckBelow(theta[theta.size() - 2], n - 2);
}

RootCheck CSturmTest::CheckBelow(double dTheta, int nAllowed) const {
  const std::optional<int> count = m_countBelow(c_dShiftFactor / dTheta);
  if (!count) return RootCheck::Failed;
  return *count <= nAllowed ? RootCheck::Accept : RootCheck::Enlarge;
}

std::optional<int> CSturmCount::operator()(double dShift) const {
  // S = K - shift M; a copy of M has full column heights, whatever was trimmed from M
  SparseMatrix S = m_M;
  S *= -dShift;
  S += m_K;
  if (!S.Decompose(m_nFree)) return std::nullopt;
  const std::span<const int> diagonal = S.GetDiagonal().first(static_cast<std::size_t>(m_nFree));
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
