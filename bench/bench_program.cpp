#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fcntl.h>
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <limits>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "TestPlatform.h"
#include "skyframe/generate/Generate.h"
#include "skyframe/job/JobFile.h"
#include "skyframe/model/AnalysisModel.h"
#include "skyframe/run/Session.h"

// Whole runs of the command line, from the start of the process to its summary, against what no run can do without: the
// factorisation and the solutions of the same matrix in time; the profile, the histories, and what the program holds of
// the model before any matrix in memory. Prints what bench_table reads. First argument: the program; second: the number
// of repetitions. Works in a folder of its own below the temporary one.

namespace skyframe::bench {

namespace {

using Json = nlohmann::json;

constexpr int c_nModes = 20;
constexpr int c_nSteps = 1000;
constexpr double c_dTimeStep = 0.02;
constexpr double c_dMega = 1e-6;

struct Plan {
  const char* strName;  ///< size in equations
  host::BuildingParameters parameters;
};

const Plan c_plans[] = {{"6k", {7, 5, 21}}, {"24k", {15, 9, 25}}};

/// Least processor time and greatest memory of several runs.
struct Usage {
  double dSeconds = std::numeric_limits<double>::max();
  double dPeakBytes = 0.0;

  void Add(double dSecondsOfOne, double dBytesOfOne) {
    dSeconds = std::min(dSeconds, dSecondsOfOne);
    dPeakBytes = std::max(dPeakBytes, dBytesOfOne);
  }
};

double ToSeconds(const timeval& t) { return static_cast<double>(t.tv_sec) + 1e-6 * static_cast<double>(t.tv_usec); }

/// One process, its output thrown away. Ends the benchmark when it fails.
void RunProcess(const std::string& strProgram, const char* pszCommand, const std::string& strJob, Usage& usage) {
  const pid_t child = fork();
  if (child == 0) {
    const int nNull = open("/dev/null", O_WRONLY);
    dup2(nNull, STDOUT_FILENO);
    dup2(nNull, STDERR_FILENO);
    execl(strProgram.c_str(), strProgram.c_str(), pszCommand, strJob.c_str(), nullptr);
    std::_Exit(127);
  }
  int nStatus = 0;
  rusage used{};
  wait4(child, &nStatus, 0, &used);
  if (!WIFEXITED(nStatus) || WEXITSTATUS(nStatus) != 0) {
    std::fprintf(stderr, "%s %s %s failed\n", strProgram.c_str(), pszCommand, strJob.c_str());
    std::exit(1);
  }
  usage.Add(ToSeconds(used.ru_utime) + ToSeconds(used.ru_stime), 1024.0 * static_cast<double>(used.ru_maxrss));
}

host::StaticJob MakeStatic() {
  host::StaticJob job;
  job.bNonlinear = false;
  job.combination = {{0, 1.0}, {1, 1.0}};
  return job;
}

host::ModalJob MakeModal(int nRootCheck) {
  host::ModalJob job;
  job.nModes = c_nModes;
  job.nRootCheck = nRootCheck;
  job.combination = {{0, -1.0}};
  return job;
}

host::NewmarkJob MakeHistory() {
  host::EarthquakeJob earthquake;
  earthquake.dTimeStep = c_dTimeStep;
  earthquake.dDuration = c_nSteps * c_dTimeStep;
  earthquake.nMode = 0;
  earthquake.directions = {true, false, false};
  earthquake.peaks[0] = 0.7;
  host::NewmarkJob job;
  job.nLoad = 1;
  job.damping = {0.04, 0.04};
  job.bNonlinear = false;
  job.earthquake = earthquake;
  job.combination = {{0, -1.0}};
  return job;
}

double GetProcessorTime() {
  rusage used{};
  getrusage(RUSAGE_SELF, &used);
  return ToSeconds(used.ru_utime) + ToSeconds(used.ru_stime);
}

/// The solver alone, on the matrix that the static run has: least times of a factorisation and of a solution.
struct SolverTimes {
  double dFactor = std::numeric_limits<double>::max();
  double dSolve = std::numeric_limits<double>::max();
  double dProfileBytes = 0.0;
};

SolverTimes TimeSolver(const host::Job& job, const std::string& strJobPath, int nRepetitions) {
  const auto session = host::CSession::Open(job, strJobPath, ".");
  if (!session) std::exit(1);
  CAnalysisModel model;
  model.BuildModel();
  const int n = model.GetFreeDofs();
  SolverTimes times;
  SparseMatrix K;
  std::vector<double> b(static_cast<std::size_t>(n));
  for (int i = 0; i < nRepetitions; ++i) {
    if (!model.AssembleStiffness(K, false, false)) std::exit(1);
    const double dStart = GetProcessorTime();
    if (!K.Decompose(n)) std::exit(1);
    const double dFactorised = GetProcessorTime();
    constexpr int c_nSolutions = 10;
    for (int k = 0; k < c_nSolutions; ++k) {
      std::fill(b.begin(), b.end(), 1.0);
      if (!K.Solve(n, b)) std::exit(1);
    }
    times.dFactor = std::min(times.dFactor, dFactorised - dStart);
    times.dSolve = std::min(times.dSolve, (GetProcessorTime() - dFactorised) / c_nSolutions);
  }
  times.dProfileBytes = sizeof(double) * (1.0 + K.GetDiagonal()[static_cast<std::size_t>(n) - 1]);
  return times;
}

/// In a process of its own: what this one holds would count as memory of those that it starts.
SolverTimes MeasureSolver(const host::Job& job, const std::string& strJobPath, int nRepetitions) {
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) std::exit(1);
  const pid_t child = fork();
  if (child == 0) {
    const SolverTimes times = TimeSolver(job, strJobPath, nRepetitions);
    std::_Exit(write(ends[1], &times, sizeof times) == sizeof times ? 0 : 1);
  }
  SolverTimes times;
  int nStatus = 0;
  const bool bRead = read(ends[0], &times, sizeof times) == sizeof times;
  waitpid(child, &nStatus, 0);
  for (const int nEnd : ends) close(nEnd);
  if (!bRead || nStatus != 0) std::exit(1);
  return times;
}

class CProgramBenchmark {
 public:
  CProgramBenchmark(std::string strProgram, int nRepetitions)
      : m_strProgram(std::move(strProgram)), m_nRepetitions(nRepetitions), m_folder("program") {}

