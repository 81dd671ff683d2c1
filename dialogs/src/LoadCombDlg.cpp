#include "skyframe/dialogs/LoadCombDlg.h"

#include <algorithm>
#include <functional>

#include "skyframe/dialogs/Templates.h"
#include "skyframe/platform/NumberText.h"
#include "skyframe/values/LoadNames.h"
#include "texts.h"

namespace skyframe {

void EditLoadCombination(LoadCombination& combination) {
  CLoadCombDlg dialog;
  dialog.m_loadComb = combination;
  if (dialog.DoModal() == c_nIdOk) combination = dialog.m_loadComb;
}

CLoadCombDlg::CLoadCombDlg() : CDialog(c_loadCombTemplate) {
  m_typeOfRow.fill(-1);
  On(c_nIdAvailable, DialogEvent::SelectionChanged, [this] { ReadSelection(); });
  On(c_nIdCombined, DialogEvent::SelectionChanged, [this] { ReadSelection(); });
  On(c_nIdAvailable, DialogEvent::DoubleClicked, [this] { OnAdd(); });
  On(c_nIdCombined, DialogEvent::DoubleClicked, [this] { OnRemove(); });
  On(c_nIdAdd, DialogEvent::Clicked, [this] { OnAdd(); });
  On(c_nIdRemove, DialogEvent::Clicked, [this] { OnRemove(); });
  // Deliberate: every change of the text is read at once, so an unfinished number gets its message while typing.
  On(c_nIdFactor, DialogEvent::TextChanged, [this] { UpdateData(true); });
}

void CLoadCombDlg::DoDataExchange(CDataExchange& exchange) { exchange.Text(c_nIdFactor, m_dFactor); }

void CLoadCombDlg::OnInitDialog() {
  CDialog::OnInitDialog();
  if (m_loadComb.nLoadTypes > c_nLoadTypes) {
    GetPlatform().ShowMessage(texts::c_strTooManyLoadTypes);
    return;
  }
  FillLists();
}

void CLoadCombDlg::FillLists() {
  for (int nType = 0; nType < c_nLoadTypes; ++nType) m_names[static_cast<size_t>(nType)] = GetLoadName(nType);
  for (int nType = m_loadComb.nLoadTypes - 1; nType >= 0; --nType) {
    View().InsertItem(c_nIdAvailable, 0, m_names[static_cast<size_t>(nType)]);
  }
  m_bAvailableSelected.fill(false);
  m_bCombinedSelected.fill(false);
  m_typeOfRow.fill(-1);
  m_nRows = static_cast<int>(std::count_if(m_loadComb.flags.begin(), m_loadComb.flags.end(), std::identity{}));
  int nRow = m_nRows;
  for (int nType = c_nLoadTypes - 1; nType >= 0; --nType) {
    if (m_loadComb.flags[static_cast<size_t>(nType)] == 0) continue;
    View().InsertItem(c_nIdCombined, 0, GetRowText(nType));
    m_typeOfRow[static_cast<size_t>(--nRow)] = nType;
  }
}

void CLoadCombDlg::ReadSelection() {
  for (int nType = 0; nType < c_nLoadTypes; ++nType) {
    m_bAvailableSelected[static_cast<size_t>(nType)] = View().IsSelected(c_nIdAvailable, nType);
  }
  m_bCombinedSelected.fill(false);
  for (int nRow = 0; nRow < m_nRows; ++nRow) {
    const auto nType = static_cast<size_t>(m_typeOfRow[static_cast<size_t>(nRow)]);
    m_bCombinedSelected[nType] = View().IsSelected(c_nIdCombined, nRow);
  }
}

void CLoadCombDlg::OnAdd() {
  ReadSelection();
  for (int nType = 0; nType < c_nLoadTypes; ++nType) {
    const auto nIndex = static_cast<size_t>(nType);
    if (!m_bAvailableSelected[nIndex] || m_loadComb.flags[nIndex] != 0) continue;
    m_loadComb.factors[nIndex] = m_dFactor;
    m_loadComb.flags[nIndex] = 1;
    InsertRow(nType);
  }
  ClearSelection();
}

void CLoadCombDlg::OnRemove() {
  ReadSelection();
  for (int nRow = m_nRows - 1; nRow >= 0; --nRow) {
    const auto nType = static_cast<size_t>(m_typeOfRow[static_cast<size_t>(nRow)]);
    if (!m_bCombinedSelected[nType]) continue;
    // Deliberate: the factor of the removed type stays.
    m_loadComb.flags[nType] = 0;
    RemoveRow(nRow);
  }
  ClearSelection();
}

void CLoadCombDlg::InsertRow(int nType) {
  const auto end = m_typeOfRow.begin() + m_nRows;
  const auto at = std::find_if(m_typeOfRow.begin(), end, [nType](int nOther) { return nOther > nType; });
  std::move_backward(at, end, end + 1);
  *at = nType;
  ++m_nRows;
  View().InsertItem(c_nIdCombined, static_cast<int>(at - m_typeOfRow.begin()), GetRowText(nType));
}

void CLoadCombDlg::RemoveRow(int nRow) {
  View().Select(c_nIdCombined, nRow, false);
  View().DeleteItem(c_nIdCombined, nRow);
  std::move(m_typeOfRow.begin() + nRow + 1, m_typeOfRow.end(), m_typeOfRow.begin() + nRow);
  m_typeOfRow.back() = -1;
  --m_nRows;
}

void CLoadCombDlg::ClearSelection() {
  for (const int nListId : {c_nIdAvailable, c_nIdCombined}) {
    for (int nRow = 0; nRow < View().GetItemCount(nListId); ++nRow) View().Select(nListId, nRow, false);
  }
  m_bAvailableSelected.fill(false);
  m_bCombinedSelected.fill(false);
}

std::string CLoadCombDlg::GetRowText(int nType) const {
  const auto nIndex = static_cast<size_t>(nType);
  return FormatFixed(m_loadComb.factors[nIndex], 2) + m_names[nIndex];
}

}  // namespace skyframe
