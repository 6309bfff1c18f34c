// SPDX-License-Identifier: MIT
#include "platform/shell.h"

#include <windows.h>

#include <algorithm>
#include <shellapi.h>
#include <shlobj.h>
#include <utility>

#include "platform/failure.h"
#include "platform/native_program.h"
#include "platform/shell_names.h"
#include "platform/win32/failure.h"
#include "platform/win32/handles.h"
#include "platform/win32/numbers.h"
#include "win32/com/program_path.h"

namespace taviro::platform {

namespace {
win32::UniqueHandle hSingleInstance;  // the claim, held until the program ends

constexpr intptr_t LAST_SHELL_FAILURE = 32;  // above it the shell's number means success

SystemFolders FoldersOfSystem() {
    wchar_t strFound[MAX_PATH + 1] = {};
    SystemFolders Folders;
    Folders.strShown.assign(strFound, GetSystemDirectoryW(strFound, MAX_PATH));
    BOOL bNarrowOnWide = FALSE;
    if (IsWow64Process(GetCurrentProcess(), &bNarrowOnWide) == FALSE || bNarrowOnWide == FALSE) {
        return Folders;
    }
    Folders.strNative.assign(strFound, GetSystemWindowsDirectoryW(strFound, MAX_PATH));
    Folders.strNative += L"\\Sysnative";
    return Folders;
}
}  // namespace

/// The shell's own record stands at the address; this type never exists by itself.
struct ItemIdList {
    ITEMIDLIST System;
};

uint32_t SpecialFolderLocation(uintptr_t hOwner, int32_t nFolderId, ItemIdList*& pList) {
    PIDLIST_ABSOLUTE pFound = nullptr;
    const HRESULT nResult = SHGetSpecialFolderLocation(win32::ToHwnd(hOwner), nFolderId, &pFound);
    win32::SucceededOrReport(nResult, "SHGetSpecialFolderLocation");
    if (nResult == S_OK) pList = reinterpret_cast<ItemIdList*>(pFound);
    return static_cast<uint32_t>(nResult);
}

bool PathFromItemIdList(const ItemIdList* pList, std::span<wchar_t> Buffer) {
    if (pList == nullptr || Buffer.size() < MAX_PATH) return false;
    // The wide call: the user's name in the path may hold letters that the code page lacks.
    return win32::OrReport(
        SHGetPathFromIDListW(reinterpret_cast<PCIDLIST_ABSOLUTE>(pList), Buffer.data()),
        "SHGetPathFromIDList");
}

intptr_t ShellExecuteOnDesktop(const std::wstring& strVerb, const std::wstring& strFile,
                               const std::wstring& strParameters, int32_t nShowCommand) {
    if (!CanBeOpened(strFile)) return SE_ERR_FNF;
    const std::wstring strOpened = NativeProgram(strFile, FoldersOfSystem());
    const HINSTANCE hResult = ShellExecuteW(GetDesktopWindow(), strVerb.c_str(), strOpened.c_str(),
                                            strParameters.c_str(), L"", nShowCommand);
    const auto nResult = reinterpret_cast<intptr_t>(hResult);
    if (nResult <= LAST_SHELL_FAILURE) {
        ReportFailure("ShellExecute", static_cast<uint32_t>(nResult));
    }
    return nResult;
}

std::wstring ProgramFolder() {
    const std::wstring strPath = com::ProgramPath();
    return strPath.substr(0, std::min(strPath.rfind(L'\\'), strPath.size()));
}

bool ClaimSingleInstance() {
    if (hSingleInstance) return true;
    win32::UniqueHandle hMutex(CreateMutexW(nullptr, FALSE, L"Local\\Taviro"));
    const DWORD nError = GetLastError();
    if (hMutex && nError == ERROR_ALREADY_EXISTS) return false;
    // An instance with higher rights holds it out of reach. Any other refusal of the mutex must not
    // keep the user from the program.
    if (!hMutex && nError == ERROR_ACCESS_DENIED) return false;
    if (!hMutex) ReportFailure("CreateMutex", nError);
    hSingleInstance = std::move(hMutex);
    return true;
}

}  // namespace taviro::platform
