#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <iomanip>
#include <memory>
#include <sstream>
#include <string>

#include "Building.h"
#include "TestPlatform.h"
#include "skyframe/platform/TextWriter.h"

// Result text in fields of 15 bytes, and mode files read back, against the formatting of iostream.

namespace skyframe::bench {

namespace {

using benchmark::State;

constexpr int c_nNumbers = 200'000;
constexpr int c_nFieldsInLine = 7;
constexpr int c_nWidth = 15;
constexpr int c_nModes = 20;

/// Values of many magnitudes, as displacements and forces have them.
std::vector<double> MakeNumbers() {
  std::vector<double> numbers = MakeVector(c_nNumbers);
  double dScale = 1e-9;
  for (double& d : numbers) {
    d *= dScale;
    dScale = dScale > 1e6 ? 1e-9 : dScale * 10.0;
  }
  return numbers;
}

void SetRate(State& state, double dNumbers) {
  state.counters["numbers/s"] =
      benchmark::Counter(dNumbers * static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}

void WriteOwn(State& state) {
  const std::vector<double> numbers = MakeNumbers();
  std::ofstream strm("/dev/null", std::ios::binary);
  for (auto _ : state) {
    CTextWriter out(strm);
    int nField = 0;
    for (const double d : numbers) {
      out.General(d, c_nWidth, Align::Right);
      if (++nField % c_nFieldsInLine == 0) out.EndLine();
    }
  }
  SetRate(state, c_nNumbers);
}

void WriteStream(State& state) {
  const std::vector<double> numbers = MakeNumbers();
  std::ofstream strm("/dev/null", std::ios::binary);
  for (auto _ : state) {
    int nField = 0;
    for (const double d : numbers) {
      strm << std::setw(c_nWidth) << d;
      if (++nField % c_nFieldsInLine == 0) strm << '\n';
    }
    strm.flush();
  }
  SetRate(state, c_nNumbers);
}

/// A building with its mode file on disk for as long as the object lives.
class CModeFile {
 public:
  CModeFile() : m_pModel(BuildBuilding(c_shapes[1])) {
    m_pModel->m_nModes = c_nModes;
    m_pModel->m_nExpandModes = c_nModes;
    m_pModel->SolveModes(m_strJobPath, 0, false);
  }
  ~CModeFile() { std::filesystem::remove(GetPath()); }
  CModeFile(const CModeFile&) = delete;
  CModeFile& operator=(const CModeFile&) = delete;

  CAnalysisModel& GetModel() { return *m_pModel; }
  const std::string& GetJobPath() const { return m_strJobPath; }
  std::string GetPath() const { return m_strJobPath + ".mode"; }
  double GetSize() const { return static_cast<double>(std::filesystem::file_size(GetPath())); }

 private:
  std::string m_strJobPath = (std::filesystem::temp_directory_path() / "skyframe_bench_text").string();
  std::unique_ptr<CAnalysisModel> m_pModel;
};

void ReadOwn(State& state) {
  CModeFile file;
  for (auto _ : state) {
    file.GetModel().Omega.clear();
    file.GetModel().m_bFrequenciesLoaded = false;
    if (!file.GetModel().ReadModeFile(file.GetJobPath())) return state.SkipWithError("not read");
  }
  state.counters["MB"] = file.GetSize() * 1e-6;
}

/// The same file, every token by operator>>; a token that is no number is read as text.
void ReadStream(State& state) {
  const CModeFile file;
  for (auto _ : state) {
    std::ifstream strm(file.GetPath(), std::ios::binary);
    double dSum = 0.0, dValue = 0.0;
    std::string strWord;
    while (strm) {
      if (strm >> dValue) {
        dSum += dValue;
      } else if (!strm.eof()) {
        strm.clear();
        strm >> strWord;
      }
    }
    benchmark::DoNotOptimize(dSum);
  }
  state.counters["MB"] = file.GetSize() * 1e-6;
}

}  // namespace

}  // namespace skyframe::bench

int main(int argc, char** argv) {
  using namespace skyframe::bench;
  benchmark::Initialize(&argc, argv);
  const skyframe::test::CTestPlatform platform;
  benchmark::RegisterBenchmark("write/200k/skyframe", WriteOwn)->Unit(benchmark::kMillisecond);
  benchmark::RegisterBenchmark("write/200k/iostream", WriteStream)->Unit(benchmark::kMillisecond);
  benchmark::RegisterBenchmark("read/6k/skyframe", ReadOwn)->Unit(benchmark::kMillisecond);
  benchmark::RegisterBenchmark("read/6k/iostream", ReadStream)->Unit(benchmark::kMillisecond);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
