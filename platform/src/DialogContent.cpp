#include "skyframe/platform/DialogContent.h"

#include <algorithm>

namespace skyframe {

namespace {

int FindChecked(const std::vector<int>& radios, const IDialogView& view) {
  const auto it = std::ranges::find_if(radios, [&view](int nId) { return view.GetCheck(nId); });
  return it == radios.end() ? -1 : static_cast<int>(it - radios.begin());
}

int ReadChoice(const DialogTemplate& layout, const ControlTemplate& control, const IDialogView& view) {
  switch (control.kind) {
    case ControlKind::Check:
      return view.GetCheck(control.nId) ? 1 : 0;
    case ControlKind::Radio:
      return FindChecked(layout.GetRadioGroup(control.nId), view);
    case ControlKind::DropList:
      return view.GetCurrent(control.nId);
    default:
      return -1;
  }
}

std::vector<std::vector<std::string>> ReadRows(const ControlTemplate& control, const IDialogView& view) {
  const bool bColumns = control.kind == ControlKind::ListView;
  if (!bColumns && control.kind != ControlKind::ListBox) return {};
  std::vector<std::vector<std::string>> rows(static_cast<std::size_t>(view.GetItemCount(control.nId)));
  for (int nRow = 0; auto& row : rows) {
    row.resize(bColumns ? control.items.size() : 1);
    for (int nColumn = 0; std::string & strCell : row) strCell = view.GetItemText(control.nId, nRow, nColumn++);
    ++nRow;
  }
  return rows;
}

}  // namespace

DialogContent ReadContent(const DialogTemplate& layout, const IDialogView& view) {
  DialogContent content;
  for (const ControlTemplate& control : layout.controls) {
    if (control.nId == -1) continue;
    content[control.nId] = {view.GetText(control.nId), ReadChoice(layout, control, view), ReadRows(control, view),
                            view.IsEnabled(control.nId)};
  }
  return content;
}

}  // namespace skyframe
