#pragma once

#include <string>
#include <string_view>

#include "skyframe/job/Language.h"

namespace skyframe::host {

/// JSON Schema of a job file, for editors. Rules between fields are not in it.
[[nodiscard]] std::string FormatJobSchema();

/// The manual's table of an analysis ("static", "modal", "spectrum", "wilson", "newmark") or of a part of one
/// ("impulse", "general_load", "earthquake"). Empty for any other name.
[[nodiscard]] std::string FormatFieldTable(std::string_view strName, Language language);

}  // namespace skyframe::host
