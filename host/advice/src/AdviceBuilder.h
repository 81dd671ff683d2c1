#pragma once

#include <cmath>
#include <string>
#include <string_view>
#include <utility>

#include "skyframe/advice/Advice.h"
#include "skyframe/job/Language.h"

namespace skyframe::host {

/// Collects the advice on one run, and what every kind of run is asked.
class CAdviceBuilder {
 public:
  CAdviceBuilder(const Job& job, const RunFindings& findings) : m_job(job), m_findings(findings) {}

  void Warn(std::string strName, std::string strText) {
    m_list.push_back({Severity::Warning, std::move(strName), std::move(strText)});
  }
  void Error(std::string strName, std::string strText) {
    m_list.push_back({Severity::Error, std::move(strName), std::move(strText)});
  }
  [[nodiscard]] AdviceList Take() { return std::move(m_list); }

  /// More than 10 lost digits are doubtful, 13 a mechanism. A large model loses fewer before its round-off hides the
  /// rest: whether the supports hold it is seen from their places.
  void CheckConditioning();
  /// An error names the run's file with the suffix and the first place; false then.
  bool CheckNodeValues(const std::vector<NodeValues>& values, const Words& quantityAt, std::string_view strSuffix);
  bool CheckFinite(double dValue, const std::string& strWhat, std::string_view strSuffix);

 private:
  [[nodiscard]] std::string GetFileName(std::string_view strSuffix) const;

  const Job& m_job;
  const RunFindings& m_findings;
  AdviceList m_list;
};

}  // namespace skyframe::host
