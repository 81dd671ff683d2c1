#pragma once

#include "skyframe/values/Settings.h"

namespace skyframe {

// What dialogs start from where a model starts from something else.

inline constexpr ModalSettings c_firstModal = {.m_nModes = 0};
inline constexpr EquilibriumSettings c_firstEquilibrium = {.m_dConvTol = 0.1, .m_nMaxIter = 20};
inline constexpr QuakePeaks c_firstPeaks = {{0.35, 0.35, 0.35}, 0.35};
inline constexpr StepSettings c_firstNewmarkSteps = {.m_dDuration = 5.0};
inline constexpr StepSettings c_firstLoadSteps = {0.02, 1.0};
/// Deliberate: step and duration have each other's usual values.
inline constexpr StepSettings c_firstGeneralLoadSteps = {1.0, 0.02};

}  // namespace skyframe
