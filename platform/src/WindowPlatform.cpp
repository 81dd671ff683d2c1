#include "skyframe/platform/WindowPlatform.h"

#include <iostream>
#include <string>
#include <utility>

#include "SystemFile.h"
#include "skyframe/platform/WindowTexts.h"

namespace skyframe {

namespace {

void WriteToStandardOutput(std::string_view strText) {
  constexpr int c_nStandardOutput = 1;
  if (system_file::BeginText(c_nStandardOutput)) return system_file::WriteToConsole(c_nStandardOutput, strText);
  std::cout << strText << std::flush;
}

/// "    已用时 1:05:09"
std::string FormatElapsed(long long nSeconds) {
  constexpr long long c_nMinute = 60, c_nHour = 3600;
  const auto twoDigits = [](long long n) { return (n < 10 ? ":0" : ":") + std::to_string(n); };
  return std::string(windows::texts::c_strElapsed) + std::to_string(nSeconds / c_nHour) +
         twoDigits(nSeconds / c_nMinute % c_nMinute) + twoDigits(nSeconds % c_nMinute);
}

}  // namespace

CWindowPlatform::CWindowPlatform() : m_consoleBuffer(WriteToStandardOutput), m_strmConsole(&m_consoleBuffer) {}

CWindowPlatform::COrdinaryCursor::COrdinaryCursor(CWindowPlatform& platform)
    : m_platform(platform), m_bWaiting(platform.m_nOrdinaryCursors++ == 0 && platform.GetWaitCursorDepth() > 0) {
  if (m_bWaiting) m_platform.SetBusy(false);
}

CWindowPlatform::COrdinaryCursor::~COrdinaryCursor() {
  --m_platform.m_nOrdinaryCursors;
  if (m_bWaiting) m_platform.SetBusy(true);
}

void CWindowPlatform::SetConsoleSink(ConsoleSink sink) {
  m_consoleBuffer.SetSink(sink ? std::move(sink) : ConsoleSink(WriteToStandardOutput));
}

void CWindowPlatform::ReportProgress(double dFraction, std::string_view strLabel) {
  if (!m_pace.IsDue(dFraction)) return;
  m_strmConsole.flush();
  ShowProgress(dFraction, std::string(strLabel) + FormatElapsed(m_pace.GetElapsed().count()));
}

void CWindowPlatform::Settle() {
  m_pace.EndWork();
  HideProgress();
  m_strmConsole.flush();
}

void CWindowPlatform::SwitchModule(bool bInside) {
  if (!bInside) Settle();
}

}  // namespace skyframe
