#include "skyframe/dialogs/HisResultDlg.h"

#include "texts.h"

namespace skyframe {

CHisResultDlg::CHisResultDlg(const IHistoryView& histories) : CDialog(c_hisResultTemplate), m_histories(histories) {
  On(c_nIdRefresh, DialogEvent::Clicked, [this] { OnRefresh(); });
  On(c_nIdOutput, DialogEvent::Clicked, [this] { OnOutput(); });
}

void CHisResultDlg::OnInitDialog() {
  m_shown.reset();
  CDialog::OnInitDialog();
}

void CHisResultDlg::OnPaint(IPaintContext& paint) { m_histories.Plot(paint, m_shown); }

void CHisResultDlg::DoDataExchange(CDataExchange& exchange) {
  exchange.Radio(c_nIdNodeHistory, m_nKind);
  exchange.Text(c_nIdHistoryNode, m_nNode);
  exchange.Radio(c_nIdHistoryX, m_nDirection);
  exchange.Text(c_nIdHistoryElement, m_nElement);
}

void CHisResultDlg::OnRefresh() {
  const std::optional<HistorySelection> selection = ReadSelection();
  if (!selection) return;
  m_shown = selection;
  View().Repaint();
}

void CHisResultDlg::OnOutput() {
  const std::optional<HistorySelection> selection = ReadSelection();
  if (selection && !m_histories.WriteOut(*selection)) GetPlatform().ShowMessage(texts::c_strNotWritten);
}

std::optional<HistorySelection> CHisResultDlg::ReadSelection() {
  if (!UpdateData(true)) return std::nullopt;
  const bool bElement = m_nKind == 1;
  const int nNumber = bElement ? m_nElement : m_nNode;
  const int nCount = bElement ? m_histories.GetElementCount() : m_histories.GetNodeCount();
  if (nNumber >= 1 && nNumber <= nCount) return HistorySelection{bElement, nNumber, m_nDirection};
  GetPlatform().ShowMessage(bElement ? texts::c_strNoSuchElement : texts::c_strNoSuchNode);
  return std::nullopt;
}

}  // namespace skyframe
