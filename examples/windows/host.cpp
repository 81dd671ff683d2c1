// A Windows program with the module in it: skyframe-host.exe [JOB.json]
// The five commands in its menu, the dialogs filled in with the job's values, the module's console text, the files that
// were written. A double click opens a file.

#include <algorithm>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef UNICODE
#define UNICODE
#endif
#include <windows.h>
// After it:
#include <commctrl.h>
#include <commdlg.h>
#include <shellapi.h>

#include "skyframe/job/JobFile.h"
#include "skyframe/platform/WideText.h"
#include "skyframe/results/ResultList.h"
#include "skyframe/run/AnalysisRun.h"
#include "skyframe/run/DataDirectory.h"
#include "skyframe/run/PlatformScope.h"
#include "skyframe/run/Session.h"
#include "skyframe/win32/Win32Platform.h"

namespace {

using skyframe::ToUtf8;
using skyframe::ToWide;
using skyframe::host::AnalysisKind;

constexpr wchar_t c_strClass[] = L"SkyframeHost";
constexpr wchar_t c_strProgram[] = L"Skyframe";
constexpr int c_nListWidth = 260;  // pixels of an unscaled screen
constexpr int c_nTextHeight = 15;
constexpr int c_nPlainDpi = 96;
constexpr std::size_t c_nMostConsole = 1U << 20U;  // letters kept of the console text

/// Identifiers of the menu's commands and of the two panes.
enum Id : unsigned { c_nOpen = 100, c_nQuit, c_nModal, c_nSpectrum, c_nTimeHistory, c_nHistories, c_nStatic, c_nFiles };

struct Command {
  unsigned nId;
  const wchar_t* pText;
};
constexpr Command c_analyses[] = {{c_nModal, L"模态分析(&M)"},
                                  {c_nSpectrum, L"反应谱分析(&R)"},
                                  {c_nTimeHistory, L"时程分析(&T)"},
                                  {c_nHistories, L"时程结果(&H)"},
                                  {c_nStatic, L"静力分析(&S)"}};

/// With the line ends that a text field wants.
std::wstring ToLines(std::string_view strText) {
  std::wstring strLines;
  for (const wchar_t c : ToWide(strText)) {
    if (c == L'\n') strLines += L'\r';
    strLines += c;
  }
  return strLines;
}

using FontHandle = std::unique_ptr<std::remove_pointer_t<HFONT>, decltype(&DeleteObject)>;

class CHostWindow {
 public:
  /// The window, shown. Null pointer inside when the system has none left.
  explicit CHostWindow(HINSTANCE hProgram);

  [[nodiscard]] HWND GetWindow() const { return m_hWindow; }
  /// Shows what is wrong when the job cannot be opened; the one before stays then.
  void OpenJob(const std::string& strFile);

 private:
  static LRESULT CALLBACK Process(HWND hWindow, UINT nMessage, WPARAM wParam, LPARAM lParam);
  LRESULT Handle(UINT nMessage, WPARAM wParam, LPARAM lParam);
  void MakeMenu();
  void MakePanes(HINSTANCE hProgram);
  void LayOut();

  void Obey(unsigned nCommand);
  void AskForJob();
  void Analyse(AnalysisKind kind);
  void OpenFile();
  void ShowFiles();
  void Append(std::string_view strText);
  void Complain(const std::string& strText) const;

