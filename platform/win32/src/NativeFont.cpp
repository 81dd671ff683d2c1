#include "NativeFont.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "Text.h"

namespace skyframe {

namespace {

constexpr double c_dPointsPerInch = 72.0;

int CALLBACK FoundFamily(const LOGFONTW* /*pFont*/, const TEXTMETRICW* /*pMetric*/, DWORD /*nType*/, LPARAM /*nData*/) {
  return 0;  // one is enough; also what the enumeration then returns
}

bool IsInstalled(const std::wstring& strFamily) {
  LOGFONTW wanted = {};
  wanted.lfCharSet = DEFAULT_CHARSET;
  strFamily.copy(wanted.lfFaceName, LF_FACESIZE - 1);
  const HDC hScreen = GetDC(nullptr);
  const int nAnswer = EnumFontFamiliesExW(hScreen, &wanted, FoundFamily, 0, 0);
  ReleaseDC(nullptr, hScreen);
  return nAnswer == 0;
}

/// Without any of the families the system looks for a font with Chinese letters itself.
std::wstring FindFamily() {
  for (const std::string_view strFamily : c_strDialogFonts) {
    if (IsInstalled(ToWide(strFamily))) return ToWide(strFamily);
  }
  return {};
}

}  // namespace

FontHandle MakeFont(int nBodyHeight) {
  LOGFONTW font = {};
  font.lfHeight = -std::max(nBodyHeight, 1);
  font.lfWeight = FW_NORMAL;
  font.lfCharSet = GB2312_CHARSET;
  font.lfQuality = CLEARTYPE_QUALITY;
  FindFamily().copy(font.lfFaceName, LF_FACESIZE - 1);
  return FontHandle(CreateFontIndirectW(&font));
}

FontHandle MakeDialogFont(int nDpi) {
  return MakeFont(static_cast<int>(std::lround(c_dDialogPoints * nDpi / c_dPointsPerInch)));
}

CDialogUnits MeasureUnits(HFONT hFont) {
  const HDC hScreen = GetDC(nullptr);
  SIZE letters = {};
  TEXTMETRICW metric = {};
  {
    const CSelection selection(hScreen, hFont);
    const std::wstring strLetters = ToWide(CDialogUnits::c_strLetters);
    GetTextExtentPoint32W(hScreen, strLetters.data(), static_cast<int>(strLetters.size()), &letters);
    GetTextMetricsW(hScreen, &metric);
  }
  ReleaseDC(nullptr, hScreen);
  const LONG nBodyHeight = metric.tmHeight - metric.tmInternalLeading;
  return {static_cast<double>(letters.cx), static_cast<double>(metric.tmHeight), static_cast<double>(nBodyHeight)};
}

}  // namespace skyframe
