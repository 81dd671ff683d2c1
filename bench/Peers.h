#pragma once

#include <memory>
#include <vector>

#include "skyframe/numeric/SparseMatrix.h"

/// Other libraries behind plain interfaces; a peer that is not installed is not declared.
namespace skyframe::bench {

/// Full symmetric matrix by columns (equally by rows), rows ascending.
struct SymmetricColumns {
  int n = 0;
  std::vector<int> start, row;
  std::vector<double> value;

  /// The compressed rows of A, which must be there.
  explicit SymmetricColumns(const SparseMatrix& A);
  void Multiply(const double* x, double* y) const;
};

#if defined(SKYFRAME_HAS_OPENBLAS)
/// Lower band storage for dpbtrf and dpbtrs.
class CBandPeer {
 public:
  CBandPeer(const SparseMatrix& A, int n);
  void Load(const SparseMatrix& A);
  [[nodiscard]] bool Factorise();
  void Solve(double* b, int nColumns) const;

 private:
  int m_n;
  int m_nBand;
  std::vector<double> m_band;
};

/// C = A B, n x n each, by dgemm.
void MultiplyDense(int n, const double* A, const double* B, double* C);
/// Name of the processor OpenBLAS takes this one for.
const char* GetOpenBlasCore();
/// For OpenBLAS and everything that calls it.
void UseOneThread();
#endif

#if defined(SKYFRAME_HAS_CHOLMOD)
/// Supernodal L L^T with METIS ordering.
class CCholmodPeer {
 public:
  explicit CCholmodPeer(const SymmetricColumns& A);
  ~CCholmodPeer();
  CCholmodPeer(const CCholmodPeer&) = delete;
  CCholmodPeer& operator=(const CCholmodPeer&) = delete;

  [[nodiscard]] bool HasMetis() const;
  [[nodiscard]] bool Analyse();
  [[nodiscard]] bool Factorise();
  /// x = A^-1 b.
  void Solve(double* b, double* x);

 private:
  struct Data;
  std::unique_ptr<Data> m_pData;
};
#endif

#if defined(SKYFRAME_HAS_CHOLMOD) && defined(SKYFRAME_HAS_ARPACK)
/// The lowest modes of K phi = omega^2 M phi: ARPACK, shift-invert about 0, solves by CHOLMOD.
/// Analysis and factorisation included.
struct ArpackModes {
  std::vector<double> omega2;
  std::vector<double> shapes;  ///< n values for each
};
ArpackModes SolveModesArpack(const SymmetricColumns& K, const SymmetricColumns& M, int nModes);
#endif

#if defined(SKYFRAME_HAS_EIGEN)
/// Simplicial LDL^T, AMD ordering.
class CEigenPeer {
 public:
  explicit CEigenPeer(const SymmetricColumns& A);
  ~CEigenPeer();
  CEigenPeer(const CEigenPeer&) = delete;
  CEigenPeer& operator=(const CEigenPeer&) = delete;
  [[nodiscard]] bool Factorise();
  void Solve(const double* b, double* x) const;

 private:
  struct Data;
  std::unique_ptr<Data> m_pData;
};
#endif

}  // namespace skyframe::bench
