#include "LargestDifference.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "skyframe/job/Text.h"
#include "texts.h"

namespace skyframe::host {

namespace {

double GetDifference(double dFirst, double dSecond) {
  const double d = std::abs(dFirst - dSecond);
  if (std::isfinite(d)) return d;
  const bool bSame = dFirst == dSecond || (std::isnan(dFirst) && std::isnan(dSecond));
  return bSame ? 0.0 : std::numeric_limits<double>::infinity();
}

double GetSize(double d) { return std::isfinite(d) ? std::abs(d) : 0.0; }

std::string DescribePlace(const ValuePlace& place) {
  std::string strText;
  const auto add = [&strText](const std::string& strPart) { strText += (strText.empty() ? "" : " ") + strPart; };
  if (place.nMode > 0) add(Say(texts::c_mode, {std::to_string(place.nMode)}));
  if (place.nNode > 0) add(Say(texts::c_node, {std::to_string(place.nNode)}));
  if (place.nElement > 0) add(Say(texts::c_element, {std::to_string(place.nElement)}));
  if (!place.strComponent.empty()) add(std::string(place.strComponent));
  if (place.nStation > 0) add(Say(texts::c_station, {std::to_string(place.nStation)}));
  if (place.dTime > 0.0) add(Say(texts::c_time, {FormatNumber(place.dTime)}));
  return strText;
}

}  // namespace

double Difference::GetAbsolute() const { return GetDifference(dFirst, dSecond); }

double Difference::GetRelative() const {
  const double d = GetAbsolute();
  return d > 0.0 ? d / dLargest : 0.0;
}

double CLargestDifference::GetRounding(double dFirst, double dSecond) const {
  constexpr double c_dLittleMore = 1.001;
  if (m_dDecimal > 0.0) return c_dLittleMore * m_dDecimal;
  const double d = std::max(GetSize(dFirst), GetSize(dSecond));
  return d > 0.0 ? c_dLittleMore * std::pow(10.0, std::floor(std::log10(d)) - 5.0) : 0.0;
}

void CLargestDifference::Add(double dFirst, double dSecond, const ValuePlace& place) {
  m_dLargest = std::max({m_dLargest, GetSize(dFirst), GetSize(dSecond)});
  const double d = GetDifference(dFirst, dSecond);
  if (d > GetRounding(dFirst, dSecond)) m_dUnrounded = std::max(m_dUnrounded, d);
  if (d <= m_found.GetAbsolute()) return;
  m_found.dFirst = dFirst;
  m_found.dSecond = dSecond;
  m_place = place;
}

Difference CLargestDifference::Conclude(double dTolerance) const {
  Difference found = m_found;
  found.dLargest = m_dLargest;
  found.bAbove = m_dUnrounded > dTolerance * found.dLargest;
  found.bRounding = !found.bAbove && found.GetAbsolute() > dTolerance * found.dLargest;
  if (found.GetAbsolute() > 0.0) found.strPlace = DescribePlace(m_place);
  return found;
}

}  // namespace skyframe::host
