#include <memory>

#include "skyframe/platform/Platform.h"
#include "skyframe/win32/Win32Platform.h"

namespace skyframe {

std::unique_ptr<IPlatform> OpenWindows() { return std::make_unique<CWin32Platform>(); }

}  // namespace skyframe
