#pragma once

// What the tests ask of the operating system beyond the standard library. Windows can neither fork nor limit a process
// as these tests do it, and has no pipes or devices among its files: the tests that need those are in test_posix.cpp.

#include <filesystem>
#include <system_error>

#ifdef _WIN32

#include <process.h>

namespace skyframe::test {

inline int GetProcessNumber() { return _getpid(); }

inline bool MakePipeFile(const std::filesystem::path& /*path*/) { return false; }

}  // namespace skyframe::test

#else

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <fstream>
#include <functional>
#include <stdexcept>
#include <string>

namespace skyframe::test {

inline int GetProcessNumber() { return getpid(); }

/// Runs the action in a process of its own, which ends with the action's status; its number.
inline int StartProcess(const std::function<int()>& action) {
  const int nProcess = fork();
  if (nProcess == 0) _exit(action());
  return nProcess;
}

/// The status; -1 when the process did not end by itself.
inline int WaitFor(int nProcess) {
  int nStatus = -1;
  waitpid(nProcess, &nStatus, 0);
  return WIFEXITED(nStatus) ? WEXITSTATUS(nStatus) : -1;
}

inline void Interrupt(int nProcess) { kill(nProcess, SIGTERM); }
inline bool IsRunning(int nProcess) { return kill(nProcess, 0) == 0; }
inline void PauseShortly() { usleep(1000); }

inline void CloseStandardOutput() { close(STDOUT_FILENO); }
inline bool HasStandardOutput() { return write(STDOUT_FILENO, "trace", 5) == 5; }

/// To nBytes more than are in use.
inline void LimitMemory(std::size_t nBytes) {
  std::size_t nPages = 0;
  std::ifstream("/proc/self/statm") >> nPages;
  const rlimit limit = {nPages * static_cast<std::size_t>(getpagesize()) + nBytes, RLIM_INFINITY};
  setrlimit(RLIMIT_AS, &limit);
}

/// False where files cannot be pipes.
inline bool MakePipeFile(const std::filesystem::path& path) { return mkfifo(path.c_str(), 0666) == 0; }

/// A pipe that has a path to write to.
class CPipe {
 public:
  CPipe() {
    if (pipe(m_ends.data()) != 0) throw std::runtime_error("no pipe");
  }
  ~CPipe() {
    for (const int nEnd : m_ends) close(nEnd);
  }
  CPipe(const CPipe&) = delete;
  CPipe& operator=(const CPipe&) = delete;

  std::string GetPath() const { return "/dev/fd/" + std::to_string(m_ends[1]); }
  std::string Read() const {
    std::string strText(100, '\0');
    strText.resize(static_cast<std::size_t>(std::max<ssize_t>(read(m_ends[0], strText.data(), strText.size()), 0)));
    return strText;
  }

 private:
  std::array<int, 2> m_ends = {};
};

/// A disk that takes no byte more, for the life of the object.
class CFullDisk {
 public:
  CFullDisk() : m_pPrevious(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &m_limit);
    const rlimit none = {0, m_limit.rlim_max};
    setrlimit(RLIMIT_FSIZE, &none);
  }
  ~CFullDisk() {
    setrlimit(RLIMIT_FSIZE, &m_limit);
    std::signal(SIGXFSZ, m_pPrevious);
  }
  CFullDisk(const CFullDisk&) = delete;
  CFullDisk& operator=(const CFullDisk&) = delete;

 private:
  rlimit m_limit = {};
  void (*m_pPrevious)(int);
};

}  // namespace skyframe::test

#endif

namespace skyframe::test {

/// False where this user or system cannot make symbolic links.
inline bool MakeLink(const std::filesystem::path& target, const std::filesystem::path& path) {
  std::error_code error;
  std::filesystem::create_symlink(target, path, error);
  return !error;
}

}  // namespace skyframe::test
