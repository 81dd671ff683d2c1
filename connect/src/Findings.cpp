#include "skyframe/connect/Findings.h"

#include "ModuleState.h"
#include "skyframe/connect/Histories.h"

namespace skyframe {

const StaticFindings& GetStaticFindings() { return g_findings.statics; }
const ModalFindings& GetModalFindings() { return g_findings.modal; }
const SpectrumFindings& GetSpectrumFindings() { return g_findings.spectrum; }
const HistoryFindings& GetHistoryFindings() { return g_findings.history; }

const HistorySet& GetHistories() { return g_history; }

}  // namespace skyframe
