#include "skyframe/hostdata/HostData.h"

#include <cstring>
#include <type_traits>

#include "HostState.h"

namespace skyframe {

tagAbcd ABCD;
tagComDat COMDAT;
tagSect SECT;
tagComDynamic COMDYN = c_freshSettings;
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

}  // namespace

void ResetHostData() {
  ClearRecord(ABCD);
  ClearRecord(COMDAT);
  ClearRecord(SECT);
  COMDYN = c_freshSettings;
  ClearRecord(ZHU);
  ClearRecord(RES);
  g_ProgramPath.clear();
  g_FilePathName.clear();
  ForgetSpringGroups();
  ForgetNodeOrder();
}

}  // namespace skyframe
