#include "DialogTesting.h"
#include "skyframe/dialogs/DynOptionDlg.h"
#include "skyframe/dialogs/EarthquakeDlg.h"
#include "skyframe/dialogs/GeneralLoadDlg.h"
#include "skyframe/dialogs/ImpulseLoadDlg.h"
#include "skyframe/dialogs/NewmarkDlg.h"
#include "skyframe/dialogs/Templates.h"
#include "skyframe/dialogs/WilsonDlg.h"

namespace skyframe::test {
namespace {

/// Number and title, then every control in its order: kind, identifier, text, items.
std::string Describe(const DialogTemplate& layout) {
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

TEST(TimeHistoryTemplates, EveryControl) {
  const std::pair<const DialogTemplate*, const char*> cases[] = {
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
  for (const auto& [pLayout, szControls] : cases) EXPECT_EQ(Describe(*pLayout), szControls);
}

Steps Join(const std::vector<Steps>& parts) {
  Steps steps;
  for (const Steps& part : parts) steps.insert(steps.end(), part.begin(), part.end());
  return steps;
}

// ---- Method dialogs --------------------------------------------------------------------------------------------

TEST_F(Dialogs, TheMethodIsRememberedOnOkOnly) {
  constexpr std::array<int, 2> c_radios = {c_nIdWilson, c_nIdNewmark};
  for (const int nMethod : {1, 0}) {
    const int nRadio = c_radios[static_cast<size_t>(nMethod)];
    CDynOptionDlg dialog;
    Run(dialog, {DialogStep::Choose(nRadio), DialogStep::Cancel()});
    EXPECT_EQ(COMDYN.m_nMethod, 1 - nMethod);
    Run(dialog, {DialogStep::Choose(nRadio), DialogStep::Ok()});
    EXPECT_EQ(COMDYN.m_nMethod, nMethod);
    Run(dialog, {DialogStep::Inspect([nRadio](const IDialogView& view) { EXPECT_TRUE(view.GetCheck(nRadio)); })});
  }
}

using Defaults = std::vector<std::pair<int, const char*>>;

// That values arrive is shown by the runs that are driven through the dialogs.
TEST_F(Dialogs, WilsonAndNewmarkDefaults) {
  CWilsonDlg wilson;
  CNewmarkDlg newmark;
  const std::pair<CDialog*, Defaults> cases[] = {
      {&wilson,
       {{16055, "0.02"},
        {16056, "0.02"},
        {16060, "1.4"},
        {16057, "0.01"},
        {16058, "10"},
        {16083, "0.35"},
        {16080, "0.35"},
        {16081, "0.35"},
        {16082, "0.35"}}},
      {&newmark, {{16055, "0.02"}, {16056, "0.02"}, {16064, "0.25"}, {16061, "0.5"}, {16091, "0.1"}, {16092, "20"}}}};
  for (const auto& [pDialog, defaults] : cases) {
    Steps steps;
    for (const auto& [nId, pszText] : defaults) steps.push_back(ExpectText(nId, pszText));
    Run(*pDialog, steps);
  }
}

TEST_F(Dialogs, NewmarkEnabling) {
  constexpr int c_nImpulse = 16094, c_nQuake = 16095, c_nGeneral = 16115;
  CNewmarkDlg dialog;
  Run(dialog, {ExpectEnabled({c_nImpulse, 16059, 16114}, {16090, 16091, 16092, c_nGeneral, c_nQuake}),
               DialogStep::Tick(16063), DialogStep::Tick(16114),
               ExpectEnabled({c_nGeneral, 16090, 16091, 16092}, {c_nImpulse, c_nQuake}), DialogStep::Tick(16063, false),
               DialogStep::Tick(16114, false), ExpectEnabled({c_nImpulse}, {c_nGeneral, c_nQuake, 16090, 16091, 16092}),
               DialogStep::Choose(16053), ExpectEnabled({c_nQuake}, {c_nGeneral, c_nImpulse}), DialogStep::Tick(16114),
               ExpectEnabled({c_nQuake}, {c_nGeneral, c_nImpulse}), DialogStep::Choose(16052),
               ExpectEnabled({}, {c_nQuake, c_nGeneral, c_nImpulse})});
}

// ---- Load dialogs ----------------------------------------------------------------------------------------------

Steps InsertImpulse(const char* szNode, const char* szDirection, const char* szPeak) {
  return {DialogStep::Type(16109, szNode), DialogStep::Type(16107, szDirection), DialogStep::Type(16108, szPeak),
          DialogStep::Click(16115)};
}

TEST_F(Dialogs, ImpulsesAreListedAndRemoved) {
  CImpulseLoadDlg dialog;
  Run(dialog,
      Join({{ExpectText(16109, "1"), ExpectText(16107, "0"), ExpectText(16108, "0"), ExpectText(16111, "0"),
             ExpectText(16110, "0"), ExpectText(16112, "0.02"), ExpectText(16114, "1"), DialogStep::Click(16113)},
            InsertImpulse("12", "1", "2.5"),
            InsertImpulse("3", "0", "1"),
            InsertImpulse("0", "2", "-0.125"),
            InsertImpulse("-1", "3", "1"),
            InsertImpulse("1", "3", "1"),
            InsertImpulse("1", "-1", "1"),
            InsertImpulse("1", "0", "1,5"),
            {DialogStep::Type(16108, "1"), DialogStep::ToggleRow(16105, 1), DialogStep::Click(16113),
             DialogStep::Click(16113), DialogStep::Ok()}}));
  EXPECT_EQ(dialog.m_rows, (std::vector<ImpulseRow>{{"12", "Y", "2.500000"}, {"0", "Z", "-0.125000"}}));
  EXPECT_EQ(m_platform.GetMessages(),
            (Strings{"节点号小于0，错误", "方向定义错误", "方向定义错误", "请输入一个数字。"}));
}

TEST_F(Dialogs, ACancelledLoadDialogChangesNothing) {
  const Steps impulse = InsertImpulse("4", "2", "10");
  m_platform->AddScript(16009, Join({impulse, {DialogStep::Type(16112, "9"), DialogStep::Cancel()}}));
  m_platform->AddScript(
      16012, {ExpectText(16112, "0.02"), ExpectText(16114, "1"), ExpectText(16074, "1"), ExpectText(16077, "0"),
              ExpectText(16082, "0.35"), DialogStep::Type(16112, "9"), DialogStep::Cancel()});
  m_platform->AddScript(
      16009, Join({impulse, {DialogStep::Type(16111, "0.3"), DialogStep::Type(16110, "0.7"), DialogStep::Ok()}}));
  CNewmarkDlg dialog;
  Run(dialog, {DialogStep::Click(16094), DialogStep::Inspect([&](const IDialogView&) {
                 EXPECT_EQ(dialog.m_dTimeStep, 0.01);
                 EXPECT_TRUE(dialog.m_impulses.empty());
               }),
               DialogStep::Click(16094), DialogStep::Choose(16053), DialogStep::Click(16095), DialogStep::Ok()});
  EXPECT_EQ(dialog.m_strQuakeFile, "");
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
    platform.AddScript(16005, {DialogStep::Click(16094), DialogStep::Ok()});
    platform.AddScript(16009, Join({InsertImpulse("4", "2", "10"), {DialogStep::Choose(16100), DialogStep::Ok()}}));
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
  m_platform->AddScript(16010, {ExpectText(16112, "1"), ExpectText(16114, "0.02"), DialogStep::Cancel()});
  m_platform->AddScript(16010, {DialogStep::Type(16112, "0.03"), DialogStep::Type(16114, "4"), DialogStep::Ok()});
  Run(dialog, {DialogStep::Tick(16114), DialogStep::Click(16115), DialogStep::Inspect([&](const IDialogView&) {
                 EXPECT_EQ(dialog.m_dTimeStep, 0.01);
                 EXPECT_EQ(dialog.m_dDuration, 5.0);
               }),
               DialogStep::Click(16115), DialogStep::Ok()});
  EXPECT_EQ(dialog.m_dTimeStep, 0.03);
  EXPECT_EQ(dialog.m_dDuration, 4.0);
}

TEST_F(Dialogs, EarthquakeEnabling) {
  constexpr int c_nX = c_nIdPeakXLabel, c_nY = c_nIdPeakYLabel, c_nZ = c_nIdPeakZLabel, c_nO = c_nIdPeakObliqueLabel;
  CEarthquakeDlg dialog;
  Run(dialog, {ExpectEnabled({16117, 16112, 16114, 16070, 16071, 16072},
                             {16074, 16077, 16078, 16080, 16081, 16082, 16083, c_nX, c_nY, c_nZ, c_nO}),
               DialogStep::Tick(16071), ExpectEnabled({16081, c_nY}, {16080, 16082, 16083, c_nX, c_nZ, c_nO}),
               DialogStep::Tick(16070), DialogStep::Tick(16072), DialogStep::Tick(16071, false),
               ExpectEnabled({16080, 16082, c_nX, c_nZ}, {16081, c_nY}), DialogStep::Choose(16079),
               ExpectEnabled({16074, 16077, 16078, 16083, c_nO, 16117, 16112},
                             {16070, 16071, 16072, 16080, 16081, 16082, c_nX, c_nY, c_nZ}),
               DialogStep::Choose(16075),
               ExpectEnabled({16070, 16071, 16072, 16080, 16082}, {16074, 16077, 16078, 16081, 16083, c_nO})});
}

TEST_F(Dialogs, AnObliqueDirectionWithoutLengthKeepsTheCosines) {
  // accepted when the square of the length is above 1e-15
  for (const auto& [szX, bAccepted] : {std::pair{"0", false}, {"3e-8", false}, {"4e-8", true}, {"-1e200", true}}) {
    m_platform->Clear();
    CNewmarkDlg dialog;
    dialog.m_dObliqueCoef = {0.0, 0.6, 0.8};
    m_platform->AddScript(16012, {DialogStep::Choose(16079), DialogStep::Type(16074, szX), DialogStep::Type(16114, "3"),
                                  DialogStep::Ok()});
    Run(dialog, {DialogStep::Choose(16053), DialogStep::Click(16095), DialogStep::Ok()});
    EXPECT_EQ(m_platform.GetMessages(), bAccepted ? Strings{} : Strings{"斜方向错误"}) << szX;
    EXPECT_EQ(std::abs(dialog.m_dObliqueCoef[0]), bAccepted ? 1.0 : 0.0) << szX;
    EXPECT_EQ(dialog.m_dObliqueCoef[1], bAccepted ? 0.0 : 0.6) << szX;
    EXPECT_EQ(dialog.m_dDuration, 3.0) << "the rest is taken over";
  }
}

}  // namespace
}  // namespace skyframe::test
