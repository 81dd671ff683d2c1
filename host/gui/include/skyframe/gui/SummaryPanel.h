#pragma once

#include <QPlainTextEdit>
#include <string>

namespace skyframe::gui {

/// What the command line would print of the runs: each new one is added and brought into view.
class CSummaryPanel : public QPlainTextEdit {
 public:
  explicit CSummaryPanel(QWidget* pParent = nullptr);

  void AddRun(const std::string& strName, const std::string& strSummary);
};

}  // namespace skyframe::gui
