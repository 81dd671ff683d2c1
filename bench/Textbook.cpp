#include "Textbook.h"

#include <algorithm>

// Compiled with -O3 -march=x86-64-v3: what a careful compiler makes of the textbook.

namespace skyframe::bench {

void FactoriseTextbook(const skyline::Profile& profile, double* values) {
  for (int j = 0; j < profile.GetOrder(); ++j) {
    double* const g = values + profile.GetOffset(j);
    const int nTop = profile.GetTop(j);
    for (int i = nTop; i < j; ++i) {
      const double* const l = values + profile.GetOffset(i);
      double dSum = g[i];
      for (int k = std::max(nTop, profile.GetTop(i)); k < i; ++k) dSum -= l[k] * g[k];
      g[i] = dSum;
    }
    for (int i = nTop; i < j; ++i) {
      const double dEntry = g[i];
      g[i] = dEntry / values[profile.GetOffset(i) + i];
      g[j] -= dEntry * g[i];
    }
  }
}

void SolveTextbook(const skyline::Profile& profile, const double* values, std::span<double> b) {
  const int n = profile.GetOrder();
  double* const x = b.data();
  for (int i = 0; i < n; ++i) {
    const double* const l = values + profile.GetOffset(i);
    double dSum = x[i];
    for (int k = profile.GetTop(i); k < i; ++k) dSum -= l[k] * x[k];
    x[i] = dSum;
  }
  for (int i = 0; i < n; ++i) x[i] /= values[profile.GetOffset(i) + i];
  for (int i = n - 1; i >= 0; --i) {
    const double* const l = values + profile.GetOffset(i);
    for (int k = profile.GetTop(i); k < i; ++k) x[k] -= l[k] * x[i];
  }
}

}  // namespace skyframe::bench
