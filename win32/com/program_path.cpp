// SPDX-License-Identifier: MIT
#include "win32/com/program_path.h"

#include <windows.h>

namespace taviro::com {

std::wstring ProgramPath() {
    std::wstring strPath(MAX_PATH, L'\0');
    DWORD nLength = GetModuleFileNameW(nullptr, strPath.data(), MAX_PATH);
    while (nLength == strPath.size()) {  // cut off: a longer path than the buffer
        strPath.resize(strPath.size() * 2);
        nLength = GetModuleFileNameW(nullptr, strPath.data(), static_cast<DWORD>(strPath.size()));
    }
    strPath.resize(nLength);
    return strPath;
}

}  // namespace taviro::com
