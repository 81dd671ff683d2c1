#include "Peers.h"

#include <algorithm>
#include <cstddef>
#include <string>

#if defined(SKYFRAME_HAS_CHOLMOD)
#include <cholmod.h>
#endif
#if defined(SKYFRAME_HAS_EIGEN)
#include <Eigen/SparseCholesky>
#include <Eigen/SparseCore>
#endif

#if defined(SKYFRAME_HAS_OPENBLAS)
extern "C" {
void dpbtrf_(const char* uplo, const int* n, const int* kd, double* ab, const int* ldab, int* info);
void dpbtrs_(const char* uplo, const int* n, const int* kd, const int* nrhs, const double* ab, const int* ldab,
             double* b, const int* ldb, int* info);
void dgemm_(const char* transa, const char* transb, const int* m, const int* n, const int* k, const double* alpha,
            const double* a, const int* lda, const double* b, const int* ldb, const double* beta, double* c,
            const int* ldc);
char* openblas_get_corename(void);
void openblas_set_num_threads(int num_threads);
}
#endif
#if defined(SKYFRAME_HAS_ARPACK)
extern "C" {
void dsaupd_(int* ido, const char* bmat, const int* n, const char* which, const int* nev, const double* tol,
             double* resid, const int* ncv, double* v, const int* ldv, int* iparam, int* ipntr, double* workd,
             double* workl, const int* lworkl, int* info);
void dseupd_(const int* rvec, const char* howmny, int* select, double* d, double* z, const int* ldz,
             const double* sigma, const char* bmat, const int* n, const char* which, const int* nev, const double* tol,
             double* resid, const int* ncv, double* v, const int* ldv, int* iparam, int* ipntr, double* workd,
             double* workl, const int* lworkl, int* info);
}
#endif

namespace skyframe::bench {

namespace {
std::size_t Index(int i) { return static_cast<std::size_t>(i); }
}  // namespace

SymmetricColumns::SymmetricColumns(const SparseMatrix& A)
    : n(static_cast<int>(A.GetRowStarts().size()) - 1),
      start(A.GetRowStarts().begin(), A.GetRowStarts().end()),
      row(A.GetRowColumns().begin(), A.GetRowColumns().end()),
      value(A.GetRowValues().begin(), A.GetRowValues().end()) {}

void SymmetricColumns::Multiply(const double* x, double* y) const {
  for (int i = 0; i < n; ++i) {
    double dSum = 0.0;
    for (int k = start[Index(i)]; k < start[Index(i) + 1]; ++k) dSum += value[Index(k)] * x[row[Index(k)]];
    y[i] = dSum;
  }
}

#if defined(SKYFRAME_HAS_OPENBLAS)
CBandPeer::CBandPeer(const SparseMatrix& A, int n) : m_n(n), m_nBand(0) {
  for (int i = 0; i < n; ++i) m_nBand = std::max(m_nBand, A.GetHeights()[Index(i)] - 1);
  m_band.resize(Index(m_nBand + 1) * Index(n));
}

void CBandPeer::Load(const SparseMatrix& A) {
  std::fill(m_band.begin(), m_band.end(), 0.0);
  // Upper band storage: A(r, i) at (band + r - i, i); a column lies as it does in the skyline.
  for (int i = 0; i < m_n; ++i) {
    const int nHeight = A.GetHeights()[Index(i)];
    const double* const last = A.GetValues().data() + A.GetDiagonal()[Index(i)];
    std::copy(last - nHeight + 1, last + 1,
              m_band.begin() + static_cast<std::ptrdiff_t>(Index(i + 1) * Index(m_nBand + 1)) - nHeight);
  }
}

bool CBandPeer::Factorise() {
  const int nLead = m_nBand + 1;
  int nInfo = 0;
  dpbtrf_("U", &m_n, &m_nBand, m_band.data(), &nLead, &nInfo);
  return nInfo == 0;
}

void CBandPeer::Solve(double* b, int nColumns) const {
  const int nLead = m_nBand + 1;
  int nInfo = 0;
  dpbtrs_("U", &m_n, &m_nBand, &nColumns, m_band.data(), &nLead, b, &m_n, &nInfo);
}

void MultiplyDense(int n, const double* A, const double* B, double* C) {
  const double dOne = 1.0, dZero = 0.0;
  dgemm_("T", "N", &n, &n, &n, &dOne, A, &n, B, &n, &dZero, C, &n);
}

const char* GetOpenBlasCore() { return openblas_get_corename(); }

void UseOneThread() { openblas_set_num_threads(1); }
#endif

#if defined(SKYFRAME_HAS_CHOLMOD)
struct CCholmodPeer::Data {
  explicit Data(const SymmetricColumns& A) : columns(A) {
    cholmod_start(&common);
    common.nmethods = 1;
    common.method[0].ordering = CHOLMOD_METIS;
    common.supernodal = CHOLMOD_SUPERNODAL;
    common.final_ll = 1;
    common.postorder = 1;
    matrix.nrow = matrix.ncol = Index(columns.n);
    matrix.nzmax = columns.value.size();
    matrix.p = columns.start.data();
    matrix.i = columns.row.data();
    matrix.x = columns.value.data();
    matrix.stype = 1;
    matrix.itype = CHOLMOD_INT;
    matrix.xtype = CHOLMOD_REAL;
    matrix.dtype = CHOLMOD_DOUBLE;
    matrix.sorted = matrix.packed = 1;
  }
  ~Data() {
    cholmod_free_dense(&x, &common);
    cholmod_free_dense(&y, &common);
    cholmod_free_dense(&e, &common);
    cholmod_free_factor(&factor, &common);
    cholmod_finish(&common);
  }
  Data(const Data&) = delete;
  Data& operator=(const Data&) = delete;

