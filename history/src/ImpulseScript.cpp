#include "skyframe/history/ImpulseScript.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <system_error>

#include "skyframe/platform/NumberText.h"
#include "skyframe/platform/OutputFile.h"
#include "skyframe/values/ResultFiles.h"
#include "texts.h"

namespace skyframe {

namespace {

constexpr int c_nComponents = 3;
constexpr std::string_view c_strFieldGap = "   ";
constexpr std::string_view c_strScriptLineEnd = "\r\n";
constexpr std::string_view c_strBlockEnd = "##";

/// One block: a line an entry with its peak times dFactor in its own direction.
void AppendBlock(std::string& strText, std::span<const ImpulseLoad> entries, double dFactor) {
  for (const ImpulseLoad& entry : entries) {
    strText.append(c_strFieldGap).append(std::to_string(entry.nNode));
    for (int nDirection = 0; nDirection < c_nComponents; ++nDirection) {
      const double dForce = entry.nDirection == nDirection ? entry.dPeak : 0.0;
      strText.append(c_strFieldGap).append(FormatFixed(dForce * dFactor, 3));
    }
    strText.append(c_strScriptLineEnd);
  }
  strText.append(c_strBlockEnd).append(c_strScriptLineEnd);
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsIntChar(char c) { return IsDigit(c) || c == '+' || c == '-'; }
bool IsRealChar(char c) { return IsIntChar(c) || c == '.' || c == 'E' || c == 'e'; }
/// From '+' to '9' without ',' and '/'.
bool StartsNumber(char c) { return IsIntChar(c) || c == '.'; }
bool IsBlank(char c) { return c == ' ' || c == '\r' || c == '\n'; }

/// A plus sign that stands directly before a number says nothing.
std::string_view DropPlus(std::string_view strToken) {
  const bool bDrop = strToken.size() > 1 && strToken[0] == '+' && (IsDigit(strToken[1]) || strToken[1] == '.');
  return bDrop ? strToken.substr(1) : strToken;
}

/// Leading integer of the token, 0 when there is none, the largest magnitude when it does not fit.
int ConvertInt(std::string_view strToken) {
  constexpr int c_nLargest = std::numeric_limits<int>::max();
  strToken = DropPlus(strToken);
  int nValue = 0;
  const auto result = std::from_chars(strToken.data(), strToken.data() + strToken.size(), nValue);
  if (result.ec == std::errc::result_out_of_range) return strToken[0] == '-' ? -c_nLargest : c_nLargest;
  return std::max(nValue, -c_nLargest);
}

/// For a number outside the range of double: whether it is too large (rather than too small). The
/// place of its leading digit plus the written exponent decides.
bool IsTooLarge(std::string_view strNumber) {
  constexpr long long c_nManyPlaces = 1LL << 60;
  const std::size_t nE = std::min(strNumber.find_first_of("eE"), strNumber.size());
  const std::string_view strMantissa = strNumber.substr(0, nE);
  const auto nPoint = static_cast<long long>(std::min(strMantissa.find('.'), strMantissa.size()));
  const auto nLeading = static_cast<long long>(strMantissa.find_first_of("123456789"));
  const std::string_view strExponent = DropPlus(strNumber.substr(std::min(nE + 1, strNumber.size())));
  long long nExponent = 0;
  const auto result = std::from_chars(strExponent.data(), strExponent.data() + strExponent.size(), nExponent);
  if (result.ec == std::errc::result_out_of_range) nExponent = strExponent[0] == '-' ? -c_nManyPlaces : c_nManyPlaces;
  return nPoint - nLeading + std::clamp(nExponent, -c_nManyPlaces, c_nManyPlaces) > 0;
}

/// Leading real number of the token, 0 when there is none or it is too small, infinite when it is too large.
double ConvertReal(std::string_view strToken) {
  strToken = DropPlus(strToken);
  double dValue = 0.0;
  const auto result = std::from_chars(strToken.data(), strToken.data() + strToken.size(), dValue);
  if (result.ec != std::errc::result_out_of_range) return dValue;
  const auto nLength = static_cast<std::size_t>(result.ptr - strToken.data());
  if (!IsTooLarge(strToken.substr(0, nLength))) return 0.0;
  constexpr double c_dInfinity = std::numeric_limits<double>::infinity();
  return strToken[0] == '-' ? -c_dInfinity : c_dInfinity;
}

}  // namespace

int CountSteps(double dTime, double dStep) {
  const double dCount = dTime / dStep;
  if (!(dStep > 0.0) || !(dCount >= 1.0)) return 0;
  constexpr int c_nMost = std::numeric_limits<int>::max();
  return dCount >= c_nMost ? c_nMost : static_cast<int>(dCount);
}

std::string ComposeImpulseScript(std::span<const ImpulseLoad> entries, int nShape, double dTime, double dStep) {
  std::string strText(texts::c_strImpulseTag);
  strText.append(c_strScriptLineEnd);
  const int K = CountSteps(dTime, dStep);
  if (nShape == c_nRectangularImpulse) {
    for (int s = 0; s < K; ++s) AppendBlock(strText, entries, 1.0);
  } else if (nShape == c_nTriangularImpulse) {
    const double dK = K;
    for (int s = 1; s <= K; ++s) AppendBlock(strText, entries, s / dK);
    // Deliberate: the fall lasts as long as the rise, whatever the unload time.
    for (int s = K - 1; s >= 0; --s) AppendBlock(strText, entries, s / dK);
  } else {
    return strText;
  }
  return strText.append(texts::c_strEndTag);
}

bool SaveImpulseScript(const std::string& strPrefix, std::string_view strText, RunFindings& findings) {
  COutputFile file(strPrefix + std::string(suffix::c_strImpulseEcho));
  file.GetWriter().Text(strText);
  return CommitResult(file, findings);
}

bool CImpulseScript::FindBlocks() {
  const std::ptrdiff_t nStart = FindTag(texts::c_strImpulseTag);
  const std::ptrdiff_t nEnd = FindTag(texts::c_strEndTag) - std::ssize(texts::c_strEndTag);
  if (nStart < 0 || nEnd < nStart) return false;
  m_nPos = static_cast<std::size_t>(nStart);
  m_nEnd = static_cast<std::size_t>(nEnd);
  return true;
}

std::ptrdiff_t CImpulseScript::FindTag(std::string_view strTag) {
  const std::size_t nPlace = m_strText.find(strTag);
  if (nPlace != std::string_view::npos) return static_cast<std::ptrdiff_t>(nPlace + strTag.size());
  m_strError = std::string(texts::c_strTagNotFound).append(strTag);
  return -1;
}

bool CImpulseScript::IsBlockEnd(std::size_t& nPos) const {
  while (nPos < m_strText.size() && IsBlank(m_strText[nPos])) ++nPos;
  const std::size_t nFirst = nPos;
  while (nPos < m_strText.size() && m_strText[nPos] == '#') ++nPos;
  return m_strText.substr(nFirst, nPos - nFirst) == c_strBlockEnd;
}

int CImpulseScript::ReadIntToken(std::size_t& nPos) const {
  SkipToNumber(nPos);
  if (nPos >= m_strText.size()) return -1;
  const std::size_t nFirst = nPos;
  while (nPos < m_strText.size() && IsIntChar(m_strText[nPos])) ++nPos;
  return ConvertInt(m_strText.substr(nFirst, nPos - nFirst));
}

double CImpulseScript::ReadRealToken(std::size_t& nPos) const {
  SkipToNumber(nPos);
  if (nPos >= m_strText.size()) return -1.0;
  const std::size_t nFirst = nPos;
  while (nPos < m_strText.size() && IsRealChar(m_strText[nPos])) ++nPos;
  return ConvertReal(m_strText.substr(nFirst, nPos - nFirst));
}

void CImpulseScript::ParseLoadBlock(std::size_t& nPos, CLoadCase& loadCase) const {
  std::vector<CNodalLoad>& records = loadCase.m_records;
  std::size_t i = 0;
  std::size_t nUsed = 0;
  bool bReuse = true;
  while (!IsAtBlockEnd(nPos)) {
    bReuse = bReuse && i < records.size();
    // Three more records for a line that finds none; one that finds too few gets the rest.
    if (!bReuse || i + c_nComponents > records.size()) {
      records.resize(bReuse ? i + c_nComponents : records.size() + c_nComponents);
    }
    ReadLine(nPos, std::span(records).subspan(i, c_nComponents));
    nUsed = i + c_nComponents;
    i += c_nComponents - 1;
  }
  std::fill(records.begin() + static_cast<std::ptrdiff_t>(nUsed), records.end(), CNodalLoad{});
}

bool CImpulseScript::IsAtBlockEnd(std::size_t& nPos) const { return IsBlockEnd(nPos) || IsAtEndTag(nPos); }

bool CImpulseScript::IsAtEndTag(std::size_t& nPos) const {
  std::size_t nNext = nPos;
  while (nNext < m_nEnd && !StartsNumber(m_strText[nNext]) && m_strText[nNext] != '#') ++nNext;
  if (nNext < m_nEnd) return false;
  nPos = nNext;
  return true;
}

void CImpulseScript::SkipToNumber(std::size_t& nPos) const {
  while (nPos < m_strText.size() && !StartsNumber(m_strText[nPos])) ++nPos;
}

void CImpulseScript::ReadLine(std::size_t& nPos, std::span<CNodalLoad> records) const {
  const int nNode = ReadIntToken(nPos) - 1;
  for (int nDirection = 0; nDirection < c_nComponents; ++nDirection) {
    const double dForce = ReadRealToken(nPos) * c_dNewtonPerKilonewton;
    records[static_cast<std::size_t>(nDirection)] = {0, nDirection, nNode, dForce};
  }
}

}  // namespace skyframe
