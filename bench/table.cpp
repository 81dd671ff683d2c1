#include <algorithm>
#include <array>
#include <cstdio>
#include <fstream>
#include <map>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

// Reads the JSON files that Google Benchmark has written and prints one table of ratios against the goals.
// A ratio takes the least processor time of all repetitions on either side.

namespace {

struct Measurement {
  double dTime = 0.0;  ///< s
  std::map<std::string, double> counters;
};

enum class Value {
  TimeRatio,      ///< time of first / time of second
  TimeRatioBack,  ///< time of second / time of first
  Rest,           ///< the counter rest of first
  RateRatio,      ///< GFLOP/s of first / GFLOP/s of second
  BandRatio,      ///< GB/s of first / GB/s of second
  ExtraMemory,    ///< extra_MB of first; the limit is 2 MB + 1 % of profile_MB
  MemoryRatio     ///< peak_MB / needed_MB of first
};

struct Goal {
  const char* strQuantity;
  const char* strSize;
  const char* strFirst;
  const char* strSecond;
  Value value;
  double dMust;
  double dStretch;
};

constexpr double c_dNone = 0.0;  ///< no goal

constexpr Goal c_goals[] = {
    {"factor time / dpbtrf", "6k", "factor/6k/skyframe", "factor/6k/dpbtrf", Value::TimeRatio, .75, .55},
    {"factor time / dpbtrf", "24k", "factor/24k/skyframe", "factor/24k/dpbtrf", Value::TimeRatio, .75, .55},
    {"factor time / dpbtrf", "60k", "factor/60k/skyframe", "factor/60k/dpbtrf", Value::TimeRatio, .75, .55},
    {"factor rate / dgemm, mean height 1540", "60k", "factor/60k/skyframe", "dgemm/1536/openblas", Value::RateRatio,
     .85, .95},
    {"factor rate / dgemm, mean height 737", "24k", "factor/24k/skyframe", "dgemm/1536/openblas", Value::RateRatio, .85,
     .95},
    {"factor rate / dgemm, mean height 251", "6k", "factor/6k/skyframe", "dgemm/1536/openblas", Value::RateRatio, .45,
     .65},
    {"factor rate / dgemm, mean height 123", "1.5k", "factor/1.5k/skyframe", "dgemm/1536/openblas", Value::RateRatio,
     .25, .40},
    {"factor time / CHOLMOD+METIS numeric", "24k", "factor/24k/skyframe", "factor/24k/cholmod", Value::TimeRatio, .7,
     .5},
    {"factor time / CHOLMOD+METIS numeric", "60k", "factor/60k/skyframe", "factor/60k/cholmod", Value::TimeRatio, 1.4,
     1.1},
    {"factor speed-up over textbook loops", "6k", "factor/6k/skyframe", "factor/6k/textbook", Value::TimeRatioBack, 7,
     11},
    {"factor speed-up over textbook loops", "24k", "factor/24k/skyframe", "factor/24k/textbook", Value::TimeRatioBack,
     12, 18},
    {"factor speed-up over textbook, 32-byte vectors", "24k", "factor/24k/bytes32", "factor/24k/textbook",
     Value::TimeRatioBack, c_dNone, c_dNone},
    {"factor time / Eigen simplicial", "6k", "factor/6k/skyframe", "factor/6k/eigen", Value::TimeRatio, c_dNone,
     c_dNone},
    {"solve / best of 1, 2, 4 streams read", "24k", "solve/24k/skyframe", "memory/24k/", Value::BandRatio, .90, .97},
    {"solve / best of 1, 2, 4 streams read", "60k", "solve/60k/skyframe", "memory/60k/", Value::BandRatio, .90, .97},
    {"solve time / dpbtrs", "6k", "solve/6k/skyframe", "solve/6k/dpbtrs", Value::TimeRatio, .95, .75},
    {"solve time / dpbtrs", "24k", "solve/24k/skyframe", "solve/24k/dpbtrs", Value::TimeRatio, .75, .6},
    {"8 right-hand sides, each / one alone", "6k", "solve8/6k/skyframe", "solve/6k/skyframe", Value::TimeRatio, c_dNone,
     c_dNone},
    {"8 right-hand sides, each / one alone", "24k", "solve8/24k/skyframe", "solve/24k/skyframe", Value::TimeRatio,
     c_dNone, c_dNone},
    {"20 modes, total / ARPACK + CHOLMOD", "6k", "modes/6k/skyframe", "modes/6k/arpack", Value::TimeRatio, .60, .45},
    {"20 modes, total / ARPACK + CHOLMOD", "24k", "modes/24k/skyframe", "modes/24k/arpack", Value::TimeRatio, 1.0, .8},
    {"Newmark step / CHOLMOD + CSR", "6k", "newmark/6k/skyframe", "newmark/6k/cholmod", Value::TimeRatio, .65, .45},
    {"Newmark step / CHOLMOD + CSR", "24k", "newmark/24k/skyframe", "newmark/24k/cholmod", Value::TimeRatio, 1.25, 1.0},
    {"Newmark step outside the solve / solve", "6k", "newmark/6k/skyframe", "newmark/6k/skyframe", Value::Rest, .35,
     .20},
    {"Newmark step outside the solve / solve", "24k", "newmark/24k/skyframe", "newmark/24k/skyframe", Value::Rest, .08,
     .04},
    {"result text, speed-up over iostream", "200k", "write/200k/skyframe", "write/200k/iostream", Value::TimeRatioBack,
     3, 4.5},
    {"mode file read, speed-up over iostream", "6k", "read/6k/skyframe", "read/6k/iostream", Value::TimeRatioBack, 5,
     c_dNone},
    {"without AVX2, factor rate / dgemm so", "24k", "factor/24k/bytes16", "dgemm/1536/bytes16", Value::RateRatio,
     c_dNone, c_dNone},
    {"without AVX-512, factor rate / dgemm so", "24k", "factor/24k/bytes32", "dgemm/1536/bytes32", Value::RateRatio,
     c_dNone, c_dNone},
    {"without AVX2, slow-down against 32-byte vectors", "24k", "factor/24k/bytes16", "factor/24k/bytes32",
     Value::TimeRatio, 4, 3},
    {"static run / factorisation and solution", "6k", "static/6k/program", "static/6k/solver", Value::TimeRatio, 3.0,
     2.0},
    {"static run / factorisation and solution", "24k", "static/24k/program", "static/24k/solver", Value::TimeRatio, 1.7,
     1.4},
    {"1,000 steps, whole run / solutions", "24k", "steps/24k/program", "steps/24k/solver", Value::TimeRatio, 1.4, 1.2},
    {"peak memory / needed: 20 modes, Sturm test", "24k", "modes-sturm/24k/program", "", Value::MemoryRatio, 2.2, 1.3},
    {"peak memory / needed: 20 modes, comparison", "24k", "modes-compare/24k/program", "", Value::MemoryRatio, 2.2,
     1.3},
    {"peak memory / needed: 1,000 steps", "24k", "steps/24k/program", "", Value::MemoryRatio, 1.4, 1.15},
    {"10 % of DOFs deleted / aligned, GFLOP/s", "24k", "factor/24k-deleted/skyframe", "factor/24k/skyframe",
     Value::RateRatio, .80, .92},
    {"every column its own top / aligned, GFLOP/s", "12k", "factor/12k-random/skyframe", "factor/24k/skyframe",
     Value::RateRatio, c_dNone, c_dNone},
    {"extra memory of the factorisation, MB", "6k", "factor/6k/skyframe", "", Value::ExtraMemory, c_dNone, c_dNone},
    {"extra memory of the factorisation, MB", "24k", "factor/24k/skyframe", "", Value::ExtraMemory, c_dNone, c_dNone},
    {"extra memory of the factorisation, MB", "60k", "factor/60k/skyframe", "", Value::ExtraMemory, c_dNone, c_dNone},
    {"assembly of K and M / factorisation", "24k", "assembly/24k/skyframe", "factor/24k/skyframe", Value::TimeRatio,
     .10, c_dNone},
    {"product by the skyline / by rows", "24k", "rows/24k/skyline", "rows/24k/skyframe", Value::TimeRatio, c_dNone,
     c_dNone},
};

/// Needs no second measurement.
bool IsOfOne(Value value) { return value == Value::ExtraMemory || value == Value::MemoryRatio; }

/// What counts: smaller values for shares of time and memory, greater ones for rates and speed-ups.
bool IsSmallerBetter(Value value) { return value == Value::TimeRatio || value == Value::Rest || IsOfOne(value); }

double ToSeconds(double dTime, const std::string& strUnit) {
  if (strUnit == "ns") return dTime * 1e-9;
  if (strUnit == "us") return dTime * 1e-6;
  return strUnit == "ms" ? dTime * 1e-3 : dTime;
}

std::string RemoveSuffix(std::string strName, const std::string& strSuffix) {
  if (strName.ends_with(strSuffix)) strName.resize(strName.size() - strSuffix.size());
  return strName;
}

class CTable {
 public:
  void Read(const std::string& strPath) {
    std::ifstream strm(strPath);
    const nlohmann::json document = nlohmann::json::parse(strm, nullptr, false);
    if (!document.contains("benchmarks")) return;  // a program that had nothing to run
    for (const auto& run : document["benchmarks"]) {
      if (run["run_type"] != "iteration" || run.contains("error_occurred")) continue;
      const bool bManual = std::string(run["name"]).find("/manual_time") != std::string::npos;
      const double dTime = ToSeconds(run[bManual ? "real_time" : "cpu_time"], run["time_unit"]);
      Measurement& best = m_measurements[RemoveSuffix(run["run_name"], "/manual_time")];
      if (best.dTime > 0.0 && best.dTime <= dTime) continue;
      best.dTime = dTime;
      for (const auto& [strKey, value] : run.items()) {
        if (value.is_number()) best.counters[strKey] = value;
      }
    }
  }

