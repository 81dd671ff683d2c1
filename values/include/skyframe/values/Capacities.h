#pragma once

#include "skyframe/values/Constant.h"

#ifdef __cplusplus
namespace skyframe {
#endif

// Capacities of the host records. Per-node arrays are indexed by the 1-based node number (entry 0
// is not used), per-element and per-load arrays by the 0-based slot.
SKYFRAME_CONSTANT(c_nMaxNodes, 29999);
SKYFRAME_CONSTANT(c_nMaxElements, 69999);
SKYFRAME_CONSTANT(c_nMaxLoads, 90000);
SKYFRAME_CONSTANT(c_nLoadTypes, 20);  ///< load types of a combination: dead load and 19 live loads
SKYFRAME_CONSTANT(c_nShapesPerGroup, 30);
SKYFRAME_CONSTANT(c_nMaxSectionGroups, 2000);
SKYFRAME_CONSTANT(c_nMaxSpringGroups, 999);
SKYFRAME_CONSTANT(c_nMaxPath, 4096);
SKYFRAME_CONSTANT(c_nNodeSlots, c_nMaxNodes + 1);
SKYFRAME_CONSTANT(c_nSectionSlots, (c_nMaxSectionGroups * c_nShapesPerGroup));

#ifdef __cplusplus
}  // namespace skyframe
#endif
