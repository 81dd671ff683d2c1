#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace skyframe::host {

/// What a static result file says, as any host can read it.
struct StaticResultFile {
  std::vector<std::array<double, 3>> displacements;  ///< m, by node in host order
  std::array<double, 3> supportForce = {};           ///< sums of the printed reactions X Y Z, N
};

/// Nothing when the file cannot be read or is no whole static result.
[[nodiscard]] std::optional<StaticResultFile> ReadStaticResultFile(const std::string& strPath);

}  // namespace skyframe::host
