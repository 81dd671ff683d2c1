#pragma once

#include <unistd.h>

#include "TestPlatform.h"
#include "skyframe/cli/CommandLine.h"

namespace skyframe::test {

/// A directory of its own and the command line run in this process. The job is a mast of two beams along Z,
/// clamped at node 30, with 20 kN upwards on its top, node 10.
struct MastJob {
  MastJob() { std::filesystem::create_directories(directory); }
  ~MastJob() { std::filesystem::remove_all(directory); }
  MastJob(const MastJob&) = delete;
  MastJob& operator=(const MastJob&) = delete;

  void Write(const std::string& strAnalyses) const {
    std::ofstream(strPath + ".json") << R"({"nodes": [{"id": 30, "x": 0, "y": 0, "z": 0, "restraint": "111111"},
        {"id": 20, "x": 0, "y": 0, "z": 4}, {"id": 10, "x": 0, "y": 0, "z": 8}],
      "sections": [{"id": "S", "shape": 2, "area": 1e4, "Ix": 4e7, "Iy": 2e7, "Iz": 3e7}], "elements": [
      {"type": "beam", "i": 30, "j": 20, "section": "S"}, {"type": "beam", "i": 20, "j": 10, "section": "S"}],
      "loads": [{"case": 0, "node": 10, "direction": "Z", "value": 20}], "analyses": [)"
                                     << strAnalyses << "]}";
  }

  /// Exit status; the streams' texts are kept.
  int Call(const std::vector<std::string>& arguments) {
    std::ostringstream out, err;
    const int nStatus = host::RunCommandLine(arguments, out, err);
    strOut = out.str();
    strErr = err.str();
    return nStatus;
  }
  int Solve() { return Call({"run", strPath + ".json", "--log", strPath + ".log"}); }
  int Solve(const std::string& strAnalyses) {
    Write(strAnalyses);
    return Solve();
  }

  std::filesystem::path directory =
      std::filesystem::temp_directory_path() / ("skyframe_mast" + std::to_string(getpid()));
  std::string strPath = (directory / "mast").string();
  std::string strOut;
  std::string strErr;
};

}  // namespace skyframe::test
