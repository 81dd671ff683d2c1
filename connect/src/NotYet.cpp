#include "Drivers.h"
#include "skyframe/platform/Platform.h"
#include "texts.h"

namespace skyframe {

int RunTimeHistory() {
  GetPlatform().ShowMessage(c_strNotYetThere);
  return 1;
}

void RunHistoryViewer() { GetPlatform().ShowMessage(c_strNotYetThere); }

}  // namespace skyframe
