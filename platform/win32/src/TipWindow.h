#pragma once

#include <memory>
#include <string>
#include <type_traits>

#include "Windows.h"

namespace skyframe {

/// Tells what a control of a dialog is for when the mouse rests at it, also at a disabled one.
class CTipWindow {
 public:
  /// hFont must outlive the object, nWidth: pixels of a line.
  CTipWindow(HWND hDialog, HFONT hFont, int nWidth);

  /// A direct child of the dialog.
  void Add(HWND hControl, const std::wstring& strText);

 private:
  struct Destroyer {
    void operator()(HWND hWindow) const { DestroyWindow(hWindow); }
  };

  HWND m_hDialog;
  std::unique_ptr<std::remove_pointer_t<HWND>, Destroyer> m_window;
};

}  // namespace skyframe
