#include "ResultHeader.h"

#include "skyframe/platform/Platform.h"
#include "texts.h"

namespace skyframe {

std::string FormResultPath(const std::string& strJobPath, std::string_view strSuffix) {
  std::string strPath = strJobPath;
  return strPath.append(strSuffix);
}

void WriteResultHeader(CTextWriter& out, std::string_view strTitle, const CAnalysisModel& model) {
  const LocalTime now = GetPlatform().GetLocalTime();
  const CNodeTable& nodes = model.GetNodes();
  out.Text(strTitle).EndLine().EndLine();
  out.Integer(now.nMonth).Text("/").Integer(now.nDay).Text("/").Integer(now.nYear).Text("  ");
  out.Integer(now.nHour).Text(":").Integer(now.nMinute).Text(":").Integer(now.nSecond).EndLine();
  out.Text(texts::c_strFileVersion).EndLine().EndLine();
  out.Integer(static_cast<long long>(model.GetElements().size())).Text(" ").Integer(nodes.GetNodeCount());
  out.Text(" ").Integer(nodes.GetRigidCount()).Text(" ").Integer(nodes.GetPinnedCount());
}

}  // namespace skyframe
