#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <limits>
#include <map>
#include <memory>
#include <numeric>
#include <random>
#include <set>
#include <utility>
#include <vector>

#include "skyframe/hostdata/HostData.h"

namespace skyframe {
namespace {

using Flags = std::array<int, 6>;

Flags Restrained(const RestraintCode& code) {
  Flags flags;
  std::copy(std::begin(code.nRestrained), std::end(code.nRestrained), flags.begin());
  return flags;
}

TEST(RestraintCodes, DigitsOfThreeOrMoreRestrain) {
  const std::vector<std::pair<int, Flags>> cases = {
      {0, {0, 0, 0, 0, 0, 0}},        {33333300, {1, 1, 1, 1, 1, 1}}, {33300, {1, 1, 1, 0, 0, 0}},
      {33300000, {0, 0, 0, 1, 1, 1}}, {333300, {1, 1, 1, 0, 0, 1}},   {30000, {1, 0, 0, 0, 0, 0}},
      {3000, {0, 1, 0, 0, 0, 0}},     {300, {0, 0, 1, 0, 0, 0}},      {30000000, {0, 0, 0, 1, 0, 0}},
      {3000000, {0, 0, 0, 0, 1, 0}},  {300000, {0, 0, 0, 0, 0, 1}},   {22233300, {1, 1, 1, 0, 0, 0}},
      {99921199, {0, 0, 0, 1, 1, 1}}, {45678900, {1, 1, 1, 1, 1, 1}}, {33, {0, 0, 0, 0, 0, 0}},
      {2220000, {0, 0, 0, 0, 0, 0}},
  };
  for (const auto& [nCode, expected] : cases) {
    const RestraintCode code = RestraintCode::Decode(nCode);
    EXPECT_FALSE(code.bSpring) << nCode;
    EXPECT_EQ(Restrained(code), expected) << nCode;
  }
}

TEST(RestraintCodes, TwosInTheTranslationsSelectASpringGroup) {
  const std::vector<std::pair<int, int>> groupOfCode = {
      {22200, 0}, {522200, 5}, {522299, 5}, {33322200, 333}, {99922200, 999}};
  for (const auto& [nCode, nGroup] : groupOfCode) {
    const RestraintCode code = RestraintCode::Decode(nCode);
    EXPECT_TRUE(code.bSpring) << nCode;
    EXPECT_EQ(code.nSpringGroup, nGroup) << nCode;
    EXPECT_EQ(Restrained(code), Flags{}) << nCode;
  }
}

TEST(RestraintCodes, EncodingIsReadBack) {
  for (int nMask = 0; nMask < 64; ++nMask) {
    int flags[6];
    for (int d = 0; d < 6; ++d) flags[d] = (nMask >> d) & 1;
    const RestraintCode code = RestraintCode::Decode(RestraintCode::EncodeRestraint(flags));
    EXPECT_FALSE(code.bSpring);
    EXPECT_TRUE(std::equal(std::begin(flags), std::end(flags), std::begin(code.nRestrained))) << nMask;
  }
  for (const int nGroup : {0, 1, 5, 222, 999}) {
    const RestraintCode code = RestraintCode::Decode(RestraintCode::EncodeSpring(nGroup));
    EXPECT_TRUE(code.bSpring);
    EXPECT_EQ(code.nSpringGroup, nGroup);
  }
}

TEST(LoadCodes, PartsAndGroupKeys) {
  struct Case {
    int nCode, nCase, nDigit, nType, nKey;
  };
  for (const Case& c : {Case{101, 0, 1, 1, 1}, Case{1001, 1, 0, 1, 11}, Case{1101, 1, 1, 1, 11},
                        Case{2001, 2, 0, 1, 21}, Case{19602, 19, 6, 2, 192}, Case{3302, 3, 3, 2, 32}}) {
    EXPECT_EQ(LoadCode::GetCase(c.nCode), c.nCase) << c.nCode;
    EXPECT_EQ(LoadCode::GetDirectionDigit(c.nCode), c.nDigit) << c.nCode;
    EXPECT_EQ(LoadCode::GetType(c.nCode), c.nType) << c.nCode;
    EXPECT_EQ(LoadCode::GetGroupKey(c.nCode), c.nKey) << c.nCode;
  }
  // The rotations stand in the order RY, RZ, RX.
  EXPECT_EQ(LoadCode::Encode(0, 2), 301);
  EXPECT_EQ(LoadCode::Encode(4, 0), 4102);
  EXPECT_EQ(LoadCode::Encode(1, 3), 1602);
  EXPECT_EQ(LoadCode::Encode(1, 4), 1402);
  EXPECT_EQ(LoadCode::Encode(1, 5), 1502);
}

TEST(HostRecords, ResetGivesTheInitialSettings) {
  ABCD.m_nNodes = 7;
  COMDAT.m_szJobPath[0] = 'x';
  COMDYN.m_bSaveAs[2] = 1;
  ZHU.m_nCount = 1;
  g_FilePathName = "job";
  CCommonData::SetSpringGroup(3, 1, 2, 3);
  ResetHostData();
  EXPECT_EQ(ABCD.m_nNodes, 0);
  EXPECT_EQ(COMDAT.m_szJobPath[0], '\0');
  EXPECT_EQ(ZHU.m_nCount, 0);
  EXPECT_TRUE(g_FilePathName.empty());
  EXPECT_EQ(COMDYN.m_nModes, 10);
  EXPECT_EQ(COMDYN.m_dModeTol, 1.0e-16);
  EXPECT_EQ(COMDYN.m_nIterMultiple, 6);
  EXPECT_EQ(COMDYN.m_nMeshDiv, 5);
  EXPECT_EQ(COMDYN.m_nExpandModes, 10);
  EXPECT_EQ(COMDYN.m_dDampRatio, 0.02);
  EXPECT_EQ(COMDYN.m_nIntensity, 7);
  EXPECT_EQ(COMDYN.m_dDesignAcceleration, 0.10);
  EXPECT_EQ(COMDYN.m_nSiteClass, 3);
  EXPECT_EQ(COMDYN.m_nZoneGroup, 1);
  EXPECT_EQ(COMDYN.m_dDirCoef[0], 1.0);
  EXPECT_EQ(COMDYN.m_dDirCoef[1], 0.0);
  EXPECT_EQ(COMDYN.m_bSaveAs[2], 0);
  float k[3] = {9, 9, 9};
  CCommonData::OnCalculateKxKyKz(3, k[0], k[1], k[2]);
  EXPECT_EQ(k[0], 0.0F);
}

TEST(SpringGroups, KnownAndUnknown) {
  ResetHostData();
  CCommonData::SetSpringGroup(0, 1.5F, 0.0F, -2.0F);
  CCommonData::SetSpringGroup(c_nMaxSpringGroups, 4, 5, 6);
  CCommonData::SetSpringGroup(-1, 7, 7, 7);
  CCommonData::SetSpringGroup(c_nMaxSpringGroups + 1, 7, 7, 7);
  const std::map<int, std::array<float, 3>> expected = {
      {0, {1.5F, 0.0F, -2.0F}}, {c_nMaxSpringGroups, {4, 5, 6}}, {12, {0, 0, 0}}, {-1, {0, 0, 0}}, {21474, {0, 0, 0}}};
  for (const auto& [nGroup, stiffness] : expected) {
    std::array<float, 3> k = {9, 9, 9};
    CCommonData::OnCalculateKxKyKz(nGroup, k[0], k[1], k[2]);
    EXPECT_EQ(k, stiffness) << nGroup;
  }
}

/// Order arrays as a modal run provides them.
class Renumbering : public ::testing::Test {
 protected:
  void SetUp() override { ResetHostData(); }
  void TearDown() override { ResetHostData(); }

