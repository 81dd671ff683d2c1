#include "CallbackPlatform.h"

#include <utility>

#include "skyframe/platform/Dialog.h"

namespace skyframe {

CCallbackPlatform::CCallbackPlatform(TextCallback message, TextCallback console)
    : CHeadlessPlatform(m_console, m_console),
      m_message(message),
      m_consoleBuffer(console),
      m_console(&m_consoleBuffer) {}

void CCallbackPlatform::ShowMessage(std::string_view strText) {
  m_console.flush();
  m_message(strText);
}

int CCallbackPlatform::RunModal(CDialog& dialog) {
  const int nDialog = dialog.GetTemplate().nId;
  std::vector<DialogStep> steps = std::exchange(m_steps[nDialog], {});
  if (steps.empty() || !steps.back().IsClosing()) steps.push_back(DialogStep::Ok());
  AddScript(nDialog, std::move(steps));
  const int nResult = CHeadlessPlatform::RunModal(dialog);
  TellScriptErrors();
  return nResult;
}

void CCallbackPlatform::TellScriptErrors() {
  for (; m_nToldErrors < GetScriptErrors().size(); ++m_nToldErrors) ShowMessage(GetScriptErrors()[m_nToldErrors]);
}

void CCallbackPlatform::SwitchModule(bool bInside) {
  if (!bInside) m_console.flush();
}

}  // namespace skyframe
