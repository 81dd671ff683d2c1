#pragma once

#include <array>
#include <span>
#include <string>
#include <vector>

#include "skyframe/results/Reading.h"
#include "skyframe/values/HistorySet.h"

namespace skyframe::host {

/// Counts of the model that a file must belong to.
struct HistoryModel {
  int nNodes = 0;
  int nElements = 0;
};

/// One history of a run.
struct HistoryChoice {
  int nQuantity = c_nHistoryX;  ///< HistoryQuantity
  int nNumber = 1;              ///< host number of the node or element
};

struct SingleHistory : HistoryRun {
  int nQuantity = c_nHistoryX;  ///< HistoryQuantity
  std::vector<double> values;   ///< m or N, at dt, 2 dt ...
};

/// Histories by node and by element in host order, step by step.
struct HistoryResultFile : HistoryRun {
  std::vector<std::array<std::vector<double>, 3>> displacements;  ///< X, Y, Z, m
  std::vector<std::vector<double>> forces;                        ///< axial, N
};

/// All histories of "_HisTime.txt".
[[nodiscard]] Reading<HistoryResultFile> ReadHistoryFile(const std::string& strPath, const HistoryModel& model);

/// Some of them, which the model must have: the file is walked through to its end, but no others are kept, and
/// their numbers are not looked at.
[[nodiscard]] Reading<std::vector<SingleHistory>> ReadHistories(const std::string& strPath, const HistoryModel& model,
                                                                std::span<const HistoryChoice> choices);

/// What the viewer wrote of one history: "_<number>_node.txt" or "_<number>_elem.txt".
[[nodiscard]] Reading<SingleHistory> ReadHistoryExtract(const std::string& strPath, const HistoryModel& model);

}  // namespace skyframe::host
