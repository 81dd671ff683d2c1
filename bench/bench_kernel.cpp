#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "AllocationCount.h"
#include "Building.h"
#include "Peers.h"
#include "TestPlatform.h"
#include "Textbook.h"
#include "skyframe/numeric/SkylineKernel.h"

// Factorisation, solution, products and assembly of the skyline matrix, with peers. Benchmarks are named
// quantity/size/who. Counters: GFLOP/s, GB/s, residuals, sizes.

namespace skyframe::bench {

namespace {

using benchmark::State;
using skyline::VectorUnit;

constexpr double c_dGiga = 1e-9;
constexpr double c_dMega = 1e-6;
constexpr double c_dDeletedShare = 0.1;
constexpr int c_nDense = 1536;

std::size_t Index(int i) { return static_cast<std::size_t>(i); }

/// A matrix in its states: as assembled (with compressed rows) and factorised, made when first asked for.
class CCase {
 public:
  explicit CCase(std::function<SparseMatrix()> make) : m_make(std::move(make)) {}

  const SparseMatrix& GetMatrix() {
    if (!m_pMatrix) {
      m_pMatrix = std::make_unique<SparseMatrix>(m_make());
      const int n = m_pMatrix->GetOrder();
      m_pMatrix->BuildRows(n);
      m_dOperations = CountOperations(*m_pMatrix, n);
      m_dEntries = CountEntries(*m_pMatrix, n);
    }
    return *m_pMatrix;
  }
  SparseMatrix& GetFactors() {
    if (!m_pFactors) {
      m_pFactors = std::make_unique<SparseMatrix>(GetMatrix());
      if (!m_pFactors->Decompose(GetOrder())) std::abort();
    }
    return *m_pFactors;
  }
  int GetOrder() { return GetMatrix().GetOrder(); }
  skyline::Profile GetProfile() { return {GetMatrix().GetDiagonal(), GetMatrix().GetHeights()}; }
  double GetOperations() const { return m_dOperations; }
  double GetEntries() const { return m_dEntries; }

