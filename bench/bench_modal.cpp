#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <string>

#include "Building.h"
#include "Peers.h"
#include "TestPlatform.h"
#include "skyframe/modal/ModalPencil.h"

// The lowest 20 modes, from the assembled records to the mode file, against ARPACK in shift-invert mode.

namespace skyframe::bench {

namespace {

using benchmark::State;

constexpr int c_nModes = 20;

std::string GetJobPath() { return (std::filesystem::temp_directory_path() / "skyframe_bench").string(); }

Pencil FormProductPencil(const CAnalysisModel& model) {
  Pencil pencil = FormPencil(model);
  pencil.K.BuildRows(pencil.n);
  pencil.M.BuildRows(pencil.n);
  return pencil;
}

/// Largest |K phi - omega^2 M phi| / |K phi|.
double FormModeResidual(const CAnalysisModel& model, const Pencil& pencil) {
  const auto n = static_cast<std::size_t>(pencil.n);
  std::vector<double> phi(n), Kphi(n), Mphi(n);
  double dWorst = 0.0;
  for (std::size_t m = 0; m < model.Omega.size(); ++m) {
    for (std::size_t i = 0; i < n; ++i) phi[i] = model.ModeShapes[static_cast<int>(i)][m];
    pencil.K.MultiplyRows(phi, Kphi);
    pencil.M.MultiplyRows(phi, Mphi);
    double dError2 = 0.0, dForce2 = 0.0;
    for (std::size_t i = 0; i < n; ++i) {
      dError2 += std::pow(Kphi[i] - model.Omega[m] * model.Omega[m] * Mphi[i], 2);
      dForce2 += Kphi[i] * Kphi[i];
    }
    dWorst = std::max(dWorst, std::sqrt(dError2 / dForce2));
  }
  return dWorst;
}

void SolveOwn(State& state, const BuildingShape& shape) {
  const auto pModel = BuildBuilding(shape);
  pModel->m_nModes = c_nModes;
  for (auto _ : state) {
    pModel->Omega.clear();
    pModel->SolveModes(GetJobPath(), 0, false);
    if (pModel->Omega.size() != c_nModes) return state.SkipWithError("no modes");
  }
  state.counters["residual"] = FormModeResidual(*pModel, FormProductPencil(*pModel));
  state.counters["omega1"] = pModel->Omega.front();
  state.counters["omega20"] = pModel->Omega.back();
  std::filesystem::remove(GetJobPath() + ".mode");
}

#if defined(SKYFRAME_HAS_CHOLMOD) && defined(SKYFRAME_HAS_ARPACK)
/// K and M are given: assembly and files are not in the time.
void SolveArpack(State& state, const BuildingShape& shape) {
  const Pencil pencil = FormProductPencil(*BuildBuilding(shape));
  const SymmetricColumns K(pencil.K), M(pencil.M);
  std::vector<double> omega2;
  for (auto _ : state) {
    omega2 = SolveModesArpack(K, M, c_nModes);
    if (omega2.size() != c_nModes) return state.SkipWithError("no modes");
  }
  state.counters["omega1"] = std::sqrt(omega2.front());
  state.counters["omega20"] = std::sqrt(omega2.back());
}
#endif

template <class Function>
void Add(const std::string& strName, Function function, const BuildingShape& shape) {
  benchmark::RegisterBenchmark(strName.c_str(), function, shape)->Unit(benchmark::kMillisecond);
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
    Add("modes/" + shape.strName + "/skyframe", SolveOwn, shape);
#if defined(SKYFRAME_HAS_CHOLMOD) && defined(SKYFRAME_HAS_ARPACK)
    Add("modes/" + shape.strName + "/arpack", SolveArpack, shape);
#endif
  }
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
