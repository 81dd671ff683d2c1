#pragma once

#include <QTreeWidget>

#include "skyframe/host/Advice.h"

namespace skyframe::gui {

/// What is to be known about the last run: a row each, errors first in red.
class CAdvicePanel : public QTreeWidget {
 public:
  explicit CAdvicePanel(QWidget* pParent = nullptr);

  void ShowAdvice(const host::AdviceList& list);
};

}  // namespace skyframe::gui
