#pragma once

#include "skyframe/job/Language.h"

// Texts of the panel with the tables of results.
namespace skyframe::gui::texts {

using host::Words;

inline constexpr Words c_tables = {"Tables", "结果表格"};
inline constexpr Words c_tablesTip = {"Results in tables; a click on a row selects its node or element in the drawing",
                                      "结果表格；单击一行，在图中选中其节点或单元"};
inline constexpr Words c_tableResultTip = {"Result to show", "要显示的结果"};
inline constexpr Words c_tableKindTip = {"Table of this result", "该结果的表格"};
inline constexpr Words c_tableModeTip = {"Number of the mode", "振型号"};
inline constexpr Words c_tableMode = {"mode ", "振型 "};
inline constexpr Words c_tableFilter = {"1-20, 35", "1-20, 35"};
inline constexpr Words c_tableFilterTip = {
    "Rows to show: numbers and ranges (1-20, 35; 40- to the end) or a part of a text, as of a section's name",
    "要显示的行：编号与范围（1-20, 35；40- 表示到末尾），或文字的一部分，如截面名称"};
inline constexpr Words c_tableTip = {"A click on a heading sorts; the third click brings back the order of the file",
                                     "单击表头排序；第三次单击恢复文件中的顺序"};
inline constexpr Words c_sumsTip = {"Of the rows shown", "对所显示的行"};
inline constexpr Words c_tableCopy = {"Copy", "复制"};
inline constexpr Words c_tableCopyTip = {"Copy the selected rows, or all rows shown, for a spreadsheet (Ctrl+C)",
                                         "复制选中的行（未选中时为所显示的全部行），可粘贴到电子表格（Ctrl+C）"};
inline constexpr Words c_tableSave = {"Save CSV…", "保存 CSV…"};
inline constexpr Words c_tableSaveTip = {"Save the rows shown as a CSV file", "把所显示的行保存为 CSV 文件"};
inline constexpr Words c_tableSaveTitle = {"Save table", "保存表格"};
inline constexpr Words c_tableSaveFilter = {"CSV files (*.csv)", "CSV 文件 (*.csv)"};
inline constexpr Words c_tableSaveFailed = {"The table could not be saved: {0}", "表格无法保存：{0}"};
inline constexpr Words c_tableNoResult = {"There are no results yet: run an analysis.", "尚无结果，请先进行分析。"};
inline constexpr Words c_tableOutdated = {"This result comes from another model than the open one.",
                                          "该结果由另一模型算得，与当前模型不符。"};
inline constexpr Words c_tableAnyway = {"Show anyway", "仍然显示"};
inline constexpr Words c_tableAnywayTip = {"Show the table though its model is another one",
                                           "虽由另一模型算得，仍显示该表格"};
inline constexpr Words c_tableDamaged = {"The result file is damaged or belongs to another model.",
                                         "结果文件已损坏或属于另一模型。"};
inline constexpr Words c_tableFailed = {"The analysis failed: {0}", "分析未成功：{0}"};
inline constexpr Words c_tableRows = {"{0} of {1} rows", "{1} 行中的 {0} 行"};

}  // namespace skyframe::gui::texts
