#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "skyframe/model/LoadCase.h"
#include "skyframe/values/Settings.h"

namespace skyframe {

struct RunFindings;

enum ImpulseShape : int { c_nTriangularImpulse = 0, c_nRectangularImpulse = 1 };

/// dTime / dStep truncated toward zero; 0 for steps that are not positive and for NaN, at most the
/// largest int.
[[nodiscard]] int CountSteps(double dTime, double dStep);

/// Impulse load text: "/IMPULSELOAD/", a block a step, "/END/". With K = CountSteps(dTime, dStep):
/// rectangular, K blocks of the peaks; triangular, factors 1/K .. K/K, then (K-1)/K .. 0/K. Another
/// shape: only the first line. dTime is the unload time of a rectangle, the peak time of a triangle.
[[nodiscard]] std::string ComposeImpulseScript(std::span<const ImpulseLoad> entries, int nShape, double dTime,
                                               double dStep);

/// Writes the text to strPrefix + "_Loadinputtest.txt"; false when that was not possible. The findings hear of either.
bool SaveImpulseScript(const std::string& strPrefix, std::string_view strText, RunFindings& findings);

/// Reader of an impulse load text; forces in kN there, in N in the records. The text must outlive it.
/// Any text is read without failure: what cannot start a number is skipped, a line that the text's end
/// cuts short takes -1 for what is missing, and a block ends at "/END/" at the latest.
class CImpulseScript {
 public:
  explicit CImpulseScript(std::string_view strText) : m_strText(strText), m_nEnd(strText.size()) {}

  /// Finds both tags and goes to the first block. False when one is missing or they are in the wrong order.
  [[nodiscard]] bool FindBlocks();
  /// Whether the blocks are used up.
  [[nodiscard]] bool IsUsedUp() const { return m_nPos + 2 >= m_nEnd; }
  /// Parses the next block into the load case, whose records are those of the block before.
  void ReadBlock(CLoadCase& loadCase) { ParseLoadBlock(m_nPos, loadCase); }

  /// Index behind the first occurrence of the tag, or -1 (see GetError).
  [[nodiscard]] std::ptrdiff_t FindTag(std::string_view strTag);
  /// Set by FindTag; never shown.
  [[nodiscard]] const std::string& GetError() const { return m_strError; }

  // Tokens from nPos, which moves behind them.

  /// After blanks and line ends a run of exactly "##". Any run of '#' is consumed, nothing else.
  [[nodiscard]] bool IsBlockEnd(std::size_t& nPos) const;
  /// -1 at the end of the text. Deliberate: a token that starts with a point is 0 and is not consumed.
  [[nodiscard]] int ReadIntToken(std::size_t& nPos) const;
  /// -1 at the end of the text.
  [[nodiscard]] double ReadRealToken(std::size_t& nPos) const;
  /// Reads lines up to the end of the block. Line k of the block fills the records 2k .. 2k + 2 with
  /// its X, Y and Z force; records left over become zero.
  /// Deliberate: the Z record of a line is overwritten by the X record of the next.
  void ParseLoadBlock(std::size_t& nPos, CLoadCase& loadCase) const;

 private:
  [[nodiscard]] bool IsAtBlockEnd(std::size_t& nPos) const;
  /// Moves to "/END/" when only characters that start neither a number nor a terminator are left before it.
  [[nodiscard]] bool IsAtEndTag(std::size_t& nPos) const;
  void SkipToNumber(std::size_t& nPos) const;
  void ReadLine(std::size_t& nPos, std::span<CNodalLoad> records) const;

  std::string_view m_strText;
  std::size_t m_nEnd;      ///< where "/END/" begins
  std::size_t m_nPos = 0;  ///< next block
  std::string m_strError;
};

}  // namespace skyframe
