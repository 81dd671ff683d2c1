#pragma once

#include <chrono>
#include <optional>
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
    StopClock();
    m_kept.dSeconds = std::chrono::duration<double>(*m_end - m_start).count();
  }
  CFindingsKeeper(const CFindingsKeeper&) = delete;
  CFindingsKeeper& operator=(const CFindingsKeeper&) = delete;

  /// The run is over; a person may still read a message.
  void StopClock() {
    if (!m_end) m_end = Clock::now();
  }

 private:
  using Clock = std::chrono::steady_clock;

  Findings& m_kept;
  Findings& m_ofModel;
  Clock::time_point m_start = Clock::now();
  std::optional<Clock::time_point> m_end;
};

}  // namespace skyframe
