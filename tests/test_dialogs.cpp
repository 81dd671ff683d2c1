#include "../platform/src/ScriptedView.h"
#include "DialogTesting.h"
#include "skyframe/dialogs/LoadCombDlg.h"
#include "skyframe/dialogs/ModeDlg.h"
#include "skyframe/dialogs/NonlinStaticDlg.h"
#include "skyframe/dialogs/Templates.h"
#include "skyframe/hostdata/HostData.h"

namespace skyframe::test {
namespace {

// ---- Templates -------------------------------------------------------------------------------------------------

/// Width of a text in dialog units: 4 for a Latin letter, 8 for a Chinese one.
int EstimateWidth(std::string_view strText) {
  int nWidth = 0;
  for (const char c : strText) {
    const auto nByte = static_cast<unsigned char>(c);
    if (nByte < 0x80) nWidth += 4;
    if (nByte >= 0xC0) nWidth += 8;
  }
  return nWidth;
}

/// What stands beside the text: the mark of a radio button or check, the margins of a button, the
/// corners of a frame, the arrow of a drop list.
int GetDecoration(ControlKind kind) {
  if (kind == ControlKind::Label) return 0;
  return kind == ControlKind::Button || kind == ControlKind::DefaultButton ? 8 : 12;
}

bool Overlap(const DialogRect& a, const DialogRect& b) {
  return a.nX < b.nX + b.nWidth && b.nX < a.nX + a.nWidth && a.nY < b.nY + b.nHeight && b.nY < a.nY + a.nHeight;
}

/// a lies in the frame b, below its caption.
bool IsInFrame(const DialogRect& a, const DialogRect& b) {
  return a.nX > b.nX && a.nX + a.nWidth < b.nX + b.nWidth && a.nY >= b.nY + 10 && a.nY + a.nHeight < b.nY + b.nHeight;
}

std::string Describe(const DialogTemplate& layout, const ControlTemplate& control) {
  return std::string(layout.strTitle) + ": " + std::to_string(control.nId) + " \"" + std::string(control.strText) +
         "\" at " + std::to_string(control.rect.nX) + ", " + std::to_string(control.rect.nY);
}

TEST(Templates, IdentifiersAreUniqueAndRadioButtonsFormGroups) {
  std::set<int> dialogs;
  for (const DialogTemplate* pLayout : GetDialogTemplates()) {
    EXPECT_TRUE(dialogs.insert(pLayout->nId).second) << pLayout->nId;
    std::set<int> ids;
    int nDefaults = 0;
    for (const ControlTemplate& control : pLayout->controls) {
      SCOPED_TRACE(Describe(*pLayout, control));
      const bool bStatic = control.kind == ControlKind::Label || control.kind == ControlKind::Group;
      EXPECT_TRUE((bStatic && control.nId == -1) || ids.insert(control.nId).second);
      if (control.kind == ControlKind::DefaultButton) ++nDefaults;
      if (control.kind != ControlKind::Radio) continue;
      const ControlTemplate* const pFirst = pLayout->Find(pLayout->GetGroupStart(control.nId));
      ASSERT_NE(pFirst, nullptr);
      EXPECT_NE(pFirst->nStyle & c_nStyleGroup, 0U);
      EXPECT_GE(pLayout->GetRadioGroup(pFirst->nId).size(), 2U);
    }
    EXPECT_TRUE(ids.contains(c_nIdOk) && ids.contains(c_nIdCancel) && nDefaults == 1) << pLayout->strTitle;
  }
}

TEST(Templates, NothingIsClippedOrOverlaps) {
  for (const DialogTemplate* pLayout : GetDialogTemplates()) {
    for (const ControlTemplate& a : pLayout->controls) {
      const std::string strWhere = Describe(*pLayout, a);
      EXPECT_TRUE(a.rect.nX >= 5 && a.rect.nY >= 5 && a.rect.nX + a.rect.nWidth <= pLayout->nWidth - 5 &&
                  a.rect.nY + a.rect.nHeight <= pLayout->nHeight - 5)
          << strWhere << " leaves the dialog";
      EXPECT_GE(a.rect.nWidth, EstimateWidth(a.strText) + GetDecoration(a.kind)) << strWhere;
      int nColumns = 0;
      for (const std::string_view strItem : a.items) {
        nColumns += EstimateWidth(strItem) + 8;
        EXPECT_GE(a.rect.nWidth, EstimateWidth(strItem) + GetDecoration(a.kind)) << strWhere << strItem;
      }
      EXPECT_TRUE(a.kind != ControlKind::ListView || a.rect.nWidth >= nColumns) << strWhere;
      for (const ControlTemplate& b : pLayout->controls) {
        if (&a == &b || !Overlap(a.rect, b.rect)) continue;
        EXPECT_NE(a.kind == ControlKind::Group, b.kind == ControlKind::Group)
            << strWhere << " / " << Describe(*pLayout, b);
        EXPECT_TRUE(b.kind != ControlKind::Group || IsInFrame(a.rect, b.rect)) << strWhere;
      }
    }
  }
}

TEST(Templates, TextsOfTheModalStaticAndCombinationDialogs) {
  using enum ControlKind;
  ExpectControls(c_modeTemplate, 16000, "模态分析",
                 {{16000, Edit, "所需总模态数:"},
                  {16001, Radio, "STURM法"},
                  {16002, Radio, "模态比较法"},
                  {16003, Edit, "计算精度:"},
                  {16004, Edit, "迭代倍数:"},
                  {16005, Check, "考虑剪切变形"},
                  {16044, Button, "荷载组合"},
                  {1, DefaultButton, "确认"},
                  {2, Button, "取消"}});
  EXPECT_EQ(c_modeTemplate.controls[2].strText, "丢根判断:");
  ExpectControls(c_nonlinStaticTemplate, 16007, "非线性静力分析",
                 {{16090, DropList, "收敛准则"},
                  {16092, Edit, "最大迭代步数"},
                  {16091, Edit, "收敛容差"},
                  {16063, Check, "考虑非线性"},
                  {16059, Button, "荷载组合"},
                  {1, DefaultButton, "OK"},
                  {2, Button, "Cancel"}});
  EXPECT_EQ(GetItems(c_nonlinStaticTemplate, 16090), (Strings{"绝对值力", "绝对值位移", "相对值力", "相对值位移"}));
  ExpectControls(c_loadCombTemplate, 16002, "荷载组合",
                 {{16039, ListBox, ""},
                  {16041, ListBox, ""},
                  {16042, Button, "添加"},
                  {16043, Button, "删除"},
                  {16045, Label, "折减系数:"},
                  {16046, Edit, "折减系数:"},
                  {1, DefaultButton, "确定"},
                  {2, Button, "取消"}});
  for (const int nId : {16039, 16041}) {
    EXPECT_EQ(c_loadCombTemplate.Find(nId)->nStyle & (c_nStyleSorted | c_nStyleMultiple),
              c_nStyleSorted | c_nStyleMultiple);
  }
  EXPECT_GT(c_loadCombTemplate.Find(16039)->rect.nX, c_loadCombTemplate.Find(16041)->rect.nX);
}

// ---- Modal and static dialogs ----------------------------------------------------------------------------------

TEST_F(Dialogs, ModalSettingsComeFromTheRecordAndReturn) {
  COMDYN.m_nModes = 25;
  COMDYN.m_nRootCheck = 1;
  COMDYN.m_dModeTol = 1.0e-8;
  COMDYN.m_nIterMultiple = 4;
  COMDYN.m_bShear = 1;
  CModeDlg dialog;
  EXPECT_EQ(Run(dialog, {DialogStep::Inspect([](const IDialogView& view) {
                           EXPECT_EQ(view.GetText(16003), "1e-16") << "the accuracy always starts anew";
                           EXPECT_TRUE(view.GetCheck(16002) && view.GetCheck(16005));
                         }),
                         ExpectText(16000, "25"), ExpectText(16004, "4"), DialogStep::Type(16000, "12"),
                         DialogStep::Choose(16001), DialogStep::Type(16003, "1e-10"), DialogStep::Type(16004, "8"),
                         DialogStep::Tick(16005, false), DialogStep::Ok()}),
            c_nIdOk);
  EXPECT_EQ(
      std::tuple(COMDYN.m_nModes, COMDYN.m_nRootCheck, COMDYN.m_dModeTol, COMDYN.m_nIterMultiple, COMDYN.m_bShear),
      std::tuple(12, 0, 1.0e-10, 8, 0));
}

/// Notes the timers that a dialog asks for.
class CTimerView : public CScriptedView {
 public:
  using CScriptedView::CScriptedView;
  void StartTimer(int nTimer, int nMilliseconds) override { m_timers.emplace_back(nTimer, nMilliseconds); }
  std::vector<std::pair<int, int>> m_timers;
};

TEST_F(Dialogs, OnlyAValidModalOkSavesAndStartsATimerThatCounts) {
  CModeDlg dialog;
  Run(dialog, {DialogStep::Type(16000, "12"), DialogStep::Cancel()});
  Run(dialog,
      {DialogStep::Type(16000, "12"), DialogStep::Type(16003, "small"), DialogStep::Ok(), DialogStep::Wait(5000)});
  EXPECT_EQ(COMDYN.m_nModes, 10) << "only a valid OK takes the settings over";
  EXPECT_EQ(dialog.GetTickCount(), 0) << "the timer starts only when the fields are valid";
  Strings errors;
  CTimerView view(dialog, nullptr, errors);
  dialog.Open(view);
  dialog.Tick(1);
  EXPECT_EQ(dialog.GetTickCount(), 1);
  dialog.Open(view);
  EXPECT_EQ(dialog.GetTickCount(), 0) << "opening starts the count anew";
  dialog.Notify(c_nIdOk, DialogEvent::Clicked);
  EXPECT_TRUE(dialog.HasEnded());
  EXPECT_EQ(view.m_timers, (std::vector<std::pair<int, int>>{{1, 1000}}));
  dialog.Tick(1);
  dialog.Tick(7);
  EXPECT_EQ(dialog.GetTickCount(), 2);
}

TEST_F(Dialogs, StaticSettingsStartFromTheirDefaults) {
  CNonlinStaticDlg dialog;
  EXPECT_EQ(Run(dialog, {DialogStep::Inspect([](const IDialogView& view) {
                           EXPECT_EQ(view.GetCurrent(16090), 0);
                           EXPECT_TRUE(view.GetCheck(16063));
                         }),
                         ExpectText(16092, "20"), ExpectText(16091, "0.1"), DialogStep::ChooseItem(16090, "相对值位移"),
                         DialogStep::Type(16092, "50"), DialogStep::Type(16091, "1e-6"), DialogStep::Tick(16063, false),
                         DialogStep::Ok()}),
            c_nIdOk);
  EXPECT_EQ(std::tuple(dialog.m_nCriterion, dialog.m_nMaxIter, dialog.m_dTolerance, dialog.m_bNonlinear),
            std::tuple(3, 50, 1.0e-6, 0));
}

// ---- Load combination ------------------------------------------------------------------------------------------

Strings GetRows(const IDialogView& view, int nListId) {
  Strings rows;
  for (int i = 0; i < view.GetItemCount(nListId); ++i) rows.push_back(view.GetItemText(nListId, i));
  return rows;
}

DialogStep ExpectRows(int nListId, const Strings& rows) {
  return DialogStep::Inspect([nListId, rows](const IDialogView& view) {
    EXPECT_EQ(GetRows(view, nListId), rows);
    for (const int nId : {16039, 16041}) {
      for (int i = 0; i < view.GetItemCount(nId); ++i) EXPECT_FALSE(view.IsSelected(nId, i)) << nId << ", row " << i;
    }
  });
}

class LoadComb : public Dialogs {
 protected:
  LoadComb() { m_dialog.m_loadComb.nLoadTypes = 12; }
  int Run(Steps steps) { return Dialogs::Run(m_dialog, std::move(steps)); }
  [[nodiscard]] const LoadCombination& Get() const { return m_dialog.m_loadComb; }

