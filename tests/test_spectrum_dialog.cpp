#include <gtest/gtest.h>

#include <array>

#include "DialogTesting.h"
#include "skyframe/dialogs/Resource.h"
#include "skyframe/dialogs/SpectrumDlg.h"

namespace skyframe {
namespace {

using test::Dialogs;
using test::Steps;
using test::Strings;

constexpr std::array<int, 6> c_intensities = {16010, 16049, 16047, 16011, 16048, 16012};

TEST(SpectrumTemplate, TextsAndRadioOrder) {
  using enum ControlKind;
  test::ExpectControls(c_spectrumTemplate, 16001, "谱分析",
                       {{16127, DropList, "保存为"},
                        {16009, Edit, "网格划分:"},
                        {16006, Edit, "扩展模态:"},
                        {16022, Edit, "x向:"},
                        {16028, Edit, "y向:"},
                        {16029, Edit, "z向:"},
                        {16015, Radio, "Ⅰ类"},
                        {16016, Radio, "Ⅱ类"},
                        {16017, Radio, "Ⅲ类"},
                        {16018, Radio, "Ⅳ类"},
                        {16019, Radio, "一区"},
                        {16020, Radio, "二区"},
                        {16021, Radio, "三区"},
                        {16010, Radio, "6度(0.05g)"},
                        {16049, Radio, "7度(0.10g)"},
                        {16047, Radio, "7度(0.15g)"},
                        {16011, Radio, "8度(0.20g)"},
                        {16048, Radio, "8度(0.30g)"},
                        {16012, Radio, "9度(0.40g)"},
                        {16013, Radio, "多遇地震"},
                        {16014, Radio, "罕遇地震"},
                        {16007, Edit, "阻尼率:"},
                        {16025, Radio, "SRSS"},
                        {16026, Radio, "CQC"},
                        {16027, Radio, "GRP"},
                        {16050, Check, "是否组合虚拟模态"},
                        {16051, Edit, "地震拟静力荷载序号"},
                        {16030, Button, "设定荷载代表值"}});
  EXPECT_EQ(test::GetItems(c_spectrumTemplate, 16127),
            (Strings{"X向水平地震", "Y向水平地震", "Z向竖向地震", "斜向水平地震"}));
  EXPECT_EQ(c_spectrumTemplate.GetRadioGroup(16010), std::vector<int>(c_intensities.begin(), c_intensities.end()));
  EXPECT_EQ(c_spectrumTemplate.GetRadioGroup(16015), (std::vector<int>{16015, 16016, 16017, 16018}));
  EXPECT_EQ(c_spectrumTemplate.GetRadioGroup(16019), (std::vector<int>{16019, 16020, 16021}));
  EXPECT_EQ(c_spectrumTemplate.GetRadioGroup(16013), (std::vector<int>{16013, 16014}));
  EXPECT_EQ(c_spectrumTemplate.GetRadioGroup(16025), (std::vector<int>{16025, 16026, 16027}));
}

TEST_F(Dialogs, SpectrumDefaultsOfTheMembers) {
  const CSpectrumDlg dialog;
  EXPECT_EQ(dialog.m_nMeshDiv, 5);
  EXPECT_EQ(dialog.m_nExpandModes, 10);
  EXPECT_EQ(dialog.m_dDirCoef, (std::array<double, 3>{1.0, 0.0, 0.0}));
  EXPECT_EQ(dialog.m_nSite, 2);
  EXPECT_EQ(dialog.m_nIntensity, 1);
  EXPECT_EQ(dialog.m_dDampRatio, 0.02);
}

TEST_F(Dialogs, SpectrumSettingsComeFromTheRecord) {
  COMDYN.m_nMeshDiv = 8;
  COMDYN.m_nExpandModes = 3;
  COMDYN.m_dDirCoef[0] = 0.6;
  COMDYN.m_dDirCoef[1] = 0.8;
  COMDYN.m_dDirCoef[2] = 0.65;
  COMDYN.m_nSiteClass = 4;
  COMDYN.m_nZoneGroup = 3;
  COMDYN.m_nIntensity = 10;
  COMDYN.m_nQuakeLevel = 1;
  COMDYN.m_dDampRatio = 0.05;
  COMDYN.m_nCombMethod = 2;
  COMDYN.m_nSaveAs = 3;
  COMDYN.m_dDesignAcceleration = 0.123;
  CSpectrumDlg dialog;
  Run(dialog, {DialogStep::Inspect([](const IDialogView& view) {
                 const std::array<const char*, 6> texts = {"8", "3", "0.6", "0.8", "0.65", "0.05"};
                 for (int i = 0; const int nId : {16009, 16006, 16022, 16028, 16029, 16007}) {
                   EXPECT_EQ(view.GetText(nId), texts[static_cast<size_t>(i++)]);
                 }
                 for (const int nId : {16018, 16021, 16048, 16014, 16027}) EXPECT_TRUE(view.GetCheck(nId)) << nId;
                 EXPECT_EQ(view.GetCurrent(16127), 0) << "always the first item";
                 EXPECT_FALSE(view.GetCheck(16050));
                 EXPECT_EQ(view.GetText(16051), "0");
               }),
               test::ExpectEnabled({16009, 16030}, {16050, 16051, 16127})});
  EXPECT_EQ(dialog.m_dDesignAcceleration, 0.123);
}

TEST_F(Dialogs, SpectrumOkStoresEverything) {
  COMDYN.m_bSaveAs[2] = 1;
  CSpectrumDlg dialog;
  EXPECT_EQ(Run(dialog, {DialogStep::Type(16009, "7"), DialogStep::Type(16006, "15"), DialogStep::Type(16022, "0.5"),
                         DialogStep::Type(16028, "-0.25"), DialogStep::Type(16029, "0.125"), DialogStep::Choose(16015),
                         DialogStep::Choose(16020), DialogStep::Choose(16011), DialogStep::Choose(16014),
                         DialogStep::Type(16007, "0"), DialogStep::Choose(16026), DialogStep::Ok()}),
            c_nIdOk);
  EXPECT_EQ(COMDYN.m_nMeshDiv, 7);
  EXPECT_EQ(COMDYN.m_nExpandModes, 15);
  EXPECT_EQ(COMDYN.m_dDirCoef[0], 0.5);
  EXPECT_EQ(COMDYN.m_dDirCoef[1], -0.25);
  EXPECT_EQ(COMDYN.m_dDirCoef[2], 0.125);
  EXPECT_EQ(COMDYN.m_nSiteClass, 1);
  EXPECT_EQ(COMDYN.m_nZoneGroup, 2);
  EXPECT_EQ(COMDYN.m_nIntensity, 9);
  EXPECT_EQ(COMDYN.m_nQuakeLevel, 1);
  EXPECT_EQ(COMDYN.m_dDampRatio, 0.0);
  EXPECT_EQ(COMDYN.m_nCombMethod, 1);
  EXPECT_EQ(COMDYN.m_dDesignAcceleration, 0.20);
  EXPECT_EQ(COMDYN.m_nSaveAs, 0);
  EXPECT_EQ(COMDYN.m_bSaveAs[0], 1);
  EXPECT_EQ(COMDYN.m_bSaveAs[1], 0);
  EXPECT_EQ(COMDYN.m_bSaveAs[2], 1) << "a flag of an earlier run stays";
  EXPECT_EQ(dialog.m_nSite, 0);
  EXPECT_EQ(dialog.m_nZone, 1);
  EXPECT_EQ(dialog.m_nIntensity, 3);
}

TEST_F(Dialogs, SpectrumIntensityGivesTheDesignAcceleration) {
  constexpr std::array<double, 6> c_accelerations = {0.05, 0.10, 0.15, 0.20, 0.30, 0.40};
  for (size_t i = 0; i < c_intensities.size(); ++i) {
    CSpectrumDlg dialog;
    Run(dialog, {DialogStep::Choose(c_intensities[i]), DialogStep::Ok()});
    EXPECT_EQ(dialog.m_dDesignAcceleration, c_accelerations[i]);
    EXPECT_EQ(COMDYN.m_nIntensity, static_cast<int>(i) + 6);
  }
  COMDYN.m_nIntensity = 12;
  CSpectrumDlg dialog;
  Run(dialog, {DialogStep::Ok()});
  EXPECT_EQ(dialog.m_nIntensity, -1);
  EXPECT_EQ(COMDYN.m_dDesignAcceleration, 0.05) << "an index outside the six";
}

TEST_F(Dialogs, SpectrumCancelOrWrongFieldStoresNothing) {
  CSpectrumDlg dialog;
  Run(dialog, {DialogStep::Type(16009, "7"), DialogStep::Cancel()});
  Run(dialog, {DialogStep::Type(16009, "7"), DialogStep::Type(16007, "2%"), DialogStep::Ok()});
  EXPECT_EQ(COMDYN.m_nMeshDiv, 5);
  EXPECT_EQ(COMDYN.m_bSaveAs[0], 0);
  EXPECT_EQ(m_platform.GetMessages(), Strings{"请输入一个数字。"});
}

TEST_F(Dialogs, SpectrumLoadValuesAreChosenAnewEveryTime) {
  CSpectrumDlg dialog;
  dialog.m_loadComb.nLoadTypes = 3;
  m_platform->AddScript(16002, {DialogStep::Type(16046, "0.5"), DialogStep::DoubleClick(16039, 1), DialogStep::Ok()});
  m_platform->AddScript(16002, {DialogStep::DoubleClick(16039, 0), DialogStep::Cancel()});
  Run(dialog, {DialogStep::Click(16030), DialogStep::Click(16030), DialogStep::Ok()});
  EXPECT_EQ(dialog.m_loadComb.flags[0], 0);
  EXPECT_EQ(dialog.m_loadComb.flags[1], 1);
  EXPECT_EQ(dialog.m_loadComb.factors[1], 0.5);
  Run(dialog, {DialogStep::Ok()});
  EXPECT_EQ(dialog.m_loadComb.flags[1], 0);
  EXPECT_EQ(dialog.m_loadComb.factors[1], 0.5);
}

}  // namespace
}  // namespace skyframe
