#pragma once

#include <span>

#include "skyframe/platform/Dialog.h"

namespace skyframe {

// Dialogs and their controls. A control's identifier is unique within its dialog only.

inline constexpr int c_nIdModeDlg = 16000;
inline constexpr int c_nIdSpectrumDlg = 16001;
inline constexpr int c_nIdLoadCombDlg = 16002;
inline constexpr int c_nIdDynOptionDlg = 16003;
inline constexpr int c_nIdWilsonDlg = 16004;
inline constexpr int c_nIdNewmarkDlg = 16005;
inline constexpr int c_nIdNonlinStaticDlg = 16007;
inline constexpr int c_nIdImpulseLoadDlg = 16009;
inline constexpr int c_nIdGeneralLoadDlg = 16010;
inline constexpr int c_nIdEarthquakeDlg = 16012;

// Modal analysis
inline constexpr int c_nIdModes = 16000;
inline constexpr int c_nIdSturm = 16001;
inline constexpr int c_nIdModeComparison = 16002;
inline constexpr int c_nIdAccuracy = 16003;
inline constexpr int c_nIdIterMultiple = 16004;
inline constexpr int c_nIdShear = 16005;
inline constexpr int c_nIdModeLoadComb = 16044;

// Load combination
inline constexpr int c_nIdAvailable = 16039;
inline constexpr int c_nIdCombined = 16041;
inline constexpr int c_nIdAdd = 16042;
inline constexpr int c_nIdRemove = 16043;
inline constexpr int c_nIdFactorLabel = 16045;
inline constexpr int c_nIdFactor = 16046;

// Static and time-history methods
inline constexpr int c_nIdLoadComb = 16059;
inline constexpr int c_nIdNonlinear = 16063;
inline constexpr int c_nIdCriterion = 16090;
inline constexpr int c_nIdTolerance = 16091;
inline constexpr int c_nIdMaxIter = 16092;

extern const DialogTemplate c_modeTemplate;
extern const DialogTemplate c_loadCombTemplate;
extern const DialogTemplate c_nonlinStaticTemplate;

/// Every template of this room.
std::span<const DialogTemplate* const> GetDialogTemplates();

}  // namespace skyframe
