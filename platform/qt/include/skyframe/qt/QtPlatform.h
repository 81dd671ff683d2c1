#pragma once

#include <QWidget>
#include <memory>
#include <string_view>

#include "skyframe/platform/WindowPlatform.h"

namespace skyframe {

class CProgressWindow;

/// Runs the module with real windows. Needs a QApplication for the life of the object; used on its thread.
/// Messages and dialogs stand on the innermost open dialog, else on the host's window.
/// The window of the progress takes the mouse and the keyboard.
class CQtPlatform : public CWindowPlatform {
 public:
  /// pHostWindow may be null; else it must outlive the object.
  explicit CQtPlatform(QWidget* pHostWindow = nullptr);
  ~CQtPlatform() override;
  CQtPlatform(const CQtPlatform&) = delete;
  CQtPlatform& operator=(const CQtPlatform&) = delete;

  /// Scale of the font and of the rectangles of the dialogs opened from now on; above 0.
  void SetFontScale(double dScale) { m_dFontScale = dScale; }
  [[nodiscard]] double GetFontScale() const { return m_dFontScale; }

  void ShowMessage(std::string_view strText) override;
  int RunModal(CDialog& dialog) override;

 protected:
  void ShowProgress(double dFraction, std::string_view strText) override;
  void HideProgress() override;
  void SetBusy(bool bBusy) override;

 private:
  [[nodiscard]] QWidget* GetParentWindow() const;

  QWidget* m_pHostWindow;
  double m_dFontScale = 1.0;
  std::unique_ptr<CProgressWindow> m_pProgress;  ///< null while none is shown
};

}  // namespace skyframe
