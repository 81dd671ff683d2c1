#include "skyframe/modal/Inertia.h"

#include "Participation.h"
#include "skyframe/modal/ModalPencil.h"

namespace skyframe {
std::optional<std::vector<std::vector<NodeValues>>> FormInertia(
    const CAnalysisModel& model, bool bUseLoadMass, const std::vector<std::vector<NodeValues>>& accelerations) {
  SparseMatrix S;
  CRowMatrix M;
  if (!AssembleMassRows(model, bUseLoadMass, S, M)) return std::nullopt;
  std::vector<std::vector<NodeValues>> forces;
  forces.reserve(accelerations.size());
  for (const std::vector<NodeValues>& a : accelerations) {
    forces.push_back(model.GatherNodeValues(Multiply(M, model.ScatterFreeValues(a))));
  }
  return forces;
}

}  // namespace skyframe
