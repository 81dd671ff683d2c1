#pragma once

#include <array>

#include "skyframe/hostdata/HostData.h"

namespace skyframe {

/// Which load types take part in an analysis and with which factor. Type 0 is the dead load,
/// type k the live load k.
struct LoadCombination {
  int nLoadTypes = 0;                        ///< load types on offer: the host's load cases plus one
  std::array<int, c_nLoadTypes> flags = {};  ///< 1: the type takes part
  std::array<double, c_nLoadTypes> factors;

  LoadCombination() { Reset(); }

  /// No type takes part, every factor 1; the number of types stays.
  void Reset() {
    flags.fill(0);
    factors.fill(1.0);
  }
};

/// Opens the load-combination editor. Flags and factors change only when it is closed with OK.
void EditLoadCombination(LoadCombination& combination);

}  // namespace skyframe
