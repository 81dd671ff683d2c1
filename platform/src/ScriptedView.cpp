#include "ScriptedView.h"

#include <algorithm>
#include <limits>

#include "skyframe/platform/DialogRules.h"
#include "texts.h"

namespace skyframe {

CScriptedView::CScriptedView(CDialog& dialog, CScriptedView* pParent, std::vector<std::string>& errors)
    : m_dialog(dialog), m_pParent(pParent), m_errors(errors) {
  for (const ControlTemplate& control : dialog.GetTemplate().controls) {
    if (control.nId != -1) m_controls[control.nId] = MakeControl(control);
  }
}

CScriptedView::Control CScriptedView::MakeControl(const ControlTemplate& layout) {
  Control control;
  control.pTemplate = &layout;
  control.strText = layout.strText;
  control.bEnabled = (layout.nStyle & c_nStyleDisabled) == 0;
  if (layout.kind == ControlKind::ListView) {
    control.nColumns = std::max<size_t>(layout.items.size(), 1);
    return control;
  }
  for (const std::string_view strItem : layout.items) control.rows.push_back({{std::string(strItem)}});
  return control;
}

const CScriptedView::Control* CScriptedView::Find(int nId) const {
  if (const auto it = m_controls.find(nId); it != m_controls.end()) return &it->second;
  m_errors.push_back("dialog " + std::to_string(m_dialog.GetTemplate().nId) + ", control " + std::to_string(nId) +
                     ": " + std::string(texts::c_strNoControl));
  return nullptr;
}

CScriptedView::Control* CScriptedView::Find(int nId) {
  const auto it = std::as_const(*this).Find(nId) == nullptr ? m_controls.end() : m_controls.find(nId);
  return it == m_controls.end() ? nullptr : &it->second;
}

void CScriptedView::FocusFirst() {
  if (m_nFocus == -1) m_nFocus = FindFirstFocus(m_dialog.GetTemplate(), *this);
}

std::string_view CScriptedView::Perform(const DialogStep& step) {
  if (step.action != DialogStep::Action::Wait) return PerformStep(m_dialog, *this, step);
  PassTime(step.nRow);
  return {};
}

void CScriptedView::PassTime(int nMilliseconds) {
  while (nMilliseconds > 0 && !m_dialog.HasEnded()) {
    int nStep = nMilliseconds;
    for (const CScriptedView* pView = this; pView != nullptr; pView = pView->m_pParent) {
      nStep = std::min(nStep, pView->GetTimeToNextTimer());
    }
    for (CScriptedView* pView = this; pView != nullptr; pView = pView->m_pParent) pView->RunTimers(nStep);
    nMilliseconds -= nStep;
  }
}

int CScriptedView::GetTimeToNextTimer() const {
  int nNext = std::numeric_limits<int>::max();
  for (const auto& [nTimer, timer] : m_timers) nNext = std::min(nNext, timer.nRemaining);
  return nNext;
}

void CScriptedView::RunTimers(int nMilliseconds) {
  std::vector<int> due;
  for (auto& [nTimer, timer] : m_timers) {
    timer.nRemaining -= nMilliseconds;
    if (timer.nRemaining > 0) continue;
    timer.nRemaining = timer.nPeriod;
    due.push_back(nTimer);
  }
  for (const int nTimer : due) {
    if (!m_dialog.HasEnded() && m_timers.contains(nTimer)) m_dialog.Tick(nTimer);
  }
}

void CScriptedView::SetText(int nId, std::string_view strText) {
  if (Control* const pControl = Find(nId)) pControl->strText = strText;
}

std::string CScriptedView::GetText(int nId) const {
  const Control* const pControl = Find(nId);
  return pControl == nullptr ? std::string{} : pControl->strText;
}

void CScriptedView::SetCheck(int nId, bool bOn) {
  Control* const pControl = Find(nId);
  if (pControl == nullptr) return;
  if (bOn && pControl->pTemplate->kind == ControlKind::Radio) {
    const DialogTemplate& layout = m_dialog.GetTemplate();
    for (const int nButton : layout.GetRadioGroup(layout.GetGroupStart(nId))) m_controls[nButton].bChecked = false;
  }
  pControl->bChecked = bOn;
}

bool CScriptedView::GetCheck(int nId) const {
  const Control* const pControl = Find(nId);
  return pControl != nullptr && pControl->bChecked;
}

void CScriptedView::InsertItem(int nId, int nRow, std::string_view strText) {
  Control* const pControl = Find(nId);
  if (pControl == nullptr) return;
  nRow = std::clamp(nRow, 0, static_cast<int>(pControl->rows.size()));
  Row row;
  row.cells.resize(pControl->nColumns);
  row.cells.front() = strText;
  pControl->rows.insert(pControl->rows.begin() + nRow, std::move(row));
  pControl->nCurrent = CurrentAfterInsert(pControl->nCurrent, nRow);
}

int CScriptedView::AddItem(int nId, std::string_view strText) {
  const Control* const pControl = Find(nId);
  if (pControl == nullptr) return -1;
  const int nRow = FindSortedRow(*pControl->pTemplate, *this, strText);
  InsertItem(nId, nRow, strText);
  return nRow;
}

void CScriptedView::DeleteItem(int nId, int nRow) {
  Control* const pControl = Find(nId);
  if (pControl == nullptr || !pControl->HasRow(nRow)) return;
  pControl->rows.erase(pControl->rows.begin() + nRow);
  pControl->nCurrent = CurrentAfterDelete(pControl->nCurrent, nRow);
}

int CScriptedView::GetItemCount(int nId) const {
  const Control* const pControl = Find(nId);
  return pControl == nullptr ? 0 : static_cast<int>(pControl->rows.size());
}

std::string CScriptedView::GetItemText(int nId, int nRow, int nColumn) const {
  const Control* const pControl = Find(nId);
  if (pControl == nullptr || !pControl->HasRow(nRow)) return {};
  const std::vector<std::string>& cells = pControl->At(nRow).cells;
  return nColumn >= 0 && nColumn < static_cast<int>(cells.size()) ? cells[static_cast<size_t>(nColumn)] : std::string{};
}

void CScriptedView::SetCell(int nId, int nRow, int nColumn, std::string_view strText) {
  Control* const pControl = Find(nId);
  if (pControl == nullptr || !pControl->HasRow(nRow)) return;
  if (nColumn < 0 || static_cast<size_t>(nColumn) >= pControl->nColumns) return;
  pControl->At(nRow).cells[static_cast<size_t>(nColumn)] = strText;
}

void CScriptedView::Select(int nId, int nRow, bool bOn) {
  Control* const pControl = Find(nId);
  if (pControl == nullptr || !pControl->HasRow(nRow)) return;
  if (bOn && (pControl->pTemplate->nStyle & c_nStyleMultiple) == 0) {
    for (Row& row : pControl->rows) row.bSelected = false;
    pControl->nCurrent = nRow;
  }
  pControl->At(nRow).bSelected = bOn;
}

bool CScriptedView::IsSelected(int nId, int nRow) const {
  const Control* const pControl = Find(nId);
  if (pControl == nullptr || !pControl->HasRow(nRow)) return false;
  return pControl->pTemplate->kind == ControlKind::DropList ? pControl->nCurrent == nRow : pControl->At(nRow).bSelected;
}

void CScriptedView::SetCurrent(int nId, int nRow) {
  if (Control* const pControl = Find(nId)) pControl->nCurrent = pControl->HasRow(nRow) ? nRow : -1;
}

int CScriptedView::GetCurrent(int nId) const {
  const Control* const pControl = Find(nId);
  return pControl == nullptr ? -1 : pControl->nCurrent;
}

void CScriptedView::Enable(int nId, bool bOn) {
  if (Control* const pControl = Find(nId)) pControl->bEnabled = bOn;
}

bool CScriptedView::IsEnabled(int nId) const {
  const Control* const pControl = Find(nId);
  return pControl != nullptr && pControl->bEnabled;
}

void CScriptedView::SetFocus(int nId) {
  if (Find(nId) != nullptr) m_nFocus = nId;
}

void CScriptedView::StartTimer(int nTimer, int nMilliseconds) {
  const int nPeriod = std::max(nMilliseconds, 1);
  m_timers[nTimer] = {nPeriod, nPeriod};
}

void CScriptedView::StopTimer(int nTimer) { m_timers.erase(nTimer); }

}  // namespace skyframe