  void ProvideOrderArrays() {
    m_first.resize(ABCD.m_nNodes + 1);
    std::iota(m_first.begin(), m_first.end(), 0);
    m_second = m_first;
    COMDAT.m_pFirstOrder = m_first.data();
    COMDAT.m_pSecondOrder = m_second.data();
  }

  static void AddElement(int nI, int nJ) {
    ABCD.m_nFirstNode[ABCD.m_nElements] = nI;
    ABCD.m_nSecondNode[ABCD.m_nElements] = nJ;
    ABCD.m_nSection[ABCD.m_nElements] = 101;
    ++ABCD.m_nElements;
  }

  static void AddLoad(int nNode) {
    ABCD.m_nLoadNode[ABCD.m_nLoads] = nNode;
    ABCD.m_nLoadCode[ABCD.m_nLoads] = 301;
    ABCD.m_fLoadValue[ABCD.m_nLoads] = static_cast<float>(nNode);
    ++ABCD.m_nLoads;
  }

  /// Every per-node record carries a value that names the node.
  static void SetNodes(int nNodes) {
    ABCD.m_nNodes = nNodes;
    for (int i = 1; i <= nNodes; ++i) {
      ABCD.m_fX[i] = static_cast<float>(i);
      ABCD.m_fY[i] = 0.5F * static_cast<float>(i);
      ABCD.m_fZ[i] = -static_cast<float>(i);
      ABCD.m_nRestraint[i] = 7 * i;
      ABCD.m_nJoint[i] = i % 2;
    }
  }

