#include "Participation.h"

#include <cmath>
#include <numeric>

namespace skyframe {

namespace {
constexpr double c_dZero = 1e-15;
}  // namespace

std::vector<double> FormDirectionVector(const CAnalysisModel& model, const std::array<double, 3>& c) {
  const CNodeTable& nodes = model.GetNodes();
  std::vector<double> r(static_cast<std::size_t>(model.GetFreeDofs()), 0.0);
  for (const int nNode : nodes.GetListedNodes()) {
    for (const int nDirection : {c_nDofX, c_nDofY, c_nDofZ}) {
      const double dCoefficient = c[static_cast<std::size_t>(nDirection)];
      const int e = nodes.GetDof(nNode, nDirection);
      if (std::abs(dCoefficient) > c_dZero && e < model.GetFreeDofs()) r[static_cast<std::size_t>(e)] = dCoefficient;
    }
  }
  return r;
}

std::vector<double> Multiply(const SparseMatrix& A, std::span<const double> x) {
  std::vector<double> y(x.size());
  A.MultiplyRows(x, y);
  return y;
}

double Dot(std::span<const double> x, std::span<const double> y) {
  return std::inner_product(x.begin(), x.end(), y.begin(), 0.0);
}

}  // namespace skyframe
