// The native platform's own: progress, painting.

#include "GdiPaintContext.h"
#include "NativePerson.h"
#include "TestPlatform.h"
#include "Text.h"
#include "skyframe/dialogs/ImpulseLoadDlg.h"
#include "skyframe/values/DialogIds.h"

namespace skyframe::test {
namespace {

HWND FindProgress() { return FindWindowW(L"#32770", L"计算中"); }

TEST(NativeProgress, ShownForLongWorkOnlyAndWithoutButtons) {
  const HWND hHost = CreateWindowExW(0, L"STATIC", L"host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 300, 200, nullptr,
                                     nullptr, nullptr, nullptr);
  const HWND hField =
      CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 0, 0, 80, 20, hHost, nullptr, nullptr, nullptr);
  SetFocus(hField);
  CWin32Platform platform(hField);
  platform.SetProgressDelay(std::chrono::seconds(10));
  platform.EnterModule();
  platform.ReportProgress(0.1, "short");
  platform.ReportProgress(1.0, "short");
  EXPECT_EQ(FindProgress(), nullptr);
  platform.SetProgressDelay(std::chrono::milliseconds(60));
  Sleep(1100);
  platform.ReportProgress(0.9, "a step");
  platform.ReportProgress(0.5, "长");
  const HWND hProgress = FindProgress();
  ASSERT_NE(hProgress, nullptr);
  EXPECT_EQ(SendMessageW(FindWindowExW(hProgress, nullptr, PROGRESS_CLASSW, nullptr), PBM_GETPOS, 0, 0), 500);
  EXPECT_EQ(ToUtf8(ReadText(FindWindowExW(hProgress, nullptr, L"STATIC", nullptr))), "长    已用时 0:00:01")
      << "of all steps";
  EXPECT_EQ(FindWindowExW(hProgress, nullptr, L"BUTTON", nullptr), nullptr);
  EXPECT_FALSE(IsWindowEnabled(hHost)) << "the host's window takes no other command meanwhile";
  EXPECT_EQ(GetFocus(), nullptr) << "nor do its children";
  PostMessageW(hProgress, WM_KEYDOWN, VK_ESCAPE, 1);
  PostMessageW(hProgress, WM_CLOSE, 0, 0);
  Sleep(100);
  platform.ReportProgress(0.6, "长");
  EXPECT_NE(FindProgress(), nullptr) << "it cannot be closed";
  platform.LeaveModule();
  EXPECT_EQ(FindProgress(), nullptr);
  EXPECT_TRUE(IsWindowEnabled(hHost));
  EXPECT_EQ(GetFocus(), hField);
  DestroyWindow(hHost);
}

/// Refuses the impulse that is typed into the dialog in front, then closes the host's window under the message.
void CALLBACK CloseUnderMessage(HWND hHost, UINT /*nMessage*/, UINT_PTR /*nTimer*/, DWORD /*nTime*/) {
  if (FindWindowW(L"#32770", L"Skyframe") != nullptr) {
    DestroyWindow(hHost);
    return;
  }
  SetDlgItemTextW(GetActiveWindow(), c_nIdImpulseDirection, L"7");
  PostMessageW(GetActiveWindow(), WM_COMMAND, c_nIdImpulseInsert, 0);
}

TEST(NativeDialog, HostWindowClosedUnderAMessage) {
  const HWND hHost = CreateWindowExW(0, L"STATIC", L"host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 300, 200, nullptr,
                                     nullptr, nullptr, nullptr);
  CWin32Platform platform(hHost);
  IPlatform* const pPrevious = InstallPlatform(&platform);
  SetTimer(hHost, 1, 50, CloseUnderMessage);
  CImpulseLoadDlg dialog;
  EXPECT_EQ(dialog.DoModal(), c_nIdCancel);
  InstallPlatform(pPrevious);
}

}  // namespace

std::vector<Colour> DrawPicture(const std::function<void(IPaintContext&)>& draw) {
  const HDC hDc = CreateCompatibleDC(nullptr);
  BITMAPINFO info = {};
  info.bmiHeader = {sizeof(BITMAPINFOHEADER), c_nPictureWidth, c_nPictureHeight, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  const HBITMAP hBitmap = CreateDIBSection(hDc, &info, DIB_RGB_COLORS, nullptr, nullptr, 0);
  std::vector<Colour> pixels;
  {
    const CSelection selection(hDc, hBitmap);
    PatBlt(hDc, 0, 0, c_nPictureWidth, c_nPictureHeight, WHITENESS);
    CGdiPaintContext paint(hDc, 1.0);
    draw(paint);
    for (int n = 0; n < c_nPictureWidth * c_nPictureHeight; ++n) {
      const COLORREF nPixel = GetPixel(hDc, n % c_nPictureWidth, n / c_nPictureWidth);
      pixels.push_back({GetRValue(nPixel), GetGValue(nPixel), GetBValue(nPixel)});
    }
  }
  DeleteObject(hBitmap);
  DeleteDC(hDc);
  return pixels;
}

}  // namespace skyframe::test
