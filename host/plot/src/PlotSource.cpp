#include "PlotSource.h"

#include <cmath>
#include <filesystem>

#include "skyframe/job/Text.h"
#include "skyframe/platform/Platform.h"
#include "skyframe/run/Stamps.h"
#include "skyframe/values/ResultFiles.h"
#include "texts.h"

namespace skyframe::host {

std::string CPlotSource::GetTitle() const {
  const std::string strTitle =
      m_job.strTitle.empty() ? FromFilePath(ToFilePath(m_strJobPath).filename()) : m_job.strTitle;
  return m_bOutdated ? Say(texts::c_outdated, {strTitle}) : strTitle;
}

HistoryModel CPlotSource::GetHistoryModel() const {
  return {static_cast<int>(m_job.nodes.size()), static_cast<int>(m_job.elements.size())};
}

std::nullopt_t CPlotSource::Refuse(std::string_view strReason) {
  m_err << EscapeControls(strReason) << '\n';
  return std::nullopt;
}

std::nullopt_t CPlotSource::Refuse(const std::string& strPath, std::string_view strReason) {
  return Refuse(strPath + ": " + std::string(strReason));
}

bool CPlotSource::HasFile(std::string_view strSuffix) const {
  std::error_code error;
  return std::filesystem::is_regular_file(ToFilePath(m_strJobPath + std::string(strSuffix)), error);
}

std::optional<std::string> CPlotSource::FindFile(std::string_view strSuffix, const Words& analysis) {
  std::string strPath = m_strJobPath + std::string(strSuffix);
  if (!HasFile(strSuffix)) return Refuse(strPath, Say(texts::c_notThere, {Say(analysis)}));
  for (const Advice& advice : AdviseOnAge(m_job, m_strJobPath, strSuffix)) {
    const std::string strWarning = FormatAdvice(advice);
    if (m_warned.insert(strWarning).second) m_err << EscapeControls(strWarning) << '\n';
    m_bOutdated = true;
  }
  return strPath;
}

std::optional<ModeResultFile> CPlotSource::LoadModes() {
  const auto strPath = FindFile(suffix::c_strModes, texts::c_modalAnalysis);
  if (!strPath) return std::nullopt;
  auto file = Take(*strPath, ReadModeResultFile(*strPath, m_job.nodes));
  for (std::size_t i = 0; file && i < file->omega.size(); ++i) {
    const double omega = file->omega[i];
    if (omega > 0.0 && std::isnormal(omega * omega)) continue;  // what the module reads
    return Refuse(*strPath, Say(texts::c_badFrequency, {std::to_string(i + 1)}));
  }
  return file;
}

std::optional<StaticResultFile> CPlotSource::LoadStatic(ResultKind kind) {
  const auto strPath =
      FindFile(GetSuffix(kind), kind == ResultKind::Nonlinear ? texts::c_nonlinearAnalysis : texts::c_linearAnalysis);
  if (!strPath) return std::nullopt;
  return Take(*strPath, ReadStaticResultFile(*strPath, m_job.nodes.size()));
}

}  // namespace skyframe::host
