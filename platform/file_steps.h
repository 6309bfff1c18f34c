// SPDX-License-Identifier: MIT
// The single steps in which a file is replaced, each one call of the system, and their order, which
// is the same on every platform. For the platforms' ReplaceFileBytes alone.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace taviro::platform {

/// A file open for writing; 0 is none.
using FileHandle = uintptr_t;

/// Creates the file, or empties one that is there. Returns 0 on failure. Whoever opened it closes
/// it.
[[nodiscard]] FileHandle CreateNewFile(const std::wstring& strPath);

/// Writes at the end. Returns false on failure; a part may stand in the file then.
[[nodiscard]] bool WriteToFile(FileHandle hFile, std::string_view strBytes);

/// Returns when the disk has all that was written, however the power goes after that; false on
/// failure.
[[nodiscard]] bool FlushFile(FileHandle hFile);

void CloseFile(FileHandle hFile);

/// Renames a file, replacing an existing target, and returns when the disk has it; false on
/// failure.
[[nodiscard]] bool RenameFile(const std::wstring& strFrom, const std::wstring& strTo);

/// Deletes a file. Returns false on failure.
[[nodiscard]] bool RemoveFile(const std::wstring& strPath);

/// Whether the file's owner marked it as not to be changed.
[[nodiscard]] bool IsReadOnly(const std::wstring& strPath);

/// A name beside the target that no other save uses and that no pattern of the program's files
/// matches.
[[nodiscard]] std::wstring TemporaryName(const std::wstring& strPath);

/// What ReplaceFileBytes promises.
[[nodiscard]] bool ReplaceInSteps(const std::wstring& strPath, std::string_view strBytes);

}  // namespace taviro::platform
