#include "skyframe/run/Session.h"

#include <algorithm>

#include "Records.h"
#include "skyframe/connect/Findings.h"
#include "skyframe/connect/Histories.h"
#include "skyframe/connect/ModeConnect.h"
#include "skyframe/hostdata/HostData.h"
#include "skyframe/job/DialogFields.h"
#include "skyframe/run/Scripts.h"
#include "skyframe/values/DialogIds.h"
#include "skyframe/values/ResultFiles.h"

namespace skyframe::host {

namespace {

/// What a person does in the viewer to choose it.
std::vector<DialogStep> ChooseHistory(const HistoryChoice& curve) {
  const bool bElement = curve.nQuantity == c_nHistoryForce;
  std::vector<DialogStep> steps = {
      DialogStep::Choose(bElement ? c_nIdElementHistory : c_nIdNodeHistory),
      DialogStep::Type(bElement ? c_nIdHistoryElement : c_nIdHistoryNode, std::to_string(curve.nNumber))};
  if (!bElement) steps.push_back(DialogStep::Choose(c_nIdHistoryX + curve.nQuantity));
  return steps;
}

}  // namespace

AnalysisKind GetKind(const JobAnalysis& analysis) {
  if (std::holds_alternative<StaticJob>(analysis)) return AnalysisKind::Static;
  if (std::holds_alternative<ModalJob>(analysis)) return AnalysisKind::Modal;
  return std::holds_alternative<SpectrumJob>(analysis) ? AnalysisKind::Spectrum : AnalysisKind::TimeHistory;
}

const RunFindings& GetFindings(AnalysisKind kind) {
  switch (kind) {
    case AnalysisKind::Static:
      return GetStaticFindings();
    case AnalysisKind::Modal:
      return GetModalFindings();
    case AnalysisKind::Spectrum:
      return GetSpectrumFindings();
    default:
      return GetHistoryFindings();
  }
}

std::optional<CSession> CSession::Open(Job job, std::string strJobPath, const std::string& strProgramPath) {
  if (!FillRecords(job, strJobPath, strProgramPath)) return std::nullopt;
  return CSession(std::move(job), std::move(strJobPath));
}

CSession::CSession(Job job, std::string strJobPath)
    : m_job(std::move(job)), m_strJobPath(std::move(strJobPath)), m_nKeptBefore(skyframe::GetHistories().nKept) {}

const RunFindings& CSession::Run(AnalysisKind kind) {
  if (kind == AnalysisKind::TimeHistory) m_outputs.clear();
  switch (kind) {
    case AnalysisKind::Static:
      CModeConnect::OnStaticNonlinearSol();
      break;
    case AnalysisKind::Modal:
      CModeConnect::OnMode();
      break;
    case AnalysisKind::Spectrum:
      CModeConnect::OnAnsysSpectrum();
      break;
    case AnalysisKind::TimeHistory:
      CModeConnect::OnTimeHistoryAnalysis();
      break;
  }
  return GetFindings(kind);
}

const RunFindings& CSession::Run(const JobAnalysis& analysis, CHostPlatform& platform) {
  if (const auto* pSpectrum = std::get_if<SpectrumJob>(&analysis)) {
    const SpectrumJob whole = WithDefaults(*pSpectrum);
    COMDYN.m_bVirtualModes = *whole.bVirtualMode ? 1 : 0;
    COMDYN.m_nPseudoLoadNo = *whole.nPseudoLoad;
  }
  platform.Clear();
  AddScripts(analysis, platform);
  const RunFindings& findings = Run(GetKind(analysis));
  platform.EndProgress();
  return findings;
}

void CSession::ShowHistories() { CModeConnect::OnTimeHistoryRes(); }

bool CSession::PaintViewer(const HistoryChoice& curve, CHostPlatform& platform, IPaintContext& paint) {
  std::vector<DialogStep> steps = ChooseHistory(curve);
  steps.push_back(DialogStep::Click(c_nIdRefresh));
  steps.push_back(DialogStep::Draw(paint));
  platform.Clear();
  platform.AddScript(c_nIdHisResultDlg, std::move(steps));
  ShowHistories();
  return platform.GetMessages().empty() && platform.GetScriptErrors().empty();
}

bool CSession::WriteOutputs(const JobOutputs& outputs, CHostPlatform& platform) {
  const auto write = [&](const HistoryChoice& curve, std::string_view strSuffix) {
    std::vector<DialogStep> steps = ChooseHistory(curve);
    steps.push_back(DialogStep::Click(c_nIdOutput));
    steps.push_back(DialogStep::Ok());
    platform.AddScript(c_nIdHisResultDlg, std::move(steps));
    const std::size_t nMessages = platform.GetMessages().size();
    ShowHistories();
    if (platform.GetMessages().size() > nMessages || !platform.GetScriptErrors().empty()) return false;
    m_outputs.push_back(m_strJobPath + "_" + std::to_string(curve.nNumber) + std::string(strSuffix));
    return true;
  };
  bool bGood = true;
  for (const JobOutputNode& node : outputs.nodes) {
    bGood = write({c_nHistoryX + node.nDirection, node.nNode}, suffix::c_strNodeHistory) && bGood;
  }
  for (const int nElement : outputs.elements) {
    bGood = write({c_nHistoryForce, nElement}, suffix::c_strElementHistory) && bGood;
  }
  return bGood;
}

std::vector<std::string> CSession::GetFiles(AnalysisKind kind) const {
  std::vector<std::string> files = GetFindings(kind).files;
  if (kind == AnalysisKind::TimeHistory) files.insert(files.end(), m_outputs.begin(), m_outputs.end());
  return files;
}

const HistorySet& CSession::GetHistories() const {
  const HistorySet& histories = skyframe::GetHistories();
  return histories.nKept > m_nKeptBefore ? histories : m_none;
}

std::optional<ModelMeasure> CSession::Measure() const {
  const bool bForModes = std::ranges::any_of(m_job.analyses, [](const JobAnalysis& analysis) {
    return GetKind(analysis) == AnalysisKind::Modal || GetKind(analysis) == AnalysisKind::Spectrum;
  });
  return MeasureModel(bForModes);
}

}  // namespace skyframe::host
