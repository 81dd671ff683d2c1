#pragma once

#include <vector>

namespace skyframe {

/// Brackets an analysis with the host's node renumbering: the node-order arrays exist, and the nodes
/// are renumbered, for the life of the object.
class CRenumbering {
 public:
  CRenumbering();
  ~CRenumbering();
  CRenumbering(const CRenumbering&) = delete;
  CRenumbering& operator=(const CRenumbering&) = delete;

 private:
  /// Identity arrays. Delegated to, so that the destructor runs even when the renumbering itself fails.
  explicit CRenumbering(int nNodes);

  std::vector<int> m_firstOrder;   ///< nodes + 1 entries, entry 0 unused
  std::vector<int> m_secondOrder;  ///< likewise
};

}  // namespace skyframe
