#include "skyframe/numeric/SparseMatrix.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <new>
#include <numeric>

#include "skyframe/platform/Pages.h"
#include "skyframe/platform/Platform.h"
#include "texts.h"

namespace skyframe {

namespace {

constexpr double c_dPivotLimit = 1e-15;

/// False within the limit, for NaN and for infinity.
bool IsAcceptedPivot(double d) { return std::abs(d) > c_dPivotLimit && std::isfinite(d); }

std::size_t Index(int i) { return static_cast<std::size_t>(i); }

struct UpperEntry {
  int nRow;
  double dValue;
};

/// By bits: a negative zero counts as an entry.
template <std::size_t nExtent>
bool IsZeroRun(std::span<const double, nExtent> run) {
  std::uint64_t nBits = 0;
  for (const double d : run) nBits |= std::bit_cast<std::uint64_t>(d);
  return nBits == 0;
}

/// Calls the action with place and entries of every run that is not all zero; the others are not touched.
template <class Action>
void ForEachRun(std::span<const double> values, Action action) {
  constexpr std::size_t c_nRun = 512;
  for (std::size_t k = 0; k < values.size(); k += c_nRun) {
    const auto run = values.subspan(k, std::min(c_nRun, values.size() - k));
    if (!IsZeroRun(run)) action(k, run);
  }
}

/// Of a column's rows nBegin .. nEnd - 1. Runs of zeros, which are most of it, are passed over eight at a time.
void AppendNonZeros(const double* column, int nBegin, int nEnd, std::vector<UpperEntry>& entries) {
  constexpr int c_nRun = 8;
  for (int r = nBegin; r < nEnd; ++r) {
    while (r + c_nRun <= nEnd && IsZeroRun(std::span<const double, c_nRun>(column + r, c_nRun))) r += c_nRun;
    if (r < nEnd && column[r] != 0.0) entries.push_back({r, column[r]});
  }
}

/// Runs the action. False after a message when memory is short.
template <class Action>
bool RunWithMemory(Action action) {
  try {
    action();
    return true;
  } catch (const std::bad_alloc&) {
    GetPlatform().ShowMessage(texts::c_strMatrixMemory);
    return false;
  }
}

}  // namespace

SparseMatrix::SparseMatrix() = default;

SparseMatrix::SparseMatrix(const SparseMatrix& other) { *this = other; }

SparseMatrix& SparseMatrix::operator=(const SparseMatrix& other) {
  if (this == &other) return *this;
  // Deliberate: profiles of one order and one size count as equal, whatever their columns.
  if (m_n != other.m_n || GetCount() != other.GetCount()) SetProfile(other.m_n, other.m_diag, other.m_nLeading);
  if (other.m_bNotAllocated) {
    Release();
    RestoreHeights();
    return *this;
  }
  Allocate();
  if (m_bNotAllocated) return *this;
  ForEachRun(other.GetValues(), [this](std::size_t nFirst, std::span<const double> run) {
    std::ranges::copy(run, m_values.get() + nFirst);
  });
  m_bFactorised = other.m_bFactorised;
  if (m_bFactorised && !KeepDiagonal()) Release();
  return *this;
}

SparseMatrix::~SparseMatrix() = default;

void SparseMatrix::SetProfile(int n, std::span<const int> diag) { SetProfile(n, diag, n); }

void SparseMatrix::SetProfile(int n, std::span<const int> diag, int nLeading) {
  Release();
  m_n = n;
  m_nLeading = nLeading;
  const auto first = diag.first(Index(n));
  m_diag = std::vector<int>(first.begin(), first.end());
  RestoreHeights();
}

void SparseMatrix::Release() {
  m_values.reset();
  m_height.clear();
  DropDerived();
  m_bFactorised = false;
  m_bNotAllocated = true;
}

void SparseMatrix::Allocate() {
  Release();
  RestoreHeights();
  m_bNotAllocated = !RunWithMemory([this] {
    // Addresses that do not ascend have left the 32-bit range: no memory would be enough.
    if (std::ranges::adjacent_find(m_diag, std::greater_equal()) != m_diag.end()) throw std::bad_alloc();
    AllocateValues();
    TouchEnds();
  });
}

void SparseMatrix::AllocateValues() {
  constexpr std::size_t c_nPage = c_nLargePage / sizeof(double);
  const std::size_t nLeading = m_nLeading > 0 ? Index(Diagonal(m_nLeading - 1)) + 1 : 0;
  const std::size_t nLarge = nLeading < c_nPage ? 0 : (nLeading + c_nPage - 1) / c_nPage * c_nPage;
  const std::size_t nCount = std::max({GetCount(), nLarge, std::size_t{1}}) + (nLarge > 0 ? c_nPage : 0);
  auto* const pBlock = static_cast<double*>(std::calloc(nCount, sizeof(double)));
  if (pBlock == nullptr) throw std::bad_alloc();
  void* pFirst = pBlock;
  std::size_t nRoom = nCount * sizeof(double);
  if (nLarge > 0) pFirst = std::align(c_nLargePage, nLarge * sizeof(double), pFirst, nRoom);
  m_values = {static_cast<double*>(pFirst), FreeValues{static_cast<double*>(pFirst) - pBlock}};
  PreferLargePages(pFirst, nLarge * sizeof(double));
}

void SparseMatrix::TouchEnds() {
  for (int i = m_nLeading; i < m_n; ++i) {
    for (const int nRow : {i - FullHeight(i) + 1, i}) {
      volatile double& dEntry = Column(i)[nRow];  // zeros in memory known to be zero may be left out otherwise
      dEntry = 0.0;
    }
  }
}

void SparseMatrix::Fill(double dValue) {
  const bool bNew = m_bNotAllocated;
  if (bNew) Allocate();
  m_bFactorised = false;
  if (dValue != 0.0) {
    std::ranges::fill(GetEntries(), dValue);
  } else if (!bNew) {
    Clear();
  }
}

void SparseMatrix::Clear() {
  ForEachRun(GetValues(), [this](std::size_t nFirst, std::span<const double> run) {
    std::fill_n(m_values.get() + nFirst, run.size(), 0.0);
  });
}

std::span<const double> SparseMatrix::GetValues() const {
  return {m_values.get(), m_bNotAllocated ? std::size_t{0} : GetCount()};
}

double& SparseMatrix::operator()(int nRow, int nCol) {
  if (IsRefused(texts::c_strAccessUnallocated)) return ResetDummy();
  const int i = std::max(nRow, nCol);
  const int j = std::min(nRow, nCol);
  // Deliberate: greater than n, and only the smaller index.
  if (j > m_n) {
    GetPlatform().ShowMessage(nRow >= nCol ? texts::c_strColOutOfRange : texts::c_strRowOutOfRange);
    return ResetDummy();
  }
  const bool bStored = i >= 0 && i < m_n && i - j < FullHeight(i);
  return bStored ? Column(i)[j] : ResetDummy();
}

void SparseMatrix::PrefetchElement(std::span<const int> equations) const {
  if (m_bNotAllocated) return;
  for (const int nCol : equations) {
    for (const int nRow : equations) {
      if (nRow <= nCol) __builtin_prefetch(Column(nCol) + nRow, 1);
    }
  }
}

void SparseMatrix::AddElement(const CMatrix& element, std::span<const int> equations) {
  if (IsRefused(texts::c_strAccessUnallocated)) return;
  for (std::size_t c = 0; c < equations.size(); ++c) {
    const int nCol = equations[c];
    const int nTop = nCol - FullHeight(nCol) + 1;
    double* const column = Column(nCol);
    for (std::size_t r = 0; r < equations.size(); ++r) {
      const int nRow = equations[r];
      // Two places with one equation count once each, as the lower triangle has them.
      const bool bUpper = nRow < nCol || (nRow == nCol && r <= c);
      if (bUpper && nRow >= nTop) column[nRow] += element[static_cast<int>(std::max(r, c))][std::min(r, c)];
    }
  }
}

SparseMatrix& SparseMatrix::operator*=(double dFactor) {
  if (IsRefused(texts::c_strMultiplyUnallocated)) return *this;
  for (double& dEntry : GetEntries()) {
    // Deliberate: zeros stay zero under any factor, NaN too.
    if (dEntry != 0.0) dEntry *= dFactor;
  }
  m_bFactorised = false;
  return *this;
}

SparseMatrix& SparseMatrix::operator+=(const SparseMatrix& S) {
  if (IsRefused(texts::c_strAddUnallocated) || S.IsRefused(texts::c_strAddUnallocated)) return *this;
  for (int i = 0; i < std::min(m_n, S.m_n); ++i) {
    const int nCommon = std::min(FullHeight(i), S.FullHeight(i));
    ForEachRun({S.Column(i) + i - nCommon + 1, Index(nCommon)}, [&](std::size_t nFirst, std::span<const double> run) {
      double* const a = Column(i) + (i - nCommon + 1) + nFirst;
      for (std::size_t k = 0; k < run.size(); ++k) a[k] += run[k];
    });
  }
  m_bFactorised = false;
  return *this;
}

CMatrix SparseMatrix::operator*(const CMatrix& x) const {
  if (IsRefused(texts::c_strMultiplyUnallocated)) return {};
  if (x.GetCols() != 1 && x.GetRows() != 1) {
    GetPlatform().ShowMessage(texts::c_strVectorDefinition);
    return {};
  }
  CMatrix y(x.GetRows(), x.GetCols(), 0.0);
  const int nLength = x.GetCols() == 1 ? x.GetRows() : x.GetCols();
  const double* const xs = x[0];
  double* const ys = y[0];
  for (int i = 0; i < std::min(nLength, m_n); ++i) {
    const double* const a = Column(i);
    double dSum = a[i] * xs[i];
    for (int r = i - 1; r > i - Height(i); --r) {
      dSum += a[r] * xs[r];
      ys[r] += a[r] * xs[i];
    }
    ys[i] += dSum;
  }
  return y;
}

void SparseMatrix::MultiplyRows(std::span<const double> x, std::span<double> y) const {
  for (std::size_t i = 0; i < y.size(); ++i) {
    double dSum = 0.0;
    for (auto k = Index(m_rows.start[i]); k < Index(m_rows.start[i + 1]); ++k)
      dSum += m_rows.value[k] * x[Index(m_rows.column[k])];
    y[i] = dSum;
  }
}

void SparseMatrix::RestoreHeights() {
  m_height.resize(Index(m_n));
  for (int i = 0; i < m_n; ++i) m_height[Index(i)] = FullHeight(i);
}

void SparseMatrix::TrimProfile(int n) {
  if (m_bNotAllocated || n < 1) return;
  for (int i = 0; i < n; ++i) {
    int nTop = i - FullHeight(i) + 1;
    while (nTop < i && Column(i)[nTop] == 0.0) ++nTop;
    m_height[Index(i)] = i - nTop + 1;
  }
  m_rowExtent.assign(Index(n), 1);
  int nLast = n - 1;
  for (int i = n - 2; i >= 0; --i) {
    while (nLast - i >= FullHeight(nLast)) --nLast;
    m_rowExtent[Index(i)] = nLast - i + 1;
  }
}

bool SparseMatrix::BuildRows(int n) {
  m_rows = {};
  if (RunWithMemory([this, n] { FillRows(n); })) return true;
  m_rows = {};
  return false;
}

/// Throws std::bad_alloc when there is no room, or more than 2^31 - 1 entries.
void SparseMatrix::FillRows(int n) {
  // One pass over the profile: the non-zero entries column by column, the columns' ends, the rows' lengths.
  std::vector<UpperEntry> upper;
  std::vector<std::size_t> columnEnd(Index(n), 0);
  std::vector<std::size_t> rowEnd(Index(n) + 1, 0);
  for (int i = 0; i < n && !m_bNotAllocated; ++i) {
    AppendNonZeros(Column(i), i - Height(i) + 1, i + 1, upper);
    for (std::size_t k = i == 0 ? 0 : columnEnd[Index(i) - 1]; k < upper.size(); ++k) {
      ++rowEnd[Index(i) + 1];
      if (upper[k].nRow < i) ++rowEnd[Index(upper[k].nRow) + 1];
    }
    columnEnd[Index(i)] = upper.size();
  }
  std::partial_sum(rowEnd.begin(), rowEnd.end(), rowEnd.begin());
  if (rowEnd.back() > Index(std::numeric_limits<int>::max())) throw std::bad_alloc();
  std::vector<int> rowStart(rowEnd.begin(), rowEnd.end());
  m_rows.value.resize(rowEnd.back());
  m_rows.column.resize(rowEnd.back());

  std::vector<int> next = rowStart;
  const auto append = [&](int nRow, int nCol, double dValue) {
    const auto k = Index(next[Index(nRow)]++);
    m_rows.value[k] = dValue;
    m_rows.column[k] = nCol;
  };
  // Row i receives its left entries with column i, the right ones with later columns.
  std::size_t k = 0;
  for (int i = 0; i < n; ++i) {
    for (; k < columnEnd[Index(i)]; ++k) {
      append(i, upper[k].nRow, upper[k].dValue);
      if (upper[k].nRow < i) append(upper[k].nRow, i, upper[k].dValue);
    }
  }
  m_rows.start = std::move(rowStart);
}

bool SparseMatrix::Decompose(int n) {
  if (IsRefused(texts::c_strSolveUnallocated)) return false;
  if (!KeepDiagonal()) return false;
  const bool bAccepted = Factorise(n, std::span(m_scale).first(Index(n)));
  for (int i = 0; i < n; ++i) Column(i)[i] = m_scale[Index(i)];
  return bAccepted;
}

bool SparseMatrix::Solve(int n, std::span<double> b) {
  if (IsRefused(texts::c_strSolveUnallocated)) return false;
  if (!m_bFactorised && !Decompose(n)) return false;
  const auto profile = GetProfile(n);
  skyline::ForwardReduce(profile, m_values.get(), b);
  for (int i = 0; i < n; ++i) b[Index(i)] /= m_scale[Index(i)];
  skyline::BackSubstitute(profile, m_values.get(), b);
  return true;
}

bool SparseMatrix::SolveColumns(int n, std::span<double> B, int nColumns) {
  if (IsRefused(texts::c_strSolveUnallocated)) return false;
  if (!m_bFactorised && !Decompose(n)) return false;
  return RunWithMemory(
      [&] { skyline::SolveColumns(GetProfile(n), m_values.get(), std::span(m_scale).first(Index(n)), B, nColumns); });
}

bool SparseMatrix::SolveKeepDiagonal(int n, std::span<double> d, std::span<double> b) {
  if (IsRefused(texts::c_strSolveUnallocated)) return false;
  if (!m_bFactorised && (!KeepDiagonal() || !Factorise(n, d))) return false;
  const auto profile = GetProfile(n);
  skyline::ForwardReduce(profile, m_values.get(), b);
  for (int i = 0; i < n; ++i) b[Index(i)] /= d[Index(i)];
  skyline::BackSubstitute(profile, m_values.get(), b);
  return true;
}

bool SparseMatrix::KeepDiagonal() {
  return RunWithMemory([this] {
    m_scale.resize(Index(m_n));
    for (int i = 0; i < m_n; ++i) m_scale[Index(i)] = Column(i)[i];
  });
}

/// L in place of the columns, D in pivots. The pivots are tested after all columns.
bool SparseMatrix::Factorise(int n, std::span<double> pivots) {
  for (int i = 0; i < n; ++i) pivots[Index(i)] = Column(i)[i];
  if (!RunWithMemory([&] { skyline::FactoriseLdlt(GetProfile(n), m_values.get(), pivots); })) return false;
  m_lostDigits = MeasureLostDigits(pivots.first(Index(n)));
  if (!std::ranges::all_of(pivots.first(Index(n)), IsAcceptedPivot)) {
    GetPlatform().ShowMessage(texts::c_strUnstable);
    return false;
  }
  m_bFactorised = true;
  return true;
}

/// The diagonal still holds A_ii, pivots hold D_ii.
LostDigits SparseMatrix::MeasureLostDigits(std::span<const double> pivots) const {
  double dLargest = -1.0;
  int nEquation = -1;
  for (int i = 0; i < static_cast<int>(pivots.size()); ++i) {
    double dRatio = std::abs(Column(i)[i] / pivots[Index(i)]);
    if (std::isnan(dRatio)) dRatio = std::numeric_limits<double>::infinity();  // 0 / 0: nothing was there
    if (dRatio <= dLargest) continue;
    nEquation = i;
    dLargest = dRatio;
  }
  return {nEquation < 0 ? 0.0 : std::log10(dLargest), nEquation};
}

std::size_t SparseMatrix::GetCount() const { return m_diag.empty() ? 0 : Index(m_diag.back()) + 1; }

skyline::Profile SparseMatrix::GetProfile(int n) const {
  return {GetDiagonal().first(Index(n)), GetHeights().first(Index(n))};
}

bool SparseMatrix::IsRefused(std::string_view strText) const {
  if (m_bNotAllocated) GetPlatform().ShowMessage(strText);
  return m_bNotAllocated;
}

double& SparseMatrix::ResetDummy() {
  m_dDummy = 0.0;
  return m_dDummy;
}

void SparseMatrix::DropDerived() {
  m_rowExtent.clear();
  m_rows = {};
}

}  // namespace skyframe
