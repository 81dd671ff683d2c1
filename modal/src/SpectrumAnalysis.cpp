#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

#include "SpectrumFile.h"
#include "SpectrumResponse.h"
#include "skyframe/hostdata/HostData.h"
#include "skyframe/modal/DesignSpectrum.h"
#include "skyframe/platform/Platform.h"
#include "texts.h"

namespace skyframe {
namespace {

constexpr int c_nMaxStations = 21;

std::optional<std::string_view> FindModeError(const CAnalysisModel& model) {
  const int k = model.m_nExpandModes;
  const bool bPresent =
      model.ModesSolved != 0 && static_cast<int>(model.Omega.size()) >= k && model.ModeShapes.GetCols() >= k;
  if (k > model.m_nModes) return c_strTooManyExpanded;
  if (k < 1) return c_strBadExpanded;
  if (!bPresent) return c_strNoModes;
  return std::nullopt;
}

/// Design spectrum and virtual mode.
std::optional<std::string_view> FindParameterError(const CAnalysisModel& model) {
  if (!(model.VerticalReduction >= 0.0)) return c_strBadVerticalReduction;
  if (!(model.m_dDampRatio >= 0.0)) return c_strBadDamping;
  if (!NormaliseDirection(model.m_dDirCoef)) return c_strNoDirection;
  const SpectrumSite site = {model.m_nQuakeLevel, model.m_nIntensity, model.m_nZoneGroup, model.m_nSiteClass};
  if (const auto strError = FindSiteError(site)) return strError;
  const bool bVirtual = model.m_bVirtualModes == 1 && model.m_nExpandModes < model.GetFreeDofs();
  if (bVirtual && model.m_nPseudoLoadNo < 0) return c_strBadPseudoLoad;
  return std::nullopt;
}

/// First check that fails, in the required order.
std::optional<std::string_view> FindInputError(const CAnalysisModel& model) {
  if (std::ranges::all_of(model.m_dDirCoef, [](double c) { return c == 0.0; })) return c_strNoDirection;
  if (model.m_nMeshDiv > c_nMaxStations) return c_strMeshTooFine;
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

}  // namespace

void CAnalysisModel::SpectrumAnalysis(const std::string& strJobPath, int nAnalysisType, bool bUseLoadMass) {
  // Deliberate: the count of cells becomes the count of stations, and stays so in the model.
  if (m_nMeshDiv < std::numeric_limits<int>::max()) ++m_nMeshDiv;
  if (const auto strError = FindInputError(*this)) return GetPlatform().ShowMessage(*strError);
  if (!m_bValid) return;

  SpectrumModes modes;
  const auto direction = NormaliseDirection(m_dDirCoef);
  if (!direction || !FormSpectrumModes(*this, *direction, nAnalysisType != 0, bUseLoadMass, modes)) return;
  const SpectrumResult result = CombineModes(*this, modes);
  if (!WriteSpectrumFiles(*this, modes, result, strJobPath, m_spectrumFindings)) {
    GetPlatform().ShowMessage(c_strSpectrumFileAccess);
    return;
  }
  WriteBack(m_nodes, result.displacement);
}

}  // namespace skyframe
