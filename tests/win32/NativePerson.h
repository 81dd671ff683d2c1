#pragma once

#include <chrono>
#include <map>
#include <string>
#include <vector>

#include "NativeDialog.h"
#include "Person.h"
#include "skyframe/win32/Win32Platform.h"

namespace skyframe::test {

/// The person at native windows: posts what mouse and keyboard post.
class CNativePerson final : public IPerson {
 public:
  CNativePerson();
  ~CNativePerson() override;

  void Watch(const std::function<void()>& action) override;
  void Press(Key key) override;
  std::string ReadTip(int nControl) const override;
  CWindowPlatform& GetWindows() override { return m_platform; }

 private:
  struct Work {
    std::vector<DialogStep> steps;
    size_t nNext = 0;
    std::chrono::steady_clock::time_point wakeUp;
  };

  static void CALLBACK OnTimer(HWND hWindow, UINT nMessage, UINT_PTR nTimer, DWORD nTime);
  void Look();
  void Acknowledge(HWND hBox);
  void WorkOn(CNativeDialog& window);
  void Perform(CNativeDialog& window, const DialogStep& step);
  /// Empty when the step can be done.
  [[nodiscard]] static std::string WhyNot(const CNativeDialog& window, const DialogStep& step);

  CWin32Platform m_platform;
  IPlatform* m_pPrevious;
  std::map<HWND, Work> m_open;
  HWND m_hAcknowledged = nullptr;
};

}  // namespace skyframe::test
