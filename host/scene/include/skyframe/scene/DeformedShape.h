#pragma once

#include <optional>
#include <string>
#include <vector>

#include "skyframe/job/Job.h"
#include "skyframe/results/ModeResultFile.h"
#include "skyframe/results/StaticResultFile.h"
#include "skyframe/scene/Point3.h"
#include "skyframe/values/Findings.h"
#include "skyframe/values/HistorySet.h"

namespace skyframe::host {

/// m, rad, kN, s: scales and pixels that are formed from smaller values stay finite.
inline constexpr double c_dLargestDrawn = 1.0e30;

enum class ShapeKind { LinearState, NonlinearState, Mode, Moment };

/// A displaced state of the structure that results hold.
struct DeformedShape {
  ShapeKind kind = ShapeKind::LinearState;
  int nMode = 0;                          ///< from 1
  double dOmega = 0.0;                    ///< rad/s, of a mode
  std::vector<NodeValues> displacements;  ///< by node in host order; m and rad but for a mode's scale
  double dTime = 0.0;                     ///< s, of a moment of a history
  double dLargest = 0.0;                  ///< m, largest translation of the history that it is a moment of

  /// Else a true state, whose rotations are not known.
  [[nodiscard]] bool IsMode() const { return kind == ShapeKind::Mode; }
  [[nodiscard]] Point3 GetTranslation(int nNode) const;
  [[nodiscard]] Point3 GetRotation(int nNode) const;
  /// The first of equal ones.
  [[nodiscard]] int FindLargestNode() const;
  /// Length of the largest translation; 0 when nothing moves.
  [[nodiscard]] double GetLargestTranslation() const;
  /// The same, or that of the whole history, by which all its moments are drawn to one scale.
  [[nodiscard]] double GetScaleTranslation() const;
  /// The first node whose displacement is not a finite number, or out of range.
  [[nodiscard]] std::optional<int> FindUndrawableNode() const;
};

[[nodiscard]] DeformedShape FormStaticShape(StaticResultFile file);
/// nMode from 1.
[[nodiscard]] DeformedShape FormModeShape(const ModeResultFile& file, int nMode);

/// Largest translation of a history, m; values that cannot be drawn do not count.
[[nodiscard]] double MeasureMotion(const HistorySet& history);
/// The state at a step, from 0; dLargest: of the history.
[[nodiscard]] DeformedShape FormMoment(const HistorySet& history, int nStep, double dLargest);

/// Every shape that the result files of a job hold and that can be drawn: linear and nonlinear static state, then the
/// modes.
[[nodiscard]] std::vector<DeformedShape> ReadShapes(const std::string& strJobPath, const std::vector<JobNode>& nodes);

}  // namespace skyframe::host
