#pragma once

#include "skyframe/values/DialogIds.h"
#include "skyframe/values/Export.h"
#include "skyframe/values/RecordTypes.h"

// The module for hosts in C and for those of another compiler, which load the library and find these functions by
// name. Any C compiler reads this header; in C++ its names stand in namespace skyframe.
//
// Order of the calls: skyframe_open, a platform, the records, entry points, skyframe_close. All of them on the host's
// user-interface thread. Texts and paths are UTF-8 and are copied; no pointer may be null unless it says so. Where a
// function returns int, 1 is done and 0 is not, unless it says otherwise. No exception leaves them: the platform in
// force shows a message.

#ifdef __cplusplus
namespace skyframe {
extern "C" {
#endif

/// "0.1.0".
SKYFRAME_API const char* skyframe_version(void);

/// Compares the host's records with the module's: hand over a struct RecordSizes that is initialised with
/// SKYFRAME_RECORD_SIZES. 0 after a message where they differ: the module gives out no record then.
SKYFRAME_API int skyframe_open(const struct RecordSizes* pSizes);
/// Takes back the platform and the records. Call it before the library is unloaded.
SKYFRAME_API void skyframe_close(void);

// Platforms. Until one is chosen messages go to standard error, the console to standard output, and every dialog is
// cancelled. 0 while an entry point runs.

/// The module's own windows, on a window of the host's (HWND; QWidget* on other systems) or null. 0 where there are
/// none: no screen, or not installed.
SKYFRAME_API int skyframe_use_windows(void* pHostWindow);
/// No windows: messages, and console text in whole lines, go to the host's functions, which get pContext back; null:
/// not told. Dialogs are filled in as asked for below and ended with OK. A dialog that refuses its values is cancelled
/// after its message.
SKYFRAME_API int skyframe_use_callbacks(void (*pMessage)(void* pContext, const char* pszText),
                                        void (*pConsole)(void* pContext, const char* pszText), void* pContext);

// What a person would do at the next opening of a dialog, in the order of the calls; for skyframe_use_callbacks, which
// forgets earlier ones. Identifiers of dialogs and controls: skyframe/values/DialogIds.h. A step that a person could
// not do (the control is missing, or disabled) is told as a message when the dialog opens, and the dialog is cancelled.

SKYFRAME_API int skyframe_type(int nDialog, int nEdit, const char* pszText);
SKYFRAME_API int skyframe_tick(int nDialog, int nCheck, int bOn);
SKYFRAME_API int skyframe_choose(int nDialog, int nRadio);
/// An item of a drop list; items and rows count from 0.
SKYFRAME_API int skyframe_choose_item(int nDialog, int nDropList, int nItem);
/// Marks a row of a list, or takes the mark away.
SKYFRAME_API int skyframe_toggle_row(int nDialog, int nList, int nRow);
/// A button; one that opens another dialog takes that dialog's steps. Cancel (2) instead of OK: as the last step.
SKYFRAME_API int skyframe_click(int nDialog, int nButton);

// The host records; null unless skyframe_open found them equal.

SKYFRAME_API struct tagAbcd* skyframe_abcd(void);
SKYFRAME_API struct tagComDat* skyframe_comdat(void);
SKYFRAME_API struct tagSect* skyframe_sect(void);
SKYFRAME_API struct tagComDynamic* skyframe_comdyn(void);
SKYFRAME_API struct tagComZhu* skyframe_zhu(void);
SKYFRAME_API struct tagComResult* skyframe_res(void);

/// Clears every record, path and spring group, and puts the initial settings into COMDYN.
SKYFRAME_API void skyframe_reset_host_data(void);
/// g_ProgramPath: directory that holds GroundAccData.
SKYFRAME_API int skyframe_set_program_path(const char* pszPath);
/// Prefix of the result files, into COMDAT and g_FilePathName. 0: too long for its record; both stay as they were.
SKYFRAME_API int skyframe_set_job_path(const char* pszPath);
/// Stiffnesses of a spring group, kN/mm. 0: no such group.
SKYFRAME_API int skyframe_set_spring_group(int nGroup, float fKx, float fKy, float fKz);

/// Codes of tagAbcd. pRestrained: six flags, X Y Z RX RY RZ; nDirection: their place, 0..5; 0 for another.
SKYFRAME_API int skyframe_encode_restraint(const int* pRestrained);
SKYFRAME_API int skyframe_encode_spring(int nGroup);
SKYFRAME_API int skyframe_encode_load(int nCase, int nDirection);

// The entry points, as those of CModeConnect.

SKYFRAME_API void skyframe_on_mode(void);
/// 0 = cancelled, 1 = otherwise.
SKYFRAME_API int skyframe_on_ansys_spectrum(void);
/// 0 = cancelled, 1 = otherwise.
SKYFRAME_API int skyframe_on_time_history_analysis(void);
SKYFRAME_API void skyframe_on_time_history_res(void);
SKYFRAME_API void skyframe_on_static_nonlinear_sol(void);

SKYFRAME_CONSTANT(c_nAnalysisStatic, 0);
SKYFRAME_CONSTANT(c_nAnalysisModal, 1);
SKYFRAME_CONSTANT(c_nAnalysisSpectrum, 2);
SKYFRAME_CONSTANT(c_nAnalysisHistory, 3);

SKYFRAME_CONSTANT(c_nRunCancelled, 0);
SKYFRAME_CONSTANT(c_nRunRefused, 1);
SKYFRAME_CONSTANT(c_nRunFailed, 2);
SKYFRAME_CONSTANT(c_nRunDone, 3);

/// How the last run of an analysis ended; cancelled when there is no such analysis.
SKYFRAME_API int skyframe_get_status(int nAnalysis);
/// Path of a file that it wrote, from 0; null past the last one. Valid until its entry point is called again.
SKYFRAME_API const char* skyframe_get_file(int nAnalysis, int nFile);

#ifdef __cplusplus
}  // extern "C"
}  // namespace skyframe
#endif
