#include "ManyJobs.h"

#include <algorithm>
#include <chrono>
#include <map>

#include "skyframe/cli/CommandLine.h"
#include "skyframe/job/JobFile.h"
#include "skyframe/job/Language.h"
#include "skyframe/job/Text.h"
#include "skyframe/platform/ChildProcesses.h"
#include "texts.h"

namespace skyframe::host {

namespace {

using Clock = std::chrono::steady_clock;

double GetSeconds(Clock::time_point start) { return std::chrono::duration<double>(Clock::now() - start).count(); }

struct JobEnd {
  int nStatus = c_nExitAnalysisFailed;
  std::string strLine;
};

/// From good to bad.
int GetRank(int nStatus) {
  constexpr int c_nRanked[] = {c_nExitGood, c_nExitWarned, c_nExitAnalysisFailed, c_nExitBadInput};
  return static_cast<int>(std::ranges::find(c_nRanked, nStatus) - std::begin(c_nRanked));
}

class CManyJobs {
 public:
  CManyJobs(const ManyJobs& many, std::ostream& out) : m_many(many), m_out(out), m_ends(many.jobFiles.size()) {}

  int Run() {
    const Clock::time_point start = Clock::now();
    for (std::size_t nNext = 0; nNext < m_ends.size() || !m_running.empty();) {
      const bool bRoom = std::ssize(m_running) < m_many.nAtOnce;
      nNext < m_ends.size() && bRoom ? Start(nNext++) : Await();
    }
    m_out << '\n';
    for (const JobEnd& end : m_ends) m_out << end.strLine << '\n';
    PrintSum(GetSeconds(start));
    return std::ranges::max(m_ends, {}, [](const JobEnd& end) { return GetRank(end.nStatus); }).nStatus;
  }

 private:
  struct Running {
    std::size_t nJob;
    Clock::time_point start;
  };

  void Start(std::size_t nJob) {
    const std::string& strJobFile = m_many.jobFiles[nJob];
    std::vector<std::string> arguments = m_many.options;
    arguments.insert(arguments.end(), {"--", strJobFile});  // whatever its name begins with
    std::string strReason;
    const Clock::time_point start = Clock::now();
    const int nProcess = m_processes.Start(m_many.program, arguments, GetRunLog(strJobFile), strReason);
    if (nProcess != 0) {
      m_running[nProcess] = {nJob, start};
    } else {
      Conclude(nJob, c_nExitAnalysisFailed, 0.0, Say(texts::c_notStarted, {strReason}));
    }
  }

  void Await() {
    const ProcessEnd end = m_processes.Wait();
    const auto it = m_running.find(end.nProcess);
    const auto [nJob, start] = it->second;
    m_running.erase(it);
    const int nStatus = end.bByItself ? static_cast<int>(end.nCode) : c_nExitAnalysisFailed;
    Conclude(nJob, nStatus, GetSeconds(start), Describe(end, GetRunLog(m_many.jobFiles[nJob])));
  }

  static std::string Describe(const ProcessEnd& end, const std::string& strLog) {
    if (!end.bByItself) return Say(texts::c_killed, {std::to_string(end.nCode), strLog});
    switch (end.nCode) {
      case c_nExitGood:
        return std::string(Say(texts::c_good));
      case c_nExitWarned:
        return Say(texts::c_warned, {strLog});
      case c_nExitBadInput:
        return Say(texts::c_refused, {strLog});
      default:
        return Say(texts::c_failed, {strLog});
    }
  }

  void Conclude(std::size_t nJob, int nStatus, double dSeconds, const std::string& strOutcome) {
    const std::string strLine =
        Format("%9.2f s  ", dSeconds) + EscapeControls(m_many.jobFiles[nJob] + ": " + strOutcome);
    m_ends[nJob] = {nStatus, strLine};
    m_out << '[' << ++m_nEnded << '/' << m_ends.size() << ']' << strLine << std::endl;
  }

  void PrintSum(double dSeconds) {
    const auto count = [this](int nStatus) { return std::ranges::count(m_ends, nStatus, &JobEnd::nStatus); };
    const auto nGood = count(c_nExitGood), nWarned = count(c_nExitWarned);
    m_out << Say(texts::c_jobSum, {std::to_string(m_ends.size()), Format("%.2f", dSeconds), std::to_string(nGood),
                                   std::to_string(nWarned), std::to_string(std::ssize(m_ends) - nGood - nWarned)})
          << '\n';
  }

  const ManyJobs& m_many;
  std::ostream& m_out;
  std::vector<JobEnd> m_ends;
  std::size_t m_nEnded = 0;
  std::map<int, Running> m_running;  ///< by process
  CChildProcesses m_processes;
};

}  // namespace

std::string GetRunLog(const std::string& strJobFile) { return GetJobPath(strJobFile) + "_run.log"; }

int RunManyJobs(const ManyJobs& many, std::ostream& out) { return CManyJobs(many, out).Run(); }

}  // namespace skyframe::host
