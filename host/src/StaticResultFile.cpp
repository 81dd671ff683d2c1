#include "StaticResultFile.h"

#include <charconv>
#include <sstream>
#include <string_view>

#include "skyframe/platform/Platform.h"

namespace skyframe::host {

namespace {

constexpr std::string_view c_strReactionHeading = "Reactions: ";
constexpr std::string_view c_strDisplacementHeading = "DOF Displacements: ";
constexpr std::array<std::string_view, 3> c_strReactionLabels = {"  X向支反力  ", "  Y向支反力  ", "  Z向支反力  "};

double ParseNumber(std::string_view strText) {
  double dValue = 0.0;
  std::from_chars(strText.data(), strText.data() + strText.size(), dValue);
  return dValue;
}

void AddReactions(std::string_view strLine, std::array<double, 3>& sum) {
  for (std::size_t d = 0; d < 3; ++d) {
    const std::size_t n = strLine.find(c_strReactionLabels[d]);
    if (n != std::string_view::npos) sum[d] += ParseNumber(strLine.substr(n + c_strReactionLabels[d].size()));
  }
}

bool SkipTo(std::istream& strm, std::string_view strHeading) {
  for (std::string strLine; std::getline(strm, strLine);) {
    if (strLine == strHeading) return true;
  }
  return false;
}

}  // namespace

std::optional<StaticResultFile> ReadStaticResultFile(const std::string& strPath) {
  const auto pStream = GetPlatform().OpenForReading(strPath);
  if (!pStream) return std::nullopt;
  std::istream& strm = *pStream;
  StaticResultFile result;
  std::string strLine;
  if (!SkipTo(strm, c_strReactionHeading)) return std::nullopt;
  while (std::getline(strm, strLine) && strLine != c_strDisplacementHeading) AddReactions(strLine, result.supportForce);
  if (!std::getline(strm, strLine)) return std::nullopt;  // the column titles
  while (std::getline(strm, strLine)) {
    std::istringstream fields(strLine);
    int nNode = 0;
    std::array<double, 3> u = {};
    if (fields >> nNode >> u[0] >> u[1] >> u[2]) result.displacements.push_back(u);
  }
  return result;
}

}  // namespace skyframe::host
