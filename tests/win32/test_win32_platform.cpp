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

TEST(NativeProgress, ShownForLongStepsOnlyAndWithoutButtons) {
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
  platform.ReportProgress(0.1, "长");
  Sleep(100);
  platform.ReportProgress(0.5, "长");
  const HWND hProgress = FindProgress();
  ASSERT_NE(hProgress, nullptr);
  EXPECT_EQ(SendMessageW(FindWindowExW(hProgress, nullptr, PROGRESS_CLASSW, nullptr), PBM_GETPOS, 0, 0), 500);
  EXPECT_EQ(ToUtf8(ReadText(FindWindowExW(hProgress, nullptr, L"STATIC", nullptr))), "长");
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

constexpr int c_nWidth = 200, c_nHeight = 100;

/// A white picture of 200 by 100 pixels, drawn on.
class CPicture {
 public:
  explicit CPicture(const std::function<void(IPaintContext&)>& draw) : m_hDc(CreateCompatibleDC(nullptr)) {
    BITMAPINFO info = {};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), c_nWidth, c_nHeight, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    m_hBitmap = CreateDIBSection(m_hDc, &info, DIB_RGB_COLORS, nullptr, nullptr, 0);
    SelectObject(m_hDc, m_hBitmap);
    PatBlt(m_hDc, 0, 0, c_nWidth, c_nHeight, WHITENESS);
    CGdiPaintContext paint(m_hDc, 1.0);
    draw(paint);
  }
  ~CPicture() {
    DeleteDC(m_hDc);
    DeleteObject(m_hBitmap);
  }
  CPicture(const CPicture&) = delete;
  CPicture& operator=(const CPicture&) = delete;

  COLORREF At(int nX, int nY) const { return GetPixel(m_hDc, nX, nY); }

 private:
  HDC m_hDc;
  HBITMAP m_hBitmap = nullptr;
};

TEST(NativePainting, PixelsStandWhereTheyAreAskedFor) {
  using Points = std::vector<POINT>;
  const CPicture picture([](IPaintContext& paint) {
    paint.SetPen({255, 0, 0});
    paint.SetBrush({0, 0, 255});
    paint.Rectangle(10, 5, 20, 10);
    paint.SetPen({0, 128, 0});
    paint.Line(40, 20, 50, 20);
    paint.Line(0, 0, 1.0 / 0.0, 0);
  });
  for (const auto& [nColour, points] :
       {std::pair{RGB(255, 0, 0), Points{{10, 5}, {30, 5}, {30, 15}, {10, 15}, {20, 5}}},
        {RGB(0, 0, 255), {{11, 6}, {29, 14}}},
        {RGB(255, 255, 255), {{9, 5}, {31, 5}, {20, 16}, {39, 20}, {51, 20}, {45, 19}, {45, 21}, {0, 0}}},
        {RGB(0, 128, 0), {{40, 20}, {50, 20}}}}) {
    for (const POINT p : points) EXPECT_EQ(picture.At(p.x, p.y), nColour) << p.x << ' ' << p.y;
  }
}

/// Bounding box of everything that is not white.
RECT GetInk(HorizontalAlign horizontal, VerticalAlign vertical) {
  const CPicture picture([&](IPaintContext& paint) {
    paint.SetTextHeight(20.0);
    paint.Text(100, 50, "静力", horizontal, vertical);
  });
  RECT ink = {c_nWidth, c_nHeight, 0, 0};
  for (int nY = 0; nY < c_nHeight; ++nY) {
    for (int nX = 0; nX < c_nWidth; ++nX) {
      if (GetGValue(picture.At(nX, nY)) >= 128) continue;
      ink = {std::min<LONG>(ink.left, nX), std::min<LONG>(ink.top, nY), std::max<LONG>(ink.right, nX),
             std::max<LONG>(ink.bottom, nY)};
    }
  }
  return ink;
}

TEST(NativePainting, TextKeepsToItsPosition) {
  const RECT top = GetInk(HorizontalAlign::Left, VerticalAlign::Top);
  const RECT middle = GetInk(HorizontalAlign::Centre, VerticalAlign::Middle);
  EXPECT_TRUE(top.left >= 100 && top.top >= 50);
  EXPECT_LE(GetInk(HorizontalAlign::Right, VerticalAlign::Top).right, 100);
  EXPECT_LE(GetInk(HorizontalAlign::Left, VerticalAlign::Bottom).bottom, 50);
  EXPECT_NEAR(GetInk(HorizontalAlign::Left, VerticalAlign::Baseline).bottom, 50, 4);
  EXPECT_NEAR((middle.left + middle.right) / 2.0, 100.0, 2.0);
  EXPECT_NEAR((middle.top + middle.bottom) / 2.0, 50.0, 3.0);
  EXPECT_NEAR(top.bottom - top.top, 20, 4) << "height of the letters";
}

}  // namespace
}  // namespace skyframe::test
