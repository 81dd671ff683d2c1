#include "PendingFile.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <random>
#include <string_view>
#include <system_error>
#include <utility>

#include "SystemFile.h"
#include "texts.h"

namespace skyframe {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t c_nTagLength = 8;  // of the number in a temporary name

std::string Describe(int nError) { return std::generic_category().message(nError); }

/// In the same words whatever the system's own are.
std::string Describe(const std::error_code& error) { return error.default_error_condition().message(); }

bool IsTagCharacter(fs::path::value_type c) { return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f'); }

fs::path MakeTemporaryPath(const fs::path& target) {
  std::array<char, c_nTagLength> digits;
  const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), std::random_device{}(), 16);
  std::string strTag(digits.data(), result.ptr);
  strTag.insert(0, c_nTagLength - strTag.size(), '0');
  fs::path temporary = target;
  temporary += "." + strTag + std::string(texts::c_strTemporarySuffix);
  return temporary;
}

/// Whether MakeTemporaryPath may have made the name for a file named strTarget.
bool IsTemporaryName(const fs::path::string_type& strName, const fs::path::string_type& strTarget) {
  const std::size_t nTag = strTarget.size() + 1;
  if (strName.size() != nTag + c_nTagLength + texts::c_strTemporarySuffix.size()) return false;
  if (!strName.starts_with(strTarget + fs::path::value_type{'.'})) return false;
  const auto tag = strName.begin() + static_cast<std::ptrdiff_t>(nTag);
  const auto end = tag + c_nTagLength;
  return std::all_of(tag, end, IsTagCharacter) &&
         std::equal(end, strName.end(), texts::c_strTemporarySuffix.begin(), texts::c_strTemporarySuffix.end());
}

void RemoveOrphans(const fs::path& target) {
  const fs::path::string_type strTarget = target.filename().native();  // other names need not be Unicode
  const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
  for (const fs::path& name : system_file::ListNames(folder)) {
    if (IsTemporaryName(name.native(), strTarget)) system_file::RemoveOrphan(folder / name);
  }
}

/// Why what stands in the place must not be replaced; empty when it may.
std::string FindObstacle(const fs::path& target) {
  constexpr fs::perms c_write = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
  std::error_code error;
  const fs::file_status status = fs::symlink_status(target, error);
  if (status.type() == fs::file_type::not_found) return {};
  if (status.type() == fs::file_type::none) return Describe(error);
  if (status.type() == fs::file_type::symlink) return std::string(texts::c_strIsLink);
  if (status.type() != fs::file_type::regular) return std::string(texts::c_strNotRegular);
  // Who may do everything is bound by the protection too.
  if ((status.permissions() & c_write) == fs::perms::none) return Describe(EACCES);
  return system_file::IsWritable(target) ? std::string() : Describe(errno);
}

/// A stream of this process has a link for its name: /dev/stdout, /dev/fd/63.
bool IsDevice(const fs::path& target) {
  std::error_code error;
  if (fs::symlink_status(target, error).type() == fs::file_type::character) return true;
  const fs::file_type type = fs::status(target, error).type();
  const fs::path folder = target.parent_path();
  return (folder == "/dev" || folder == "/dev/fd") && (type == fs::file_type::character || type == fs::file_type::fifo);
}

/// A replaced file keeps its permissions.
void CopyPermissions(const fs::path& from, const fs::path& to) {
  std::error_code error;
  const fs::file_status status = fs::status(from, error);
  if (fs::is_regular_file(status)) fs::permissions(to, status.permissions(), error);
}

}  // namespace

COutputBuffer::COutputBuffer() { setp(m_bytes.data(), m_bytes.data() + m_bytes.size()); }

COutputBuffer::~COutputBuffer() { static_cast<void>(Close()); }

int COutputBuffer::Close() {
  if (m_nDescriptor < 0) return m_nError;
  WriteOut();
  if (!system_file::Close(std::exchange(m_nDescriptor, -1)) && m_nError == 0) m_nError = errno;
  return m_nError;
}

COutputBuffer::int_type COutputBuffer::overflow(int_type c) {
  if (!WriteOut()) return traits_type::eof();
  if (!traits_type::eq_int_type(c, traits_type::eof())) sputc(traits_type::to_char_type(c));
  return traits_type::not_eof(c);
}

std::streamsize COutputBuffer::xsputn(const char_type* pBytes, std::streamsize nCount) {
  if (nCount < epptr() - pptr()) return std::streambuf::xsputn(pBytes, nCount);
  // Much at once goes past the buffer.
  return WriteOut() && Write(pBytes, static_cast<std::size_t>(nCount)) ? nCount : 0;
}

int COutputBuffer::sync() { return WriteOut() ? 0 : -1; }

bool COutputBuffer::WriteOut() {
  const bool bWritten = Write(pbase(), static_cast<std::size_t>(pptr() - pbase()));
  setp(m_bytes.data(), m_bytes.data() + m_bytes.size());
  return bWritten;
}

bool COutputBuffer::Write(const char* pBytes, std::size_t nCount) {
  if (m_nError == 0 && !system_file::WriteAll(m_nDescriptor, pBytes, nCount)) m_nError = errno;
  return m_nError == 0;
}

CPendingFile::~CPendingFile() {
  static_cast<void>(m_buffer.Close());
  std::error_code error;
  if (!m_temporary.empty()) fs::remove(m_temporary, error);
  if (m_nCare >= 0) static_cast<void>(system_file::Close(m_nCare));
}

std::unique_ptr<IPendingFile> CPendingFile::Open(const fs::path& target, OutputPlace place, std::string& strReason) {
  auto pFile = std::make_unique<CPendingFile>(target);
  const bool bDevice = place == OutputPlace::FileOrDevice && IsDevice(target);
  strReason = bDevice ? pFile->OpenDevice() : pFile->Create();
  return strReason.empty() ? std::move(pFile) : nullptr;
}

std::string CPendingFile::OpenDevice() {
  const int nDescriptor = system_file::OpenDevice(m_target);
  if (nDescriptor < 0) return Describe(errno);
  m_buffer.Attach(nDescriptor);
  return {};
}

std::string CPendingFile::Create() {
  constexpr int c_nMostTries = 100;
  if (std::string strObstacle = FindObstacle(m_target); !strObstacle.empty()) return strObstacle;
  RemoveOrphans(m_target);
  int nDescriptor = -1;
  for (int i = 0; i < c_nMostTries && nDescriptor < 0; ++i) {
    m_temporary = MakeTemporaryPath(m_target);
    nDescriptor = system_file::CreateNew(m_temporary);
    if (nDescriptor >= 0) break;
    const int nError = errno;
    m_temporary.clear();  // it is another's, or there is none
    if (nError != EEXIST || i + 1 == c_nMostTries) return Describe(nError);
  }
  m_buffer.Attach(nDescriptor);
  m_nCare = system_file::KeepInCare(nDescriptor);
  return {};
}

std::string CPendingFile::Commit() {
  const int nError = m_buffer.Close();
  if (nError != 0) return Describe(nError);
  return m_temporary.empty() ? std::string() : MoveToTarget();
}

std::string CPendingFile::MoveToTarget() {
  std::string strReason = FindObstacle(m_target);
  if (!strReason.empty()) return strReason;
  CopyPermissions(m_target, m_temporary);
  if (const std::error_code error = system_file::Replace(m_temporary, m_target)) return Describe(error);
  m_temporary.clear();
  return {};
}

}  // namespace skyframe
