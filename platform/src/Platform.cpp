#include "skyframe/platform/Platform.h"

#include <algorithm>
#include <ctime>
#include <filesystem>
#include <iostream>
#include <iterator>

#include "InputFile.h"
#include "PendingFile.h"
#include "SystemFile.h"
#include "skyframe/platform/HeadlessPlatform.h"
#include "texts.h"

namespace skyframe {

namespace {

CHeadlessPlatform g_defaultPlatform(std::cerr, std::cout);
constinit IPlatform* g_pPlatform = nullptr;

}  // namespace

void IPlatform::BeginWaitCursor() {
  if (m_nWaitCursor++ == 0) SetBusy(true);
}

void IPlatform::EndWaitCursor() {
  if (m_nWaitCursor > 0 && --m_nWaitCursor == 0) SetBusy(false);
}

LocalTime IPlatform::GetLocalTime() {
  const std::time_t now = std::time(nullptr);
  const std::tm* const pLocal = std::localtime(&now);
  if (pLocal == nullptr) return {};
  return {pLocal->tm_year + 1900, pLocal->tm_mon + 1, pLocal->tm_mday, pLocal->tm_hour, pLocal->tm_min, pLocal->tm_sec};
}

double IPlatform::GetPhysicalMemory() { return system_file::GetPhysicalMemory(); }

void IPlatform::DialogOpened(CDialog& /*dialog*/, IDialogView& /*view*/) {}

void IPlatform::DialogAccepted(const DialogTemplate& /*layout*/, const IDialogView& /*view*/) {}

void IPlatform::ReportProgress(double /*dFraction*/, std::string_view /*strLabel*/) {}

void IPlatform::EnterModule() {
  if (m_nModule++ == 0) SwitchModule(true);
}

void IPlatform::LeaveModule() {
  if (m_nModule == 0 || --m_nModule > 0) return;
  if (m_nWaitCursor > 0) SetBusy(false);
  m_nWaitCursor = 0;
  SwitchModule(false);
}

void IPlatform::SetBusy(bool /*bBusy*/) {}

void IPlatform::SwitchModule(bool /*bInside*/) {}

std::unique_ptr<std::istream> IPlatform::OpenForReading(const std::string& strPath) {
  return CInputFile::Open(ToFilePath(strPath));
}

std::unique_ptr<IPendingFile> IPlatform::OpenForWriting(const std::string& strPath, OutputPlace place,
                                                        std::string& strReason) {
  return CPendingFile::Open(ToFilePath(strPath), place, strReason);
}

std::optional<std::string> ReadWholeFile(const std::string& strPath) {
  const std::unique_ptr<std::istream> pStream = GetPlatform().OpenForReading(strPath);
  if (!pStream) return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(*pStream), {});
}

IPlatform* InstallPlatform(IPlatform* pPlatform, const RecordSizes& sizes) {
  if (sizes != c_recordSizes) {
    (pPlatform == nullptr ? GetPlatform() : *pPlatform).ShowMessage(texts::c_strOtherRecords);
    return nullptr;
  }
  IPlatform* const pPrevious = &GetPlatform();
  g_pPlatform = pPlatform;
  return pPrevious;
}

IPlatform& GetPlatform() {
  if (g_pPlatform == nullptr) return g_defaultPlatform;
  return *g_pPlatform;
}

bool IsErrorTerminal() { return system_file::IsErrorTerminal(); }

std::vector<std::string> GetArguments(int nCount, char** arguments) {
  return system_file::GetArguments(nCount, arguments);
}

std::string ReadVariable(const char* pszName) { return system_file::ReadVariable(pszName); }

std::filesystem::path GetProgramPath() { return system_file::GetProgramPath(); }

std::filesystem::path ToFilePath(std::string_view strPath) {
  const std::string strNative = ToNativePath(strPath);
  return {std::u8string(strNative.begin(), strNative.end())};
}

std::string FromFilePath(const std::filesystem::path& path) {
  const std::u8string strPath = path.u8string();
  return {strPath.begin(), strPath.end()};
}

std::string FindPlace(std::string_view strPath) {
  std::error_code error;
  const std::filesystem::path whole = std::filesystem::absolute(ToFilePath(strPath), error);
  return FromFilePath(system_file::FoldCase(std::filesystem::weakly_canonical(whole, error)));
}

std::string ToNativePath(std::string_view strPath) {
  std::string strNative(strPath);
  constexpr char cNative = std::filesystem::path::preferred_separator;
  std::replace(strNative.begin(), strNative.end(), '\\', cNative);
  return strNative;
}

}  // namespace skyframe