  CLoadCombDlg m_dialog;
};

TEST_F(LoadComb, TypesStandInTheirOrderAndDoubleClicksRemoveThem) {
  m_dialog.m_loadComb.flags[10] = 1;
  m_dialog.m_loadComb.flags[9] = 1;
  m_dialog.m_loadComb.flags[0] = 1;
  m_dialog.m_loadComb.factors[9] = 0.666;
  Run({ExpectRows(16039, {"静", "活1", "活2", "活3", "活4", "活5", "活6", "活7", "活8", "活9", "活10", "活11"}),
       ExpectRows(16041, {"1.00静", "0.67活9", "1.00活10"}), DialogStep::DoubleClick(16041, 1),
       DialogStep::ToggleRow(16039, 4), DialogStep::DoubleClick(16039, 4), ExpectRows(16041, {"1.00静", "1.00活10"})});
}

TEST_F(LoadComb, TypesTakeTheFactorOfTheirAdditionAndKeepItWhenRemoved) {
  EXPECT_EQ(Run({DialogStep::Type(16046, "0.7"), DialogStep::ToggleRow(16039, "活2"), DialogStep::ToggleRow(16039, 5),
                 DialogStep::Click(16042), DialogStep::Type(16046, "1.2"), DialogStep::ToggleRow(16039, "静"),
                 DialogStep::ToggleRow(16039, "活2"), DialogStep::Click(16042),
                 ExpectRows(16041, {"1.20静", "0.70活2", "0.70活5"}), DialogStep::ToggleRow(16041, "0.70活5"),
                 DialogStep::Click(16043), ExpectRows(16041, {"1.20静", "0.70活2"}), DialogStep::Ok()}),
            c_nIdOk);
  EXPECT_EQ(Get().flags[0] + 10 * Get().flags[1] + 100 * Get().flags[2] + 1000 * Get().flags[5], 101);
  EXPECT_EQ(std::tuple(Get().factors[0], Get().factors[1], Get().factors[2], Get().factors[5]),
            std::tuple(1.2, 1.0, 0.7, 0.7));
}

TEST_F(LoadComb, TheFactorIsReadWhileItIsTyped) {
  EXPECT_EQ(Run({DialogStep::Inspect([](const IDialogView& view) { EXPECT_EQ(view.GetText(16046), "1"); }),
                 DialogStep::Type(16046, "0.9"), DialogStep::Type(16046, ""), DialogStep::ToggleRow(16039, 0),
                 DialogStep::Click(16042), ExpectRows(16041, {"0.90静"}), DialogStep::Ok(),
                 DialogStep::Type(16046, "1"), DialogStep::Ok()}),
            c_nIdOk);
  EXPECT_EQ(m_platform.GetMessages(), (Strings{"请输入一个数字。", "请输入一个数字。"}))
      << "one while typing, one when OK meets the empty field";
}

TEST_F(LoadComb, TwentyTypesAreTakenAndNoMore) {
  m_dialog.m_loadComb.nLoadTypes = 20;
  Steps steps;
  for (int i = 19; i >= 0; --i) steps.push_back(DialogStep::DoubleClick(16039, i));
  steps.push_back(DialogStep::Inspect([](const IDialogView& view) {
    EXPECT_EQ(view.GetItemCount(16041), 20);
    EXPECT_EQ(view.GetItemText(16041, 19), "1.00活19");
  }));
  steps.push_back(DialogStep::Ok());
  EXPECT_EQ(Run(std::move(steps)), c_nIdOk);
  EXPECT_EQ(std::count(Get().flags.begin(), Get().flags.end(), 1), 20);
  EXPECT_TRUE(m_platform.GetMessages().empty());

  m_dialog.m_loadComb.nLoadTypes = 21;
  Run({ExpectRows(16039, {}), ExpectRows(16041, {}), DialogStep::Click(16042), DialogStep::Click(16043)});
  EXPECT_EQ(m_platform.GetMessages(), Strings{"荷载类型过多,计算终止!"});
  EXPECT_EQ(std::count(Get().flags.begin(), Get().flags.end(), 1), 20);
}

TEST_F(Dialogs, ButtonsOpenTheCombinationAndOnlyOkTakesItOver) {
  const Steps c_add = {DialogStep::Type(16046, "0.6"), DialogStep::DoubleClick(16039, 2)};
  const auto check = [&](auto dialog, int nButton) {
    LoadCombination& combination = dialog->m_loadComb;
    combination.nLoadTypes = 3;
    combination.flags[1] = 1;  // opening clears the combination
    combination.factors[1] = 0.5;
    for (const bool bOk : {false, true}) {
      Steps steps = c_add;
      steps.push_back(bOk ? DialogStep::Ok() : DialogStep::Cancel());
      m_platform->AddScript(16002, steps);
    }
    m_platform->AddScript(16002, {ExpectRows(16039, {"静", "活1", "活2"}), ExpectRows(16041, {"0.60活2"})});
    Run(*dialog, {DialogStep::Click(nButton), DialogStep::Inspect([&](const IDialogView&) {
                    EXPECT_EQ(combination.flags, LoadCombination().flags);
                    EXPECT_EQ(combination.factors, LoadCombination().factors);
                  }),
                  DialogStep::Click(nButton), DialogStep::Click(nButton), DialogStep::Ok()});
    EXPECT_EQ(combination.flags[2], 1);
    EXPECT_EQ(combination.factors[2], 0.6);
    EXPECT_FALSE(m_platform->HasUnusedScripts());
  };
  check(std::make_unique<CModeDlg>(), 16044);
  check(std::make_unique<CNonlinStaticDlg>(), 16059);
}

}  // namespace
}  // namespace skyframe::test
