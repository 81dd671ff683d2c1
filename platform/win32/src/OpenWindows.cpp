#include <memory>

#include "skyframe/platform/Platform.h"
#include "skyframe/win32/Win32Platform.h"

namespace skyframe {

std::unique_ptr<IPlatform> OpenWindows(void* pHostWindow) {
  return std::make_unique<CWin32Platform>(static_cast<HWND__*>(pHostWindow));
}

}  // namespace skyframe
