#include "skyframe/dialogs/ImpulseLoadDlg.h"

#include <algorithm>
#include <string_view>

#include "FirstSettings.h"
#include "skyframe/dialogs/Templates.h"
#include "skyframe/platform/NumberText.h"
#include "texts.h"

namespace skyframe {

namespace {

constexpr std::array<std::string_view, 3> c_directions = {"X", "Y", "Z"};
constexpr int c_nPeakDecimals = 6;

}  // namespace

std::optional<ImpulseLoad> ParseImpulseRow(const ImpulseRow& row) {
  const std::optional<int> node = ParseInt(row[0]);
  const auto direction = std::find(c_directions.begin(), c_directions.end(), row[1]);
  const std::optional<double> peak = ParseReal(row[2]);
  if (!node || direction == c_directions.end() || !peak) return std::nullopt;
  return ImpulseLoad{*node, static_cast<int>(direction - c_directions.begin()), *peak};
}

CImpulseLoadDlg::CImpulseLoadDlg() : CDialog(c_impulseLoadTemplate), StepSettings(c_firstLoadSteps) {
  On(c_nIdImpulseInsert, DialogEvent::Clicked, [this] { OnInsert(); });
  On(c_nIdImpulseRemove, DialogEvent::Clicked, [this] { OnRemove(); });
}

void CImpulseLoadDlg::DoDataExchange(CDataExchange& exchange) {
  exchange.Radio(c_nIdTriangular, m_nType);
  exchange.Text(c_nIdImpulseNode, m_nNode);
  exchange.Text(c_nIdImpulseDirection, m_nDirection);
  exchange.Text(c_nIdImpulsePeak, m_dPeak);
  exchange.Text(c_nIdPeakTime, m_dPeakTime);
  exchange.Text(c_nIdUnloadTime, m_dUnloadTime);
  exchange.Text(c_nIdStep, m_dTimeStep);
  exchange.Text(c_nIdDuration, m_dDuration);
}

void CImpulseLoadDlg::OnOk() {
  if (!UpdateData(true)) return;
  m_rows.resize(static_cast<size_t>(View().GetItemCount(c_nIdImpulseList)));
  for (int nRow = 0; ImpulseRow & row : m_rows) {
    for (int nColumn = 0; std::string & strCell : row) {
      strCell = View().GetItemText(c_nIdImpulseList, nRow, nColumn++);
    }
    ++nRow;
  }
  EndDialog(c_nIdOk);
}

void CImpulseLoadDlg::OnInsert() {
  if (!UpdateData(true)) return;
  // Deliberate: node 0 is accepted.
  if (m_nNode < 0) return GetPlatform().ShowMessage(texts::c_strNegativeNode);
  const int nRow = View().GetItemCount(c_nIdImpulseList);
  View().InsertItem(c_nIdImpulseList, nRow, std::to_string(m_nNode));
  if (m_nDirection < 0 || m_nDirection >= static_cast<int>(c_directions.size())) {
    GetPlatform().ShowMessage(texts::c_strWrongDirection);
    View().DeleteItem(c_nIdImpulseList, nRow);
    return;
  }
  View().SetCell(c_nIdImpulseList, nRow, 1, c_directions[static_cast<size_t>(m_nDirection)]);
  View().SetCell(c_nIdImpulseList, nRow, 2, FormatFixed(m_dPeak, c_nPeakDecimals));
}

void CImpulseLoadDlg::OnRemove() {
  const int nRow = View().GetCurrent(c_nIdImpulseList);
  if (View().IsSelected(c_nIdImpulseList, nRow)) View().DeleteItem(c_nIdImpulseList, nRow);
}

}  // namespace skyframe
