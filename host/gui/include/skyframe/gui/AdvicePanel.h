#pragma once

#include <QListWidget>
#include <functional>

#include "skyframe/advice/Advice.h"
#include "skyframe/gui/Document.h"

namespace skyframe::gui {

/// What is to be known about the last run, a job that was opened or its report: a row each, errors first and in red.
class CAdvicePanel : public QListWidget {
 public:
  /// The document must outlive the panel.
  explicit CAdvicePanel(CDocument& document, QWidget* pParent = nullptr);

  /// Of what is said in the language in force: now, and again in the other one.
  void ShowAdvice(std::function<host::AdviceList()> say);

 private:
  void Fill();

  std::function<host::AdviceList()> m_say;
};

}  // namespace skyframe::gui
