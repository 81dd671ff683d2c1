#ifdef _WIN32

#define NOMINMAX
#include <fcntl.h>
#include <io.h>
#include <share.h>
#include <sys/stat.h>
#include <windows.h>
// needs the one before
#include <shellapi.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <memory>

#include "SystemFile.h"
#include "skyframe/platform/WideText.h"

// A file in care is open for writing. Who removes an orphan asks for it alone, which an open one refuses.

namespace skyframe::system_file {

namespace {

constexpr int c_nPlain = _O_BINARY | _O_NOINHERIT;
constexpr std::size_t c_nMostBytes = std::size_t{1} << 30U;

void* GetHandle(int nDescriptor) { return reinterpret_cast<void*>(_get_osfhandle(nDescriptor)); }

int Open(const std::filesystem::path& path, int nFlags) {
  int n = -1;
  return _wsopen_s(&n, path.c_str(), nFlags | c_nPlain, _SH_DENYNO, 0) == 0 ? n : -1;
}

std::error_code GetFailure() { return {static_cast<int>(GetLastError()), std::system_category()}; }

}  // namespace

int OpenToRead(const std::filesystem::path& path) {
  const int n = Open(path, _O_RDONLY);
  if (n < 0 || GetFileType(GetHandle(n)) == FILE_TYPE_DISK) return n;
  _close(n);
  errno = EINVAL;
  return -1;
}

int CreateNew(const std::filesystem::path& path) {
  // Shared so far that it can be moved to its name.
  void* const pFile = CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_DELETE, nullptr, CREATE_NEW, 0, nullptr);
  if (pFile == INVALID_HANDLE_VALUE) {
    errno = GetFailure().default_error_condition().value();
    return -1;
  }
  const int n = _open_osfhandle(reinterpret_cast<std::intptr_t>(pFile), c_nPlain);
  if (n < 0) CloseHandle(pFile);
  return n;
}

int OpenDevice(const std::filesystem::path& path) { return Open(path, _O_WRONLY); }

int KeepInCare(int nDescriptor) { return _dup(nDescriptor); }

std::vector<std::filesystem::path> ListNames(const std::filesystem::path& folder) {
  struct CloseSearch {
    void operator()(void* p) const { FindClose(p); }
  };
  std::vector<std::filesystem::path> names;
  WIN32_FIND_DATAW entry = {};
  void* const pFirst = FindFirstFileW((folder / "*").c_str(), &entry);
  if (pFirst == INVALID_HANDLE_VALUE) return names;
  const std::unique_ptr<void, CloseSearch> pSearch(pFirst);
  do {
    names.emplace_back(entry.cFileName);
  } while (FindNextFileW(pSearch.get(), &entry) != 0);
  return names;
}

void RemoveOrphan(const std::filesystem::path& path) {
  constexpr DWORD c_nRemove = FILE_FLAG_DELETE_ON_CLOSE | FILE_FLAG_OPEN_REPARSE_POINT;
  void* const pFile = CreateFileW(path.c_str(), DELETE, 0, nullptr, OPEN_EXISTING, c_nRemove, nullptr);
  if (pFile != INVALID_HANDLE_VALUE) CloseHandle(pFile);
}

std::error_code Replace(const std::filesystem::path& from, const std::filesystem::path& to) {
  constexpr int c_nMostTries = 100;
  constexpr DWORD c_nPause = 10;  // milliseconds
  for (int i = 0; MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING) == 0; ++i) {
    const std::error_code failure = GetFailure();
    // Somebody is reading the old file, or another run is replacing it.
    const bool bInUse = failure == std::errc::permission_denied || failure.value() == ERROR_SHARING_VIOLATION;
    if (!bInUse || i == c_nMostTries) return failure;
    Sleep(c_nPause);
  }
  return {};
}

std::size_t Read(int nDescriptor, char* pBytes, std::size_t nCount) {
  const int nRead = _read(nDescriptor, pBytes, static_cast<unsigned>(std::min(nCount, c_nMostBytes)));
  return nRead < 0 ? 0 : static_cast<std::size_t>(nRead);
}

bool WriteAll(int nDescriptor, const char* pBytes, std::size_t nCount) {
  while (nCount > 0) {
    const int nWritten = _write(nDescriptor, pBytes, static_cast<unsigned>(std::min(nCount, c_nMostBytes)));
    if (nWritten < 0) return false;
    pBytes += nWritten;
    nCount -= static_cast<std::size_t>(nWritten);
  }
  return true;
}

bool Close(int nDescriptor) { return _close(nDescriptor) == 0; }

std::filesystem::path FoldCase(const std::filesystem::path& path) {
  std::wstring strName = path.native();
  const auto nLength = static_cast<int>(strName.size());
  const int nFolded = LCMapStringEx(LOCALE_NAME_INVARIANT, LCMAP_UPPERCASE, path.c_str(), nLength, strName.data(),
                                    nLength, nullptr, nullptr, 0);
  return nFolded == nLength ? std::filesystem::path(strName) : path;
}

bool IsWritable(const std::filesystem::path& path) {
  constexpr int c_nWritable = 2;
  return _waccess(path.c_str(), c_nWritable) == 0;
}

bool IsErrorTerminal() { return _isatty(_fileno(stderr)) != 0; }

std::string ReadVariable(const char* pszName) {
  const wchar_t* const szText = _wgetenv(ToWide(pszName).c_str());
  return szText == nullptr ? std::string{} : ToUtf8(szText);
}

std::vector<std::string> GetArguments(int /*nCount*/, char** /*arguments*/) {
  struct FreeWords {
    void operator()(LPWSTR* p) const { LocalFree(p); }
  };
  int nWords = 0;
  const std::unique_ptr<LPWSTR, FreeWords> pWords(CommandLineToArgvW(GetCommandLineW(), &nWords));
  std::vector<std::string> result;
  for (int i = 1; i < nWords; ++i) result.push_back(ToUtf8(pWords.get()[i]));
  return result;
}

bool BeginText(int nDescriptor) {
  _setmode(nDescriptor, _O_BINARY);
  DWORD nMode = 0;
  return GetConsoleMode(GetHandle(nDescriptor), &nMode) != 0;
}

void WriteToConsole(int nDescriptor, std::string_view strText) {
  const std::wstring strWide = ToWide(strText);
  DWORD nWritten = 0;
  WriteConsoleW(GetHandle(nDescriptor), strWide.data(), static_cast<DWORD>(strWide.size()), &nWritten, nullptr);
}

std::filesystem::path GetProgramPath() {
  constexpr DWORD c_nLongest = 1U << 15U;
  std::wstring strPath(c_nLongest, L'\0');
  strPath.resize(GetModuleFileNameW(nullptr, strPath.data(), c_nLongest));
  return strPath;
}

double GetPhysicalMemory() {
  MEMORYSTATUSEX status = {};
  status.dwLength = sizeof status;
  if (GlobalMemoryStatusEx(&status) != 0) return static_cast<double>(status.ullTotalPhys);
  return std::numeric_limits<double>::infinity();
}

}  // namespace skyframe::system_file

#endif
