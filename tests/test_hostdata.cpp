#include "ModalModels.h"
#include "skyframe/model/AnalysisModel.h"

namespace skyframe::test {
namespace {

using Flags = std::array<int, 6>;

TEST(RestraintCodes, DigitsOfThreeOrMoreRestrainAndTwosSelectASpringGroup) {
  struct Case {
    int nCode;
    Flags flags;
    int nSpringGroup = -1;
  };
  const Case cases[] = {
      {0, {}},
      {33333300, {1, 1, 1, 1, 1, 1}},
      {33300, {1, 1, 1, 0, 0, 0}},
      {33300000, {0, 0, 0, 1, 1, 1}},
      {333300, {1, 1, 1, 0, 0, 1}},
      {99921199, {0, 0, 0, 1, 1, 1}},  // 2 and 1 leave free, the last two digits are not read
      {2220000, {}},
      {22200, {}, 0},
      {522299, {}, 5},
      {99922200, {}, 999},
  };
  for (const Case& c : cases) {
    const RestraintCode code = RestraintCode::Decode(c.nCode);
    EXPECT_EQ(std::to_array(code.nRestrained), c.flags) << c.nCode;
    EXPECT_EQ(code.bSpring ? code.nSpringGroup : -1, c.nSpringGroup) << c.nCode;
  }
  EXPECT_EQ(RestraintCode::EncodeSpring(5), 522200);
  for (int d = 0; d < 6; ++d) {  // X Y Z RX RY RZ stand in d4 d3 d2 d7 d6 d5
    int flags[6] = {};
    flags[d] = 1;
    const int c_codes[] = {30000, 3000, 300, 30000000, 3000000, 300000};
    EXPECT_EQ(RestraintCode::EncodeRestraint(flags), c_codes[d]);
    EXPECT_EQ(std::to_array(RestraintCode::Decode(c_codes[d]).nRestrained), std::to_array(flags));
  }
}

TEST(LoadCodes, PartsAndGroupKeys) {
  struct Case {
    int nCode, nCase, nDigit, nType, nKey;
  };
  for (const Case& c : {Case{101, 0, 1, 1, 1}, Case{1001, 1, 0, 1, 11}, Case{1101, 1, 1, 1, 11},
                        Case{2001, 2, 0, 1, 21}, Case{19602, 19, 6, 2, 192}}) {
    EXPECT_EQ(LoadCode::GetCase(c.nCode), c.nCase) << c.nCode;
    EXPECT_EQ(LoadCode::GetDirectionDigit(c.nCode), c.nDigit) << c.nCode;
    EXPECT_EQ(LoadCode::GetType(c.nCode), c.nType) << c.nCode;
    EXPECT_EQ(LoadCode::GetGroupKey(c.nCode), c.nKey) << c.nCode;
  }
  const int codes[] = {1102, 1202, 1302, 1602, 1402, 1502};  // the rotations stand in the order RY, RZ, RX
  for (int d = 0; d < 6; ++d) EXPECT_EQ(LoadCode::Encode(1, d), codes[d]);
  EXPECT_EQ(LoadCode::Encode(0, 2), 301);
}

TEST(HostRecords, SpringGroupsAndReset) {
  ResetHostData();
  CCommonData::SetSpringGroup(c_nMaxSpringGroups, 1.5F, 0.0F, -2.0F);
  for (const int nGroup : {-1, c_nMaxSpringGroups + 1}) CCommonData::SetSpringGroup(nGroup, 7, 7, 7);
  const auto get = [](int nGroup) {
    std::array<float, 3> k = {9, 9, 9};
    CCommonData::OnCalculateKxKyKz(nGroup, k[0], k[1], k[2]);
    return k;
  };
  EXPECT_EQ(get(c_nMaxSpringGroups), (std::array{1.5F, 0.0F, -2.0F}));
  for (const int nGroup : {-1, 12, c_nMaxSpringGroups + 1}) EXPECT_EQ(get(nGroup), (std::array{0.0F, 0.0F, 0.0F}));
  ABCD.m_nNodes = COMDYN.m_bSaveAs[2] = ZHU.m_nCount = 7;
  g_FilePathName = "job";
  ResetHostData();
  EXPECT_EQ(ABCD.m_nNodes + COMDYN.m_bSaveAs[2] + ZHU.m_nCount, 0);
  EXPECT_TRUE(g_FilePathName.empty());
  EXPECT_EQ(get(c_nMaxSpringGroups)[0], 0.0F);
  // The settings of a fresh host are back.
  for (const tagComDynamic& settings : {COMDYN, c_freshSettings}) EXPECT_EQ(settings.m_nIntensity, 7);
}

/// Order arrays as a modal run provides them.
class Renumbering : public ::testing::Test {
 protected:
  void ProvideOrderArrays() {
    m_first.resize(ABCD.m_nNodes + 1);
    std::iota(m_first.begin(), m_first.end(), 0);
    m_second = m_first;
    COMDAT.m_pFirstOrder = m_first.data();
    COMDAT.m_pSecondOrder = m_second.data();
  }

