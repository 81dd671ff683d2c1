#pragma once

#include <QGroupBox>

namespace skyframe {

/// A group whose title interrupts the upper line of its frame, as the templates' rectangles expect.
class CGroupFrame : public QGroupBox {
 public:
  using QGroupBox::QGroupBox;

 protected:
  void paintEvent(QPaintEvent* pEvent) override;
};

}  // namespace skyframe
