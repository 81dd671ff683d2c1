#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

/// What the standard library has no words for: files by descriptor, the machine. Failures leave errno.
namespace skyframe::system_file {

/// A regular file; anything else is refused without waiting for it. Negative: not possible.
int OpenToRead(const std::filesystem::path& path);
/// A new file, in the care of this process until its descriptors are closed. Negative: not possible; EEXIST
/// when the name is taken.
int CreateNew(const std::filesystem::path& path);
/// A character device or a pipe. Negative: not possible.
int OpenDevice(const std::filesystem::path& path);

/// Another descriptor that keeps a new file in care after its own was closed; negative: not possible.
int KeepInCare(int nDescriptor);
/// Names of what a folder holds; none when it cannot be read.
[[nodiscard]] std::vector<std::filesystem::path> ListNames(const std::filesystem::path& folder);
/// Removes a file that CreateNew made, unless a process still has it in its care.
void RemoveOrphan(const std::filesystem::path& path);

/// Moves a file to a name, where it takes the place of another.
[[nodiscard]] std::error_code Replace(const std::filesystem::path& from, const std::filesystem::path& to);

/// Bytes read, 0 at the end of the file and on failure.
std::size_t Read(int nDescriptor, char* pBytes, std::size_t nCount);
[[nodiscard]] bool WriteAll(int nDescriptor, const char* pBytes, std::size_t nCount);
[[nodiscard]] bool Close(int nDescriptor);

/// In letters of one case where the system does not tell them apart.
[[nodiscard]] std::filesystem::path FoldCase(const std::filesystem::path& path);
[[nodiscard]] bool IsWritable(const std::filesystem::path& path);
[[nodiscard]] bool IsErrorTerminal();
/// In UTF-8, without the program's name; main's own where the system hands them over so.
[[nodiscard]] std::vector<std::string> GetArguments(int nCount, char** arguments);
/// Empty when it is not set.
[[nodiscard]] std::string ReadVariable(const char* pszName);
/// Standard output (1) or error (2) takes line ends as they are from now on; true when it is a console that shows
/// UTF-8 only by way of WriteToConsole.
[[nodiscard]] bool BeginText(int nDescriptor);
void WriteToConsole(int nDescriptor, std::string_view strText);
/// Of the running program; empty where the system does not tell.
[[nodiscard]] std::filesystem::path GetProgramPath();
/// Bytes of the machine's memory; infinite where the system does not tell.
[[nodiscard]] double GetPhysicalMemory();

}  // namespace skyframe::system_file
