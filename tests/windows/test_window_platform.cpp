// What every platform with windows does alike: messages, failures and timers of dialogs, lists, console, clock.

#include <chrono>
#include <ctime>
#include <stdexcept>

#include "Person.h"
#include "ProbeDialog.h"
#include "skyframe/platform/ConsoleBuffer.h"

namespace skyframe::test {
namespace {

TEST(Messages, WholeTextWithOneOkButtonAndTheFocusComesBack) {
  const char* const szMessage = "在给定的迭代步内计算不收敛！\n<b>&amp;";
  const std::unique_ptr<IPerson> pPerson = MakePerson();
  CProbeDlg dialog;
  dialog.m_onButton = [szMessage](IDialogView&) { GetPlatform().ShowMessage(szMessage); };
  pPerson->AddScript(900, {Do::Click(160), Do::Inspect([](const IDialogView& view) {
                             EXPECT_EQ(view.GetFocus(), 160);
                             EXPECT_EQ(view.GetText(160), "Fish & chips");
                           }),
                           Do::Ok()});
  pPerson->Watch([&] { EXPECT_EQ(dialog.DoModal(), c_nIdOk); });
  EXPECT_EQ(pPerson->GetMessages(), Strings{szMessage});
  EXPECT_TRUE(pPerson->GetScriptErrors().empty());
}

TEST(Dialogs, LeftByAnExceptionAfterTheTimerStoppedAndWhileOpening) {
  const std::unique_ptr<IPerson> pPerson = MakePerson();
  CProbeDlg thrower, ticker, ended;
  thrower.m_onButton = [](IDialogView&) { throw std::runtime_error("wrong"); };
  pPerson->AddScript(900, {Do::Click(160)});
  pPerson->Watch([&] { EXPECT_THROW(thrower.DoModal(), std::runtime_error); });
  ticker.m_onInit = [](IDialogView& view) { view.StartTimer(3, 10); };
  ticker.m_onButton = [](IDialogView& view) { view.StopTimer(3); };
  pPerson->AddScript(900, {Do::Wait(100), Do::Click(160), Do::Wait(100), Do::Ok()});
  pPerson->Watch([&] { ticker.DoModal(); });
  EXPECT_EQ(ticker.m_trace.front() + ticker.m_trace.back(), "timer 3clicked 160");
  ended.m_onInit = [&ended](IDialogView&) { ended.EndDialog(c_nIdOk); };
  pPerson->Watch([&] { EXPECT_EQ(ended.DoModal(), c_nIdOk); });
}

TEST(Dialogs, ListsByTheProgram) {
  const std::unique_ptr<IPerson> pPerson = MakePerson();
  CProbeDlg dialog;
  dialog.m_onInit = [&dialog](IDialogView& view) {
    CheckLists(view, dialog);
    view.SetText(4711, "nothing");
    EXPECT_EQ(view.GetText(4711), "");
  };
  pPerson->Watch([&] { dialog.DoModal(); });
}

TEST(Clock, IsTheSystemsLocalTime) {
  const std::unique_ptr<IPerson> pPerson = MakePerson();
  const std::time_t before = std::time(nullptr);
  const LocalTime t = GetPlatform().GetLocalTime();
  std::tm local = {};
  local.tm_year = t.nYear - 1900;
  local.tm_mon = t.nMonth - 1;
  local.tm_mday = t.nDay;
  local.tm_hour = t.nHour;
  local.tm_min = t.nMinute;
  local.tm_sec = t.nSecond;
  local.tm_isdst = -1;
  EXPECT_NEAR(std::difftime(std::mktime(&local), before), 1.0, 2.0);
}

TEST(Console, WholeLinesAndNothingLost) {
  std::vector<std::string> pieces;
  std::string strExpected, strGot;
  {
    CConsoleBuffer buffer([&pieces](std::string_view strText) { pieces.emplace_back(strText); });
    std::ostream console(&buffer);
    for (int n = 0; n < 5000; ++n) strExpected += "第" + std::to_string(n) + "行\n";
    for (const char c : strExpected) console << c;
    EXPECT_GT(pieces.size(), 2U) << "handed on while it grows";
    for (const std::string& strPiece : pieces) EXPECT_EQ(strPiece.back(), '\n');
    console << "half" << std::flush << std::string(20000, 'x');
    strExpected += "half" + std::string(20000, 'x');
  }
  for (const std::string& strPiece : pieces) strGot += strPiece;
  EXPECT_EQ(strGot, strExpected);
}

TEST(Painting, PixelsStandWhereTheyAreAskedFor) {
  using Points = std::vector<std::pair<int, int>>;
  const std::vector<Colour> picture = DrawPicture([](IPaintContext& paint) {
    paint.SetPen({255, 0, 0});
    paint.SetBrush({0, 0, 255});
    paint.Rectangle(10, 5, 20, 10);
    paint.SetPen({0, 128, 0});
    paint.Line(40, 20, 50, 20);
    paint.Line(0, 0, 1.0 / 0.0, 0);
  });
  for (const auto& [colour, points] :
       {std::pair{Colour{255, 0, 0}, Points{{10, 5}, {30, 5}, {30, 15}, {10, 15}, {20, 5}}},
        {Colour{0, 0, 255}, {{11, 6}, {29, 14}}},
        {c_white, {{9, 5}, {31, 5}, {20, 16}, {39, 20}, {51, 20}, {45, 19}, {45, 21}, {0, 0}}},
        {Colour{0, 128, 0}, {{40, 20}, {50, 20}}}}) {
    for (const auto& [nX, nY] : points) EXPECT_EQ(picture[nY * c_nPictureWidth + nX], colour) << nX << ' ' << nY;
  }
}

/// Pixels of a text at (100, 50): first and last column and row of what is dark.
struct Ink {
  int nLeft = c_nPictureWidth, nTop = c_nPictureHeight, nRight = 0, nBottom = 0;
};

Ink GetInk(HorizontalAlign horizontal, VerticalAlign vertical) {
  const std::vector<Colour> picture = DrawPicture([&](IPaintContext& paint) {
    paint.SetTextHeight(20.0);
    paint.Text(100, 50, "静力", horizontal, vertical);
  });
  Ink ink;
  for (int n = 0; n < c_nPictureWidth * c_nPictureHeight; ++n) {
    if (picture[n].nGreen >= 128) continue;
    const int nX = n % c_nPictureWidth, nY = n / c_nPictureWidth;
    ink = {std::min(ink.nLeft, nX), std::min(ink.nTop, nY), std::max(ink.nRight, nX), std::max(ink.nBottom, nY)};
  }
  return ink;
}

TEST(Painting, TextKeepsToItsPosition) {
  const Ink top = GetInk(HorizontalAlign::Left, VerticalAlign::Top);
  const Ink middle = GetInk(HorizontalAlign::Centre, VerticalAlign::Middle);
  EXPECT_TRUE(top.nLeft >= 100 && top.nTop >= 50);
  EXPECT_LE(GetInk(HorizontalAlign::Right, VerticalAlign::Top).nRight, 100);
  EXPECT_LE(GetInk(HorizontalAlign::Left, VerticalAlign::Bottom).nBottom, 50);
  EXPECT_NEAR(GetInk(HorizontalAlign::Left, VerticalAlign::Baseline).nBottom, 50, 4);
  EXPECT_NEAR((middle.nLeft + middle.nRight) / 2.0, 100.0, 2.0);
  EXPECT_NEAR((middle.nTop + middle.nBottom) / 2.0, 50.0, 3.0);
  EXPECT_NEAR(top.nBottom - top.nTop, 20, 4) << "height of the letters";
}

}  // namespace
}  // namespace skyframe::test
