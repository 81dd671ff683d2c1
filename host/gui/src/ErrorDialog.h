#pragma once

#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <string>
#include <vector>

#include "skyframe/job/JobFile.h"

namespace skyframe::gui {

/// What is wrong with a job file, and where.
class CErrorDialog : public QDialog {
 public:
  CErrorDialog(const QString& strFile, const std::vector<host::JobProblem>& errors, QWidget* pParent);

 private:
  QVBoxLayout m_layout;
  QLabel m_heading;
  QTreeWidget m_list;
  QLabel m_consequence;
  QDialogButtonBox m_buttons;
};

}  // namespace skyframe::gui
