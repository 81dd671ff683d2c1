#include "skyframe/book/CalculationReport.h"

#include "Chapters.h"
#include "Figures.h"
#include "skyframe/job/Text.h"
#include "skyframe/platform/Platform.h"
#include "texts.h"

namespace skyframe::host {

namespace {

std::string FormatNow() {
  const LocalTime t = GetPlatform().GetLocalTime();
  return Format("%04d-%02d-%02d %02d:%02d", t.nYear, t.nMonth, t.nDay, t.nHour, t.nMinute);
}

std::string FormatProgram() { return "Skyframe " SKYFRAME_VERSION; }

/// Title block.
std::string FormatCover(const BookData& book, const std::string& strNow) {
  CPage block;
  std::vector<std::pair<std::string, std::string>> facts = {
      {Tell({"Structure", "结构类型"}), DescribeStructure(book.job.report)},
      {Tell({"Limits", "限值依据"}), GetCodeName(book.job.report)}};
  if (book.job.report.strEngineer) facts.emplace_back(Tell({"Engineer", "计算人"}), *book.job.report.strEngineer);
  facts.emplace_back(Tell({"Job file", "作业文件"}), FromFilePath(ToFilePath(book.strJobPath).filename()) + ".json");
  facts.emplace_back(Tell({"Program", "程序"}), FormatProgram());
  facts.emplace_back(Tell({"Date", "日期"}), strNow);
  block.Facts(facts);
  return "<header class=\"cover\"><div class=\"kind\">" + Tell({"CALCULATION REPORT", "结构计算书"}) + "</div>\n<h1>" +
         EscapeHtml(book.GetTitle()) + "</h1>\n" + block.GetBody() + "</header>\n";
}

}  // namespace

std::string WriteReport(const Job& job, const std::string& strJobPath, const std::vector<JobProblem>& warnings) {
  const BookData book = CollectBook(job, strJobPath, warnings);
  CPage page;
  for (const auto pWrite : {WriteProject, WriteParameters, WriteModel, WriteLoads, WriteStatics, WriteModes,
                            WriteSpectra, WriteHistory, WriteChecks, WriteForces, WriteAppendices}) {
    pWrite(page, book);
  }
  const std::string strNow = FormatNow();
  return page.Finish(book.GetTitle(), book.GetTitle() + Tell({" – Calculation report", " — 计算书"}),
                     FormatProgram() + " · " + strNow, FormatCover(book, strNow));
}

}  // namespace skyframe::host
