#include "skyframe/book/CalculationReport.h"

#include <algorithm>

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

/// What a reader looks for first.
std::vector<std::pair<std::string, std::string>> ListKeyFigures(const BookData& book) {
  std::vector<std::pair<std::string, std::string>> facts;
  if (!book.storeys) {
    facts.emplace_back(Tell({"Checks of storeys", "楼层验算"}), Tell({"not applicable", "不适用"}));
    for (const Check& check : book.checks) {
      if (check.dLength <= 0.0) continue;
      const std::string strDirection = check.direction == Vector3{} ? "" : ", " + DescribeDirection(check.direction);
      facts.emplace_back(DescribeCheck(check) + strDirection, DescribeValue(check));
    }
  }
  if (!book.basis) return facts;
  facts.emplace_back(Tell({"Total weight G", "总重力荷载代表值 G"}),
                     FormatKilo(c_dGravity * GetGravityMass(*book.basis)) + " kN");
  facts.emplace_back(Tell({"First period T₁", "基本周期 T₁"}), book.modal.bOutdated
                                                                   ? Tell({"out of date", "过期"})
                                                                   : FormatFixed(book.GetFirstPeriod(), 4) + " s");
  for (const SpectrumChapter& chapter : book.spectra) {
    const std::string strQuake = Tell({"Earthquake along {0}, {1}", "{0} 向{1}"},
                                      {DescribeDirection(chapter.loads.direction), DescribeLevel(*chapter.job.nLevel)});
    if (chapter.doubt != Doubt::None) {
      facts.emplace_back(strQuake, Say(texts::c_unchecked[static_cast<std::size_t>(chapter.doubt)]));
      continue;
    }
    if (chapter.storeys.empty()) continue;
    const auto& storeys = chapter.storeys;
    const auto largest = std::ranges::max_element(storeys, {}, &StoreyResponse::dAngle);
    facts.emplace_back(strQuake,
                       Tell({"base shear {0} kN ({1} % of G), largest drift {2} in storey {3}",
                             "基底剪力 {0} kN（G 的 {1} %），最大层间位移角 {2}（第 {3} 层）"},
                            {FormatKilo(storeys.front().dShear), FormatPercent(storeys.front().GetShearWeight(), 2),
                             FormatAngle(largest->dAngle), std::to_string(largest - storeys.begin() + 1)}));
  }
  return facts;
}

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
  if (const auto figures = ListKeyFigures(book); !figures.empty()) block.Facts(figures);
  return "<header class=\"cover\"><div class=\"kind\">" + Tell({"CALCULATION REPORT", "结构计算书"}) + "</div>\n<h1>" +
         EscapeHtml(book.GetTitle()) + "</h1>\n" + block.GetBody() + "</header>\n";
}

}  // namespace

CalculationReport WriteReport(const Job& job, const std::string& strJobPath, const std::vector<JobProblem>& warnings) {
  const BookData book = CollectBook(job, strJobPath, warnings);
  CPage page;
  for (const auto pWrite : {WriteProject, WriteParameters, WriteModel, WriteLoads, WriteStatics, WriteModes,
                            WriteSpectra, WriteHistory, WriteChecks, WriteForces, WriteAppendices}) {
    pWrite(page, book);
  }
  const std::string strNow = FormatNow();
  return {page.Finish(book.GetTitle(), book.GetTitle() + Tell({" – Calculation report", " — 计算书"}),
                      FormatProgram() + " · " + strNow, FormatCover(book, strNow)),
          page.GetWarnings()};
}

}  // namespace skyframe::host