  void PrintGoals() const {
    std::printf("%-48s %-5s %9s %7s %8s  %s\n", "quantity", "size", "value", "must", "stretch", "reached");
    for (const Goal& goal : c_goals) PrintGoal(goal);
  }

  void PrintTimes() const {
    std::printf("\n%-32s %12s %10s %8s %10s\n", "measurement", "time, ms", "GFLOP/s", "GB/s", "residual");
    for (const auto& [strName, measurement] : m_measurements) {
      std::printf("%-32s %12.3f", strName.c_str(), measurement.dTime * 1e3);
      PrintCounter(measurement, "GFLOP/s", " %10.1f", 11);
      PrintCounter(measurement, "GB/s", " %8.1f", 9);
      PrintCounter(measurement, "residual", " %10.1e", 11);
      std::printf("\n");
    }
  }

 private:
  static void PrintCounter(const Measurement& measurement, const char* strName, const char* strFormat, int nWidth) {
    const auto it = measurement.counters.find(strName);
    if (it == measurement.counters.end()) {
      std::printf("%*s", nWidth, "");
    } else {
      std::printf(strFormat, it->second);
    }
  }

  /// With a name that ends in a slash the one of the greatest GB/s behind it.
  [[nodiscard]] const Measurement* Find(const std::string& strName) const {
    if (!strName.ends_with('/')) {
      const auto it = m_measurements.find(strName);
      return it == m_measurements.end() ? nullptr : &it->second;
    }
    const Measurement* pBest = nullptr;
    for (const auto& [strEach, measurement] : m_measurements) {
      if (!strEach.starts_with(strName)) continue;
      if (pBest == nullptr || GetCounter(measurement, "GB/s") > GetCounter(*pBest, "GB/s")) pBest = &measurement;
    }
    return pBest;
  }

