#include "skyframe/results/ResultKind.h"

#include "skyframe/values/ResultFiles.h"
#include "texts.h"

namespace skyframe::host {

namespace {

constexpr std::array<std::string_view, c_resultKinds.size()> c_strSuffixes = {
    suffix::c_strStaticLinear, suffix::c_strStaticNonlinear, suffix::c_strModes, suffix::c_strSpectrum,
    suffix::c_strHistory};

}  // namespace

std::string_view GetSuffix(ResultKind kind) { return c_strSuffixes[static_cast<std::size_t>(kind)]; }

const Words& GetAnalysisName(ResultKind kind) { return texts::c_analyses[static_cast<std::size_t>(kind)]; }

}  // namespace skyframe::host
