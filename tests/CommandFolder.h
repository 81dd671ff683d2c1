#pragma once

#include "TestPlatform.h"
#include "skyframe/cli/CommandLine.h"

namespace skyframe::test {

struct CommandOutcome {
  int nStatus = 0;
  std::string strOut;
  std::string strErr;
};

/// A job folder and the command line run in this process.
class CCommandFolder : public CJobFolder {
 public:
  CCommandFolder() : CJobFolder("command") {}

  static CommandOutcome Call(const Strings& arguments) {
    std::ostringstream out, err;
    const int nStatus = host::RunCommandLine(arguments, out, err);
    return {nStatus, out.str(), err.str()};
  }

  /// Without the module's progress lines on the standard output.
  CommandOutcome Solve() const { return Call({"run", GetPath(".json"), "--log", GetPath(".log")}); }
  CommandOutcome Solve(const std::string& strJob) const {
    Write(".json", strJob);
    return Solve();
  }
};

}  // namespace skyframe::test
