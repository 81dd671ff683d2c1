#include "skyframe/modal/ModeCount.h"

#include "skyframe/modal/ModalPencil.h"
#include "skyframe/modal/RootLossTest.h"

namespace skyframe {

std::optional<int> CountModesBelow(const CAnalysisModel& model, double dOmega, bool bUseLoadMass) {
  SparseMatrix S;
  CRowMatrix M;
  if (!AssembleMassRows(model, bUseLoadMass, S, M)) return std::nullopt;
  if (!model.AssembleStiffness(S, false, model.m_bShear != 0)) return std::nullopt;
  return CountBelowShift(S, M, dOmega * dOmega);
}

}  // namespace skyframe
