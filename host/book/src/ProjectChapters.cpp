// What the report is about: project, codes, parameters, result files.

#include "Chapters.h"
#include "ExtractedHistories.h"
#include "Figures.h"
#include "skyframe/job/Text.h"
#include "texts.h"

namespace skyframe::host {

namespace {

constexpr std::array<const char*, 5> c_pszClasses = {"", "Ⅰ", "Ⅱ", "Ⅲ", "Ⅳ"};

/// Where the curve of the program and the code whose limits are checked part.
std::vector<std::string> ListDepartures(const BookData& book) {
  std::vector<std::string> list;
  if (CCodeLimits(book.job.report).GetEdition() == c_nEdition2010) {
    list.push_back(Tell(
        {"The design spectrum is that of GB 50011—2001, the limits those of the 2010 edition. The curves agree at a "
         "damping ratio of 0.05; at smaller ratios the curve of 2001 is the higher one (safe).",
         "设计谱为 GB 50011—2001 的曲线，限值取 2010 版。阻尼比 0.05 时两版曲线相同；阻尼比较小时 2001 "
         "版曲线较高（偏安全）。"}));
  }
  for (const SpectrumChapter& chapter : book.spectra) {
    if (*chapter.job.nLevel == 0 || *chapter.job.nIntensity < 3) continue;
    list.push_back(Tell(
        {"Tg is not raised by 0.05 s for the rare earthquake at intensities 8 and 9 (5.1.4): smaller forces than the "
         "code's beyond Tg (unsafe).",
         "8、9 度罕遇地震的特征周期未增加 0.05 s（5.1.4 条）：T 大于 Tg 时地震作用小于规范值（偏不安全）。"}));
    break;
  }
  list.push_back(
      Tell({"A mode with a period of 6 s or more takes no load (unsafe); the vertical spectrum is not reduced "
            "(safe).",
            "周期大于等于 6 s 的振型地震影响系数取 0（偏不安全）；竖向地震影响系数不折减（偏安全）。"}));
  return list;
}

template <class Result>
void AddResult(PageTable& table, const std::string& strAnalysis, const Result& result) {
  const ResultStamp* const pStamp = result.pStamp;
  std::string strState = result.bAsked ? Tell({"not run", "未计算"}) : Tell({"not in the job", "作业文件未要求"});
  if (result.bThere)
    strState = pStamp == nullptr ? Tell({"run not known", "分析未知"}) : Tell({"of this model", "与本模型一致"});
  if (result.bThere && result.bOwnParameters)
    strState = Tell({"of this model, parameters not the job's", "与本模型一致，参数与作业文件不同"});
  if (result.bOutdated) strState = Tell({"out of date", "过期"});
  if (result.bThere && !result.content) strState = Tell({"cannot be read", "无法读取"});
  table.rows.push_back({strAnalysis, result.bThere ? result.strFile : "—", pStamp != nullptr ? pStamp->strTime : "—",
                        pStamp != nullptr ? pStamp->strVersion : "—", strState});
}

void AddExtracts(PageTable& table, const ExtractedHistory& history) {
  const ResultStamp* const pStamp = history.pStamp;
  std::string strState =
      pStamp == nullptr ? Tell({"run not known", "分析未知"}) : Tell({"of this model", "与本模型一致"});
  if (history.bOutdated) strState = Tell({"out of date", "过期"});
  table.rows.push_back({Tell({"Time history, {0}", "时程，{0}"}, {DescribeMethod(history)}), ListFiles(history),
                        pStamp != nullptr ? pStamp->strTime : "—", pStamp != nullptr ? pStamp->strVersion : "—",
                        strState});
}

void WriteResults(CPage& page, const BookData& book) {
  PageTable table;
  table.strCaption = Tell({"Analyses and their result files", "各项分析及结果文件"});
  table.head = {Tell({"Analysis", "分析"}), Tell({"File", "文件"}), Tell({"Computed", "计算时间"}),
                Tell({"Program version", "程序版本"}), Tell({"State", "状态"})};
  table.strAlign = "llccl";
  AddResult(table, Tell({"Static, linear", "线性静力"}), book.linear);
  AddResult(table, Tell({"Static, second order", "几何非线性静力"}), book.nonlinear);
  AddResult(table, Tell({"Modal", "模态"}), book.modal);
  AddResult(table, Tell({"Response spectrum", "反应谱"}), book.spectrum);
  if (book.history.bThere || book.history.bAsked || book.extracted.empty()) {
    AddResult(table, Tell({"Time history", "时程"}), book.history);
  }
  for (const ExtractedHistory& history : book.extracted) AddExtracts(table, history);
  page.Table(table);
  const auto warn = [&page](const auto& result) {
    if (result.bThere && result.bOwnParameters)
      page.Warn("mixed-results", Say(texts::c_ownParameters, {result.strFile}));
  };
  warn(book.linear);
  warn(book.nonlinear);
  warn(book.modal);
  warn(book.spectrum);
  warn(book.history);
}

template <class Result>
void AddCombination(PageTable& table, const std::string& strAnalysis, const Result& result) {
  if (result.bThere && result.parameters) {
    table.rows.push_back({strAnalysis, DescribeCombination(result.parameters->combination)});
  }
}

void WriteCombinations(CPage& page, const BookData& book) {
  PageTable table;
  table.strCaption = Tell({"Load combinations", "荷载组合"});
  table.head = {Tell({"Analysis", "分析"}), Tell({"Factors and load cases", "系数与工况"})};
  table.strAlign = "ll";
  AddCombination(table, Tell({"Static, linear", "线性静力"}), book.linear);
  AddCombination(table, Tell({"Static, second order", "几何非线性静力"}), book.nonlinear);
  AddCombination(table, Tell({"Modal: mass", "模态：换算质量"}), book.modal);
  for (const SpectrumChapter& chapter : book.spectra) {
    table.rows.push_back(
        {Tell({"Spectrum {0}: mass", "反应谱 {0}：换算质量"}, {DescribeDirection(chapter.loads.direction)}),
         DescribeCombination(chapter.job.combination)});
  }
  AddCombination(table, Tell({"Time history: mass", "时程：换算质量"}), book.history);
  if (!table.rows.empty()) page.Table(table);
}

/// An item a row, a spectrum a column.
void WriteSpectrumParameters(CPage& page, const BookData& book) {
  if (book.spectra.empty()) return;
  PageTable table;
  table.strCaption = Tell({"Parameters of the response spectrum", "反应谱参数"});
  table.strAlign = "lr";
  table.head = {Tell({"Item", "项目"})};
  table.rows = {{Tell({"Direction (X, Y, Z)", "地震作用方向（X、Y、Z）"})},
                {Tell({"Intensity, design basic acceleration", "设防烈度，设计基本地震加速度"})},
                {Tell({"Earthquake", "地震影响"})},
                {Tell({"Design group", "设计地震分组"})},
                {Tell({"Site class", "场地类别"})},
                {Tell({"Characteristic period Tg [s]", "特征周期 Tg [s]"})},
                {Tell({"Highest influence coefficient αmax", "水平地震影响系数最大值 αmax"})},
                {Tell({"Damping ratio ζ", "阻尼比 ζ"})},
                {Tell({"Modes combined", "参与组合的振型数"})},
                {Tell({"Combination", "振型组合方法"})},
                {Tell({"g of the spectrum [m/s²]", "反应谱计算所用 g [m/s²]"})}};
  for (const SpectrumChapter& chapter : book.spectra) {
    const SpectrumJob& job = chapter.job;
    const std::string strMethod(c_strModalCombinations[static_cast<std::size_t>(*job.nMethod)]);
    const std::string strCells[] = {
        DescribeDirection(chapter.loads.direction),
        DescribeIntensity(*job.nIntensity),
        DescribeLevel(*job.nLevel),
        Tell({"group {0}", "第 {0} 组"}, {std::to_string(*job.nZoneGroup)}),
        c_pszClasses[static_cast<std::size_t>(*job.nSiteClass)],
        FormatFixed(chapter.curve.dTg, 2),
        FormatFixed(chapter.curve.dAlphaMax, 2),
        FormatNumber(*job.dDamping),
        std::to_string(*job.nModes) + (chapter.bVirtual ? Tell({" and the virtual mode", " 及虚拟振型"}) : ""),
        strMethod,
        FormatFixed(c_dSpectrumGravity, 1)};
    table.head.push_back(Tell({"Spectrum {0}", "反应谱 {0}"}, {std::to_string(table.head.size())}));
    for (std::size_t k = 0; k < table.rows.size(); ++k) table.rows[k].push_back(strCells[k]);
  }
  page.Table(table);
}

}  // namespace

template <class Result>
bool Introduce(CPage& page, const Result& result) {
  if (!result.bThere) {
    page.Text(result.bAsked ? Say(texts::c_notRun, {result.strFile}) : std::string(Say(texts::c_notAsked)));
    return false;
  }
  if (!result.content) {
    page.Warn("unread-result", Say(texts::c_notRead, {result.strFile, result.content.strError}));
    return false;
  }
  if (result.bOutdated) page.Warn("outdated-result", Say(texts::c_outdated, {result.strFile, result.pStamp->strTime}));
  if (result.pStamp == nullptr) page.Text(Say(texts::c_unknownRun, {result.strFile}));
  return true;
}

template bool Introduce(CPage& page, const StaticResult& result);
template bool Introduce(CPage& page, const ModalResult& result);
template bool Introduce(CPage& page, const SpectrumResult& result);
template bool Introduce(CPage& page, const HistoryResult& result);

void WriteProject(CPage& page, const BookData& book) {
  page.Chapter(Tell({"Project and codes", "工程概况与设计依据"}));
  const JobReport& report = book.job.report;
  page.Facts({{Tell({"Project", "工程名称"}), book.GetTitle()},
              {Tell({"Structure", "结构类型"}), DescribeStructure(report)},
              {Tell({"Model", "计算模型"}), book.job.strTitle.empty() ? "—" : book.job.strTitle}});
  PageTable table;
  table.strCaption = Tell({"Codes", "设计依据"});
  table.head = {Tell({"Code", "规范"}), Tell({"Used for", "用于"})};
  table.strAlign = "ll";
  const bool bLater = CCodeLimits(report).GetEdition() == c_nEdition2010;
  const std::string strSpectrum = Tell({"design spectrum (5.1.4, 5.1.5)", "地震影响系数曲线（5.1.4、5.1.5 条）"});
  const std::string strLimits = Tell({"limits (chapter 9 of this report)", "限值（本计算书第 9 章）"});
  table.rows.push_back(
      {Tell({"GB 50011—2001, Code for seismic design of buildings", "《建筑抗震设计规范》GB 50011—2001"}),
       bLater ? strSpectrum : strSpectrum + Tell({"; ", "；"}) + strLimits});
  if (bLater) {
    table.rows.push_back(
        {Tell({"GB 50011—2010, Code for seismic design of buildings", "《建筑抗震设计规范》GB 50011—2010"}),
         strLimits});
  }
  if (book.storeys) {
    table.rows.push_back(
        {bLater
             ? Tell({"JGJ 3—2010, concrete structures of tall buildings", "《高层建筑混凝土结构技术规程》JGJ 3—2010"})
             : Tell({"JGJ 3—2002, concrete structures of tall buildings", "《高层建筑混凝土结构技术规程》JGJ 3—2002"}),
         Tell({"limit of the period ratio, for information", "周期比限值（仅供参考）"})});
  }
  page.Table(table);
  if (!report.nEdition) {
    page.Text(Tell({"The job does not state an edition; the limits are those of 2001.",
                    "作业文件未说明规范版本，限值按 2001 版。"}));
  }
  if (book.spectra.empty()) return;
  page.Text(Tell({"Where the program departs from the code:", "程序与规范的差异："}));
  page.List(ListDepartures(book));
}

void WriteParameters(CPage& page, const BookData& book) {
  page.Chapter(Tell({"Parameters", "计算参数"}));
  WriteResults(page, book);
  WriteSpectrumParameters(page, book);
  WriteCombinations(page, book);
  page.Text(
      Tell({"Loads become mass through g = 9.81 m/s²: positive loads along Z after their factors, in all three "
            "directions. Weights G are masses times 9.81 m/s².",
            "荷载按 g = 9.81 m/s² 换算为质量：乘系数后沿 Z 正向的荷载计入三个平动方向。重力荷载代表值 G 为质量乘 "
            "9.81 m/s²。"}));
}

}  // namespace skyframe::host
