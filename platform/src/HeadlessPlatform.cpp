#include "skyframe/platform/HeadlessPlatform.h"

#include <utility>

#include "ScriptedView.h"
#include "texts.h"

namespace skyframe {

namespace {

/// Makes a view the innermost one for the life of the object, also when a handler throws.
class CTopViewScope {
 public:
  CTopViewScope(CScriptedView*& pTop, CScriptedView& view) : m_pTop(pTop), m_pPrevious(pTop) { pTop = &view; }
  ~CTopViewScope() { m_pTop = m_pPrevious; }
  CTopViewScope(const CTopViewScope&) = delete;
  CTopViewScope& operator=(const CTopViewScope&) = delete;

 private:
  CScriptedView*& m_pTop;
  CScriptedView* m_pPrevious;
};

std::string DescribeStep(const CDialog& dialog, size_t nStep, const DialogStep& step, std::string_view strReason) {
  return "dialog " + std::to_string(dialog.GetTemplate().nId) + ", step " + std::to_string(nStep + 1) + ", control " +
         std::to_string(step.nId) + ": " + std::string(strReason);
}

}  // namespace

CHeadlessPlatform::CHeadlessPlatform(std::ostream& strmMessages, std::ostream& strmConsole)
    : m_strmMessages(strmMessages), m_strmConsole(strmConsole) {}

void CHeadlessPlatform::AddScript(int nDialogId, std::vector<DialogStep> steps) {
  m_scripts[nDialogId].push_back(std::move(steps));
}

bool CHeadlessPlatform::HasUnusedScripts() const {
  for (const auto& [nDialogId, scripts] : m_scripts) {
    if (!scripts.empty()) return true;
  }
  return false;
}

void CHeadlessPlatform::Clear() {
  m_scripts.clear();
  m_messages.clear();
  m_scriptErrors.clear();
  m_nWaitCursorCount = 0;
}

void CHeadlessPlatform::SetClock(std::vector<LocalTime> times) { m_clock.assign(times.begin(), times.end()); }

void CHeadlessPlatform::ShowMessage(std::string_view strText) {
  m_messages.emplace_back(strText);
  m_strmMessages << strText << '\n' << std::flush;
}

int CHeadlessPlatform::RunModal(CDialog& dialog) { return RunScripted(dialog, TakeScript(dialog.GetTemplate().nId)); }

CHeadlessPlatform::Steps CHeadlessPlatform::TakeScript(int nDialogId) {
  const auto it = m_scripts.find(nDialogId);
  if (it == m_scripts.end() || it->second.empty()) return {};
  Steps steps = std::move(it->second.front());
  it->second.pop_front();
  return steps;
}

int CHeadlessPlatform::RunScripted(CDialog& dialog, const Steps& steps) {
  CScriptedView view(dialog, m_pTopView, m_scriptErrors);
  const CTopViewScope scope(m_pTopView, view);
  dialog.Open(view);
  view.FocusFirst();
  Follow(dialog, steps, [&view](const DialogStep& step) { return view.Perform(step); });
  if (!dialog.HasEnded()) dialog.Notify(c_nIdCancel, DialogEvent::Clicked);
  dialog.Close();
  return dialog.GetResult();
}

void CHeadlessPlatform::Follow(const CDialog& dialog, const Steps& steps, const Performer& perform) {
  for (size_t i = 0; i < steps.size(); ++i) {
    const std::string_view strReason = dialog.HasEnded() ? texts::c_strDialogEnded : perform(steps[i]);
    if (strReason.empty()) continue;
    m_scriptErrors.push_back(DescribeStep(dialog, i, steps[i], strReason));
    return;
  }
}

void CHeadlessPlatform::SetBusy(bool bBusy) {
  if (bBusy) ++m_nWaitCursorCount;
}

std::ostream& CHeadlessPlatform::GetConsole() { return m_strmConsole; }

LocalTime CHeadlessPlatform::GetLocalTime() {
  if (m_clock.empty()) return IPlatform::GetLocalTime();
  const LocalTime time = m_clock.front();
  if (m_clock.size() > 1) m_clock.pop_front();
  return time;
}

}  // namespace skyframe
