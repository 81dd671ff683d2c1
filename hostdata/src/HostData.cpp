#include "skyframe/hostdata/HostData.h"

#include <cstring>
#include <type_traits>

#include "HostState.h"

namespace skyframe {

tagAbcd ABCD;
tagComDat COMDAT;
tagSect SECT;
tagComDynamic COMDYN;
tagComZhu ZHU;
tagComResult RES;
std::string g_ProgramPath;
std::string g_FilePathName;

namespace {

/// The records are too large for a temporary on the stack.
template <class Record>
void ClearRecord(Record& record) {
  static_assert(std::is_trivially_copyable_v<Record>);
  std::memset(&record, 0, sizeof record);
}

/// Settings a fresh host starts with.
void SetInitialDynamicSettings(tagComDynamic& settings) {
  settings.m_nModes = 10;
  settings.m_dModeTol = 1.0e-16;
  settings.m_nIterMultiple = 6;
  settings.m_nExpandModes = 10;
  settings.m_dDampRatio = 0.02;
  settings.m_dDesignAcceleration = 0.10;
  settings.m_nMeshDiv = 5;
  settings.m_nIntensity = 7;
  settings.m_nSiteClass = 3;
  settings.m_nZoneGroup = 1;
  settings.m_dDirCoef[0] = 1.0;
}

}  // namespace

void ResetHostData() {
  ClearRecord(ABCD);
  ClearRecord(COMDAT);
  ClearRecord(SECT);
  ClearRecord(COMDYN);
  ClearRecord(ZHU);
  ClearRecord(RES);
  g_ProgramPath.clear();
  g_FilePathName.clear();
  SetInitialDynamicSettings(COMDYN);
  ForgetSpringGroups();
  ForgetNodeOrder();
}

}  // namespace skyframe
