// The module's dialogs as windows, worked by mouse and keyboard, against the scripted view that runs
// the same steps: same controls, same focus, same messages, same values.

#include <QApplication>
#include <QTest>

#include "DialogCases.h"
#include "QtPerson.h"
#include "TestPlatform.h"

namespace skyframe::test {
namespace {

using Scripts = std::vector<std::pair<int, Steps>>;

/// What came out of one opening of a dialog.
struct Outcome {
  int nResult = 0;
  std::string strStates;    ///< of the open dialogs, before each step
  std::string strReopened;  ///< the same dialog object opened once more
  Strings messages;
  Strings errors;
  bool bUnused = false;
};

/// Puts a look at the open dialog before every step.
Steps Observe(const Steps& steps, const DialogTemplate& layout, std::string& strStates) {
  const DialogStep look =
      Do::Inspect([&layout, &strStates](const IDialogView& view) { strStates += Describe(view, layout) + "\n--\n"; });
  Steps observed;
  for (const DialogStep& step : steps) {
    observed.push_back(look);
    observed.push_back(step);
  }
  return observed;
}

const DialogTemplate& FindTemplate(int nDialogId) {
  if (nDialogId == c_nIdHisResultDlg) return c_hisResultTemplate;
  const auto templates = GetDialogTemplates();
  return **std::find_if(templates.begin(), templates.end(), [nDialogId](auto* p) { return p->nId == nDialogId; });
}

/// Opens the dialog twice, the second time only to look, while the watch is kept.
template <class Platform, class Watch>
Outcome Run(Platform& platform, CDialog& dialog, const Scripts& scripts, const Watch& watch) {
  ResetHostData();
  Outcome outcome;
  for (const auto& [nDialogId, steps] : scripts) {
    platform.AddScript(nDialogId, Observe(steps, FindTemplate(nDialogId), outcome.strStates));
  }
  const DialogTemplate& layout = dialog.GetTemplate();
  platform.AddScript(
      layout.nId,
      {Do::Inspect([&layout, &outcome](const IDialogView& view) { outcome.strReopened = Describe(view, layout); })});
  watch([&] {
    outcome.nResult = dialog.DoModal();
    dialog.DoModal();
  });
  outcome.messages = platform.GetMessages();
  outcome.errors = platform.GetScriptErrors();
  outcome.bUnused = platform.HasUnusedScripts();
  return outcome;
}

Outcome RunScripted(CDialog& dialog, const Scripts& scripts) {
  CTestPlatform platform;
  return Run(*platform, dialog, scripts, [](const std::function<void()>& action) { action(); });
}

Outcome RunByHand(CDialog& dialog, const Scripts& scripts) {
  CQtPerson person;
  return Run(person, dialog, scripts, [&person](const std::function<void()>& action) { person.Watch(action); });
}

/// Runs the scripts by hand and scripted, compares, and returns the outcome by hand.
Outcome RunBoth(std::unique_ptr<CDialog> (*make)(), const Scripts& scripts) {
  const Outcome scripted = RunScripted(*make(), scripts);
  const Outcome byHand = RunByHand(*make(), scripts);
  EXPECT_EQ(byHand.nResult, scripted.nResult);
  EXPECT_EQ(byHand.strStates, scripted.strStates);
  EXPECT_EQ(byHand.strReopened, scripted.strReopened);
  EXPECT_EQ(byHand.messages, scripted.messages);
  EXPECT_EQ(scripted.errors, Strings{});
  EXPECT_EQ(byHand.errors, Strings{});
  EXPECT_FALSE(scripted.bUnused);
  EXPECT_FALSE(byHand.bUnused);
  return byHand;
}

/// Works every control that is enabled when its turn comes: types, ticks, chooses, marks rows, presses.
/// Dialogs behind the buttons are left by Esc.
Steps TouchEverything(const DialogTemplate& layout) {
  Steps touched;
  CTestPlatform platform;
  const DialogCase& dialogCase = *std::find_if(c_dialogCases.begin(), c_dialogCases.end(), [&layout](auto& one) {
    return one.make()->GetTemplate().nId == layout.nId;
  });
  for (const ControlTemplate& control : layout.controls) {
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
    // Kept when the scripted view can do it after those before.
    Steps attempt = touched;
    attempt.insert(attempt.end(), steps.begin(), steps.end());
    platform->Clear();
    platform->AddScript(layout.nId, attempt);
    dialogCase.make()->DoModal();
    if (platform->GetScriptErrors().empty()) touched = attempt;
  }
  return touched;
}

class EveryDialog : public ::testing::TestWithParam<size_t> {
 protected:
  const DialogCase& Case() const { return c_dialogCases[GetParam()]; }
  const DialogTemplate& Layout() const { return FindTemplate(Case().make()->GetTemplate().nId); }
};

TEST_P(EveryDialog, TouchedAllOverAndAcceptedOrCancelled) {
  Steps steps = TouchEverything(Layout());
  EXPECT_GE(steps.size(), 2U);
  for (const auto& [step, nResult] : {std::pair{Do::Ok(), c_nIdOk}, {Do::Cancel(), c_nIdCancel}}) {
    steps.push_back(step);
    EXPECT_EQ(RunBoth(Case().make, {{Layout().nId, steps}}).nResult, nResult);
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
    person.Watch([&] { nResult = Case().make()->DoModal(); });
    EXPECT_EQ(nResult, nExpected);
    EXPECT_TRUE(person.GetMessages().empty());
  }
}

TEST_P(EveryDialog, TabVisitsControlsInTemplateOrder) {
  const std::unique_ptr<CDialog> pDialog = Case().make();
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

TEST_P(EveryDialog, BadNumbersAreRefused) {
  for (const ControlTemplate& control : Layout().controls) {
    if (control.kind != ControlKind::Edit) continue;
    for (const char* const strBad : {"abc", "", "1e999", "1,5", "0x10", "1 2"}) {
      // Open all doors first: a field that stays disabled cannot be spoilt.
      Steps steps = TouchEverything(Layout());
      steps.push_back(Do::Type(control.nId, strBad));
      steps.push_back(Do::Ok());
      if (!RunScripted(*Case().make(), {{Layout().nId, steps}}).errors.empty()) continue;
      SCOPED_TRACE(std::to_string(control.nId) + " '" + strBad + "'");
      int nFocus = -1;
      std::string strText = "closed";
      steps.push_back(Do::Inspect([&](const IDialogView& view) {
        nFocus = view.GetFocus();
        strText = view.GetText(control.nId);
      }));
      const Outcome outcome = RunByHand(*Case().make(), {{Layout().nId, steps}});
      EXPECT_EQ(outcome.nResult, c_nIdCancel);
      EXPECT_EQ(nFocus, control.nId);
      EXPECT_EQ(strText, strBad);
      ASSERT_FALSE(outcome.messages.empty());
      const std::string& strMessage = outcome.messages.back();
      EXPECT_TRUE(strMessage == "请输入一个数字。" || strMessage == "请输入一个整数。") << strMessage;
    }
  }
}

std::string NameOfCase(const ::testing::TestParamInfo<size_t>& info) { return c_dialogCases[info.param].strName; }

INSTANTIATE_TEST_SUITE_P(All, EveryDialog, ::testing::Range(size_t{0}, c_dialogCases.size()), NameOfCase);

TEST(LoadCombinationWindow, RowsMoveAsInTheScriptedView) {
  const Steps steps = {Do::ToggleRow(c_nIdAvailable, "活2"),
                       Do::Type(c_nIdFactor, "0.5"),
                       Do::Click(c_nIdAdd),
                       Do::DoubleClick(c_nIdAvailable, 0),
                       Do::ToggleRow(c_nIdAvailable, "活1"),
                       Do::ToggleRow(c_nIdAvailable, "活3"),
                       Do::ToggleRow(c_nIdAvailable, "活1"),
                       Do::Type(c_nIdFactor, "1.25"),
                       Do::Click(c_nIdAdd),
                       Do::ToggleRow(c_nIdCombined, 1),
                       Do::Click(c_nIdRemove),
                       Do::DoubleClick(c_nIdCombined, 1),
                       Do::ToggleRow(c_nIdAvailable, 1),
                       Do::Click(c_nIdAdd),
                       Do::Ok()};
  RunBoth(MakeDialog<CLoadCombDlg>, {{c_nIdLoadCombDlg, steps}});
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

TEST(NestedWindows, ImpulsesAndEarthquakeBehindTheNewmarkDialog) {
  const Steps impulses = {Do::Type(c_nIdImpulseNode, "3"),
                          Do::Type(c_nIdImpulseDirection, "3"),
                          Do::Click(c_nIdImpulseInsert),
                          Do::Type(c_nIdImpulseDirection, "1"),
                          Do::Type(c_nIdImpulsePeak, "12.5"),
                          Do::Click(c_nIdImpulseInsert),
                          Do::Type(c_nIdImpulseNode, "-1"),
                          Do::Click(c_nIdImpulseInsert),
                          Do::Type(c_nIdImpulseNode, "4"),
                          Do::Click(c_nIdImpulseInsert),
                          Do::ToggleRow(c_nIdImpulseList, 0),
                          Do::Click(c_nIdImpulseRemove),
                          Do::Ok()};
  const Steps earthquake = {Do::Tick(c_nIdQuakeX),
                            Do::Type(c_nIdPeakX, "0.7"),
                            Do::Choose(c_nIdOblique),
                            Do::Choose(c_nIdPrincipal),
                            Do::ChooseItem(c_nIdStandardRecord, "El-Centro"),
                            Do::Ok()};
  const Steps newmark = {Do::Click(c_nIdImpulseLoad),   Do::Tick(c_nIdNonlinear),   Do::ChooseItem(c_nIdCriterion, 2),
                         Do::Choose(c_nIdGroundMotion), Do::Click(c_nIdEarthquake), Do::Ok()};
  const Outcome outcome =
      RunBoth(MakeDialog<CNewmarkDlg>,
              {{c_nIdNewmarkDlg, newmark}, {c_nIdImpulseLoadDlg, impulses}, {c_nIdEarthquakeDlg, earthquake}});
  EXPECT_EQ(outcome.messages, (Strings{"方向定义错误", "节点号小于0，错误"}));
}

}  // namespace
}  // namespace skyframe::test
