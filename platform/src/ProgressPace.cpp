#include "skyframe/platform/ProgressPace.h"

namespace skyframe {

namespace {

constexpr std::chrono::milliseconds c_reportPeriod{50};

}  // namespace

CProgressPace::Verdict CProgressPace::Judge(double dFraction, Clock::time_point now) {
  if (dFraction < m_dLastFraction || m_dLastFraction >= 1.0) m_stepStart = now;
  m_dLastFraction = dFraction;
  if (dFraction >= 1.0) return Verdict::Hide;
  if (now - m_stepStart < m_delay || now - m_lastReport < c_reportPeriod) return Verdict::Skip;
  m_lastReport = now;
  return Verdict::Show;
}

}  // namespace skyframe
