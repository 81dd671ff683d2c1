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

/// Cantilever of the length 4 m, A = 0.01 m2, I = 2e-5 m4, loaded at its free end; the ids are not consecutive.
inline std::string MakeCantilever(const std::string& strSupport, const std::string& strAnalyses) {
  return R"({"nodes": [{"id": 90, "x": 4, "y": 0, "z": 0}, {"id": 5, "x": 0, "y": 0, "z": 0, "restraint": ")" +
         strSupport + R"("}],
    "sections": [{"id": "S", "shape": 2, "area": 1e4, "Ix": 4e7, "Iy": 2e7, "Iz": 2e7}],
    "elements": [{"type": "beam", "i": 5, "j": 90, "section": "S"}],
    "loads": [{"case": 2, "node": 90, "direction": "Z", "value": -4}, {"case": 0, "node": 90, "direction": "Z", "value": -8},
              {"case": 2, "node": 5, "direction": "Z", "value": -100}],
    "analyses": [)" +
         strAnalyses + "]}";
}

}  // namespace skyframe::test
