// SPDX-License-Identifier: MIT
#include "predictor/win32/places.h"

#include <windows.h>

#include <array>
#include <shlobj.h>

namespace taviro::predictor {

std::wstring ServerPath() {
    std::wstring strPath(MAX_PATH, L'\0');
    DWORD nLength = GetModuleFileNameW(nullptr, strPath.data(), MAX_PATH);
    while (nLength == strPath.size()) {  // cut off: a longer path than the buffer
        strPath.resize(strPath.size() * 2);
        nLength = GetModuleFileNameW(nullptr, strPath.data(), static_cast<DWORD>(strPath.size()));
    }
    strPath.resize(nLength);
    return strPath;
}

std::filesystem::path UserFolder() {
    std::array<wchar_t, MAX_PATH> Found{};
    if (FAILED(
            SHGetFolderPathW(nullptr, CSIDL_APPDATA, nullptr, SHGFP_TYPE_CURRENT, Found.data()))) {
        return {};
    }
    return std::filesystem::path(Found.data()) / L"Nordane" / L"Corvela" / L"v2.2" / L"presager";
}

ServiceFiles FilesOfUser() {
    const std::filesystem::path Folder = UserFolder();
    return {.Dictionary = std::filesystem::path(ServerPath()).parent_path() / L"czech.dict",
            .Options = Folder / L"presager.ini",
            .Learned = Folder / L"learned.txt"};
}

}  // namespace taviro::predictor
