#include "skyframe/run/RunReport.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <iterator>
#include <sstream>

#include "skyframe/connect/Findings.h"
#include "skyframe/job/Language.h"
#include "skyframe/job/Places.h"
#include "skyframe/job/Text.h"
#include "skyframe/platform/Platform.h"
#include "skyframe/report/HistoryReport.h"
#include "skyframe/report/ModalReport.h"
#include "skyframe/report/SpectrumReport.h"
#include "skyframe/report/StaticReport.h"
#include "skyframe/report/SummaryLine.h"
#include "texts.h"

namespace skyframe::host {

namespace {

using Count = std::optional<ModeCount>;

void PrintFigures(const CSession& session, AnalysisKind kind, std::ostream& out) {
  switch (kind) {
    case AnalysisKind::Static:
      return PrintStaticReport(session.GetJob(), GetStaticFindings(), out);
    case AnalysisKind::Modal:
      return PrintModalReport(GetModalFindings(), out);
    case AnalysisKind::Spectrum:
      return PrintSpectrumReport(session.GetJob(), GetSpectrumFindings(), out);
    default:
      return PrintHistoryReport(session.GetJob(), session.GetHistories(), out);
  }
}

/// pCount: what a count of the modes found; null: nobody counted.
AdviceList Advise(const CSession& session, AnalysisKind kind, const Count* pCount) {
  const Job& job = session.GetJob();
  if (kind == AnalysisKind::Static) return AdviseOnStatic(job, GetStaticFindings());
  if (kind == AnalysisKind::Spectrum) return AdviseOnSpectrum(job, GetSpectrumFindings());
  if (kind == AnalysisKind::TimeHistory) return AdviseOnHistory(job, GetHistoryFindings(), session.GetHistories());
  AdviceList list = AdviseOnModes(job, GetModalFindings());
  if (pCount != nullptr) std::ranges::move(AdviseOnCount(GetModalFindings(), *pCount), std::back_inserter(list));
  return list;
}

void PrintConditioning(const Job& job, const Conditioning& conditioning, std::ostream& out) {
  if (conditioning.place.nNode == 0) return;
  const double dLost = conditioning.dLostDigits;
  const std::string strPlace = DescribePlace(job, conditioning.place);
  PrintLine(Say(texts::c_conditioning),
            std::isfinite(dLost) ? Say(texts::c_digitsLost, {Format("%.1f", dLost), strPlace})
                                 : Say(texts::c_allDigitsLost, {strPlace}),
            out);
}

void PrintFiles(const CSession& session, AnalysisKind kind, std::ostream& out) {
  const RunFindings& findings = GetFindings(kind);
  if (findings.status == RunStatus::Done) PrintLine(Say(texts::c_time), Format("%.2f s", findings.dSeconds), out);
  for (const std::string& strPath : session.GetFiles(kind)) {
    std::error_code error;
    const std::uintmax_t nBytes = std::filesystem::file_size(ToFilePath(strPath), error);
    PrintLine(Say(texts::c_file), Say(texts::c_bytes, {EscapeControls(strPath), std::to_string(nBytes)}), out);
  }
}

std::string Summarise(const CSession& session, AnalysisKind kind, const Count* pCount, const AdviceList& list) {
  const RunFindings& findings = GetFindings(kind);
  const bool bDone = findings.status == RunStatus::Done;
  std::ostringstream out;
  if (!bDone) out << "  " << Say(texts::c_noResult) << '\n';
  if (bDone) PrintFigures(session, kind, out);
  if (pCount != nullptr) PrintModeCount(*pCount, out);
  PrintConditioning(session.GetJob(), findings.conditioning, out);
  for (const Advice& advice : list) out << "  " << EscapeControls(FormatAdvice(advice)) << '\n';
  PrintFiles(session, kind, out);
  return out.str();
}

}  // namespace

RunReport ReportRun(const CSession& session, AnalysisKind kind, bool bCountModes) {
  const bool bDone = GetFindings(kind).status == RunStatus::Done;
  const bool bCount = bDone && bCountModes && kind == AnalysisKind::Modal;
  const Count count = bCount ? CountModes(GetModalFindings()) : std::nullopt;
  RunReport report;
  for (const Language language : {Language::English, Language::Chinese}) {
    const CLanguageScope scope(language);
    const auto k = static_cast<std::size_t>(language);
    report.adviceIn[k] = Advise(session, kind, bCount ? &count : nullptr);
    report.summaryIn[k] = Summarise(session, kind, bCount ? &count : nullptr, report.adviceIn[k]);
  }
  return report;
}

}  // namespace skyframe::host