  HWND m_hWindow = nullptr;
  HWND m_hFiles = nullptr;
  HWND m_hConsole = nullptr;
  FontHandle m_listFont{nullptr, DeleteObject};
  FontHandle m_consoleFont{nullptr, DeleteObject};
  std::unique_ptr<skyframe::CWin32Platform> m_pWindows;
  std::optional<skyframe::host::CSession> m_session;
};

CHostWindow::CHostWindow(HINSTANCE hProgram) {
  WNDCLASSEXW kind = {};
  kind.cbSize = sizeof kind;
  kind.lpfnWndProc = Process;
  kind.hInstance = hProgram;
  kind.hIcon = LoadIconW(hProgram, MAKEINTRESOURCEW(1));
  kind.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  kind.hbrBackground = GetSysColorBrush(COLOR_3DFACE);
  kind.lpszClassName = c_strClass;
  RegisterClassExW(&kind);
  m_hWindow = CreateWindowExW(0, c_strClass, c_strProgram, WS_OVERLAPPEDWINDOW, CW_USEDEFAULT, CW_USEDEFAULT, 900, 600,
                              nullptr, nullptr, hProgram, this);
  if (m_hWindow == nullptr) return;
  MakeMenu();
  MakePanes(hProgram);
  m_pWindows = std::make_unique<skyframe::CWin32Platform>(m_hWindow);
  m_pWindows->SetConsoleSink([this](std::string_view strText) { Append(strText); });
  LayOut();
  ShowWindow(m_hWindow, SW_SHOWDEFAULT);
}

void CHostWindow::MakeMenu() {
  const HMENU hJob = CreatePopupMenu();
  AppendMenuW(hJob, MF_STRING, c_nOpen, L"打开(&O)...");
  AppendMenuW(hJob, MF_STRING, c_nQuit, L"退出(&X)");
  const HMENU hAnalysis = CreatePopupMenu();
  for (const Command& command : c_analyses) AppendMenuW(hAnalysis, MF_STRING | MF_GRAYED, command.nId, command.pText);
  const HMENU hBar = CreateMenu();
  AppendMenuW(hBar, MF_POPUP, reinterpret_cast<UINT_PTR>(hJob), L"作业(&J)");
  AppendMenuW(hBar, MF_POPUP, reinterpret_cast<UINT_PTR>(hAnalysis), L"分析(&A)");
  SetMenu(m_hWindow, hBar);
}

void CHostWindow::MakePanes(HINSTANCE hProgram) {
  const auto make = [this, hProgram](const wchar_t* pClass, DWORD nStyle, unsigned nId) {
    return CreateWindowExW(WS_EX_CLIENTEDGE, pClass, L"", nStyle | WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_TABSTOP, 0,
                           0, 0, 0, m_hWindow, reinterpret_cast<HMENU>(static_cast<UINT_PTR>(nId)), hProgram, nullptr);
  };
  m_hFiles = make(WC_LISTBOXW, LBS_NOTIFY | LBS_NOINTEGRALHEIGHT, c_nFiles);
  m_hConsole = make(WC_EDITW, ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL | ES_AUTOHSCROLL | WS_HSCROLL, 0);
  SendMessageW(m_hConsole, EM_SETLIMITTEXT, 2 * c_nMostConsole, 0);
}

void CHostWindow::LayOut() {
  const int nDpi = static_cast<int>(GetDpiForWindow(m_hWindow));
  NONCLIENTMETRICSW metrics = {};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoForDpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, static_cast<UINT>(nDpi));
  m_listFont.reset(CreateFontIndirectW(&metrics.lfMessageFont));
  SendMessageW(m_hFiles, WM_SETFONT, reinterpret_cast<WPARAM>(m_listFont.get()), TRUE);
  m_consoleFont.reset(CreateFontW(-MulDiv(c_nTextHeight, nDpi, c_nPlainDpi), 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE,
                                  GB2312_CHARSET, 0, 0, CLEARTYPE_QUALITY, FIXED_PITCH | FF_MODERN, L"宋体"));
  SendMessageW(m_hConsole, WM_SETFONT, reinterpret_cast<WPARAM>(m_consoleFont.get()), TRUE);
  RECT client = {};
  GetClientRect(m_hWindow, &client);
  const int nList = MulDiv(c_nListWidth, nDpi, c_nPlainDpi);
  MoveWindow(m_hFiles, 0, 0, nList, client.bottom, TRUE);
  MoveWindow(m_hConsole, nList, 0, client.right - nList, client.bottom, TRUE);
}

LRESULT CALLBACK CHostWindow::Process(HWND hWindow, UINT nMessage, WPARAM wParam, LPARAM lParam) {
  if (nMessage == WM_NCCREATE) {
    auto* const pHost = static_cast<CHostWindow*>(reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpCreateParams);
    pHost->m_hWindow = hWindow;
    SetWindowLongPtrW(hWindow, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(pHost));
  }
  auto* const pHost = reinterpret_cast<CHostWindow*>(GetWindowLongPtrW(hWindow, GWLP_USERDATA));
  return pHost == nullptr ? DefWindowProcW(hWindow, nMessage, wParam, lParam) : pHost->Handle(nMessage, wParam, lParam);
}

