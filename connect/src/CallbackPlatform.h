#pragma once

#include <map>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "skyframe/platform/ConsoleBuffer.h"
#include "skyframe/platform/HeadlessPlatform.h"

namespace skyframe {

/// A host's function for texts; null: not told.
struct TextCallback {
  void (*pFunction)(void* pContext, const char* pszText);
  void* pContext;

  void operator()(std::string_view strText) const {
    if (pFunction != nullptr) pFunction(pContext, std::string(strText).c_str());
  }
};

/// Texts go to functions of the host; dialogs are filled in with the steps that were asked for, and ended with OK.
class CCallbackPlatform : public CHeadlessPlatform {
 public:
  CCallbackPlatform(TextCallback message, TextCallback console);

  /// For the next opening of the dialog.
  void AddStep(int nDialog, DialogStep step) { m_steps[nDialog].push_back(std::move(step)); }

  void ShowMessage(std::string_view strText) override;
  int RunModal(CDialog& dialog) override;

 protected:
  void SwitchModule(bool bInside) override;

 private:
  void TellScriptErrors();

  TextCallback m_message;
  CConsoleBuffer m_consoleBuffer;
  std::ostream m_console;
  std::map<int, std::vector<DialogStep>> m_steps;
  std::size_t m_nToldErrors = 0;
};

}  // namespace skyframe