  SymmetricColumns columns;
  cholmod_common common{};
  cholmod_sparse matrix{};
  cholmod_factor* factor = nullptr;
  cholmod_dense *x = nullptr, *y = nullptr, *e = nullptr;
};

CCholmodPeer::CCholmodPeer(const SymmetricColumns& A) : m_pData(std::make_unique<Data>(A)) {}
CCholmodPeer::~CCholmodPeer() = default;

bool CCholmodPeer::HasMetis() const {
  return m_pData->common.method[m_pData->common.selected].ordering == CHOLMOD_METIS;
}

bool CCholmodPeer::Analyse() {
  cholmod_free_factor(&m_pData->factor, &m_pData->common);
  m_pData->factor = cholmod_analyze(&m_pData->matrix, &m_pData->common);
  return m_pData->factor != nullptr;
}

bool CCholmodPeer::Factorise() {
  return cholmod_factorize(&m_pData->matrix, m_pData->factor, &m_pData->common) != 0 &&
         m_pData->common.status == CHOLMOD_OK;
}

void CCholmodPeer::Solve(double* b, double* x) {
  cholmod_dense right{};
  right.nrow = right.nzmax = right.d = Index(m_pData->columns.n);
  right.ncol = 1;
  right.x = b;
  right.xtype = CHOLMOD_REAL;
  right.dtype = CHOLMOD_DOUBLE;
  cholmod_solve2(CHOLMOD_A, m_pData->factor, &right, nullptr, &m_pData->x, nullptr, &m_pData->y, &m_pData->e,
                 &m_pData->common);
  std::copy_n(static_cast<const double*>(m_pData->x->x), m_pData->columns.n, x);
}
#endif

#if defined(SKYFRAME_HAS_CHOLMOD) && defined(SKYFRAME_HAS_ARPACK)
ArpackModes SolveModesArpack(const SymmetricColumns& K, const SymmetricColumns& M, int nModes) {
  CCholmodPeer factor(K);
  if (!factor.Analyse() || !factor.Factorise()) return {};
  const int n = K.n, nBasis = std::min(n, 2 * nModes + 1), nWork = nBasis * (nBasis + 8), nVectors = 1;
  const double dTolerance = 1e-8, dSigma = 0.0;
  std::vector<double> residual(Index(n)), V(Index(n) * Index(nBasis)), workd(3 * Index(n)), workl(Index(nWork));
  std::vector<double> product(Index(n)), d(Index(nModes));
  std::vector<int> select(Index(nBasis));
  int iparam[11] = {}, ipntr[11] = {}, nIdo = 0, nInfo = 0;
  iparam[0] = 1;
  iparam[2] = 300;
  iparam[6] = 3;  // shift-invert
  for (;;) {
    dsaupd_(&nIdo, "G", &n, "LM", &nModes, &dTolerance, residual.data(), &nBasis, V.data(), &n, iparam, ipntr,
            workd.data(), workl.data(), &nWork, &nInfo);
    double* const x = workd.data() + ipntr[0] - 1;
    double* const y = workd.data() + ipntr[1] - 1;
    if (nIdo == -1) {
      M.Multiply(x, product.data());
      factor.Solve(product.data(), y);
    } else if (nIdo == 1) {
      factor.Solve(workd.data() + ipntr[2] - 1, y);
    } else if (nIdo == 2) {
      M.Multiply(x, y);
    } else {
      break;
    }
  }
  if (nInfo != 0) return {};
  dseupd_(&nVectors, "A", select.data(), d.data(), V.data(), &n, &dSigma, "G", &n, "LM", &nModes, &dTolerance,
          residual.data(), &nBasis, V.data(), &n, iparam, ipntr, workd.data(), workl.data(), &nWork, &nInfo);
  V.resize(Index(n) * d.size());
  return {d, V};
}
#endif

#if defined(SKYFRAME_HAS_EIGEN)
struct CEigenPeer::Data {
  Eigen::SparseMatrix<double> matrix;
  Eigen::SimplicialLDLT<Eigen::SparseMatrix<double>> solver;
};

CEigenPeer::CEigenPeer(const SymmetricColumns& A) : m_pData(std::make_unique<Data>()) {
  m_pData->matrix = Eigen::Map<const Eigen::SparseMatrix<double>>(A.n, A.n, static_cast<Eigen::Index>(A.value.size()),
                                                                  A.start.data(), A.row.data(), A.value.data());
  m_pData->solver.analyzePattern(m_pData->matrix);
}
CEigenPeer::~CEigenPeer() = default;

bool CEigenPeer::Factorise() {
  m_pData->solver.factorize(m_pData->matrix);
  return m_pData->solver.info() == Eigen::Success;
}

void CEigenPeer::Solve(const double* b, double* x) const {
  const auto n = m_pData->matrix.rows();
  Eigen::Map<Eigen::VectorXd>(x, n) = m_pData->solver.solve(Eigen::Map<const Eigen::VectorXd>(b, n));
}
#endif

}  // namespace skyframe::bench