  /// Fresh records; every per-node record carries a value that names the node.
  void SetNodes(int nNodes) {
    ResetHostData();
    for (int i = 1; i <= nNodes; ++i) ABCD.m_nRestraint[m_host.AddNode(i, 0.5 * i, -i, i % 2)] = 7 * i;
  }

  /// Grid of nColumns by nRows with a fixed shuffle of the node numbers; every third node loaded.
  void SetShuffledGrid(int nColumns, int nRows) {
    SetNodes(nColumns * nRows);
    std::vector<int> number(ABCD.m_nNodes);
    std::iota(number.begin(), number.end(), 1);
    std::shuffle(number.begin(), number.end(), std::mt19937(4711));
    for (int r = 0; r < nRows; ++r) {
      for (int c = 0; c < nColumns; ++c) {
        const int k = r * nColumns + c;
        if (c + 1 < nColumns) m_host.AddElement(c_nBeam, number[k], number[k + 1]);
        if (r + 1 < nRows) m_host.AddElement(c_nBeam, number[k], number[k + nColumns]);
        if (k % 3 == 0) m_host.AddLoad(0, number[k], 2, 1.0);
      }
    }
    ZHU.m_nCount = 2;
    ZHU.m_nNode[0] = 5;
    ZHU.m_nNode[1] = ABCD.m_nNodes;
  }

