#include "skyframe/qt/QtPlatform.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

#include "ProgressWindow.h"
#include "skyframe/platform/WindowTexts.h"
#include "skyframe/qt/DialogWindow.h"
#include "skyframe/qt/Font.h"

namespace skyframe {

CQtPlatform::CQtPlatform(QWidget* pHostWindow) : m_pHostWindow(pHostWindow) {}

CQtPlatform::~CQtPlatform() {
  if (GetWaitCursorDepth() > 0) QApplication::restoreOverrideCursor();
}

QWidget* CQtPlatform::GetParentWindow() const {
  QWidget* const pModal = QApplication::activeModalWidget();
  return pModal != nullptr ? pModal : m_pHostWindow;
}

void CQtPlatform::ShowMessage(std::string_view strText) {
  Settle();
  const COrdinaryCursor cursor(*this);
  QMessageBox box(GetParentWindow());
  box.setObjectName(QStringLiteral("message"));
  box.setFont(FormDialogFont(m_dFontScale));
  box.setWindowTitle(ToQt(windows::texts::c_strTitle));
  box.setTextFormat(Qt::PlainText);
  box.setText(ToQt(strText));
  box.setStandardButtons(QMessageBox::Ok);
  box.button(QMessageBox::Ok)->setText(ToQt(windows::texts::c_strAcknowledge));
  box.exec();
}

int CQtPlatform::RunModal(CDialog& dialog) {
  Settle();
  const COrdinaryCursor cursor(*this);
  CDialogWindow window(dialog, m_dFontScale, GetParentWindow());
  return window.Run();
}

void CQtPlatform::SetBusy(bool bBusy) {
  bBusy ? QApplication::setOverrideCursor(Qt::WaitCursor) : QApplication::restoreOverrideCursor();
}

void CQtPlatform::ShowProgress(double dFraction, std::string_view strLabel) {
  if (m_pProgress == nullptr) {
    m_pProgress = std::make_unique<CProgressWindow>(FormDialogFont(m_dFontScale), GetParentWindow());
    m_pProgress->show();
  }
  m_pProgress->Report(dFraction, strLabel);
  QApplication::processEvents();
}

void CQtPlatform::HideProgress() { m_pProgress.reset(); }

}  // namespace skyframe
