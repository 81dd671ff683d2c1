#include "ElapsedTime.h"

#include <string>

namespace skyframe {

void CElapsedTime::Report() const {
  const LocalTime end = GetPlatform().GetLocalTime();
  int nSeconds = end.nSecond - m_start.nSecond;
  int nMinutes = end.nMinute - m_start.nMinute;
  int nHours = end.nHour - m_start.nHour;
  // borrow in this order: seconds, minutes, hours
  if (nSeconds < 0) {
    nSeconds += 60;
    --nMinutes;
  }
  if (nMinutes < 0) {
    nMinutes += 60;
    --nHours;
  }
  if (nHours < 0) nHours += 24;
  GetPlatform().ShowNotice("OK!\nTime = " + std::to_string(nHours) + "hour: " + std::to_string(nMinutes) +
                           "min: " + std::to_string(nSeconds) + "s");
}

}  // namespace skyframe
