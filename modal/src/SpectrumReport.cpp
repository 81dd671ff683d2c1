#include "skyframe/modal/SpectrumReport.h"

#include "Participation.h"
#include "SpectrumResponse.h"
#include "skyframe/modal/DesignSpectrum.h"
#include "skyframe/modal/ModalCombination.h"
#include "skyframe/modal/ModalPencil.h"

namespace skyframe {
namespace {

/// The part of r that each mode carries: q_i = gamma_i phi_i; the virtual mode carries the rest.
std::vector<std::vector<double>> FormShares(const SpectrumModes& modes, std::vector<double> r) {
  std::vector<std::vector<double>> shares;
  const std::size_t nTrue = modes.GetCount() - (modes.bVirtual ? 1 : 0);
  for (std::size_t i = 0; i < nTrue; ++i) {
    std::vector<double> q = modes.shape[i];
    for (std::size_t k = 0; k < q.size(); ++k) r[k] -= q[k] *= modes.gamma[i];
    shares.push_back(std::move(q));
  }
  if (modes.bVirtual) shares.push_back(std::move(r));
  return shares;
}

}  // namespace

std::optional<std::array<double, 3>> ComputeBaseShear(CAnalysisModel& model, bool bUseLoadMass) {
  SpectrumModes modes;
  SparseMatrix S;
  CRowMatrix M;
  const auto quake = NormaliseDirection(model.m_dDirCoef);
  if (!quake || !FormSpectrumModes(model, *quake, false, bUseLoadMass, modes)) return std::nullopt;
  if (!AssembleMassRows(model, bUseLoadMass, S, M)) return std::nullopt;

  const auto shares = FormShares(modes, FormDirectionVector(model, *quake));
  const CModalCombination combination(model.m_nCombMethod, modes.omega, modes.zeta);
  std::array<double, 3> shear{};
  for (std::size_t d = 0; d < 3; ++d) {
    std::array<double, 3> direction{};
    direction[d] = 1.0;
    const std::vector<double> Mr = Multiply(M, FormDirectionVector(model, direction));
    std::vector<double> V;
    for (std::size_t i = 0; i < shares.size(); ++i)
      V.push_back(Dot(Mr, shares[i]) * modes.alpha[i] * c_dSpectrumGravity);
    shear[d] = combination.Combine(V);
  }
  return shear;
}

}  // namespace skyframe
