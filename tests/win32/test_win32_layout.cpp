// The module's dialogs as native windows: drawn into the build directory, nothing clipped, laid out as the template
// says.

#include <objidl.h>  // before gdiplus.h

#include <gdiplus.h>

#include "AllDialogs.h"
#include "NativePerson.h"
#include "Text.h"

namespace skyframe::test {
namespace {

/// What is on the screen where the window stands, frame included, as a PNG file.
bool SavePicture(HWND hWindow, const std::string& strFile) {
  constexpr CLSID c_pngEncoder = {0x557cf406, 0x1a04, 0x11d3, {0x9a, 0x73, 0x00, 0x00, 0xf8, 0x1e, 0xf3, 0x2e}};
  RECT window = {};
  GetWindowRect(hWindow, &window);
  const int nWidth = static_cast<int>(window.right - window.left),
            nHeight = static_cast<int>(window.bottom - window.top);
  const HDC hSource = GetWindowDC(hWindow);
  const HDC hCopy = CreateCompatibleDC(hSource);
  const HBITMAP hBitmap = CreateCompatibleBitmap(hSource, nWidth, nHeight);
  {
    const CSelection selection(hCopy, hBitmap);
    BitBlt(hCopy, 0, 0, nWidth, nHeight, hSource, 0, 0, SRCCOPY);
  }
  Gdiplus::GdiplusStartupInput input;
  ULONG_PTR nToken = 0;
  Gdiplus::GdiplusStartup(&nToken, &input, nullptr);
  Gdiplus::Status status = Gdiplus::GenericError;
  {
    Gdiplus::Bitmap picture(hBitmap, nullptr);
    status = picture.Save(ToWide(strFile).c_str(), &c_pngEncoder, nullptr);
  }
  Gdiplus::GdiplusShutdown(nToken);
  DeleteObject(hBitmap);
  DeleteDC(hCopy);
  ReleaseDC(hWindow, hSource);
  return status == Gdiplus::Ok;
}

SIZE MeasureText(HWND hControl, const std::wstring& strText) {
  const HDC hDc = GetDC(hControl);
  SIZE size = {};
  {
    const CSelection font(hDc, reinterpret_cast<HFONT>(SendMessageW(hControl, WM_GETFONT, 0, 0)));
    GetTextExtentPoint32W(hDc, strText.data(), static_cast<int>(strText.size()), &size);
  }
  ReleaseDC(hControl, hDc);
  return size;
}

/// Pixels that a control needs beside its text.
int GetTrim(ControlKind kind) {
  if (kind == ControlKind::Radio || kind == ControlKind::Check) return 17;
  return kind == ControlKind::Label || kind == ControlKind::Group ? 0 : 8;
}

RECT GetPlace(HWND hDialog, HWND hControl) {
  RECT place = {};
  GetWindowRect(hControl, &place);
  MapWindowPoints(nullptr, hDialog, reinterpret_cast<POINT*>(&place), 2);
  return place;
}

void CheckControl(HWND hDialog, HWND hControl, const ControlTemplate& control) {
  const std::string strWho = std::to_string(control.nId) + " " + std::string(control.strText);
  const RECT place = GetPlace(hDialog, hControl);
  RECT client = {};
  GetClientRect(hDialog, &client);
  EXPECT_TRUE(place.left >= 0 && place.top >= 0 && place.right <= client.right && place.bottom <= client.bottom)
      << strWho;
  const SIZE text = MeasureText(hControl, ToWide(control.strText));
  EXPECT_LE(text.cx + GetTrim(control.kind), place.right - place.left) << strWho;
  for (HWND hOther = ::GetWindow(hControl, GW_HWNDNEXT); hOther != nullptr; hOther = ::GetWindow(hOther, GW_HWNDNEXT)) {
    RECT common = {};
    const RECT other = GetPlace(hDialog, hOther);
    if (IntersectRect(&common, &place, &other) == FALSE) continue;
    EXPECT_EQ(control.kind, ControlKind::Group) << strWho << " under another control";
    EXPECT_TRUE(EqualRect(&common, &other)) << strWho << " does not hold what is in it";
  }
}

class EveryNativeDialog : public ::testing::TestWithParam<Maker> {};

TEST_P(EveryNativeDialog, NothingClipped) {
  ResetHostData();
  CNativePerson person;
  const std::unique_ptr<CDialog> pDialog = GetParam()();
  const DialogTemplate& layout = pDialog->GetTemplate();
  person.AddScript(layout.nId, {Do::Wait(50), Do::Inspect([&layout](const IDialogView& view) {
                                  const auto& window = dynamic_cast<const CNativeDialog&>(view);
                                  const HWND hDialog = window.GetWindow();
                                  EXPECT_EQ(ToUtf8(ReadText(hDialog)), layout.strTitle);
                                  EXPECT_TRUE(SavePicture(
                                      hDialog, SKYFRAME_PICTURE_DIR "/native-" + std::to_string(layout.nId) + ".png"));
                                  HWND hControl = ::GetWindow(hDialog, GW_CHILD);
                                  for (const ControlTemplate& control : layout.controls) {
                                    ASSERT_NE(hControl, nullptr);
                                    CheckControl(hDialog, hControl, control);
                                    hControl = ::GetWindow(hControl, GW_HWNDNEXT);
                                  }
                                  EXPECT_EQ(hControl, nullptr);
                                })});
  person.Watch([&] { pDialog->DoModal(); });
  EXPECT_TRUE(person.GetScriptErrors().empty());
}

INSTANTIATE_TEST_SUITE_P(All, EveryNativeDialog, ::testing::ValuesIn(c_makers));

}  // namespace
}  // namespace skyframe::test
