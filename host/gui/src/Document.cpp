#include "skyframe/gui/Document.h"

#include <algorithm>
#include <filesystem>
#include <span>
#include <system_error>
#include <utility>

#include "skyframe/job/DialogFields.h"
#include "skyframe/platform/OutputFile.h"
#include "skyframe/platform/Platform.h"
#include "skyframe/results/Histories.h"
#include "skyframe/run/DataDirectory.h"
#include "skyframe/values/ResultFiles.h"
#include "texts.h"

namespace skyframe::gui {

namespace {

/// Whether two analyses write the same result files.
bool WriteTheSame(const host::JobAnalysis& one, const host::JobAnalysis& other) {
  if (host::GetKind(one) != host::GetKind(other)) return false;
  const auto* const pOne = std::get_if<host::StaticJob>(&one);
  const auto* const pOther = std::get_if<host::StaticJob>(&other);
  return pOne == nullptr || *host::WithDefaults(*pOne).bNonlinear == *host::WithDefaults(*pOther).bNonlinear;
}

}  // namespace

std::vector<host::JobProblem> CDocument::Open(const QString& strFile) {
  const std::string strPath = strFile.toStdString();
  host::JobFile file = host::ReadJobFile(strPath);
  if (!file.errors.empty()) return file.errors;
  auto session = host::CSession::Open(std::move(file.job), host::GetJobPath(strPath), host::FindDataDirectory());
  if (!session) return {{"", std::string(host::Say(texts::c_pathTooLong))}};
  const bool bSameFile = strFile == m_strFile;
  m_onDisk = ReadWholeFile(strPath);
  m_session = std::move(session);
  m_warnings = std::move(file.warnings);
  m_strFile = strFile;
  m_bModified = false;
  m_strModel = host::FormModelMark(GetJob());
  if (!bSameFile) m_selection = {};
  m_nStep = 0;
  const auto IsGone = [](int nIndex, std::size_t nCount) { return static_cast<std::size_t>(nIndex) >= nCount; };
  std::erase_if(m_selection.nodes, [&](int i) { return IsGone(i, GetJob().nodes.size()); });
  std::erase_if(m_selection.elements, [&](int i) { return IsGone(i, GetJob().elements.size()); });
  ForgetResults();
  jobOpened.Send();
  selectionChanged.Send();
  analysesChanged.Send();
  resultsChanged.Send();
  return {};
}

std::optional<std::size_t> CDocument::FindAnalysis(host::AnalysisKind kind) const {
  const auto& analyses = GetJob().analyses;
  const auto it = std::ranges::find(analyses, kind, host::GetKind);
  return it == analyses.end() ? std::nullopt : std::optional(static_cast<std::size_t>(it - analyses.begin()));
}

void CDocument::KeepAnalysis(std::optional<std::size_t> nIndex, const host::JobAnalysis& analysis) {
  std::vector<host::JobAnalysis> analyses = GetJob().analyses;
  auto it = nIndex ? analyses.begin() + static_cast<std::ptrdiff_t>(*nIndex) : analyses.end();
  if (it == analyses.end() || !WriteTheSame(analysis, *it)) {
    it = std::ranges::find_if(analyses, [&](const auto& other) { return WriteTheSame(analysis, other); });
  }
  if (it == analyses.end()) {
    analyses.push_back(analysis);
  } else if (host::MeanTheSame(*it, analysis)) {
    return;
  } else {
    *it = analysis;
  }
  SetAnalyses(std::move(analyses));
}

void CDocument::SetAnalyses(std::vector<host::JobAnalysis> analyses) {
  m_session->SetAnalyses(std::move(analyses));
  m_bModified = true;
  analysesChanged.Send();
}

bool CDocument::IsChangedOnDisk() const {
  const std::optional<std::string> now = ReadWholeFile(m_strFile.toStdString());
  return now && now != m_onDisk;
}

std::string CDocument::Save(const QString& strFile) {
  COutputFile file(strFile.toStdString());
  file.GetStream() << host::FormatJob(GetJob());
  if (!file.Commit()) return file.GetError();
  m_bModified = false;
  m_onDisk = ReadWholeFile(strFile.toStdString());
  if (strFile != m_strFile) {
    const std::vector<host::JobProblem> errors = Open(strFile);
    return errors.empty() ? std::string() : errors.front().strReason;
  }
  analysesChanged.Send();
  return {};
}

template <class File, class Reader>
const File* CDocument::Get(Kept<File>& kept, std::string_view strSuffix, Reader reader) {
  if (!IsOpen()) return nullptr;
  if (!kept) kept = reader(GetJobPath() + std::string(strSuffix));
  return kept->has_value() ? &**kept : nullptr;
}

const host::StaticResultFile* CDocument::GetStatic(bool bNonlinear) {
  const auto read = [this](const std::string& strPath) {
    return host::ReadStaticResultFile(strPath, GetJob().nodes.size());
  };
  return bNonlinear ? Get(m_nonlinear, suffix::c_strStaticNonlinear, read)
                    : Get(m_linear, suffix::c_strStaticLinear, read);
}

const host::ModeResultFile* CDocument::GetModes() {
  return Get(m_modes, suffix::c_strModes,
             [this](const std::string& strPath) { return host::ReadModeResultFile(strPath, GetJob().nodes); });
}

const host::SpectrumResultFile* CDocument::GetSpectrum() {
  return Get(m_spectrum, suffix::c_strSpectrum,
             [this](const std::string& strPath) { return host::ReadSpectrumResultFile(strPath, GetJob().nodes); });
}

const HistorySet* CDocument::GetHistories() {
  if (!IsOpen()) return nullptr;
  if (const HistorySet& run = m_session->GetHistories(); run.nSteps > 0) return &run;
  return Get(m_histories, suffix::c_strHistory, [this](const std::string& strPath) {
    const host::HistoryModel model = {static_cast<int>(GetJob().nodes.size()),
                                      static_cast<int>(GetJob().elements.size())};
    const auto file = host::ReadHistoryFile(strPath, model);
    return file ? host::Reading<HistorySet>(host::FormHistorySet(*file)) : host::Reading<HistorySet>();
  });
}

bool CDocument::HasResult(host::ResultKind kind) const {
  if (!IsOpen()) return false;
  if (kind == host::ResultKind::History && m_session->GetHistories().nSteps > 0) return true;
  std::error_code error;
  return std::filesystem::is_regular_file(ToFilePath(GetJobPath() + std::string(GetSuffix(kind))), error);
}

host::Reading<host::StructureForces> CDocument::FormForces(host::ResultKind kind) {
  const host::StructureSize size = {GetJob().nodes.size(), GetJob().elements.size()};
  const auto form = [size](const auto* pFile) {
    return pFile == nullptr ? host::Reading<host::StructureForces>() : host::FormMemberForces(*pFile, size);
  };
  if (kind == host::ResultKind::Spectrum) return form(GetSpectrum());
  if (kind == host::ResultKind::Linear || kind == host::ResultKind::Nonlinear)
    return form(GetStatic(kind == host::ResultKind::Nonlinear));
  const HistorySet* const pHistories = kind == host::ResultKind::History ? GetHistories() : nullptr;
  if (pHistories == nullptr || m_nStep >= pHistories->nSteps) return {};
  const CHistoryTable& forces = pHistories->values[c_nHistoryForce];
  return host::FormMemberForces(std::span(forces[m_nStep], static_cast<std::size_t>(forces.GetCols())), size);
}

const host::StructureForces* CDocument::GetForces(host::ResultKind kind) {
  if (!IsOpen()) return nullptr;
  auto& kept = m_forces[static_cast<std::size_t>(kind)];
  if (!kept) kept = FormForces(kind);
  return kept->has_value() ? &**kept : nullptr;
}

void CDocument::SetStep(int nStep) {
  if (std::exchange(m_nStep, nStep) == nStep) return;
  m_forces[static_cast<std::size_t>(host::ResultKind::History)].reset();
  stepChanged.Send();
}

bool CDocument::IsOutdated(std::string_view strSuffix) const { return m_stamps.IsOutdated(strSuffix, m_strModel); }

bool CDocument::HasOutdatedResults() const {
  const auto& stamps = m_stamps.GetAll();
  return std::ranges::any_of(stamps, [this](const host::ResultStamp& stamp) {
    return std::ranges::any_of(stamp.files, [this](const auto& file) { return IsOutdated(file.first); });
  });
}

const host::Advice* CDocument::FindError(std::string_view strSuffix) const {
  const host::ResultStamp* const pStamp = m_stamps.Find(strSuffix);
  if (pStamp == nullptr) return nullptr;
  const host::AdviceList& list = pStamp->advice[static_cast<std::size_t>(host::GetLanguage())];
  const auto it = std::ranges::find(list, host::Severity::Error, &host::Advice::severity);
  return it == list.end() ? nullptr : &*it;
}

const host::ResultStamp* CDocument::FindStamp(const host::JobAnalysis& analysis) const {
  for (const host::ResultStamp& stamp : m_stamps.GetAll()) {
    const auto isThere = [&](const auto& file) { return m_stamps.Holds(stamp, file.first); };
    if (stamp.files.empty() || !std::ranges::all_of(stamp.files, isThere)) continue;
    const std::optional<host::JobAnalysis> run = host::ParseAnalysis(stamp.strAnalysis, GetJob());
    if (run && host::MeanTheSame(*run, analysis)) return &stamp;
  }
  return nullptr;
}

void CDocument::ForgetResults() {
  m_linear.reset();
  m_nonlinear.reset();
  m_modes.reset();
  m_spectrum.reset();
  m_histories.reset();
  m_forces = {};
  m_stamps = IsOpen() ? host::CStamps::Read(GetJobPath()) : host::CStamps();
}

void CDocument::RefreshResults() {
  ForgetResults();
  resultsChanged.Send();
}

void CDocument::Select(Selection selection) {
  if (selection == m_selection) return;
  m_selection = std::move(selection);
  selectionChanged.Send();
}

void CDocument::SetLanguage(host::Language language) {
  if (host::SetLanguage(language) == language) return;
  if (IsOpen()) m_warnings = host::ParseJob(host::FormatJob(GetJob()), GetJobPath()).warnings;
  m_languageChanged.Send();
}

void CDocument::OnLanguage(const std::function<void()>& speak) {
  speak();
  m_languageChanged.Connect(speak);
}

}  // namespace skyframe::gui
