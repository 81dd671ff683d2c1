#include "StaticResult.h"

#include "skyframe/platform/Progress.h"
#include "texts.h"

namespace skyframe {
namespace {

constexpr int c_nNumberWidth = 10;
constexpr int c_nDisplacementWidth = 15;

void WriteMemberForces(CTextWriter& out, const CAnalysisModel& model) {
  out.Text(texts::c_strMemberForces).EndLine().Text(texts::c_strMemberColumns).EndLine();
  CProgress progress(texts::c_strWriteResult, static_cast<double>(model.GetElements().size()));
  for (const auto& pElement : model.GetElements()) {
    progress.Advance();
    if (!pElement) continue;
    out.Integer(pElement->GetElemNo() + 1, c_nNumberWidth);
    pElement->OutputInternalForce(out);
  }
}

void WriteDisplacements(CTextWriter& out, const CAnalysisModel& model) {
  out.EndLine().Text(texts::c_strDisplacements).EndLine().Text(texts::c_strDisplacementColumns).EndLine();
  const CNodeTable& nodes = model.GetNodes();
  for (int nNode = 0; nNode < nodes.GetNodeCount(); ++nNode) {
    out.Integer(nNode + 1, c_nNumberWidth);
    for (const int nDirection : {c_nDofX, c_nDofY, c_nDofZ}) {
      out.GeneralPoint(nodes.GetValue(model.GetDisplacements(), nNode, nDirection), c_nDisplacementWidth);
    }
    out.EndLine();
  }
}

}  // namespace

void WriteStaticResult(CTextWriter& out, std::string_view strHeading, const CAnalysisModel& model) {
  out.Text(strHeading).EndLine();
  WriteMemberForces(out, model);
  out.EndLine().Text(texts::c_strReactions).EndLine();
  model.WriteReactions(out);
  WriteDisplacements(out, model);
}

}  // namespace skyframe
