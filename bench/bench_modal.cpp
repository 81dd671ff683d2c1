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

/// |K phi - omega^2 M phi| / |K phi|.
double FormModeResidual(const Pencil& pencil, double dOmega2, const std::vector<double>& phi) {
  std::vector<double> Kphi(phi.size()), Mphi(phi.size());
  pencil.K.MultiplyRows(phi, Kphi);
  pencil.M.MultiplyRows(phi, Mphi);
  double dError2 = 0.0, dForce2 = 0.0;
  for (std::size_t i = 0; i < phi.size(); ++i) {
    dError2 += std::pow(Kphi[i] - dOmega2 * Mphi[i], 2);
    dForce2 += Kphi[i] * Kphi[i];
  }
  return std::sqrt(dError2 / dForce2);
}

/// The largest of all modes.
double FormWorstResidual(const CAnalysisModel& model, const Pencil& pencil) {
  std::vector<double> phi(static_cast<std::size_t>(pencil.n));
  double dWorst = 0.0;
  for (std::size_t m = 0; m < model.Omega.size(); ++m) {
    for (std::size_t i = 0; i < phi.size(); ++i) phi[i] = model.ModeShapes[static_cast<int>(i)][m];
    dWorst = std::max(dWorst, FormModeResidual(pencil, model.Omega[m] * model.Omega[m], phi));
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
  state.counters["residual"] = FormWorstResidual(*pModel, FormProductPencil(*pModel));
  state.counters["solutions"] = pModel->m_modalFindings.nSubspace;
  state.counters["omega1"] = pModel->Omega.front();
  state.counters["omega20"] = pModel->Omega.back();
  std::filesystem::remove(GetJobPath() + ".mode");
}

#if defined(SKYFRAME_HAS_CHOLMOD) && defined(SKYFRAME_HAS_ARPACK)
/// K and M are given: assembly and files are not in the time.
void SolveArpack(State& state, const BuildingShape& shape) {
  const Pencil pencil = FormProductPencil(*BuildBuilding(shape));
  const SymmetricColumns K(pencil.K), M(pencil.M);
  ArpackModes modes;
  for (auto _ : state) {
    modes = SolveModesArpack(K, M, c_nModes);
    if (modes.omega2.size() != c_nModes) return state.SkipWithError("no modes");
  }
  double dWorst = 0.0;
  for (std::size_t m = 0; m < c_nModes; ++m) {
    const auto first = modes.shapes.begin() + static_cast<std::ptrdiff_t>(m) * pencil.n;
    dWorst = std::max(dWorst, FormModeResidual(pencil, modes.omega2[m], std::vector<double>(first, first + pencil.n)));
  }
  state.counters["residual"] = dWorst;
  state.counters["omega1"] = std::sqrt(*std::min_element(modes.omega2.begin(), modes.omega2.end()));
  state.counters["omega20"] = std::sqrt(*std::max_element(modes.omega2.begin(), modes.omega2.end()));
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
