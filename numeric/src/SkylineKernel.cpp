#include "skyframe/numeric/SkylineKernel.h"

namespace skyframe::skyline {

namespace {

/// Sum of a(k) b(k), four independent partial sums.
double Dot(const double* a, const double* b, int nCount) {
  double s0 = 0.0, s1 = 0.0, s2 = 0.0, s3 = 0.0;
  int k = 0;
  for (; k + 4 <= nCount; k += 4) {
    s0 += a[k] * b[k];
    s1 += a[k + 1] * b[k + 1];
    s2 += a[k + 2] * b[k + 2];
    s3 += a[k + 3] * b[k + 3];
  }
  for (; k < nCount; ++k) s0 += a[k] * b[k];
  return (s0 + s1) + (s2 + s3);
}

}  // namespace

void ForwardReduce(const Profile& profile, const double* values, std::span<double> b) {
  for (int i = 1; i < profile.GetOrder(); ++i) {
    const int nTop = profile.GetTop(i);
    b[static_cast<std::size_t>(i)] -= Dot(values + profile.GetOffset(i) + nTop, b.data() + nTop, i - nTop);
  }
}

void BackSubstitute(const Profile& profile, const double* values, std::span<double> b) {
  for (int i = profile.GetOrder() - 1; i > 0; --i) {
    const double* const li = values + profile.GetOffset(i);
    const double x = b[static_cast<std::size_t>(i)];
    for (int k = profile.GetTop(i); k < i; ++k) b[static_cast<std::size_t>(k)] -= li[k] * x;
  }
}

}  // namespace skyframe::skyline
