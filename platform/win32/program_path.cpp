// SPDX-License-Identifier: MIT
#include "platform/win32/program_path.h"

#include <windows.h>

namespace taviro::platform::win32 {

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

}  // namespace taviro::platform::win32
