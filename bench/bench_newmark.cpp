#include <benchmark/benchmark.h>

#include <cmath>
#include <ctime>
#include <string>

#include "Building.h"
#include "Peers.h"
#include "TestPlatform.h"
#include "skyframe/history/Integrators.h"

// One step of the Newmark method under ground acceleration against the same step with CHOLMOD and plain
// compressed rows.

namespace skyframe::bench {

namespace {

using benchmark::State;

constexpr double c_dTimeStep = 0.01;
constexpr double c_dMassDamping = 0.3, c_dStiffnessDamping = 0.001;
constexpr double c_dGroundFrequency = 12.0;

/// Operators of a linear run.
struct Operators {
  int n = 0;
  NewmarkConstants constants{0.25, 0.5, c_dTimeStep};
  CRowMatrix massRows, dampingRows;
  SparseMatrix M, C, effective;
};

Operators FormOperators(const BuildingShape& shape) {
  Pencil pencil = FormPencil(*BuildBuilding(shape));
  Operators operators;
  operators.n = pencil.n;
  operators.M = pencil.M;
  // C = a M + b K
  operators.C = pencil.M;
  operators.C *= c_dMassDamping;
  SparseMatrix term = pencil.K;
  term *= c_dStiffnessDamping;
  operators.C += term;
  // K^ = K + a0 M + a1 C
  operators.effective = pencil.K;
  term = operators.M;
  term *= operators.constants.a0;
  operators.effective += term;
  term = operators.C;
  term *= operators.constants.a1;
  operators.effective += term;
  operators.massRows = CRowMatrix(operators.M, pencil.n);
  operators.dampingRows = CRowMatrix(operators.C, pencil.n);
  return operators;
}

/// Ground acceleration at all equations alike.
void FormGround(int nStep, std::vector<double>& g) {
  std::fill(g.begin(), g.end(), std::sin(c_dGroundFrequency * c_dTimeStep * nStep));
}

double GetProcessorTime() { return static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

/// Steps alternate with solutions alone: rest is the share of a step outside its solution, over the solution.
void StepOwn(State& state, const BuildingShape& shape) {
  Operators operators = FormOperators(shape);
  CNewmarkIntegrator integrator(operators.constants, operators.massRows, operators.dampingRows, operators.effective);
  std::vector<double> g(static_cast<std::size_t>(operators.n), 0.0);
  std::vector<double> x = MakeVector(operators.n);
  if (!integrator.StepGround(g)) return state.SkipWithError("refused");
  int nStep = 0;
  double dSteps = 0.0, dSolutions = 0.0;
  for (auto _ : state) {
    FormGround(++nStep, g);
    const double dStart = GetProcessorTime();
    if (!integrator.StepGround(g)) return state.SkipWithError("refused");
    const double dStepped = GetProcessorTime();
    state.SetIterationTime(dStepped - dStart);
    if (!operators.effective.Solve(operators.n, x)) return state.SkipWithError("refused");
    dSteps += dStepped - dStart;
    dSolutions += GetProcessorTime() - dStepped;
  }
  state.counters["rest"] = (dSteps - dSolutions) / dSolutions;
}

#if defined(SKYFRAME_HAS_CHOLMOD)
void StepCholmod(State& state, const BuildingShape& shape) {
  Operators operators = FormOperators(shape);
  for (SparseMatrix* pMatrix : {&operators.M, &operators.C, &operators.effective}) pMatrix->BuildRows(operators.n);
  const SymmetricColumns M(operators.M), C(operators.C);
  CCholmodPeer peer{SymmetricColumns(operators.effective)};
  if (!peer.Analyse() || !peer.Factorise()) return state.SkipWithError("refused");
  const auto n = static_cast<std::size_t>(operators.n);
  const auto& [a0, a1, a2, a3, a4, a5, a6, a7] = operators.constants;
  std::vector<double> u(n), v(n), a(n), p(n), q(n), Mp(n), Cq(n), next(n);
  int nStep = 0;
  for (auto _ : state) {
    FormGround(++nStep, p);
    const double dStart = GetProcessorTime();
    for (std::size_t i = 0; i < n; ++i) {
      p[i] += a0 * u[i] + a2 * v[i] + a3 * a[i];
      q[i] = a1 * u[i] + a4 * v[i] + a5 * a[i];
    }
    M.Multiply(p.data(), Mp.data());
    C.Multiply(q.data(), Cq.data());
    for (std::size_t i = 0; i < n; ++i) Mp[i] += Cq[i];
    peer.Solve(Mp.data(), next.data());
    for (std::size_t i = 0; i < n; ++i) {
      const double dNext = a0 * (next[i] - u[i]) - a2 * v[i] - a3 * a[i];
      v[i] += a6 * a[i] + a7 * dNext;
      a[i] = dNext;
    }
    u.swap(next);
    state.SetIterationTime(GetProcessorTime() - dStart);
  }
}
#endif

template <class Function>
void Add(const std::string& strName, Function function, const BuildingShape& shape) {
  benchmark::RegisterBenchmark(strName.c_str(), function, shape)->Unit(benchmark::kMillisecond)->UseManualTime();
}

}  // namespace

}  // namespace skyframe::bench

int main(int argc, char** argv) {
  using namespace skyframe::bench;
  benchmark::Initialize(&argc, argv);
  const skyframe::test::CTestPlatform platform;
#if defined(SKYFRAME_HAS_OPENBLAS)
  UseOneThread();
#endif
  for (const BuildingShape& shape : {c_shapes[1], c_shapes[2]}) {
    Add("newmark/" + shape.strName + "/skyframe", StepOwn, shape);
#if defined(SKYFRAME_HAS_CHOLMOD)
    Add("newmark/" + shape.strName + "/cholmod", StepCholmod, shape);
#endif
  }
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
