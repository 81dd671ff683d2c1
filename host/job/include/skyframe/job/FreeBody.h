#pragma once

#include <optional>

#include "skyframe/job/Job.h"
#include "skyframe/values/Findings.h"

namespace skyframe::host {

/// A part of the structure, connected by elements, that its supports let move as a rigid body: the node and the
/// direction that move most. Motions without effect, as a bar's about its own axis, do not count; nor do hinges
/// inside a part. Nothing when every part is held.
[[nodiscard]] std::optional<DofPlace> FindFreeBody(const Job& job);

}  // namespace skyframe::host
