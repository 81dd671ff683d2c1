#include <algorithm>
#include <cstdint>
#include <limits>

#include "skyframe/hostdata/HostData.h"
#include "skyframe/model/AnalysisModel.h"
#include "skyframe/model/BeamElement.h"
#include "skyframe/model/HingedBeams.h"
#include "skyframe/model/TrussElement.h"
#include "skyframe/platform/Platform.h"
#include "skyframe/values/Steel.h"
#include "texts.h"

namespace skyframe {
namespace {

// Host units to SI, in the single precision of the host records.
constexpr float c_fSquareMetre = 1.0e-6F;        // mm2 -> m2
constexpr float c_fFourthPowerMetre = 1.0e-12F;  // mm4 -> m4
constexpr float c_fNewtonPerMetre = 1.0e6F;      // kN/mm -> N/m

enum HostElementType : int { c_nHostBar, c_nHostBeam, c_nHostCable, c_nHostMembrane };

constexpr ElasticConstants c_concretes[] = {{2.55e10, 0.2, 2500.0}, {2.80e10, 0.2, 2500.0}, {3.00e10, 0.2, 2500.0},
                                            {3.15e10, 0.2, 2500.0}, {3.25e10, 0.2, 2500.0}, {3.35e10, 0.2, 2500.0}};

/// Index of a host node number, -1 for one outside the node list.
int GetNodeIndex(int nNumber) { return nNumber >= 1 && nNumber <= ABCD.m_nNodes ? nNumber - 1 : -1; }

/// 0-based end nodes of a host element; bValid false when one lies outside the node list.
struct ElementEnds {
  int nI;
  int nJ;
  bool bValid;
};

ElementEnds GetElementEnds(int nSlot) {
  const int nI = GetNodeIndex(ABCD.m_nFirstNode[nSlot]);
  const int nJ = GetNodeIndex(ABCD.m_nSecondNode[nSlot]);
  return {nI, nJ, nI >= 0 && nJ >= 0};
}

bool FitsRecords() {
  return ABCD.m_nNodes <= c_nMaxNodes && ABCD.m_nElements <= c_nMaxElements && ABCD.m_nLoads <= c_nMaxLoads;
}

double GetShearCoefficient(int nShape) {
  switch (nShape) {
    case 2:
    case 4:
    case 5:
    case 6:
      return 1.2;
    case 3:
      return 1.0;
    default:
      return 2.0;
  }
}

int GetMaterialIndex(int nMaterialCode) { return nMaterialCode >= 5 && nMaterialCode <= 10 ? nMaterialCode - 4 : 0; }

std::unique_ptr<CElement> MakeBeam(bool bRigidI, bool bRigidJ) {
  if (bRigidI && bRigidJ) return std::make_unique<CBeamElem>();
  if (bRigidJ) return std::make_unique<CBeamHingeLeft>();
  if (bRigidI) return std::make_unique<CBeamHingeRight>();
  return std::make_unique<CBeamHingeBoth>();
}

}  // namespace

void CAnalysisModel::BuildModel() { m_bValid = Build(false, false); }

void CAnalysisModel::BuildModelForModes(bool bLoadComb) { m_bValid = Build(true, bLoadComb); }

bool CAnalysisModel::Build(bool bForModes, bool bLoadComb) {
  // Deliberate: the wait cursor stays on when the build is broken off; the entry point's end removes it.
  GetPlatform().BeginWaitCursor();
  m_bValid = false;
  GetPlatform().GetConsole() << texts::c_strNodesCleared << '\n';
  m_nodes.Clear();
  g_pNodeTable = &m_nodes;
  g_pMaterials = &m_materials;

  if (ABCD.m_nNodes <= 0) return Refuse(texts::c_strNoNodes);
  if (!FitsRecords()) return Refuse(texts::c_strBeyondCapacity);
  ReadNodes();
  const std::vector<bool> inUse = MarkNodesInUse();
  ReadSupports(inUse);
  if (ABCD.m_nElements <= 0) return Refuse(texts::c_strNoElements);
  if (bForModes && HasInclinedSupport(inUse)) return Refuse(texts::c_strInclinedSupport);

  int nMaterialCode = 0;
  if (!CreateElements(nMaterialCode)) return false;
  CreateMaterials();
  SetElementData(nMaterialCode);
  ReadLoads();
  if (bForModes && bLoadComb) FormNodeLoadMass();

  m_nodes.NumberDofs();
  m_load.assign(GetTotalDofs(), 0.0);
  m_secondLoad.assign(GetTotalDofs(), 0.0);
  m_displacement.assign(GetTotalDofs(), 0.0);
  m_internalForce.assign(GetTotalDofs(), 0.0);
  m_reaction.assign(GetTotalDofs() - GetFreeDofs(), 0.0);
  if (!LayOutSkyline()) return false;
  GetPlatform().EndWaitCursor();
  return true;
}

bool CAnalysisModel::Refuse(std::string_view strMessage) {
  GetPlatform().ShowMessage(strMessage);
  return false;
}

void CAnalysisModel::ReadNodes() {
  m_nodes.Resize(ABCD.m_nNodes);
  for (int nNumber = 1; nNumber <= ABCD.m_nNodes; ++nNumber) {
    m_nodes.SetNode(nNumber - 1, ABCD.m_nJoint[nNumber], ABCD.m_fX[nNumber], ABCD.m_fY[nNumber], ABCD.m_fZ[nNumber]);
  }
}

std::vector<bool> CAnalysisModel::MarkNodesInUse() const {
  std::vector<bool> inUse(ABCD.m_nNodes, false);
  for (int nSlot = 0; nSlot < ABCD.m_nElements; ++nSlot) {
    const ElementEnds ends = GetElementEnds(nSlot);
    if (ends.bValid) inUse[ends.nI] = inUse[ends.nJ] = true;
  }
  return inUse;
}

void CAnalysisModel::ReadSupports(const std::vector<bool>& inUse) {
  for (int nNode = 0; nNode < m_nodes.GetNodeCount(); ++nNode) {
    if (!inUse[nNode]) continue;
    const RestraintCode code = RestraintCode::Decode(ABCD.m_nRestraint[nNode + 1]);
    std::array<int, c_nDofsPerNode> restraint = {};
    if (code.bSpring) {
      float fK[3] = {};
      CCommonData::OnCalculateKxKyKz(code.nSpringGroup, fK[0], fK[1], fK[2]);
      std::array<double, 3> stiffness = {};
      for (int nDirection = 0; nDirection < 3; ++nDirection) {
        stiffness[nDirection] = fK[nDirection] * c_fNewtonPerMetre;
        restraint[nDirection] = stiffness[nDirection] > 0.0 ? 1 : 0;
      }
      m_nodes.AddSpring(nNode, stiffness);
    } else {
      std::copy(std::begin(code.nRestrained), std::end(code.nRestrained), restraint.begin());
    }
    m_nodes.AddListedNode(nNode, restraint);
  }
}

bool CAnalysisModel::HasInclinedSupport(const std::vector<bool>& inUse) const {
  const int nCount = std::min(ZHU.m_nCount, c_nMaxNodes);
  return std::any_of(ZHU.m_nNode, ZHU.m_nNode + std::max(nCount, 0), [&](int nNumber) {
    return nNumber >= 1 && nNumber <= m_nodes.GetNodeCount() && inUse[nNumber - 1];
  });
}

bool CAnalysisModel::CreateElements(int& nMaterialCode) {
  m_elements.clear();
  m_elements.resize(ABCD.m_nElements);
  for (int nSlot = 0; nSlot < ABCD.m_nElements; ++nSlot) {
    const ElementEnds ends = GetElementEnds(nSlot);
    const int nType = ABCD.m_nElementType[nSlot];
    if (nType == c_nHostCable || nType == c_nHostMembrane) {
      m_elements.clear();
      return Refuse(nType == c_nHostCable ? texts::c_strNoCables : texts::c_strNoMembranes);
    }
    if (!ends.bValid) continue;
    if (nType == c_nHostBar) {
      m_elements[nSlot] = std::make_unique<CTrussElem>();
    } else if (nType == c_nHostBeam) {
      m_elements[nSlot] = MakeBeam(m_nodes.IsRigid(ends.nI), m_nodes.IsRigid(ends.nJ));
      // Deliberate: the joint kind at the end of the last beam serves as the material code of all elements.
      nMaterialCode = m_nodes.GetJointKind(ends.nJ);
    }
  }
  for (int nSlot = 0; nSlot < ABCD.m_nElements; ++nSlot) {
    const ElementEnds ends = GetElementEnds(nSlot);
    if (m_elements[nSlot]) m_elements[nSlot]->ReadNodes(ends.nI, ends.nJ);
  }
  return true;
}

void CAnalysisModel::CreateMaterials() {
  const auto add = [this](std::unique_ptr<CMaterial> pMaterial, const ElasticConstants& constants) {
    pMaterial->SetProperties(constants.dE, constants.dNu, constants.dUnitWeight, 0.0, 0.0, 0.0);
    m_materials.push_back(std::move(pMaterial));
  };
  m_materials.clear();
  add(std::make_unique<CSteel>(), c_steel);
  for (const ElasticConstants& constants : c_concretes) add(std::make_unique<CConcrete>(), constants);
}

void CAnalysisModel::SetElementData(int nMaterialCode) {
  for (int nSlot = 0; nSlot < ABCD.m_nElements; ++nSlot) {
    if (!m_elements[nSlot]) continue;
    const int nGroup = ABCD.m_nSection[nSlot] / 100;
    const int nShape = ABCD.m_nSection[nSlot] % 100;
    const int nIndex = (nGroup - 1) * c_nShapesPerGroup + (nShape - 1);
    ElementData data;
    if (nIndex >= 0 && nIndex < c_nSectionSlots) {
      data.dArea = SECT.m_fArea[nIndex] * c_fSquareMetre;
      data.dIx = COMDAT.m_fIx[nIndex] * c_fFourthPowerMetre;
      data.dIy = COMDAT.m_fIy[nIndex] * c_fFourthPowerMetre;
      data.dIz = COMDAT.m_fIz[nIndex] * c_fFourthPowerMetre;
    }
    data.dTorsionAlt = data.dIy + data.dIz;
    data.dShearCoefficient = GetShearCoefficient(nShape);
    data.nMaterialNo = GetMaterialIndex(nMaterialCode);
    data.dMass = m_materials[data.nMaterialNo]->GetUnitWeight() * data.dArea;
    data.nElemNo = nSlot;
    m_elements[nSlot]->SetData(data);
    m_elements[nSlot]->ComputeLocalAxes();
  }
}

void CAnalysisModel::ReadLoads() {
  m_loadCases.clear();
  int nPreviousKey = 0;
  for (int nSlot = 0; nSlot < ABCD.m_nLoads; ++nSlot) {
    const int nCode = ABCD.m_nLoadCode[nSlot];
    const int nKey = LoadCode::GetGroupKey(nCode);
    if (nSlot == 0 || nKey != nPreviousKey) m_loadCases.emplace_back();
    nPreviousKey = nKey;
    CNodalLoad load;
    load.m_nDirection = LoadCode::GetDirectionDigit(nCode) - 1;
    load.m_nNode = GetNodeIndex(ABCD.m_nLoadNode[nSlot]);
    load.m_dValue = ABCD.m_fLoadValue[nSlot];
    m_loadCases.back().m_records.push_back(load);
  }
}

void CAnalysisModel::FormNodeLoadMass() {
  constexpr int c_nVerticalDigit = 3;
  m_nodeLoadMass.assign(m_nodes.GetNodeCount(), 0.0);
  for (int nSlot = 0; nSlot < ABCD.m_nLoads; ++nSlot) {
    const int nCode = ABCD.m_nLoadCode[nSlot];
    const int nNode = GetNodeIndex(ABCD.m_nLoadNode[nSlot]);
    const int nType = LoadCode::GetType(nCode);
    const int nCase = nType == 1 ? 0 : LoadCode::GetCase(nCode);
    const bool bCounts = LoadCode::GetDirectionDigit(nCode) == c_nVerticalDigit && (nType == 1 || nType == 2) &&
                         nCase >= 0 && nCase < c_nLoadTypes && m_nLoadCaseFlag[nCase] == 1 && nNode >= 0;
    if (bCounts) m_nodeLoadMass[nNode] += ABCD.m_fLoadValue[nSlot] * m_dLoadFactor[nCase];
  }
}

bool CAnalysisModel::LayOutSkyline() {
  GetPlatform().GetConsole() << texts::c_strDiagonalAddresses << '\n';
  const int N = GetTotalDofs();
  std::vector<int> heights(N, 1);
  for (const auto& pElement : m_elements) {
    if (pElement) pElement->AddToBandwidth(heights);
  }
  // diag[i] = sum of the heights of columns 1..i
  m_diagonal.assign(N, 0);
  std::int64_t nAddress = 0;
  for (int i = 1; i < N; ++i) {
    nAddress += heights[i];
    if (nAddress >= std::numeric_limits<int>::max()) return Refuse(texts::c_strProfileTooLarge);
    m_diagonal[i] = static_cast<int>(nAddress);
  }
  m_stiffness.SetProfile(N, m_diagonal);
  return true;
}

}  // namespace skyframe
