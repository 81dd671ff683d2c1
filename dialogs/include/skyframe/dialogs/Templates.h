#pragma once

#include <span>

#include "skyframe/platform/Dialog.h"
#include "skyframe/values/DialogIds.h"

namespace skyframe {

extern const DialogTemplate c_modeTemplate;
extern const DialogTemplate c_loadCombTemplate;
extern const DialogTemplate c_nonlinStaticTemplate;
extern const DialogTemplate c_spectrumTemplate;
extern const DialogTemplate c_dynOptionTemplate;
extern const DialogTemplate c_wilsonTemplate;
extern const DialogTemplate c_newmarkTemplate;
extern const DialogTemplate c_impulseLoadTemplate;
extern const DialogTemplate c_generalLoadTemplate;
extern const DialogTemplate c_earthquakeTemplate;

/// Every template of this room.
std::span<const DialogTemplate* const> GetDialogTemplates();

}  // namespace skyframe
