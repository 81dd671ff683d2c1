#include "skyframe/connect/ModeConnect.h"

#include "Drivers.h"
#include "Failure.h"
#include "ModuleState.h"
#include "skyframe/platform/Platform.h"

namespace skyframe {
namespace {

/// Runs a driver with the module's state in force. A driver that fails by an exception ends with a
/// message and counts as run, and as failed in its findings, when it has any.
template <typename Driver>
int RunInModule(Driver driver, RunFindings* pFindings) noexcept {
  const CModuleStateScope scope;
  try {
    return driver();
  } catch (...) {
    TellException();
  }
  if (pFindings != nullptr) pFindings->status = RunStatus::Failed;
  return 1;
}

template <void (*Driver)()>
int Completed() {
  Driver();
  return 1;
}

}  // namespace

void CModeConnect::OnMode() { RunInModule(Completed<RunModal>, &g_findings.modal); }
int CModeConnect::OnAnsysSpectrum() { return RunInModule(RunSpectrum, &g_findings.spectrum); }
int CModeConnect::OnTimeHistoryAnalysis() { return RunInModule(RunTimeHistory, &g_findings.history); }
void CModeConnect::OnTimeHistoryRes() { RunInModule(Completed<RunHistoryViewer>, nullptr); }
void CModeConnect::OnStaticNonlinearSol() { RunInModule(Completed<RunStatic>, &g_findings.statics); }

}  // namespace skyframe
