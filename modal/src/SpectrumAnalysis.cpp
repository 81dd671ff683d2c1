#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

#include "SpectrumFile.h"
#include "SpectrumResponse.h"
#include "skyframe/hostdata/HostData.h"
#include "skyframe/modal/DesignSpectrum.h"
#include "skyframe/modal/ModalCombination.h"
#include "skyframe/numeric/VectorAlgebra.h"
#include "skyframe/platform/Platform.h"
#include "texts.h"

namespace skyframe {
namespace {

constexpr int c_nMaxStations = 21;

std::optional<std::string_view> FindModeError(const CAnalysisModel& model) {
  const int k = model.m_nExpandModes;
  const bool bPresent =
      model.ModesSolved != 0 && static_cast<int>(model.Omega.size()) >= k && model.ModeShapes.GetCols() >= k;
  if (k > model.m_nModes) return texts::c_strTooManyExpanded;
  if (k < 1) return texts::c_strBadExpanded;
  if (!bPresent) return texts::c_strNoModes;
  return std::nullopt;
}

/// Design spectrum and virtual mode.
std::optional<std::string_view> FindParameterError(const CAnalysisModel& model) {
  if (!(model.VerticalReduction >= 0.0)) return texts::c_strBadVerticalReduction;
  if (!(model.m_dDampRatio >= 0.0)) return texts::c_strBadDamping;
  if (!NormaliseDirection(model.m_dDirCoef)) return texts::c_strNoDirection;
  if (const auto strError = FindSiteError(model)) return strError;
  const bool bVirtual = model.m_bVirtualModes == 1 && model.m_nExpandModes < model.GetFreeDofs();
  if (bVirtual && model.m_nPseudoLoadNo < 0) return texts::c_strBadPseudoLoad;
  return std::nullopt;
}

/// First check that fails.
std::optional<std::string_view> FindInputError(const CAnalysisModel& model) {
  if (std::ranges::all_of(model.m_dDirCoef, [](double c) { return c == 0.0; })) return texts::c_strNoDirection;
  if (model.m_nMeshDiv > c_nMaxStations) return texts::c_strMeshTooFine;
  if (!model.m_bValid) return std::nullopt;
  if (const auto strError = FindModeError(model)) return strError;
  return FindParameterError(model);
}

/// Table of the host: sqrt(ux^2 + uy^2 + uz^2) of the combined displacements by node number, m.
void WriteBack(const CNodeTable& nodes, std::span<const double> displacement) {
  for (int nNode = 0; nNode < nodes.GetNodeCount(); ++nNode) {
    const auto u = [&](int nDirection) { return nodes.GetValue(displacement, nNode, nDirection); };
    COMDAT.m_fSpectrum[nNode + 1] = static_cast<float>(std::hypot(u(c_nDofX), u(c_nDofY), u(c_nDofZ)));
  }
}

bool IsFinite(std::span<const double> values) {
  return std::ranges::all_of(values, [](double d) { return std::isfinite(d); });
}

/// Nothing that the result file shows is infinite or not a number.
bool IsFinite(const SpectrumModes& modes, const SpectrumResult& result) {
  return IsFinite(modes.gamma) && std::isfinite(Dot(modes.gamma, modes.gamma)) && IsFinite(result.displacement) &&
         IsFinite(result.reaction) &&
         std::ranges::all_of(result.elementForce, [](const std::vector<double>& force) { return IsFinite(force); });
}

void DescribeModes(const SpectrumModes& modes, SpectrumFindings& findings) {
  findings.omega = modes.omega;
  findings.gamma = modes.gamma;
  findings.alpha = modes.alpha;
  findings.modalMass = modes.modalMass;
  findings.effectiveMasses = modes.effectiveMasses;
  findings.totalMass = modes.directionMass;
  findings.dQuakeMass = modes.dTotalMass;
  findings.nModes = static_cast<int>(modes.GetCount()) - (modes.bVirtual ? 1 : 0);
  findings.bVirtual = modes.bVirtual;
}

}  // namespace

void CAnalysisModel::SpectrumAnalysis(const std::string& strJobPath, int nAnalysisType, bool bUseLoadMass) {
  m_spectrumFindings = {};
  m_spectrumFindings.status = RunStatus::Refused;
  m_spectrumFindings.nCombination = std::clamp<int>(m_nCombMethod, c_nSrss, c_nGrp);
  m_spectrumFindings.dDampRatio = m_dDampRatio;
  // Deliberate: the count of cells becomes the count of stations, and stays so in the model.
  if (m_nMeshDiv < std::numeric_limits<int>::max()) ++m_nMeshDiv;
  if (const auto strError = FindInputError(*this)) return GetPlatform().ShowMessage(*strError);
  const auto direction = NormaliseDirection(m_dDirCoef);
  if (!m_bValid || !direction) return;
  m_spectrumFindings.direction = *direction;
  m_spectrumFindings.status = RunStatus::Failed;

  SpectrumModes modes;
  if (!FormSpectrumModes(*this, *direction, nAnalysisType != 0, bUseLoadMass, modes)) return;
  DescribeModes(modes, m_spectrumFindings);
  const SpectrumResult result = CombineModes(*this, modes);
  m_spectrumFindings.baseShear = result.baseShear;
  m_spectrumFindings.displacements = GatherNodeValues(result.displacement);
  if (!IsFinite(modes, result)) return GetPlatform().ShowMessage(texts::c_strModeFileCounts);
  if (!WriteSpectrumFiles(*this, modes, result, strJobPath, m_spectrumFindings)) {
    return GetPlatform().ShowMessage(texts::c_strSpectrumFileAccess);
  }
  m_spectrumFindings.status = RunStatus::Done;
  WriteBack(m_nodes, result.displacement);
}

}  // namespace skyframe