  CHostModel m_host;
  std::vector<int> m_first;
  std::vector<int> m_second;
};

TEST_F(Renumbering, ShrinksTheBandwidth) {
  SetShuffledGrid(8, 40);
  CCommonData::OnReNodeCode();
  for (int k = 0; k < ABCD.m_nElements; ++k)  // a grid of width 8 cannot do better than 8
    EXPECT_LE(std::abs(ABCD.m_nFirstNode[k] - ABCD.m_nSecondNode[k]), 9);
}

/// The judge is the model itself: sum of h^2 over the free columns of its skyline.
double MeasureWork() {
  const CTestPlatform platform;
  CAnalysisModel model;
  model.BuildModel();
  const std::vector<int>& diagonal = model.GetDiagonalAddresses();
  double dWork = 1.0;
  for (int i = 1; i < model.GetFreeDofs(); ++i) dWork += std::pow(diagonal[i] - diagonal[i - 1], 2.0);
  return dWork;
}

/// Columns 5 x 5, 10 storeys, clamped: a walk from the supports stores 198,894 entries. The figures were found by a
/// program apart, from all walks from all corners.
TEST_F(Renumbering, StartsFromTheEndThatCostsLess) {
  ResetHostData();
  for (int i = 0; i < 5 * 5 * 11; ++i) {
    const int nColumn = i % 25, nStorey = i / 25;
    const int nNode = m_host.AddNode(nColumn % 5, nColumn / 5, nStorey, c_nRigid, nStorey == 0 ? "111111" : "000000");
    if (nStorey == 0) continue;
    m_host.AddElement(c_nBeam, nNode - 25, nNode);
    if (nColumn % 5 > 0) m_host.AddElement(c_nBeam, nNode - 1, nNode);
    if (nColumn / 5 > 0) m_host.AddElement(c_nBeam, nNode - 5, nNode);
  }
  CCommonData::OnReNodeCode();
  const CTestPlatform platform;
  CAnalysisModel model;
  model.BuildModel();
  ASSERT_EQ(model.GetFreeDofs(), 1500);
  EXPECT_EQ(model.GetDiagonalAddresses()[1499] + 1, 184494);
}

TEST_F(Renumbering, NeverCostsMoreAndKeepsTheBestOrder) {
  for (const int nPinnedStorey : {0, 5, 12}) {
    ResetHostData();
    FillSquareTower(m_host, 25);
    for (int i = 6; i <= ABCD.m_nNodes; ++i) m_host.AddElement(c_nBeam, (i - 1) / 4 * 4 + 1, i);
    for (int c = 1; c <= 4; ++c) ABCD.m_nJoint[4 * nPinnedStorey + c] = c_nPinned;
    const double dBefore = MeasureWork();
    CCommonData::OnReNodeCode();
    EXPECT_LE(MeasureWork(), dBefore) << nPinnedStorey;  // every walk from the lowest number costs more
  }
  SetNodes(9);
  for (int i = 1; i < 9; ++i) m_host.AddElement(c_nBeam, i, i + 1);
  const auto pChain = std::make_unique<tagAbcd>(ABCD);
  CCommonData::OnReNodeCode();
  EXPECT_EQ(std::memcmp(pChain.get(), &ABCD, sizeof ABCD), 0);
}

/// Old numbers travel in the coordinates, so the whole mapping can be checked against them.
TEST_F(Renumbering, PermutesEverythingByOneOrderAndRestoresItToTheBit) {
  for (const int nCalls : {1, 3}) {
    SetShuffledGrid(6, 9);
    ABCD.m_fZ[3] = std::numeric_limits<float>::quiet_NaN();
    ABCD.m_fX[0] = 42.0F;  // the unused entry stays where it is
    ProvideOrderArrays();
    const auto pOld = std::make_unique<tagAbcd>(ABCD);
    const auto pInclined = std::make_unique<tagComZhu>(ZHU);
    for (int i = 0; i < nCalls; ++i) CCommonData::OnReNodeCode();

    std::set<int> numbers;
    const auto OldOf = [](int nNew) { return static_cast<int>(ABCD.m_fX[nNew]); };
    for (int i = 1; i <= ABCD.m_nNodes; ++i) {
      const int nOld = OldOf(i);
      numbers.insert(nOld);
      EXPECT_EQ(m_second[nOld], i);
      EXPECT_EQ(m_first[i], nOld);
      EXPECT_EQ(ABCD.m_fY[i], 0.5F * static_cast<float>(nOld));
      EXPECT_TRUE(ABCD.m_fZ[i] == -static_cast<float>(nOld) || nOld == 3);
      EXPECT_EQ(ABCD.m_nRestraint[i], 7 * nOld);
      EXPECT_EQ(ABCD.m_nJoint[i], nOld % 2);
    }
    EXPECT_EQ(static_cast<int>(numbers.size()), ABCD.m_nNodes);
    for (int k = 0; k < ABCD.m_nElements; ++k) {
      EXPECT_EQ(OldOf(ABCD.m_nFirstNode[k]), pOld->m_nFirstNode[k]);
      EXPECT_EQ(OldOf(ABCD.m_nSecondNode[k]), pOld->m_nSecondNode[k]);
    }
    for (int k = 0; k < ABCD.m_nLoads; ++k) EXPECT_EQ(OldOf(ABCD.m_nLoadNode[k]), pOld->m_nLoadNode[k]);
    for (int k = 0; k < 2; ++k) EXPECT_EQ(OldOf(ZHU.m_nNode[k]), pInclined->m_nNode[k]);
    for (int i = 0; i < 2; ++i) {  // a second restore does nothing
      CCommonData::OnRestoreNodeCode();
      EXPECT_EQ(std::memcmp(pOld.get(), &ABCD, sizeof ABCD), 0) << nCalls;
      EXPECT_EQ(std::memcmp(pInclined.get(), &ZHU, sizeof ZHU), 0) << nCalls;
    }
  }
}

TEST_F(Renumbering, SeparatePartsUnusedNodesAndWildNumbers) {
  constexpr int c_nLowest = std::numeric_limits<int>::min();
  SetNodes(12);
  for (const auto& [nI, nJ] :
       {std::pair{1, 9}, {9, 5}, {3, 11}, {11, 7}, {7, 7}, {0, 4}, {4, 13}, {c_nLowest, 2}, {1, 9}}) {
    m_host.AddElement(c_nBeam, nI, nJ);
  }
  for (const int nNode : {1, 0, c_nLowest, 13, 1000000}) m_host.AddLoad(0, nNode, 2, 1.0);
  const auto pModel = std::make_unique<tagAbcd>(ABCD);
  CCommonData::OnReNodeCode();  // without order arrays

  // Two chains of three, then the six nodes no proper element touches, in their own order.
  const std::vector<float> unused(ABCD.m_fX + 7, ABCD.m_fX + 13);
  EXPECT_EQ(unused, (std::vector<float>{2, 4, 6, 8, 10, 12}));
  for (int k = 0; k < 4; ++k) EXPECT_EQ(std::abs(ABCD.m_nFirstNode[k] - ABCD.m_nSecondNode[k]), 1) << k;
  EXPECT_EQ(ABCD.m_nFirstNode[5], 0);
  EXPECT_EQ(ABCD.m_nSecondNode[6], 13);
  EXPECT_EQ(ABCD.m_nFirstNode[7], c_nLowest);
  EXPECT_EQ(ABCD.m_nLoadNode[2], c_nLowest);
  EXPECT_EQ(ABCD.m_nLoadNode[4], 1000000);
  CCommonData::OnRestoreNodeCode();
  EXPECT_EQ(std::memcmp(pModel.get(), &ABCD, sizeof ABCD), 0);
}

}  // namespace
}  // namespace skyframe::test
