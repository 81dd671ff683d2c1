#include "ModuleState.h"

namespace skyframe {

std::string g_strJobPath;
KeptModels g_keptModels;

}  // namespace skyframe
