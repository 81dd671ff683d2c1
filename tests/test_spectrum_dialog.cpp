#include "DialogTesting.h"
#include "skyframe/dialogs/SpectrumDlg.h"
#include "skyframe/dialogs/Templates.h"

namespace skyframe::test {
namespace {

constexpr std::array<int, 6> c_intensities = {16010, 16049, 16047, 16011, 16048, 16012};

TEST(SpectrumTemplate, TextsAndRadioOrder) {
  using enum ControlKind;
  const std::vector<ExpectedControl> controls = {{16127, DropList, "保存为"},
                                                 {16009, Edit, "网格划分:"},
                                                 {16006, Edit, "扩展模态:"},
                                                 {16022, Edit, "x向:"},
                                                 {16028, Edit, "y向:"},
                                                 {16029, Edit, "z向:"},
                                                 {16007, Edit, "阻尼率:"},
                                                 {16051, Edit, "地震拟静力荷载序号"},
                                                 {16050, Check, "是否组合虚拟模态"},
                                                 {16030, Button, "设定荷载代表值"}};
  ExpectControls(c_spectrumTemplate, 16001, "谱分析", controls);
  EXPECT_EQ(GetItems(c_spectrumTemplate, 16127),
            (Strings{"X向水平地震", "Y向水平地震", "Z向竖向地震", "斜向水平地震"}));
  const std::pair<std::vector<int>, Strings> groups[] = {
      {{16015, 16016, 16017, 16018}, {"Ⅰ类", "Ⅱ类", "Ⅲ类", "Ⅳ类"}},
      {{16019, 16020, 16021}, {"一区", "二区", "三区"}},
      {{c_intensities.begin(), c_intensities.end()},
       {"6度(0.05g)", "7度(0.10g)", "7度(0.15g)", "8度(0.20g)", "8度(0.30g)", "9度(0.40g)"}},
      {{16013, 16014}, {"多遇地震", "罕遇地震"}},
      {{16025, 16026, 16027}, {"SRSS", "CQC", "GRP"}}};
  for (const auto& [ids, texts] : groups) {
    EXPECT_EQ(c_spectrumTemplate.GetRadioGroup(ids[0]), ids);
    for (std::size_t i = 0; i < ids.size(); ++i) EXPECT_EQ(c_spectrumTemplate.Find(ids[i])->strText, texts[i]);
  }
}

/// What the dialog keeps in the record, as one row.
std::vector<double> GetRecord() {
  const tagComDynamic& r = COMDYN;
  return {1.0 * r.m_nMeshDiv,    1.0 * r.m_nExpandModes, r.m_dDirCoef[0],       r.m_dDirCoef[1],
          r.m_dDirCoef[2],       1.0 * r.m_nSiteClass,   1.0 * r.m_nZoneGroup,  1.0 * r.m_nIntensity,
          1.0 * r.m_nQuakeLevel, r.m_dDampRatio,         1.0 * r.m_nCombMethod, r.m_dDesignAcceleration,
          1.0 * r.m_nSaveAs,     1.0 * r.m_bSaveAs[0],   1.0 * r.m_bSaveAs[1],  1.0 * r.m_bSaveAs[2]};
}

TEST_F(Dialogs, SpectrumOkStoresEverythingAndTheNextOneShowsIt) {
  COMDYN.m_bSaveAs[2] = 1;
  COMDYN.m_nSaveAs = 3;
  CSpectrumDlg dialog;
  EXPECT_EQ(Run(dialog, {DialogStep::Type(16009, "7"), DialogStep::Type(16006, "15"), DialogStep::Type(16022, "0.5"),
                         DialogStep::Type(16028, "-0.25"), DialogStep::Type(16029, "0.125"), DialogStep::Choose(16015),
                         DialogStep::Choose(16020), DialogStep::Choose(16011), DialogStep::Choose(16014),
                         DialogStep::Type(16007, "0"), DialogStep::Choose(16026), DialogStep::Ok()}),
            c_nIdOk);
  // Deliberate: the save-as flag of an earlier run (the last) stays
  const std::vector<double> expected = {7, 15, 0.5, -0.25, 0.125, 1, 2, 9, 1, 0.0, 1, 0.20, 0, 1, 0, 1};
  EXPECT_EQ(GetRecord(), expected);
  COMDYN.m_dDesignAcceleration = 0.123;
  CSpectrumDlg next;
  Run(next, {DialogStep::Inspect([](const IDialogView& view) {
               Strings texts;
               for (const int nId : {16009, 16006, 16022, 16028, 16029, 16007, 16051})
                 texts.push_back(view.GetText(nId));
               EXPECT_EQ(texts, (Strings{"7", "15", "0.5", "-0.25", "0.125", "0", "0"}));
               for (const int nId : {16015, 16020, 16011, 16014, 16026}) EXPECT_TRUE(view.GetCheck(nId)) << nId;
               EXPECT_EQ(view.GetCurrent(16127), 0) << "always the first item";
               EXPECT_FALSE(view.GetCheck(16050));
             }),
             ExpectEnabled({16009, 16030}, {16050, 16051, 16127}), DialogStep::Cancel()});
  EXPECT_EQ(next.m_dDesignAcceleration, 0.123);
}

TEST_F(Dialogs, SpectrumIntensityGivesTheDesignAcceleration) {
  constexpr std::array<double, 6> c_accelerations = {0.05, 0.10, 0.15, 0.20, 0.30, 0.40};
  CSpectrumDlg dialog;
  for (size_t i = 0; i < c_intensities.size(); ++i) {
    Run(dialog, {DialogStep::Choose(c_intensities[i]), DialogStep::Ok()});
    EXPECT_EQ(dialog.m_dDesignAcceleration, c_accelerations[i]);
    EXPECT_EQ(COMDYN.m_nIntensity, static_cast<int>(i) + 6);
  }
  COMDYN.m_nIntensity = 12;
  Run(dialog, {DialogStep::Ok()});
  EXPECT_EQ(dialog.m_nIntensity, -1);
  EXPECT_EQ(COMDYN.m_dDesignAcceleration, 0.05) << "an index outside the six";
}

TEST_F(Dialogs, SpectrumCancelOrWrongFieldStoresNothing) {
  const CSpectrumDlg fresh;
  EXPECT_EQ((std::array{fresh.m_nMeshDiv, fresh.m_nExpandModes, fresh.m_nSite, fresh.m_nZone, fresh.m_nIntensity}),
            (std::array{5, 10, 2, 0, 1}));
  EXPECT_EQ(fresh.m_dDampRatio, 0.02);
  const std::vector<double> before = GetRecord();
  CSpectrumDlg dialog;
  Run(dialog, {DialogStep::Type(16009, "7"), DialogStep::Cancel()});
  Run(dialog, {DialogStep::Type(16009, "7"), DialogStep::Type(16007, "2%"), DialogStep::Ok()});
  EXPECT_EQ(GetRecord(), before);
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
  Run(dialog, {DialogStep::Ok()});
  EXPECT_EQ(dialog.m_loadComb.flags[1], 0);
  EXPECT_EQ(dialog.m_loadComb.factors[1], 0.5);
}

}  // namespace
}  // namespace skyframe::test
