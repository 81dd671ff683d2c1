#include "skyframe/run/HostPlatform.h"

#include <algorithm>

#include "skyframe/job/Text.h"

namespace skyframe::host {

namespace {

constexpr int c_nBarWidth = 40;
constexpr std::string_view c_strEraseLine = "\r\x1b[K";

}  // namespace

void CHostPlatform::ShowMessage(std::string_view strText) {
  EndProgress();
  CHeadlessPlatform::ShowMessage(strText);
}

void CHostPlatform::ShowNotice(std::string_view /*strText*/) { EndProgress(); }

void CHostPlatform::ReportProgress(double dFraction, std::string_view strLabel) {
  if (m_pProgress == nullptr) return;
  const int nPercent = static_cast<int>(100.0 * std::clamp(dFraction, 0.0, 1.0));
  if (nPercent == m_nPercent) return;
  m_nPercent = nPercent;
  const int nFull = c_nBarWidth * nPercent / 100;
  *m_pProgress << c_strEraseLine << '[' << std::string(nFull, '#') << std::string(c_nBarWidth - nFull, '.')
               << Format("] %3d %%  ", nPercent) << strLabel << std::flush;
}

void CHostPlatform::EndProgress() {
  if (m_nPercent >= 0) *m_pProgress << c_strEraseLine << std::flush;
  m_nPercent = -1;
}

}  // namespace skyframe::host
