#pragma once

#include <array>
#include <string>
#include <vector>

namespace skyframe::gui {

/// A displaced state of the structure.
struct Shape {
  std::string strTitle;
  bool bMode = false;                         ///< a mode shape; else a true state in metres
  bool bRotations = false;                    ///< entries 3..5 are known
  std::vector<std::array<double, 6>> values;  ///< by node in host order: ux uy uz, rx ry rz

  /// Length of the largest translation; 0 when nothing moves.
  [[nodiscard]] double GetLargestTranslation() const;
};

/// Modes of the mode file of a job; six values a node for rigid joints, three for pinned ones.
/// Empty when there is none, or when it does not fit these nodes or is damaged.
[[nodiscard]] std::vector<Shape> ReadModeShapes(const std::string& strPath, const std::vector<bool>& rigidJoints);

/// Every shape that the result files of a job hold: linear and nonlinear static state, then the modes.
[[nodiscard]] std::vector<Shape> ReadShapes(const std::string& strJobPath, const std::vector<bool>& rigidJoints);

}  // namespace skyframe::gui
