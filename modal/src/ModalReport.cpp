#include "skyframe/modal/ModalReport.h"

#include <algorithm>

#include "Participation.h"
#include "skyframe/modal/ModalPencil.h"
#include "skyframe/modal/RootLossTest.h"

namespace skyframe {
namespace {

constexpr double c_dJustBelow = 0.9999;  ///< of the highest frequency, past the digits of a mode file

}  // namespace

std::optional<EffectiveMasses> ComputeEffectiveMasses(const CAnalysisModel& model, bool bUseLoadMass) {
  SparseMatrix M;
  const int F = model.GetFreeDofs();
  if (!AssembleModalMass(model, bUseLoadMass, M) || !PrepareProducts(M, F)) return std::nullopt;
  const CMatrix& Phi = model.ModeShapes;

  EffectiveMasses masses;
  masses.modes.resize(static_cast<std::size_t>(Phi.GetCols()));
  for (std::size_t d = 0; d < 3; ++d) {
    std::array<double, 3> direction{};
    direction[d] = 1.0;
    const std::vector<double> r = FormDirectionVector(model, direction);
    const std::vector<double> Mr = Multiply(M, r);
    masses.total[d] = Dot(r, Mr);
    for (int i = 0; i < Phi.GetCols(); ++i) {
      double dGamma = 0.0;
      for (int k = 0; k < F; ++k) dGamma += Mr[static_cast<std::size_t>(k)] * Phi[k][i];
      masses.modes[static_cast<std::size_t>(i)][d] = dGamma * dGamma;
    }
  }
  return masses;
}

std::optional<int> CountModesBelow(const CAnalysisModel& model, double dOmega, bool bUseLoadMass) {
  SparseMatrix K, M;
  if (!AssemblePencil(model, false, bUseLoadMass, K, M)) return std::nullopt;
  return CSturmCount(K, M, model.GetFreeDofs())(dOmega * dOmega);
}

std::optional<int> CountMissedModes(const CAnalysisModel& model, bool bUseLoadMass) {
  if (model.Omega.empty()) return 0;
  const double dLimit = c_dJustBelow * model.Omega.back();
  const std::optional<int> count = CountModesBelow(model, dLimit, bUseLoadMass);
  if (!count) return std::nullopt;
  return *count - static_cast<int>(std::ranges::count_if(model.Omega, [dLimit](double w) { return w < dLimit; }));
}

}  // namespace skyframe
