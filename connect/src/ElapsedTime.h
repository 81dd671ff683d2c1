#pragma once

#include "skyframe/platform/Platform.h"

namespace skyframe {

/// Measures one analysis by the clock on the wall.
class CElapsedTime {
 public:
  CElapsedTime() : m_start(GetPlatform().GetLocalTime()) {}
  /// Shows "OK!" and the time since construction. A run of more than a day shows the remainder.
  void Report() const;

 private:
  LocalTime m_start;
};

}  // namespace skyframe
