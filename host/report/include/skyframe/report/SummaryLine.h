#pragma once

#include <ostream>
#include <string_view>

namespace skyframe::host {

/// A line of a summary: its label, then what it tells.
void PrintLine(std::string_view strLabel, std::string_view strText, std::ostream& out);

}  // namespace skyframe::host
