#pragma once

#include <string_view>

#include "skyframe/model/AnalysisModel.h"
#include "skyframe/platform/TextWriter.h"

namespace skyframe {

/// Result file of both static solutions: member forces, reactions, displacements.
void WriteStaticResult(CTextWriter& out, std::string_view strHeading, const CAnalysisModel& model);

}  // namespace skyframe
