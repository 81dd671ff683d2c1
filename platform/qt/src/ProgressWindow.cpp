#include "ProgressWindow.h"

#include <algorithm>

#include "skyframe/platform/WindowTexts.h"
#include "skyframe/qt/Font.h"

namespace skyframe {

namespace {

constexpr int c_nSteps = 1000;  // of the bar
constexpr int c_nBarWidth = 320;

}  // namespace

CProgressWindow::CProgressWindow(const QFont& font, QWidget* pParent)
    : QDialog(pParent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint), m_layout(this) {
  setObjectName(QStringLiteral("progress"));
  setWindowTitle(ToQt(windows::texts::c_strBusy));
  setFont(font);
  setModal(true);
  m_label.setTextFormat(Qt::PlainText);
  m_bar.setRange(0, c_nSteps);
  m_bar.setMinimumWidth(c_nBarWidth);
  m_layout.addWidget(&m_label);
  m_layout.addWidget(&m_bar);
}

void CProgressWindow::Report(double dFraction, std::string_view strLabel) {
  m_label.setText(ToQt(strLabel));
  m_bar.setValue(static_cast<int>(std::clamp(dFraction, 0.0, 1.0) * c_nSteps));
}

}  // namespace skyframe
