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

}  // namespace
}  // namespace skyframe::test
