#include "skyframe/history/HistoryFile.h"

#include <span>

#include "skyframe/platform/OutputFile.h"
#include "skyframe/platform/Progress.h"
#include "skyframe/values/ResultFiles.h"
#include "texts.h"

namespace skyframe {

namespace {

constexpr int c_nNumberWidth = 6;
constexpr int c_nValueWidth = 15;

/// Lines up to "--"; codes without a name have no line.
void WriteHeader(CTextWriter& out, const HistorySet& history, std::string_view strIncrement) {
  out.Text(texts::c_strNodeTotal).Integer(history.GetNodeCount()).EndLine();
  out.Text(texts::c_strElementTotal).Integer(history.GetElementCount()).EndLine();
  out.Text(texts::c_strStepTotal).Integer(history.nSteps).EndLine();
  out.Text(strIncrement).General(history.dTimeStep).EndLine();
  const auto nameLine = [&out](const auto& lines, int nCode) {
    if (nCode == 0 || nCode == 1) out.Text(lines[nCode]).EndLine();
  };
  nameLine(texts::c_strMethodLines, history.nMethod);
  nameLine(texts::c_strAssumptionLines, history.nAssumption);
  out.Text(texts::c_strHeaderEnd).EndLine();
}

void WriteBlock(CTextWriter& out, std::string_view strLabel, int nIndex, int nSteps,
                std::span<const CHistoryTable> quantities) {
  out.Text(strLabel).Integer(nIndex + 1, c_nNumberWidth, Align::Right).EndLine();
  for (int k = 0; k < nSteps; ++k) {
    out.Text(texts::c_strTimeLabel).Integer(k + 1, c_nNumberWidth, Align::Right);
    for (const CHistoryTable& values : quantities) out.General(values[k][nIndex], c_nValueWidth, Align::Right);
    out.EndLine();
  }
}

}  // namespace

bool WriteHistory(const HistorySet& history, const std::string& strPath, RunFindings& findings) {
  COutputFile file(strPath);
  CTextWriter& out = file.GetWriter();
  WriteHeader(out, history, texts::c_strIncrement);
  const std::span<const CHistoryTable> values = history.values;
  CProgress progress(texts::c_strWriteHistory, history.GetNodeCount() + history.GetElementCount());
  for (int i = 0; i < history.GetNodeCount(); ++i) {
    WriteBlock(out, texts::c_strNodeLabel, i, history.nSteps, values.first(c_nHistoryForce));
    progress.Advance();
  }
  for (int j = 0; j < history.GetElementCount(); ++j) {
    WriteBlock(out, texts::c_strMemberLabel, j, history.nSteps, values.subspan(c_nHistoryForce));
    progress.Advance();
  }
  return CommitResult(file, findings);
}

bool WriteCurve(const HistorySet& history, const HistoryCurve& curve, const std::string& strPrefix) {
  const bool bElement = curve.nQuantity == c_nHistoryForce;
  const std::string_view strSuffix = bElement ? suffix::c_strElementHistory : suffix::c_strNodeHistory;
  COutputFile file(strPrefix + "_" + std::to_string(curve.nNumber) + std::string(strSuffix));
  CTextWriter& out = file.GetWriter();
  WriteHeader(out, history, texts::c_strIncrementOfOne);
  const auto nQuantity = static_cast<std::size_t>(curve.nQuantity);
  out.Text(texts::c_strQuantityLines[nQuantity]).EndLine();
  for (int k = 0; k < history.nSteps; ++k) {
    out.Text(texts::c_strTimePoint).Integer(k + 1, c_nValueWidth, Align::Right);
    out.General(history.values[nQuantity][k][curve.nNumber - 1], c_nValueWidth, Align::Right).EndLine();
  }
  return file.Commit();
}

}  // namespace skyframe
