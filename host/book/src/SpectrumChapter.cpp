// Response spectra: modes, storeys, their figures and formulas.

#include <algorithm>
#include <cmath>

#include "Chapters.h"
#include "Doubts.h"
#include "Figures.h"
#include "Pictures.h"
#include "skyframe/job/Text.h"
#include "texts.h"

namespace skyframe::host {

namespace {

std::string GetMethod(const SpectrumChapter& chapter) {
  return std::string(c_strModalCombinations[static_cast<std::size_t>(*chapter.job.nMethod)]);
}

void WriteCurve(CPage& page, const BookData& book, const SpectrumChapter& chapter) {
  page.Figure(Tell({"Influence coefficient α with the periods of the modes", "地震影响系数曲线与各阶周期"}),
              DrawSpectrumCurve(book, chapter), 0.9);
}

void WriteModalShears(CPage& page, const SpectrumChapter& chapter) {
  PageTable table;
  table.strCaption = Tell({"Influence coefficients, participation factors and base shears mode by mode",
                           "各振型的地震影响系数、振型参与系数与基底剪力"});
  table.head = {Tell({"Mode", "振型"}), "T<sub>i</sub> [s]",    "ζ<sub>i</sub>",        "α<sub>i</sub>",
                "γ<sub>i</sub> [√kg]",  "V<sub>X,i</sub> [kN]", "V<sub>Y,i</sub> [kN]", "V<sub>Z,i</sub> [kN]"};
  table.strAlign = "cr";
  for (std::size_t i = 0; i < chapter.basis.GetCount(); ++i) {
    const bool bVirtual = chapter.bVirtual && i + 1 == chapter.basis.GetCount();
    const Vector3 V = FormModalBaseShear(chapter.basis, chapter.loads, i);
    table.rows.push_back({bVirtual ? Tell({"virtual", "虚拟"}) : std::to_string(i + 1),
                          FormatFixed(chapter.basis.GetPeriod(i), 4), FormatShort(chapter.loads.zeta[i]),
                          FormatFixed(chapter.loads.alpha[i], 4), FormatFixed(chapter.loads.gamma[i], 1),
                          FormatKilo(V[0]), FormatKilo(V[1]), FormatKilo(V[2])});
  }
  table.rows.push_back({GetMethod(chapter), "", "", "", "", FormatKilo(chapter.baseShear[0]),
                        FormatKilo(chapter.baseShear[1]), FormatKilo(chapter.baseShear[2])});
  table.bSumRow = true;
  page.Formula(
      "γ<sub>i</sub> = Σ<sub>d</sub> c<sub>d</sub> r<sub>d</sub>ᵀ M φ<sub>i</sub>, &ensp; V<sub>d,i</sub> = "
      "α<sub>i</sub> γ<sub>i</sub> g r<sub>d</sub>ᵀ M φ<sub>i</sub>, &ensp; g = 9.8 m/s²");
  page.Table(table);
}

/// Where the spectrum's figures come from, and whether its file is the one at hand.
void WriteOrigin(CPage& page, const BookData& book, const SpectrumChapter& chapter) {
  if (chapter.deviation) {
    page.Text(Tell({"Formed from the modes of {0}; the displacements agree with {1} to {2} of the largest one.",
                    "由 {0} 的振型算得；位移与 {1} 相符，差值不超过最大位移的 {2}。"},
                   {book.modal.strFile, book.spectrum.strFile, Format("%.1e", *chapter.deviation)}));
  } else if (const std::string strOther = DescribeQuakeOfFile(book);
             !strOther.empty() && chapter.doubt != Doubt::OtherModes) {
    page.Text(Tell({"Formed from the modes of {0}; the file {1} holds the last spectrum run, along {2}.",
                    "由 {0} 的振型算得；文件 {1} 是最后一次反应谱（{2} 向）的结果。"},
                   {book.modal.strFile, book.spectrum.strFile, strOther}));
  } else {
    page.Text(Tell({"Formed from the modes of {0}.", "由 {0} 的振型算得。"}, {book.modal.strFile}));
  }
}

void WriteStoreyForces(CPage& page, const BookData& book, const SpectrumChapter& chapter) {
  const auto least = CCodeLimits(book.job.report).FindShearWeight(*chapter.job.nIntensity, book.GetFirstPeriod());
  const bool bFrequent = *chapter.job.nLevel == 0;
  PageTable table;
  table.strCaption = Tell({"Storey forces, shears, shear-to-weight ratios and overturning moments",
                           "楼层地震作用、剪力、剪重比与倾覆力矩"});
  table.head = {Tell({"Storey", "楼层"}), Tell({"Level [m]", "标高 [m]"}), "G<sub>j</sub> [kN]", "F<sub>j</sub> [kN]",
                "V<sub>j</sub> [kN]",     "V<sub>j</sub>/ΣG [%]"};
  if (bFrequent) {
    table.head.push_back("λ<sub>min</sub> [%]");
    table.head.push_back(Tell({"Factor", "调整系数"}));
  }
  table.head.push_back("M<sub>j</sub> [kN·m]");
  table.strAlign = "cr";
  for (std::size_t j = chapter.storeys.size(); j-- > 0;) {
    const StoreyResponse& r = chapter.storeys[j];
    std::vector<std::string>& row = table.rows.emplace_back();
    row = {std::to_string(j + 1), FormatFixed(book.storeys->storeys[j].dTop, 2),
           FormatKilo(r.dWeight), FormatKilo(r.dForce),
           FormatKilo(r.dShear),  FormatPercent(r.GetShearWeight(), 2)};
    if (bFrequent) {
      row.push_back(least ? FormatPercent(least->dValue, 2) : "—");
      row.push_back(FormatFixed(FormShearFactor(r, least), 3));
    }
    row.push_back(FormatKilo(r.dMoment));
  }
  page.Formula(
      "F<sub>j,i</sub> = α<sub>i</sub> γ<sub>i</sub> g Σ<sub>n∈j</sub> (M φ<sub>i</sub>)<sub>n</sub>, &ensp; "
      "V<sub>j,i</sub> = Σ<sub>k≥j</sub> F<sub>k,i</sub>, &ensp; "
      "M<sub>j,i</sub> = Σ F<sub>n,i</sub> (z<sub>n</sub> − z<sub>j−1</sub>)");
  page.Text(
      Tell({"Each is formed mode by mode along the earthquake and then combined ({0}); so F does not add up to V.",
            "各量先按振型沿地震作用方向求出，再组合（{0}），因此 F 之和不等于 V。"},
           {GetMethod(chapter)}));
  page.Table(table);
}

void WriteStoreyMovements(CPage& page, const BookData& book, const SpectrumChapter& chapter) {
  PageTable table;
  table.strCaption = Tell({"Storey displacements and drifts", "楼层位移与层间位移角"});
  table.head = {Tell({"Storey", "楼层"}),
                "h [m]",
                Tell({"u<sub>max</sub> [mm]", "u<sub>max</sub> [mm]"}),
                Tell({"u<sub>mean</sub> [mm]", "u<sub>平均</sub> [mm]"}),
                Tell({"Ratio", "位移比"}),
                "Δu<sub>max</sub> [mm]",
                Tell({"Δu<sub>mean</sub> [mm]", "Δu<sub>平均</sub> [mm]"}),
                Tell({"Ratio", "层间位移比"}),
                "θ = Δu/h"};
  table.strAlign = "cr";
  for (std::size_t j = chapter.storeys.size(); j-- > 0;) {
    const StoreyResponse& r = chapter.storeys[j];
    const bool bColumns = !book.storeys->storeys[j].columns.empty();
    table.rows.push_back({std::to_string(j + 1), FormatFixed(book.storeys->storeys[j].GetHeight(), 2),
                          FormatMillimetres(r.dLargest), FormatMillimetres(r.dMean),
                          FormatFixed(r.GetDisplacementRatio(), 2), bColumns ? FormatMillimetres(r.dDrift) : "—",
                          bColumns ? FormatMillimetres(r.dMeanDrift) : "—",
                          bColumns ? FormatFixed(r.GetDriftRatio(), 2) : "—", bColumns ? FormatAngle(r.dAngle) : "—"});
  }
  page.Text(
      Tell({"Differences of a storey are those of nodes plumb above one another, formed mode by mode and then "
            "combined; mean: half the sum of the largest and the smallest of a storey.",
            "层间位移取上下同一铅垂线的两节点之差，先按振型求出再组合；平均值为该层最大值与最小值之和的一半。"}));
  page.Table(table);
}

void WriteStoreyFigure(CPage& page, const BookData& book, const SpectrumChapter& chapter) {
  std::vector<StoreyCurve> curves(3);
  curves[0].strTitle = Tell({"Shear V [kN]", "楼层剪力 V [kN]"});
  curves[0].bSteps = curves[1].bSteps = true;
  curves[1].strTitle = Tell({"Drift θ [1/1000]", "层间位移角 θ [1/1000]"});
  curves[2].strTitle = Tell({"Displacement u [mm]", "最大位移 u [mm]"});
  for (const StoreyResponse& r : chapter.storeys) {
    curves[0].values.push_back(1.0e-3 * r.dShear);
    curves[1].values.push_back(1.0e3 * r.dAngle);
    curves[2].values.push_back(1.0e3 * r.dLargest);
  }
  const auto limit = CCodeLimits(book.job.report).FindDrift(*chapter.job.nLevel);
  constexpr double c_dFarLimit = 6.0;  // one that would flatten the curve is left out
  if (limit && 1.0e3 * limit->dValue < c_dFarLimit * std::ranges::max(curves[1].values)) {
    curves[1].limit = 1.0e3 * limit->dValue;
    curves[1].strLimit = FormatAngle(limit->dValue);
  }
  page.Figure(Tell({"Shear, drift and displacement over the storeys", "楼层剪力、层间位移角与位移"}),
              DrawStoreys(*book.storeys, curves), 0.95);
}

/// In place of storeys.
void WriteTopDisplacement(CPage& page, const BookData& book, const SpectrumChapter& chapter) {
  const NodeField u = CombineDisplacements(chapter.basis, chapter.loads);
  const auto top = std::ranges::max_element(book.job.nodes, {}, &JobNode::dZ);
  const auto nTop = static_cast<std::size_t>(top - book.job.nodes.begin());
  PageTable table;
  table.strCaption = Tell({"Combined displacements", "组合位移"});
  table.head = {Tell({"Place", "位置"}), Tell({"Node", "节点"}), "u<sub>X</sub> [mm]", "u<sub>Y</sub> [mm]",
                "u<sub>Z</sub> [mm]"};
  table.strAlign = "lr";
  const auto add = [&](const std::string& strPlace, std::size_t n) {
    table.rows.push_back({strPlace, GetNodeName(book.job, n), FormatMillimetres(u[n][0]), FormatMillimetres(u[n][1]),
                          FormatMillimetres(u[n][2])});
  };
  add(Tell({"top", "顶点"}), nTop);
  for (std::size_t d = 0; d < 3; ++d) {
    const auto it = std::ranges::max_element(u, {}, [d](const NodeValues& v) { return v[d]; });
    add(Tell({"largest {0}", "{0} 向最大"}, {c_strAxes[d]}), static_cast<std::size_t>(it - u.begin()));
  }
  page.Table(table);
}

void WriteStoreys(CPage& page, const BookData& book, const SpectrumChapter& chapter) {
  if (chapter.storeys.empty()) {
    page.Text(book.storeys
                  ? Tell({"The earthquake is vertical: there are no storey shears.", "竖向地震作用，没有楼层剪力。"})
                  : std::string(Say(texts::c_noStoreys)));
    WriteTopDisplacement(page, book, chapter);
    return;
  }
  WriteStoreyForces(page, book, chapter);
  WriteStoreyMovements(page, book, chapter);
  WriteStoreyFigure(page, book, chapter);
}

}  // namespace

void WriteSpectra(CPage& page, const BookData& book) {
  page.Chapter(Tell({"Response spectrum", "反应谱分析"}));
  if (!Introduce(page, book.spectrum)) return;
  if (book.modal.bOutdated)
    page.Warn("outdated-result", Say(texts::c_outdated, {book.modal.strFile, book.modal.pStamp->strTime}));
  if (book.spectra.empty()) {
    page.Warn("mixed-results", Tell({"It is not known which spectrum {0} holds: the job has none.",
                                     "作业文件没有反应谱分析，不知道 {0} 是何种反应谱的结果。"},
                                    {book.spectrum.strFile}));
  }
  for (const std::string& strDoubt : ListSpectrumDoubts(book)) page.Warn("mixed-results", strDoubt);
  for (const SpectrumChapter& chapter : book.spectra) {
    page.Section(Tell({"Earthquake along {0}: {1}, intensity {2}", "{0} 向地震作用：{1}，{2}"},
                      {DescribeDirection(chapter.loads.direction), DescribeLevel(*chapter.job.nLevel),
                       DescribeIntensity(*chapter.job.nIntensity)}));
    if (!chapter.IsFormed()) {
      page.Text(Say(texts::c_unchecked[static_cast<std::size_t>(chapter.doubt)]));
      continue;
    }
    WriteOrigin(page, book, chapter);
    WriteCurve(page, book, chapter);
    WriteModalShears(page, chapter);
    WriteStoreys(page, book, chapter);
  }
}

}  // namespace skyframe::host
