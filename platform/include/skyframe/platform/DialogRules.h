#pragma once

#include <string_view>

#include "skyframe/platform/Dialog.h"

namespace skyframe {

// What every view of a dialog does alike, whatever draws its controls.

/// Whether a person can work with a control of this kind.
[[nodiscard]] constexpr bool CanFocus(ControlKind kind) {
  return kind != ControlKind::Label && kind != ControlKind::Group;
}

/// Identifier of the first control in tab order that can take the focus; -1 when none can.
[[nodiscard]] SKYFRAME_API int FindFirstFocus(const DialogTemplate& layout, const IDialogView& view);

/// Row at which AddItem puts a text: in a sorted list before the first greater item, else at the end.
[[nodiscard]] SKYFRAME_API int FindSortedRow(const ControlTemplate& list, const IDialogView& view,
                                             std::string_view strText);

/// The current row, -1 for none, after a row was inserted at nRow.
[[nodiscard]] constexpr int CurrentAfterInsert(int nCurrent, int nRow) {
  return nCurrent >= nRow ? nCurrent + 1 : nCurrent;
}

/// The current row, -1 for none, after the row nRow was deleted; with it goes the current row.
[[nodiscard]] constexpr int CurrentAfterDelete(int nCurrent, int nRow) {
  if (nCurrent == nRow) return -1;
  return nCurrent > nRow ? nCurrent - 1 : nCurrent;
}

}  // namespace skyframe
