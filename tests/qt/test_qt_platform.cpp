// The Qt platform's own: wait cursor, progress, painting.

#include <QTest>
#include <QtWidgets>

#include "ProbeDialog.h"
#include "QtPerson.h"
#include "skyframe/qt/QtPaintContext.h"
#include "skyframe/qt/QtTranslation.h"

namespace skyframe::test {
namespace {

TEST(QtWaitCursor, RestsBehindWindowsAndEndsWithTheCall) {
  class CHost : public QWidget {
   public:
    int m_nPainted = 0;

   protected:
    void paintEvent(QPaintEvent*) override { ++m_nPainted; }
  } host;
  host.show();
  CQtPerson person(&host);
  IPlatform& platform = GetPlatform();
  const auto isWaiting = [] { return QApplication::overrideCursor() != nullptr; };
  platform.EnterModule();
  platform.BeginWaitCursor();
  EXPECT_TRUE(isWaiting());
  bool bWaitingInDialog = true;
  person.AddScript(900, {Do::Inspect([&](const IDialogView&) { bWaitingInDialog = isWaiting(); }), Do::Click(160)});
  CProbeDlg dialog;
  int nPainted = std::numeric_limits<int>::max();
  dialog.m_onButton = [&](IDialogView&) {
    QTimer::singleShot(0, &host, [&] {  // when the dialog is closed
      host.update();
      nPainted = host.m_nPainted;
    });
    dialog.EndDialog(c_nIdOk);
  };
  person.Watch([&] { dialog.DoModal(); });
  EXPECT_GT(host.m_nPainted, nPainted) << "what it covered, before the work goes on";
  EXPECT_FALSE(bWaitingInDialog);
  EXPECT_TRUE(isWaiting());
  platform.LeaveModule();
  EXPECT_FALSE(isWaiting());
}

TEST(QtTranslation, OfQtsOwnTextsFollowsTheLanguage) {
  const auto save = [] { return QCoreApplication::translate("QPlatformTheme", "Save").toStdString(); };
  EXPECT_TRUE(UseQtTranslation("zh_CN"));
  EXPECT_EQ(save(), "保存");
  EXPECT_FALSE(UseQtTranslation("xx"));
  EXPECT_EQ(save(), "Save");
}

QWidget* FindProgress() {
  for (QWidget* const pWidget : QApplication::topLevelWidgets()) {
    if (pWidget->objectName() == QStringLiteral("progress") && pWidget->isVisible()) return pWidget;
  }
  return nullptr;
}

TEST(QtProgress, ShownForLongWorkOnlyAndWithoutButtons) {
  CQtPlatform platform;
  platform.SetProgressDelay(std::chrono::seconds(10));
  platform.EnterModule();
  platform.ReportProgress(0.1, "short");
  platform.ReportProgress(1.0, "short");
  EXPECT_EQ(FindProgress(), nullptr);
  platform.SetProgressDelay(std::chrono::milliseconds(60));
  QTest::qSleep(1100);
  platform.ReportProgress(0.9, "a step");
  platform.ReportProgress(0.5, "长");
  QWidget* const pProgress = FindProgress();
  ASSERT_NE(pProgress, nullptr);
  EXPECT_EQ(pProgress->findChild<QProgressBar*>()->value(), 500);
  EXPECT_EQ(pProgress->findChild<QLabel*>()->text(), QStringLiteral("长    已用时 0:00:01")) << "of all steps";
  EXPECT_TRUE(pProgress->findChildren<QAbstractButton*>().isEmpty());
  QTest::keyClick(pProgress, Qt::Key_Escape);
  pProgress->close();
  EXPECT_NE(FindProgress(), nullptr) << "it cannot be closed";
  platform.LeaveModule();
  EXPECT_EQ(FindProgress(), nullptr);
}

}  // namespace

std::vector<Colour> DrawPicture(const std::function<void(IPaintContext&)>& draw) {
  QImage image(c_nPictureWidth, c_nPictureHeight, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  CQtPaintContext paint(painter);
  draw(paint);
  std::vector<Colour> pixels;
  for (int n = 0; n < c_nPictureWidth * c_nPictureHeight; ++n) {
    const QRgb nPixel = image.pixel(n % c_nPictureWidth, n / c_nPictureWidth);
    pixels.push_back({static_cast<std::uint8_t>(qRed(nPixel)), static_cast<std::uint8_t>(qGreen(nPixel)),
                      static_cast<std::uint8_t>(qBlue(nPixel))});
  }
  return pixels;
}

}  // namespace skyframe::test
