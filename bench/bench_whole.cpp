#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

#include "Building.h"
#include "HostModel.h"
#include "TestPlatform.h"
#include "skyframe/connect/ModeConnect.h"
#include "skyframe/dialogs/Templates.h"

// Whole analyses through the entry points, dialogs and files included: time and peak memory by size, up to
// the capacity of the host records. Every analysis runs in a process of its own.

namespace skyframe::bench {

namespace {

constexpr int c_nModes = 20;
constexpr double c_dMega = 1e-6;

struct Analysis {
  const char* strName;
  const char* strSuffix;  ///< of its result file
  std::function<void(CHeadlessPlatform&)> run;
};

void RunStatic(CHeadlessPlatform& platform) {
  platform.AddScript(c_nIdLoadCombDlg,
                     {DialogStep::ToggleRow(c_nIdAvailable, 0), DialogStep::Click(c_nIdAdd), DialogStep::Ok()});
  platform.AddScript(c_nIdNonlinStaticDlg,
                     {DialogStep::Tick(c_nIdNonlinear, false), DialogStep::Click(c_nIdLoadComb), DialogStep::Ok()});
  CModeConnect::OnStaticNonlinearSol();
}

void RunModes(CHeadlessPlatform& platform) {
  platform.AddScript(c_nIdModeDlg, {DialogStep::Type(c_nIdModes, std::to_string(c_nModes)), DialogStep::Ok()});
  CModeConnect::OnMode();
}

/// In the child: the analysis, and a line about it.
int RunAnalysis(const BuildingShape& shape, const Analysis& analysis) {
  test::CTestPlatform platform;
  FillBuilding(shape);
  const test::CJobFolder folder("bench_" + std::to_string(getpid()));
  const auto start = std::chrono::steady_clock::now();
  analysis.run(*platform);
  const double dSeconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  std::string strOutcome = "no result";
  if (folder.Has(analysis.strSuffix)) {
    const auto nBytes = static_cast<double>(std::filesystem::file_size(folder.GetPath(analysis.strSuffix)));
    strOutcome = "file of " + std::to_string(static_cast<int>(nBytes * c_dMega)) + " MB";
  }
  for (const std::string& strError : platform->GetScriptErrors()) strOutcome += "; " + strError;
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  const double dProcessor = static_cast<double>(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
                            1e-6 * static_cast<double>(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec);
  std::printf("%-10s %6s %7d %9d %10.2f %10.2f %12.0f  %s\n", analysis.strName, shape.strName.c_str(), ABCD.m_nNodes,
              ABCD.m_nElements, dSeconds, dProcessor, static_cast<double>(usage.ru_maxrss) * 1024.0 * c_dMega,
              strOutcome.c_str());
  std::fflush(stdout);
  return 0;
}

}  // namespace

}  // namespace skyframe::bench

int main() {
  using namespace skyframe::bench;
  std::vector<BuildingShape> shapes = c_shapes;
  shapes.push_back({"176k", 24, 24, 51});
  const Analysis analyses[] = {{"static", "_StaticLinearSol.txt", RunStatic}, {"20 modes", ".mode", RunModes}};
  std::printf("%-10s %6s %7s %9s %10s %10s %12s  %s\n", "analysis", "size", "nodes", "elements", "wall, s", "cpu, s",
              "peak, MB", "result");
  std::fflush(stdout);
  for (const BuildingShape& shape : shapes) {
    for (const Analysis& analysis : analyses) {
      const pid_t child = fork();
      if (child == 0) std::_Exit(RunAnalysis(shape, analysis));
      int nStatus = 0;
      waitpid(child, &nStatus, 0);
      if (nStatus != 0)
        std::printf("%-10s %6s ended with status %d\n", analysis.strName, shape.strName.c_str(), nStatus);
    }
  }
  return 0;
}
