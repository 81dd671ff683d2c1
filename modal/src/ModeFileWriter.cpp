#include "ResultHeader.h"
#include "skyframe/hostdata/HostData.h"
#include "skyframe/modal/ModeFile.h"
#include "skyframe/platform/OutputFile.h"
#include "skyframe/platform/Progress.h"
#include "skyframe/values/ResultFiles.h"
#include "skyframe/values/SpectrumSite.h"
#include "texts.h"

namespace skyframe {
namespace {

constexpr int c_nModeWidth = 6;
constexpr int c_nNodeWidth = 10;
constexpr int c_nValueWidth = 15;

/// Number, 1-based, that the renumbering gave to host node i (1-based); i itself without one.
int GetRenumbered(int i, int nNodes) {
  if (COMDAT.m_pSecondOrder == nullptr) return i;
  const int nNumber = COMDAT.m_pSecondOrder[i];
  return nNumber >= 1 && nNumber <= nNodes ? nNumber : i;
}

void WriteFrequencies(CTextWriter& out, const std::vector<double>& omega) {
  out.Text(texts::c_strFrequencyMark).EndLine();
  int i = 0;
  for (const double w : omega) {
    out.Integer(++i, c_nModeWidth).General(w, c_nValueWidth).General(w * c_dHertzPerRadian, c_nValueWidth).EndLine();
  }
}

/// Restrained DOFs and those of unused nodes write 0.
void WriteShape(CTextWriter& out, const CAnalysisModel& model, int nMode) {
  const CNodeTable& nodes = model.GetNodes();
  for (int i = 1; i <= nodes.GetNodeCount(); ++i) {
    const int nNumber = GetRenumbered(i, nodes.GetNodeCount());
    const int nNode = nNumber - 1;
    out.Integer(nNumber, c_nNodeWidth);
    for (int nDirection = 0; nDirection < nodes.GetDofCount(nNode); ++nDirection) {
      const int e = nodes.FindDof(nNode, nDirection);
      out.General(e >= 0 && e < model.GetFreeDofs() ? model.ModeShapes[e][nMode] : 0.0, c_nValueWidth);
    }
    out.EndLine();
  }
}

}  // namespace

bool WriteModeFile(const CAnalysisModel& model, const std::string& strJobPath, RunFindings& findings) {
  COutputFile file(FormResultPath(strJobPath, suffix::c_strModes));
  CTextWriter& out = file.GetWriter();
  WriteResultHeader(out, texts::c_strModeHeader, model);
  const int n = static_cast<int>(model.Omega.size());
  out.Text(" ").Integer(n).Text(" ").Integer(model.m_bShear).EndLine();
  WriteFrequencies(out, model.Omega);
  CProgress progress(texts::c_strWriteModes, n);
  for (int i = 0; i < n; ++i) {
    out.Text(texts::c_strShapeMark).Integer(i + 1).Text(":").EndLine();
    out.General(model.Omega[static_cast<std::size_t>(i)] * c_dHertzPerRadian).EndLine();
    WriteShape(out, model, i);
    progress.Advance();
  }
  return CommitResult(file, findings);
}

}  // namespace skyframe
