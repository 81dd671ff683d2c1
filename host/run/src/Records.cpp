#include "Records.h"

#include <algorithm>

#include "skyframe/hostdata/HostData.h"

namespace skyframe::host {

namespace {

constexpr int c_nDofZ = 2;

float ToRecord(double dValue) { return static_cast<float>(dValue); }

void FillNodes(const Job& job) {
  ABCD.m_nNodes = static_cast<int>(job.nodes.size());
  for (int i = 1; i <= ABCD.m_nNodes; ++i) {
    const JobNode& node = job.nodes[i - 1];
    int nRestrained[6];
    std::copy(node.restraint.begin(), node.restraint.end(), nRestrained);
    ABCD.m_fX[i] = ToRecord(node.dX);
    ABCD.m_fY[i] = ToRecord(node.dY);
    ABCD.m_fZ[i] = ToRecord(node.dZ);
    ABCD.m_nJoint[i] = node.nJoint;
    ABCD.m_nRestraint[i] =
        node.nSpring ? RestraintCode::EncodeSpring(*node.nSpring) : RestraintCode::EncodeRestraint(nRestrained);
  }
  for (const JobSpring& spring : job.springs) {
    CCommonData::SetSpringGroup(spring.nGroup, ToRecord(spring.dKx), ToRecord(spring.dKy), ToRecord(spring.dKz));
  }
}

/// Each section is a section group of its own and stands at the place of its shape.
void FillSections(const Job& job) {
  for (std::size_t k = 0; k < job.sections.size(); ++k) {
    const JobSection& section = job.sections[k];
    const std::size_t nPlace = k * c_nShapesPerGroup + static_cast<std::size_t>(section.nShape - 1);
    SECT.m_fArea[nPlace] = ToRecord(section.dArea);
    COMDAT.m_fIx[nPlace] = ToRecord(section.dIx);
    COMDAT.m_fIy[nPlace] = ToRecord(section.dIy);
    COMDAT.m_fIz[nPlace] = ToRecord(section.dIz);
  }
}

void FillElements(const Job& job) {
  ABCD.m_nElements = static_cast<int>(job.elements.size());
  for (int k = 0; k < ABCD.m_nElements; ++k) {
    const JobElement& element = job.elements[k];
    ABCD.m_nElementType[k] = element.nType;
    ABCD.m_nFirstNode[k] = element.nNodeI;
    ABCD.m_nSecondNode[k] = element.nNodeJ;
    ABCD.m_nSection[k] = (element.nSection + 1) * 100 + job.sections[element.nSection].nShape;
  }
}

void FillInclinedSupports(const Job& job) {
  ZHU.m_nCount = static_cast<int>(job.inclinedSupports.size());
  std::copy(job.inclinedSupports.begin(), job.inclinedSupports.end(), ZHU.m_nNode);
}

void FillLoads(const Job& job) {
  std::vector<JobLoad> loads = job.loads;
  for (const int nCase : job.FindEmptyCases()) loads.push_back({nCase, job.loads.front().nNode, c_nDofZ, 0.0});
  std::stable_sort(loads.begin(), loads.end(), [](const JobLoad& a, const JobLoad& b) { return a.nCase < b.nCase; });
  ABCD.m_nLoads = static_cast<int>(loads.size());
  ABCD.m_nLoadCases = job.GetHighestCase();
  for (int k = 0; k < ABCD.m_nLoads; ++k) {
    ABCD.m_nLoadNode[k] = loads[k].nNode;
    ABCD.m_nLoadCode[k] = LoadCode::Encode(loads[k].nCase, loads[k].nDirection);
    ABCD.m_fLoadValue[k] = ToRecord(loads[k].dValue);
  }
}

}  // namespace

bool FillRecords(const Job& job, const std::string& strJobPath, const std::string& strProgramPath) {
  if (strJobPath.size() >= c_nMaxPath) return false;
  ResetHostData();
  FillNodes(job);
  FillSections(job);
  FillElements(job);
  FillInclinedSupports(job);
  FillLoads(job);
  std::copy(strJobPath.begin(), strJobPath.end(), COMDAT.m_szJobPath);
  g_FilePathName = strJobPath;
  g_ProgramPath = strProgramPath;
  return true;
}

}  // namespace skyframe::host
