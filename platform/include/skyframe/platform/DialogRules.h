#pragma once

#include <array>
#include <string_view>

#include "skyframe/platform/Dialog.h"
#include "skyframe/platform/PaintContext.h"

namespace skyframe {

// What every view of a dialog does alike, whatever draws its controls.

/// The font of the dialogs: its size, and families with Chinese letters, the first of which that is installed is taken.
inline constexpr double c_dDialogPoints = 10.0;
inline constexpr std::array<std::string_view, 9> c_strDialogFonts = {"宋体",
                                                                     "SimSun",
                                                                     "Noto Sans CJK SC",
                                                                     "Source Han Sans SC",
                                                                     "WenQuanYi Micro Hei",
                                                                     "WenQuanYi Zen Hei",
                                                                     "Microsoft YaHei UI",
                                                                     "PingFang SC",
                                                                     "Noto Sans SC"};

/// Converts dialog units into pixels for one font.
class SKYFRAME_API CDialogUnits {
 public:
  /// The letters whose mean width counts.
  static constexpr std::string_view c_strLetters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";

  /// In pixels: the width of c_strLetters in one line, the height of a line, and of the letters' body.
  CDialogUnits(double dLettersWidth, double dLineHeight, double dBodyHeight);

  [[nodiscard]] DialogRect ToPixels(const DialogRect& rect) const;

 private:
  double m_dX;  ///< pixels a unit
  double m_dY;
};

/// Right and lower end of what a dialog paints itself, in pixels; both 0 when it paints nothing.
[[nodiscard]] SKYFRAME_API PaintPoint MeasurePainting(CDialog& dialog);

/// Dialog units that stay free beside what a dialog paints itself.
inline constexpr int c_nPaintMargin = 10;

/// While it lives, changes of the controls are the program's own: a view counts them and tells the dialog nothing.
class CSilence {
 public:
  explicit CSilence(int& nSilent) : m_nSilent(nSilent) { ++m_nSilent; }
  ~CSilence() { --m_nSilent; }
  CSilence(const CSilence&) = delete;
  CSilence& operator=(const CSilence&) = delete;

 private:
  int& m_nSilent;
};

/// Whether a person can work with a control of this kind.
[[nodiscard]] constexpr bool CanFocus(ControlKind kind) {
  return kind != ControlKind::Label && kind != ControlKind::Group;
}

/// Identifier of the first control in tab order that can take the focus, of radio buttons the checked one; -1 when none
/// can.
[[nodiscard]] SKYFRAME_API int FindFirstFocus(const DialogTemplate& layout, const IDialogView& view);

/// The radio button nSteps, 1 or -1, further in its group that can take the focus, round and round; itself when there
/// is no other.
[[nodiscard]] SKYFRAME_API int FindNextRadio(const DialogTemplate& layout, const IDialogView& view, int nRadioId,
                                             int nSteps);

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
