#include "skyframe/advice/Advice.h"

#include <algorithm>

#include "AdviceBuilder.h"
#include "skyframe/job/FreeBody.h"
#include "skyframe/job/Places.h"
#include "skyframe/job/Text.h"
#include "skyframe/platform/Platform.h"
#include "texts.h"

namespace skyframe::host {

bool HasError(const AdviceList& list) {
  return std::ranges::any_of(list, [](const Advice& advice) { return advice.severity == Severity::Error; });
}

std::string FormatAdvice(const Advice& advice) {
  const Words& words = advice.severity == Severity::Error ? texts::c_error : texts::c_warning;
  return Say(words, {advice.strText, advice.strName});
}

std::string FormatFailure(const FileFailure& failure) {
  return Say(texts::c_cannotWrite, {failure.strPath, SayForeign(failure.strReason, texts::c_writeReasons)});
}

AdviceList AdviseOnInput(const std::vector<JobProblem>& warnings) {
  AdviceList list;
  for (const JobProblem& problem : warnings) {
    list.push_back({Severity::Warning, problem.strName, FormatProblem(problem)});
  }
  return list;
}

AdviceList AdviseOnFiles(const RunFindings& findings) {
  AdviceList list;
  for (const FileFailure& failure : findings.failures) {
    list.push_back({Severity::Error, "file-not-written", FormatFailure(failure)});
  }
  return list;
}

void CAdviceBuilder::CheckConditioning() {
  constexpr double c_dAllDigits = 16.0;  // of a double
  constexpr double c_dDoubtful = 10.0;
  constexpr double c_dMechanism = 13.0;
  const Conditioning& conditioning = m_findings.conditioning;
  const double dLost = conditioning.dLostDigits;
  if (conditioning.place.nNode == 0) return;
  const std::string strPlace = DescribePlace(m_job, conditioning.place);
  if (dLost >= c_dMechanism) {
    const std::string strLost =
        dLost < c_dAllDigits ? Say(texts::c_digitsLost, {Format("%.1f", dLost)}) : std::string(Say(texts::c_allLost));
    Error("mechanism", Say(texts::c_mechanism, {strPlace, strLost}));
  } else if (const std::optional<DofPlace> place = FindFreeBody(m_job)) {
    Error("mechanism", Say(texts::c_freeBody, {DescribePlace(m_job, *place)}));
  } else if (dLost > c_dDoubtful) {
    const std::string strLeft = Format("%.0f", std::floor(c_dAllDigits - dLost));
    Warn("conditioning", Say(texts::c_conditioning, {Format("%.1f", dLost), strPlace, strLeft}));
  }
}

bool CAdviceBuilder::CheckNodeValues(const std::vector<NodeValues>& values, const Words& quantityAt,
                                     std::string_view strSuffix) {
  for (std::size_t i = 0; i < values.size(); ++i) {
    const auto it = std::ranges::find_if_not(values[i], [](double d) { return std::isfinite(d); });
    if (it == values[i].end()) continue;
    const DofPlace place = {static_cast<int>(i) + 1, static_cast<int>(it - values[i].begin())};
    return CheckFinite(*it, Say(quantityAt, {DescribePlace(m_job, place)}), strSuffix);
  }
  return true;
}

std::string CAdviceBuilder::GetFileName(std::string_view strSuffix) const {
  for (const std::string& strPath : m_findings.files) {
    if (strPath.ends_with(strSuffix)) return FromFilePath(ToFilePath(strPath).filename());
  }
  return "*" + std::string(strSuffix);
}

bool CAdviceBuilder::CheckFinite(double dValue, const std::string& strWhat, std::string_view strSuffix) {
  if (std::isfinite(dValue)) return true;
  Error("not-finite", Say(texts::c_notFinite, {GetFileName(strSuffix), strWhat}));
  return false;
}

}  // namespace skyframe::host
