#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <sstream>
#include <string>
#include <vector>

#include "DialogTesting.h"
#include "skyframe/dialogs/DynOptionDlg.h"
#include "skyframe/dialogs/EarthquakeDlg.h"
#include "skyframe/dialogs/GeneralLoadDlg.h"
#include "skyframe/dialogs/ImpulseLoadDlg.h"
#include "skyframe/dialogs/NewmarkDlg.h"
#include "skyframe/dialogs/Resource.h"
#include "skyframe/dialogs/WilsonDlg.h"

namespace skyframe {
namespace {

using test::Dialogs;
using test::ExpectEnabled;
using test::ExpectText;
using test::Steps;
using test::Strings;

TEST(TimeHistoryTemplates, TextsOfTheMethodDialogs) {
  using enum ControlKind;
  test::ExpectControls(c_dynOptionTemplate, 16003, "动力计算选项",
                       {{c_nIdWilson, Radio, "Wilson(限冲击)"}, {c_nIdNewmark, Radio, "Newmark"}});
  test::ExpectControls(c_wilsonTemplate, 16004, "Wilson法",
                       {{16055, Edit, "第一阶"},
                        {16056, Edit, "第二阶"},
                        {16060, Edit, "θ的取值"},
                        {16057, Edit, "时间步长(s)"},
                        {16058, Edit, "响应时长(s)"},
                        {16063, Check, "考虑非线性"},
                        {16083, Edit, "斜"},
                        {16080, Edit, "X"},
                        {16081, Edit, "Y"},
                        {16082, Edit, "Z"},
                        {16059, Button, "荷载组合"},
                        {1, DefaultButton, "确认"},
                        {2, Button, "取消"}});
  test::ExpectControls(c_newmarkTemplate, 16005, "Newmark法",
                       {{16052, Radio, "节点荷载力"},
                        {16053, Radio, "地震动"},
                        {16055, Edit, "第一阶"},
                        {16056, Edit, "第二阶"},
                        {16064, Edit, "α的取值"},
                        {16061, Edit, "δ的取值"},
                        {16063, Check, "考虑非线性"},
                        {16090, DropList, "收敛准则"},
                        {16091, Edit, "收敛容差"},
                        {16092, Edit, "最大迭代步数"},
                        {16114, Check, "荷载/加速度信息从文件中读取"},
                        {16094, Button, "冲击荷载属性"},
                        {16095, Button, "地震属性"},
                        {16115, Button, "一般荷载属性"},
                        {16059, Button, "荷载组合"}});
  EXPECT_EQ(test::GetItems(c_newmarkTemplate, 16090), (Strings{"绝对值力", "绝对值位移", "相对值力", "相对值位移"}));
}

TEST(TimeHistoryTemplates, TextsOfTheLoadDialogs) {
  using enum ControlKind;
  test::ExpectControls(c_impulseLoadTemplate, 16009, "特殊冲击荷载属性",
                       {{16099, Radio, "三角冲击"},
                        {16100, Radio, "矩形冲击"},
                        {16109, Edit, "节点号码"},
                        {16107, Edit, "作用方向"},
                        {16108, Edit, "峰值大小(kN)"},
                        {16111, Edit, "峰值时刻(s)"},
                        {16110, Edit, "卸载时刻(s)"},
                        {16112, Edit, "步长(s)"},
                        {16114, Edit, "响应时长(s)"},
                        {16105, ListView, ""},
                        {16115, Button, "插入"},
                        {16113, Button, "删除"}});
  EXPECT_EQ(test::GetItems(c_impulseLoadTemplate, 16105), (Strings{"节点号", "作用方向", "峰值"}));
  test::ExpectControls(c_generalLoadTemplate, 16010, "一般荷载属性",
                       {{16112, Edit, "步长(s)"}, {16114, Edit, "响应时长(s)"}});
  test::ExpectControls(c_earthquakeTemplate, 16012, "地震属性",
                       {{16117, DropList, "标准地震波"},
                        {16112, Edit, "步长(s)"},
                        {16114, Edit, "响应时长(s)"},
                        {16075, Radio, "正向地震"},
                        {16079, Radio, "斜向地震"},
                        {16070, Check, "X"},
                        {16071, Check, "Y"},
                        {16072, Check, "Z"},
                        {16080, Edit, "X"},
                        {16081, Edit, "Y"},
                        {16082, Edit, "Z"},
                        {16083, Edit, "斜"}});
  EXPECT_EQ(test::GetItems(c_earthquakeTemplate, 16117), Strings{"El-Centro"});
  const std::vector<std::pair<const DialogTemplate*, Strings>> groups = {
      {&c_dynOptionTemplate, {"计算方法"}},
      {&c_wilsonTemplate, {"阻尼率", "计算参数", "时间选项", "地震峰值"}},
      {&c_newmarkTemplate, {"荷载类型", "阻尼率", "计算参数", "非线性选项", "荷载属性"}},
      {&c_generalLoadTemplate, {"荷载特征"}},
      {&c_earthquakeTemplate, {"时间选项", "地震选项", "地震峰值"}}};
  for (const auto& [pLayout, expected] : groups) {
    Strings titles;
    for (const ControlTemplate& control : pLayout->controls) {
      if (control.kind == Group) titles.emplace_back(control.strText);
    }
    EXPECT_EQ(titles, expected);
  }
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

TEST_F(Dialogs, WilsonFieldsAndDefaults) {
  const std::vector<std::pair<int, const char*>> defaults = {{16055, "0.02"}, {16056, "0.02"}, {16060, "1.4"},
                                                             {16057, "0.01"}, {16058, "10"},   {16083, "0.35"},
                                                             {16080, "0.35"}, {16081, "0.35"}, {16082, "0.35"}};
  Steps steps;
  for (const auto& [nId, szText] : defaults) steps.push_back(ExpectText(nId, szText));
  for (size_t i = 0; i < defaults.size(); ++i) {
    steps.push_back(DialogStep::Type(defaults[i].first, std::to_string(i + 1)));
  }
  steps.push_back(DialogStep::Tick(16063));
  steps.push_back(DialogStep::Click(16059));
  steps.push_back(DialogStep::Ok());
  m_platform->AddScript(16002, {DialogStep::DoubleClick(16039, 1), DialogStep::Ok()});
  CWilsonDlg dialog;
  dialog.m_loadComb.nLoadTypes = 2;
  EXPECT_EQ(Run(dialog, std::move(steps)), c_nIdOk);
  EXPECT_EQ(dialog.m_dDamping, (std::array<double, 2>{1.0, 2.0}));
  EXPECT_EQ(dialog.m_dTheta, 3.0);
  EXPECT_EQ(dialog.m_dTimeStep, 4.0);
  EXPECT_EQ(dialog.m_dDuration, 5.0);
  EXPECT_EQ(dialog.m_dPeakOblique, 6.0);
  EXPECT_EQ(dialog.m_dPeak, (std::array<double, 3>{7.0, 8.0, 9.0}));
  EXPECT_EQ(dialog.m_bNonlinear, 1);
  EXPECT_EQ(dialog.m_loadComb.flags[1], 1);
  Run(dialog, {DialogStep::Ok()});
  EXPECT_EQ(dialog.m_loadComb.flags[1], 0) << "opening clears the combination";
}

TEST_F(Dialogs, NewmarkFieldsAndDefaults) {
  const std::vector<std::pair<int, const char*>> defaults = {{16055, "0.02"}, {16056, "0.02"}, {16064, "0.25"},
                                                             {16061, "0.5"},  {16091, "0.1"},  {16092, "20"}};
  Steps steps;
  for (const auto& [nId, szText] : defaults) steps.push_back(ExpectText(nId, szText));
  steps.push_back(DialogStep::Tick(16063));
  for (size_t i = 0; i < defaults.size(); ++i) {
    steps.push_back(DialogStep::Type(defaults[i].first, std::to_string(i + 1)));
  }
  steps.insert(steps.end(), {DialogStep::ChooseItem(16090, 2), DialogStep::Tick(16114), DialogStep::Choose(16053),
                             DialogStep::Click(16059), DialogStep::Ok()});
  m_platform->AddScript(16002, {DialogStep::DoubleClick(16039, 0), DialogStep::Ok()});
  CNewmarkDlg dialog;
  EXPECT_EQ(dialog.m_dTimeStep, 0.01);
  EXPECT_EQ(dialog.m_dDuration, 5.0);
  dialog.m_loadComb.nLoadTypes = 2;
  EXPECT_EQ(Run(dialog, std::move(steps)), c_nIdOk);
  EXPECT_EQ(dialog.m_dDamping, (std::array<double, 2>{1.0, 2.0}));
  EXPECT_EQ(dialog.m_dAlpha, 3.0);
  EXPECT_EQ(dialog.m_dDelta, 4.0);
  EXPECT_EQ(dialog.m_dTolerance, 5.0);
  EXPECT_EQ(dialog.m_nMaxIter, 6);
  EXPECT_EQ(dialog.m_nCriterion, 2);
  EXPECT_EQ(dialog.m_bNonlinear, 1);
  EXPECT_EQ(dialog.m_bFromFile, 1);
  EXPECT_EQ(dialog.m_nLoadType, 1);
  EXPECT_EQ(dialog.m_loadComb.flags[0], 1);
  Run(dialog, {DialogStep::Ok()});
  EXPECT_EQ(dialog.m_loadComb.flags[0], 0) << "opening clears the combination";
}

TEST_F(Dialogs, NewmarkEnabling) {
  constexpr int c_nImpulse = 16094, c_nQuake = 16095, c_nGeneral = 16115;
  CNewmarkDlg dialog;
  Run(dialog, {
                  ExpectEnabled({c_nImpulse, 16059, 16114}, {16090, 16091, 16092, c_nGeneral, c_nQuake}),
                  DialogStep::Tick(16063),
                  ExpectEnabled({16090, 16091, 16092}, {}),
                  DialogStep::Tick(16063, false),
                  ExpectEnabled({}, {16090, 16091, 16092}),
                  DialogStep::Tick(16114),
                  ExpectEnabled({c_nGeneral}, {c_nImpulse, c_nQuake}),
                  DialogStep::Tick(16114, false),
                  ExpectEnabled({c_nImpulse}, {c_nGeneral, c_nQuake}),
                  DialogStep::Choose(16053),
                  ExpectEnabled({c_nQuake}, {c_nGeneral, c_nImpulse}),
                  DialogStep::Tick(16114),
                  ExpectEnabled({c_nQuake}, {c_nGeneral, c_nImpulse}),
                  DialogStep::Choose(16052),
                  ExpectEnabled({}, {c_nQuake, c_nGeneral, c_nImpulse}),
                  DialogStep::Tick(16114, false),
                  ExpectEnabled({c_nImpulse}, {c_nQuake, c_nGeneral}),
              });
}

// ---- Load dialogs ----------------------------------------------------------------------------------------------

DialogStep ExpectList(const std::vector<Strings>& rows) {
  return DialogStep::Inspect([rows](const IDialogView& view) {
    ASSERT_EQ(view.GetItemCount(16105), static_cast<int>(rows.size()));
    for (int i = 0; const Strings& row : rows) {
      for (int nColumn = 0; const std::string& strCell : row) EXPECT_EQ(view.GetItemText(16105, i, nColumn++), strCell);
      ++i;
    }
  });
}

Steps InsertImpulse(const char* szNode, const char* szDirection, const char* szPeak) {
  return {DialogStep::Type(16109, szNode), DialogStep::Type(16107, szDirection), DialogStep::Type(16108, szPeak),
          DialogStep::Click(16115)};
}

Steps Join(const std::vector<Steps>& parts) {
  Steps steps;
  for (const Steps& part : parts) steps.insert(steps.end(), part.begin(), part.end());
  return steps;
}

TEST_F(Dialogs, ImpulsesAreListedAndRemoved) {
  CImpulseLoadDlg dialog;
  const std::vector<Strings> both = {{"12", "Y", "2.500000"}, {"0", "Z", "-0.125000"}};
  EXPECT_EQ(Run(dialog, Join({{ExpectText(16109, "1"), ExpectText(16107, "0"), ExpectText(16108, "0"),
                               ExpectText(16111, "0"), ExpectText(16110, "0"), ExpectText(16112, "0.02"),
                               ExpectText(16114, "1"), DialogStep::Click(16113)},
                              InsertImpulse("12", "1", "2.5"),
                              InsertImpulse("3", "0", "1"),
                              InsertImpulse("0", "2", "-0.125"),
                              {DialogStep::ToggleRow(16105, 1), DialogStep::Click(16113), ExpectList(both),
                               DialogStep::Click(16113), ExpectList(both), DialogStep::Ok()}})),
            c_nIdOk);
  ASSERT_EQ(dialog.m_rows.size(), 2U);
  EXPECT_EQ(dialog.m_rows[0], (ImpulseRow{"12", "Y", "2.500000"}));
  EXPECT_TRUE(m_platform.GetMessages().empty());
}

TEST_F(Dialogs, WrongImpulsesAreNotListed) {
  CImpulseLoadDlg dialog;
  Run(dialog, Join({InsertImpulse("-1", "0", "1"),
                    InsertImpulse("1", "3", "1"),
                    InsertImpulse("1", "-1", "1"),
                    InsertImpulse("-1", "3", "1"),
                    InsertImpulse("a", "0", "1"),
                    InsertImpulse("1", "0", "1,5"),
                    {ExpectList({})}}));
  EXPECT_EQ(m_platform.GetMessages(), (Strings{"节点号小于0，错误", "方向定义错误", "方向定义错误", "节点号小于0，错误",
                                               "请输入一个整数。", "请输入一个数字。"}));
}

TEST(ImpulseRows, OnlyWholeRowsAreUnderstood) {
  const std::optional<ImpulseLoad> load = ParseImpulseRow({"7", "Z", "-1.500000"});
  ASSERT_TRUE(load.has_value());
  EXPECT_EQ(load->nNode, 7);
  EXPECT_EQ(load->nDirection, 2);
  EXPECT_EQ(load->dPeak, -1.5);
  for (const ImpulseRow& row : {ImpulseRow{"", "X", "1"}, ImpulseRow{"1", "", "1"}, ImpulseRow{"1", "W", "1"},
                                ImpulseRow{"1", "X", ""}, ImpulseRow{"1.5", "X", "1"}}) {
    EXPECT_FALSE(ParseImpulseRow(row).has_value()) << row[0] << row[1] << row[2];
  }
}

TEST_F(Dialogs, NewmarkTakesTheImpulsesOver) {
  const std::vector<Steps> c_list = {InsertImpulse("4", "2", "10"),
                                     InsertImpulse("5", "0", "-3"),
                                     {DialogStep::Type(16111, "0.3"), DialogStep::Type(16110, "0.7"),
                                      DialogStep::Type(16112, "0.05"), DialogStep::Type(16114, "2")}};
  for (const bool bRectangular : {false, true}) {
    CNewmarkDlg dialog;
    m_platform->AddScript(16009,
                          Join({Join(c_list), {DialogStep::Choose(bRectangular ? 16100 : 16099), DialogStep::Ok()}}));
    m_platform->AddScript(16009, {DialogStep::Type(16112, "9"), DialogStep::Cancel()});
    EXPECT_EQ(Run(dialog, {DialogStep::Click(16094), DialogStep::Click(16094), DialogStep::Ok()}), c_nIdOk);
    ASSERT_EQ(dialog.m_impulses.size(), 2U);
    EXPECT_EQ(dialog.m_impulses[0].nNode, 4);
    EXPECT_EQ(dialog.m_impulses[0].nDirection, 2);
    EXPECT_EQ(dialog.m_impulses[0].dPeak, 10.0);
    EXPECT_EQ(dialog.m_impulses[1].dPeak, -3.0);
    EXPECT_EQ(dialog.m_nImpulseType, bRectangular ? 1 : 0);
    EXPECT_EQ(dialog.m_dImpulseTime, bRectangular ? 0.7 : 0.3);
    EXPECT_EQ(dialog.m_dTimeStep, 0.05);
    EXPECT_EQ(dialog.m_dDuration, 2.0);
  }
}

/// Platform whose impulse list holds a damaged row when the dialog is closed.
class CDamagedRowPlatform : public CHeadlessPlatform {
 public:
  using CHeadlessPlatform::CHeadlessPlatform;
  int RunModal(CDialog& dialog) override {
    const int nResult = CHeadlessPlatform::RunModal(dialog);
    if (auto* pImpulses = dynamic_cast<CImpulseLoadDlg*>(&dialog)) pImpulses->m_rows.push_back({"1", "?", "1"});
    return nResult;
  }
};

TEST_F(Dialogs, ImpulsesThatCannotBeTakenOverChangeNothing) {
  std::ostringstream strmOut;
  CDamagedRowPlatform platform(strmOut, strmOut);
  IPlatform* const pPrevious = InstallPlatform(&platform);
  platform.AddScript(16005, {DialogStep::Click(16094), DialogStep::Ok()});
  platform.AddScript(16009, Join({InsertImpulse("4", "2", "10"), {DialogStep::Choose(16100), DialogStep::Ok()}}));
  CNewmarkDlg dialog;
  EXPECT_EQ(dialog.DoModal(), c_nIdOk);
  InstallPlatform(pPrevious);
  EXPECT_EQ(platform.GetMessages(), Strings{"荷载信息输入错误"});
  EXPECT_TRUE(dialog.m_impulses.empty());
  EXPECT_EQ(dialog.m_nImpulseType, 0);
  EXPECT_EQ(dialog.m_dTimeStep, 0.01);
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
  Run(dialog, {
                  ExpectEnabled({16117, 16112, 16114, 16070, 16071, 16072},
                                {16074, 16077, 16078, 16080, 16081, 16082, 16083, c_nX, c_nY, c_nZ, c_nO}),
                  DialogStep::Tick(16071),
                  ExpectEnabled({16081, c_nY}, {16080, 16082, 16083, c_nX, c_nZ, c_nO}),
                  DialogStep::Tick(16070),
                  DialogStep::Tick(16072),
                  DialogStep::Tick(16071, false),
                  ExpectEnabled({16080, 16082, c_nX, c_nZ}, {16081, c_nY}),
                  DialogStep::Choose(16079),
                  ExpectEnabled({16074, 16077, 16078, 16083, c_nO, 16117, 16112},
                                {16070, 16071, 16072, 16080, 16081, 16082, c_nX, c_nY, c_nZ}),
                  DialogStep::Choose(16075),
                  ExpectEnabled({16070, 16071, 16072, 16080, 16082}, {16074, 16077, 16078, 16081, 16083, c_nO}),
              });
}

TEST_F(Dialogs, NewmarkTakesTheEarthquakeOver) {
  g_ProgramPath = "C:\\Program";
  CNewmarkDlg dialog;
  m_platform->AddScript(
      16012, {ExpectText(16112, "0.02"), ExpectText(16114, "1"), ExpectText(16074, "1"), ExpectText(16077, "0"),
              ExpectText(16082, "0.35"), DialogStep::Inspect([](const IDialogView& view) {
                EXPECT_EQ(view.GetCurrent(16117), 0);
                EXPECT_TRUE(view.GetCheck(16075));
              }),
              DialogStep::Type(16112, "0.01"), DialogStep::Type(16114, "20"), DialogStep::Tick(16070),
              DialogStep::Tick(16072), DialogStep::Type(16080, "1.5"), DialogStep::Type(16082, "2.5"),
              DialogStep::Choose(16079), DialogStep::Type(16074, "3"), DialogStep::Type(16077, "-4"),
              DialogStep::Type(16078, "12"), DialogStep::Type(16083, "0.7"), DialogStep::Ok()});
  EXPECT_EQ(Run(dialog, {DialogStep::Choose(16053), DialogStep::Click(16095), DialogStep::Ok()}), c_nIdOk);
  EXPECT_EQ(dialog.m_strQuakeFile, "C:\\Program\\GroundAccData\\Elcentro.txt");
  EXPECT_EQ(dialog.m_dTimeStep, 0.01);
  EXPECT_EQ(dialog.m_dDuration, 20.0);
  EXPECT_EQ(dialog.m_nQuakeMode, 1);
  EXPECT_EQ(dialog.m_bQuakeDir, (std::array<int, 3>{1, 0, 1}));
  EXPECT_EQ(dialog.m_dPeak, (std::array<double, 3>{1.5, 0.35, 2.5}));
  EXPECT_EQ(dialog.m_dPeakOblique, 0.7);
  const std::array<double, 3> expected = {3.0 / 13.0, -4.0 / 13.0, 12.0 / 13.0};
  for (size_t i = 0; i < 3; ++i) EXPECT_NEAR(dialog.m_dObliqueCoef[i], expected[i], 1e-15);
}

TEST_F(Dialogs, AnObliqueDirectionWithoutLengthKeepsTheCosines) {
  struct Case {
    const char* szX;
    bool bAccepted;  ///< the square of the length is above 1e-15
  };
  for (const Case& c : {Case{"0", false}, Case{"3e-8", false}, Case{"4e-8", true}, Case{"-1e200", true}}) {
    m_platform->Clear();
    CNewmarkDlg dialog;
    dialog.m_dObliqueCoef = {0.0, 0.6, 0.8};
    m_platform->AddScript(16012, {DialogStep::Choose(16079), DialogStep::Type(16074, c.szX),
                                  DialogStep::Type(16114, "3"), DialogStep::Ok()});
    Run(dialog, {DialogStep::Choose(16053), DialogStep::Click(16095), DialogStep::Ok()});
    EXPECT_EQ(m_platform.GetMessages(), c.bAccepted ? Strings{} : Strings{"斜方向错误"}) << c.szX;
    EXPECT_EQ(std::abs(dialog.m_dObliqueCoef[0]), c.bAccepted ? 1.0 : 0.0) << c.szX;
    EXPECT_EQ(dialog.m_dObliqueCoef[1], c.bAccepted ? 0.0 : 0.6) << c.szX;
    EXPECT_EQ(dialog.m_dDuration, 3.0) << "the rest is taken over";
  }
}

TEST_F(Dialogs, CancelledEarthquakeChangesNothing) {
  CNewmarkDlg dialog;
  m_platform->AddScript(16012, {DialogStep::Type(16112, "9"), DialogStep::Cancel()});
  Run(dialog, {DialogStep::Choose(16053), DialogStep::Click(16095), DialogStep::Ok()});
  EXPECT_EQ(dialog.m_dTimeStep, 0.01);
  EXPECT_EQ(dialog.m_strQuakeFile, "");
}

}  // namespace
}  // namespace skyframe
