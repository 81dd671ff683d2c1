#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "skyframe/advice/Advice.h"
#include "skyframe/job/Job.h"
#include "skyframe/job/Language.h"
#include "skyframe/run/RunReport.h"
#include "skyframe/run/Session.h"

namespace skyframe::host {

/// What one run wrote, from which model and with which parameters.
struct ResultStamp {
  std::string strModel;                         ///< FormModelMark of the job that was run
  std::string strVersion;                       ///< of the program
  std::string strTime;                          ///< local, at the end of the run: "2026-11-21 23:05:09"
  std::string strAnalysis;                      ///< all its parameters, JSON as in a job file
  std::map<std::string, std::uintmax_t> files;  ///< bytes by suffix behind the job path
  std::array<AdviceList, 2> advice;             ///< on the run, by Language

  bool operator==(const ResultStamp&) const = default;
};

/// Short mark of nodes, springs, sections, elements and loads: jobs with equal marks are the same structure.
[[nodiscard]] std::string FormModelMark(const Job& job);

/// The stamps beside a job.
class CStamps {
 public:
  CStamps() = default;
  /// None when there is no such file; what is damaged in it is left out.
  [[nodiscard]] static CStamps Read(const std::string& strJobPath);

  [[nodiscard]] const std::vector<ResultStamp>& GetAll() const { return m_stamps; }
  /// Whether the result file is still as the run wrote it.
  [[nodiscard]] bool Holds(const ResultStamp& stamp, std::string_view strSuffix) const;
  /// The run that wrote the result file as it is now; null when it is not known.
  [[nodiscard]] const ResultStamp* Find(std::string_view strSuffix) const;
  /// Whether the result file is known to come from another model than the one with this mark.
  [[nodiscard]] bool IsOutdated(std::string_view strSuffix, std::string_view strModel) const;

  /// A run that has ended: its files have no other stamp any more.
  void Add(ResultStamp stamp);
  /// Empty when the file was written, else the reason why not.
  [[nodiscard]] std::string Write() const;

 private:
  explicit CStamps(std::string strJobPath) : m_strJobPath(std::move(strJobPath)) {}

  std::string m_strJobPath;
  std::vector<ResultStamp> m_stamps;
};

/// Adds what the run just ended has written. Empty when all went well, else why the stamps could not be written.
[[nodiscard]] std::string StampResults(const CSession& session, const JobAnalysis& analysis, const RunReport& report);

/// A warning when the result file comes from another model than the job.
[[nodiscard]] AdviceList AdviseOnAge(const Job& job, const std::string& strJobPath, std::string_view strSuffix);

}  // namespace skyframe::host
