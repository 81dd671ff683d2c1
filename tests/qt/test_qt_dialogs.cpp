// The module's dialogs as windows, worked by mouse and keyboard, against the scripted view that runs
// the same steps: same controls, same focus, same messages, same values. Drawn into the build directory, nothing
// clipped or overlapping.

#include <QTest>
#include <QtWidgets>

#include "AllDialogs.h"
#include "QtPerson.h"
#include "skyframe/platform/DialogContent.h"

namespace skyframe::test {
namespace {

constexpr int c_nOfferedTypes = 4;

using Maker = std::unique_ptr<CDialog> (*)();

template <class Dialog>
std::unique_ptr<CDialog> MakeDialog() {
  auto pDialog = std::make_unique<Dialog>();
  if constexpr (requires { pDialog->m_loadComb; }) pDialog->m_loadComb.nLoadTypes = c_nOfferedTypes;
  return pDialog;
}

const CFakeHistories c_histories;

std::unique_ptr<CDialog> MakeViewer() { return std::make_unique<CHisResultDlg>(c_histories); }

constexpr Maker c_makers[] = {MakeDialog<CModeDlg>,
                              MakeDialog<CSpectrumDlg>,
                              MakeDialog<CLoadCombDlg>,
                              MakeDialog<CDynOptionDlg>,
                              MakeDialog<CWilsonDlg>,
                              MakeDialog<CNewmarkDlg>,
                              MakeDialog<CNonlinStaticDlg>,
                              MakeDialog<CImpulseLoadDlg>,
                              MakeDialog<CGeneralLoadDlg>,
                              MakeDialog<CEarthquakeDlg>,
                              MakeViewer};

/// What came out of one opening of a dialog.
struct Outcome {
  int nResult = 0;
  std::string strSeen;  ///< of the open dialogs before each step, of the dialog opened once more, and all script errors
  Strings messages;
};

/// What stands in every control with an identifier, one a line, and which has the focus.
std::string Describe(const IDialogView& view, const DialogTemplate& layout) {
  std::ostringstream strm;
  for (const auto& [nId, content] : ReadContent(layout, view)) {
    strm << nId << " '" << content.strText << "' " << content.nChoice << ' ' << view.GetCheck(nId) << content.bEnabled
         << ' ' << view.GetCurrent(nId);
    for (int nRow = 0; const auto& row : content.rows) {
      strm << (view.IsSelected(nId, nRow++) ? " *" : " ");
      for (const std::string& strCell : row) strm << strCell << '|';
    }
    strm << '\n';
  }
  strm << "focus " << view.GetFocus() << "\n--\n";
  return strm.str();
}

/// Opens the dialog twice, the second time only to look, while the watch is kept.
template <class Platform, class Watch>
Outcome Run(Platform& platform, Maker make, const Steps& steps, const Watch& watch) {
  ResetHostData();
  Outcome outcome;
  const std::unique_ptr<CDialog> pDialog = make();
  const DialogTemplate& layout = pDialog->GetTemplate();
  const DialogStep look =
      Do::Inspect([&outcome, &layout](const IDialogView& view) { outcome.strSeen += Describe(view, layout); });
  Steps observed;
  for (const DialogStep& step : steps) observed.insert(observed.end(), {look, step});
  platform.AddScript(layout.nId, observed);
  platform.AddScript(layout.nId, {look});
  watch([&] {
    outcome.nResult = pDialog->DoModal();
    pDialog->DoModal();
  });
  outcome.messages = platform.GetMessages();
  for (const std::string& strError : platform.GetScriptErrors()) outcome.strSeen += "error: " + strError;
  if (platform.HasUnusedScripts()) outcome.strSeen += "error: unused scripts";
  return outcome;
}

/// Runs the steps by hand and scripted, compares, and returns the outcome.
Outcome RunBoth(Maker make, const Steps& steps) {
  Outcome scripted;
  {
    CTestPlatform platform;
    scripted = Run(*platform, make, steps, [](const std::function<void()>& action) { action(); });
  }
  CQtPerson person;
  const auto watch = [&person](const std::function<void()>& action) { person.Watch(action); };
  const Outcome byHand = Run(person, make, steps, watch);
  EXPECT_EQ(byHand.nResult, scripted.nResult);
  EXPECT_EQ(byHand.strSeen, scripted.strSeen);
  EXPECT_EQ(byHand.messages, scripted.messages);
  EXPECT_EQ(scripted.strSeen.find("error: "), std::string::npos) << scripted.strSeen;
  return byHand;
}

/// In the scripted view.
bool CanBeDone(Maker make, const Steps& steps) {
  const std::unique_ptr<CDialog> pDialog = make();
  CTestPlatform platform;
  platform->AddScript(pDialog->GetTemplate().nId, steps);
  pDialog->DoModal();
  return platform->GetScriptErrors().empty();
}

/// Works every control that is enabled when its turn comes: types, ticks, chooses, marks rows, presses.
/// Dialogs behind the buttons are left by Esc.
Steps TouchEverything(Maker make) {
  Steps touched;
  for (const ControlTemplate& control : make()->GetTemplate().controls) {
    if (control.nId == -1 || control.nId == c_nIdOk || control.nId == c_nIdCancel) continue;
    Steps steps;
    if (control.kind == ControlKind::Edit) steps = {Do::Type(control.nId, "2")};
    if (control.kind == ControlKind::Check) steps = {Do::Tick(control.nId), Do::Tick(control.nId)};
    if (control.kind == ControlKind::Radio) steps = {Do::Choose(control.nId)};
    if (control.kind == ControlKind::Button) steps = {Do::Click(control.nId)};
    if (control.kind == ControlKind::DropList) {
      steps = {Do::ChooseItem(control.nId, static_cast<int>(control.items.size()) - 1)};
    }
    if (control.kind == ControlKind::ListBox || control.kind == ControlKind::ListView) {
      steps = {Do::ToggleRow(control.nId, 0)};
    }
    steps.insert(steps.begin(), touched.begin(), touched.end());
    if (CanBeDone(make, steps)) touched = steps;
  }
  return touched;
}

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

class EveryDialog : public ::testing::TestWithParam<Maker> {
 protected:
  DialogTemplate Layout() const { return GetParam()()->GetTemplate(); }
};

TEST_P(EveryDialog, TouchedAllOverAndAcceptedOrCancelled) {
  Steps steps = TouchEverything(GetParam());
  EXPECT_GE(steps.size(), 2U);
  for (const auto& [step, nResult] : {std::pair{Do::Ok(), c_nIdOk}, {Do::Cancel(), c_nIdCancel}}) {
    steps.push_back(step);
    EXPECT_EQ(RunBoth(GetParam(), steps).nResult, nResult);
    steps.pop_back();
  }
}

TEST_P(EveryDialog, LeftByKeysAndFrame) {
  // Key 0 stands for the close button of the frame.
  for (const auto& [nKey, nExpected] : {std::pair{int{Qt::Key_Return}, c_nIdOk},
                                        {int{Qt::Key_Enter}, c_nIdOk},
                                        {int{Qt::Key_Escape}, c_nIdCancel},
                                        {0, c_nIdCancel}}) {
    CQtPerson person;
    ResetHostData();
    person.AddScript(Layout().nId, {Do::Inspect([nPressed = nKey](const IDialogView&) {
                       QWidget* const pTop = QApplication::activeModalWidget();
                       nPressed == 0 ? static_cast<void>(pTop->close()) : QTest::keyClick(pTop, Qt::Key(nPressed));
                     })});
    int nResult = -1;
    person.Watch([&] { nResult = GetParam()()->DoModal(); });
    EXPECT_EQ(nResult, nExpected);
    EXPECT_TRUE(person.GetMessages().empty());
  }
}

TEST_P(EveryDialog, TabVisitsControlsInTemplateOrder) {
  const std::unique_ptr<CDialog> pDialog = GetParam()();
  ResetHostData();
  CDialogWindow window(*pDialog);
  window.OpenDialog();
  window.show();
  std::vector<int> visited;
  const int nFirst = window.GetFocus();
  for (int nStep = 0; nStep < 60 && (visited.empty() || window.GetFocus() != nFirst); ++nStep) {
    visited.push_back(window.GetFocus());
    QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
  }
  EXPECT_EQ(window.GetFocus(), nFirst) << "the Tab key comes round";
  std::vector<int> order;
  for (const ControlTemplate& control : Layout().controls) {
    if (std::find(visited.begin(), visited.end(), control.nId) != visited.end()) order.push_back(control.nId);
    const bool bStops = control.kind == ControlKind::Edit || control.kind == ControlKind::Button ||
                        control.kind == ControlKind::DefaultButton || control.kind == ControlKind::Check;
    if (bStops && window.IsEnabled(control.nId)) {
      EXPECT_NE(std::find(visited.begin(), visited.end(), control.nId), visited.end()) << control.nId;
    }
  }
  EXPECT_EQ(visited, order);
}

TEST_P(EveryDialog, NothingClippedAtBothFontSizes) {
  for (const int nPercent : {100, 150}) {
    const std::unique_ptr<CDialog> pDialog = GetParam()();
    CDialogWindow window(*pDialog, nPercent / 100.0);
    window.OpenDialog();
    window.show();
    const QString strPicture = QStringLiteral(SKYFRAME_PICTURE_DIR "/%1-%2.png").arg(Layout().nId).arg(nPercent);
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

INSTANTIATE_TEST_SUITE_P(All, EveryDialog, ::testing::ValuesIn(c_makers));

TEST(ModalWindow, BadNumbersAreRefused) {
  for (const char* szBad : {"x", "", "1e999", "1,5"}) {
    const Steps steps = {Do::Type(c_nIdModes, szBad), Do::Choose(c_nIdModeComparison), Do::Ok(), Do::Wait(0)};
    EXPECT_EQ(RunBoth(MakeDialog<CModeDlg>, steps).messages, Strings{"请输入一个整数。"}) << szBad;
  }
}

TEST(LoadCombinationWindow, RowsMoveAsInTheScriptedView) {
  const Steps steps = {Do::DoubleClick(c_nIdAvailable, 2),
                       Do::ToggleRow(c_nIdAvailable, "活1"),
                       Do::ToggleRow(c_nIdAvailable, "活3"),
                       Do::ToggleRow(c_nIdAvailable, "静"),
                       Do::ToggleRow(c_nIdAvailable, "活3"),
                       Do::Type(c_nIdFactor, "1.25"),
                       Do::Click(c_nIdAdd),
                       Do::DoubleClick(c_nIdCombined, 1),
                       Do::Ok()};
  RunBoth(MakeDialog<CLoadCombDlg>, steps);
}

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

TEST(LoadCombinationWindow, UnfinishedNumberGetsItsMessageWhileTyping) {
  CQtPerson person;
  person.AddScript(c_nIdLoadCombDlg,
                   {Do::Type(c_nIdFactor, "2e1"), Do::ToggleRow(c_nIdAvailable, 0), Do::Click(c_nIdAdd), Do::Ok()});
  CLoadCombDlg dialog;
  dialog.m_loadComb.nLoadTypes = 1;
  person.Watch([&] { dialog.DoModal(); });
  EXPECT_EQ(person.GetMessages(), Strings{"请输入一个数字。"}) << "at 2e";
  EXPECT_EQ(dialog.m_loadComb.factors[0], 20.0) << "typing goes on where it was";
}

}  // namespace
}  // namespace skyframe::test
