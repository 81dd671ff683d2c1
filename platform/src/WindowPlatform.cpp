#include "skyframe/platform/WindowPlatform.h"

#include <iostream>
#include <utility>

#include "SystemFile.h"

namespace skyframe {

namespace {

void WriteToStandardOutput(std::string_view strText) {
  constexpr int c_nStandardOutput = 1;
  if (system_file::BeginText(c_nStandardOutput)) return system_file::WriteToConsole(c_nStandardOutput, strText);
  std::cout << strText << std::flush;
}

}  // namespace

CWindowPlatform::CWindowPlatform() : m_consoleBuffer(WriteToStandardOutput), m_strmConsole(&m_consoleBuffer) {}

CWindowPlatform::COrdinaryCursor::COrdinaryCursor(CWindowPlatform& platform)
    : m_platform(platform), m_bWaiting(platform.GetWaitCursorDepth() > 0) {
  if (m_bWaiting) m_platform.SetBusy(false);
}

CWindowPlatform::COrdinaryCursor::~COrdinaryCursor() {
  if (m_bWaiting) m_platform.SetBusy(true);
}

void CWindowPlatform::SetConsoleSink(ConsoleSink sink) {
  m_consoleBuffer.SetSink(sink ? std::move(sink) : ConsoleSink(WriteToStandardOutput));
}

void CWindowPlatform::ReportProgress(double dFraction, std::string_view strLabel) {
  const CProgressPace::Verdict verdict = m_pace.Judge(dFraction);
  if (verdict == CProgressPace::Verdict::Hide) HideProgress();
  if (verdict != CProgressPace::Verdict::Show) return;
  m_strmConsole.flush();
  ShowProgress(dFraction, strLabel);
}

void CWindowPlatform::Settle() {
  m_pace.EndStep();
  HideProgress();
  m_strmConsole.flush();
}

void CWindowPlatform::SwitchModule(bool bInside) {
  if (!bInside) Settle();
}

}  // namespace skyframe
