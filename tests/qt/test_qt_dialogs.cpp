// The module's dialogs as windows of Qt: drawn into the build directory, nothing clipped or overlapping; what the mouse
// and the keys do in a list.

#include <QTest>
#include <QtWidgets>

#include "AllDialogs.h"
#include "skyframe/qt/DialogWindow.h"

namespace skyframe::test {
namespace {

/// Size that the control's text needs; empty for controls without a fixed text.
QSize GetNeededSize(const QWidget& widget) {
  const bool bText =
      qobject_cast<const QLabel*>(&widget) != nullptr || qobject_cast<const QRadioButton*>(&widget) != nullptr ||
      qobject_cast<const QCheckBox*>(&widget) != nullptr || qobject_cast<const QComboBox*>(&widget) != nullptr;
  if (bText) return {widget.sizeHint().width(), widget.fontMetrics().height()};
  if (qobject_cast<const QPushButton*>(&widget) != nullptr || qobject_cast<const QGroupBox*>(&widget) != nullptr) {
    const QString strText = widget.property(qobject_cast<const QGroupBox*>(&widget) ? "title" : "text").toString();
    return widget.fontMetrics().size(Qt::TextSingleLine, strText) + QSize(8, 2);
  }
  return {0, widget.fontMetrics().height()};
}

class EveryDialogWindow : public ::testing::TestWithParam<Maker> {};

TEST_P(EveryDialogWindow, NothingClippedAtBothFontSizes) {
  for (const int nPercent : {100, 150}) {
    const std::unique_ptr<CDialog> pDialog = GetParam()();
    CDialogWindow window(*pDialog, nPercent / 100.0);
    window.OpenDialog();
    window.show();
    const QString strPicture =
        QStringLiteral(SKYFRAME_PICTURE_DIR "/%1-%2.png").arg(pDialog->GetTemplate().nId).arg(nPercent);
    EXPECT_TRUE(window.grab().save(strPicture));

    QList<QWidget*> controls = window.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    EXPECT_EQ(static_cast<size_t>(controls.size()), pDialog->GetTemplate().controls.size());
    for (const QWidget* const pControl : controls) {
      const std::string strWho = pControl->objectName().toStdString() + " " +
                                 pControl->property("text").toString().toStdString() +
                                 pControl->property("title").toString().toStdString();
      EXPECT_TRUE(window.rect().contains(pControl->geometry())) << strWho;
      const QSize needed = GetNeededSize(*pControl);
      EXPECT_LE(needed.width(), pControl->width()) << strWho;
      EXPECT_LE(needed.height(), pControl->height()) << strWho;
      if (const auto* const pTree = qobject_cast<const QTreeView*>(pControl)) {
        EXPECT_EQ(pTree->header()->length(), pTree->viewport()->width()) << "the columns share the width";
      }
      for (const QWidget* const pOther : controls) {
        if (pOther == pControl || qobject_cast<const QGroupBox*>(pOther) != nullptr) continue;
        if (qobject_cast<const QGroupBox*>(pControl) == nullptr) {
          EXPECT_FALSE(pControl->geometry().intersects(pOther->geometry()))
              << strWho << " and " << pOther->objectName().toStdString();
        } else if (pControl->geometry().intersects(pOther->geometry())) {
          EXPECT_TRUE(pControl->geometry().contains(pOther->geometry())) << strWho;
        }
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(All, EveryDialogWindow, ::testing::ValuesIn(c_makers));

TEST(LoadCombinationWindow, DraggingMarksNothingAndTheKeysMarkAll) {
  CLoadCombDlg dialog;
  dialog.m_loadComb.nLoadTypes = c_nOfferedTypes;
  CDialogWindow window(dialog);
  window.OpenDialog();
  window.show();
  QWidget* const pArea =
      window.FindWidget(c_nIdAvailable)->findChild<QWidget*>(QStringLiteral("qt_scrollarea_viewport"));
  QTest::mousePress(pArea, Qt::LeftButton, Qt::NoModifier, {10, 5});
  for (int nY = 5; nY < 70; nY += 5) QTest::mouseMove(pArea, {10, nY});
  QTest::mouseRelease(pArea, Qt::LeftButton, Qt::NoModifier, {10, 69});
  for (int nRow = 0; nRow < c_nOfferedTypes; ++nRow) EXPECT_EQ(window.IsSelected(c_nIdAvailable, nRow), nRow == 0);
  for (const auto& [nListId, nButton, nRows] :
       {std::tuple(c_nIdAvailable, c_nIdAdd, c_nOfferedTypes), {c_nIdCombined, c_nIdRemove, 0}}) {
    QTest::keyClick(window.FindWidget(nListId), Qt::Key_A, Qt::ControlModifier);
    QTest::mouseClick(window.FindWidget(nButton), Qt::LeftButton);
    EXPECT_EQ(window.GetItemCount(c_nIdCombined), nRows);
  }
}

}  // namespace
}  // namespace skyframe::test
