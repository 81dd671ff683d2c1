#include "skyframe/platform/DialogStep.h"

#include <utility>

#include "skyframe/platform/Dialog.h"
#include "texts.h"

namespace skyframe {

namespace {

using Action = DialogStep::Action;

bool IsButton(ControlKind kind) { return kind == ControlKind::Button || kind == ControlKind::DefaultButton; }

bool IsList(ControlKind kind) { return kind == ControlKind::ListBox || kind == ControlKind::ListView; }

bool CanPerform(Action action, ControlKind kind) {
  switch (action) {
    case Action::Type:
      return kind == ControlKind::Edit;
    case Action::Tick:
      return kind == ControlKind::Check;
    case Action::Choose:
      return kind == ControlKind::Radio || kind == ControlKind::DropList;
    case Action::ToggleRow:
    case Action::DoubleClick:
      return IsList(kind);
    case Action::Click:
      return IsButton(kind) || kind == ControlKind::Check || kind == ControlKind::Radio;
    case Action::Wait:
    case Action::Inspect:
    case Action::Draw:
      break;
  }
  return false;
}

/// Changes of the view raise no event: the dialog is told of each.
class CPerformer {
 public:
  CPerformer(CDialog& dialog, IDialogView& view, const DialogStep& step, const ControlTemplate& control)
      : m_dialog(dialog), m_view(view), m_step(step), m_control(control), m_nId(control.nId), m_nRow(FindRow()) {}

  [[nodiscard]] std::string_view WhyUnusable() const {
    if (!CanPerform(m_step.action, m_control.kind)) return texts::c_strWrongKind;
    if (!m_view.IsEnabled(m_nId)) return texts::c_strDisabled;
    const bool bNeedsRow = m_control.kind == ControlKind::DropList || IsList(m_control.kind);
    return bNeedsRow && m_nRow == -1 ? texts::c_strNoRow : std::string_view{};
  }

  void Act() {
    m_view.SetFocus(m_nId);
    if (m_step.action == Action::Type) {
      TypeText();
    } else if (m_control.kind == ControlKind::DropList) {
      ChooseItem();
    } else if (IsList(m_control.kind)) {
      ClickRow();
      if (m_step.action == Action::DoubleClick) Tell(DialogEvent::DoubleClicked);
    } else if (m_step.action != Action::Tick || m_view.GetCheck(m_nId) != m_step.bOn) {
      ClickButton();
    }
  }

 private:
  /// -1: there is none.
  [[nodiscard]] int FindRow() const {
    const int nCount = m_view.GetItemCount(m_nId);
    if (m_step.nRow >= 0 && m_step.nRow < nCount) return m_step.nRow;
    for (int nRow = 0; m_step.nRow == -1 && nRow < nCount; ++nRow) {
      if (m_view.GetItemText(m_nId, nRow) == m_step.strText) return nRow;
    }
    return -1;
  }

  void TypeText() {
    m_view.SetText(m_nId, m_step.strText);
    Tell(DialogEvent::TextChanged);
  }

  void ChooseItem() {
    m_view.SetCurrent(m_nId, m_nRow);
    Tell(DialogEvent::SelectionChanged);
  }

  void ClickRow() {
    const bool bMultiple = (m_control.nStyle & c_nStyleMultiple) != 0;
    m_view.Select(m_nId, m_nRow, !bMultiple || !m_view.IsSelected(m_nId, m_nRow));
    m_view.SetCurrent(m_nId, m_nRow);
    Tell(DialogEvent::SelectionChanged);
  }

  void ClickButton() {
    if (m_control.kind == ControlKind::Radio) m_view.SetCheck(m_nId, true);
    if (m_control.kind == ControlKind::Check) m_view.SetCheck(m_nId, !m_view.GetCheck(m_nId));
    Tell(DialogEvent::Clicked);
  }

  void Tell(DialogEvent event) { m_dialog.Notify(m_nId, event); }

  CDialog& m_dialog;
  IDialogView& m_view;
  const DialogStep& m_step;
  const ControlTemplate& m_control;
  int m_nId;
  int m_nRow;
};

}  // namespace

bool DialogStep::IsClosing() const { return action == Action::Click && (nId == c_nIdOk || nId == c_nIdCancel); }

DialogStep DialogStep::Type(int nId, std::string strText) {
  return {.action = Action::Type, .nId = nId, .strText = std::move(strText), .look = {}};
}

DialogStep DialogStep::Tick(int nId, bool bOn) {
  return {.action = Action::Tick, .nId = nId, .strText = {}, .bOn = bOn, .look = {}};
}

DialogStep DialogStep::Choose(int nRadioId) {
  return {.action = Action::Choose, .nId = nRadioId, .strText = {}, .look = {}};
}

DialogStep DialogStep::ChooseItem(int nListId, int nRow) {
  return {.action = Action::Choose, .nId = nListId, .strText = {}, .nRow = nRow, .look = {}};
}

DialogStep DialogStep::ChooseItem(int nListId, std::string strText) {
  return {.action = Action::Choose, .nId = nListId, .strText = std::move(strText), .look = {}};
}

DialogStep DialogStep::ToggleRow(int nListId, int nRow) {
  return {.action = Action::ToggleRow, .nId = nListId, .strText = {}, .nRow = nRow, .look = {}};
}

DialogStep DialogStep::ToggleRow(int nListId, std::string strText) {
  return {.action = Action::ToggleRow, .nId = nListId, .strText = std::move(strText), .look = {}};
}

DialogStep DialogStep::DoubleClick(int nListId, int nRow) {
  return {.action = Action::DoubleClick, .nId = nListId, .strText = {}, .nRow = nRow, .look = {}};
}

DialogStep DialogStep::Click(int nButtonId) {
  return {.action = Action::Click, .nId = nButtonId, .strText = {}, .look = {}};
}

DialogStep DialogStep::Ok() { return Click(c_nIdOk); }

DialogStep DialogStep::Cancel() { return Click(c_nIdCancel); }

DialogStep DialogStep::Wait(int nMilliseconds) {
  return {.action = Action::Wait, .strText = {}, .nRow = nMilliseconds, .look = {}};
}

DialogStep DialogStep::Inspect(std::function<void(const IDialogView&)> look) {
  return {.action = Action::Inspect, .strText = {}, .look = std::move(look)};
}

DialogStep DialogStep::Draw(IPaintContext& paint) {
  return {.action = Action::Draw, .strText = {}, .look = {}, .pPaint = &paint};
}

std::string_view PerformStep(CDialog& dialog, IDialogView& view, const DialogStep& step) {
  if (step.action == Action::Inspect) {
    step.look(view);
    return {};
  }
  if (step.action == Action::Draw) {
    dialog.Paint(*step.pPaint);
    return {};
  }
  const ControlTemplate* const pControl = step.nId == -1 ? nullptr : dialog.GetTemplate().Find(step.nId);
  if (pControl == nullptr) return texts::c_strNoControl;
  CPerformer performer(dialog, view, step, *pControl);
  if (const std::string_view strReason = performer.WhyUnusable(); !strReason.empty()) return strReason;
  performer.Act();
  return {};
}

}  // namespace skyframe
