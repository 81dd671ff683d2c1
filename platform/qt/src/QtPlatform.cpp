#include "skyframe/qt/QtPlatform.h"

#include <QApplication>
#include <QEventLoop>
#include <QFontMetrics>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <chrono>

#include "ProgressWindow.h"
#include "skyframe/platform/WindowTexts.h"
#include "skyframe/qt/DialogWindow.h"
#include "skyframe/qt/Font.h"

namespace skyframe {

namespace {

/// What a closed window covered is painted, and no input taken. The screen asks for it a moment after the closing.
void PaintWindows() {
  constexpr std::chrono::milliseconds c_moment{50};
  QEventLoop loop;
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, &loop, &QEventLoop::quit);
  timer.start(c_moment);
  loop.exec(QEventLoop::ExcludeUserInputEvents);
}

/// The title stands between the icon and the buttons of the frame.
void KeepTitleWhole(QMessageBox& box) {
  constexpr int c_nFrameParts = 8;  // lines of text high, each as wide
  const QFontMetrics metrics(box.font());
  auto* const pText = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
  if (pText == nullptr) return;
  pText->setMinimumWidth(metrics.horizontalAdvance(box.windowTitle()) + c_nFrameParts * metrics.height());
}

}  // namespace

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
  KeepTitleWhole(box);
  box.button(QMessageBox::Ok)->setText(ToQt(windows::texts::c_strAcknowledge));
  box.exec();
}

int CQtPlatform::RunModal(CDialog& dialog) {
  Settle();
  const COrdinaryCursor cursor(*this);
  CDialogWindow window(dialog, m_dFontScale, GetParentWindow(), GetTipLanguage());
  return window.Run();
}

void CQtPlatform::SetBusy(bool bBusy) {
  if (!bBusy) return QApplication::restoreOverrideCursor();
  QApplication::setOverrideCursor(Qt::WaitCursor);
  PaintWindows();
}

void CQtPlatform::ShowProgress(double dFraction, std::string_view strText) {
  if (m_pProgress == nullptr) {
    m_pProgress = std::make_unique<CProgressWindow>(FormDialogFont(m_dFontScale), GetParentWindow());
    m_pProgress->show();
  }
  m_pProgress->Report(dFraction, strText);
  QApplication::processEvents();
}

void CQtPlatform::HideProgress() { m_pProgress.reset(); }

}  // namespace skyframe
