#pragma once

#include <string_view>

namespace skyframe::host {

/// About what a line of UTF-8 text takes, pixels: Chinese characters are as wide as high, others half of that.
[[nodiscard]] double EstimateTextWidth(std::string_view strText, double dTextHeight);

}  // namespace skyframe::host
