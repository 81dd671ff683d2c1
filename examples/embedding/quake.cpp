// A host that runs analyses by parameters instead of dialog steps: a job file's structure, its modes, then the
// standard earthquake along X, and the histories in the module's memory.

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <iostream>

#include "skyframe/connect/Histories.h"
#include "skyframe/job/JobFile.h"
#include "skyframe/run/DataDirectory.h"
#include "skyframe/run/JobRunner.h"

using namespace skyframe;

int main(int nArguments, char** ppszArguments) {
  host::JobFile file = host::ReadJobFile(nArguments > 1 ? ppszArguments[1] : "job.json");
  for (const host::JobProblem& error : file.errors) std::cerr << error.strPlace << ": " << error.strReason << '\n';
  if (!file.errors.empty()) return 2;

  host::ModalJob modes;
  modes.nModes = 6;
  modes.combination = {{0, -1.0}};  // dead load turned upwards becomes mass
  host::NewmarkJob quake;
  quake.nLoad = 1;  // ground motion
  quake.damping = {0.04, 0.04};
  quake.combination = modes.combination;
  host::EarthquakeJob& ground = quake.earthquake.emplace();
  ground.dTimeStep = 0.02;
  ground.dDuration = 10.0;
  ground.directions = {true};  // along X
  ground.peaks[0] = 0.7;       // m/s2
  file.job.analyses = {modes, quake};

  std::ofstream console("quake.log");
  const host::HostStreams streams{std::cout, std::cerr, console};
  if (!host::RunJob(file.job, "quake", host::FindDataDirectory(), streams).bGood) return 1;

  const HistorySet& history = GetHistories();
  const CHistoryTable& table = history.values[c_nHistoryX];
  double dPeak = 0.0;
  for (int k = 0; k < history.nSteps; ++k) {
    for (int i = 0; i < history.GetNodeCount(); ++i) dPeak = std::max(dPeak, std::abs(table[k][i]));
  }
  std::printf("largest X displacement: %.3f mm\n", 1.0e3 * dPeak);
  return dPeak > 0.0 ? 0 : 1;
}
