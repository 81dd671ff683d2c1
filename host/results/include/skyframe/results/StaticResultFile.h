#pragma once

#include <optional>
#include <string>
#include <vector>

#include "skyframe/values/Findings.h"

namespace skyframe::host {

/// Translations, m, by node in host order of a static result file, as any host can read it; the file has no rotations.
/// Nothing when it cannot be read, is no whole result or belongs to a model with another number of nodes.
[[nodiscard]] std::optional<std::vector<NodeValues>> ReadStaticResultFile(const std::string& strPath,
                                                                          std::size_t nNodes);

}  // namespace skyframe::host
