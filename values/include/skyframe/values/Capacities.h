#pragma once

namespace skyframe {

// Capacities of the host records. Per-node arrays are indexed by the 1-based node number (entry 0
// is not used), per-element and per-load arrays by the 0-based slot.
inline constexpr int c_nMaxNodes = 29999;
inline constexpr int c_nMaxElements = 69999;
inline constexpr int c_nMaxLoads = 90000;
inline constexpr int c_nLoadTypes = 20;  ///< load types of a combination: dead load and 19 live loads
inline constexpr int c_nShapesPerGroup = 30;
inline constexpr int c_nMaxSectionGroups = 2000;
inline constexpr int c_nMaxSpringGroups = 999;
inline constexpr int c_nMaxPath = 4096;
inline constexpr int c_nNodeSlots = c_nMaxNodes + 1;
inline constexpr int c_nSectionSlots = c_nMaxSectionGroups * c_nShapesPerGroup;

}  // namespace skyframe
