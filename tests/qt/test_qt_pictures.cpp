// Every dialog at normal and large font: drawn into the build directory, nothing clipped or overlapping.

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeView>

#include "DialogCases.h"
#include "skyframe/qt/DialogWindow.h"
#include "skyframe/qt/Font.h"

namespace skyframe::test {
namespace {

constexpr std::array<int, 2> c_scales = {100, 150};

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

std::string NameOfCase(const ::testing::TestParamInfo<std::tuple<size_t, int>>& info) {
  return std::string(c_dialogCases[std::get<0>(info.param)].strName) + "_" + std::to_string(std::get<1>(info.param));
}

class DialogPictures : public ::testing::TestWithParam<std::tuple<size_t, int>> {};

TEST_P(DialogPictures, NothingClipped) {
  const auto [nCase, nPercent] = GetParam();
  const DialogCase& dialogCase = c_dialogCases[nCase];
  const std::unique_ptr<CDialog> pDialog = dialogCase.make();
  CDialogWindow window(*pDialog, nPercent / 100.0);
  window.OpenDialog();
  window.show();
  const QString strPicture = QStringLiteral(SKYFRAME_PICTURE_DIR "/%1-%2.png").arg(dialogCase.strName).arg(nPercent);
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

INSTANTIATE_TEST_SUITE_P(All, DialogPictures,
                         ::testing::Combine(::testing::Range(size_t{0}, c_dialogCases.size()),
                                            ::testing::ValuesIn(c_scales)),
                         NameOfCase);

}  // namespace
}  // namespace skyframe::test