  static double GetCounter(const Measurement& measurement, const char* strName) {
    const auto it = measurement.counters.find(strName);
    return it == measurement.counters.end() ? 0.0 : it->second;
  }

  [[nodiscard]] static double FormValue(Value value, const Measurement& first, const Measurement& second) {
    switch (value) {
      case Value::TimeRatio:
        return first.dTime / second.dTime;
      case Value::TimeRatioBack:
        return second.dTime / first.dTime;
      case Value::Rest:
        return GetCounter(first, "rest");
      case Value::RateRatio:
        return GetCounter(first, "GFLOP/s") / GetCounter(second, "GFLOP/s");
      case Value::BandRatio:
        return GetCounter(first, "GB/s") / GetCounter(second, "GB/s");
      case Value::MemoryRatio:
        return GetCounter(first, "peak_MB") / GetCounter(first, "needed_MB");
      case Value::ExtraMemory:
        break;
    }
    return GetCounter(first, "extra_MB");
  }

  void PrintGoal(const Goal& goal) const {
    const Measurement* const pFirst = Find(goal.strFirst);
    const Measurement* const pSecond = IsOfOne(goal.value) ? pFirst : Find(goal.strSecond);
    std::printf("%-48s %-5s", goal.strQuantity, goal.strSize);
    if (pFirst == nullptr || pSecond == nullptr) {
      std::printf(" %9s\n", "not run");
      return;
    }
    const double dValue = FormValue(goal.value, *pFirst, *pSecond);
    const double dMust = goal.value == Value::ExtraMemory ? 2.0 + 0.01 * GetCounter(*pFirst, "profile_MB") : goal.dMust;
    std::printf(" %9.2f", dValue);
    PrintLimit(dMust, 7);
    PrintLimit(goal.dStretch, 8);
    std::printf("  %s\n", Judge(goal.value, dValue, dMust, goal.dStretch).c_str());
  }

  static void PrintLimit(double dLimit, int nWidth) {
    if (dLimit == c_dNone) {
      std::printf(" %*s", nWidth, "-");
    } else {
      std::printf(" %*.2f", nWidth, dLimit);
    }
  }

  static std::string Judge(Value value, double dValue, double dMust, double dStretch) {
    const auto isReached = [&](double dLimit) { return IsSmallerBetter(value) ? dValue <= dLimit : dValue >= dLimit; };
    if (dStretch != c_dNone && isReached(dStretch)) return "stretch";
    if (dMust == c_dNone) return "";
    if (isReached(dMust)) return "must";
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "no: %.0f %% off", std::abs(dValue / dMust - 1.0) * 100.0);
    return text.data();
  }

  std::map<std::string, Measurement> m_measurements;
};

}  // namespace

int main(int argc, char** argv) {
  CTable table;
  for (int i = 1; i < argc; ++i) table.Read(argv[i]);
  table.PrintGoals();
  table.PrintTimes();
  return 0;
}
