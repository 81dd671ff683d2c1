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
  SparseMatrix S;
  CRowMatrix M;
  if (!AssembleMassRows(model, bUseLoadMass, S, M)) return std::nullopt;
  const CTranslationMasses translation(model, M);
  EffectiveMasses masses;
  masses.total = translation.GetTotal();
  for (int i = 0; i < model.ModeShapes.GetCols(); ++i) {
    masses.modes.push_back(translation.FormEffective(GetColumn(model.ModeShapes, i)));
  }
  return masses;
}

std::optional<int> CountModesBelow(const CAnalysisModel& model, double dOmega, bool bUseLoadMass) {
  SparseMatrix S;
  CRowMatrix M;
  if (!AssembleMassRows(model, bUseLoadMass, S, M)) return std::nullopt;
  if (!model.AssembleStiffness(S, false, model.m_bShear != 0)) return std::nullopt;
  return CountBelowShift(S, M, dOmega * dOmega);
}

std::optional<int> CountMissedModes(const CAnalysisModel& model, bool bUseLoadMass) {
  if (model.Omega.empty()) return 0;
  const double dLimit = c_dJustBelow * model.Omega.back();
  const std::optional<int> count = CountModesBelow(model, dLimit, bUseLoadMass);
  if (!count) return std::nullopt;
  return *count - static_cast<int>(std::ranges::count_if(model.Omega, [dLimit](double w) { return w < dLimit; }));
}

}  // namespace skyframe
