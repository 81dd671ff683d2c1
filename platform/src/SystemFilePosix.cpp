#ifndef _WIN32

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <limits>
#include <memory>
#include <system_error>

#include "SystemFile.h"

// A file in care carries a lock, which goes with the process that holds it.

namespace skyframe::system_file {

namespace {

/// Repeats a call that a signal has broken off.
template <class Call>
auto Persist(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR) result = call();
  return result;
}

bool IsRegular(int nDescriptor) {
  struct stat status = {};
  return fstat(nDescriptor, &status) == 0 && S_ISREG(status.st_mode);
}

bool IsLinked(int nDescriptor) {
  struct stat status = {};
  return fstat(nDescriptor, &status) == 0 && status.st_nlink > 0;
}

/// Closes the descriptor; -1 with the error given.
int Refuse(int nDescriptor, int nError) {
  close(nDescriptor);
  errno = nError;
  return -1;
}

/// The same file under a descriptor that is none of the standard three: where these are closed, the next file
/// would take their place, and with it what the program prints.
int KeepOffStandard(int nDescriptor) {
  if (nDescriptor < 0 || nDescriptor > STDERR_FILENO) return nDescriptor;
  const int nOther = fcntl(nDescriptor, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
  const int nError = errno;
  close(nDescriptor);
  errno = nError;
  return nOther;
}

}  // namespace

int OpenToRead(const std::filesystem::path& path) {
  const int n = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
  return n < 0 || IsRegular(n) ? n : Refuse(n, EINVAL);
}

int CreateNew(const std::filesystem::path& path) {
  constexpr mode_t c_nMode = 0666;  // less what the user's mask takes away
  const int n = KeepOffStandard(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, c_nMode));
  if (n < 0) return n;
  // A file system without locks has no orphans to tell from others either.
  Persist([n] { return flock(n, LOCK_EX); });
  // Another run may have found the file before it was locked, and removed it.
  return IsLinked(n) ? n : Refuse(n, EEXIST);
}

int OpenDevice(const std::filesystem::path& path) {
  const int n = KeepOffStandard(open(path.c_str(), O_WRONLY | O_NOCTTY | O_CLOEXEC));
  return n < 0 || !IsRegular(n) ? n : Refuse(n, EINVAL);
}

int KeepInCare(int nDescriptor) { return fcntl(nDescriptor, F_DUPFD_CLOEXEC, STDERR_FILENO + 1); }

std::vector<std::filesystem::path> ListNames(const std::filesystem::path& folder) {
  struct CloseFolder {
    void operator()(DIR* p) const { closedir(p); }
  };
  std::vector<std::filesystem::path> names;
  const std::unique_ptr<DIR, CloseFolder> pFolder(opendir(folder.c_str()));
  if (!pFolder) return names;
  while (const dirent* const pEntry = readdir(pFolder.get())) names.emplace_back(pEntry->d_name);
  return names;
}

void RemoveOrphan(const std::filesystem::path& path) {
  const int n = open(path.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
  if (n < 0) return;
  if (IsRegular(n) && flock(n, LOCK_EX | LOCK_NB) == 0) unlink(path.c_str());
  close(n);
}

std::error_code Replace(const std::filesystem::path& from, const std::filesystem::path& to) {
  std::error_code error;
  std::filesystem::rename(from, to, error);
  return error;
}

std::size_t Read(int nDescriptor, char* pBytes, std::size_t nCount) {
  const ssize_t nRead = Persist([=] { return read(nDescriptor, pBytes, nCount); });
  return nRead < 0 ? 0 : static_cast<std::size_t>(nRead);
}

bool WriteAll(int nDescriptor, const char* pBytes, std::size_t nCount) {
  while (nCount > 0) {
    const ssize_t nWritten = Persist([=] { return write(nDescriptor, pBytes, nCount); });
    if (nWritten < 0) return false;
    pBytes += nWritten;
    nCount -= static_cast<std::size_t>(nWritten);
  }
  return true;
}

bool Close(int nDescriptor) { return close(nDescriptor) == 0 || errno == EINTR; }

std::filesystem::path FoldCase(const std::filesystem::path& path) { return path; }

bool IsWritable(const std::filesystem::path& path) { return access(path.c_str(), W_OK) == 0; }

bool IsErrorTerminal() { return isatty(STDERR_FILENO) == 1; }

std::vector<std::string> GetArguments(int nCount, char** arguments) {
  return nCount > 1 ? std::vector<std::string>(arguments + 1, arguments + nCount) : std::vector<std::string>();
}

std::string ReadVariable(const char* pszName) {
  const char* const pszText = std::getenv(pszName);
  return pszText == nullptr ? "" : pszText;
}

bool BeginText(int /*nDescriptor*/) { return false; }

void WriteToConsole(int /*nDescriptor*/, std::string_view /*strText*/) {}

std::filesystem::path GetProgramPath() {
  std::error_code error;
  std::filesystem::path path = std::filesystem::read_symlink("/proc/self/exe", error);
  return error ? std::filesystem::path() : path;
}

double GetPhysicalMemory() {
  const long nPages = sysconf(_SC_PHYS_PAGES);
  const long nPageSize = sysconf(_SC_PAGESIZE);
  if (nPages > 0 && nPageSize > 0) return static_cast<double>(nPages) * static_cast<double>(nPageSize);
  return std::numeric_limits<double>::infinity();
}

}  // namespace skyframe::system_file

#endif
