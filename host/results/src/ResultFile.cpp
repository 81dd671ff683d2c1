#include "ResultFile.h"

#include <algorithm>

namespace skyframe::host {

int ReadHead(CResultWords& words, std::string_view strTitle, std::span<const JobNode> nodes) {
  const auto nRigid = std::ranges::count(nodes, static_cast<int>(c_nRigid), &JobNode::nJoint);
  const auto nNodes = std::ssize(nodes);
  words.Expect(words.Word() == strTitle);
  words.Skip(3);
  const int nElements = words.Number<int>();
  for (const auto nCount : {nNodes, nRigid, nNodes - nRigid}) words.Expect(words.Number<std::ptrdiff_t>() == nCount);
  return nElements;
}

NodeValues ReadNodeValues(CResultWords& words, const JobNode& node) {
  NodeValues values = {};
  for (std::size_t d = 0; d < (node.nJoint == c_nRigid ? 6U : 3U); ++d) values[d] = words.Number<double>();
  return values;
}

}  // namespace skyframe::host
