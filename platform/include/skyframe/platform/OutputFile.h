#pragma once

#include <memory>
#include <optional>
#include <ostream>
#include <string>

#include "skyframe/platform/Platform.h"
#include "skyframe/platform/TextWriter.h"
#include "skyframe/values/Export.h"

namespace skyframe {

struct RunFindings;

/// A file that appears under its name whole or not at all: an object destroyed without Commit leaves an older
/// file alone, and so does a Commit that fails. Opened by the constructor; what is written to a file that could
/// not be opened goes nowhere.
class SKYFRAME_API COutputFile {
 public:
  explicit COutputFile(std::string strPath, OutputPlace place = OutputPlace::RegularFile);

  [[nodiscard]] bool IsOpen() const { return m_pFile != nullptr; }
  [[nodiscard]] const std::string& GetPath() const { return m_strPath; }
  /// Why the file could not be opened or written ("Permission denied"); empty while nothing failed.
  [[nodiscard]] const std::string& GetError() const { return m_strError; }

  /// The stream and the writer are not for use side by side.
  std::ostream& GetStream() { return IsOpen() ? m_pFile->GetStream() : m_nowhere; }
  CTextWriter& GetWriter();

  /// Once, as the last call. False when something could not be written.
  [[nodiscard]] bool Commit();

 private:
  std::string m_strPath;
  std::string m_strError;
  std::ostream m_nowhere{nullptr};
  std::unique_ptr<IPendingFile> m_pFile;
  std::optional<CTextWriter> m_writer;
};

/// Commits the file and tells the findings of the run: its path, or why it is not there.
[[nodiscard]] bool CommitResult(COutputFile& file, RunFindings& findings);

}  // namespace skyframe
