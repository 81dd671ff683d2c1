#pragma once

#include <QPlainTextEdit>
#include <functional>
#include <string>
#include <vector>

#include "skyframe/gui/Document.h"

namespace skyframe::gui {

/// What the command line would print of the runs: each new one is added and brought into view.
class CSummaryPanel : public QPlainTextEdit {
 public:
  /// The document must outlive the panel.
  explicit CSummaryPanel(CDocument& document, QWidget* pParent = nullptr);

  /// Says the run now, and again in the other language.
  void AddRun(std::function<std::string()> say);
  void ForgetRuns();

 private:
  void Print(const std::string& strText);

  std::vector<std::function<std::string()>> m_runs;
};

}  // namespace skyframe::gui
