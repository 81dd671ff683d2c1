#pragma once

#include <memory>
#include <string_view>
#include <type_traits>

#include "NativeFont.h"
#include "Windows.h"

namespace skyframe {

/// Label and bar of a running step. Nothing in it can be pressed, and it cannot be closed; its owner takes neither
/// mouse nor keyboard meanwhile.
class CNativeProgress {
 public:
  /// The owner may be null.
  explicit CNativeProgress(HWND hOwner);
  ~CNativeProgress();
  CNativeProgress(const CNativeProgress&) = delete;
  CNativeProgress& operator=(const CNativeProgress&) = delete;

  /// Shows the report, and lets every window of the program paint itself.
  void Report(double dFraction, std::string_view strLabel);

 private:
  struct Destroyer {
    void operator()(HWND hWindow) const { DestroyWindow(hWindow); }
  };

  void Show(int nDpi);

  HWND m_hOwner;
  bool m_bOwnerEnabled;
  HWND m_hFocus;  ///< what had it
  std::unique_ptr<std::remove_pointer_t<HWND>, Destroyer> m_window;
  HWND m_hLabel = nullptr;
  HWND m_hBar = nullptr;
  FontHandle m_font;
};

}  // namespace skyframe
