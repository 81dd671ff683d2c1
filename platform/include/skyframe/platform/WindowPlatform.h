#pragma once

#include <chrono>
#include <ostream>
#include <string_view>

#include "skyframe/platform/ConsoleBuffer.h"
#include "skyframe/platform/Dialog.h"
#include "skyframe/platform/Platform.h"
#include "skyframe/platform/ProgressPace.h"
#include "skyframe/values/Export.h"

namespace skyframe {

/// What platforms with windows do alike. No analysis can be cancelled: work that takes long shows its progress in a
/// window without buttons until it is over.
class SKYFRAME_API CWindowPlatform : public IPlatform {
 public:
  /// Gets pieces of the console text in UTF-8, each whole lines except when the module flushes within one.
  using ConsoleSink = CConsoleBuffer::Sink;

  CWindowPlatform(const CWindowPlatform&) = delete;
  CWindowPlatform& operator=(const CWindowPlatform&) = delete;

  /// Without a sink the console text goes to standard output, if the program has one.
  void SetConsoleSink(ConsoleSink sink);
  /// Work shows its progress from the first report after this time on.
  void SetProgressDelay(std::chrono::milliseconds delay) { m_pace.SetDelay(delay); }

  /// Of the tips on the controls of dialogs opened from now on; Chinese, as the dialogs are, unless set.
  void SetTipLanguage(TipLanguage language) { m_tipLanguage = language; }
  [[nodiscard]] TipLanguage GetTipLanguage() const { return m_tipLanguage; }

  std::ostream& GetConsole() override { return m_strmConsole; }
  void ReportProgress(double dFraction, std::string_view strLabel) override;

 protected:
  CWindowPlatform();

  /// The ordinary cursor for the life of the object, whatever waits behind a window.
  class SKYFRAME_API COrdinaryCursor {
   public:
    explicit COrdinaryCursor(CWindowPlatform& platform);
    ~COrdinaryCursor();
    COrdinaryCursor(const COrdinaryCursor&) = delete;
    COrdinaryCursor& operator=(const COrdinaryCursor&) = delete;

   private:
    CWindowPlatform& m_platform;
    bool m_bWaiting;  ///< behind it, and no other window has the ordinary cursor yet
  };

  /// Opens the window at the first report of the work; every window of the program paints itself.
  virtual void ShowProgress(double dFraction, std::string_view strText) = 0;
  /// Closes it if it is open.
  virtual void HideProgress() = 0;
  /// Before another window opens: no progress over it, and the console text is out.
  void Settle();
  /// Leaving: nothing of the call stays on the screen, and its console text is out.
  void SwitchModule(bool bInside) override;

 private:
  CConsoleBuffer m_consoleBuffer;
  std::ostream m_strmConsole;
  CProgressPace m_pace;
  int m_nOrdinaryCursors = 0;
  TipLanguage m_tipLanguage = TipLanguage::Chinese;
};

}  // namespace skyframe
