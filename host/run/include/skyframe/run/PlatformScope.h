#pragma once

#include "skyframe/run/HostPlatform.h"

namespace skyframe::host {

/// The host's platform in force for the life of the object.
class CPlatformScope {
 public:
  CPlatformScope(std::ostream& strmMessages, std::ostream& strmConsole, std::ostream* pProgress = nullptr)
      : m_platform(strmMessages, strmConsole, pProgress), m_pPrevious(InstallPlatform(&m_platform)) {}
  ~CPlatformScope() { InstallPlatform(m_pPrevious); }
  CPlatformScope(const CPlatformScope&) = delete;
  CPlatformScope& operator=(const CPlatformScope&) = delete;

  CHostPlatform& Get() { return m_platform; }

 private:
  CHostPlatform m_platform;
  IPlatform* m_pPrevious;
};

}  // namespace skyframe::host
