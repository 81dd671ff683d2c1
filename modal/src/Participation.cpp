#include "Participation.h"

#include <cmath>

#include "skyframe/numeric/VectorAlgebra.h"

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

CTranslationMasses::CTranslationMasses(const CAnalysisModel& model, const CRowMatrix& M) {
  for (std::size_t d = 0; d < m_total.size(); ++d) {
    std::array<double, 3> direction{};
    direction[d] = 1.0;
    const std::vector<double> r = FormDirectionVector(model, direction);
    m_Mr[d] = Multiply(M, r);
    m_total[d] = Dot(r, m_Mr[d]);
  }
}

std::array<double, 3> CTranslationMasses::FormEffective(std::span<const double> phi) const {
  std::array<double, 3> masses{};
  for (std::size_t d = 0; d < masses.size(); ++d) {
    const double dGamma = Dot(m_Mr[d], phi);
    masses[d] = dGamma * dGamma;
  }
  return masses;
}

std::vector<double> Multiply(const CRowMatrix& A, std::span<const double> x) {
  std::vector<double> y(x.size());
  A.Multiply(x, y);
  return y;
}

std::vector<double> GetColumn(const CMatrix& A, int nColumn) {
  std::vector<double> column(static_cast<std::size_t>(A.GetRows()));
  for (int k = 0; k < A.GetRows(); ++k) column[static_cast<std::size_t>(k)] = A[k][nColumn];
  return column;
}

}  // namespace skyframe
