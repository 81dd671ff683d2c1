#include "skyframe/run/RunReport.h"

#include <cmath>
#include <filesystem>
#include <sstream>

#include "skyframe/connect/Findings.h"
#include "skyframe/job/Places.h"
#include "skyframe/job/Text.h"
#include "skyframe/platform/Platform.h"
#include "skyframe/report/HistoryReport.h"
#include "skyframe/report/ModalReport.h"
#include "skyframe/report/SpectrumReport.h"
#include "skyframe/report/StaticReport.h"

namespace skyframe::host {

namespace {

AdviceList ReportStatic(const CSession& session, std::ostream& out) {
  const StaticFindings& findings = GetStaticFindings();
  if (findings.status == RunStatus::Done) PrintStaticReport(session.GetJob(), findings, out);
  return AdviseOnStatic(session.GetJob(), findings);
}

AdviceList ReportModes(const CSession& session, bool bCountModes, std::ostream& out) {
  const ModalFindings& findings = GetModalFindings();
  AdviceList list = AdviseOnModes(session.GetJob(), findings);
  if (findings.status != RunStatus::Done) return list;
  PrintModalReport(findings, out);
  if (!bCountModes) return list;
  const std::optional<ModeCount> count = CountModes(findings);
  PrintModeCount(count, out);
  for (Advice& advice : AdviseOnCount(findings, count)) list.push_back(std::move(advice));
  return list;
}

AdviceList ReportSpectrum(const CSession& session, std::ostream& out) {
  const SpectrumFindings& findings = GetSpectrumFindings();
  if (findings.status == RunStatus::Done) PrintSpectrumReport(session.GetJob(), findings, out);
  return AdviseOnSpectrum(session.GetJob(), findings);
}

AdviceList ReportHistory(const CSession& session, std::ostream& out) {
  const HistoryFindings& findings = GetHistoryFindings();
  const HistorySet& histories = session.GetHistories();
  if (findings.status == RunStatus::Done) PrintHistoryReport(session.GetJob(), histories, out);
  return AdviseOnHistory(session.GetJob(), findings, histories);
}

AdviceList ReportFigures(const CSession& session, AnalysisKind kind, bool bCountModes, std::ostream& out) {
  switch (kind) {
    case AnalysisKind::Static:
      return ReportStatic(session, out);
    case AnalysisKind::Modal:
      return ReportModes(session, bCountModes, out);
    case AnalysisKind::Spectrum:
      return ReportSpectrum(session, out);
    default:
      return ReportHistory(session, out);
  }
}

void PrintConditioning(const Job& job, const Conditioning& conditioning, std::ostream& out) {
  if (conditioning.place.nNode == 0) return;
  const std::string strDigits =
      std::isfinite(conditioning.dLostDigits) ? Format("%.1f", conditioning.dLostDigits) : std::string("all");
  out << "  conditioning          " << strDigits << " digits lost, at " << DescribePlace(job, conditioning.place)
      << '\n';
}

void PrintFiles(const RunFindings& findings, std::ostream& out) {
  if (findings.status == RunStatus::Done) out << Format("  time                  %.2f s\n", findings.dSeconds);
  for (const std::string& strPath : findings.files) {
    std::error_code error;
    out << "  file                  " << EscapeControls(strPath) << ", "
        << std::filesystem::file_size(ToFilePath(strPath), error) << " bytes\n";
  }
}

}  // namespace

RunReport ReportRun(const CSession& session, AnalysisKind kind, bool bCountModes) {
  const RunFindings& findings = GetFindings(kind);
  std::ostringstream out;
  if (findings.status != RunStatus::Done) out << "  no result\n";
  RunReport report;
  report.advice = ReportFigures(session, kind, bCountModes, out);
  PrintConditioning(session.GetJob(), findings.conditioning, out);
  for (const Advice& advice : report.advice) out << "  " << EscapeControls(FormatAdvice(advice)) << '\n';
  PrintFiles(findings, out);
  report.strSummary = out.str();
  return report;
}

}  // namespace skyframe::host
