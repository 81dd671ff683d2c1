#include "skyframe/run/PrefillPlatform.h"

#include <utility>

#include "skyframe/platform/Dialog.h"
#include "skyframe/platform/DialogRules.h"

namespace skyframe::host {

namespace {

/// A value for the life of the object, the old one afterwards.
template <class T>
class CTemporary {
 public:
  CTemporary(T& place, T value) : m_place(place), m_old(std::exchange(place, value)) {}
  ~CTemporary() { m_place = m_old; }
  CTemporary(const CTemporary&) = delete;
  CTemporary& operator=(const CTemporary&) = delete;

 private:
  T& m_place;
  T m_old;
};

}  // namespace

int CPrefillPlatform::RunModal(CDialog& dialog) {
  if (m_bPrefilling) return RunScripted(dialog, GetScript(dialog.GetTemplate().nId));
  const CTemporary<const CDialog*> awaited(m_pAwaited, &dialog);
  return GetWindows().RunModal(dialog);
}

void CPrefillPlatform::DialogOpened(CDialog& dialog, IDialogView& view) {
  if (&dialog != std::exchange(m_pAwaited, nullptr)) return;
  if (dialog.GetTemplate().nId == c_nIdLoadCombDlg) return;  // it shows what the dialog below holds
  const int nFocus = view.GetFocus();
  Prefill(dialog, view);
  view.SetFocus(nFocus == -1 ? FindFirstFocus(dialog.GetTemplate(), view) : nFocus);
}

void CPrefillPlatform::Prefill(CDialog& dialog, IDialogView& view) {
  const CTemporary prefilling(m_bPrefilling, true);
  Follow(dialog, GetScript(dialog.GetTemplate().nId), [&](const DialogStep& step) {
    return step.IsClosing() ? std::string_view{} : PerformStep(dialog, view, step);
  });
}

const CPrefillPlatform::Steps& CPrefillPlatform::GetScript(int nDialogId) {
  Steps next = TakeScript(nDialogId);
  Steps& steps = m_scripts[nDialogId];
  if (!next.empty()) steps = std::move(next);
  return steps;
}

void CPrefillPlatform::DialogAccepted(const DialogTemplate& layout, const IDialogView& view) {
  m_recorder.Accept(layout, view);
}

}  // namespace skyframe::host
