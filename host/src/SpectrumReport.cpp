#include "SpectrumReport.h"

#include <algorithm>

#include "Format.h"
#include "ModeLoader.h"
#include "skyframe/hostdata/HostData.h"
#include "skyframe/modal/SpectrumReport.h"

namespace skyframe::host {

namespace {

constexpr double c_dKilonewtonPerNewton = 1.0e-3;

/// What the dialog left in the host's record.
void SetSpectrumParameters(CAnalysisModel& model) {
  model.m_nSiteClass = COMDYN.m_nSiteClass;
  model.m_nZoneGroup = COMDYN.m_nZoneGroup;
  model.m_nIntensity = COMDYN.m_nIntensity;
  model.m_nQuakeLevel = COMDYN.m_nQuakeLevel;
  model.m_nCombMethod = COMDYN.m_nCombMethod;
  model.m_dDampRatio = COMDYN.m_dDampRatio;
  std::copy(std::begin(COMDYN.m_dDirCoef), std::end(COMDYN.m_dDirCoef), model.m_dDirCoef.begin());
  model.m_bVirtualModes = COMDYN.m_bVirtualModes;
  model.m_nPseudoLoadNo = COMDYN.m_nPseudoLoadNo;
}

void PrintLargestDisplacement(const Job& job, std::ostream& out) {
  const float* pFirst = COMDAT.m_fSpectrum + 1;
  const float* pLargest = std::max_element(pFirst, pFirst + job.nodes.size());
  out << Format("  largest displacement  %.6g m at node %d, combined\n", static_cast<double>(*pLargest),
                job.nodes[static_cast<std::size_t>(pLargest - pFirst)].nId);
}

}  // namespace

void PrintSpectrumReport(const Job& job, const SpectrumJob& analysis, const std::string& strJobPath,
                         std::ostream& out) {
  const auto strMethod = std::string(c_strModalCombinations[static_cast<std::size_t>(COMDYN.m_nCombMethod)]);
  out << Format("  combination           %s of %d modes%s, damping ratio %g\n", strMethod.c_str(),
                COMDYN.m_nExpandModes, COMDYN.m_bVirtualModes == 1 ? " and the virtual mode" : "", COMDYN.m_dDampRatio);
  const std::unique_ptr<CAnalysisModel> pModel = LoadModes(analysis.combination, strJobPath, COMDYN.m_nExpandModes);
  if (pModel) SetSpectrumParameters(*pModel);
  if (const auto V = pModel ? ComputeBaseShear(*pModel, pModel->m_bLoadComb) : std::nullopt) {
    out << Format("  base shear            X %.3f, Y %.3f, Z %.3f kN\n", (*V)[0] * c_dKilonewtonPerNewton,
                  (*V)[1] * c_dKilonewtonPerNewton, (*V)[2] * c_dKilonewtonPerNewton)
        << "                        (inertia forces summed mode by mode, then the sums combined)\n";
  } else {
    out << "  the mode file cannot be read back\n";
  }
  PrintLargestDisplacement(job, out);
}

}  // namespace skyframe::host
