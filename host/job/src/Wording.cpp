#include "skyframe/job/Wording.h"

#include <cmath>

#include "skyframe/job/Text.h"
#include "texts.h"

namespace skyframe::host {

namespace {

/// With a decimal, as factors of loads have.
std::string FormatFactor(double dFactor) {
  const std::string strText = FormatNumber(dFactor);
  return strText.find_first_not_of("0123456789") == std::string::npos ? strText + ".0" : strText;
}

}  // namespace

std::string FormatCombination(const JobCombination& combination) {
  constexpr std::string_view c_strMinus = "−";
  std::string strText;
  for (const auto& [nCase, dFactor] : combination) {
    const std::string strSign(std::signbit(dFactor) ? c_strMinus : strText.empty() ? "" : "+");
    strText += strText.empty() ? strSign : ' ' + strSign + ' ';
    strText += Say(texts::c_factorOfCase, {FormatFactor(std::abs(dFactor)), std::to_string(nCase)});
  }
  return strText;
}

std::string DescribeSite(const SpectrumSite& site) {
  return Say(texts::c_site, {c_strIntensities[static_cast<std::size_t>(site.m_nIntensity - c_nLowestIntensity)],
                             Say(texts::c_quakeLevels[static_cast<std::size_t>(site.m_nQuakeLevel)]),
                             c_strSiteClasses[static_cast<std::size_t>(site.m_nSiteClass)],
                             Say(texts::c_designGroups[static_cast<std::size_t>(site.m_nZoneGroup)])});
}

}  // namespace skyframe::host
