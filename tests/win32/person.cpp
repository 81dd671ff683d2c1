// person PROGRAM ARGUMENT...: starts a program and sits at its windows. Every dialog and message is left with OK as it
// opens; in the example host's window the five commands of the menu are given one after another, then it is closed.
// The exit status is the program's; 99 when it did not end in time.

#include <process.h>
#include <windows.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

namespace {

constexpr unsigned c_nFirstCommand = 102, c_nLastCommand = 106;  // of the host's menu
constexpr DWORD c_nLongest = 180000, c_nPause = 50;              // ms
constexpr unsigned c_nCalmLooks = 4;                             // without a dialog, after which the command is over

struct Windows {
  DWORD nProcess = 0;
  std::set<HWND> dialogs;  ///< that can be left with OK
  HWND hHost = nullptr;
};

BOOL CALLBACK Sort(HWND hWindow, LPARAM lParam) {
  auto& found = *reinterpret_cast<Windows*>(lParam);
  DWORD nProcess = 0;
  GetWindowThreadProcessId(hWindow, &nProcess);
  if (nProcess != found.nProcess || IsWindowVisible(hWindow) == FALSE || IsWindowEnabled(hWindow) == FALSE) return TRUE;
  wchar_t name[64] = {};
  GetClassNameW(hWindow, name, 64);
  if (lstrcmpW(name, L"SkyframeHost") == 0) found.hHost = hWindow;
  if (lstrcmpW(name, L"#32770") == 0 && GetDlgItem(hWindow, IDOK) != nullptr) found.dialogs.insert(hWindow);
  return TRUE;
}

class CPerson {
 public:
  explicit CPerson(HANDLE hProgram) : m_nProcess(GetProcessId(hProgram)) {}

  void Look() {
    Windows found;
    found.nProcess = m_nProcess;
    EnumWindows(Sort, reinterpret_cast<LPARAM>(&found));
    for (const HWND hDialog : found.dialogs) {
      if (!m_left.contains(hDialog)) PostMessageW(hDialog, WM_COMMAND, IDOK, 0);
    }
    m_left = found.dialogs;
    if (!found.dialogs.empty() || found.hHost == nullptr) {
      m_nCalm = 0;
      return;
    }
    SendMessageW(found.hHost, WM_NULL, 0, 0);  // answered when the program does not compute
    if (++m_nCalm < c_nCalmLooks) return;
    m_nCalm = 0;
    m_nCommand <= c_nLastCommand ? PostMessageW(found.hHost, WM_COMMAND, m_nCommand, 0)
                                 : PostMessageW(found.hHost, WM_CLOSE, 0, 0);
    ++m_nCommand;
  }

 private:
  DWORD m_nProcess;
  std::set<HWND> m_left;
  unsigned m_nCalm = 0;
  unsigned m_nCommand = c_nFirstCommand;
};

}  // namespace

int wmain(int nArguments, wchar_t** arguments) {
  if (nArguments < 2) return 98;
  const auto nHandle = _wspawnv(_P_NOWAIT, arguments[1], arguments + 1);
  if (nHandle == -1) return 97;
  const auto hProgram = reinterpret_cast<HANDLE>(nHandle);
  CPerson person(hProgram);
  const DWORD nStart = GetTickCount();
  while (WaitForSingleObject(hProgram, c_nPause) == WAIT_TIMEOUT) {
    if (GetTickCount() - nStart > c_nLongest) return TerminateProcess(hProgram, 1), 99;
    person.Look();
  }
  DWORD nStatus = 0;
  GetExitCodeProcess(hProgram, &nStatus);
  return static_cast<int>(nStatus);
}
