#include "skyframe/history/GroundMotion.h"

#include <algorithm>
#include <cmath>

#include "skyframe/platform/NumberText.h"
#include "skyframe/platform/Platform.h"
#include "skyframe/values/ResultFiles.h"
#include "texts.h"

namespace skyframe {

namespace {

constexpr int c_nOblique = 3;  ///< place behind X, Y, Z in the tables of texts
constexpr int c_nNoDirection = -1;

/// Place in the tables of texts; X wins over Y, Y over Z.
int ChooseRecord(const QuakeSettings& settings) {
  if (settings.m_nQuakeMode == c_nObliqueQuake) return c_nOblique;
  const auto it = std::ranges::find_if(settings.m_bQuakeDir, [](int n) { return n != 0; });
  return it == settings.m_bQuakeDir.end() ? c_nNoDirection : static_cast<int>(it - settings.m_bQuakeDir.begin());
}

}  // namespace

std::vector<double> ReadAccelerationRecord(std::istream& strm, double dPeak) {
  std::vector<double> record;
  double dLargest = 0.0;
  while (const std::optional<double> value = ReadNumber(strm)) {
    record.push_back(*value);
    dLargest = std::max(dLargest, std::abs(*value));
  }
  const double dScale = dPeak / dLargest;
  for (double& dValue : record) dValue *= dScale;
  return record;
}

std::optional<std::vector<double>> ReadAccelerationRecord(const std::string& strPath, double dPeak) {
  const std::unique_ptr<std::istream> pStream = GetPlatform().OpenForReading(strPath);
  if (!pStream) return std::nullopt;
  std::vector<double> record = ReadAccelerationRecord(*pStream, dPeak);
  if (pStream->bad()) return std::nullopt;  // broken off, not at its end
  return record;
}

bool CGroundMotion::Read(const QuakeSettings& settings, bool bFromFile, const std::string& strPrefix) {
  m_records = {};
  const int nRecord = ChooseRecord(settings);
  if (nRecord == c_nNoDirection) return true;
  const auto nText = static_cast<std::size_t>(nRecord);
  const std::string strPath =
      bFromFile ? strPrefix + std::string(suffix::c_strAcceleration[nText]) : settings.m_strQuakeFile;
  const double dPeak = nRecord == c_nOblique ? settings.m_dPeakOblique : settings.m_dPeak[nText];
  std::optional<std::vector<double>> record = ReadAccelerationRecord(strPath, dPeak);
  if (!record) {
    GetPlatform().ShowMessage(texts::c_strBadRecords[nText]);
    return false;
  }
  if (nRecord != c_nOblique) {
    m_records[nText] = std::move(*record);
    return true;
  }
  for (std::size_t nDirection = 0; nDirection < 3; ++nDirection) {
    m_records[nDirection] = *record;
    for (double& dValue : m_records[nDirection]) dValue *= settings.m_dObliqueCoef[nDirection];
  }
  return true;
}

void CGroundMotion::FormVector(int nStep, const CNodeTable& nodes, std::span<double> g) const {
  std::fill(g.begin(), g.end(), 0.0);
  const auto k = static_cast<std::size_t>(nStep);
  for (int nDirection = 0; nDirection < 3; ++nDirection) {
    const std::span<const double> record = GetRecord(nDirection);
    if (k >= record.size()) continue;
    for (const int nNode : nodes.GetListedNodes()) {
      const auto nDof = static_cast<std::size_t>(nodes.GetDof(nNode, nDirection));
      if (nDof < g.size()) g[nDof] = -record[k];
    }
  }
}

}  // namespace skyframe
