#pragma once

#include "skyframe/run/HostPlatform.h"

namespace skyframe::host {

/// A platform in force for the life of the object.
class CInstalledPlatform {
 public:
  explicit CInstalledPlatform(IPlatform& platform) : m_pPrevious(InstallPlatform(&platform)) {}
  ~CInstalledPlatform() { InstallPlatform(m_pPrevious); }
  CInstalledPlatform(const CInstalledPlatform&) = delete;
  CInstalledPlatform& operator=(const CInstalledPlatform&) = delete;

 private:
  IPlatform* m_pPrevious;
};

/// The host's platform in force for the life of the object.
class CPlatformScope {
 public:
  CPlatformScope(std::ostream& strmMessages, std::ostream& strmConsole, std::ostream* pProgress = nullptr)
      : m_platform(strmMessages, strmConsole, pProgress), m_installed(m_platform) {}

  CHostPlatform& Get() { return m_platform; }

 private:
  CHostPlatform m_platform;
  CInstalledPlatform m_installed;
};

}  // namespace skyframe::host
