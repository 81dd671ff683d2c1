#ifndef _WIN32

#include <fcntl.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <system_error>

#include "skyframe/platform/ChildProcesses.h"
#include "skyframe/platform/Platform.h"

extern char** environ;  // NOLINT(readability-redundant-declaration): not every system declares it

namespace skyframe {

namespace {

constexpr int c_nInterrupts[] = {SIGINT, SIGTERM, SIGHUP};

/// Closed with the object.
class CDescriptor {
 public:
  explicit CDescriptor(int n) : m_n(n) {}
  ~CDescriptor() {
    if (m_n >= 0) close(m_n);
  }
  CDescriptor(const CDescriptor&) = delete;
  CDescriptor& operator=(const CDescriptor&) = delete;

  [[nodiscard]] int Get() const { return m_n; }

 private:
  int m_n;
};

/// A regular file, emptied; negative, and errno, for anything else.
int OpenOutput(const std::string& strPath) {
  constexpr mode_t c_nMode = 0666;  // less what the user's mask takes away
  const CDescriptor file(open(ToNativePath(strPath).c_str(),
                              O_WRONLY | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, c_nMode));
  if (file.Get() < 0) return -1;
  struct stat status = {};
  if (fstat(file.Get(), &status) != 0) return -1;
  if (!S_ISREG(status.st_mode)) {
    errno = EINVAL;
    return -1;
  }
  if (ftruncate(file.Get(), 0) != 0) return -1;
  return fcntl(file.Get(), F_DUPFD_CLOEXEC, STDERR_FILENO + 1);  // none of the standard three
}

/// What becomes of the standard streams and of the blocked signals in a new process.
class CSpawnRules {
 public:
  CSpawnRules(int nOutput, const sigset_t& mask) {
    posix_spawn_file_actions_init(&m_files);
    posix_spawn_file_actions_addopen(&m_files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&m_files, nOutput, STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&m_files, nOutput, STDERR_FILENO);
    posix_spawnattr_init(&m_attributes);
    posix_spawnattr_setsigmask(&m_attributes, &mask);
    posix_spawnattr_setflags(&m_attributes, POSIX_SPAWN_SETSIGMASK);
  }
  ~CSpawnRules() {
    posix_spawn_file_actions_destroy(&m_files);
    posix_spawnattr_destroy(&m_attributes);
  }
  CSpawnRules(const CSpawnRules&) = delete;
  CSpawnRules& operator=(const CSpawnRules&) = delete;

  /// Error number; 0 when it runs.
  int Start(pid_t& nProcess, const char* pszProgram, char** words) const {
    return posix_spawn(&nProcess, pszProgram, &m_files, &m_attributes, words, environ);
  }

 private:
  posix_spawn_file_actions_t m_files = {};
  posix_spawnattr_t m_attributes = {};
};

std::string Describe(int nError) { return std::generic_category().message(nError); }

}  // namespace

/// While it lives, the signals that tell of a child's end and those that would end this process wait for Wait().
class CChildProcesses::CSystem {
 public:
  CSystem() {
    struct sigaction noted = {};
    noted.sa_handler = [](int) {};  // a signal that is ignored need not wait
    sigaction(SIGCHLD, &noted, &m_previousAction);
    sigemptyset(&m_awaited);
    sigaddset(&m_awaited, SIGCHLD);
    for (const int nSignal : c_nInterrupts) {
      struct sigaction action = {};
      sigaction(nSignal, nullptr, &action);
      if (action.sa_handler != SIG_IGN) sigaddset(&m_awaited, nSignal);
    }
    pthread_sigmask(SIG_BLOCK, &m_awaited, &m_previousMask);
  }

  ~CSystem() {
    EndAll();
    pthread_sigmask(SIG_SETMASK, &m_previousMask, nullptr);
    sigaction(SIGCHLD, &m_previousAction, nullptr);
  }

  CSystem(const CSystem&) = delete;
  CSystem& operator=(const CSystem&) = delete;

  int Start(const std::filesystem::path& program, std::vector<std::string> arguments, const std::string& strOutput,
            std::string& strReason) {
    const CDescriptor output(OpenOutput(strOutput));
    if (output.Get() < 0) {
      strReason = strOutput + ": " + Describe(errno);
      return 0;
    }
    arguments.insert(arguments.begin(), program.string());
    std::vector<char*> words;
    words.reserve(arguments.size() + 1);
    for (std::string& strWord : arguments) words.push_back(strWord.data());
    words.push_back(nullptr);
    pid_t nProcess = 0;
    const int nError = CSpawnRules(output.Get(), m_previousMask).Start(nProcess, program.c_str(), words.data());
    if (nError != 0) {
      strReason = program.string() + ": " + Describe(nError);
      return 0;
    }
    m_running.push_back(nProcess);
    return nProcess;
  }

  ProcessEnd Wait() {
    while (!Collect(WNOHANG)) {
      int nSignal = 0;
      sigwait(&m_awaited, &nSignal);
      if (nSignal != SIGCHLD) Interrupt(nSignal);
    }
    const ProcessEnd end = m_ended.front();
    m_ended.erase(m_ended.begin());
    return end;
  }

 private:
  /// Takes note of children that have ended; true when there are such.
  bool Collect(int nOptions) {
    std::erase_if(m_running, [&](pid_t nProcess) {
      int nStatus = 0;
      if (waitpid(nProcess, &nStatus, nOptions) != nProcess) return false;
      const bool bByItself = WIFEXITED(nStatus);
      m_ended.push_back(
          {nProcess, bByItself, static_cast<unsigned>(bByItself ? WEXITSTATUS(nStatus) : WTERMSIG(nStatus))});
      return true;
    });
    return !m_ended.empty();
  }

  /// Ends the children, then lets the signal do to this process what it does.
  void Interrupt(int nSignal) {
    EndAll();
    pthread_sigmask(SIG_SETMASK, &m_previousMask, nullptr);
    raise(nSignal);
    pthread_sigmask(SIG_BLOCK, &m_awaited, nullptr);
  }

  void EndAll() {
    for (const pid_t nProcess : m_running) kill(nProcess, SIGTERM);
    while (!m_running.empty()) Collect(0);
  }

  std::vector<pid_t> m_running;
  std::vector<ProcessEnd> m_ended;  ///< that nobody has been told of
  sigset_t m_awaited = {};
  sigset_t m_previousMask = {};
  struct sigaction m_previousAction = {};
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
