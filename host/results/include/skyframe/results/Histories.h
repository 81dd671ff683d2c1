#pragma once

#include <string>

#include "skyframe/results/HistoryResultFile.h"
#include "skyframe/values/HistorySet.h"

namespace skyframe::host {

/// Value of the largest magnitude in one of a set's histories, and where it stands.
struct HistoryPeak {
  double dValue = 0.0;  ///< m or N
  int nNumber = 0;      ///< host number of the node or element; 0: nothing but zeros
  double dTime = 0.0;   ///< s
  bool bFinite = true;  ///< false: there are values that are no numbers, which do not count
};
/// nQuantity: HistoryQuantity.
[[nodiscard]] HistoryPeak FindPeak(const HistorySet& history, int nQuantity);

/// The file's histories as the module keeps them.
[[nodiscard]] HistorySet FormHistorySet(const HistoryResultFile& file);

/// "Newmark, linear, 1000 steps of 0.02 s, finished 2026-11-21 23:05:09".
[[nodiscard]] std::string DescribeHistory(const HistoryRun& run);

}  // namespace skyframe::host
