#pragma once

#include <array>
#include <string_view>

#include "skyframe/job/Language.h"

namespace skyframe::host {

/// The results that a job can have, a file each.
enum class ResultKind { Linear, Nonlinear, Modes, Spectrum, History };

inline constexpr std::array c_resultKinds = {ResultKind::Linear, ResultKind::Nonlinear, ResultKind::Modes,
                                             ResultKind::Spectrum, ResultKind::History};
/// Their names on the command line and in names of files, by ResultKind.
inline constexpr std::array<std::string_view, c_resultKinds.size()> c_strResultKinds = {"linear", "nonlinear", "modes",
                                                                                        "spectrum", "history"};

/// Of the result file.
[[nodiscard]] std::string_view GetSuffix(ResultKind kind);
/// "Static analysis, linear": what writes the file.
[[nodiscard]] const Words& GetAnalysisName(ResultKind kind);

}  // namespace skyframe::host
