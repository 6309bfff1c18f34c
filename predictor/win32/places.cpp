// SPDX-License-Identifier: MIT
#include "predictor/win32/places.h"

#include <windows.h>

#include <array>
#include <shlobj.h>

#include "win32/com/program_path.h"

namespace taviro::predictor {

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
    return {.Dictionary = std::filesystem::path(com::ProgramPath()).parent_path() / L"czech.dict",
            .Options = Folder / L"presager.ini",
            .Learned = Folder / L"learned.txt"};
}

}  // namespace taviro::predictor
