#include "skyframe/results/ModeResultFile.h"

#include <iterator>

#include "ResultWords.h"
#include "skyframe/platform/Platform.h"

namespace skyframe::host {

namespace {

/// Signature, date, time, version; counts of elements, nodes, rigid and pinned ones; modes, shear flag.
int ReadHead(CResultWords& words, std::size_t nNodes) {
  words.Skip(5);
  const bool bSameNodes = words.Number<std::size_t>() == nNodes;
  words.Skip(2);
  const int nModes = words.Number<int>();
  words.SkipTo("Eigen_And_Freq:");
  return bSameNodes && !words.HasFailed() ? nModes : 0;
}

/// One block: its mark, the frequency, a line a node in host order.
std::vector<NodeValues> ReadShape(CResultWords& words, const std::vector<JobNode>& nodes) {
  std::vector<NodeValues> shape(nodes.size());
  words.Skip(2);
  for (std::size_t i = 0; i < nodes.size() && !words.HasFailed(); ++i) {
    words.Skip(1);
    for (std::size_t d = 0; d < (nodes[i].nJoint == c_nRigid ? 6U : 3U); ++d) shape[i][d] = words.Number<double>();
  }
  return shape;
}

}  // namespace

std::optional<ModeResultFile> ReadModeResultFile(const std::string& strPath, const std::vector<JobNode>& nodes) {
  const auto pStream = GetPlatform().OpenForReading(strPath);
  if (!pStream) return std::nullopt;
  const std::string strText(std::istreambuf_iterator<char>(*pStream), {});
  CResultWords words(strText);
  ModeResultFile file;
  const int nModes = ReadHead(words, nodes.size());
  for (int i = 0; i < nModes && !words.HasFailed(); ++i) {
    words.Skip(1);
    file.omega.push_back(words.Number<double>());
    words.Skip(1);
  }
  for (int i = 0; i < nModes && !words.HasFailed(); ++i) file.shapes.push_back(ReadShape(words, nodes));
  return nModes > 0 && !words.HasFailed() ? std::optional(std::move(file)) : std::nullopt;
}

}  // namespace skyframe::host
