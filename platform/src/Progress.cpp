#include "skyframe/platform/Progress.h"

#include <algorithm>

#include "skyframe/platform/Platform.h"

namespace skyframe {

namespace {

constexpr double c_dReports = 1000.0;     // of a step at most
constexpr double c_dInnerStride = 500.0;  // pieces; a short step within another is not worth a report

constinit CProgress* g_pStep = nullptr;  // the innermost one that is told

}  // namespace

CProgress::CProgress(std::string_view strLabel, double dPieces, double dDone)
    : m_strLabel(strLabel),
      m_pOuter(g_pStep),
      m_bTold(m_pOuter == nullptr || m_pOuter->m_dPieces == 0.0),
      m_dPieces(dPieces),
      m_dDone(dDone),
      m_dStride(m_bTold ? m_dPieces / c_dReports : c_dInnerStride),
      m_dNextReport(m_dDone + m_dStride) {
  if (!m_bTold) return;
  if (m_pOuter != nullptr) m_strLabel = m_pOuter->m_strLabel;
  Tell();
  g_pStep = this;
}

CProgress::~CProgress() {
  if (m_bTold) g_pStep = m_pOuter;
}

void CProgress::Report() {
  m_dNextReport = m_dDone + m_dStride;
  if (m_bTold && m_dDone < m_dPieces) m_dNextReport = std::min(m_dNextReport, m_dPieces);
  (m_bTold ? this : m_pOuter)->Tell();
}

void CProgress::Tell() const {
  if (m_dPieces > 0.0) GetPlatform().ReportProgress(std::min(m_dDone / m_dPieces, 1.0), m_strLabel);
}

}  // namespace skyframe
