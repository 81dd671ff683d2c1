#pragma once

#include <filesystem>
#include <istream>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "skyframe/values/Export.h"
#include "skyframe/values/Records.h"

namespace skyframe {

class CDialog;
struct DialogTemplate;
class IDialogView;

/// Broken-down local time; month 1..12, year with four digits.
struct LocalTime {
  int nYear = 1970;
  int nMonth = 1;
  int nDay = 1;
  int nHour = 0;
  int nMinute = 0;
  int nSecond = 0;
};

/// Results of a modal dialog and identifiers of its two standard buttons.
inline constexpr int c_nIdOk = 1;
inline constexpr int c_nIdCancel = 2;

/// What may stand in the place of an output file.
enum class OutputPlace {
  RegularFile,  ///< nothing, or a regular file that is not write-protected
  FileOrDevice  ///< or a character device, or a pipe under its name in /dev; these are written directly
};

/// A file on its way to its name: Commit makes it appear there whole. Without Commit, or when that fails,
/// nothing is left of it and an older file stays.
class SKYFRAME_API IPendingFile {
 public:
  virtual ~IPendingFile() = default;
  virtual std::ostream& GetStream() = 0;
  /// Once, as the last call. Empty when done, else the reason why not ("No space left on device").
  [[nodiscard]] virtual std::string Commit() = 0;
};

/// The seam between the module and the world: messages, dialogs, clock, console, files.
/// A host installs one implementation before it calls an entry point; until then a headless one
/// is in force (messages to standard error, every dialog cancelled).
/// All texts and paths are UTF-8. Single-threaded: called on the host's user-interface thread only.
class SKYFRAME_API IPlatform {
 public:
  virtual ~IPlatform() = default;

  /// Shows a message box with an OK button and waits until it is acknowledged.
  virtual void ShowMessage(std::string_view strText) = 0;
  /// The same for a text that tells of no fault; by default a message box like any other.
  virtual void ShowNotice(std::string_view strText) { ShowMessage(strText); }

  /// Runs the dialog until it ends. Returns c_nIdOk or c_nIdCancel.
  virtual int RunModal(CDialog& dialog) = 0;
  /// A dialog has initialised its controls on the view that it will be worked on; not called when that ended it. May be
  /// ignored.
  virtual void DialogOpened(CDialog& dialog, IDialogView& view);
  /// A dialog was ended with OK; its controls are still there. May be ignored.
  virtual void DialogAccepted(const DialogTemplate& layout, const IDialogView& view);

  /// Wait-cursor requests nest.
  void BeginWaitCursor();
  void EndWaitCursor();
  /// Requests that are open.
  [[nodiscard]] int GetWaitCursorDepth() const { return m_nWaitCursor; }

  /// Stream of the progress and trace lines.
  virtual std::ostream& GetConsole() = 0;

  /// By default the system's clock.
  virtual LocalTime GetLocalTime();

  /// Bytes of the machine's memory; infinite where the system does not tell.
  virtual double GetPhysicalMemory();

  /// Fraction 0..1 of the running analysis step; may be ignored.
  virtual void ReportProgress(double dFraction, std::string_view strLabel);

  /// Called when an entry point starts and when it returns. Calls nest; the last one to leave ends the
  /// wait-cursor requests still open.
  void EnterModule();
  void LeaveModule();
  /// Entry points that have not returned.
  [[nodiscard]] int GetModuleDepth() const { return m_nModule; }

  // Files. A backslash separates directories on every system.

  /// Null when the file cannot be opened or is no regular file; never waits.
  virtual std::unique_ptr<std::istream> OpenForReading(const std::string& strPath);
  /// Null, and the reason, when the place cannot be written. Links are not followed.
  virtual std::unique_ptr<IPendingFile> OpenForWriting(const std::string& strPath, OutputPlace place,
                                                       std::string& strReason);

 protected:
  /// Shows the wait cursor, or the ordinary one again: at the first of the nested requests and after the last.
  /// May not throw.
  virtual void SetBusy(bool bBusy);
  /// Between true and false, dialogs and resources resolve to this module. May not throw.
  virtual void SwitchModule(bool bInside);

 private:
  int m_nWaitCursor = 0;
  int m_nModule = 0;
};

/// The bytes of a file, read through the platform in force; none when it cannot be opened.
SKYFRAME_API std::optional<std::string> ReadWholeFile(const std::string& strPath);

/// Puts the platform in force and returns the one it replaces. Null restores the default.
/// The caller keeps ownership; the object must outlive every call into the module.
/// Leave the sizes to their default: they are those of the host records as the caller was built with
/// them. A host whose records differ from the module's is told so on the platform it offers; nothing is
/// installed then, and null is returned.
SKYFRAME_API IPlatform* InstallPlatform(IPlatform* pPlatform, const RecordSizes& sizes = c_recordSizes);

/// The platform in force; never absent.
SKYFRAME_API IPlatform& GetPlatform();

/// The platform with this system's own windows, not yet in force; null when the system has no screen here, or the
/// installation no windows. pHostWindow: the window that they stand on, an HWND on Windows, else a QWidget*; or null.
[[nodiscard]] SKYFRAME_API std::unique_ptr<IPlatform> OpenWindows(void* pHostWindow = nullptr);

/// Whether a person sees standard error on a terminal.
[[nodiscard]] SKYFRAME_API bool IsErrorTerminal();
/// The arguments that main was given, in UTF-8, without the program's name.
[[nodiscard]] SKYFRAME_API std::vector<std::string> GetArguments(int nCount, char** arguments);
/// A variable of the environment, in UTF-8; empty when it is not set.
[[nodiscard]] SKYFRAME_API std::string ReadVariable(const char* pszName);
/// File of the running program; empty where the system does not tell.
[[nodiscard]] SKYFRAME_API std::filesystem::path GetProgramPath();

/// Path with the separators of this system.
SKYFRAME_API std::string ToNativePath(std::string_view strPath);
/// The same for the standard library's file operations.
SKYFRAME_API std::filesystem::path ToFilePath(std::string_view strPath);
/// And back, in UTF-8.
SKYFRAME_API std::string FromFilePath(const std::filesystem::path& path);
/// The same text for all names of a file, which need not be there: whole and without links, in letters of one case
/// where the system does not tell them apart; empty when it finds no such place.
[[nodiscard]] SKYFRAME_API std::string FindPlace(std::string_view strPath);

/// The module's state for the life of the object: EnterModule now, LeaveModule at the end.
class CModuleStateScope {
 public:
  CModuleStateScope() : m_platform(GetPlatform()) { m_platform.EnterModule(); }
  ~CModuleStateScope() { m_platform.LeaveModule(); }
  CModuleStateScope(const CModuleStateScope&) = delete;
  CModuleStateScope& operator=(const CModuleStateScope&) = delete;

 private:
  IPlatform& m_platform;
};

/// The wait cursor for the life of the object.
class CWaitCursorScope {
 public:
  CWaitCursorScope() : m_platform(GetPlatform()) { m_platform.BeginWaitCursor(); }
  ~CWaitCursorScope() { m_platform.EndWaitCursor(); }
  CWaitCursorScope(const CWaitCursorScope&) = delete;
  CWaitCursorScope& operator=(const CWaitCursorScope&) = delete;

 private:
  IPlatform& m_platform;
};

}  // namespace skyframe
