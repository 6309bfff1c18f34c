// SPDX-License-Identifier: MIT
// The single steps of the file contract, each one call of the system, and what is made of them,
// which is the same on every platform: the order in which a file is replaced, and how long a file
// is waited for that another program holds, a virus scanner or a backup. For the platforms' files
// alone.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace taviro::platform {

/// What a step came to: 0, or the system's error number. A step that gives one reports nothing:
/// another try may follow.
using FileError = uint32_t;

inline constexpr FileError FILE_NOT_FOUND = 2;
inline constexpr FileError FILE_PATH_NOT_FOUND = 3;
inline constexpr FileError FILE_ACCESS_DENIED = 5;
inline constexpr FileError FILE_SHARING_VIOLATION = 32;
inline constexpr FileError FILE_LOCK_VIOLATION = 33;
inline constexpr FileError FILE_INVALID_NAME = 123;
inline constexpr FileError FILE_BAD_PATH_NAME = 161;
inline constexpr FileError FILE_MAPPED_BY_OTHERS = 1224;

/// Whether nothing has the name, or could have it: an answer, no failure.
[[nodiscard]] bool IsAbsent(FileError nError);

/// A file open for writing; 0 is none.
using FileHandle = uintptr_t;

/// Creates the file, or empties one that is there. Whoever opened it closes it.
[[nodiscard]] FileError CreateNewFile(const std::wstring& strPath, FileHandle& hFile);

/// Opens the file to write at its end, created if missing. Whoever opened it closes it.
[[nodiscard]] FileError OpenToAppend(const std::wstring& strPath, FileHandle& hFile);

/// Writes at the end. Returns false on failure, reported; a part may stand in the file then.
[[nodiscard]] bool WriteToFile(FileHandle hFile, std::string_view strBytes);

/// Returns when the disk has all that was written, however the power goes after that; false on
/// failure, reported.
[[nodiscard]] bool FlushFile(FileHandle hFile);

void CloseFile(FileHandle hFile);

/// Reads the whole file; strBytes stays as it is on failure.
[[nodiscard]] FileError ReadWholeFile(const std::wstring& strPath, std::string& strBytes);

/// Renames a file, replacing an existing target, and returns when the disk has it.
[[nodiscard]] FileError RenameFile(const std::wstring& strFrom, const std::wstring& strTo);

/// Copies a file, replacing an existing target.
[[nodiscard]] FileError CopyOneFile(const std::wstring& strFrom, const std::wstring& strTo);

/// Deletes a file.
[[nodiscard]] FileError RemoveFile(const std::wstring& strPath);

/// Whether the file's owner marked it as not to be changed.
[[nodiscard]] bool IsReadOnly(const std::wstring& strPath);

/// A name beside the target that no other save uses and that no pattern of the program's files
/// matches.
[[nodiscard]] std::wstring TemporaryName(const std::wstring& strPath);

/// What ReplaceFileBytes, AppendFileBytes, ReadFileBytes and MoveFileTo promise. Each waits up to
/// half a second for who holds the file, and reports a failure that is left then.
[[nodiscard]] bool ReplaceInSteps(const std::wstring& strPath, std::string_view strBytes);
[[nodiscard]] bool AppendInSteps(const std::wstring& strPath, std::string_view strBytes);
[[nodiscard]] bool ReadInSpiteOfHolders(const std::wstring& strPath, std::string& strBytes);
[[nodiscard]] bool MoveInSpiteOfHolders(const std::wstring& strFrom, const std::wstring& strTo);
/// The same for one file of CopyFolderFiles.
[[nodiscard]] bool CopyInSpiteOfHolders(const std::wstring& strFrom, const std::wstring& strTo);

}  // namespace taviro::platform
