#pragma once

#include <functional>
#include <map>
#include <ostream>
#include <streambuf>
#include <string>
#include <vector>

#include "skyframe/platform/HeadlessPlatform.h"

namespace skyframe {

/// Hands on what is written line by line, without the ends; a rest at the next flush.
class CLineBuffer : public std::streambuf {
 public:
  using Sink = std::function<void(const std::string&)>;

  explicit CLineBuffer(Sink sink) : m_sink(std::move(sink)) {}

 protected:
  int_type overflow(int_type c) override;
  int sync() override;

 private:
  void HandOn();

  Sink m_sink;
  std::string m_strLine;
};

/// A host's function for texts; null: not told.
struct TextCallback {
  void (*pFunction)(void* pContext, const char* pszText);
  void* pContext;

  void operator()(const std::string& strText) const {
    if (pFunction != nullptr) pFunction(pContext, strText.c_str());
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
  CLineBuffer m_consoleBuffer;
  std::ostream m_console;
  std::map<int, std::vector<DialogStep>> m_steps;
  std::size_t m_nToldErrors = 0;
};

}  // namespace skyframe
