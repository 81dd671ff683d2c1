#pragma once

#include <span>

#include "skyframe/numeric/SkylineKernel.h"

namespace skyframe::bench {

/// A = L D L^T column by column, D on the diagonal, plain loops. Source: Bathe (1996), section 8.2.
void FactoriseTextbook(const skyline::Profile& profile, double* values);
/// Solves L D L^T x = b in place, plain loops.
void SolveTextbook(const skyline::Profile& profile, const double* values, std::span<double> b);

}  // namespace skyframe::bench
