#pragma once

#include <chrono>

#include "skyframe/values/Export.h"

namespace skyframe {

/// Which reports of progress a window shows: none of a step that is soon over, then one now and again.
class SKYFRAME_API CProgressPace {
 public:
  using Clock = std::chrono::steady_clock;

  enum class Verdict {
    Skip,  ///< leave the window as it is
    Show,
    Hide  ///< the step is over
  };

  /// A step shows its progress from the first report after this time on.
  void SetDelay(std::chrono::milliseconds delay) { m_delay = delay; }
  /// What to do with a report of the fraction 0..1. A fraction below the last one begins a step.
  [[nodiscard]] Verdict Judge(double dFraction, Clock::time_point now = Clock::now());
  /// No step runs any more.
  void EndStep() { m_dLastFraction = 1.0; }

 private:
  std::chrono::milliseconds m_delay{1000};
  Clock::time_point m_stepStart;
  Clock::time_point m_lastReport;
  double m_dLastFraction = 1.0;  ///< of the running step; 1 when none runs
};

}  // namespace skyframe
