#pragma once

#include "skyframe/values/RecordTypes.h"

namespace skyframe {

/// The settings that a fresh host starts with.
inline constexpr tagComDynamic c_freshSettings = {
    .m_nModes = 10,
    .m_nSaveAs = 0,
    .m_dModeTol = 1.0e-16,
    .m_nRootCheck = 0,
    .m_bShear = 0,
    .m_nIterMultiple = 6,
    .m_nExpandModes = 10,
    .m_dDampRatio = 0.02,
    .m_dDesignAcceleration = 0.10,
    .m_nMeshDiv = 5,
    .m_nIntensity = 7,
    .m_nSiteClass = 3,
    .m_nQuakeLevel = 0,
    .m_nZoneGroup = 1,
    .m_dDirCoef = {1.0, 0.0, 0.0},
    .m_bHistoryAvailable = 0,
    .m_dHistoryStep = 0.0,
    .m_nHistoryCount = 0,
    .m_nMethod = 0,
    .m_bNonlinear = 0,
    .m_nCombMethod = 0,
    .m_bSaveAs = {},
    .m_bVirtualModes = 0,
    .m_nPseudoLoadNo = 0,
};

/// Not inline: each binary has its own, so that host and module can be compared.
constexpr RecordSizes c_recordSizes = SKYFRAME_RECORD_SIZES;

}  // namespace skyframe
