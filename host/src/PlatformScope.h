#pragma once

#include "skyframe/platform/HeadlessPlatform.h"

namespace skyframe::host {

/// Headless platform in force for the life of the object.
class CPlatformScope {
 public:
  CPlatformScope(std::ostream& strmMessages, std::ostream& strmConsole)
      : m_platform(strmMessages, strmConsole), m_pPrevious(InstallPlatform(&m_platform)) {}
  ~CPlatformScope() { InstallPlatform(m_pPrevious); }
  CPlatformScope(const CPlatformScope&) = delete;
  CPlatformScope& operator=(const CPlatformScope&) = delete;

  CHeadlessPlatform& Get() { return m_platform; }

 private:
  CHeadlessPlatform m_platform;
  IPlatform* m_pPrevious;
};

}  // namespace skyframe::host
