#include "Text.h"

#include "ModuleContext.h"

namespace skyframe {

std::wstring ReadText(HWND hWindow) {
  std::wstring strText(static_cast<std::size_t>(GetWindowTextLengthW(hWindow)) + 1, L'\0');
  strText.resize(static_cast<std::size_t>(GetWindowTextW(hWindow, strText.data(), static_cast<int>(strText.size()))));
  return strText;
}

std::wstring ToCaption(std::string_view strText) {
  std::wstring strCaption;
  for (const wchar_t c : ToWide(strText)) strCaption.append(c == L'&' ? 2 : 1, c);
  return strCaption;
}

std::string FromCaption(std::wstring_view strCaption) {
  std::wstring strText;
  for (std::size_t i = 0; i < strCaption.size(); ++i) {
    strText += strCaption[i];
    if (strCaption.substr(i, 2) == L"&&") ++i;
  }
  return ToUtf8(strText);
}

std::wstring LoadText(unsigned nId) {
  const wchar_t* pText = nullptr;  // a size of 0 asks for the text's place
  const int nUnits = LoadStringW(GetModuleInstance(), nId, reinterpret_cast<wchar_t*>(&pText), 0);
  return {pText, static_cast<std::size_t>(nUnits)};
}

}  // namespace skyframe
