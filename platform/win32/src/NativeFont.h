#pragma once

#include <memory>
#include <type_traits>

#include "Windows.h"
#include "skyframe/platform/DialogRules.h"

namespace skyframe {

inline constexpr int c_nPlainDpi = 96;  ///< pixels an inch of an unscaled screen

struct GdiDeleter {
  void operator()(HGDIOBJ hObject) const { DeleteObject(hObject); }
};
using FontHandle = std::unique_ptr<std::remove_pointer_t<HFONT>, GdiDeleter>;

/// Chooses an object for drawing, for the life of this one.
class CSelection {
 public:
  CSelection(HDC hDc, HGDIOBJ hObject) : m_hDc(hDc), m_hPrevious(SelectObject(hDc, hObject)) {}
  ~CSelection() { SelectObject(m_hDc, m_hPrevious); }
  CSelection(const CSelection&) = delete;
  CSelection& operator=(const CSelection&) = delete;

 private:
  HDC m_hDc;
  HGDIOBJ m_hPrevious;
};

/// The dialogs' font with letters of a body of so many pixels.
[[nodiscard]] FontHandle MakeFont(int nBodyHeight);
/// The dialogs' font on a screen of so many pixels an inch.
[[nodiscard]] FontHandle MakeDialogFont(int nDpi);
/// Dialog units of a font of MakeDialogFont.
[[nodiscard]] CDialogUnits MeasureUnits(HFONT hFont);

}  // namespace skyframe
