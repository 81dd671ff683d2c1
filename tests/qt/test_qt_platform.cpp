// The Qt platform's own: wait cursor, progress, painting.

#include <QTest>
#include <QtWidgets>

#include "ProbeDialog.h"
#include "QtPerson.h"
#include "skyframe/qt/QtPaintContext.h"

namespace skyframe::test {
namespace {

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
