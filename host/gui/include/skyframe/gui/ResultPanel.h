#pragma once

#include <QListWidget>
#include <QPlainTextEdit>
#include <QSplitter>
#include <QStringDecoder>
#include <istream>
#include <memory>

#include "skyframe/gui/Document.h"

namespace skyframe::gui {

/// The result files beside the job file, and the text of the one chosen: more of it is read when its end comes into
/// view.
class CResultPanel : public QSplitter {
 public:
  /// The document must outlive the panel.
  explicit CResultPanel(CDocument& document, QWidget* pParent = nullptr);

  /// Of the file's text, in points.
  void SetTextSize(double dPoints);

 private:
  /// Looks at the folder again and keeps the choice.
  void Refresh();
  void ShowFile();
  void ReadMore();

  CDocument& m_document;
  QListWidget m_list;
  QPlainTextEdit m_text;
  std::unique_ptr<std::istream> m_pStream;  ///< of the file shown, where the text ends; null: nothing more
  QStringDecoder m_decoder;
};

}  // namespace skyframe::gui
