// The platform's other services: messages, wait cursor, console, progress, clock, painting, timers.

#include <QTest>
#include <QtWidgets>
#include <stdexcept>

#include "ProbeDialog.h"
#include "QtPerson.h"
#include "skyframe/qt/QtPaintContext.h"

namespace skyframe::test {
namespace {

TEST(QtMessages, WholeTextWithOneOkButtonAndTheFocusComesBack) {
  const char* const szMessage = "在给定的迭代步内计算不收敛！\n<b>&amp;";
  CQtPerson person;
  CProbeDlg dialog;
  dialog.m_onButton = [szMessage](IDialogView&) { GetPlatform().ShowMessage(szMessage); };
  person.AddScript(900, {Do::Click(160), Do::Inspect([](const IDialogView& view) {
                           EXPECT_EQ(view.GetFocus(), 160);
                           EXPECT_EQ(view.GetText(160), "Fish & chips");
                         }),
                         Do::Ok()});
  person.Watch([&] { EXPECT_EQ(dialog.DoModal(), c_nIdOk); });
  EXPECT_EQ(person.GetMessages(), Strings{szMessage});
  EXPECT_TRUE(person.GetScriptErrors().empty());
}

TEST(QtDialogs, LeftByAnExceptionAfterTheTimerStoppedAndWhileOpening) {
  CQtPerson person;
  CProbeDlg thrower, ticker, ended;
  thrower.m_onButton = [](IDialogView&) { throw std::runtime_error("wrong"); };
  person.AddScript(900, {Do::Click(160)});
  person.Watch([&] { EXPECT_THROW(thrower.DoModal(), std::runtime_error); });
  ticker.m_onInit = [](IDialogView& view) { view.StartTimer(3, 10); };
  ticker.m_onButton = [](IDialogView& view) { view.StopTimer(3); };
  person.AddScript(900, {Do::Wait(100), Do::Click(160), Do::Wait(100), Do::Ok()});
  person.Watch([&] { ticker.DoModal(); });
  EXPECT_EQ(ticker.m_trace.front() + ticker.m_trace.back(), "timer 3clicked 160");
  ended.m_onInit = [&ended](IDialogView&) { ended.EndDialog(c_nIdOk); };
  person.Watch([&] { EXPECT_EQ(ended.DoModal(), c_nIdOk); });
}

TEST(QtDialogs, ListsByTheProgram) {
  CProbeDlg dialog;
  CDialogWindow window(dialog);
  window.OpenDialog();
  CheckLists(window, dialog);
  window.SetText(4711, "nothing");
  EXPECT_EQ(window.GetText(4711), "");
}

TEST(QtWaitCursor, RestsBehindWindowsAndEndsWithTheCall) {
  CQtPerson person;
  IPlatform& platform = GetPlatform();
  const auto isWaiting = [] { return QApplication::overrideCursor() != nullptr; };
  platform.EnterModule();
  platform.BeginWaitCursor();
  EXPECT_TRUE(isWaiting());
  bool bWaitingInDialog = true;
  person.AddScript(900, {Do::Inspect([&](const IDialogView&) { bWaitingInDialog = isWaiting(); })});
  CProbeDlg dialog;
  person.Watch([&] { dialog.DoModal(); });
  EXPECT_FALSE(bWaitingInDialog);
  EXPECT_TRUE(isWaiting());
  platform.LeaveModule();
  EXPECT_FALSE(isWaiting());
}

TEST(QtConsole, WholeLinesAndNothingLost) {
  std::vector<std::string> pieces;
  std::string strExpected, strGot;
  {
    CQtPlatform platform;
    platform.SetConsoleSink([&pieces](std::string_view strText) { pieces.emplace_back(strText); });
    for (int n = 0; n < 5000; ++n) strExpected += "第" + std::to_string(n) + "行\n";
    for (const char c : strExpected) platform.GetConsole() << c;
    EXPECT_GT(pieces.size(), 2U) << "handed on while it grows";
    for (const std::string& strPiece : pieces) EXPECT_EQ(strPiece.back(), '\n');
    platform.GetConsole() << "half" << std::flush << std::string(20000, 'x');
    strExpected += "half" + std::string(20000, 'x');
  }
  for (const std::string& strPiece : pieces) strGot += strPiece;
  EXPECT_EQ(strGot, strExpected);
}

QWidget* FindProgress() {
  for (QWidget* const pWidget : QApplication::topLevelWidgets()) {
    if (pWidget->objectName() == QStringLiteral("progress") && pWidget->isVisible()) return pWidget;
  }
  return nullptr;
}

TEST(QtProgress, ShownForLongStepsOnlyAndWithoutButtons) {
  CQtPlatform platform;
  platform.SetProgressDelay(std::chrono::seconds(10));
  platform.EnterModule();
  platform.ReportProgress(0.1, "short");
  platform.ReportProgress(1.0, "short");
  EXPECT_EQ(FindProgress(), nullptr);
  platform.SetProgressDelay(std::chrono::milliseconds(60));
  platform.ReportProgress(0.1, "长");
  QTest::qSleep(100);
  platform.ReportProgress(0.5, "长");
  QWidget* const pProgress = FindProgress();
  ASSERT_NE(pProgress, nullptr);
  EXPECT_EQ(pProgress->findChild<QProgressBar*>()->value(), 500);
  EXPECT_TRUE(pProgress->findChildren<QAbstractButton*>().isEmpty());
  QTest::keyClick(pProgress, Qt::Key_Escape);
  pProgress->close();
  EXPECT_NE(FindProgress(), nullptr) << "it cannot be closed";
  platform.LeaveModule();
  EXPECT_EQ(FindProgress(), nullptr);
}

TEST(QtClock, IsTheSystemsLocalTime) {
  const QDateTime before = QDateTime::currentDateTime();
  const LocalTime t = CQtPlatform().GetLocalTime();
  const QDateTime told({t.nYear, t.nMonth, t.nDay}, {t.nHour, t.nMinute, t.nSecond});
  EXPECT_NEAR(static_cast<double>(before.secsTo(told)), 1.0, 2.0);
}

QImage Paint(const std::function<void(IPaintContext&)>& draw) {
  QImage image(200, 100, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  CQtPaintContext paint(painter);
  draw(paint);
  return image;
}

TEST(QtPainting, PixelsStandWhereTheyAreAskedFor) {
  using Expected = std::pair<const char*, std::vector<QPoint>>;
  const QImage image = Paint([](IPaintContext& paint) {
    paint.SetPen({255, 0, 0});
    paint.SetBrush({0, 0, 255});
    paint.Rectangle(10, 5, 20, 10);
    paint.SetPen({0, 128, 0});
    paint.Line(40, 20, 50, 20);
    paint.Line(0, 0, 1.0 / 0.0, 0);
  });
  for (const auto& [strColour, points] :
       {Expected{"#ff0000", {{10, 5}, {30, 5}, {30, 15}, {10, 15}, {20, 5}}}, Expected{"#0000ff", {{11, 6}, {29, 14}}},
        Expected{"#ffffff", {{9, 5}, {31, 5}, {20, 16}, {39, 20}, {45, 19}, {45, 21}, {0, 0}}},
        Expected{"#008000", {{40, 20}, {50, 20}}}}) {
    for (const QPoint p : points) EXPECT_EQ(image.pixelColor(p).name(), strColour) << p.x() << ' ' << p.y();
  }
}

/// Bounding box of everything that is not white.
QRect GetInk(HorizontalAlign horizontal, VerticalAlign vertical) {
  const QImage image = Paint([&](IPaintContext& paint) {
    paint.SetTextHeight(20.0);
    paint.Text(100, 50, "静力", horizontal, vertical);
  });
  QRect ink;
  for (int nY = 0; nY < image.height(); ++nY) {
    for (int nX = 0; nX < image.width(); ++nX) {
      if (image.pixelColor(nX, nY).lightness() < 128) ink = ink.united({nX, nY, 1, 1});
    }
  }
  return ink;
}

TEST(QtPainting, TextKeepsToItsPosition) {
  EXPECT_GE(GetInk(HorizontalAlign::Left, VerticalAlign::Top).left(), 100);
  EXPECT_LE(GetInk(HorizontalAlign::Right, VerticalAlign::Top).right(), 100);
  EXPECT_NEAR(GetInk(HorizontalAlign::Centre, VerticalAlign::Top).center().x(), 100, 2);
  EXPECT_GE(GetInk(HorizontalAlign::Left, VerticalAlign::Top).top(), 50);
  EXPECT_LE(GetInk(HorizontalAlign::Left, VerticalAlign::Bottom).bottom(), 50);
  EXPECT_NEAR(GetInk(HorizontalAlign::Left, VerticalAlign::Middle).center().y(), 50, 3);
  EXPECT_NEAR(GetInk(HorizontalAlign::Left, VerticalAlign::Baseline).bottom(), 50, 4);
  EXPECT_NEAR(GetInk(HorizontalAlign::Left, VerticalAlign::Top).height(), 20, 4) << "height of the letters";
}

}  // namespace
}  // namespace skyframe::test
