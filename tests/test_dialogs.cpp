#include "../platform/src/ScriptedView.h"
#include "AllDialogs.h"

namespace skyframe::test {
namespace {

/// Fresh host records, scripted dialogs; no script may ask for what a person could not do.
class Dialogs : public testing::Test {
 protected:
  Dialogs() { ResetHostData(); }
  ~Dialogs() override { EXPECT_EQ(m_platform->GetScriptErrors(), Strings{}); }

  int Run(CDialog& dialog, Steps steps) {
    m_platform->AddScript(dialog.GetTemplate().nId, std::move(steps));
    return dialog.DoModal();
  }

  CTestPlatform m_platform;
};

/// What the controls show, in their order: texts, rows of drop lists, x or - for marks, b and l for buttons and
/// labels; in brackets what is disabled.
DialogStep ExpectState(const DialogTemplate& layout, std::string strExpected) {
  return Do::Inspect([&layout, strExpected = std::move(strExpected)](const IDialogView& view) {
    std::string strState;
    for (const auto& [nId, kind, strText, rect, nStyle, items] : layout.controls) {
      const bool bMark = kind == ControlKind::Radio || kind == ControlKind::Check;
      if (nId <= c_nIdCancel || kind == ControlKind::ListBox || kind == ControlKind::ListView) continue;
      const std::string strShown = kind == ControlKind::Edit       ? view.GetText(nId)
                                   : kind == ControlKind::DropList ? std::to_string(view.GetCurrent(nId))
                                   : bMark                         ? (view.GetCheck(nId) ? "x" : "-")
                                   : kind == ControlKind::Label    ? "l"
                                                                   : "b";
      strState += (strState.empty() ? "" : " ") + (view.IsEnabled(nId) ? strShown : "(" + strShown + ")");
    }
    EXPECT_EQ(strState, strExpected) << layout.strTitle;
  });
}

// ---- Templates -------------------------------------------------------------------------------------------------

TEST(Templates, RadioButtonsFormGroups) {
  for (const DialogTemplate* pLayout : GetDialogTemplates()) {
    for (const ControlTemplate& control : pLayout->controls) {
      if (control.kind != ControlKind::Radio) continue;
      const ControlTemplate* const pFirst = pLayout->Find(pLayout->GetGroupStart(control.nId));
      EXPECT_TRUE(pFirst != nullptr && (pFirst->nStyle & c_nStyleGroup) != 0U) << control.nId;
    }
  }
}

TEST(Templates, ControlsStandInLine) {
  for (const DialogTemplate* pLayout : GetDialogTemplates()) {
    for (const ControlTemplate& a : pLayout->controls) {
      const bool bField = a.kind == ControlKind::Edit || a.kind == ControlKind::DropList;
      EXPECT_TRUE(!bField || (&a - 1)->rect.nY - a.rect.nY == 2) << pLayout->nId << ": " << a.nId << " and its label";
      for (const ControlTemplate& b : pLayout->controls) {
        const int offsets[] = {a.rect.nX - b.rect.nX, a.rect.nY - b.rect.nY,
                               a.rect.nX + a.rect.nWidth - b.rect.nX - b.rect.nWidth};
        for (const int nOffset : offsets)
          EXPECT_TRUE(nOffset != 1 || a.kind != b.kind) << pLayout->nId << ": " << a.nId;
      }
    }
  }
}

/// Number and title, then every control in its order: kind, identifier, text, items.
std::string DescribeAll(const DialogTemplate& layout) {
  constexpr std::string_view c_strKinds = "LGERCBODSV";
  std::ostringstream strm;
  strm << layout.nId << ' ' << layout.strTitle;
  for (const ControlTemplate& control : layout.controls) {
    strm << " | " << c_strKinds[static_cast<size_t>(control.kind)];
    if (control.nId > 0) strm << control.nId;
    strm << ' ' << control.strText;
    for (const std::string_view strItem : control.items) strm << strItem << ' ';
  }
  return strm.str();
}

TEST(Templates, EveryControl) {
  const std::pair<const DialogTemplate*, const char*> cases[] = {
      {&c_modeTemplate,
       "16000 模态分析 | L 所需总模态数: | E16000  | G 丢根判断: | R16001 STURM法 | R16002 模态比较法 | L 计算精度: | "
       "E16003  | L 迭代倍数: | E16004  | C16005 考虑剪切变形 | B16044 荷载组合 | O1 确认 | B2 取消"},
      {&c_nonlinStaticTemplate,
       "16007 非线性静力分析 | L 收敛准则 | D16090 绝对值力 绝对值位移 相对值力 相对值位移  | L 最大迭代步数 | E16092  "
       "| L 收敛容差 | E16091  | C16063 考虑非线性 | B16059 荷载组合 | O1 OK | B2 Cancel"},
      {&c_loadCombTemplate,
       "16002 荷载组合 | S16039  | S16041  | B16042 添加 | B16043 删除 | L16045 折减系数: | E16046  | O1 确定 | B2 "
       "取消"},
      {&c_spectrumTemplate,
       "16001 谱分析 | L 保存为 | D16127 X向水平地震 Y向水平地震 Z向竖向地震 斜向水平地震  | L 网格划分: | E16009  | L "
       "扩展模态: | E16006  | G 地震方向系数 | L x向: | E16022  | L y向: | E16028  | L z向: | E16029  | G 场地类别 | "
       "R16015 Ⅰ类 | R16016 Ⅱ类 | R16017 Ⅲ类 | R16018 Ⅳ类 | G 特征分区 | R16019 一区 | R16020 二区 | R16021 三区 | G "
       "地震烈度 | R16010 6度(0.05g) | R16049 7度(0.10g) | R16047 7度(0.15g) | R16011 8度(0.20g) | R16048 8度(0.30g) | "
       "R16012 9度(0.40g) | G 地震水准 | R16013 多遇地震 | R16014 罕遇地震 | L 阻尼率: | E16007  | G 组合方法 | R16025 "
       "SRSS | R16026 CQC | R16027 GRP | C16050 是否组合虚拟模态 | L 地震拟静力荷载序号 | E16051  | B16030 "
       "设定荷载代表值 | O1 确认 | B2 取消"},
      {&c_hisResultTemplate,
       "16006 时程计算结果输出 | R16118 节点位移(mm) | R16119 单元轴力(kN) | L 节点号码 | E16120  | G 自由度方向 | "
       "R16121 X | R16122 Y | R16123 Z | L 单元号码 | E16124  | B16125 刷 新 | B16126 输出到文件 | O1 OK | B2 Cancel"},
      {&c_dynOptionTemplate,
       "16003 动力计算选项 | G 计算方法 | R16065 Wilson(限冲击) | R16066 Newmark | O1 确认 | B2 取消"},
      {&c_wilsonTemplate,
       "16004 Wilson法 | G 阻尼率 | L 第一阶 | E16055  | L 第二阶 | E16056  | G 计算参数 | L θ的取值 | E16060  | "
       "G 时间选项 | L 时间步长(s) | E16057  | L 响应时长(s) | E16058  | C16063 考虑非线性 | G 地震峰值 | L 斜 | "
       "E16083  | L X | E16080  | L Y | E16081  | L Z | E16082  | B16059 荷载组合 | O1 确认 | B2 取消"},
      {&c_newmarkTemplate,
       "16005 Newmark法 | G 荷载类型 | R16052 节点荷载力 | R16053 地震动 | G 阻尼率 | L 第一阶 | E16055  | "
       "L 第二阶 | E16056  | G 计算参数 | L α的取值 | E16064  | L δ的取值 | E16061  | C16063 考虑非线性 | "
       "G 非线性选项 | L 收敛准则 | D16090 绝对值力 绝对值位移 相对值力 相对值位移  | L 收敛容差 | E16091  | "
       "L 最大迭代步数 | E16092  | C16114 荷载/加速度信息从文件中读取 | G 荷载属性 | B16094 冲击荷载属性 | "
       "B16095 地震属性 | B16115 一般荷载属性 | B16059 荷载组合 | O1 确认 | B2 取消"},
      {&c_impulseLoadTemplate,
       "16009 特殊冲击荷载属性 | G 冲击类型 | R16099 三角冲击 | R16100 矩形冲击 | G 冲击特征 | L 节点号码 | E16109  | "
       "L 作用方向 | E16107  | L 峰值大小(kN) | E16108  | L 峰值时刻(s) | E16111  | L 卸载时刻(s) | E16110  | "
       "G 时间选项 | L 步长(s) | E16112  | L 响应时长(s) | E16114  | V16105 节点号 作用方向 峰值  | B16115 插入 | "
       "B16113 删除 | O1 确认 | B2 取消"},
      {&c_generalLoadTemplate,
       "16010 一般荷载属性 | G 荷载特征 | L 步长(s) | E16112  | L 响应时长(s) | E16114  | O1 确认 | B2 取消"},
      {&c_earthquakeTemplate,
       "16012 地震属性 | L 标准地震波 | D16117 El-Centro  | G 时间选项 | L 步长(s) | E16112  | L 响应时长(s) | E16114  "
       "| "
       "G 地震选项 | R16075 正向地震 | R16079 斜向地震 | C16070 X | C16071 Y | C16072 Z | L X分量 | E16074  | L Y分量 "
       "| "
       "E16077  | L Z分量 | E16078  | G 地震峰值 | L16084 X | E16080  | L16085 Y | E16081  | L16086 Z | E16082  | "
       "L16087 斜 | E16083  | O1 确认 | B2 取消"}};
  for (const auto& [pLayout, szControls] : cases) EXPECT_EQ(DescribeAll(*pLayout), szControls);
  for (const int nId : {16039, 16041}) {
    EXPECT_EQ(c_loadCombTemplate.Find(nId)->nStyle & (c_nStyleSorted | c_nStyleMultiple),
              c_nStyleSorted | c_nStyleMultiple);
  }
  EXPECT_GT(c_loadCombTemplate.Find(16039)->rect.nX, c_loadCombTemplate.Find(16041)->rect.nX);
}

// ---- Values of the controls ------------------------------------------------------------------------------------

// That values arrive is shown by the runs that are driven through the dialogs.
TEST_F(Dialogs, ShowTheirDefaults) {
  const std::pair<std::shared_ptr<CDialog>, const char*> cases[] = {
      {std::make_shared<CModeDlg>(), "10 x - 1e-16 6 - b"},
      {std::make_shared<CNonlinStaticDlg>(), "0 20 0.1 x b"},
      {std::make_shared<CSpectrumDlg>(), "(0) 5 10 1 0 0 - - x - x - - - x - - - - x - 0.02 x - - (-) (0) b"},
      {std::make_shared<CDynOptionDlg>(), "x -"},
      {std::make_shared<CWilsonDlg>(), "0.02 0.02 1.4 0.01 10 - 0.35 0.35 0.35 0.35 b"},
      {std::make_shared<CNewmarkDlg>(), "x - 0.02 0.02 0.25 0.5 - (0) (0.1) (20) - b (b) (b) b"},
      {std::make_shared<CImpulseLoadDlg>(), "x - 1 0 0 0 0 0.02 1 b b"},
      {std::make_shared<CGeneralLoadDlg>(), "1 0.02"},
      {std::make_shared<CEarthquakeDlg>(),
       "0 0.02 1 x - - - - (1) (0) (0) (l) (0.35) (l) (0.35) (l) (0.35) (l) (0.35)"}};
  for (const auto& [pDialog, szState] : cases) Run(*pDialog, {ExpectState(pDialog->GetTemplate(), szState)});
}

TEST_F(Dialogs, ModalSettingsComeFromTheRecordAndReturn) {
  COMDYN.m_nModes = 25;
  COMDYN.m_nRootCheck = 1;
  COMDYN.m_dModeTol = 1.0e-8;  // the accuracy always starts anew
  COMDYN.m_nIterMultiple = 4;
  COMDYN.m_bShear = 1;
  CModeDlg dialog;
  EXPECT_EQ(Run(dialog, {ExpectState(c_modeTemplate, "25 - x 1e-16 4 x b"), Do::Type(16000, "12"), Do::Choose(16001),
                         Do::Type(16003, "1e-10"), Do::Type(16004, "8"), Do::Tick(16005, false), Do::Ok()}),
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
  Run(dialog, {Do::Type(16000, "12"), Do::Cancel()});
  Run(dialog, {Do::Type(16000, "12"), Do::Type(16003, "small"), Do::Ok(), Do::Wait(5000)});
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

// ---- Load combination ------------------------------------------------------------------------------------------

DialogStep ExpectRows(int nListId, const Strings& rows) {
  return Do::Inspect([nListId, rows](const IDialogView& view) {
    Strings shown;
    for (const int nId : {16039, 16041}) {
      for (int i = 0; i < view.GetItemCount(nId); ++i) {
        if (nId == nListId) shown.push_back(view.GetItemText(nId, i));
        EXPECT_FALSE(view.IsSelected(nId, i)) << nId << ", row " << i;
      }
    }
    EXPECT_EQ(shown, rows);
  });
}

class LoadComb : public Dialogs {
 protected:
  LoadComb() { m_dialog.m_loadComb.nLoadTypes = 12; }
  int Run(Steps steps) { return Dialogs::Run(m_dialog, std::move(steps)); }

  CLoadCombDlg m_dialog;
  LoadCombination& m_combination = m_dialog.m_loadComb;
};

TEST_F(LoadComb, TypesStandInTheirOrderAndDoubleClicksRemoveThem) {
  m_combination.flags[10] = 1;
  m_combination.flags[9] = 1;
  m_combination.flags[0] = 1;
  m_combination.factors[9] = 0.666;
  Run({ExpectRows(16039, {"静", "活1", "活2", "活3", "活4", "活5", "活6", "活7", "活8", "活9", "活10", "活11"}),
       ExpectRows(16041, {"1.00静", "0.67活9", "1.00活10"}), Do::DoubleClick(16041, 1), Do::ToggleRow(16039, 4),
       Do::DoubleClick(16039, 4), ExpectRows(16041, {"1.00静", "1.00活10"})});
}

TEST_F(LoadComb, TypesTakeTheFactorOfTheirAdditionAndKeepItWhenRemoved) {
  EXPECT_EQ(Run({Do::Type(16046, "0.7"), Do::ToggleRow(16039, "活2"), Do::ToggleRow(16039, 5), Do::Click(16042),
                 Do::Type(16046, "1.2"), Do::ToggleRow(16039, "静"), Do::ToggleRow(16039, "活2"), Do::Click(16042),
                 ExpectRows(16041, {"1.20静", "0.70活2", "0.70活5"}), Do::ToggleRow(16041, "0.70活2"), Do::Click(16043),
                 ExpectRows(16041, {"1.20静", "0.70活5"}), Do::ToggleRow(16041, "0.70活5"), Do::Click(16043),
                 ExpectRows(16041, {"1.20静"}), Do::Ok()}),
            c_nIdOk);
  EXPECT_EQ(m_combination.flags[0] + 10 * m_combination.flags[1] + 100 * m_combination.flags[2] +
                1000 * m_combination.flags[5],
            1);
  EXPECT_EQ(std::tuple(m_combination.factors[0], m_combination.factors[1], m_combination.factors[2],
                       m_combination.factors[5]),
            std::tuple(1.2, 1.0, 0.7, 0.7));
}

TEST_F(LoadComb, TwentyTypesAreTakenAndNoMore) {
  m_combination.nLoadTypes = 20;
  Steps steps;
  for (int i = 19; i >= 0; --i) steps.push_back(Do::DoubleClick(16039, i));
  steps.push_back(Do::Ok());
  EXPECT_EQ(Run(std::move(steps)), c_nIdOk);
  EXPECT_EQ(std::count(m_combination.flags.begin(), m_combination.flags.end(), 1), 20);

  m_combination.nLoadTypes = 21;
  Run({ExpectRows(16039, {}), ExpectRows(16041, {}), Do::Click(16042), Do::Click(16043)});
  EXPECT_EQ(m_platform.GetMessages(), Strings{"荷载类型过多,计算终止!"});
  EXPECT_EQ(std::count(m_combination.flags.begin(), m_combination.flags.end(), 1), 20);
}

TEST_F(Dialogs, ButtonsOpenTheCombinationAndOnlyOkTakesItOver) {
  const Steps c_add = {Do::Type(16046, "0.6"), Do::DoubleClick(16039, 2)};
  const auto check = [&](auto dialog, int nButton, double dFactor) {
    LoadCombination& combination = dialog->m_loadComb;
    combination.nLoadTypes = 3;
    combination.flags[1] = 1;  // opening clears the combination
    combination.factors[1] = 0.5;
    for (const bool bOk : {false, true}) {
      Steps steps = c_add;
      steps.push_back(bOk ? Do::Ok() : Do::Cancel());
      m_platform->AddScript(16002, steps);
    }
    m_platform->AddScript(16002, {ExpectRows(16039, {"静", "活1", "活2"}), ExpectRows(16041, {"0.60活2"})});
    Run(*dialog, {Do::Click(nButton), Do::Inspect([&](const IDialogView&) {
                    EXPECT_EQ(combination.flags, LoadCombination().flags);
                    EXPECT_EQ(std::accumulate(combination.factors.begin(), combination.factors.end(), 0.0),
                              19 + dFactor);
                  }),
                  Do::Click(nButton), Do::Click(nButton), Do::Ok()});
    EXPECT_EQ(combination.flags[2], 1);
    EXPECT_EQ(combination.factors[2], 0.6);
    EXPECT_FALSE(m_platform->HasUnusedScripts());
  };
  check(std::make_unique<CModeDlg>(), 16044, 1.0);
  check(std::make_unique<CNonlinStaticDlg>(), 16059, 1.0);
  check(std::make_unique<CSpectrumDlg>(), 16030, 0.5);
}

TEST_F(Dialogs, SpectrumOkStoresEverythingAndTheNextOneShowsIt) {
  COMDYN.m_bSaveAs[2] = 1;
  COMDYN.m_nSaveAs = 3;
  CSpectrumDlg dialog;
  EXPECT_EQ(Run(dialog, {Do::Type(16009, "7"), Do::Type(16006, "15"), Do::Type(16022, "0.5"), Do::Type(16028, "-0.25"),
                         Do::Type(16029, "0.125"), Do::Choose(16015), Do::Choose(16020), Do::Choose(16011),
                         Do::Choose(16014), Do::Type(16007, "0"), Do::Choose(16026), Do::Ok()}),
            c_nIdOk);
  // Deliberate: the save-as flag of an earlier run (the last) stays
  EXPECT_EQ(std::to_array(COMDYN.m_bSaveAs), (std::array{1, 0, 1, 0}));
  EXPECT_EQ(COMDYN.m_nSaveAs, 0);
  COMDYN.m_dDesignAcceleration = 0.123;
  CSpectrumDlg next;
  Run(next,
      {ExpectState(c_spectrumTemplate, "(0) 7 15 0.5 -0.25 0.125 x - - - - x - - - - x - - - x 0 - x - (-) (0) b"),
       Do::Cancel()});
  EXPECT_EQ(next.DesignAcceleration, 0.123);
}

TEST_F(Dialogs, SpectrumIntensityGivesTheDesignAcceleration) {
  CSpectrumDlg dialog;
  for (int nExpected = 6;
       const auto& [nId, dAcceleration] :
       {std::pair{16010, 0.05}, {16049, 0.10}, {16047, 0.15}, {16011, 0.20}, {16048, 0.30}, {16012, 0.40}}) {
    Run(dialog, {Do::Choose(nId), Do::Ok()});
    EXPECT_EQ(dialog.DesignAcceleration, dAcceleration);
    EXPECT_EQ(COMDYN.m_nIntensity, nExpected++);
  }
  COMDYN.m_nIntensity = 12;
  Run(dialog, {Do::Ok()});
  EXPECT_EQ(COMDYN.m_nIntensity, 5);
  EXPECT_EQ(COMDYN.m_dDesignAcceleration, 0.05) << "an index outside the six";
}

TEST_F(Dialogs, SpectrumCancelOrWrongFieldStoresNothing) {
  CSpectrumDlg dialog;
  Run(dialog, {Do::Type(16009, "7"), Do::Cancel()});
  Run(dialog, {Do::Type(16009, "7"), Do::Type(16007, "2%"), Do::Ok()});
  EXPECT_EQ(COMDYN.m_nMeshDiv, 5);
  EXPECT_EQ(m_platform.GetMessages(), Strings{"请输入一个数字。"});
}

Steps Join(const std::vector<Steps>& parts) {
  Steps steps;
  for (const Steps& part : parts) steps.insert(steps.end(), part.begin(), part.end());
  return steps;
}

// ---- Method dialogs --------------------------------------------------------------------------------------------

TEST_F(Dialogs, TheMethodIsRememberedOnOkOnly) {
  CDynOptionDlg dialog;
  Run(dialog, {Do::Choose(c_nIdNewmark), Do::Cancel()});
  EXPECT_EQ(COMDYN.m_nMethod, 0);
  Run(dialog, {Do::Choose(c_nIdNewmark), Do::Ok()});
  EXPECT_EQ(COMDYN.m_nMethod, 1);
  Run(dialog, {ExpectState(c_dynOptionTemplate, "- x"), Do::Choose(c_nIdWilson), Do::Ok()});
  EXPECT_EQ(COMDYN.m_nMethod, 0);
}

TEST_F(Dialogs, NewmarkEnabling) {
  CNewmarkDlg dialog;
  Run(dialog,
      {Do::Tick(16063), Do::Tick(16114),
       ExpectState(c_newmarkTemplate, "x - 0.02 0.02 0.25 0.5 x 0 0.1 20 x (b) (b) b b"), Do::Tick(16063, false),
       Do::Tick(16114, false), ExpectState(c_newmarkTemplate, "x - 0.02 0.02 0.25 0.5 - (0) (0.1) (20) - b (b) (b) b"),
       Do::Choose(16053), ExpectState(c_newmarkTemplate, "- x 0.02 0.02 0.25 0.5 - (0) (0.1) (20) - (b) b (b) b"),
       Do::Tick(16114), ExpectState(c_newmarkTemplate, "- x 0.02 0.02 0.25 0.5 - (0) (0.1) (20) x (b) b (b) b"),
       Do::Choose(16052), ExpectState(c_newmarkTemplate, "x - 0.02 0.02 0.25 0.5 - (0) (0.1) (20) x (b) (b) (b) b")});
}

// ---- Load dialogs ----------------------------------------------------------------------------------------------

Steps InsertImpulse(const char* szNode, const char* szDirection, const char* szPeak) {
  return {Do::Type(16109, szNode), Do::Type(16107, szDirection), Do::Type(16108, szPeak), Do::Click(16115)};
}

TEST_F(Dialogs, ImpulsesAreListedAndRemoved) {
  CImpulseLoadDlg dialog;
  Run(dialog, Join({{Do::Click(16113)},
                    InsertImpulse("12", "1", "2.5"),
                    InsertImpulse("3", "0", "1"),
                    InsertImpulse("0", "2", "-0.125"),
                    InsertImpulse("-1", "3", "1"),
                    InsertImpulse("1", "3", "1"),
                    InsertImpulse("1", "-1", "1"),
                    InsertImpulse("1", "0", "1,5"),
                    {Do::Type(16108, "1"), Do::ToggleRow(16105, 1), Do::Click(16113), Do::Click(16113), Do::Ok()}}));
  EXPECT_EQ(dialog.m_rows, (std::vector<ImpulseRow>{{"12", "Y", "2.500000"}, {"0", "Z", "-0.125000"}}));
  EXPECT_EQ(m_platform.GetMessages(),
            (Strings{"节点号小于0，错误", "方向定义错误", "方向定义错误", "请输入一个数字。"}));
}

TEST_F(Dialogs, ACancelledLoadDialogChangesNothing) {
  const Steps impulse = InsertImpulse("4", "2", "10");
  m_platform->AddScript(16009, Join({impulse, {Do::Type(16112, "9"), Do::Cancel()}}));
  m_platform->AddScript(16012, {Do::Type(16112, "9"), Do::Cancel()});
  m_platform->AddScript(16009, Join({impulse, {Do::Type(16111, "0.3"), Do::Type(16110, "0.7"), Do::Ok()}}));
  CNewmarkDlg dialog;
  Run(dialog, {Do::Click(16094), Do::Inspect([&](const IDialogView&) {
                 EXPECT_EQ(dialog.m_dTimeStep, 0.01);
                 EXPECT_TRUE(dialog.m_impulses.empty());
               }),
               Do::Click(16094), Do::Choose(16053), Do::Click(16095), Do::Ok()});
  EXPECT_EQ(dialog.m_quake.m_strQuakeFile, "");
  EXPECT_EQ(dialog.m_dTimeStep, 0.02);
  EXPECT_EQ(dialog.m_dImpulseTime, 0.3) << "the peak of a triangle";
}

/// Platform whose impulse list holds a damaged row when the dialog is closed.
class CDamagedRowPlatform : public CHeadlessPlatform {
 public:
  using CHeadlessPlatform::CHeadlessPlatform;
  int RunModal(CDialog& dialog) override {
    const int nResult = CHeadlessPlatform::RunModal(dialog);
    if (auto* pImpulses = dynamic_cast<CImpulseLoadDlg*>(&dialog)) pImpulses->m_rows.push_back(m_row);
    return nResult;
  }
  ImpulseRow m_row;
};

TEST_F(Dialogs, ImpulsesThatCannotBeTakenOverChangeNothing) {
  for (const ImpulseRow& row : {ImpulseRow{"1", "?", "1"}, ImpulseRow{"1.5", "X", "1"}, ImpulseRow{"1", "X", ""}}) {
    std::ostringstream strmOut;
    CDamagedRowPlatform platform(strmOut, strmOut);
    platform.m_row = row;
    IPlatform* const pPrevious = InstallPlatform(&platform);
    platform.AddScript(16005, {Do::Click(16094), Do::Ok()});
    platform.AddScript(16009, Join({InsertImpulse("4", "2", "10"), {Do::Choose(16100), Do::Ok()}}));
    CNewmarkDlg dialog;
    dialog.DoModal();
    InstallPlatform(pPrevious);
    EXPECT_EQ(platform.GetMessages(), Strings{"荷载信息输入错误"});
    EXPECT_TRUE(dialog.m_impulses.empty());
    EXPECT_EQ(dialog.m_nImpulseType, 0);
    EXPECT_EQ(dialog.m_dTimeStep, 0.01);
  }
}

TEST_F(Dialogs, GeneralLoadHasItsDefaultsSwapped) {
  CNewmarkDlg dialog;
  m_platform->AddScript(16010, {Do::Cancel()});
  m_platform->AddScript(16010, {Do::Type(16112, "0.03"), Do::Type(16114, "4"), Do::Ok()});
  Run(dialog, {Do::Tick(16114), Do::Click(16115), Do::Inspect([&](const IDialogView&) {
                 EXPECT_EQ(dialog.m_dTimeStep, 0.01);
                 EXPECT_EQ(dialog.m_dDuration, 5.0);
               }),
               Do::Click(16115), Do::Ok()});
  EXPECT_EQ(dialog.m_dTimeStep, 0.03);
  EXPECT_EQ(dialog.m_dDuration, 4.0);
}

TEST_F(Dialogs, EarthquakeEnabling) {
  CEarthquakeDlg dialog;
  Run(dialog,
      {Do::Tick(16071),
       ExpectState(c_earthquakeTemplate, "0 0.02 1 x - - x - (1) (0) (0) (l) (0.35) l 0.35 (l) (0.35) (l) (0.35)"),
       Do::Tick(16070), Do::Tick(16072), Do::Tick(16071, false),
       ExpectState(c_earthquakeTemplate, "0 0.02 1 x - x - x (1) (0) (0) l 0.35 (l) (0.35) l 0.35 (l) (0.35)"),
       Do::Choose(16079),
       ExpectState(c_earthquakeTemplate, "0 0.02 1 - x (x) (-) (x) 1 0 0 (l) (0.35) (l) (0.35) (l) (0.35) l 0.35"),
       Do::Choose(16075),
       ExpectState(c_earthquakeTemplate, "0 0.02 1 x - x - x (1) (0) (0) l 0.35 (l) (0.35) l 0.35 (l) (0.35)")});
}

TEST_F(Dialogs, AnObliqueDirectionWithoutLengthKeepsTheCosines) {
  // accepted when the square of the length is above 1e-15
  for (const auto& [szX, bAccepted] : {std::pair{"0", false}, {"3e-8", false}, {"4e-8", true}, {"-1e200", true}}) {
    m_platform->Clear();
    CNewmarkDlg dialog;
    dialog.m_quake.m_dObliqueCoef = {0.0, 0.6, 0.8};
    m_platform->AddScript(16012, {Do::Choose(16079), Do::Type(16074, szX), Do::Type(16114, "3"), Do::Ok()});
    Run(dialog, {Do::Choose(16053), Do::Click(16095), Do::Ok()});
    EXPECT_EQ(m_platform.GetMessages(), bAccepted ? Strings{} : Strings{"斜方向错误"}) << szX;
    EXPECT_EQ(std::abs(dialog.m_quake.m_dObliqueCoef[0]), bAccepted ? 1.0 : 0.0) << szX;
    EXPECT_EQ(dialog.m_quake.m_dObliqueCoef[1], bAccepted ? 0.0 : 0.6) << szX;
    EXPECT_EQ(dialog.m_dDuration, 3.0) << "the rest is taken over";
  }
}

// ---- Result viewer ---------------------------------------------------------------------------------------------

class ViewerDialog : public Dialogs {
 protected:
  void Run(Steps steps) {
    CHisResultDlg dialog(m_histories);
    Dialogs::Run(dialog, std::move(steps));
    CPaintRecorder recorder;
    dialog.Paint(recorder);
  }

  CFakeHistories m_histories;
};

TEST_F(ViewerDialog, RefreshShowsAndOutputWritesTheSelection) {
  Run({Do::Ok()});
  EXPECT_FALSE(m_histories.m_plotted.back());
  Run({Do::Click(c_nIdOutput), Do::Type(c_nIdHistoryNode, "5"), Do::Choose(c_nIdHistoryZ), Do::Click(c_nIdRefresh),
       Do::Ok()});
  EXPECT_EQ(m_histories.m_plotted.back(), (HistorySelection{false, 5, 2}));
  EXPECT_TRUE(m_platform.GetMessages().empty());
  m_histories.m_bWritable = false;
  Run({Do::Choose(c_nIdElementHistory), Do::Type(c_nIdHistoryElement, "3"), Do::Click(c_nIdRefresh),
       Do::Click(c_nIdOutput), Do::Ok()});
  EXPECT_EQ(m_histories.m_plotted.back(), (HistorySelection{true, 3, 0}));
  EXPECT_EQ(m_histories.m_written, (std::vector<HistorySelection>{{false, 1, 0}, {true, 3, 0}}));
  EXPECT_EQ(m_platform.GetMessages(), Strings{"结果文件无法写入!"});
}

TEST_F(ViewerDialog, NumbersThatTheModelDoesNotHave) {
  const struct {
    int nRadio, nField;
    const char *strNumber, *strMessage;
  } cases[] = {{c_nIdNodeHistory, c_nIdHistoryNode, "6", "错误: 没有所求节点"},
               {c_nIdNodeHistory, c_nIdHistoryNode, "0", "错误: 没有所求节点"},
               {c_nIdElementHistory, c_nIdHistoryElement, "4", "错误: 没有所求单元"},
               {c_nIdElementHistory, c_nIdHistoryElement, "-1", "错误: 没有所求单元"}};
  for (const auto& c : cases) {
    m_platform->Clear();
    Run({Do::Click(c_nIdRefresh), Do::Choose(c.nRadio), Do::Type(c.nField, c.strNumber), Do::Click(c_nIdRefresh),
         Do::Click(c_nIdOutput), Do::Ok()});
    EXPECT_EQ(m_platform.GetMessages(), std::vector<std::string>(2, c.strMessage));
    EXPECT_EQ(m_histories.m_plotted.back(), (HistorySelection{false, 1, 0})) << "the picture stays";
  }
  EXPECT_TRUE(m_histories.m_written.empty());
}

TEST(ViewerTemplate, LeavesRoomForThePlot) {
  for (const ControlTemplate& control : c_hisResultTemplate.controls) {
    EXPECT_LT(1.9 * (control.rect.nX + control.rect.nWidth), 170.0);  // pixels at most
  }
  EXPECT_GE(1.5 * c_hisResultTemplate.nWidth, 651.0);  // pixels at least
  EXPECT_GE(1.5 * c_hisResultTemplate.nHeight, 280.0);
}

}  // namespace
}  // namespace skyframe::test
