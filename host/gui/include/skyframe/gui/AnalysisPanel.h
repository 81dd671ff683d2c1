#pragma once

#include <QListWidget>
#include <functional>

#include "skyframe/gui/Document.h"

namespace skyframe::gui {

/// The job's analyses in order with the state of their results. A double click runs one, Delete takes it out.
class CAnalysisPanel : public QListWidget {
 public:
  /// The document must outlive the panel. run: by index.
  CAnalysisPanel(CDocument& document, std::function<void(std::size_t)> run, QWidget* pParent = nullptr);

 private:
  void Fill();
  void RemoveCurrent();

  CDocument& m_document;
};

}  // namespace skyframe::gui
