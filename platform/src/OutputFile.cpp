#include "skyframe/platform/OutputFile.h"

#include <utility>

#include "skyframe/values/Findings.h"

namespace skyframe {

COutputFile::COutputFile(std::string strPath, OutputPlace place)
    : m_strPath(std::move(strPath)), m_pFile(GetPlatform().OpenForWriting(m_strPath, place, m_strError)) {}

CTextWriter& COutputFile::GetWriter() { return m_writer ? *m_writer : m_writer.emplace(GetStream()); }

bool COutputFile::Commit() {
  if (!IsOpen()) return false;
  m_writer.reset();  // hands over what it holds
  m_strError = m_pFile->Commit();
  m_pFile.reset();
  return m_strError.empty();
}

bool CommitResult(COutputFile& file, RunFindings& findings) {
  const bool bWritten = file.Commit();
  if (bWritten) {
    findings.files.push_back(file.GetPath());
  } else {
    findings.failures.push_back({file.GetPath(), file.GetError()});
  }
  return bWritten;
}

}  // namespace skyframe
