#include "skyframe/platform/DialogRules.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace skyframe {

namespace {

constexpr double c_dMaxHeight = 1.3;  // body heights; fonts for many scripts claim more, which would stretch dialogs

}  // namespace

CDialogUnits::CDialogUnits(double dLettersWidth, double dLineHeight, double dBodyHeight)
    : m_dX(dLettersWidth / static_cast<double>(c_strLetters.size()) / 4.0),
      m_dY(std::min(dLineHeight, c_dMaxHeight * dBodyHeight) / 8.0) {}

DialogRect CDialogUnits::ToPixels(const DialogRect& rect) const {
  const auto pixels = [](int nUnits, double dUnit) { return static_cast<int>(std::lround(nUnits * dUnit)); };
  const int nX = pixels(rect.nX, m_dX);
  const int nY = pixels(rect.nY, m_dY);
  return {nX, nY, pixels(rect.nX + rect.nWidth, m_dX) - nX, pixels(rect.nY + rect.nHeight, m_dY) - nY};
}

PaintPoint MeasurePainting(CDialog& dialog) {
  CPaintRecorder recorder;
  dialog.Paint(recorder);
  PaintPoint end;
  for (const PaintItem& item : recorder.GetItems()) {
    for (const PaintPoint& point : item.points) end = {std::max(end.dX, point.dX), std::max(end.dY, point.dY)};
  }
  return end;
}

int FindFirstFocus(const DialogTemplate& layout, const IDialogView& view) {
  const auto canTake = [&view](const ControlTemplate& control) {
    return CanFocus(control.kind) && control.nId != -1 && view.IsEnabled(control.nId);
  };
  const auto it = std::ranges::find_if(layout.controls, canTake);
  if (it == layout.controls.end()) return -1;
  if (it->kind != ControlKind::Radio) return it->nId;
  for (const int nRadio : layout.GetRadioGroup(layout.GetGroupStart(it->nId))) {
    if (view.GetCheck(nRadio)) return nRadio;
  }
  return it->nId;
}

int FindNextRadio(const DialogTemplate& layout, const IDialogView& view, int nRadioId, int nSteps) {
  std::vector<int> group = layout.GetRadioGroup(layout.GetGroupStart(nRadioId));
  if (nSteps < 0) std::ranges::reverse(group);
  std::rotate(group.begin(), std::ranges::find(group, nRadioId) + 1, group.end());  // its followers, itself the last
  return *std::ranges::find_if(group, [&](int nId) { return nId == nRadioId || view.IsEnabled(nId); });
}

int FindSortedRow(const ControlTemplate& list, const IDialogView& view, std::string_view strText) {
  const int nCount = view.GetItemCount(list.nId);
  if ((list.nStyle & c_nStyleSorted) == 0) return nCount;
  int nRow = 0;
  while (nRow < nCount && view.GetItemText(list.nId, nRow) <= strText) ++nRow;
  return nRow;
}

}  // namespace skyframe
