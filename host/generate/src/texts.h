#pragma once

#include "skyframe/job/Language.h"

// Why parameters of a generator do not go together.

namespace skyframe::host::generate::texts {

inline constexpr Words c_tooMany = {"more than {0} nodes", "节点超过 {0} 个"};
inline constexpr Words c_rise = {"--rise: must be at most half the span", "--rise：应不大于跨度的一半"};
inline constexpr Words c_even = {"--segments: must be an even number", "--segments：应为偶数"};

}  // namespace skyframe::host::generate::texts

namespace skyframe::host {
namespace texts = generate::texts;
}
