#pragma once

#include "JsonText.h"
#include "skyframe/values/Capacities.h"

namespace skyframe::host {

inline constexpr ArrayCapacity c_capacities[] = {{"springs", c_nMaxSpringGroups + 1},
                                                 {"nodes", c_nMaxNodes},
                                                 {"sections", c_nMaxSectionGroups},
                                                 {"elements", c_nMaxElements},
                                                 {"inclined_supports", c_nMaxNodes},
                                                 {"loads", c_nMaxLoads},
                                                 {"analyses", 1000}};

}  // namespace skyframe::host