  /// Grid of nColumns by nRows with a fixed shuffle of the node numbers; every third node loaded.
  static void SetShuffledGrid(int nColumns, int nRows) {
    SetNodes(nColumns * nRows);
    std::vector<int> number(ABCD.m_nNodes);
    std::iota(number.begin(), number.end(), 1);
    std::shuffle(number.begin(), number.end(), std::mt19937(4711));
    for (int r = 0; r < nRows; ++r) {
      for (int c = 0; c < nColumns; ++c) {
        const int k = r * nColumns + c;
        if (c + 1 < nColumns) AddElement(number[k], number[k + 1]);
        if (r + 1 < nRows) AddElement(number[k], number[k + nColumns]);
        if (k % 3 == 0) AddLoad(number[k]);
      }
    }
    ZHU.m_nCount = 2;
    ZHU.m_nNode[0] = 5;
    ZHU.m_nNode[1] = ABCD.m_nNodes;
  }

  static int GetBandwidth() {
    int nBandwidth = 0;
    for (int k = 0; k < ABCD.m_nElements; ++k) {
      nBandwidth = std::max(nBandwidth, std::abs(ABCD.m_nFirstNode[k] - ABCD.m_nSecondNode[k]));
    }
    return nBandwidth;
  }

  std::vector<int> m_first;
  std::vector<int> m_second;
};

TEST_F(Renumbering, ShrinksTheBandwidth) {
  SetShuffledGrid(8, 40);
  ASSERT_GT(GetBandwidth(), 200);
  CCommonData::OnReNodeCode();
  EXPECT_LE(GetBandwidth(), 9);  // a grid of width 8 cannot do better than 8

  ResetHostData();
  SetNodes(50);
  for (int i = 1; i < 50; ++i) AddElement((i * 13) % 50 + 1, ((i + 1) * 13) % 50 + 1);
  ASSERT_GT(GetBandwidth(), 10);
  CCommonData::OnReNodeCode();
  EXPECT_EQ(GetBandwidth(), 1) << "a chain must become consecutive";
}

/// Old numbers travel in the coordinates, so the whole mapping can be checked against them.
TEST_F(Renumbering, PermutesEverythingByOneOrder) {
  SetShuffledGrid(6, 9);
  ProvideOrderArrays();
  const auto pOld = std::make_unique<tagAbcd>(ABCD);
  CCommonData::OnReNodeCode();

  std::set<int> numbers;
  const auto OldOf = [](int nNew) { return static_cast<int>(ABCD.m_fX[nNew]); };
  for (int i = 1; i <= ABCD.m_nNodes; ++i) {
    const int nOld = OldOf(i);
    numbers.insert(nOld);
    EXPECT_EQ(m_second[nOld], i);
    EXPECT_EQ(m_first[i], nOld);
    EXPECT_EQ(ABCD.m_fY[i], 0.5F * static_cast<float>(nOld));
    EXPECT_EQ(ABCD.m_fZ[i], -static_cast<float>(nOld));
    EXPECT_EQ(ABCD.m_nRestraint[i], 7 * nOld);
    EXPECT_EQ(ABCD.m_nJoint[i], nOld % 2);
  }
  EXPECT_EQ(static_cast<int>(numbers.size()), ABCD.m_nNodes);
  for (int k = 0; k < ABCD.m_nElements; ++k) {
    EXPECT_EQ(OldOf(ABCD.m_nFirstNode[k]), pOld->m_nFirstNode[k]);
    EXPECT_EQ(OldOf(ABCD.m_nSecondNode[k]), pOld->m_nSecondNode[k]);
  }
  for (int k = 0; k < ABCD.m_nLoads; ++k) EXPECT_EQ(OldOf(ABCD.m_nLoadNode[k]), pOld->m_nLoadNode[k]);
  EXPECT_EQ(OldOf(ZHU.m_nNode[0]), 5);
  EXPECT_EQ(OldOf(ZHU.m_nNode[1]), pOld->m_nNodes);
}

TEST_F(Renumbering, RestoreIsExactToTheBit) {
  for (const int nCalls : {1, 2, 3}) {
    ResetHostData();
    SetShuffledGrid(5, 7);
    ABCD.m_fX[3] = -0.0F;
    ABCD.m_fY[3] = std::numeric_limits<float>::quiet_NaN();
    ABCD.m_fX[0] = 42.0F;  // the unused entry stays where it is
    ProvideOrderArrays();
    const auto pModel = std::make_unique<tagAbcd>(ABCD);
    const auto pInclined = std::make_unique<tagComZhu>(ZHU);
    for (int i = 0; i < nCalls; ++i) CCommonData::OnReNodeCode();
    EXPECT_NE(std::memcmp(pModel.get(), &ABCD, sizeof ABCD), 0);
    for (int i = 1; i <= ABCD.m_nNodes; ++i) EXPECT_EQ(m_first[m_second[i]], i);
    for (int i = 1; i <= ABCD.m_nNodes; ++i) EXPECT_EQ(ABCD.m_nRestraint[m_second[i]], 7 * i);
    CCommonData::OnRestoreNodeCode();
    EXPECT_EQ(std::memcmp(pModel.get(), &ABCD, sizeof ABCD), 0) << nCalls;
    EXPECT_EQ(std::memcmp(pInclined.get(), &ZHU, sizeof ZHU), 0) << nCalls;
    CCommonData::OnRestoreNodeCode();
    EXPECT_EQ(std::memcmp(pModel.get(), &ABCD, sizeof ABCD), 0) << "a second restore must do nothing";
  }
}

TEST_F(Renumbering, SeparatePartsUnusedNodesAndWildNumbers) {
  SetNodes(12);
  for (const auto& [nI, nJ] : {std::pair{1, 9}, {9, 5}, {3, 11}, {11, 7}, {7, 7}, {0, 4}, {4, 13}, {-5, 2}, {1, 9}}) {
    AddElement(nI, nJ);
  }
  for (const int nNode : {1, 0, -3, 13, 1000000}) AddLoad(nNode);
  ProvideOrderArrays();
  const auto pModel = std::make_unique<tagAbcd>(ABCD);
  CCommonData::OnReNodeCode();

  // Two chains of three, then the six nodes no proper element touches, in their own order.
  const std::vector<int> unused(m_first.begin() + 7, m_first.end());
  EXPECT_EQ(unused, (std::vector<int>{2, 4, 6, 8, 10, 12}));
  for (int k = 0; k < 4; ++k) EXPECT_EQ(std::abs(ABCD.m_nFirstNode[k] - ABCD.m_nSecondNode[k]), 1) << k;
  EXPECT_EQ(ABCD.m_nFirstNode[5], 0);
  EXPECT_EQ(ABCD.m_nSecondNode[6], 13);
  EXPECT_EQ(ABCD.m_nFirstNode[7], -5);
  EXPECT_EQ(ABCD.m_nLoadNode[2], -3);
  EXPECT_EQ(ABCD.m_nLoadNode[4], 1000000);
  CCommonData::OnRestoreNodeCode();
  EXPECT_EQ(std::memcmp(pModel.get(), &ABCD, sizeof ABCD), 0);
}

TEST_F(Renumbering, WorksWithoutOrderArraysAndWithoutAModel) {
  const auto pEmpty = std::make_unique<tagAbcd>(ABCD);
  CCommonData::OnReNodeCode();
  CCommonData::OnRestoreNodeCode();
  EXPECT_EQ(std::memcmp(pEmpty.get(), &ABCD, sizeof ABCD), 0);
  SetShuffledGrid(4, 4);
  const auto pModel = std::make_unique<tagAbcd>(ABCD);
  CCommonData::OnReNodeCode();
  CCommonData::OnRestoreNodeCode();
  EXPECT_EQ(std::memcmp(pModel.get(), &ABCD, sizeof ABCD), 0);
}

}  // namespace
}  // namespace skyframe
