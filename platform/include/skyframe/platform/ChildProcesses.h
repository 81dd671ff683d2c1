#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "skyframe/values/Export.h"

namespace skyframe {

/// How a program ended.
struct ProcessEnd {
  int nProcess = 0;       ///< what Start returned
  bool bByItself = true;  ///< false: a signal or an exception ended it
  unsigned nCode = 0;     ///< exit status; else the number of the signal or of the exception
};

/// Programs that run beside this one; at most c_nMostProcesses. They end with the object, and with this process when it
/// is interrupted. One object at a time, used by the only thread that is to be interrupted.
class SKYFRAME_API CChildProcesses {
 public:
  static constexpr int c_nMostProcesses = 64;

  CChildProcesses();
  ~CChildProcesses();
  CChildProcesses(const CChildProcesses&) = delete;
  CChildProcesses& operator=(const CChildProcesses&) = delete;

  /// Its number; 0, and the reason, when it cannot be started. Its standard input is empty, and what it prints goes to
  /// a regular file, which is made anew.
  [[nodiscard]] int Start(const std::filesystem::path& program, const std::vector<std::string>& arguments,
                          const std::string& strOutput, std::string& strReason);
  /// Waits until one of them ends. There must be one.
  [[nodiscard]] ProcessEnd Wait();

 private:
  class CSystem;
  std::unique_ptr<CSystem> m_pSystem;
};

}  // namespace skyframe
