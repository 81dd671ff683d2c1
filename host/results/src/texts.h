#pragma once

#include "skyframe/job/Language.h"

// What is said of result files and histories.

namespace skyframe::host::results::texts {

inline constexpr Words c_cannotOpen = {"cannot be opened", "打不开"};
inline constexpr Words c_damaged = {"is damaged or belongs to another model", "已损坏或属于其他模型"};

// A history's run.
inline constexpr Words c_history = {"{0}, {1}, {2} steps of {3} s", "{0}，{1}，{2} 步，步长 {3} s"};
inline constexpr Words c_finished = {", finished {0}", "，结束于 {0}"};
inline constexpr Words c_linear = {"linear", "线性"};
inline constexpr Words c_nonlinear = {"nonlinear", "非线性"};

}  // namespace skyframe::host::results::texts

namespace skyframe::host {
namespace texts = results::texts;
}
