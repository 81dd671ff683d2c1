#pragma once

#include <chrono>

#include "skyframe/values/Export.h"

namespace skyframe {

/// Which reports of progress a window shows: none of work that is soon over, then one now and again. Work is one or
/// more steps, between which the window stays.
class SKYFRAME_API CProgressPace {
 public:
  using Clock = std::chrono::steady_clock;

  /// Work shows its progress from the first report after this time on.
  void SetDelay(std::chrono::milliseconds delay) { m_delay = delay; }
  /// Whether to show a report of the fraction 0..1. The first one after EndWork begins the work, and a fraction below
  /// the last one a step, which is shown at once.
  [[nodiscard]] bool IsDue(double dFraction, Clock::time_point now = Clock::now());
  /// Time of the work up to the last report.
  [[nodiscard]] std::chrono::seconds GetElapsed() const;
  /// Nothing runs any more.
  void EndWork() { m_bWorking = false; }

 private:
  std::chrono::milliseconds m_delay{1000};
  bool m_bWorking = false;
  Clock::time_point m_workStart;
  Clock::time_point m_lastReport;
  Clock::time_point m_lastShown;
  double m_dLastFraction = 0.0;
};

}  // namespace skyframe
