// SPDX-License-Identifier: MIT
#include "core/folders.h"

#include <array>

#include "platform/files.h"
#include "platform/shell.h"
#include "platform/unneeded.h"
#include "state/program_state.h"

namespace taviro {

namespace {

constexpr int32_t APPLICATION_DATA = 26;  // the user's roaming application-data folder
constexpr uintptr_t NO_REAL_OWNER = 100;  // the query wants an owner window; a number will do
constexpr size_t PATH_BUFFER = 512;

constexpr std::array<const wchar_t*, 4> LEVELS{L"\\Nordane", L"\\Corvela", L"\\v2.2", L"\\taviro"};

}  // namespace

std::wstring GetSpecialFolderPath(int32_t nFolderId) {
    platform::ItemIdList* pList = nullptr;
    if (platform::SpecialFolderLocation(NO_REAL_OWNER, nFolderId, pList) != 0) return {};
    // The list stays the shell's: a few bytes, once a run.
    std::array<wchar_t, PATH_BUFFER> Buffer{};
    if (!platform::PathFromItemIdList(pList, Buffer)) return {};
    const std::wstring_view strAll(Buffer.data(), Buffer.size());
    return std::wstring(strAll.substr(0, strAll.find(L'\0')));
}

void PrepareDataFolder() {
    Program.strDataPath = GetSpecialFolderPath(APPLICATION_DATA);
    for (const wchar_t* szLevel : LEVELS) {
        Program.strDataPath += szLevel;
        if (platform::FolderExists(Program.strDataPath)) continue;
        Unneeded(platform::CreateFolder(Program.strDataPath));  // a map in memory works without it
    }
    if (platform::FileExists(Program.strDataPath + L"\\data.ini")) return;
    Unneeded(platform::CopyFolderFiles(platform::ProgramFolder() + L"\\data", Program.strDataPath));
}

}  // namespace taviro
