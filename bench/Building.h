#pragma once

#include <memory>
#include <string>
#include <vector>

#include "skyframe/model/AnalysisModel.h"
#include "skyframe/numeric/SparseMatrix.h"

/// Generated structures and their matrices. Everything here is deterministic.
namespace skyframe::bench {

/// Frame of rigid beams on nX x nY column lines, clamped at the ground.
struct BuildingShape {
  std::string strName;  ///< size in equations: "6k"
  int nX = 0;
  int nY = 0;
  int nStoreys = 0;
};

inline const std::vector<BuildingShape> c_shapes = {
    {"1.5k", 5, 5, 10}, {"6k", 8, 6, 21}, {"24k", 16, 10, 25}, {"60k", 20, 20, 25}};

/// Writes the building into the host records and renumbers its nodes. Beams along Y are left out on some
/// lines where all of them would exceed the capacity of the records.
void FillBuilding(const BuildingShape& shape);

/// The records above as an analysis model.
std::unique_ptr<CAnalysisModel> BuildBuilding(const BuildingShape& shape);

/// Leading n equations of a matrix pair.
struct Pencil {
  int n = 0;
  SparseMatrix K, M;
};
Pencil FormPencil(const CAnalysisModel& model);

/// The free equations of A without a share of them, chosen at random with a fixed seed.
SparseMatrix DeleteEquations(const SparseMatrix& A, int n, double dShare);

/// Diagonally dominant, every column with a top of its own, heights up to nMaxHeight.
SparseMatrix MakeRandomRagged(int n, int nMaxHeight);

/// Multiplications and additions of a factorisation of the leading n equations.
double CountOperations(const SparseMatrix& A, int n);
/// Stored entries of the leading n equations.
double CountEntries(const SparseMatrix& A, int n);

/// |A x - b| / |b|, A from its compressed rows.
double FormResidual(const SparseMatrix& A, const std::vector<double>& x, const std::vector<double>& b);

/// Values between -1 and 1.
std::vector<double> MakeVector(int n, unsigned nSeed = 1);

}  // namespace skyframe::bench
