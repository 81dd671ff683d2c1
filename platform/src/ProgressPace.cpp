#include "skyframe/platform/ProgressPace.h"

#include <utility>

namespace skyframe {

namespace {

constexpr std::chrono::milliseconds c_showPeriod{50};

}  // namespace

bool CProgressPace::IsDue(double dFraction, Clock::time_point now) {
  if (!std::exchange(m_bWorking, true)) m_workStart = now;
  const bool bNewStep = dFraction < std::exchange(m_dLastFraction, dFraction);
  m_lastReport = now;
  if (now - m_workStart < m_delay || (!bNewStep && now - m_lastShown < c_showPeriod)) return false;
  m_lastShown = now;
  return true;
}

std::chrono::seconds CProgressPace::GetElapsed() const {
  return std::chrono::duration_cast<std::chrono::seconds>(m_lastReport - m_workStart);
}

}  // namespace skyframe
