#include <optional>
#include <span>

#include "skyframe/history/HistoryFile.h"
#include "skyframe/hostdata/HostData.h"
#include "skyframe/platform/Platform.h"
#include "skyframe/platform/Progress.h"
#include "skyframe/platform/WordReader.h"
#include "skyframe/values/ResultFiles.h"
#include "texts.h"

namespace skyframe {

namespace {

/// "Time." and the step number, which may stand in the same word.
void SkipTimePoint(CWordReader& words) {
  const std::string_view strWord = words.Next();
  words.Expect(strWord.starts_with(texts::c_strTimeLabel));
  if (strWord.size() == texts::c_strTimeLabel.size()) words.Skip(1);
}

/// Three words and a count that is known.
void ReadCount(CWordReader& words, int nExpected) {
  int nCount = -1;
  words.Skip(3);
  words.Read(nCount);
  words.Expect(nCount == nExpected && nExpected >= 0);
}

bool Contains(std::string_view strWord, std::string_view strName) {
  return strWord.find(strName) != std::string_view::npos;
}

/// Code 1 when the word contains strOne, 0 when it contains strZero, else as it was. Deliberate: case-sensitive.
void ReadCode(CWordReader& words, std::string_view strZero, std::string_view strOne, int& nCode) {
  words.Skip(2);
  const std::string_view strWord = words.Next();
  if (Contains(strWord, strOne)) {
    nCode = 1;
  } else if (Contains(strWord, strZero)) {
    nCode = 0;
  }
}

/// Up to and with "--". Leaves the step count for the check against the text's length.
void ReadHeader(CWordReader& words, int nNodes, int nElements, HistorySet& history) {
  ReadCount(words, nNodes);
  ReadCount(words, nElements);
  words.Skip(3);
  words.Read(history.nSteps);
  words.Expect(history.nSteps >= 0);
  words.Skip(2);
  words.Read(history.dTimeStep);
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
    SkipTimePoint(words);
    for (CHistoryTable& values : quantities) words.Read(values[k][nIndex]);
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
  CProgress progress(texts::c_strReadHistory, nNodes + nElements);
  for (int i = 0; i < nNodes; ++i) {
    ReadBlock(words, i, history.nSteps, values.first(c_nHistoryForce));
    progress.Advance();
  }
  for (int j = 0; j < nElements; ++j) {
    ReadBlock(words, j, history.nSteps, values.subspan(c_nHistoryForce));
    progress.Advance();
  }
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
