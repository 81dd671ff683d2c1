#include "skyframe/platform/Dialog.h"

#include <algorithm>
#include <utility>

#include "skyframe/platform/NumberText.h"
#include "texts.h"

namespace skyframe {

const ControlTemplate* DialogTemplate::Find(int nControlId) const {
  const auto it = std::find_if(controls.begin(), controls.end(),
                               [nControlId](const ControlTemplate& control) { return control.nId == nControlId; });
  return it == controls.end() ? nullptr : &*it;
}

std::string_view DialogTemplate::GetTip(int nControlId, TipLanguage language) const {
  const auto it = std::ranges::find(tips, nControlId, &ControlTip::nId);
  if (it == tips.end()) return {};
  return language == TipLanguage::English ? it->strEnglish : it->strChinese;
}

std::vector<int> DialogTemplate::GetRadioGroup(int nFirstId) const {
  std::vector<int> ids;
  bool bInside = false;
  for (const ControlTemplate& control : controls) {
    if (bInside && (control.nStyle & c_nStyleGroup) != 0) break;
    if (control.nId == nFirstId) bInside = true;
    if (bInside && control.kind == ControlKind::Radio) ids.push_back(control.nId);
  }
  return ids;
}

int DialogTemplate::GetGroupStart(int nRadioId) const {
  int nStart = -1;
  for (const ControlTemplate& control : controls) {
    const bool bRadio = control.kind == ControlKind::Radio;
    if ((control.nStyle & c_nStyleGroup) != 0) nStart = -1;
    if (bRadio && nStart == -1) nStart = control.nId;
    if (bRadio && control.nId == nRadioId) return nStart;
  }
  return -1;
}

CDataExchange::CDataExchange(const DialogTemplate& layout, IDialogView& view, bool bSaving)
    : m_layout(layout), m_view(view), m_bSaving(bSaving) {}

void CDataExchange::Text(int nId, int& nValue) {
  if (m_bFailed) return;
  if (!m_bSaving) return m_view.SetText(nId, std::to_string(nValue));
  const std::optional<int> value = ParseInt(m_view.GetText(nId));
  if (!value) return Fail(nId, texts::c_strNeedInteger);
  nValue = *value;
}

void CDataExchange::Text(int nId, double& dValue) {
  if (m_bFailed) return;
  if (!m_bSaving) return m_view.SetText(nId, FormatShortest(dValue));
  const std::optional<double> value = ParseReal(m_view.GetText(nId));
  if (!value) return Fail(nId, texts::c_strNeedNumber);
  dValue = *value;
}

void CDataExchange::Text(int nId, std::string& strValue) {
  if (m_bFailed) return;
  if (!m_bSaving) return m_view.SetText(nId, strValue);
  strValue = m_view.GetText(nId);
}

void CDataExchange::Check(int nId, int& nValue) {
  if (m_bFailed) return;
  if (!m_bSaving) return m_view.SetCheck(nId, nValue != 0);
  nValue = m_view.GetCheck(nId) ? 1 : 0;
}

void CDataExchange::Radio(int nFirstId, int& nIndex) {
  if (m_bFailed) return;
  if (m_bSaving) nIndex = -1;
  int nButton = 0;
  for (const int nId : m_layout.GetRadioGroup(nFirstId)) {
    if (!m_bSaving) m_view.SetCheck(nId, nButton == nIndex);
    if (m_bSaving && m_view.GetCheck(nId)) nIndex = nButton;
    ++nButton;
  }
}

void CDataExchange::Index(int nId, int& nIndex) {
  if (m_bFailed) return;
  if (!m_bSaving) return m_view.SetCurrent(nId, nIndex);
  nIndex = m_view.GetCurrent(nId);
}

void CDataExchange::Fail(int nId, std::string_view strMessage) {
  m_bFailed = true;
  GetPlatform().ShowMessage(strMessage);
  m_view.SetFocus(nId);
}

CDialog::CDialog(const DialogTemplate& layout) : m_layout(layout) {}

CDialog::~CDialog() = default;

int CDialog::DoModal() { return GetPlatform().RunModal(*this); }

void CDialog::Open(IDialogView& view) {
  m_pView = &view;
  m_bEnded = false;
  m_nResult = c_nIdCancel;
  OnInitDialog();
  if (!m_bEnded) GetPlatform().DialogOpened(*this, view);
}

void CDialog::Notify(int nId, DialogEvent event) {
  if (const auto it = m_handlers.find({nId, event}); it != m_handlers.end()) return it->second();
  if (event != DialogEvent::Clicked) return;
  if (nId == c_nIdOk) OnOk();
  if (nId == c_nIdCancel) OnCancel();
}

void CDialog::Close() {
  const IDialogView* const pView = std::exchange(m_pView, nullptr);
  if (m_nResult == c_nIdOk) GetPlatform().DialogAccepted(m_layout, *pView);
}

void CDialog::OnInitDialog() { UpdateData(false); }

void CDialog::OnOk() {
  if (UpdateData(true)) EndDialog(c_nIdOk);
}

void CDialog::OnCancel() { EndDialog(c_nIdCancel); }

void CDialog::OnTimer(int /*nTimer*/) {}

void CDialog::OnPaint(IPaintContext& /*paint*/) {}

bool CDialog::UpdateData(bool bSave) {
  CDataExchange exchange(m_layout, View(), bSave);
  DoDataExchange(exchange);
  return !exchange.HasFailed();
}

void CDialog::EndDialog(int nResult) {
  m_bEnded = true;
  m_nResult = nResult;
}

void CDialog::On(int nId, DialogEvent event, std::function<void()> handler) {
  m_handlers[{nId, event}] = std::move(handler);
}

}  // namespace skyframe
