#include "skyframe/platform/DialogRules.h"

namespace skyframe {

int FindFirstFocus(const DialogTemplate& layout, const IDialogView& view) {
  for (const ControlTemplate& control : layout.controls) {
    if (CanFocus(control.kind) && control.nId != -1 && view.IsEnabled(control.nId)) return control.nId;
  }
  return -1;
}

int FindSortedRow(const ControlTemplate& list, const IDialogView& view, std::string_view strText) {
  const int nCount = view.GetItemCount(list.nId);
  if ((list.nStyle & c_nStyleSorted) == 0) return nCount;
  int nRow = 0;
  while (nRow < nCount && view.GetItemText(list.nId, nRow) <= strText) ++nRow;
  return nRow;
}

}  // namespace skyframe
