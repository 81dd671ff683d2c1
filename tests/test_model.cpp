// The model build: checks and their messages, equation numbering, element choice, load groups,
// node load masses, skyline layout.

#include "TestPlatform.h"
#include "skyframe/model/AnalysisModel.h"

namespace skyframe::test {
namespace {

struct ModelBuild : testing::Test {
  CTestPlatform platform;
  CHostModel host;
  CAnalysisModel model;
};

struct RefusalCase {
  const char* pName;
  std::function<void(CHostModel&)> fill;
  bool bForModes;
  const char* pMessage;  ///< null: the build succeeds
};

void TwoNodesAndMember(CHostModel& host, int nType) {
  host.AddNode(0, 0, 0, c_nRigid, "111111");
  host.AddNode(1, 0, 0);
  host.AddNode(2, 0, 0);
  host.AddElement(nType, 1, 2);
}

void InclinedSupports(CHostModel& host, int nType, const std::vector<int>& nodes = {2}) {
  TwoNodesAndMember(host, nType);
  for (const int nNode : nodes) ZHU.m_nNode[ZHU.m_nCount++] = nNode;
}

TEST(ModelBuilds, RefusesWithItsMessage) {
  const RefusalCase cases[] = {
      {"empty", [](CHostModel&) {}, false, "缺少节点!"},
      {"no elements", [](CHostModel& h) { h.AddNode(0, 0, 0); }, false, "单元未定义！"},
      {"cable", [](CHostModel& h) { TwoNodesAndMember(h, c_nCable); }, false, "不能计算索单元!"},
      {"membrane", [](CHostModel& h) { TwoNodesAndMember(h, c_nMembrane); }, true, "不能计算模单元!"},
      {"inclined support comes before the element types", [](CHostModel& h) { InclinedSupports(h, c_nCable); }, true,
       "提示：本版本“动力分析模块”暂不能考虑斜边界约束！"},
      {"inclined support in a static build", [](CHostModel& h) { InclinedSupports(h, c_nBeam); }, false, nullptr},
      {"inclined support at nodes out of use or out of range",
       [](CHostModel& h) {
         InclinedSupports(h, c_nBeam, std::vector{3, 0, -1, 4});
       },
       true, nullptr},
      {"one node more than the records hold", [](CHostModel&) { ABCD.m_nNodes = c_nMaxNodes + 1; }, false,
       "模型规模超出容量,计算终止!"},
  };
  for (const RefusalCase& c : cases) {
    SCOPED_TRACE(c.pName);
    CTestPlatform platform;
    CHostModel host;
    c.fill(host);
    CAnalysisModel model;
    c.bForModes ? model.BuildModelForModes(false) : model.BuildModel();
    EXPECT_EQ(model.m_bValid, c.pMessage == nullptr);
    const std::vector<std::string> expected = c.pMessage ? Strings{c.pMessage} : Strings{};
    EXPECT_EQ(platform.GetMessages(), expected);
    // Deliberate: a refused build leaves the wait cursor on.
    EXPECT_EQ(platform->GetWaitCursorDepth(), c.pMessage ? 1 : 0);
  }
}

TEST_F(ModelBuild, NumbersFreeEquationsFirst) {
  host.AddNode(0, 0, 0, c_nRigid, "111111");
  host.AddNode(1, 0, 0);
  host.AddNode(9, 9, 9, c_nRigid, "111111");  // no element touches it
  host.AddNode(2, 0, 0, c_nPinned, "010000");
  host.AddElement(c_nBeam, 1, 2);
  host.AddElement(c_nBeam, 2, 4);
  model.BuildModel();
  ASSERT_TRUE(model.m_bValid);
  const CNodeTable& nodes = model.GetNodes();
  EXPECT_EQ(model.GetTotalDofs(), 15);
  EXPECT_EQ(model.GetFreeDofs(), 8);
  EXPECT_EQ(nodes.GetRigidCount(), 3);
  EXPECT_EQ(nodes.GetPinnedCount(), 1);
  constexpr int c_dofs[4][6] = {
      {8, 9, 10, 11, 12, 13}, {0, 1, 2, 3, 4, 5}, {-1, -1, -1, -1, -1, -1}, {6, 14, 7, -1, -1, -1}};
  for (int k = 0; k < 24; ++k) EXPECT_EQ(nodes.FindDof(k / 6, k % 6), c_dofs[k / 6][k % 6]) << k;
  EXPECT_EQ(nodes.GetDof(3, c_nDofRX), 0);

  // Number 0 belongs to node 2, not to the rotations of nodes that have none.
  std::string_view strName;
  EXPECT_EQ(nodes.FindNodeOfDof(0, strName), 1);
  EXPECT_EQ(strName, "X向");
  const char* const c_names[] = {"X向", "Y向", "Z向", "RYZ向", "RZX向", "RXY向"};
  for (int i = 0; i < 6; ++i) {
    EXPECT_EQ(nodes.FindNodeOfDof(8 + i, strName), 0);
    EXPECT_EQ(strName, c_names[i]);
  }
  EXPECT_EQ(nodes.FindNodeOfDof(15, strName), -1);
  EXPECT_EQ(platform.GetMessages(), Strings{"自由度输入错误！\n本自由度对应节点号码不存在！"});
}

TEST_F(ModelBuild, SpringSupportsRestrainWhereTheyAreStiff) {
  CCommonData::SetSpringGroup(5, 0.0F, 5.0F, -3.0F);
  host.AddNode(0, 0, 0);
  ABCD.m_nRestraint[1] = 522200;
  host.AddNode(1, 0, 0, c_nRigid, "111111");
  host.SetSection(1, 2, 1000, 1e6, 1e6, 1e6);
  host.AddElement(c_nBeam, 1, 2);
  model.BuildModel();
  EXPECT_EQ(model.GetFreeDofs(), 5);
  const int nY = model.GetNodes().FindDof(0, c_nDofY);
  EXPECT_GE(nY, model.GetFreeDofs());
  SparseMatrix K;
  ASSERT_TRUE(model.AssembleStiffness(K, false, false));
  const double a = 12 * 2.06e11 * 1e-6;  // 12 E I / L^3
  EXPECT_NEAR(K(nY, nY), a + 5.0e6, 1.0);
  const int nZ = model.GetNodes().FindDof(0, c_nDofZ);
  EXPECT_NEAR(K(nZ, nZ), a, 1.0);  // a negative stiffness is free and adds nothing
}

TEST_F(ModelBuild, ChoosesTheElementByJointKinds) {
  for (int i = 0; i < 4; ++i) host.AddNode(i, 0, 0, i < 2 ? c_nRigid : c_nPinned);
  const int nEnds[][2] = {{1, 2}, {3, 2}, {1, 3}, {3, 4}};
  for (const auto& ends : nEnds) host.AddElement(c_nBeam, ends[0], ends[1]);
  host.AddElement(c_nBar, 1, 2);
  host.AddElement(9, 1, 2);
  host.AddElement(c_nBar, 1, 99);  // an end that does not exist
  model.BuildModel();
  const int nCodes[] = {1, 2, 3, 6, 0};
  ASSERT_EQ(model.GetElements().size(), 7U);
  for (int k = 0; k < 5; ++k) EXPECT_EQ(model.GetElements()[k]->GetTypeCode(), nCodes[k]) << k;
  EXPECT_TRUE(!model.GetElements()[5] && !model.GetElements()[6]);
  EXPECT_TRUE(model.m_bValid && platform.GetMessages().empty()) << "what is left out is not reported";
}

// The joint kind at the end of the last beam is taken for the material code: 5..10 would be concrete.
TEST(ModelBuilds, MaterialFollowsTheLastBeamsJoint) {
  for (const auto& [nKind, nMaterial] : {std::pair{1, 0}, {0, 0}, {5, 1}, {10, 6}, {11, 0}}) {
    CTestPlatform platform;
    CHostModel host;
    for (const int nJoint : std::initializer_list<int>{c_nRigid, c_nRigid, nKind}) host.AddNode(0, 0, 0, nJoint);
    host.AddElement(c_nBeam, 1, 2);
    host.AddElement(c_nBeam, 2, 3);
    host.AddElement(c_nBar, 1, 2);
    CAnalysisModel model;
    model.BuildModel();
    for (const auto& pElement : model.GetElements()) EXPECT_EQ(pElement->GetMaterialNo(), nMaterial) << nKind;
    ASSERT_EQ(model.GetMaterials().size(), 7U);
    const double dE[] = {2.06e11, 2.55e10, 2.80e10, 3.00e10, 3.15e10, 3.25e10, 3.35e10};
    for (int i = 0; i < 7; ++i) {
      EXPECT_EQ(model.GetMaterials()[i]->GetElasticModulus(), dE[i]);
      EXPECT_EQ(model.GetMaterials()[i]->GetPoissonRatio(), i == 0 ? 0.3 : 0.2);
      EXPECT_EQ(model.GetMaterials()[i]->GetUnitWeight(), i == 0 ? 7900.0 : 2500.0);
    }
  }
}

TEST(ModelBuilds, SectionTablesReachTheElement) {
  const char* const shearCoefficients[] = {"2", "1.2", "1", "1.2", "1.2", "1.2", "2"};  // shapes 1..7
  for (int nShape = 1; nShape <= 7; ++nShape) {
    CTestPlatform platform;
    CHostModel host;
    host.SetSection(3, nShape, 12000, 0.0, 2e8, 5e8);
    for (const int nX : {0, 1}) host.AddNode(nX, 0, 0);
    host.AddElement(c_nBeam, 1, 2, 300 + nShape);
    CAnalysisModel model;
    model.BuildModel();
    std::ostringstream strm;
    CTextWriter out(strm);
    model.GetElements()[0]->OutputMaterial(out);
    out.Flush();
    EXPECT_EQ(strm.str(), "Beam  面积:0.012  绕X轴惯性矩:0  绕Y轴惯性矩:0.0002  绕Z轴惯性矩:0.0005\n截面修正系数:" +
                              std::string(shearCoefficients[nShape - 1]) +
                              "  材料类型编号:0                节点号:1  2\n");
    // A section without torsion constant takes Iy + Iz.
    EXPECT_NEAR(model.GetElements()[0]->FormElementStiffness(false, false)[3][3], 2.06e11 / 2.6 * 7e-4, 10.0);
  }
}

TEST_F(ModelBuild, GroupsConsecutiveLoadsByKey) {
  TwoNodesAndMember(host, c_nBeam);
  for (const int nCode : {1001, 1101, 2001, 301, 401, 501, 601, 302, 301}) host.AddLoadCode(nCode, 2, nCode);
  model.BuildModel();
  const std::vector<CLoadCase>& groups = model.GetLoadCases();
  const std::vector<std::size_t> expected = {2, 1, 4, 1, 1};
  ASSERT_EQ(groups.size(), expected.size());
  for (std::size_t g = 0; g < expected.size(); ++g) EXPECT_EQ(groups[g].m_records.size(), expected[g]) << g;

  // Digits 1..6 stand for X, Y, Z, RY, RZ, RX; what has no equation adds nothing.
  std::vector<double> load(model.GetTotalDofs(), 0.0);
  std::vector<double> second(model.GetTotalDofs(), 0.0);
  const CNodeTable& nodes = model.GetNodes();
  const int nDofs[] = {c_nDofX, c_nDofY, c_nDofZ, c_nDofRY, c_nDofRZ, c_nDofRX};
  for (int nDirection = 0; nDirection < 6; ++nDirection) {
    const CNodalLoad record{nDirection % 2, nDirection, 1, 7.0};
    const int nDof = nodes.FindDof(1, nDofs[nDirection]);
    EXPECT_EQ(record.AddToVector(load, second, 2.0), nDof);
    EXPECT_EQ((nDirection % 2 == 1 ? second : load)[nDof], 14.0);
  }
  const double dSum = std::accumulate(load.begin(), load.end(), 0.0);
  for (const CNodalLoad& record : {CNodalLoad{0, -1, 1, 5.0}, CNodalLoad{0, 6, 1, 5.0}, CNodalLoad{0, 0, 2, 5.0},
                                   CNodalLoad{0, 0, -1, 5.0}, CNodalLoad{0, 0, 3, 5.0}}) {
    EXPECT_EQ(record.AddToVector(load, second), -1);
  }
  EXPECT_EQ(std::accumulate(load.begin(), load.end(), 0.0), dSum);
}

TEST_F(ModelBuild, CombinesSelectedGroupsInNewtons) {
  TwoNodesAndMember(host, c_nBeam);
  for (int nCase = 0; nCase < 23; ++nCase) host.AddLoad(nCase, 2, c_nDofY, nCase + 1);
  model.BuildModel();
  model.m_nLoadCaseFlag[0] = model.m_nLoadCaseFlag[19] = 1;
  model.m_dLoadFactor[0] = 1.2;
  model.m_dLoadFactor[19] = -0.5;
  model.m_dLoadFactor[1] = 100.0;
  model.AssembleCombinedLoad();
  EXPECT_DOUBLE_EQ(model.GetLoadVector()[model.GetNodes().FindDof(1, c_nDofY)], 1200.0 - 0.5 * 20000.0);
  model.BuildLoadVector(2);  // as recorded, without factor
  EXPECT_DOUBLE_EQ(model.GetLoadVector()[model.GetNodes().FindDof(1, c_nDofY)], 3.0);
  EXPECT_NE(platform.GetConsole().find("获取荷载向量\n荷载组装\n"), std::string::npos);
}

TEST_F(ModelBuild, FormsNodeLoadMassesFromVerticalLoads) {
  TwoNodesAndMember(host, c_nBeam);
  host.AddLoadCode(301, 7, 100.0);  // no such node
  host.AddLoadCode(5301, 2, -3.0);  // dead load takes factor 0 whatever its case
  // Those of 100 do not count: horizontal, case not selected, unknown type, case beyond the combination.
  for (const auto& [nCode, dValue] :
       {std::pair{301, 10.0}, {1302, 4.0}, {101, 100.0}, {2302, 100.0}, {1303, 100.0}, {25302, 100.0}})
    host.AddLoadCode(nCode, 2, dValue);
  model.m_nLoadCaseFlag[0] = model.m_nLoadCaseFlag[1] = 1;
  model.m_nLoadCaseFlag[2] = 2;  // only the flag value 1 counts
  model.m_dLoadFactor[0] = 2.0;
  model.m_dLoadFactor[1] = 0.5;
  model.BuildModelForModes(true);
  ASSERT_EQ(model.GetNodeLoadMass().size(), 3U);
  EXPECT_DOUBLE_EQ(model.GetNodeLoadMass()[1], 2.0 * 10.0 + 0.5 * 4.0 - 2.0 * 3.0);
  EXPECT_EQ(model.GetNodeLoadMass()[0], 0.0);
}

// One plus the distance to the lowest coupled equation, summed up; the parts are independent of each other.
TEST_F(ModelBuild, SkylineReachesTheLowestCoupledEquation) {
  for (int i = 0; i < 4; ++i) host.AddNode(i, i % 2, 0, c_nPinned);
  host.AddElement(c_nBar, 1, 3);
  host.AddElement(c_nBeam, 4, 2);
  model.BuildModel();
  EXPECT_EQ(model.GetDiagonalAddresses(), (std::vector<int>{0, 2, 5, 6, 8, 11, 18, 26, 35, 42, 50, 59}));
}

// A chain fits; a star, where every column reaches equation 0, does not.
TEST(ModelBuilds, FillsTheRecordsToTheirCapacityButNotTheAddresses) {
  for (const bool bStar : {false, true}) {
    CTestPlatform platform;
    CHostModel host;
    for (int i = 0; i < c_nMaxNodes; ++i) host.AddNode(i, 0, 0);
    for (int i = 1; i < c_nMaxNodes; ++i) host.AddElement(c_nBeam, bStar ? 1 : i, i + 1);
    CAnalysisModel model;
    model.BuildModel();
    EXPECT_EQ(model.m_bValid, !bStar);
    EXPECT_EQ(model.GetFreeDofs(), 6 * c_nMaxNodes);
    EXPECT_EQ(platform.GetMessages(), bStar ? Strings{"总刚矩阵存储量超出范围,计算终止!"} : Strings{});
  }
}

}  // namespace
}  // namespace skyframe::test
