#pragma once

#include <chrono>
#include <utility>

#include "skyframe/values/Findings.h"

namespace skyframe {

/// Takes the findings of a model over when the run has ended, also when an exception ends it; the entry point then
/// counts it as failed. Until the analysis says otherwise the run counts as refused.
template <class Findings>
class CFindingsKeeper {
 public:
  CFindingsKeeper(Findings& kept, Findings& ofModel) : m_kept(kept), m_ofModel(ofModel) {
    m_ofModel.status = RunStatus::Refused;
  }
  ~CFindingsKeeper() {
    m_kept = std::move(m_ofModel);
    m_kept.dSeconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - m_start).count();
  }
  CFindingsKeeper(const CFindingsKeeper&) = delete;
  CFindingsKeeper& operator=(const CFindingsKeeper&) = delete;

 private:
  Findings& m_kept;
  Findings& m_ofModel;
  std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
};

}  // namespace skyframe
