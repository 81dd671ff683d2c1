#pragma once

#include <string>
#include <vector>

#include "skyframe/job/Job.h"
#include "skyframe/values/Findings.h"

namespace skyframe::gui {

/// A displaced state of the structure.
struct Shape {
  std::string strTitle;
  bool bMode = false;              ///< a mode shape; else a true state in metres
  bool bRotations = false;         ///< entries 3..5 are known
  std::vector<NodeValues> values;  ///< by node in host order

  /// Length of the largest translation; 0 when nothing moves.
  [[nodiscard]] double GetLargestTranslation() const;
};

/// Every shape that the result files of a job hold: linear and nonlinear static state, then the modes. A file
/// that is damaged or belongs to other nodes has none.
[[nodiscard]] std::vector<Shape> ReadShapes(const std::string& strJobPath, const std::vector<host::JobNode>& nodes);

}  // namespace skyframe::gui
