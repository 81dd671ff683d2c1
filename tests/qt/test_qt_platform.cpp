// The platform's other services: messages, wait cursor, console, progress, clock, painting, timers.

#include <gtest/gtest.h>

#include <QTest>
#include <QtWidgets>
#include <stdexcept>

#include "QtPerson.h"
#include "skyframe/qt/QtPaintContext.h"

namespace skyframe::test {
namespace {

constexpr ControlTemplate c_probeControls[] = {
    {10, ControlKind::Button, "Fish & chips", {5, 5, 80, 14}, c_nStyleGroup, {}},
    {11, ControlKind::Button, "Wrong", {5, 25, 80, 14}, c_nStyleGroup, {}},
    {12, ControlKind::ListBox, {}, {5, 45, 80, 40}, c_nStyleGroup | c_nStyleSorted, {}},
    {c_nIdOk, ControlKind::DefaultButton, "OK", {5, 90, 50, 14}, c_nStyleGroup, {}},
};
constexpr DialogTemplate c_probeTemplate{77, "Probe", 100, 110, c_probeControls};

/// A dialog with a button for everything that has no place in the module's own dialogs.
class CProbeDlg : public CDialog {
 public:
  CProbeDlg() : CDialog(c_probeTemplate) {
    On(10, DialogEvent::Clicked, [] { skyframe::GetPlatform().ShowMessage("在给定的迭代步内计算不收敛！\n<b>&amp;"); });
    On(11, DialogEvent::Clicked, [] { throw std::runtime_error("wrong"); });
    On(12, DialogEvent::SelectionChanged, [this] { ++m_nSelections; });
  }
  int m_nSelections = 0;
  int m_nTicks = 0;
  bool m_bEndAtOnce = false;

  using CDialog::View;

 protected:
  void OnInitDialog() override {
    if (m_bEndAtOnce) EndDialog(c_nIdOk);
    View().StartTimer(3, 10);
    for (const char* strItem : {"b", "c", "a", "b"}) View().AddItem(12, strItem);
    CDialog::OnInitDialog();
  }
  void OnTimer(int nTimer) override {
    m_nTicks += nTimer == 3 ? 1 : 1000;
    if (m_nTicks == 3) View().StopTimer(3);
  }
  void DoDataExchange(CDataExchange&) override {}
};

TEST(QtMessages, WholeTextWithOneOkButtonAndTheFocusComesBack) {
  CQtPerson person;
  CProbeDlg dialog;
  int nFocus = -1;
  person.AddScript(77, {DialogStep::Click(10), DialogStep::Inspect([&](const IDialogView& view) {
                          nFocus = view.GetFocus();
                          EXPECT_EQ(view.GetText(10), "Fish & chips");
                        }),
                        DialogStep::Ok()});
  person.Watch([&] { EXPECT_EQ(dialog.DoModal(), c_nIdOk); });
  EXPECT_EQ(person.GetMessages(), std::vector<std::string>{"在给定的迭代步内计算不收敛！\n<b>&amp;"});
  EXPECT_TRUE(person.GetScriptErrors().empty());
  EXPECT_EQ(nFocus, 10);
}

TEST(QtDialogs, LeftByAnExceptionAfterTheTimerStoppedAndWhileOpening) {
  CQtPerson person;
  CProbeDlg thrower, ticker, ended;
  person.AddScript(77, {DialogStep::Click(11)});
  person.Watch([&] { EXPECT_THROW(thrower.DoModal(), std::runtime_error); });
  person.AddScript(77, {DialogStep::Wait(400), DialogStep::Ok()});
  person.Watch([&] { ticker.DoModal(); });
  EXPECT_EQ(ticker.m_nTicks, 3);
  ended.m_bEndAtOnce = true;
  person.Watch([&] { EXPECT_EQ(ended.DoModal(), c_nIdOk); });
}

TEST(QtDialogs, ListChangesByTheProgramRaiseNoEvent) {
  CProbeDlg dialog;
  CDialogWindow window(dialog);
  window.OpenDialog();
  window.Select(12, 1, true);
  window.Select(12, 2, true);
  EXPECT_FALSE(window.IsSelected(12, 1)) << "single selection";
  window.SetCurrent(12, 0);
  window.InsertItem(12, 0, "z");
  EXPECT_EQ(window.GetCurrent(12), 1) << "the current item moved down";
  window.DeleteItem(12, 1);
  EXPECT_EQ(window.GetCurrent(12), -1);
  EXPECT_EQ(window.AddItem(12, "bb"), 0) << "before the first greater one, which InsertItem put there";
  window.SetText(4711, "nothing");
  EXPECT_EQ(window.GetText(4711), "");
  EXPECT_EQ(dialog.m_nSelections, 0);
}

TEST(QtWaitCursor, RestsBehindWindowsAndEndsWithTheCall) {
  CQtPerson person;
  IPlatform& platform = GetPlatform();
  const auto isWaiting = [] { return QApplication::overrideCursor() != nullptr; };
  platform.EnterModule();
  platform.BeginWaitCursor();
  EXPECT_TRUE(isWaiting());
  bool bWaitingInDialog = true;
  person.AddScript(77, {DialogStep::Inspect([&](const IDialogView&) { bWaitingInDialog = isWaiting(); })});
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
  const QImage image = Paint([](IPaintContext& paint) {
    paint.SetPen({255, 0, 0});
    paint.SetBrush({0, 0, 255});
    paint.Rectangle(10, 5, 20, 10);
    paint.SetPen({0, 128, 0});
    paint.Line(40, 20, 50, 20);
    paint.Line(0, 0, 1.0 / 0.0, 0);
  });
  struct Case {
    const char* strColour;
    std::vector<QPoint> points;
  };
  for (const Case& c :
       {Case{"#ff0000", {{10, 5}, {30, 5}, {30, 15}, {10, 15}, {20, 5}}}, Case{"#0000ff", {{11, 6}, {29, 14}}},
        Case{"#ffffff", {{9, 5}, {31, 5}, {20, 16}, {39, 20}, {45, 19}, {45, 21}, {0, 0}}},
        Case{"#008000", {{40, 20}, {50, 20}}}}) {
    for (const QPoint p : c.points) EXPECT_EQ(image.pixelColor(p).name(), c.strColour) << p.x() << ' ' << p.y();
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
