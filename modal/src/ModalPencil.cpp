#include "skyframe/modal/ModalPencil.h"

namespace skyframe {
namespace {

void AddLoadMass(const CAnalysisModel& model, SparseMatrix& M) {
  const CNodeTable& nodes = model.GetNodes();
  const std::vector<double>& load = model.GetNodeLoadMass();
  for (int nNode = 0; nNode < static_cast<int>(load.size()); ++nNode) {
    const double dLoad = load[static_cast<std::size_t>(nNode)];
    if (!(dLoad > 0.0)) continue;
    for (const int nDirection : {c_nDofX, c_nDofY, c_nDofZ}) {
      const int e = nodes.FindDof(nNode, nDirection);
      if (e >= 0 && e < model.GetFreeDofs()) M(e, e) += dLoad * (c_dNewtonPerKilonewton * c_dMassPerNewton);
    }
  }
}

}  // namespace

bool AssembleModalMass(const CAnalysisModel& model, bool bUseLoadMass, SparseMatrix& M) {
  if (!model.AssembleMass(M, model.m_bShear != 0)) return false;
  if (bUseLoadMass) AddLoadMass(model, M);
  return true;
}

bool AssembleMassRows(const CAnalysisModel& model, bool bUseLoadMass, SparseMatrix& S, CRowMatrix& M) {
  if (!AssembleModalMass(model, bUseLoadMass, S)) return false;
  M = CRowMatrix(S, model.GetFreeDofs());
  return M.GetOrder() == model.GetFreeDofs();
}

bool AssembleStiffnessRows(const CAnalysisModel& model, bool bGeometric, SparseMatrix& S, CRowMatrix& K) {
  if (!model.AssembleStiffness(S, bGeometric, model.m_bShear != 0)) return false;
  K = CRowMatrix(S, model.GetFreeDofs());
  return K.GetOrder() == model.GetFreeDofs();
}

}  // namespace skyframe
