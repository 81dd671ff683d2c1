#include <algorithm>
#include <charconv>
#include <optional>
#include <span>

#include "skyframe/history/HistoryFile.h"
#include "skyframe/hostdata/HostData.h"
#include "skyframe/platform/Platform.h"
#include "skyframe/values/ResultFiles.h"
#include "texts.h"

namespace skyframe {

namespace {

/// Words of a text, one after the other. A word that is not there, or not what was asked for, makes
/// every later call fail. Numbers may have a plus sign.
class CWordReader {
 public:
  explicit CWordReader(std::string_view strText) : m_strRest(strText) {}

  [[nodiscard]] bool HasFailed() const { return m_bFailed; }

  std::string_view Word() {
    constexpr std::string_view c_strSpaces = " \t\r\n\v\f";
    m_strRest.remove_prefix(std::min(m_strRest.find_first_not_of(c_strSpaces), m_strRest.size()));
    const std::size_t nLength = std::min(m_strRest.find_first_of(c_strSpaces), m_strRest.size());
    const std::string_view strWord = m_strRest.substr(0, nLength);
    m_strRest.remove_prefix(nLength);
    m_bFailed = m_bFailed || strWord.empty();
    return strWord;
  }
  void Skip(int nWords) {
    for (int i = 0; i < nWords; ++i) Word();
  }

  /// The next word as a whole.
  template <class T>
  T Number() {
    std::string_view strWord = Word();
    T value{};
    if (strWord.starts_with('+') && !strWord.starts_with("+-")) strWord.remove_prefix(1);
    const char* const pEnd = strWord.data() + strWord.size();
    const auto [pStop, error] = std::from_chars(strWord.data(), pEnd, value);
    Expect(error == std::errc{} && pStop == pEnd);
    return value;
  }

  /// "Time." and the step number, which may stand in the same word.
  void SkipTimePoint() {
    const std::string_view strWord = Word();
    Expect(strWord.starts_with(texts::c_strTimeLabel));
    if (strWord.size() == texts::c_strTimeLabel.size()) Skip(1);
  }

  void Expect(bool bTrue) { m_bFailed = m_bFailed || !bTrue; }
  [[nodiscard]] std::size_t GetRestLength() const { return m_strRest.size(); }

 private:
  std::string_view m_strRest;
  bool m_bFailed = false;
};

bool Contains(std::string_view strWord, std::string_view strName) {
  return strWord.find(strName) != std::string_view::npos;
}

/// Code 1 when the word contains strOne, 0 when it contains strZero, else as it was. Deliberate: case-sensitive.
void ReadCode(CWordReader& words, std::string_view strZero, std::string_view strOne, int& nCode) {
  words.Skip(2);
  const std::string_view strWord = words.Word();
  if (Contains(strWord, strOne)) {
    nCode = 1;
  } else if (Contains(strWord, strZero)) {
    nCode = 0;
  }
}

/// Up to and with "--". Leaves the step count for the check against the text's length.
void ReadHeader(CWordReader& words, int nNodes, int nElements, HistorySet& history) {
  words.Skip(3);
  words.Expect(words.Number<int>() == nNodes);
  words.Skip(3);
  words.Expect(words.Number<int>() == nElements);
  words.Skip(3);
  history.nSteps = words.Number<int>();
  words.Expect(history.nSteps >= 0 && nNodes >= 0 && nElements >= 0);
  words.Skip(2);
  history.dTimeStep = words.Number<double>();
  ReadCode(words, "Wilson", "Newmark", history.nMethod);
  ReadCode(words, "Linear", "Nonlinear", history.nAssumption);
  words.Skip(1);
}

/// Characters that the blocks of so many steps have at the least.
double GetSmallestLength(int nSteps, int nNodes, int nElements) {
  constexpr double c_dNodeLine = 13.0;   // "Time.1 0 0 0" and a line end
  constexpr double c_dMemberLine = 9.0;  // "Time.1 0" and a line end
  constexpr double c_dSlack = 2.0;       // no line end at the end of the file
  return nSteps * (c_dNodeLine * nNodes + c_dMemberLine * nElements) - c_dSlack;
}

/// Column nIndex of every quantity. Deliberate: the numbers written beside the values are not compared.
void ReadBlock(CWordReader& words, int nIndex, int nSteps, std::span<CHistoryTable> quantities) {
  words.Skip(3);
  for (int k = 0; k < nSteps && !words.HasFailed(); ++k) {
    words.SkipTimePoint();
    for (CHistoryTable& values : quantities) values[k][nIndex] = words.Number<double>();
  }
}

}  // namespace

std::optional<HistorySet> ParseHistory(std::string_view strText, int nNodes, int nElements) {
  CWordReader words(strText);
  HistorySet history;
  ReadHeader(words, nNodes, nElements, history);
  words.Expect(GetSmallestLength(history.nSteps, nNodes, nElements) <= static_cast<double>(words.GetRestLength()));
  if (words.HasFailed()) return std::nullopt;

  history.Allocate(history.nSteps, nNodes, nElements);
  const std::span<CHistoryTable> values = history.values;
  for (int i = 0; i < nNodes; ++i) ReadBlock(words, i, history.nSteps, values.first(c_nHistoryForce));
  for (int j = 0; j < nElements; ++j) ReadBlock(words, j, history.nSteps, values.subspan(c_nHistoryForce));
  if (words.HasFailed()) return std::nullopt;
  history.bComplete = true;
  return history;
}

bool ReadHistoryFile(HistorySet& history) {
  const CWaitCursorScope waitCursor;
  const std::optional<std::string> text = ReadWholeFile(g_FilePathName + std::string(suffix::c_strHistory));
  if (!text) {
    GetPlatform().ShowMessage(texts::c_strNoHistory);
    return false;
  }
  std::optional<HistorySet> read = ParseHistory(*text, ABCD.m_nNodes, ABCD.m_nElements);
  if (!read) return false;
  history = std::move(*read);
  COMDYN.m_nHistoryCount = history.nSteps;
  COMDYN.m_nMethod = history.nMethod;
  COMDYN.m_dHistoryStep = history.dTimeStep;
  COMDYN.m_bNonlinear = history.nAssumption;
  return true;
}

}  // namespace skyframe
