#include "skyframe/scene/TextExtent.h"

namespace skyframe::host {

namespace {

constexpr double c_dNarrow = 0.55;  // of the text's height

// First bytes of UTF-8: three from U+3000 on are East Asian and wide, as are four.
constexpr unsigned char c_nFirstWide = 0xE3;

}  // namespace

double EstimateTextWidth(std::string_view strText, double dTextHeight) {
  double dWidth = 0.0;
  for (const char c : strText) {
    const auto nByte = static_cast<unsigned char>(c);
    const bool bContinues = (nByte & 0xC0U) == 0x80U;
    if (!bContinues) dWidth += nByte >= c_nFirstWide ? 1.0 : c_dNarrow;
  }
  return dTextHeight * dWidth;
}

}  // namespace skyframe::host
