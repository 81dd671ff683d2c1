#pragma once

#include <QDialog>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>
#include <string_view>

namespace skyframe {

/// Label and bar of a running step. Nothing in it can be pressed, and it cannot be closed.
class CProgressWindow : public QDialog {
 public:
  CProgressWindow(const QFont& font, QWidget* pParent);

  void Report(double dFraction, std::string_view strLabel);
  void reject() override {}

 private:
  QVBoxLayout m_layout;
  QLabel m_label;
  QProgressBar m_bar;
};

}  // namespace skyframe
