// Symbols, warnings, what is not checked.

#include <algorithm>

#include "Chapters.h"
#include "Doubts.h"
#include "Figures.h"
#include "texts.h"

namespace skyframe::host {

namespace {

void WriteSymbols(CPage& page) {
  page.Appendix(Tell({"Symbols and signs", "符号与正负号"}));
  PageTable table;
  table.strCaption = Tell({"Symbols", "符号"});
  table.head = {Tell({"Symbol", "符号"}), Tell({"Meaning", "含义"})};
  table.strAlign = "ll";
  table.rows = {
      {"X, Y, Z", Tell({"global axes, Z upwards", "整体坐标轴，Z 向上"})},
      {"T, f, ω", Tell({"period, frequency, circular frequency", "周期、频率、圆频率"})},
      {"φ, M, r",
       Tell({"mode shape, mass matrix, unit translation of the structure", "振型、质量矩阵、整体单位平动向量"})},
      {"α, αmax, Tg, ζ", Tell({"influence coefficient, its maximum, characteristic period, damping ratio",
                               "地震影响系数、最大值、特征周期、阻尼比"})},
      {"γ", Tell({"participation factor", "振型参与系数"})},
      {"G, F, V, M", Tell({"representative gravity load, storey force, storey shear, overturning moment",
                           "重力荷载代表值、楼层地震作用、楼层剪力、倾覆力矩"})},
      {"u, Δu, θ", Tell({"displacement, difference over a storey, drift", "位移、层间位移、层间位移角"})},
      {"N", Tell({"axial force, tension positive", "轴力，受拉为正"})},
      {"Qy, Qz", Tell({"shear forces along the local axes y and z; Qz in the vertical plane of a horizontal beam",
                       "沿局部 y、z 轴的剪力；水平梁的 Qz 在竖直平面内"})},
      {"Mx, My, Mz", Tell({"torque and bending moments about the local axes; My bends a horizontal beam vertically",
                           "绕局部轴的扭矩和弯矩；My 使水平梁在竖直平面内弯曲"})},
      {"S, E",
       Tell({"static force; combined force of the spectrum, without a sign", "静力内力；反应谱组合内力，无正负号"})}};
  page.Table(table);
  page.Text(
      Tell({"Forces on supports are those of the structure on the support, positive along the global axes. Combined "
            "values have no sign and do not balance one another.",
            "支座受力为结构作用于支座的力，沿整体坐标轴为正。组合值没有正负号，彼此不平衡。"}));
}

void Append(std::vector<std::string>& list, const std::vector<std::string>& more) {
  list.insert(list.end(), more.begin(), more.end());
}

/// Those of the page, but the count of the modes that their run has told of.
void AddPage(std::vector<std::string>& list, const CPage& page, const ModalResult& modal) {
  const AdviceList told =
      modal.pStamp != nullptr ? modal.pStamp->advice[static_cast<std::size_t>(GetLanguage())] : AdviceList();
  for (const Advice& warning : page.GetWarnings()) {
    if (std::ranges::find(told, warning.strName, &Advice::strName) == told.end()) list.push_back(FormatAdvice(warning));
  }
}

template <class Result>
void AddRun(std::vector<std::string>& list, const Result& result) {
  if (result.pStamp == nullptr) return;
  for (const Advice& advice : result.pStamp->advice[static_cast<std::size_t>(GetLanguage())]) {
    list.push_back(result.strFile + ": " + FormatAdvice(advice));
  }
}

void WriteList(CPage& page, const std::string& strTitle, const std::vector<std::string>& list) {
  page.Section(strTitle);
  if (list.empty()) return page.Text(Tell({"None.", "无。"}));
  page.List(list);
}

void WriteWarnings(CPage& page, const BookData& book) {
  page.Appendix(Tell({"Warnings", "警告"}));
  std::vector<std::string> input;
  for (const JobProblem& problem : book.warnings) {
    input.push_back(FormatProblem(problem) + " [" + problem.strName + "]");
  }
  WriteList(page, Tell({"Of the job file", "作业文件"}), input);
  std::vector<std::string> runs;
  AddPage(runs, page, book.modal);
  AddRun(runs, book.linear);
  AddRun(runs, book.nonlinear);
  AddRun(runs, book.modal);
  AddRun(runs, book.spectrum);
  AddRun(runs, book.history);
  WriteList(page, Tell({"Of the runs", "各次分析"}), runs);
  if (!book.strMessages.empty())
    WriteList(page, Tell({"While this report was made", "生成本计算书时"}), {book.strMessages});
}

void WriteLimits(CPage& page, const BookData& book) {
  page.Appendix(Tell({"What is not checked", "未作验算的内容"}));
  std::vector<std::string> list = {
      Tell({"Strength, stability and slenderness of members, joints, foundations",
            "构件强度、稳定、长细比，节点，基础"}),
      Tell({"Partial safety factors and combinations of actions; two-directional earthquakes (5.2.3)",
            "分项系数与作用效应组合；双向水平地震作用（5.2.3 条）"}),
      Tell({"Accidental eccentricity, rigid floors, soft and weak storeys, stiffness ratios, P–Δ limits",
            "偶然偏心、刚性楼板、软弱层与薄弱层、刚度比、重力二阶效应限值"}),
      Tell({"Vertical earthquakes except where a spectrum acts along Z", "竖向地震作用（除非反应谱沿 Z 向）"}),
      Tell({"Elastic-plastic behaviour; concrete members (every member is of steel)",
            "弹塑性；混凝土构件（全部构件按钢计算）"})};
  if (book.spectra.size() < 2) {
    list.push_back(Tell({"Earthquakes in directions other than those of this report", "本计算书未列方向的地震作用"}));
  }
  Append(list, ListMissingSpectra(book));
  page.List(list);
}

}  // namespace

void WriteAppendices(CPage& page, const BookData& book) {
  WriteSymbols(page);
  WriteWarnings(page, book);
  WriteLimits(page, book);
}

}  // namespace skyframe::host
