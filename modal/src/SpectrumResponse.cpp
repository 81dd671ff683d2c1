#include "SpectrumResponse.h"

#include <algorithm>

#include "skyframe/modal/ModalCombination.h"
#include "skyframe/platform/Progress.h"
#include "texts.h"

namespace skyframe {
namespace {

/// Modal maxima of all quantities of one kind, combined one by one.
class CModalTable {
 public:
  explicit CModalTable(const SpectrumModes& modes) : m_modes(modes.GetCount()) {}

  std::vector<double>& operator[](std::size_t i) { return m_modes[i]; }
  [[nodiscard]] auto begin() const { return m_modes.begin(); }
  [[nodiscard]] auto end() const { return m_modes.end(); }

  [[nodiscard]] std::vector<double> Combine(const CModalCombination& combination) const {
    std::vector<double> R(m_modes.size());
    std::vector<double> combined(m_modes.front().size());
    for (std::size_t q = 0; q < combined.size(); ++q) {
      for (std::size_t i = 0; i < R.size(); ++i) R[i] = m_modes[i][q];
      combined[q] = combination.Combine(R);
    }
    return combined;
  }

 private:
  std::vector<std::vector<double>> m_modes;
};

/// u_i = factor_i phi_i over all N equations
CModalTable FormDisplacements(const SpectrumModes& modes, int nTotal) {
  CModalTable displacements(modes);
  for (std::size_t i = 0; i < modes.GetCount(); ++i) {
    displacements[i].assign(static_cast<std::size_t>(nTotal), 0.0);
    std::ranges::transform(modes.shape[i], displacements[i].begin(), [f = modes.factor[i]](double d) { return f * d; });
  }
  return displacements;
}

/// Combined sums of the modal support forces along X, Y and Z.
std::array<double, 3> CombineBaseShear(const CAnalysisModel& model, const CModalCombination& combination,
                                       const CModalTable& reactions) {
  const CNodeTable& nodes = model.GetNodes();
  std::array<double, 3> shear{};
  for (const int nDirection : {c_nDofX, c_nDofY, c_nDofZ}) {
    std::vector<double> sums;
    for (const std::vector<double>& reaction : reactions) {
      double dSum = 0.0;
      for (const int nNode : nodes.GetListedNodes()) dSum += nodes.GetValue(reaction, nNode, nDirection);
      sums.push_back(dSum);
    }
    shear[static_cast<std::size_t>(nDirection)] = combination.Combine(sums);
  }
  return shear;
}

}  // namespace

SpectrumResult CombineModes(const CAnalysisModel& model, const SpectrumModes& modes) {
  const CModalCombination combination(model.m_nCombMethod, modes.omega, modes.zeta);
  const int N = model.GetTotalDofs();
  CModalTable displacements = FormDisplacements(modes, N);
  CModalTable reactions(modes);
  for (std::size_t i = 0; i < modes.GetCount(); ++i) reactions[i].assign(static_cast<std::size_t>(N), 0.0);

  SpectrumResult result;
  result.elementForce.resize(model.GetElements().size());
  CProgress progress(texts::c_strCombineModes, static_cast<double>(result.elementForce.size()));
  for (std::size_t nSlot = 0; nSlot < result.elementForce.size(); ++nSlot) {
    progress.Advance();
    CElement* const pElement = model.GetElements()[nSlot].get();
    if (pElement == nullptr) continue;
    CModalTable forces(modes);
    for (std::size_t i = 0; i < modes.GetCount(); ++i) {
      pElement->ComputeInternalForce(displacements[i], false, model.m_bShear != 0, true);
      pElement->AssembleEndForces(reactions[i]);
      forces[i] = pElement->SampleForces(model.m_nMeshDiv);
    }
    result.elementForce[nSlot] = forces.Combine(combination);
  }
  // The free equations carry inertia, not reactions. No method of combination sees the sign.
  for (std::size_t i = 0; i < modes.GetCount(); ++i) std::fill_n(reactions[i].begin(), model.GetFreeDofs(), 0.0);
  result.displacement = displacements.Combine(combination);
  result.reaction = reactions.Combine(combination);
  result.baseShear = CombineBaseShear(model, combination, reactions);
  return result;
}

}  // namespace skyframe
