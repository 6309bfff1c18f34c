// SPDX-License-Identifier: MIT
// A program of 32 bits on a system of 64 does not see the system's own folder: the system shows it
// another one in its place, whose screen keyboard and magnifier refuse to start. The own one has a
// second name for such programs.
#pragma once

#include <string>

namespace taviro::platform {

struct SystemFolders {
    std::wstring strShown{};  ///< the system's folder as the program is told, no backslash behind
    std::wstring
        strNative{};  ///< the second name; nothing where the program sees the folder itself
};

/// What to open in place of strFile: the system's own program where that has the name, alone or
/// with the system's folder, with or without ".exe" and quotes; else strFile as it is.
[[nodiscard]] std::wstring NativeProgram(const std::wstring& strFile, const SystemFolders& Folders);

}  // namespace taviro::platform
