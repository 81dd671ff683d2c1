#pragma once

#include "skyframe/values/Export.h"
#include "skyframe/values/HistorySet.h"

namespace skyframe {

/// Histories that the result viewer shows: those of the last complete time-history run, or of the file
/// read for the viewer; no steps before the first.
[[nodiscard]] SKYFRAME_API const HistorySet& GetHistories();

}  // namespace skyframe
