#include "skyframe/connect/ModeConnect.h"

#include <exception>
#include <new>

#include "Drivers.h"
#include "skyframe/platform/Platform.h"
#include "texts.h"

namespace skyframe {
namespace {

/// Runs a driver with the module's state in force. A driver that runs out of memory ends with a
/// message and counts as run.
template <typename Driver>
int RunInModule(Driver driver) {
  const CModuleStateScope scope;
  try {
    return driver();
  } catch (const std::bad_alloc&) {
    GetPlatform().ShowMessage(c_strOutOfMemory);
  } catch (const std::exception&) {
    GetPlatform().ShowMessage(c_strInternalError);
  }
  return 1;
}

template <void (*Driver)()>
int Completed() {
  Driver();
  return 1;
}

}  // namespace

void CModeConnect::OnMode() { RunInModule(Completed<RunModal>); }
int CModeConnect::OnAnsysSpectrum() { return RunInModule(RunSpectrum); }
int CModeConnect::OnTimeHistoryAnalysis() { return RunInModule(RunTimeHistory); }
void CModeConnect::OnTimeHistoryRes() { RunInModule(Completed<RunHistoryViewer>); }
void CModeConnect::OnStaticNonlinearSol() { RunInModule(Completed<RunStatic>); }

}  // namespace skyframe
