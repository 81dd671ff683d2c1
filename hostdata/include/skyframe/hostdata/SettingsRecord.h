#pragma once

#include "skyframe/values/Export.h"
#include "skyframe/values/Records.h"
#include "skyframe/values/Settings.h"

namespace skyframe {

// Settings that the host's dynamic record keeps from run to run.

/// What the record does not tell gets the value that a model starts from: the accuracy of the modes (Deliberate: it
/// is stored but never read back), the virtual mode and its load number.
SKYFRAME_API void FromRecord(const tagComDynamic& record, ModalSettings& settings);
SKYFRAME_API void FromRecord(const tagComDynamic& record, SpectrumSettings& settings);

SKYFRAME_API void ToRecord(const ModalSettings& settings, tagComDynamic& record);
/// All but the virtual mode and its load number, which are the host's.
SKYFRAME_API void ToRecord(const SpectrumSettings& settings, tagComDynamic& record);

}  // namespace skyframe