 private:
  std::function<SparseMatrix()> m_make;
  std::unique_ptr<SparseMatrix> m_pMatrix, m_pFactors;
  double m_dOperations = 0.0, m_dEntries = 0.0;
};

SparseMatrix TakeLeading(const SparseMatrix& A, int n) { return DeleteEquations(A, n, 0.0); }

SparseMatrix MakeBuildingMatrix(const BuildingShape& shape, double dDeletedShare) {
  const auto pModel = BuildBuilding(shape);
  const Pencil pencil = FormPencil(*pModel);
  return dDeletedShare > 0.0 ? DeleteEquations(pencil.K, pencil.n, dDeletedShare) : TakeLeading(pencil.K, pencil.n);
}

/// Heights without the leading zeros of each column, as the modal solution has them.
SparseMatrix MakeTrimmed(const BuildingShape& shape) {
  SparseMatrix A = MakeBuildingMatrix(shape, 0.0);
  A.TrimProfile(A.GetOrder());
  std::vector<int> diag = {0};
  for (int i = 1; i < A.GetOrder(); ++i) diag.push_back(diag.back() + A.GetHeights()[Index(i)]);
  SparseMatrix B;
  B.SetProfile(A.GetOrder(), diag);
  B.Fill(0.0);
  for (int i = 0; i < A.GetOrder(); ++i) {
    for (int r = i - A.GetHeights()[Index(i)] + 1; r <= i; ++r) B(r, i) = A(r, i);
  }
  return B;
}

void SetRate(State& state, double dOperations) {
  state.counters["GFLOP"] = dOperations * c_dGiga;
  state.counters["GFLOP/s"] =
      benchmark::Counter(dOperations * c_dGiga * static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}

void SetBandwidth(State& state, double dBytes) {
  state.counters["GB/s"] =
      benchmark::Counter(dBytes * c_dGiga * static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}

void SetProfileCounters(State& state, CCase& matrix) {
  state.counters["equations"] = matrix.GetOrder();
  state.counters["entries"] = matrix.GetEntries();
  state.counters["mean_height"] = matrix.GetEntries() / matrix.GetOrder();
}

/// x of A x = b by the factorised matrix, checked with the assembled one.
double FormSolutionResidual(CCase& matrix, SparseMatrix& factors) {
  const std::vector<double> b = MakeVector(matrix.GetOrder());
  std::vector<double> x = b;
  if (!factors.Solve(matrix.GetOrder(), x)) return 1.0;
  return FormResidual(matrix.GetMatrix(), x, b);
}

void FactoriseOwn(State& state, CCase& matrix) {
  const SparseMatrix& A = matrix.GetMatrix();
  SparseMatrix work;
  std::size_t nExtra = 0;
  for (auto _ : state) {
    state.PauseTiming();
    work = A;
    const std::size_t nBefore = GetBytes();
    ResetPeakBytes();
    state.ResumeTiming();
    if (!work.Decompose(A.GetOrder())) return state.SkipWithError("refused");
    nExtra = GetPeakBytes() - nBefore;
  }
  SetRate(state, matrix.GetOperations());
  SetProfileCounters(state, matrix);
  state.counters["residual"] = FormSolutionResidual(matrix, work);
  state.counters["extra_MB"] = static_cast<double>(nExtra) * c_dMega;
  state.counters["profile_MB"] = matrix.GetEntries() * sizeof(double) * c_dMega;
}

/// With one vector unit forced.
void FactoriseUnit(State& state, CCase& matrix, VectorUnit unit) {
  const SparseMatrix& A = matrix.GetMatrix();
  std::vector<double> values, pivots(Index(A.GetOrder()));
  for (auto _ : state) {
    state.PauseTiming();
    values.assign(A.GetValues().begin(), A.GetValues().end());
    for (std::size_t i = 0; i < pivots.size(); ++i) pivots[i] = values[Index(A.GetDiagonal()[i])];
    state.ResumeTiming();
    skyline::FactoriseLdlt(matrix.GetProfile(), values.data(), pivots, unit);
  }
  SetRate(state, matrix.GetOperations());
}

void FactoriseScalar(State& state, CCase& matrix) {
  const SparseMatrix& A = matrix.GetMatrix();
  std::vector<double> values;
  for (auto _ : state) {
    state.PauseTiming();
    values.assign(A.GetValues().begin(), A.GetValues().end());
    state.ResumeTiming();
    FactoriseTextbook(matrix.GetProfile(), values.data());
  }
  SetRate(state, matrix.GetOperations());
}

/// Solves in place, from the same right-hand side each time: solutions of solutions would soon be denormal numbers,
/// which cost many times as much.
template <class Solution>
void RepeatSolution(State& state, const std::vector<double>& b, Solution solve) {
  std::vector<double> x(b.size());
  for (auto _ : state) {
    std::ranges::copy(b, x.begin());
    if (!solve(x)) return state.SkipWithError("refused");
    benchmark::DoNotOptimize(x.data());
  }
}

void SolveOwn(State& state, CCase& matrix) {
  SparseMatrix& factors = matrix.GetFactors();
  const int n = matrix.GetOrder();
  RepeatSolution(state, MakeVector(n), [&](std::vector<double>& x) { return factors.Solve(n, x); });
  SetBandwidth(state, 2.0 * sizeof(double) * matrix.GetEntries());
  SetProfileCounters(state, matrix);
  state.counters["residual"] = FormSolutionResidual(matrix, factors);
}

/// Eight at a time; the time is for one.
void SolveEight(State& state, CCase& matrix) {
  constexpr int c_nColumns = 8;
  SparseMatrix& factors = matrix.GetFactors();
  const int n = matrix.GetOrder();
  const std::vector<double> start = MakeVector(c_nColumns * n);
  std::vector<double> B(start.size());
  while (state.KeepRunningBatch(c_nColumns)) {
    std::ranges::copy(start, B.begin());
    if (!factors.SolveColumns(n, B, c_nColumns)) return state.SkipWithError("refused");
  }
}

void SolveScalar(State& state, CCase& matrix) {
  const SparseMatrix& factors = matrix.GetFactors();
  RepeatSolution(state, MakeVector(matrix.GetOrder()), [&](std::vector<double>& x) {
    SolveTextbook(matrix.GetProfile(), factors.GetValues().data(), x);
    return true;
  });
  SetBandwidth(state, 2.0 * sizeof(double) * matrix.GetEntries());
}

void MultiplyByRows(State& state, CCase& matrix) {
  const SparseMatrix& A = matrix.GetMatrix();
  const std::vector<double> x = MakeVector(A.GetOrder());
  std::vector<double> y(x.size());
  for (auto _ : state) {
    A.MultiplyRows(x, y);
    benchmark::DoNotOptimize(y.data());
  }
  const auto dEntries = static_cast<double>(A.GetRowValues().size());
  state.counters["entries_a_row"] = dEntries / A.GetOrder();
  SetBandwidth(state, (sizeof(double) + sizeof(int)) * dEntries);
}

void MultiplySkyline(State& state, CCase& matrix) {
  const SparseMatrix& A = matrix.GetMatrix();
  const CMatrix x(A.GetOrder(), 1, 1.0);
  for (auto _ : state) benchmark::DoNotOptimize((A * x)[0]);
}

/// K and M of all elements into matrices that are there and zero.
void AssembleOwn(State& state, const BuildingShape& shape) {
  const auto pModel = BuildBuilding(shape);
  Pencil pencil = FormPencil(*pModel);
  for (auto _ : state) {
    state.PauseTiming();
    pencil.K.Fill(0.0);
    pencil.M.Fill(0.0);
    state.ResumeTiming();
    for (const auto& pElement : pModel->GetElements()) pElement->AssembleStiffness(pencil.K, false, false);
    for (const auto& pElement : pModel->GetElements()) pElement->AssembleMass(pencil.M, false);
  }
  state.counters["elements"] = static_cast<double>(pModel->GetElements().size());
}

/// The same into memory that is new to the program: every page is touched for the first time.
void AssembleNew(State& state, const BuildingShape& shape) {
  const auto pModel = BuildBuilding(shape);
  for (auto _ : state) benchmark::DoNotOptimize(FormPencil(*pModel).n);
}

/// Sums the factorised profile, in equal parts side by side: the rate at which the memory of a solution can be read.
/// The same memory, since blocks of one size differ by a fifth in a virtual machine.
template <std::size_t nStreams>
void ReadMemory(State& state, CCase& matrix) {
  const std::span<const double> block = matrix.GetFactors().GetValues();
  const auto nCount = block.size(), nPart = nCount / nStreams;
  for (auto _ : state) {
    double sum[nStreams][16] = {};
    for (std::size_t i = 0; i + 16 <= nPart; i += 16) {
      for (std::size_t s = 0; s < nStreams; ++s) {
        for (std::size_t k = 0; k < 16; ++k) sum[s][k] += block[s * nPart + i + k];
      }
    }
    benchmark::DoNotOptimize(sum);
  }
  SetBandwidth(state, static_cast<double>(nCount) * sizeof(double));
}

#if defined(SKYFRAME_HAS_OPENBLAS)
void FactoriseBand(State& state, CCase& matrix) {
  CBandPeer peer(matrix.GetMatrix(), matrix.GetOrder());
  for (auto _ : state) {
    state.PauseTiming();
    peer.Load(matrix.GetMatrix());
    state.ResumeTiming();
    if (!peer.Factorise()) return state.SkipWithError("refused");
  }
  SetRate(state, matrix.GetOperations());
  const std::vector<double> b = MakeVector(matrix.GetOrder());
  std::vector<double> x = b;
  peer.Solve(x.data(), 1);
  state.counters["residual"] = FormResidual(matrix.GetMatrix(), x, b);
}

void SolveBand(State& state, CCase& matrix) {
  CBandPeer peer(matrix.GetMatrix(), matrix.GetOrder());
  peer.Load(matrix.GetMatrix());
  if (!peer.Factorise()) return state.SkipWithError("refused");
  RepeatSolution(state, MakeVector(matrix.GetOrder()), [&](std::vector<double>& x) {
    peer.Solve(x.data(), 1);
    return true;
  });
}

void MultiplyMatrices(State& state) {
  const std::vector<double> A = MakeVector(c_nDense * c_nDense), B = MakeVector(c_nDense * c_nDense, 2);
  std::vector<double> C(A.size());
  for (auto _ : state) MultiplyDense(c_nDense, A.data(), B.data(), C.data());
  SetRate(state, 2.0 * c_nDense * c_nDense * c_nDense);
}
#endif

#if defined(SKYFRAME_HAS_CHOLMOD)
void FactoriseCholmod(State& state, CCase& matrix) {
  CCholmodPeer peer{SymmetricColumns(matrix.GetMatrix())};
  if (!peer.Analyse() || !peer.HasMetis()) return state.SkipWithError("METIS is missing");
  for (auto _ : state) {
    if (!peer.Factorise()) return state.SkipWithError("refused");
  }
  std::vector<double> b = MakeVector(matrix.GetOrder()), x(b.size());
  peer.Solve(b.data(), x.data());
  state.counters["residual"] = FormResidual(matrix.GetMatrix(), x, b);
}

void SolveCholmod(State& state, CCase& matrix) {
  CCholmodPeer peer{SymmetricColumns(matrix.GetMatrix())};
  if (!peer.Analyse() || !peer.Factorise()) return state.SkipWithError("refused");
  std::vector<double> b = MakeVector(matrix.GetOrder()), x(b.size());
  for (auto _ : state) peer.Solve(b.data(), x.data());
}
#endif

#if defined(SKYFRAME_HAS_EIGEN)
void FactoriseEigen(State& state, CCase& matrix) {
  CEigenPeer peer{SymmetricColumns(matrix.GetMatrix())};
  for (auto _ : state) {
    if (!peer.Factorise()) return state.SkipWithError("refused");
  }
}
#endif

class CKernelBenchmarks {
 public:
  void Register() {
    for (const BuildingShape& shape : c_shapes) RegisterShape(shape);
    RegisterProfiles();
#if defined(SKYFRAME_HAS_OPENBLAS)
    // Beside the best one those of narrower vectors, when the script asks for them.
    const char* const pszUnit = std::getenv("SKYFRAME_DGEMM_UNIT");
    Add(std::string("dgemm/1536/") + (pszUnit == nullptr ? "openblas" : pszUnit), MultiplyMatrices);
    benchmark::AddCustomContext("openblas_core", GetOpenBlasCore());
    UseOneThread();
#endif
  }

 private:
  CCase& MakeCase(const std::string& strName, std::function<SparseMatrix()> make) {
    return m_cases.try_emplace(strName, std::move(make)).first->second;
  }

  template <class Function, class... Arguments>
  static void Add(const std::string& strName, Function function, Arguments&&... arguments) {
    benchmark::RegisterBenchmark(strName.c_str(), function, std::forward<Arguments>(arguments)...)
        ->Unit(benchmark::kMillisecond);
  }

  void RegisterShape(const BuildingShape& shape) {
    const std::string& s = shape.strName;
    const auto matrix = std::ref(MakeCase(s, [shape] { return MakeBuildingMatrix(shape, 0.0); }));
    Add("factor/" + s + "/skyframe", FactoriseOwn, matrix);
    Add("solve/" + s + "/skyframe", SolveOwn, matrix);
    Add("solve8/" + s + "/skyframe", SolveEight, matrix);
    Add("rows/" + s + "/skyframe", MultiplyByRows, matrix);
    Add("rows/" + s + "/skyline", MultiplySkyline, matrix);
    Add("assembly/" + s + "/skyframe", AssembleOwn, shape);
    Add("assembly/" + s + "/new-memory", AssembleNew, shape);
#if defined(SKYFRAME_HAS_OPENBLAS)
    Add("factor/" + s + "/dpbtrf", FactoriseBand, matrix);
    Add("solve/" + s + "/dpbtrs", SolveBand, matrix);
#endif
#if defined(SKYFRAME_HAS_CHOLMOD)
    Add("factor/" + s + "/cholmod", FactoriseCholmod, matrix);
    Add("solve/" + s + "/cholmod", SolveCholmod, matrix);
#endif
    Add("memory/" + s + "/one", ReadMemory<1>, matrix);
    Add("memory/" + s + "/two", ReadMemory<2>, matrix);
    Add("memory/" + s + "/four", ReadMemory<4>, matrix);
    if (s == "60k") return;  // too slow to be worth the wait
    Add("factor/" + s + "/bytes16", FactoriseUnit, matrix, VectorUnit::Bytes16);
    Add("factor/" + s + "/bytes32", FactoriseUnit, matrix, VectorUnit::Bytes32);
    Add("factor/" + s + "/textbook", FactoriseScalar, matrix);
    Add("solve/" + s + "/textbook", SolveScalar, matrix);
#if defined(SKYFRAME_HAS_EIGEN)
    if (s != "24k") Add("factor/" + s + "/eigen", FactoriseEigen, matrix);
#endif
  }

  void RegisterProfiles() {
    const BuildingShape shape = c_shapes[2];
    const auto deleted = std::ref(MakeCase("deleted", [shape] { return MakeBuildingMatrix(shape, c_dDeletedShare); }));
    const auto trimmed = std::ref(MakeCase("trimmed", [shape] { return MakeTrimmed(shape); }));
    const auto random = std::ref(MakeCase("random", [] { return MakeRandomRagged(12000, 1500); }));
    for (const auto& [strName, matrix] :
         {std::pair("24k-deleted", deleted), {"24k-trimmed", trimmed}, {"12k-random", random}}) {
      Add(std::string("factor/") + strName + "/skyframe", FactoriseOwn, matrix);
      Add(std::string("solve/") + strName + "/skyframe", SolveOwn, matrix);
    }
  }

  std::map<std::string, CCase> m_cases;
};

}  // namespace

}  // namespace skyframe::bench

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  const skyframe::test::CTestPlatform platform;
  skyframe::bench::CKernelBenchmarks benchmarks;
  benchmarks.Register();
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