  void Run(const Plan& plan) {
    m_job = host::GenerateBuilding(plan.parameters);
    const std::string strSize = plan.strName;
    const SolverTimes solver = MeasureSolver(m_job, m_folder.GetPath(""), m_nRepetitions);
    Usage model;
    RunProcess(m_strProgram, "check", WriteJob({}), model);
    const double dNeeded = solver.dProfileBytes + model.dPeakBytes;

    Report("static/" + strSize + "/program", Measure(MakeStatic()), dNeeded);
    Report("static/" + strSize + "/solver", {solver.dFactor + solver.dSolve}, 0.0);
    Report("modes-sturm/" + strSize + "/program", Measure(MakeModal(1)), dNeeded);
    Report("modes-compare/" + strSize + "/program", Measure(MakeModal(0)), dNeeded);
    const double dHistories =
        HistorySet::CountBytes(c_nSteps, static_cast<int>(m_job.nodes.size()), static_cast<int>(m_job.elements.size()));
    Report("steps/" + strSize + "/program", Measure(MakeHistory()), dNeeded + dHistories);
    Report("steps/" + strSize + "/solver", {c_nSteps * solver.dSolve}, 0.0);
  }

  void Print() const { std::printf("%s\n", Json{{"benchmarks", m_runs}}.dump(1).c_str()); }

 private:
  std::string WriteJob(std::vector<host::JobAnalysis> analyses) {
    m_job.analyses = std::move(analyses);
    const std::string strPath = m_folder.GetPath(".json");
    std::ofstream(strPath) << host::FormatJob(m_job);
    return strPath;
  }

  Usage Measure(const host::JobAnalysis& analysis) {
    const std::string strJob = WriteJob({analysis});
    Usage usage;
    for (int i = 0; i < m_nRepetitions; ++i) RunProcess(m_strProgram, "run", strJob, usage);
    return usage;
  }

  void Report(const std::string& strName, const Usage& usage, double dNeededBytes) {
    std::fprintf(stderr, "%s %.3f s\n", strName.c_str(), usage.dSeconds);
    m_runs.push_back({{"name", strName},
                      {"run_name", strName},
                      {"run_type", "iteration"},
                      {"time_unit", "s"},
                      {"cpu_time", usage.dSeconds},
                      {"peak_MB", usage.dPeakBytes * c_dMega},
                      {"needed_MB", dNeededBytes * c_dMega}});
  }

  std::string m_strProgram;
  int m_nRepetitions;
  test::CJobFolder m_folder;
  host::Job m_job;
  Json m_runs = Json::array();
};

}  // namespace

}  // namespace skyframe::bench

int main(int argc, char** argv) {
  using namespace skyframe::bench;
  if (argc != 3) return 1;
  const skyframe::test::CTestPlatform platform;
  CProgramBenchmark benchmark(argv[1], std::max(std::atoi(argv[2]), 1));
  for (const Plan& plan : c_plans) benchmark.Run(plan);
  benchmark.Print();
  return 0;
}
