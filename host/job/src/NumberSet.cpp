#include "skyframe/job/NumberSet.h"

#include <algorithm>
#include <charconv>
#include <string_view>
#include <system_error>

namespace skyframe::host {

CNumberSet::CNumberSet(std::string_view strText) {
  const char* p = strText.data();
  const char* const pEnd = p + strText.size();
  bool bRange = false;  // a dash stands between the last number and the next
  while (p != pEnd) {
    int nNumber = 0;
    const auto [pNext, error] = std::from_chars(p, pEnd, nNumber);
    if (*p == '-' || error != std::errc{}) {
      bRange = (bRange && *p == ' ') || (*p == '-' && !m_ranges.empty());
      ++p;
      continue;
    }
    if (bRange) {
      m_ranges.back().second = nNumber;
    } else {
      m_ranges.emplace_back(nNumber, nNumber);
    }
    bRange = false;
    p = pNext;
  }
}

bool CNumberSet::Has(int nNumber) const {
  return std::ranges::any_of(
      m_ranges, [nNumber](const auto& range) { return range.first <= nNumber && nNumber <= range.second; });
}

}  // namespace skyframe::host
