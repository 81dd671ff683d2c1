#pragma once

#include "skyframe/model/AnalysisModel.h"
#include "skyframe/numeric/SparseMatrix.h"

namespace skyframe {

/// kN of a node load to kg: 1000 / 9.81.
inline constexpr double c_dMassPerKilonewton = 101.9367991845056;

/// Consistent M of order N; with bUseLoadMass also the node load masses at the free translations (a
/// load that is not positive adds nothing). False when there is no memory for it.
[[nodiscard]] bool AssembleModalMass(const CAnalysisModel& model, bool bUseLoadMass, SparseMatrix& M);

/// K and M of order N as assembled, without compressed rows. False when there is no memory for them.
[[nodiscard]] bool AssemblePencil(const CAnalysisModel& model, bool bGeometric, bool bUseLoadMass, SparseMatrix& K,
                                  SparseMatrix& M);

/// Trims the profile and builds the compressed rows of the leading F x F block. False, after the kernel's
/// message, when there is no memory for the rows.
[[nodiscard]] bool PrepareProducts(SparseMatrix& A, int nFree);

}  // namespace skyframe
