// Ground-motion records: reading, scaling, choice of the file, the acceleration vector.

#include "TestPlatform.h"
#include "skyframe/history/GroundMotion.h"
#include "skyframe/model/AnalysisModel.h"

namespace skyframe::test {
namespace {

std::vector<double> ReadText(const std::string& strText, double dPeak) {
  std::istringstream strm(strText);
  return ReadAccelerationRecord(strm, dPeak);
}

TEST(AccelerationRecord, StandardRecord) {
  CTestPlatform platform;
  const auto record = ReadAccelerationRecord(SKYFRAME_SOURCE_DIR "\\data\\GroundAccData\\Elcentro.txt", 0.35);
  ASSERT_TRUE(record && record->size() == 1559U);
  EXPECT_DOUBLE_EQ(std::abs(record->at(101)), 0.35);
}

TEST(AccelerationRecord, ScaledToThePeak) {
  const struct {
    std::string strText;
    double dPeak;
    std::vector<double> values;
  } cases[] = {
      {"1 -2\n0.5\t4\r\n", 8.0, {2.0, -4.0, 1.0, 8.0}},
      {"1 2 end 4", 2.0, {1.0, 2.0}},
      {"1 2 nan 4", 2.0, {1.0, 2.0}},
      {"0.31882e+0 -.5E-1", 0.31882, {0.31882, -0.05}},
      {"+1.5.2 1E+1-2e-400 3e 4", 10.0, {1.5, 0.2, 10.0, 0.0}},
      {"1 1e999 4", 1.0, {1.0}},
      {"", 1.0, {}},
  };
  for (const auto& c : cases) {
    const std::vector<double> record = ReadText(c.strText, c.dPeak);
    ASSERT_EQ(record.size(), c.values.size()) << c.strText;
    for (std::size_t i = 0; i < record.size(); ++i) EXPECT_DOUBLE_EQ(record[i], c.values[i]) << c.strText;
  }
  EXPECT_TRUE(std::isnan(ReadText("0 0 0", 1.0).at(2)));  // zeros are not guarded
}

/// Settings with a file for every choice; the file of a direction holds its own number of values.
class GroundMotion : public testing::Test {
 protected:
  GroundMotion() {
    m_folder.Write("_Xacc.txt", "1");
    m_folder.Write("_Yacc.txt", "1 1");
    m_folder.Write("_Zacc.txt", "1 1 1");
    m_folder.Write("_Tacc.txt", "1 -2 1 1");
    m_folder.Write("_std.txt", "1 1 1 1 -2");
    m_settings.m_dPeak = {10.0, 20.0, 30.0};
    m_settings.m_dPeakOblique = 40.0;
    m_settings.m_dObliqueCoef = {0.6, 0.0, -0.8};
  }

  CTestPlatform m_platform;
  const CJobFolder m_folder{"acceleration"};
  QuakeSettings m_settings;
  CGroundMotion m_motion;
};

TEST_F(GroundMotion, FileAndPeakOfEveryChoice) {
  const struct {
    int nMode;
    std::array<int, 3> directions;
    bool bFromFile;
    std::array<std::size_t, 3> lengths;
    std::array<double, 3> first;
    const char* strMessage;  ///< when the file is missing
  } cases[] = {{0, {1, 1, 1}, true, {1, 0, 0}, {10, 0, 0}, "X方向加速度数据文件读入有误"},
               {0, {0, 1, 1}, true, {0, 2, 0}, {0, 20, 0}, "Y方向加速度数据文件读入有误"},
               {0, {0, 0, 1}, true, {0, 0, 3}, {0, 0, 30}, "Z方向加速度数据文件读入有误"},
               {1, {0, 0, 0}, true, {4, 4, 4}, {12, 0, -16}, "斜方向加速度数据文件读入有误"},
               {0, {0, 1, 0}, false, {0, 5, 0}, {0, 10, 0}, "Y方向加速度数据文件读入有误"},
               {1, {1, 0, 0}, false, {5, 5, 5}, {12, 0, -16}, "斜方向加速度数据文件读入有误"},
               {0, {0, 0, 0}, true, {0, 0, 0}, {}, nullptr}};
  for (const auto& c : cases) {
    m_settings.m_nQuakeMode = c.nMode;
    m_settings.m_bQuakeDir = c.directions;
    m_settings.m_strQuakeFile = m_folder.GetPath("_std.txt");
    ASSERT_TRUE(m_motion.Read(m_settings, c.bFromFile, m_folder.GetJobPath()));
    EXPECT_TRUE(m_platform.GetMessages().empty());
    for (int d = 0; d < 3; ++d) {
      const auto i = static_cast<std::size_t>(d);
      const auto record = m_motion.GetRecord(d);
      ASSERT_EQ(record.size(), c.lengths[i]);
      EXPECT_NEAR(record.empty() ? 0.0 : record[0], c.first[i], 1e-12);
    }
    if (c.strMessage == nullptr) continue;
    m_settings.m_strQuakeFile += ".missing";
    EXPECT_FALSE(m_motion.Read(m_settings, c.bFromFile, m_folder.GetPath("_none")));
    EXPECT_EQ(m_platform.GetMessages(), Strings{c.strMessage});
    m_platform->Clear();
  }
}

TEST_F(GroundMotion, ActsOnFreeTranslationsOfNodesThatHaveThem) {
  CHostModel host;
  host.SetSection(1, 2, 1000.0, 1e6, 1e6, 1e6);
  const int nFixed = host.AddNode(0, 0, 0, c_nRigid, "111111");
  const int nRigid = host.AddNode(1, 0, 0);
  const int nGuided = host.AddNode(2, 0, 0, c_nPinned, "010000");
  host.AddNode(9, 9, 9);  // no element: no equations
  host.AddElement(c_nBeam, nFixed, nRigid);
  host.AddElement(c_nBar, nRigid, nGuided);
  CAnalysisModel model;
  model.BuildModel();
  ASSERT_TRUE(model.m_bValid);

  m_settings.m_nQuakeMode = c_nObliqueQuake;
  m_settings.m_dObliqueCoef = {1.0, 0.5, 0.25};
  ASSERT_TRUE(m_motion.Read(m_settings, true, m_folder.GetJobPath()));
  std::vector<double> g(static_cast<std::size_t>(model.GetFreeDofs()), 7.0);
  m_motion.FormVector(0, model.GetNodes(), g);
  // free: X Y Z RX RY RZ of the rigid node, X and Z of the guided one
  EXPECT_EQ(g, (std::vector<double>{-20.0, -10.0, -5.0, 0.0, 0.0, 0.0, -20.0, -5.0}));
  m_motion.FormVector(4, model.GetNodes(), g);
  EXPECT_EQ(g, std::vector<double>(8, 0.0));
}

}  // namespace
}  // namespace skyframe::test
