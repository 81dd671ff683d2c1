#include "skyframe/platform/Platform.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <system_error>

#include "skyframe/platform/HeadlessPlatform.h"
#include "texts.h"

namespace skyframe {

namespace {

CHeadlessPlatform g_defaultPlatform(std::cerr, std::cout);
constinit IPlatform* g_pPlatform = nullptr;

std::filesystem::path ToFilePath(std::string_view strPath) {
  const std::string strNative = ToNativePath(strPath);
  return {std::u8string(strNative.begin(), strNative.end())};
}

template <class FileStream>
std::unique_ptr<FileStream> OpenFile(const std::string& strPath) {
  const std::filesystem::path path = ToFilePath(strPath);
  std::error_code error;
  if (std::filesystem::is_directory(path, error)) return nullptr;
  auto pFile = std::make_unique<FileStream>(path, std::ios::binary);
  return pFile->is_open() ? std::move(pFile) : nullptr;
}

}  // namespace

void IPlatform::ReportProgress(double /*dFraction*/, std::string_view /*strLabel*/) {}

void IPlatform::EnterModule() {}

void IPlatform::LeaveModule() {}

std::unique_ptr<std::istream> IPlatform::OpenForReading(const std::string& strPath) {
  return OpenFile<std::ifstream>(strPath);
}

std::unique_ptr<std::ostream> IPlatform::OpenForWriting(const std::string& strPath) {
  return OpenFile<std::ofstream>(strPath);
}

bool IPlatform::RenameFile(const std::string& strFrom, const std::string& strTo) {
  std::error_code error;
  std::filesystem::rename(ToFilePath(strFrom), ToFilePath(strTo), error);
  return !error;
}

bool IPlatform::RemoveFile(const std::string& strPath) {
  std::error_code error;
  return std::filesystem::remove(ToFilePath(strPath), error);
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

std::string ToNativePath(std::string_view strPath) {
  std::string strNative(strPath);
  constexpr char cNative = std::filesystem::path::preferred_separator;
  std::replace(strNative.begin(), strNative.end(), '\\', cNative);
  return strNative;
}

}  // namespace skyframe
