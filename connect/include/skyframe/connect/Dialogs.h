#pragma once

#include "skyframe/platform/DialogContent.h"
#include "skyframe/values/Export.h"

namespace skyframe {

/// The fixed part of one of the module's dialogs; null when none has the identifier.
[[nodiscard]] SKYFRAME_API const DialogTemplate* FindDialogTemplate(int nDialog);

/// What a parameter dialog, or one that opens from it, shows at first in a new job, whatever ran before; no window
/// appears, and nothing is stored. Empty when there is no such dialog.
[[nodiscard]] SKYFRAME_API DialogContent LookAtDialog(int nDialog);

}  // namespace skyframe
