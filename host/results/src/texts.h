#pragma once

#include <array>

#include "skyframe/job/Language.h"

// What is said of result files and histories.

namespace skyframe::host::results::texts {

inline constexpr Words c_cannotOpen = {"cannot be opened", "打不开"};
inline constexpr Words c_damaged = {"is damaged or belongs to another model", "已损坏或属于其他模型"};

/// What writes the files, by ResultKind.
inline constexpr std::array<Words, 5> c_analyses = {{{"Static analysis, linear", "静力分析，线性"},
                                                     {"Static analysis, nonlinear", "静力分析，非线性"},
                                                     {"Modal analysis", "模态分析"},
                                                     {"Response-spectrum analysis", "反应谱分析"},
                                                     {"Time history", "时程分析"}}};

// A history's run.
inline constexpr Words c_history = {"{0}, {1}, {2} steps of {3} s", "{0}，{1}，{2} 步，步长 {3} s"};
inline constexpr Words c_finished = {", finished {0}", "，结束于 {0}"};
inline constexpr Words c_linear = {"linear", "线性"};
inline constexpr Words c_nonlinear = {"nonlinear", "非线性"};

}  // namespace skyframe::host::results::texts

namespace skyframe::host {
namespace texts = results::texts;
}
