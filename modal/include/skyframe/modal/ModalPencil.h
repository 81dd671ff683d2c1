#pragma once

#include "skyframe/model/AnalysisModel.h"
#include "skyframe/numeric/RowMatrix.h"
#include "skyframe/numeric/SparseMatrix.h"

namespace skyframe {

/// Consistent M of order N; with bUseLoadMass also the node load masses at the free translations (a
/// load that is not positive adds nothing). False when there is no memory for it.
[[nodiscard]] bool AssembleModalMass(const CAnalysisModel& model, bool bUseLoadMass, SparseMatrix& M);

/// The same over the F free equations by rows; assembled in S, whose values are of no more use then. False,
/// after the kernel's message, when there is no memory for it.
[[nodiscard]] bool AssembleMassRows(const CAnalysisModel& model, bool bUseLoadMass, SparseMatrix& S, CRowMatrix& M);

/// K in S, its heights trimmed to what it holds, and over the F free equations by rows. False, after the kernel's
/// message, when there is no memory for them.
[[nodiscard]] bool AssembleStiffnessRows(const CAnalysisModel& model, bool bGeometric, SparseMatrix& S, CRowMatrix& K);

}  // namespace skyframe