LRESULT CHostWindow::Handle(UINT nMessage, WPARAM wParam, LPARAM lParam) {
  if (nMessage == WM_COMMAND) {
    if (HIWORD(wParam) == 0) Obey(LOWORD(wParam));
    if (LOWORD(wParam) == c_nFiles && HIWORD(wParam) == LBN_DBLCLK) OpenFile();
    return 0;
  }
  if (nMessage == WM_SIZE) LayOut();
  if (nMessage == WM_DPICHANGED) {
    const RECT& place = *reinterpret_cast<const RECT*>(lParam);
    SetWindowPos(m_hWindow, nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
  }
  if (nMessage == WM_DESTROY) PostQuitMessage(0);
  return DefWindowProcW(m_hWindow, nMessage, wParam, lParam);
}

void CHostWindow::Obey(unsigned nCommand) {
  switch (nCommand) {
    case c_nOpen:
      return AskForJob();
    case c_nQuit:
      DestroyWindow(m_hWindow);
      return;
    case c_nModal:
      return Analyse(AnalysisKind::Modal);
    case c_nSpectrum:
      return Analyse(AnalysisKind::Spectrum);
    case c_nTimeHistory:
      return Analyse(AnalysisKind::TimeHistory);
    case c_nStatic:
      return Analyse(AnalysisKind::Static);
    case c_nHistories: {
      const skyframe::host::CInstalledPlatform installed(*m_pWindows);
      m_session->ShowHistories();
      return ShowFiles();
    }
    default:
      return;
  }
}

void CHostWindow::AskForJob() {
  wchar_t file[1U << 15U] = {};
  OPENFILENAMEW question = {};
  question.lStructSize = sizeof question;
  question.hwndOwner = m_hWindow;
  question.lpstrFilter = L"作业 (*.json)\0*.json\0";
  question.lpstrFile = file;
  question.nMaxFile = static_cast<DWORD>(std::size(file));
  question.Flags = OFN_FILEMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
  if (GetOpenFileNameW(&question) != FALSE) OpenJob(ToUtf8(file));
}

void CHostWindow::OpenJob(const std::string& strFile) {
  skyframe::host::JobFile job = skyframe::host::ReadJobFile(strFile);
  if (!job.errors.empty()) return Complain(strFile + "\n" + job.errors[0].strPlace + ": " + job.errors[0].strReason);
  auto session = skyframe::host::CSession::Open(std::move(job.job), skyframe::host::GetJobPath(strFile),
                                                skyframe::host::FindDataDirectory());
  if (!session) return Complain("the path of the job file is too long\n" + strFile);
  m_session = std::move(session);
  SetWindowTextW(m_hWindow, (ToWide(strFile) + L" - " + c_strProgram).c_str());
  SetWindowTextW(m_hConsole, L"");
  for (const skyframe::host::JobProblem& warning : job.warnings) {
    Append(warning.strPlace + ": warning: " + warning.strReason + "\n");
  }
  for (const Command& command : c_analyses) EnableMenuItem(GetMenu(m_hWindow), command.nId, MF_ENABLED);
  ShowFiles();
}

void CHostWindow::Analyse(AnalysisKind kind) {
  const auto& analyses = m_session->GetJob().analyses;
  const auto it = std::ranges::find(analyses, kind, skyframe::host::GetKind);
  const auto* const pValues = it == analyses.end() ? nullptr : &*it;
  const skyframe::host::AnalysisRun run =
      skyframe::host::RunInDialogs(*m_session, kind, pValues, *m_pWindows, m_pWindows->GetConsole());
  if (skyframe::host::GetFindings(kind).status == skyframe::RunStatus::Cancelled) return;
  Append(run.report.GetSummary());
  ShowFiles();
}

void CHostWindow::OpenFile() {
  if (!m_session) return;
  const auto nRow = static_cast<std::size_t>(SendMessageW(m_hFiles, LB_GETCURSEL, 0, 0));
  const std::string strJobPath = m_session->GetJobPath();
  const std::vector<std::string> names = skyframe::host::ListResultFiles(strJobPath);
  if (nRow >= names.size()) return ShowFiles();
  const std::string strFile = strJobPath.substr(0, strJobPath.find_last_of("/\\") + 1) + names[nRow];
  ShellExecuteW(m_hWindow, L"open", L"notepad.exe", (L"\"" + ToWide(strFile) + L"\"").c_str(), nullptr, SW_SHOWNORMAL);
}

void CHostWindow::ShowFiles() {
  SendMessageW(m_hFiles, LB_RESETCONTENT, 0, 0);
  for (const std::string& strName : skyframe::host::ListResultFiles(m_session->GetJobPath())) {
    SendMessageW(m_hFiles, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(ToWide(strName).c_str()));
  }
}

void CHostWindow::Append(std::string_view strText) {
  if (static_cast<std::size_t>(GetWindowTextLengthW(m_hConsole)) > c_nMostConsole) SetWindowTextW(m_hConsole, L"");
  SendMessageW(m_hConsole, EM_SETSEL, 2 * c_nMostConsole, static_cast<LPARAM>(2 * c_nMostConsole));
  SendMessageW(m_hConsole, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(ToLines(strText).c_str()));
}

void CHostWindow::Complain(const std::string& strText) const {
  MessageBoxW(m_hWindow, ToWide(strText).c_str(), c_strProgram, MB_OK | MB_ICONWARNING);
}

}  // namespace

int WINAPI WinMain(HINSTANCE hProgram, HINSTANCE /*hPrevious*/, LPSTR /*pArguments*/, int /*nShow*/) {
  CHostWindow host(hProgram);
  if (host.GetWindow() == nullptr) return 1;
  int nArguments = 0;
  wchar_t** const arguments = CommandLineToArgvW(GetCommandLineW(), &nArguments);
  if (nArguments > 1) host.OpenJob(ToUtf8(arguments[1]));
  LocalFree(arguments);
  MSG message = {};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (IsDialogMessageW(host.GetWindow(), &message) != FALSE) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return static_cast<int>(message.wParam);
}
