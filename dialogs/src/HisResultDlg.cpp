#include "skyframe/dialogs/HisResultDlg.h"

#include <string_view>

namespace skyframe {

namespace {

constexpr std::string_view c_strNoSuchNode = "错误: 没有所求节点";
constexpr std::string_view c_strNoSuchElement = "错误: 没有所求单元";
constexpr std::string_view c_strNotWritten = "结果文件无法写入!";

constexpr unsigned c_nGroup = c_nStyleGroup;

// The controls keep to the left of the plot, which starts at 170 pixels.
constexpr ControlTemplate c_hisResultControls[] = {
    {c_nIdNodeHistory, ControlKind::Radio, "节点位移(mm)", {7, 9, 80, 10}, c_nGroup, {}},
    {c_nIdElementHistory, ControlKind::Radio, "单元轴力(kN)", {7, 71, 80, 10}, c_nStyleNone, {}},
    {-1, ControlKind::Label, "节点号码", {7, 23, 36, 10}, c_nGroup, {}},
    {c_nIdHistoryNode, ControlKind::Edit, {}, {45, 21, 40, 14}, c_nGroup, {}},
    {-1, ControlKind::Group, "自由度方向", {7, 37, 80, 26}, c_nGroup, {}},
    {c_nIdHistoryX, ControlKind::Radio, "X", {12, 49, 22, 10}, c_nGroup, {}},
    {c_nIdHistoryY, ControlKind::Radio, "Y", {37, 49, 22, 10}, c_nStyleNone, {}},
    {c_nIdHistoryZ, ControlKind::Radio, "Z", {62, 49, 22, 10}, c_nStyleNone, {}},
    {-1, ControlKind::Label, "单元号码", {7, 85, 36, 10}, c_nGroup, {}},
    {c_nIdHistoryElement, ControlKind::Edit, {}, {45, 83, 40, 14}, c_nGroup, {}},
    {c_nIdRefresh, ControlKind::Button, "刷 新", {7, 103, 78, 14}, c_nGroup, {}},
    {c_nIdOutput, ControlKind::Button, "输出到文件", {7, 121, 78, 14}, c_nGroup, {}},
    {c_nIdOk, ControlKind::DefaultButton, "OK", {7, 145, 37, 14}, c_nGroup, {}},
    {c_nIdCancel, ControlKind::Button, "Cancel", {48, 145, 37, 14}, c_nGroup, {}},
};

}  // namespace

constinit const DialogTemplate c_hisResultTemplate{c_nIdHisResultDlg, "时程计算结果输出", 440, 190,
                                                   c_hisResultControls};

CHisResultDlg::CHisResultDlg(const IHistoryView& histories) : CDialog(c_hisResultTemplate), m_histories(histories) {
  On(c_nIdRefresh, DialogEvent::Clicked, [this] { OnRefresh(); });
  On(c_nIdOutput, DialogEvent::Clicked, [this] { OnOutput(); });
}

bool CHisResultDlg::OnInitDialog() {
  m_shown.reset();
  return CDialog::OnInitDialog();
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
  if (selection && !m_histories.WriteOut(*selection)) GetPlatform().ShowMessage(c_strNotWritten);
}

std::optional<HistorySelection> CHisResultDlg::ReadSelection() {
  if (!UpdateData(true)) return std::nullopt;
  const bool bElement = m_nKind == 1;
  const int nNumber = bElement ? m_nElement : m_nNode;
  const int nCount = bElement ? m_histories.GetElementCount() : m_histories.GetNodeCount();
  if (nNumber >= 1 && nNumber <= nCount) return HistorySelection{bElement, nNumber, m_nDirection};
  GetPlatform().ShowMessage(bElement ? c_strNoSuchElement : c_strNoSuchNode);
  return std::nullopt;
}

}  // namespace skyframe
