#include "Page.h"

#include <algorithm>

#include "skyframe/job/Text.h"
#include "texts.h"

namespace skyframe::host {

namespace {

constexpr std::string_view c_strStyle = R"(
:root { --ink: #1d2530; --faint: #5d6875; --line: #aab3bd; --ground: #f2f5f8; --accent: #1f5fb4; --good: #1c7a3d; --bad: #b3261e; }
* { box-sizing: border-box; }
html { color: var(--ink); background: #dfe3e8; -webkit-print-color-adjust: exact; print-color-adjust: exact; }
body { max-width: 210mm; margin: 8mm auto; padding: 20mm 18mm; background: #fff; font: 10.5pt/1.55 "Times New Roman", "Liberation Serif", "SimSun", "Songti SC", "Noto Serif CJK SC", "Source Han Serif SC", serif; }
h1, h2, h3, caption, figcaption, th, .cover, nav { font-family: Arial, "Liberation Sans", "SimHei", "Heiti SC", "Noto Sans CJK SC", "Source Han Sans SC", sans-serif; }
h1 { font-size: 21pt; line-height: 1.25; margin: 0 0 2mm; }
h2 { font-size: 14pt; margin: 11mm 0 3mm; padding-bottom: 1mm; border-bottom: 1.2pt solid var(--accent); }
h3 { font-size: 11.5pt; margin: 6mm 0 2mm; }
h2, h3 { break-after: avoid; line-height: 1.3; }
p { margin: 0 0 2.2mm; orphans: 3; widows: 3; }
ul { margin: 0 0 2.2mm; padding-left: 5mm; }
li { margin-bottom: .8mm; }
.formula { margin: 1mm 0 3mm 8mm; font-style: italic; break-inside: avoid; }
.formula sub, .formula sup { font-style: normal; }
sub, sup { font-size: 72%; line-height: 0; }
.warn { border-left: 3pt solid var(--bad); background: #fdf1f0; padding: 1.6mm 3mm; break-inside: avoid; }
.cover { border-bottom: 2pt solid var(--ink); padding-bottom: 5mm; margin-bottom: 6mm; }
.cover .kind { color: var(--accent); letter-spacing: .12em; font-size: 11pt; margin-bottom: 4mm; }
table { border-collapse: collapse; width: 100%; margin: 2.5mm 0 4.5mm; font-size: 8.8pt; line-height: 1.32; border-top: 1.2pt solid var(--ink); border-bottom: 1.2pt solid var(--ink); }
caption { caption-side: top; text-align: left; font-weight: bold; font-size: 9.2pt; padding-bottom: 1mm; break-after: avoid; }
thead { display: table-header-group; }
th { font-weight: 600; font-size: 8.2pt; background: var(--ground); border-bottom: .8pt solid var(--ink); padding: 1mm 1.4mm; vertical-align: bottom; }
td { padding: .65mm 1.4mm; border-bottom: .3pt solid #d5dae0; vertical-align: top; overflow-wrap: anywhere; }
tr, table.whole { break-inside: avoid; }
.l { text-align: left; } .c { text-align: center; } .r { text-align: right; font-variant-numeric: tabular-nums; }
td.r, td.c { white-space: nowrap; }
tr.sum td { border-top: .8pt solid var(--ink); font-weight: bold; }
td.good { color: var(--good); font-weight: bold; } td.bad { color: var(--bad); font-weight: bold; }
table.facts { border: 0; width: auto; margin: 1mm 0 4mm; font-size: 10pt; }
table.facts td { border: 0; padding: .5mm 6mm .5mm 0; } table.facts td:first-child { color: var(--faint); white-space: nowrap; }
figure { margin: 3mm auto 5mm; break-inside: avoid; text-align: center; }
figure svg { display: block; width: 100%; height: auto; border: .4pt solid var(--line); }
figcaption { font-size: 9.2pt; font-weight: bold; margin-top: 1.2mm; }
nav { margin: 0 0 6mm; font-size: 10pt; } nav ol { list-style: none; margin: 0; padding: 0; columns: 2; column-gap: 10mm; }
nav a { color: inherit; text-decoration: none; } nav li { margin: .6mm 0; } nav .title { font-weight: bold; margin-bottom: 1mm; }
@media print {
  html { background: #fff; }
  body { max-width: none; margin: 0; padding: 0; }
}
)";

constexpr std::size_t c_nWholeTable = 24;  ///< rows of a table that stays on one sheet

/// As a text of CSS.
std::string QuoteCss(std::string_view strText) {
  std::string strQuoted = "\"";
  for (const char c : strText) {
    const auto nByte = static_cast<unsigned char>(c);
    const bool bPlain = nByte >= 0x80U || (nByte >= ' ' && std::string_view("\"\\<>&").find(c) == std::string::npos);
    strQuoted += bPlain ? std::string(1, c) : Format("\\%x ", static_cast<unsigned>(nByte));
  }
  return strQuoted + '"';
}

std::string FormatSheets(std::string_view strHeader, std::string_view strFooter) {
  constexpr const char* c_pszFont =
      "font: 8pt Arial, \"Liberation Sans\", \"SimHei\", \"Noto Sans CJK SC\", sans-serif; color: #5d6875;";
  return Format(
      "@page { size: A4; margin: 20mm 17mm 18mm 20mm; @top-left { content: %s; %s } "
      "@bottom-left { content: %s; %s } @bottom-right { content: counter(page) \" / \" counter(pages); %s } }\n",
      QuoteCss(strHeader).c_str(), c_pszFont, QuoteCss(strFooter).c_str(), c_pszFont, c_pszFont);
}

char GetAlign(const PageTable& table, std::size_t nColumn) {
  return table.strAlign.empty() ? 'r' : table.strAlign[std::min(nColumn, table.strAlign.size() - 1)];
}

/// Verdicts show their colour.
std::string_view GetColour(std::string_view strCell) {
  if (strCell == Say(texts::c_satisfied)) return " good";
  return strCell == Say(texts::c_notSatisfied) ? " bad" : "";
}

std::string FormatHead(const PageTable& table) {
  std::string strHead = "<thead><tr>";
  for (std::size_t k = 0; k < table.head.size(); ++k) {
    strHead += Format("<th class=\"%c\">", GetAlign(table, k)) + table.head[k] + "</th>";
  }
  return strHead + "</tr></thead>\n";
}

std::string FormatRow(const PageTable& table, const std::vector<std::string>& row, bool bSum) {
  std::string strRow = bSum ? "<tr class=\"sum\">" : "<tr>";
  for (std::size_t k = 0; k < row.size(); ++k) {
    strRow += Format("<td class=\"%c", GetAlign(table, k)) + std::string(GetColour(row[k])) + "\">" +
              EscapeHtml(row[k]) + "</td>";
  }
  return strRow + "</tr>\n";
}

}  // namespace

std::string EscapeHtml(std::string_view strText) {
  std::string strResult;
  for (const char c : strText) {
    switch (c) {
      case '&':
        strResult += "&amp;";
        break;
      case '<':
        strResult += "&lt;";
        break;
      case '>':
        strResult += "&gt;";
        break;
      case '"':
        strResult += "&quot;";
        break;
      default:
        strResult += static_cast<unsigned char>(c) >= ' ' || c == '\n' || c == '\t' ? std::string(1, c) : "\uFFFD";
    }
  }
  return strResult;
}

void CPage::Heading(std::string_view strNumber, std::string_view strTitle) {
  m_nSection = m_nTable = m_nFigure = 0;
  m_strChapter = strNumber;
  const std::string strText = std::string(strNumber) + "&ensp;" + EscapeHtml(strTitle);
  m_strBody += "<h2 id=\"c" + m_strChapter + "\">" + strText + "</h2>\n";
  m_strContents += "<li><a href=\"#c" + m_strChapter + "\">" + strText + "</a></li>\n";
}

void CPage::Chapter(std::string_view strTitle) { Heading(std::to_string(++m_nChapter), strTitle); }

void CPage::Appendix(std::string_view strTitle) {
  Heading(std::string(1, static_cast<char>('A' + m_nAppendix++)), strTitle);
}

std::string CPage::GetNumber(int nNumber) const { return m_strChapter + "-" + std::to_string(nNumber); }

void CPage::Section(std::string_view strTitle) {
  m_strBody += "<h3>" + m_strChapter + "." + std::to_string(++m_nSection) + "&ensp;" + EscapeHtml(strTitle) + "</h3>\n";
}

void CPage::Text(std::string_view strText) { m_strBody += "<p>" + EscapeHtml(strText) + "</p>\n"; }

void CPage::Markup(std::string_view strMarkup) { m_strBody.append("<p>").append(strMarkup).append("</p>\n"); }

void CPage::Formula(std::string_view strMarkup) {
  m_strBody.append("<p class=\"formula\">").append(strMarkup).append("</p>\n");
}

void CPage::Warn(std::string_view strName, std::string_view strText) {
  m_strBody += "<p class=\"warn\">" + EscapeHtml(strText) + "</p>\n";
  if (std::ranges::find(m_warnings, strText, &Advice::strText) != m_warnings.end()) return;
  m_warnings.push_back({Severity::Warning, std::string(strName), std::string(strText)});
}

void CPage::List(const std::vector<std::string>& texts) {
  m_strBody += "<ul>\n";
  for (const std::string& strText : texts) m_strBody += "<li>" + EscapeHtml(strText) + "</li>\n";
  m_strBody += "</ul>\n";
}

void CPage::Facts(const std::vector<std::pair<std::string, std::string>>& facts) {
  m_strBody += "<table class=\"facts\">\n";
  for (const auto& [strKey, strValue] : facts) {
    m_strBody += "<tr><td>" + EscapeHtml(strKey) + "</td><td>" + EscapeHtml(strValue) + "</td></tr>\n";
  }
  m_strBody += "</table>\n";
}

void CPage::Table(const PageTable& table) {
  m_strBody += table.rows.size() <= c_nWholeTable ? "<table class=\"whole\">" : "<table>";
  m_strBody += "<caption>" + std::string(Say(texts::c_table)) + GetNumber(++m_nTable) + "&ensp;" +
               EscapeHtml(table.strCaption) + "</caption>\n" + FormatHead(table) + "<tbody>\n";
  for (std::size_t k = 0; k < table.rows.size(); ++k) {
    m_strBody += FormatRow(table, table.rows[k], table.bSumRow && k + 1 == table.rows.size());
  }
  m_strBody += "</tbody></table>\n";
}

void CPage::Figure(std::string_view strCaption, std::string_view strSvg, double dWidth) {
  const std::size_t nStart = std::min(strSvg.find("<svg"), strSvg.size());  // behind the declaration of XML
  m_strBody += Format("<figure style=\"width: %.0f%%\">\n", 100.0 * dWidth);
  m_strBody.append(strSvg.substr(nStart)).append("<figcaption>").append(Say(texts::c_figure));
  m_strBody += GetNumber(++m_nFigure) + "&ensp;" + EscapeHtml(strCaption) + "</figcaption></figure>\n";
}

std::string CPage::Finish(std::string_view strTitle, std::string_view strHeader, std::string_view strFooter,
                          std::string_view strCover) const {
  const bool bChinese = GetLanguage() == Language::Chinese;
  std::string strPage =
      Format("<!DOCTYPE html>\n<html lang=\"%s\">\n<head>\n<meta charset=\"utf-8\">\n", bChinese ? "zh-CN" : "en");
  strPage += "<title>" + EscapeHtml(strTitle) + "</title>\n<style>\n" + FormatSheets(strHeader, strFooter);
  strPage.append(c_strStyle).append("</style>\n</head>\n<body>\n").append(strCover);
  strPage.append("<nav><div class=\"title\">").append(Say(texts::c_contents)).append("</div><ol>\n");
  return strPage + m_strContents + "</ol></nav>\n" + m_strBody + "</body>\n</html>\n";
}

}  // namespace skyframe::host
