#include "skyframe/platform/Platform.h"

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <limits>

#if __has_include(<unistd.h>)
#include <unistd.h>
#endif

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

double IPlatform::GetPhysicalMemory() {
#if defined(_SC_PHYS_PAGES) && defined(_SC_PAGESIZE)
  const long nPages = sysconf(_SC_PHYS_PAGES);
  const long nPageSize = sysconf(_SC_PAGESIZE);
  if (nPages > 0 && nPageSize > 0) return static_cast<double>(nPages) * static_cast<double>(nPageSize);
#endif
  return std::numeric_limits<double>::infinity();
}

void IPlatform::DialogAccepted(const DialogTemplate& /*layout*/, const IDialogView& /*view*/) {}

void IPlatform::ReportProgress(double /*dFraction*/, std::string_view /*strLabel*/) {}

void IPlatform::EnterModule() {}

void IPlatform::LeaveModule() {}

std::unique_ptr<std::istream> IPlatform::OpenForReading(const std::string& strPath) {
  return CInputFile::Open(ToFilePath(strPath));
}

std::unique_ptr<IPendingFile> IPlatform::OpenForWriting(const std::string& strPath, OutputPlace place,
                                                        std::string& strReason) {
  return CPendingFile::Open(ToFilePath(strPath), place, strReason);
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

std::filesystem::path ToFilePath(std::string_view strPath) {
  const std::string strNative = ToNativePath(strPath);
  return {std::u8string(strNative.begin(), strNative.end())};
}

std::string ToNativePath(std::string_view strPath) {
  std::string strNative(strPath);
  constexpr char cNative = std::filesystem::path::preferred_separator;
  std::replace(strNative.begin(), strNative.end(), '\\', cNative);
  return strNative;
}

}  // namespace skyframe
