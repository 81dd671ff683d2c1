#pragma once

#include <QListWidget>

#include "skyframe/advice/Advice.h"

namespace skyframe::gui {

/// What is to be known about the last run, or about a job that was opened: a row each, errors first and in red.
class CAdvicePanel : public QListWidget {
 public:
  explicit CAdvicePanel(QWidget* pParent = nullptr);

  void ShowAdvice(const host::AdviceList& list);
};

}  // namespace skyframe::gui
