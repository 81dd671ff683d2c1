#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "skyframe/advice/Advice.h"
#include "skyframe/job/Language.h"

namespace skyframe::host {

/// Text with what HTML takes for markup written out; characters that HTML forbids become U+FFFD.
[[nodiscard]] std::string EscapeHtml(std::string_view strText);

/// A table: markup in the head, plain text in the rows.
struct PageTable {
  std::string strCaption;         ///< text
  std::vector<std::string> head;  ///< markup
  std::string strAlign;           ///< l, c or r by column; the last letter serves the columns behind it
  std::vector<std::vector<std::string>> rows;
  bool bSumRow = false;  ///< the last row sums up
};

/// Writes an HTML page. Chapters, sections, tables and figures are numbered; all texts are plain but where markup is
/// named.
class CPage {
 public:
  void Chapter(std::string_view strTitle);
  /// With a letter in the place of the number.
  void Appendix(std::string_view strTitle);
  void Section(std::string_view strTitle);
  void Text(std::string_view strText);
  /// Formulas and other texts of the program's own.
  void Markup(std::string_view strMarkup);
  void Formula(std::string_view strMarkup);
  /// Something the reader must not overlook, with its name in the manual; kept once, however often it is told.
  void Warn(std::string_view strName, std::string_view strText);
  [[nodiscard]] const AdviceList& GetWarnings() const { return m_warnings; }
  void List(const std::vector<std::string>& texts);
  /// Keys and values in two columns, not numbered.
  void Facts(const std::vector<std::pair<std::string, std::string>>& facts);
  void Table(const PageTable& table);
  /// dWidth: part of the page's width, above 0.
  void Figure(std::string_view strCaption, std::string_view strSvg, double dWidth = 1.0);
  /// What was written so far, without the page around it.
  [[nodiscard]] const std::string& GetBody() const { return m_strBody; }
  /// The page with a title block and a list of the chapters. strHeader, strFooter: on every printed sheet.
  [[nodiscard]] std::string Finish(std::string_view strTitle, std::string_view strHeader, std::string_view strFooter,
                                   std::string_view strCover) const;

 private:
  void Heading(std::string_view strNumber, std::string_view strTitle);
  [[nodiscard]] std::string GetNumber(int nNumber) const;

  std::string m_strBody;
  AdviceList m_warnings;
  std::string m_strContents;
  std::string m_strChapter;  ///< "7", "A"
  int m_nChapter = 0;
  int m_nAppendix = 0;
  int m_nSection = 0;
  int m_nTable = 0;
  int m_nFigure = 0;
};

}  // namespace skyframe::host
