#pragma once

#include "TestPlatform.h"
#include "skyframe/results/HistoryResultFile.h"
#include "skyframe/results/ModeResultFile.h"
#include "skyframe/results/SpectrumResultFile.h"
#include "skyframe/results/StaticResultFile.h"

namespace skyframe::test {

/// Nodes of the host records, as far as readers of result files look at them.
inline std::vector<host::JobNode> GetJobNodes() {
  std::vector<host::JobNode> nodes(static_cast<std::size_t>(ABCD.m_nNodes));
  for (int i = 0; i < ABCD.m_nNodes; ++i) nodes[static_cast<std::size_t>(i)].nJoint = ABCD.m_nJoint[i + 1];
  return nodes;
}

/// The content, which has to be there.
template <class Content>
Content Take(const host::Reading<Content>& reading) {
  EXPECT_TRUE(reading.has_value()) << reading.strError;
  return reading.value_or(Content{});
}

inline host::SpectrumResultFile ReadSpectrum(const CJobFolder& job) {
  return Take(host::ReadSpectrumResultFile(job.GetPath(".spec"), GetJobNodes()));
}

}  // namespace skyframe::test
