// Arguments, one a line, and after an empty line the text of job.json in the folder where the program runs: it
// ends with one of its statuses and leaves the job alone.

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <tuple>
#include <variant>
#include <vector>

#include "../HostModel.h"
#include "skyframe/cli/CommandLine.h"
#include "skyframe/job/JobFile.h"

namespace {

namespace fs = std::filesystem;
using namespace skyframe::host;

/// A folder of this process alone, and the current one, for the life of the object.
class CWorkingFolder : public skyframe::test::CJobFolder {
 public:
  CWorkingFolder() : CJobFolder("fuzz"), m_previous(fs::current_path()) {
    fs::current_path(fs::path(GetJobPath()).parent_path());
  }
  ~CWorkingFolder() { fs::current_path(m_previous); }
  CWorkingFolder(const CWorkingFolder&) = delete;
  CWorkingFolder& operator=(const CWorkingFolder&) = delete;

 private:
  fs::path m_previous;
};

/// Names stay within the folder, and numbers have one digit, so that generated structures stay small.
std::string Tame(std::string strArgument) {
  constexpr auto IsDigit = [](char c) { return c >= '0' && c <= '9'; };
  std::ranges::replace_if(
      strArgument, [](char c) { return c == '/' || c == '\\'; }, '_');
  const auto rest =
      std::unique(strArgument.begin(), strArgument.end(), [&](char a, char b) { return IsDigit(a) && IsDigit(b); });
  strArgument.erase(rest, strArgument.end());
  return strArgument;
}

std::vector<std::string> GetArguments(std::string_view strLines) {
  std::vector<std::string> arguments;
  while (!strLines.empty()) {
    const std::string_view strLine = strLines.substr(0, strLines.find('\n'));
    arguments.push_back(Tame(std::string(strLine)));
    strLines.remove_prefix(std::min(strLine.size() + 1, strLines.size()));
  }
  return arguments;
}

bool IsShort(std::optional<double> dDuration, std::optional<double> dStep) {
  return !dDuration || !dStep || !(*dDuration / *dStep > 100.0);
}

bool IsShort(const StaticJob& analysis) { return analysis.nMaxIterations.value_or(0) <= 100; }
bool IsShort(const ModalJob&) { return true; }
bool IsShort(const SpectrumJob&) { return true; }
bool IsShort(const WilsonJob& analysis) { return IsShort(analysis.dDuration, analysis.dTimeStep); }
bool IsShort(const NewmarkJob& analysis) {
  const auto& [impulse, general, quake] = std::tie(analysis.impulse, analysis.generalLoad, analysis.earthquake);
  return analysis.nMaxIterations.value_or(0) <= 100 && (!impulse || IsShort(impulse->dDuration, impulse->dTimeStep)) &&
         (!impulse || IsShort(impulse->dUnloadTime, impulse->dTimeStep)) &&
         (!impulse || IsShort(impulse->dPeakTime, impulse->dTimeStep)) &&
         (!general || IsShort(general->dDuration, general->dTimeStep)) &&
         (!quake || IsShort(quake->dDuration, quake->dTimeStep));
}

/// Whether the analyses end within a fraction of a second.
bool IsShort(const Job& job) {
  return std::ranges::all_of(job.analyses, [](const JobAnalysis& analysis) {
    return std::visit([](const auto& parameters) { return IsShort(parameters); }, analysis);
  });
}

void Run(const std::vector<std::string>& arguments) {
  std::ostringstream out;
  std::ostringstream err;
  const int nStatus = RunCommandLine(arguments, out, err);
  if (nStatus < c_nExitGood || nStatus > c_nExitWarned) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t nSize) {
  const std::string_view strInput(reinterpret_cast<const char*>(pData), nSize);
  const std::size_t nLines = std::min(strInput.find("\n\n"), nSize);
  const std::vector<std::string> arguments = GetArguments(strInput.substr(0, nLines));
  const std::string strJob(strInput.substr(std::min(nLines + 2, nSize)));
  if (arguments.empty() || !IsShort(ParseJob(strJob).job)) return 0;

  const CWorkingFolder folder;
  folder.Write(".json", strJob);
  if (arguments.front() == "plot") Run({"run", "job.json"});
  Run(arguments);
  // A generated structure may take any name.
  if (std::ranges::find(arguments, "generate") == arguments.end() && folder.Read(".json") != strJob) std::abort();
  return 0;
}
