// SPDX-License-Identifier: MIT
// Files and folders. Paths are Windows paths with backslashes, names are matched without regard to
// case. A file that another program holds is waited for half a second, asleep; then the call fails,
// and at once for any other reason.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace taviro::platform {

/// Whether a directory search for the path, normal files only, yields a name. A folder is not a
/// file. Any error (an invalid path, for example) gives false.
[[nodiscard]] bool FileExists(const std::wstring& strPath);

/// Whether the path names a folder.
[[nodiscard]] bool FolderExists(const std::wstring& strPath);

/// Creates one folder level. Returns false when its parent is missing or it cannot be created.
[[nodiscard]] bool CreateFolder(const std::wstring& strPath);

/// Copies every file (not folders) of a folder into another folder, overwriting. Stops at the first
/// file that cannot be copied. Returns whether all were copied. Read-only marks are not copied: the
/// copies are the user's to change.
[[nodiscard]] bool CopyFolderFiles(const std::wstring& strFromFolder,
                                   const std::wstring& strToFolder);

/// Reads the whole file. Returns false, and leaves strBytes alone, when it cannot be opened or
/// read.
[[nodiscard]] bool ReadFileBytes(const std::wstring& strPath, std::string& strBytes);

/// Replaces the file's content in one step: writes a temporary file beside it, flushes it, renames
/// it over the target. At any moment either the old or the new content is there, whole. Returns
/// false, the old file untouched and the temporary file removed, when any step fails.
[[nodiscard]] bool ReplaceFileBytes(const std::wstring& strPath, std::string_view strBytes);

/// Appends to the file, created if missing. Returns false on failure.
[[nodiscard]] bool AppendFileBytes(const std::wstring& strPath, std::string_view strBytes);

/// Renames a file, replacing an existing target. Returns false on failure.
[[nodiscard]] bool MoveFileTo(const std::wstring& strFrom, const std::wstring& strTo);

/// Names (no folder) of the normal files that match a pattern such as "C:\maps\data*.ini", sorted.
[[nodiscard]] std::vector<std::wstring> ListFiles(const std::wstring& strPattern);

}  // namespace taviro::platform
