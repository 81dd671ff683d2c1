#include "skyframe/connect/Histories.h"

#include "ModuleState.h"

namespace skyframe {

const HistorySet& GetHistories() { return g_history; }

}  // namespace skyframe
