#pragma once

#include <cstddef>
#include <span>

#include "skyframe/numeric/SkylineKernel.h"

/// Products with a tall n x m matrix A stored by columns, one behind the other, four columns in a pass over
/// the vector: the blocked halves of a Gram-Schmidt sweep.
namespace skyframe::tall {

/// c = A^T x. A: n x c.size(), x: n.
void MultiplyTransposed(const double* A, std::span<const double> x, std::span<double> c,
                        skyline::VectorUnit unit = skyline::VectorUnit::Best);

/// y <- y - A c. A: n x c.size(), y: n.
void SubtractProduct(const double* A, std::span<const double> c, std::span<double> y,
                     skyline::VectorUnit unit = skyline::VectorUnit::Best);

}  // namespace skyframe::tall
