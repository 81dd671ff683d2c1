#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <ostream>
#include <string_view>

#include "skyframe/platform/Platform.h"
#include "skyframe/platform/ProgressPace.h"

namespace skyframe {

class CConsoleBuffer;
class CProgressWindow;

/// Runs the module with real windows. Needs a QApplication for the life of the object; used on its thread.
/// Messages and dialogs stand on the innermost open dialog, else on the host's window.
/// No analysis can be cancelled: a step that takes long shows its progress in a window without
/// buttons, which takes the mouse and the keyboard until the step is over.
class CQtPlatform : public IPlatform {
 public:
  /// Gets pieces of the console text, each whole lines except when the module flushes within one.
  using ConsoleSink = std::function<void(std::string_view)>;

  /// pHostWindow may be null; else it must outlive the object.
  explicit CQtPlatform(QWidget* pHostWindow = nullptr);
  ~CQtPlatform() override;
  CQtPlatform(const CQtPlatform&) = delete;
  CQtPlatform& operator=(const CQtPlatform&) = delete;

  /// Without a sink the console text goes to standard output.
  void SetConsoleSink(ConsoleSink sink);
  /// Scale of the font and of the rectangles of the dialogs opened from now on; above 0.
  void SetFontScale(double dScale) { m_dFontScale = dScale; }
  [[nodiscard]] double GetFontScale() const { return m_dFontScale; }
  /// A step shows its progress from the first report after this time on.
  void SetProgressDelay(std::chrono::milliseconds delay) { m_pace.SetDelay(delay); }

  void ShowMessage(std::string_view strText) override;
  int RunModal(CDialog& dialog) override;
  std::ostream& GetConsole() override;
  LocalTime GetLocalTime() override;
  void ReportProgress(double dFraction, std::string_view strLabel) override;

 protected:
  void SetBusy(bool bBusy) override;
  /// Leaving: nothing of the call stays on the screen, and its console text is out.
  void SwitchModule(bool bInside) override;

 private:
  [[nodiscard]] QWidget* GetParentWindow() const;
  void CloseProgress();

  QWidget* m_pHostWindow;
  double m_dFontScale = 1.0;
  std::unique_ptr<CConsoleBuffer> m_pConsoleBuffer;
  std::unique_ptr<std::ostream> m_pConsole;
  std::unique_ptr<CProgressWindow> m_pProgress;  ///< null while none is shown
  CProgressPace m_pace;
};

}  // namespace skyframe
