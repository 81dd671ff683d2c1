// Summary of the checks.

#include "Chapters.h"
#include "Doubts.h"
#include "Figures.h"
#include "skyframe/job/Text.h"
#include "texts.h"

namespace skyframe::host {

namespace {

/// Where the limit stands, in the edition of 2001 and of 2010.
struct Clause {
  Words words;
  std::array<std::string_view, c_strEditions.size()> clause;
  bool bCommentary = false;
};

Clause GetClause(CheckKind kind) {
  switch (kind) {
    case CheckKind::MassParticipation:
      return {{"participating mass", "振型参与质量系数"}, {"GB 50011—2001 5.2.2", "GB 50011—2010 5.2.2"}, true};
    case CheckKind::ShearWeight:
      return {{"storey shear over weight", "剪重比"}, {"GB 50011—2001 5.2.5", "GB 50011—2010 5.2.5"}};
    case CheckKind::Drift:
      return {{"elastic drift", "弹性层间位移角"}, {"GB 50011—2001 5.5.1", "GB 50011—2010 5.5.1"}};
    case CheckKind::RareDrift:
      return {{"drift, rare earthquake, elastic run", "罕遇地震层间位移角（弹性计算）"},
              {"GB 50011—2001 5.5.5", "GB 50011—2010 5.5.5"}};
    case CheckKind::RegularDisplacement:
      return {{"displacement ratio: regular plan", "位移比：平面规则"}, {"GB 50011—2001 3.4.2", "GB 50011—2010 3.4.3"}};
    case CheckKind::DisplacementRatio:
      return {{"displacement ratio: upper limit", "位移比：上限"}, {"GB 50011—2001 3.4.3", "GB 50011—2010 3.4.4"}};
    case CheckKind::PeriodRatio:
      return {{"period ratio Tt/T1", "周期比 Tt/T1"}, {"JGJ 3—2002 4.3.5", "JGJ 3—2010 3.4.5"}};
    case CheckKind::HistoryShear:
      return {{"time-history base shear over the spectrum's", "时程法与反应谱法基底剪力之比"},
              {"GB 50011—2001 5.1.2", "GB 50011—2010 5.1.2"}};
    case CheckKind::MeanHistoryShear:
      return {{"mean of the time histories (one record)", "时程法平均值（仅一条波）"},
              {"GB 50011—2001 5.1.2", "GB 50011—2010 5.1.2"}};
    case CheckKind::TopDisplacement:
      return {{"displacement of the top over the height, static", "静力顶点水平位移与高度之比"}, {}};
    case CheckKind::Deflection:
      return {{"deflection over the span, static", "静力挠度与跨度之比"}, {}};
    case CheckKind::QuakeTopDisplacement:
      return {{"displacement of the top, earthquake", "地震作用下顶点位移"}, {}};
    default:
      return {{"duration of the record", "地震波持续时间"}, {"GB 50011—2001 5.1.2", "GB 50011—2010 5.1.2"}, true};
  }
}

std::string DescribeClause(const Check& check, const JobReport& report) {
  if (!check.limit) return "—";
  if (check.limit->bOwn) return Tell({"stated in the job", "作业文件指定"});
  const Clause clause = GetClause(check.kind);
  return std::string(clause.clause[static_cast<std::size_t>(CCodeLimits(report).GetEdition())]) +
         (clause.bCommentary ? Tell({" (commentary)", "（条文说明）"}) : "");
}

std::vector<std::string> ListRemarks() {
  return {
      Tell({"Displacement and period ratios are for information: not under the code's conditions (no rigid floors, no "
            "accidental eccentricity; the 2010 edition asks for given lateral forces). 1.5 becomes 1.4, and 0.90 "
            "becomes 0.85, for tall buildings of class B and mixed structures.",
            "位移比和周期比仅供参考：不符合规范的计算条件（非刚性楼板，未计偶然偏心；2010 "
            "版要求在规定水平力作用下计算）。B 级高度和混合结构，1.5 改为 1.4，0.90 改为 0.85。"}),
      Tell({"The limit of 5.2.5 is that for T₁ below 3.5 s or obvious torsion, or that for T₁ above 5 s, or linear "
            "between. Storeys below it are to be raised by the factor of chapter 7; forces and drifts of this report "
            "are not raised.",
            "5.2.5 条限值：T₁ 小于 3.5 s 或扭转效应明显、T₁ 大于 5 s 各取一值，其间线性插入。不足时按第 7 "
            "章的调整系数放大；本计算书的内力和位移未放大。"}),
      Tell({"Drift under rare earthquakes is elastic here, the code's limit is that of the elastic-plastic drift.",
            "罕遇地震位移角为弹性计算值，规范限值用于弹塑性位移角。"})};
}

}  // namespace

std::string DescribeCheck(const Check& check) { return std::string(Say(GetClause(check.kind).words)); }

void WriteChecks(CPage& page, const BookData& book) {
  page.Chapter(Tell({"Summary of checks", "验算汇总"}));
  for (const std::string& strDoubt : ListSpectrumDoubts(book)) page.Warn("mixed-results", strDoubt);
  for (const std::string& strDoubt : ListHistoryDoubts(book)) page.Warn("mixed-results", strDoubt);
  if (book.checks.empty()) {
    return page.Text(Tell({"Nothing was checked: there are no results of a spectrum or a time history.",
                           "没有反应谱和时程结果，未作验算。"}));
  }
  PageTable table;
  table.strCaption = Tell({"Checks: value, limit, clause", "验算项目、计算值、限值与条文"});
  table.head = {Tell({"Item", "项目"}),    Tell({"Direction", "方向"}), Tell({"Storey", "楼层"}),
                Tell({"Value", "计算值"}), Tell({"Limit", "限值"}),     Tell({"Clause", "条文"}),
                Tell({"Verdict", "结论"})};
  table.strAlign = "lccrrll";
  for (const Check& check : book.checks) {
    table.rows.push_back({DescribeCheck(check), DescribeDirection(check.direction),
                          check.nStorey == 0 ? "—" : std::to_string(check.nStorey), DescribeValue(check),
                          DescribeLimit(check), DescribeClause(check, book.job.report), DescribeVerdict(check)});
  }
  page.Table(table);
  if (!book.storeys)
    page.Text(Tell({"Checks of storeys: not applicable, the structure has none.", "楼层验算：不适用，结构没有楼层。"}));
  if (!book.job.report.nStructure && book.storeys) {
    page.Text(Tell({"The job does not name the structure (\"report\": {\"structure\": …}): drifts have no limit.",
                    "作业文件未说明结构类型（\"report\": {\"structure\": …}），层间位移角没有限值。"}));
  }
  if (book.storeys) page.List(ListRemarks());
}

}  // namespace skyframe::host
