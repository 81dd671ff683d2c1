// Time history under ground motion.

#include <algorithm>
#include <cmath>
#include <sstream>

#include "Chapters.h"
#include "Doubts.h"
#include "ExtractedHistories.h"
#include "Figures.h"
#include "Pictures.h"
#include "skyframe/job/DialogFields.h"
#include "skyframe/job/Text.h"
#include "skyframe/plot/Plots.h"
#include "skyframe/values/ResultFiles.h"
#include "texts.h"

namespace skyframe::host {

namespace {

/// Name of the record that the run took.
std::string DescribeRecord(const NewmarkJob& analysis) {
  if (!analysis.bFromFile.value_or(false)) return Tell({"El Centro 1940, north-south", "El Centro 1940 南北分量"});
  const EarthquakeJob quake = WithDefaults(analysis.earthquake.value_or(EarthquakeJob()));
  const auto it = std::ranges::find(quake.directions, true);
  const auto nRecord = quake.nMode == 1 ? 3 : it - quake.directions.begin();
  return "*" + std::string(suffix::c_strAcceleration[std::min<std::ptrdiff_t>(nRecord, 3)]);
}

std::string DescribeCodePeaks(const BookData& book) {
  std::string strText;
  for (const SpectrumChapter& chapter : book.spectra) {
    const int nEdition = CCodeLimits(book.job.report).GetEdition();
    const auto dPeak = FindPeakAcceleration(nEdition, *chapter.job.nIntensity, *chapter.job.nLevel);
    if (!dPeak) continue;
    return Tell(
        {"{0} m/s² ({1}, {2})", "{0} m/s²（{1}，{2}）"},
        {FormatFixed(*dPeak, 2), DescribeIntensity(*chapter.job.nIntensity), DescribeLevel(*chapter.job.nLevel)});
  }
  return "—";
}

void WriteRun(CPage& page, const BookData& book) {
  const HistoryResultFile& file = *book.history.content;
  std::vector<std::pair<std::string, std::string>> facts = {
      {Tell({"Method", "积分方法"}),
       std::string(file.nMethod == c_nNewmarkMethod ? "Newmark" : "Wilson") +
           (file.nAssumption == 0 ? Tell({", linear", "，线性"}) : Tell({", second order", "，几何非线性"}))},
      {Tell({"Time step, duration", "步长、时长"}),
       Format("%g s, %g s", file.dTimeStep, file.nSteps * file.dTimeStep)}};
  if (book.historyChapter) {
    facts.insert(facts.begin(),
                 {{Tell({"Record", "地震波"}), DescribeRecord(*book.history.parameters)},
                  {Tell({"Direction", "方向"}), DescribeDirection(book.historyChapter->direction)},
                  {Tell({"Peak acceleration", "加速度峰值"}), FormatShort(book.historyChapter->dPeak) + " m/s²"},
                  {Tell({"Peak of the code (table 5.1.2-2)", "规范峰值（表 5.1.2-2）"}), DescribeCodePeaks(book)}});
    const auto& damping = book.history.parameters->damping;
    if (damping) {
      facts.emplace_back(Tell({"Damping ratios of the Rayleigh pair", "瑞利阻尼的两个阻尼比"}),
                         FormatShort((*damping)[0]) + ", " + FormatShort((*damping)[1]));
    }
  }
  page.Facts(facts);
}

/// Of the topmost nodes the one that moves most.
std::size_t FindRoofNode(const BookData& book, std::size_t nDirection) {
  const auto& displacements = book.history.content->displacements;
  const double dTop = std::ranges::max(book.job.nodes, {}, &JobNode::dZ).dZ;
  std::size_t nRoof = 0;
  double dLargest = -1.0;
  for (std::size_t n = 0; n < book.job.nodes.size(); ++n) {
    if (book.job.nodes[n].dZ < dTop - c_dLevelTolerance) continue;
    double dPeak = 0.0;
    for (const double u : displacements[n][nDirection]) dPeak = std::max(dPeak, std::abs(u));
    if (dPeak <= dLargest * (1.0 + 1.0e-9)) continue;
    dLargest = dPeak;
    nRoof = n;
  }
  return nRoof;
}

void WriteRoofCurve(CPage& page, const BookData& book, const HistoryChapter& chapter) {
  const auto d =
      static_cast<std::size_t>(std::ranges::max_element(chapter.direction, {}, [](double c) { return std::abs(c); }) -
                               chapter.direction.begin());
  PlotRequest request;
  request.kind = PlotRequest::Kind::Node;
  request.numbers = {book.job.nodes[FindRoofNode(book, d)].nId};
  request.directions = {static_cast<int>(d)};
  std::ostringstream err;
  if (const auto strPicture = DrawPlot(book.job, book.strJobPath, request, err)) {
    page.Figure(Tell({"Displacement {0} of node {1} at the top", "顶部节点 {1} 的 {0} 向位移时程"},
                     {c_strAxes[d], std::to_string(request.numbers.front())}),
                *strPicture, 0.9);
  }
}

void WriteShear(CPage& page, const BookData& book, const HistoryChapter& chapter) {
  if (chapter.shear.empty()) {
    return page.Text(
        Tell({"The base shear is not formed: it needs a horizontal ground motion, a linear run and the modes.",
              "未求基底剪力：须为水平地震动、线性分析并有振型。"}));
  }
  const std::string strCaption = Tell({"Base shear", "基底剪力时程"});
  if (chapter.bOwnShear) {
    page.Text(Tell({"The base shear is that of the run itself: elastic forces on all supports, without damping.",
                    "基底剪力取自本次分析：全部支座的弹性恢复力之和，不含阻尼力。"}));
    return page.Figure(strCaption, DrawBaseShear(book, chapter), 0.9);
  }
  page.Formula(
      "Σ<sub>n</sub> m<sub>n</sub> |u<sub>n</sub>(t) − Σ<sub>i</sub> φ<sub>i,n</sub> q<sub>i</sub>(t)|² = min, &ensp; "
      "V(t) = Σ<sub>i</sub> ω<sub>i</sub>² (rᵀ M φ<sub>i</sub>) q<sub>i</sub>(t)");
  page.Text(Tell(
      {"The result file has no reactions. The base shear is that of the elastic forces of the {0} modes, fitted "
       "to the displacements at each step; like the spectrum's it leaves out the mass that the modes leave out.",
       "结果文件没有反力。基底剪力由位移时程逐步拟合 {0} 个振型坐标求出（弹性恢复力），与反应谱一样不含未参与的质量。"},
      {std::to_string(book.basis->GetCount())}));
  page.Figure(strCaption, DrawBaseShear(book, chapter), 0.9);
}

void WriteComparison(CPage& page, const BookData& book) {
  PageTable table;
  table.strCaption = Tell({"Base shear against the spectrum's", "基底剪力与反应谱法比较"});
  table.head = {Tell({"Item", "项目"}), Tell({"Value", "数值"}), Tell({"Limit", "限值"}), Tell({"Verdict", "结论"})};
  table.strAlign = "lrrl";
  for (const Check& check : book.checks) {
    const bool bShear = check.kind == CheckKind::HistoryShear || check.kind == CheckKind::MeanHistoryShear;
    if (!bShear && check.kind != CheckKind::HistoryDuration) continue;
    table.rows.push_back({DescribeCheck(check), DescribeValue(check), DescribeLimit(check), DescribeVerdict(check)});
  }
  if (!table.rows.empty()) page.Table(table);
  page.Text(
      Tell({"There is one record; the code asks for three at least, two of them measured (5.1.2), and for a mean "
            "spectrum that agrees with the code's.",
            "只有一条地震波；规范要求不少于三条，其中实际记录不少于两条（5.1.2 "
            "条），且平均地震影响系数曲线与规范曲线相符。"}));
}

void WritePeaks(CPage& page, const BookData& book, const HistoryChapter& chapter) {
  if (chapter.storeys.empty()) return;
  PageTable table;
  table.strCaption =
      Tell({"Largest storey displacements and drifts over time", "楼层最大位移与层间位移角（时程最大值）"});
  table.head = {Tell({"Storey", "楼层"}), Tell({"Level [m]", "标高 [m]"}), "u<sub>max</sub> [mm]",
                "Δu<sub>max</sub> [mm]", "θ = Δu/h"};
  table.strAlign = "cr";
  for (std::size_t j = chapter.storeys.size(); j-- > 0;) {
    const StoreyPeaks& peaks = chapter.storeys[j];
    table.rows.push_back({std::to_string(j + 1), FormatFixed(book.storeys->storeys[j].dTop, 2),
                          FormatMillimetres(peaks.dDisplacement), FormatMillimetres(peaks.dDrift),
                          FormatAngle(peaks.dAngle)});
  }
  page.Table(table);
}

void WriteGroundMotion(CPage& page, const BookData& book) {
  if (!book.extracted.empty()) {
    if (!book.history.bThere && !book.history.bAsked) return;
    page.Section(Tell({"Newmark, ground motion", "Newmark，地震动"}));
  }
  if (!Introduce(page, book.history)) return;
  for (const std::string& strDoubt : ListHistoryDoubts(book)) page.Warn("mixed-results", strDoubt);
  WriteRun(page, book);
  if (!book.historyChapter) return;
  WriteRoofCurve(page, book, *book.historyChapter);
  WriteShear(page, book, *book.historyChapter);
  WriteComparison(page, book);
  WritePeaks(page, book, *book.historyChapter);
}

}  // namespace

void WriteHistory(CPage& page, const BookData& book) {
  page.Chapter(Tell({"Time history", "时程分析"}));
  WriteGroundMotion(page, book);
  for (const ExtractedHistory& history : book.extracted) WriteExtracts(page, book, history);
}

}  // namespace skyframe::host
