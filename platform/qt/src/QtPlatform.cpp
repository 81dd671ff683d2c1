#include "skyframe/qt/QtPlatform.h"

#include <QApplication>
#include <QDateTime>
#include <QMessageBox>
#include <QPushButton>
#include <iostream>
#include <utility>

#include "ProgressWindow.h"
#include "skyframe/platform/ConsoleBuffer.h"
#include "skyframe/platform/WindowTexts.h"
#include "skyframe/qt/DialogWindow.h"
#include "skyframe/qt/Font.h"

namespace skyframe {

namespace {

void WriteToStandardOutput(std::string_view strText) { std::cout << strText << std::flush; }

/// The ordinary cursor for the life of the object, whatever waits behind a window.
class COrdinaryCursor {
 public:
  explicit COrdinaryCursor(const IPlatform& platform) : m_bWaiting(platform.GetWaitCursorDepth() > 0) {
    if (m_bWaiting) QApplication::restoreOverrideCursor();
  }
  ~COrdinaryCursor() {
    if (m_bWaiting) QApplication::setOverrideCursor(Qt::WaitCursor);
  }
  COrdinaryCursor(const COrdinaryCursor&) = delete;
  COrdinaryCursor& operator=(const COrdinaryCursor&) = delete;

 private:
  bool m_bWaiting;
};

}  // namespace

CQtPlatform::CQtPlatform(QWidget* pHostWindow)
    : m_pHostWindow(pHostWindow),
      m_pConsoleBuffer(std::make_unique<CConsoleBuffer>(WriteToStandardOutput)),
      m_pConsole(std::make_unique<std::ostream>(m_pConsoleBuffer.get())) {}

CQtPlatform::~CQtPlatform() {
  if (GetWaitCursorDepth() > 0) QApplication::restoreOverrideCursor();
}

void CQtPlatform::SetConsoleSink(ConsoleSink sink) {
  m_pConsoleBuffer->SetSink(sink ? std::move(sink) : ConsoleSink(WriteToStandardOutput));
}

QWidget* CQtPlatform::GetParentWindow() const {
  QWidget* const pModal = QApplication::activeModalWidget();
  return pModal != nullptr ? pModal : m_pHostWindow;
}

void CQtPlatform::ShowMessage(std::string_view strText) {
  CloseProgress();
  m_pConsole->flush();
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
  CloseProgress();
  m_pConsole->flush();
  const COrdinaryCursor cursor(*this);
  CDialogWindow window(dialog, m_dFontScale, GetParentWindow());
  return window.Run();
}

void CQtPlatform::SetBusy(bool bBusy) {
  bBusy ? QApplication::setOverrideCursor(Qt::WaitCursor) : QApplication::restoreOverrideCursor();
}

std::ostream& CQtPlatform::GetConsole() { return *m_pConsole; }

LocalTime CQtPlatform::GetLocalTime() {
  const QDateTime now = QDateTime::currentDateTime();
  const QDate date = now.date();
  const QTime time = now.time();
  return {date.year(), date.month(), date.day(), time.hour(), time.minute(), time.second()};
}

void CQtPlatform::ReportProgress(double dFraction, std::string_view strLabel) {
  const CProgressPace::Verdict verdict = m_pace.Judge(dFraction);
  if (verdict == CProgressPace::Verdict::Hide) CloseProgress();
  if (verdict != CProgressPace::Verdict::Show) return;
  m_pConsole->flush();
  if (m_pProgress == nullptr) {
    m_pProgress = std::make_unique<CProgressWindow>(FormDialogFont(m_dFontScale), GetParentWindow());
    m_pProgress->show();
  }
  m_pProgress->Report(dFraction, strLabel);
  QApplication::processEvents();
}

void CQtPlatform::CloseProgress() {
  m_pace.EndStep();
  m_pProgress.reset();
}

void CQtPlatform::SwitchModule(bool bInside) {
  if (bInside) return;
  CloseProgress();
  m_pConsole->flush();
}

}  // namespace skyframe
