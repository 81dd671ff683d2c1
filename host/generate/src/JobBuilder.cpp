#include "JobBuilder.h"

#include <cmath>

namespace skyframe::host {

namespace {

double RoundLength(double dLength) { return std::round(dLength * 1.0e9) / 1.0e9 + 0.0; }

}  // namespace

int CJobBuilder::AddNode(double dX, double dY, double dZ, JointKind joint, std::string_view strRestraint) {
  JobNode node;
  node.nId = static_cast<int>(m_job.nodes.size()) + 1;
  node.dX = RoundLength(dX);
  node.dY = RoundLength(dY);
  node.dZ = RoundLength(dZ);
  node.nJoint = joint;
  for (std::size_t d = 0; d < node.restraint.size(); ++d) node.restraint[d] = strRestraint[d] - '0';
  m_job.nodes.push_back(node);
  return node.nId;
}

int CJobBuilder::AddSection(const JobSection& section) {
  m_job.sections.push_back(section);
  return static_cast<int>(m_job.sections.size()) - 1;
}

void CJobBuilder::AddElement(ElementType type, int nNodeI, int nNodeJ, int nSection) {
  m_job.elements.push_back({type, nNodeI, nNodeJ, nSection});
}

void CJobBuilder::AddLoad(int nCase, int nNode, int nDirection, double dValue) {
  if (dValue != 0.0) m_job.loads.push_back({nCase, nNode, nDirection, RoundLength(dValue)});
}

void CJobBuilder::AddStatic(StaticJob analysis) {
  for (const JobLoad& load : m_job.loads) analysis.combination[load.nCase] = 1.0;
  m_job.analyses.emplace_back(std::move(analysis));
}

JobCombination CJobBuilder::FormMassCombination() const {
  JobCombination combination;
  for (const JobLoad& load : m_job.loads) {
    if (load.nCase <= 1) combination[load.nCase] = load.nCase == 0 ? -1.0 : -0.5;
  }
  return combination;
}

void CJobBuilder::AddEarthquake(int nModes, double dDamping) {
  ModalJob modal;
  modal.nModes = nModes;
  modal.nRootCheck = 1;  // compare
  modal.bShear = false;
  modal.combination = FormMassCombination();
  m_job.analyses.emplace_back(std::move(modal));

  SpectrumJob spectrum;
  spectrum.nModes = nModes;
  spectrum.direction = {1.0, 0.0, 0.0};
  spectrum.nSiteClass = 2;
  spectrum.nZoneGroup = 1;
  spectrum.nIntensity = 3;  // 8 (0.20g)
  spectrum.nLevel = 0;      // frequent
  spectrum.dDamping = dDamping;
  spectrum.nMethod = 1;  // CQC
  spectrum.combination = FormMassCombination();
  m_job.analyses.emplace_back(std::move(spectrum));
}

}  // namespace skyframe::host
