#include <algorithm>
#include <array>
#include <utility>

#include "Simd.h"
#include "skyframe/numeric/SkylineKernel.h"

namespace skyframe::skyline {

namespace {

constexpr int c_nGroup = 4;  // columns taken at a time

using GroupColumns = std::make_integer_sequence<int, c_nGroup>;

/// Four consecutive columns i .. i + 3; entry (k, i + a) is columns[a][k].
struct SolveGroup {
  int nFirst = 0;
  int nCommonTop = 0;  ///< from this row down to i - 1 all of them are stored
  std::array<const double*, c_nGroup> columns{};
};

/// sum[a] = sum over nBegin <= k < nEnd of columns[a][k] x[k].
template <class Simd, int... a>
[[gnu::always_inline]] inline void DotTile(const SolveGroup& group, const double* x, int nBegin, int nEnd, double* sum,
                                           std::integer_sequence<int, a...>) {
  constexpr int nLanes = Simd::c_nLanes;
  const double* const columns[] = {group.columns[a]...};
  typename Simd::Vec acc[c_nGroup] = {}, xk, lk;
  std::ptrdiff_t k = nBegin;
  for (; k + nLanes <= nEnd; k += nLanes) {
    Load<Simd>(xk, x + k);
    ((Load<Simd>(lk, columns[a] + k), acc[a] += lk * xk), ...);
  }
  for (int u = 0; u < c_nGroup; ++u) {
    sum[u] = 0.0;
    for (int lane = 0; lane < nLanes; ++lane) sum[u] += acc[u][lane];
  }
  for (; k < nEnd; ++k) ((sum[a] += columns[a][k] * x[k]), ...);
}

/// x[k] -= sum over a of columns[a][k] factor[a], nBegin <= k < nEnd.
template <class Simd, int... a>
[[gnu::always_inline]] inline void SubtractTile(const SolveGroup& group, const double* factor, int nBegin, int nEnd,
                                                double* x, std::integer_sequence<int, a...>) {
  constexpr int nLanes = Simd::c_nLanes;
  const double* const columns[] = {group.columns[a]...};
  const double factors[] = {factor[a]...};
  typename Simd::Vec xk, lk;
  std::ptrdiff_t k = nBegin;
  for (; k + nLanes <= nEnd; k += nLanes) {
    Load<Simd>(xk, x + k);
    ((Load<Simd>(lk, columns[a] + k), xk -= lk * factors[a]), ...);
    Store<Simd>(x + k, xk);
  }
  for (; k < nEnd; ++k) ((x[k] -= columns[a][k] * factors[a]), ...);
}

struct SolveKernel {
  void (*Dot)(const SolveGroup& group, const double* x, int nBegin, int nEnd, double* sum);
  void (*Subtract)(const SolveGroup& group, const double* factor, int nBegin, int nEnd, double* x);
};

void Dot16(const SolveGroup& group, const double* x, int nBegin, int nEnd, double* sum) {
  DotTile<Simd16>(group, x, nBegin, nEnd, sum, GroupColumns());
}
void Subtract16(const SolveGroup& group, const double* factor, int nBegin, int nEnd, double* x) {
  SubtractTile<Simd16>(group, factor, nBegin, nEnd, x, GroupColumns());
}

#if defined(__x86_64__)
[[gnu::target("avx2,fma")]] void Dot32(const SolveGroup& group, const double* x, int nBegin, int nEnd, double* sum) {
  DotTile<Simd32>(group, x, nBegin, nEnd, sum, GroupColumns());
}
[[gnu::target("avx2,fma")]] void Subtract32(const SolveGroup& group, const double* factor, int nBegin, int nEnd,
                                            double* x) {
  SubtractTile<Simd32>(group, factor, nBegin, nEnd, x, GroupColumns());
}
#endif

/// The solves are bound by memory: 32 bytes serve a wider unit as well.
SolveKernel SelectKernel([[maybe_unused]] VectorUnit unit) {
#if defined(__x86_64__)
  if (unit != VectorUnit::Bytes16) return {Dot32, Subtract32};
#endif
  return {Dot16, Subtract16};
}

SolveGroup FormGroup(const Profile& profile, const double* values, int nFirst) {
  SolveGroup group;
  group.nFirst = nFirst;
  for (int a = 0; a < c_nGroup; ++a) {
    group.columns[static_cast<std::size_t>(a)] = values + profile.GetOffset(nFirst + a);
    group.nCommonTop = std::max(group.nCommonTop, std::min(profile.GetTop(nFirst + a), nFirst));
  }
  return group;
}

/// b(i) -= sum of L(k, i) b(k) over the given rows k.
void ReduceEntry(const double* column, double* b, int i, int nBegin, int nEnd) {
  for (int k = nBegin; k < nEnd; ++k) b[i] -= column[k] * b[k];
}

/// b(k) -= L(k, i) b(i) over the given rows k.
void SubtractColumn(const double* column, double* b, int i, int nBegin, int nEnd) {
  for (int k = nBegin; k < nEnd; ++k) b[k] -= column[k] * b[i];
}

void ForwardGroup(const Profile& profile, const SolveKernel& kernel, const SolveGroup& group, double* b) {
  std::array<double, c_nGroup> sum;
  kernel.Dot(group, b, group.nCommonTop, group.nFirst, sum.data());
  for (int a = 0; a < c_nGroup; ++a) {
    const int i = group.nFirst + a;
    const double* const column = group.columns[static_cast<std::size_t>(a)];
    b[i] -= sum[static_cast<std::size_t>(a)];
    ReduceEntry(column, b, i, profile.GetTop(i), group.nCommonTop);
    ReduceEntry(column, b, i, std::max(profile.GetTop(i), group.nFirst), i);
  }
}

void BackwardGroup(const Profile& profile, const SolveKernel& kernel, const SolveGroup& group, double* b) {
  for (int a = c_nGroup - 1; a >= 0; --a) {
    const int i = group.nFirst + a;
    const double* const column = group.columns[static_cast<std::size_t>(a)];
    SubtractColumn(column, b, i, std::max(profile.GetTop(i), group.nFirst), i);
    SubtractColumn(column, b, i, profile.GetTop(i), group.nCommonTop);
  }
  kernel.Subtract(group, b + group.nFirst, group.nCommonTop, group.nFirst, b);
}

}  // namespace

void ForwardReduce(const Profile& profile, const double* values, std::span<double> b, VectorUnit unit) {
  const SolveKernel kernel = SelectKernel(Resolve(unit));
  const int n = profile.GetOrder();
  const int nGrouped = n - n % c_nGroup;
  for (int i = 0; i < nGrouped; i += c_nGroup) ForwardGroup(profile, kernel, FormGroup(profile, values, i), b.data());
  for (int i = nGrouped; i < n; ++i) ReduceEntry(values + profile.GetOffset(i), b.data(), i, profile.GetTop(i), i);
}

void BackSubstitute(const Profile& profile, const double* values, std::span<double> b, VectorUnit unit) {
  const SolveKernel kernel = SelectKernel(Resolve(unit));
  const int n = profile.GetOrder();
  const int nGrouped = n - n % c_nGroup;
  for (int i = n - 1; i >= nGrouped; --i)
    SubtractColumn(values + profile.GetOffset(i), b.data(), i, profile.GetTop(i), i);
  for (int i = nGrouped - c_nGroup; i >= 0; i -= c_nGroup)
    BackwardGroup(profile, kernel, FormGroup(profile, values, i), b.data());
}

}  // namespace skyframe::skyline
