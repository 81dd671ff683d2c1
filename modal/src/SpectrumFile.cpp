#include "SpectrumFile.h"

#include <algorithm>

#include "ResultHeader.h"
#include "skyframe/modal/ModeFile.h"
#include "skyframe/platform/OutputFile.h"
#include "skyframe/platform/Progress.h"
#include "skyframe/values/ResultFiles.h"
#include "texts.h"

namespace skyframe {
namespace {

constexpr int c_nNumberWidth = 8;
constexpr int c_nValueWidth = 15;
constexpr std::size_t c_nListColumns = 10;
constexpr std::size_t c_nStationForces = 6;

/// Ten values a line.
void WriteList(CTextWriter& out, std::span<const double> values) {
  for (std::size_t i = 0; i < values.size(); ++i) {
    out.General(values[i], c_nValueWidth);
    if ((i + 1) % c_nListColumns == 0 || i + 1 == values.size()) out.EndLine();
  }
}

/// Number and six or three values of a node from a vector over the equations.
void WriteNode(CTextWriter& out, const CNodeTable& nodes, int nNode, std::span<const double> values) {
  out.Integer(nNode + 1, c_nNumberWidth);
  for (int nDirection = 0; nDirection < nodes.GetDofCount(nNode); ++nDirection) {
    out.General(nodes.GetValue(values, nNode, nDirection), c_nValueWidth);
  }
  out.EndLine();
}

void WriteParticipation(CTextWriter& out, const SpectrumModes& modes) {
  std::vector<double> masses;
  double dComputed = 0.0;
  for (const double gamma : modes.gamma) {
    masses.push_back(gamma * gamma);
    dComputed += masses.back();
  }
  WriteList(out, modes.gamma);
  out.Text(texts::c_strModeMasses).EndLine();
  WriteList(out, masses);
  out.Text(texts::c_strComputedMass).General(dComputed).EndLine();
  out.Text(texts::c_strTotalMass).General(modes.dTotalMass).EndLine();
  WriteList(out, modes.zeta);
}

/// Element, type and station count; a bar's N on the same line, other members a line per station.
void WriteForces(CTextWriter& out, const CAnalysisModel& model, const SpectrumResult& result) {
  out.Text(texts::c_strForces).EndLine();
  CProgress progress(texts::c_strWriteSpectrum, static_cast<double>(result.elementForce.size()));
  for (std::size_t nSlot = 0; nSlot < result.elementForce.size(); ++nSlot) {
    progress.Advance();
    const CElement* const pElement = model.GetElements()[nSlot].get();
    if (pElement == nullptr) continue;
    const std::vector<double>& forces = result.elementForce[nSlot];
    out.Integer(pElement->GetElemNo() + 1, c_nNumberWidth).Integer(pElement->GetTypeCode(), c_nNumberWidth);
    out.Integer(model.m_nMeshDiv, c_nNumberWidth);
    if (forces.size() != 1) out.EndLine();
    for (std::size_t i = 0; i < forces.size(); ++i) {
      out.General(forces[i], c_nValueWidth);
      if ((i + 1) % c_nStationForces == 0 || i + 1 == forces.size()) out.EndLine();
    }
  }
}

void WriteSupports(CTextWriter& out, const CAnalysisModel& model, const SpectrumResult& result) {
  const CNodeTable& nodes = model.GetNodes();
  out.Text(texts::c_strSupports).EndLine();
  for (int nNode = 0; nNode < nodes.GetNodeCount(); ++nNode) {
    bool bSupported = false;
    for (int nDirection = 0; nDirection < c_nDofsPerNode; ++nDirection) {
      bSupported = bSupported || nodes.FindDof(nNode, nDirection) >= model.GetFreeDofs();
    }
    if (bSupported) WriteNode(out, nodes, nNode, result.reaction);
  }
}

void WriteSpectrum(CTextWriter& out, const CAnalysisModel& model, const SpectrumModes& modes,
                   const SpectrumResult& result) {
  WriteResultHeader(out, texts::c_strSpectrumHeader, model);
  out.Text(" ").Integer(model.m_nModes).EndLine();
  WriteParticipation(out, modes);
  const auto nMethod = static_cast<std::size_t>(std::clamp(model.m_nCombMethod, 0, 2));
  out.Text(texts::c_strCombineMethod).Text(texts::c_strCombineNames[nMethod]).EndLine();
  out.Text(texts::c_strNodeDisplacements).EndLine();
  for (int nNode = 0; nNode < model.GetNodes().GetNodeCount(); ++nNode) {
    WriteNode(out, model.GetNodes(), nNode, result.displacement);
  }
  WriteForces(out, model, result);
  WriteSupports(out, model, result);
}

/// Frequency in rad/s and Hz, then the shape by nodes.
void WriteVirtualMode(CTextWriter& out, const CAnalysisModel& model, const SpectrumModes& modes) {
  const double omega = modes.omega.back();
  out.Text(texts::c_strVirtualFrequency).EndLine();
  out.General(omega, c_nValueWidth).General(omega * c_dHertzPerRadian, c_nValueWidth).EndLine();
  out.Text(texts::c_strVirtualShape).EndLine();
  for (int nNode = 0; nNode < model.GetNodes().GetNodeCount(); ++nNode) {
    WriteNode(out, model.GetNodes(), nNode, modes.shape.back());
  }
}

/// gamma, alpha and displacement factor.
void WriteVirtualResponse(CTextWriter& out, const SpectrumModes& modes) {
  out.Text(texts::c_strVirtualShape).EndLine();
  out.General(modes.gamma.back(), c_nValueWidth).General(modes.alpha.back(), c_nValueWidth);
  out.General(modes.factor.back(), c_nValueWidth).EndLine();
}

template <typename WriteContent>
bool WriteFile(const std::string& strPath, RunFindings& findings, WriteContent writeContent) {
  COutputFile file(strPath);
  writeContent(file.GetWriter());
  return CommitResult(file, findings);
}

}  // namespace

bool WriteSpectrumFiles(const CAnalysisModel& model, const SpectrumModes& modes, const SpectrumResult& result,
                        const std::string& strJobPath, RunFindings& findings) {
  if (modes.bVirtual) {
    if (!WriteFile(FormResultPath(strJobPath, suffix::c_strVirtualMode), findings,
                   [&](CTextWriter& out) { WriteVirtualMode(out, model, modes); }) ||
        !WriteFile(FormResultPath(strJobPath, suffix::c_strVirtualResponse), findings,
                   [&](CTextWriter& out) { WriteVirtualResponse(out, modes); })) {
      return false;
    }
  }
  return WriteFile(FormResultPath(strJobPath, suffix::c_strSpectrum), findings,
                   [&](CTextWriter& out) { WriteSpectrum(out, model, modes, result); });
}

}  // namespace skyframe
