#include <cmath>

#include "Participation.h"
#include "SpectrumResponse.h"
#include "skyframe/modal/DesignSpectrum.h"
#include "skyframe/modal/ModalPencil.h"
#include "skyframe/numeric/VectorAlgebra.h"

namespace skyframe {
namespace {

constexpr double c_dNoResidualMass = 1e-12;  ///< share of the total mass
constexpr int c_nSweeps = 2;

/// y <- y - factor x
void Subtract(double dFactor, std::span<const double> x, std::span<double> y) {
  for (std::size_t i = 0; i < y.size(); ++i) y[i] -= dFactor * x[i];
}

void TakeModes(const CAnalysisModel& model, SpectrumModes& modes) {
  for (int i = 0; i < model.m_nExpandModes; ++i) {
    modes.omega.push_back(model.Omega[static_cast<std::size_t>(i)]);
    modes.shape.push_back(GetColumn(model.ModeShapes, i));
  }
}

/// Residual mode psi = K^-1 M (r - sum gamma_i phi_i), M-orthogonal to the phi_i, psi^T M psi = 1,
/// omega^2 = psi^T K psi. None when the modes hold all mass already.
bool AddVirtualMode(CAnalysisModel& model, bool bGeometric, const CRowMatrix& M, SparseMatrix& factors,
                    std::span<const double> r, SpectrumModes& modes) {
  std::vector<double> rest(r.begin(), r.end());
  for (std::size_t i = 0; i < modes.GetCount(); ++i) Subtract(modes.gamma[i], modes.shape[i], rest);
  std::vector<double> psi = Multiply(M, rest);
  if (!(Dot(rest, psi) >= c_dNoResidualMass * modes.dTotalMass) || modes.dTotalMass <= 0.0) return true;

  CRowMatrix K;
  if (!AssembleStiffnessRows(model, bGeometric, factors, K)) return false;
  const bool bSolved = factors.Solve(model.GetFreeDofs(), psi);
  model.m_spectrumFindings.conditioning = model.DescribeConditioning(factors);
  if (!bSolved) return false;
  for (int nSweep = 0; nSweep < c_nSweeps; ++nSweep) {
    for (const std::vector<double>& phi : modes.shape) Subtract(Dot(phi, Multiply(M, psi)), phi, psi);
  }
  const double dNorm = std::sqrt(Dot(psi, Multiply(M, psi)));
  for (double& d : psi) d /= dNorm;
  modes.omega.push_back(std::sqrt(Dot(psi, Multiply(K, psi))));
  modes.gamma.push_back(Dot(r, Multiply(M, psi)));
  modes.shape.push_back(std::move(psi));
  modes.bVirtual = true;
  return true;
}

void MeasureMasses(const CAnalysisModel& model, const CRowMatrix& M, SpectrumModes& modes) {
  const CTranslationMasses masses(model, M);
  modes.directionMass = masses.GetTotal();
  for (const std::vector<double>& phi : modes.shape) {
    modes.modalMass.push_back(Dot(phi, Multiply(M, phi)));
    modes.effectiveMasses.push_back(masses.FormEffective(phi));
  }
}

/// Deliberate: the interpolation is kept although no driver switches ConstantDamping off.
std::vector<double> FormDamping(const CAnalysisModel& model, std::span<const double> omega) {
  if (model.ConstantDamping == 0 && omega.size() > 1 && model.ModeDamping.size() > 1) {
    return InterpolateDamping(omega, model.ModeDamping[0], model.ModeDamping[1]);
  }
  return std::vector<double>(omega.size(), model.m_dDampRatio);
}

/// factor = alpha gamma g / omega^2
void FormFactors(const CDesignSpectrum& spectrum, SpectrumModes& modes) {
  for (std::size_t i = 0; i < modes.GetCount(); ++i) {
    const double omega = modes.omega[i];
    modes.alpha.push_back(spectrum.GetAlpha(c_dTwoPi / omega, modes.zeta[i]));
    modes.factor.push_back(modes.alpha[i] * modes.gamma[i] * c_dSpectrumGravity / (omega * omega));
  }
}

}  // namespace

bool FormSpectrumModes(CAnalysisModel& model, const std::array<double, 3>& c, bool bGeometric, bool bUseLoadMass,
                       SpectrumModes& modes) {
  SparseMatrix factors;
  CRowMatrix M;
  if (!AssembleMassRows(model, bUseLoadMass, factors, M)) return false;
  TakeModes(model, modes);

  const std::vector<double> r = FormDirectionVector(model, c);
  const std::vector<double> Mr = Multiply(M, r);
  modes.dTotalMass = Dot(r, Mr);
  for (const std::vector<double>& phi : modes.shape) modes.gamma.push_back(Dot(Mr, phi));
  const bool bVirtual = model.m_bVirtualModes == 1 && model.m_nExpandModes < model.GetFreeDofs();
  if (bVirtual && !AddVirtualMode(model, bGeometric, M, factors, r, modes)) return false;
  MeasureMasses(model, M, modes);

  model.ModeDamping = FormDamping(model, modes.omega);
  modes.zeta = model.ModeDamping;
  FormFactors(CDesignSpectrum(model), modes);
  return true;
}

}  // namespace skyframe
