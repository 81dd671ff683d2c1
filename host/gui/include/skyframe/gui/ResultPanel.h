#pragma once

#include <QListWidget>
#include <QPlainTextEdit>
#include <QSplitter>
#include <string>

namespace skyframe::gui {

/// The result files beside a job file, and the text of the one chosen.
class CResultPanel : public QSplitter {
 public:
  explicit CResultPanel(QWidget* pParent = nullptr);

  /// Result files are those whose path is the job's plus a suffix; empty: none.
  void SetJobPath(const std::string& strJobPath);
  /// Looks at the directory again and keeps the choice.
  void Refresh();
  /// Of the file's text, in points.
  void SetTextSize(double dPoints);

 private:
  void ShowFile();

  std::string m_strJobPath;
  QListWidget m_list;
  QPlainTextEdit m_text;
};

}  // namespace skyframe::gui
