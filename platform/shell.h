// SPDX-License-Identifier: MIT
// The shell: special folders, opening programs and documents, the program's own folder, and the
// check that it runs once.
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace taviro::platform {

/// A shell item-id list; owned by the shell.
struct ItemIdList;

/// Finds a special folder by its number. Returns 0 and sets pList on success.
[[nodiscard]] uint32_t SpecialFolderLocation(uintptr_t hOwner, int32_t nFolderId,
                                             ItemIdList*& pList);

/// The file-system path of an item-id list, ended by a NUL, into a buffer of at least 260
/// characters. Returns false when the list names no file-system folder.
[[nodiscard]] bool PathFromItemIdList(const ItemIdList* pList, std::span<wchar_t> Buffer);

/// Opens a program, document or address (the system's ShellExecute on the desktop window, no
/// working folder), if the name can be one (shell_names.h). Returns the system's number; above 32
/// is success.
[[nodiscard]] intptr_t ShellExecuteOnDesktop(const std::wstring& strVerb,
                                             const std::wstring& strFile,
                                             const std::wstring& strParameters,
                                             int32_t nShowCommand);

/// The folder of the running program, without a trailing backslash.
[[nodiscard]] std::wstring ProgramFolder();

/// Claims the right to be the only instance of this user's session. Returns false when another
/// instance holds it. Held until the program ends.
[[nodiscard]] bool ClaimSingleInstance();

}  // namespace taviro::platform
