#include "skyframe/hostdata/HostData.h"

#include <type_traits>

#include "HostState.h"
#include "skyframe/platform/Pages.h"

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

/// The records are too large for a temporary on the stack, and a model fills but a part of them.
template <class Record>
void ClearRecord(Record& record) {
  static_assert(std::is_trivially_copyable_v<Record>);
  ClearPages(&record, sizeof record);
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
