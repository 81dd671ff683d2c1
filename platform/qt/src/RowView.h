#pragma once

#include <QAbstractItemView>
#include <QFocusEvent>
#include <QMouseEvent>
#include <functional>

namespace skyframe {

/// A list or tree view with the habits of a dialog's list: every left click on a row counts, also on
/// the one already selected; dragging selects nothing; the focus alone makes no row current.
template <class Base>
class CRowView : public Base {
 public:
  using Base::Base;

  std::function<void(QMouseEvent*, const std::function<void()>&)> m_onClick;  ///< gets the default processing

 protected:
  void mousePressEvent(QMouseEvent* pEvent) override {
    if (pEvent->button() != Qt::LeftButton) return;
    if (!this->indexAt(pEvent->position().toPoint()).isValid()) return;
    m_onClick(pEvent, [this, pEvent] { Base::mousePressEvent(pEvent); });
  }
  void mouseMoveEvent(QMouseEvent* pEvent) override { pEvent->accept(); }
  void focusInEvent(QFocusEvent* /*pEvent*/) override { this->viewport()->update(); }
};

}  // namespace skyframe
