#ifdef _WIN32

#define NOMINMAX
#include <windows.h>

#include <system_error>

#include "skyframe/platform/ChildProcesses.h"
#include "skyframe/platform/Platform.h"
#include "skyframe/platform/WideText.h"

namespace skyframe {

namespace {

/// Closed with the object.
class CHandle {
 public:
  explicit CHandle(void* p) : m_p(p == INVALID_HANDLE_VALUE ? nullptr : p) {}
  ~CHandle() {
    if (m_p != nullptr) CloseHandle(m_p);
  }
  CHandle(CHandle&& other) noexcept : m_p(other.m_p) { other.m_p = nullptr; }
  CHandle& operator=(CHandle&& other) noexcept {
    std::swap(m_p, other.m_p);
    return *this;
  }
  CHandle(const CHandle&) = delete;
  CHandle& operator=(const CHandle&) = delete;

  [[nodiscard]] void* Get() const { return m_p; }

 private:
  void* m_p;
};

/// A file that new processes have too.
CHandle OpenToInherit(const std::wstring& strPath, DWORD nAccess, DWORD nWay) {
  SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
  return CHandle(
      CreateFileW(strPath.c_str(), nAccess, FILE_SHARE_READ, &inherited, nWay, FILE_ATTRIBUTE_NORMAL, nullptr));
}

/// The word as a program finds it again in its command line: in quotes, where backslashes before a quote count double.
std::wstring Quote(const std::wstring& strWord) {
  std::wstring strQuoted = L"\"";
  std::size_t nBackslashes = 0;
  for (const wchar_t c : strWord) {
    if (c == L'"') strQuoted.append(nBackslashes + 1, L'\\');
    nBackslashes = c == L'\\' ? nBackslashes + 1 : 0;
    strQuoted += c;
  }
  return strQuoted.append(nBackslashes, L'\\') + L'"';
}

std::string DescribeFailure() { return std::system_category().message(static_cast<int>(GetLastError())); }

}  // namespace

/// The children belong to a job of the system that ends them when its last handle is closed.
class CChildProcesses::CSystem {
 public:
  CSystem() {
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits = {};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    SetInformationJobObject(m_job.Get(), JobObjectExtendedLimitInformation, &limits, sizeof limits);
  }

  int Start(const std::filesystem::path& program, const std::vector<std::string>& arguments,
            const std::string& strOutput, std::string& strReason) {
    const CHandle output = OpenToInherit(ToFilePath(strOutput).native(), GENERIC_WRITE, CREATE_ALWAYS);
    if (output.Get() == nullptr || GetFileType(output.Get()) != FILE_TYPE_DISK) {
      strReason = strOutput + ": " + DescribeFailure();
      return 0;
    }
    const CHandle input = OpenToInherit(L"NUL", GENERIC_READ, OPEN_EXISTING);
    std::wstring strCommand = Quote(program.native());
    for (const std::string& strWord : arguments) strCommand += L' ' + Quote(ToWide(strWord));
    STARTUPINFOW start = {};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = input.Get();
    start.hStdOutput = output.Get();
    start.hStdError = output.Get();
    PROCESS_INFORMATION made = {};
    if (CreateProcessW(program.c_str(), strCommand.data(), nullptr, nullptr, TRUE, CREATE_SUSPENDED, nullptr, nullptr,
                       &start, &made) == 0) {
      strReason = FromFilePath(program) + ": " + DescribeFailure();
      return 0;
    }
    const CHandle thread(made.hThread);
    m_running.push_back({CHandle(made.hProcess), static_cast<int>(made.dwProcessId)});
    AssignProcessToJobObject(m_job.Get(), made.hProcess);
    ResumeThread(made.hThread);
    return static_cast<int>(made.dwProcessId);
  }

  ProcessEnd Wait() {
    constexpr DWORD c_nFirstException = 0xC0000000;
    std::vector<void*> handles;
    for (const Child& child : m_running) handles.push_back(child.process.Get());
    const DWORD n = WaitForMultipleObjects(static_cast<DWORD>(handles.size()), handles.data(), FALSE, INFINITE);
    const auto it = m_running.begin() + static_cast<std::ptrdiff_t>(n - WAIT_OBJECT_0);
    DWORD nCode = 0;
    GetExitCodeProcess(it->process.Get(), &nCode);
    const ProcessEnd end = {it->nNumber, nCode < c_nFirstException, nCode};
    m_running.erase(it);
    return end;
  }

 private:
  struct Child {
    CHandle process;
    int nNumber;
  };

  CHandle m_job{CreateJobObjectW(nullptr, nullptr)};
  std::vector<Child> m_running;
};

CChildProcesses::CChildProcesses() : m_pSystem(std::make_unique<CSystem>()) {}
CChildProcesses::~CChildProcesses() = default;

int CChildProcesses::Start(const std::filesystem::path& program, const std::vector<std::string>& arguments,
                           const std::string& strOutput, std::string& strReason) {
  return m_pSystem->Start(program, arguments, strOutput, strReason);
}

ProcessEnd CChildProcesses::Wait() { return m_pSystem->Wait(); }

}  // namespace skyframe

#endif
