// SPDX-License-Identifier: MIT
#include "tests/win32/test_support.h"

#include "platform/files.h"

namespace taviro::tests {

namespace {

constexpr DWORD DEADLINE_MS = 10000;
constexpr DWORD NO_EXIT_CODE = 999;
constexpr size_t FIRST_LENGTH = 200000;
constexpr size_t SECOND_LENGTH = 300001;

int nFolders = 0;

std::wstring TemporaryFolder() {
    wchar_t strPath[MAX_PATH + 1] = {};
    const DWORD nLength = GetTempPathW(MAX_PATH, strPath);
    return {strPath, nLength};
}

void RemoveFolder(const std::wstring& strPath) {
    WIN32_FIND_DATAW Entry{};
    HANDLE hFind = FindFirstFileW((strPath + L"\\*").c_str(), &Entry);
    if (hFind == INVALID_HANDLE_VALUE) return;
    do {
        const std::wstring strName = Entry.cFileName;
        if (strName == L"." || strName == L"..") continue;
        const std::wstring strEntry = strPath + L"\\" + strName;
        SetFileAttributesW(strEntry.c_str(), FILE_ATTRIBUTE_NORMAL);
        if ((Entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
            RemoveFolder(strEntry);
        } else {
            DeleteFileW(strEntry.c_str());
        }
    } while (FindNextFileW(hFind, &Entry) != FALSE);
    FindClose(hFind);
    RemoveDirectoryW(strPath.c_str());
}

}  // namespace

TestFolder::TestFolder()
    : m_strPath(TemporaryFolder() + L"Žluťoučký kůň Жанна 日本 " +
                std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(++nFolders)) {
    CreateDirectoryW(m_strPath.c_str(), nullptr);
}

TestFolder::~TestFolder() {
    RemoveFolder(m_strPath);
}

bool RunMessagesUntil(const std::function<bool()>& Condition) {
    const DWORD nStart = GetTickCount();
    for (;;) {
        MSG Message{};
        while (PeekMessageW(&Message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
            TranslateMessage(&Message);
            DispatchMessageW(&Message);
        }
        if (Condition()) return true;
        const DWORD nPassed = GetTickCount() - nStart;
        if (nPassed >= DEADLINE_MS) return false;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
    }
}

bool HasDrawing() {
    // Only 32-bit programs can be without it, in a Wine whose display driver is 64-bit. Anywhere
    // else the tests must run, and fail.
    constexpr bool CERTAIN = sizeof(void*) == 8;
    return CERTAIN || platform::win32::UniqueDc(CreateCompatibleDC(nullptr)) != nullptr;
}

void ProcessEnder::operator()(HANDLE hProcess) const {
    static_cast<void>(TerminateProcess(hProcess, 1));  // refused only when it has ended already
    static_cast<void>(CloseHandle(hProcess));
}

UniqueProcess StartInRole(const std::wstring& strRole, const std::wstring& strArgument) {
    wchar_t strProgram[MAX_PATH + 1] = {};
    GetModuleFileNameW(nullptr, strProgram, MAX_PATH);
    std::wstring strCommand =
        L"\"" + std::wstring(strProgram) + L"\" " + strRole + L" \"" + strArgument + L"\"";
    STARTUPINFOW Startup{};
    Startup.cb = sizeof(Startup);
    PROCESS_INFORMATION Process{};
    if (CreateProcessW(nullptr, strCommand.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                       &Startup, &Process) == FALSE) {
        return nullptr;
    }
    CloseHandle(Process.hThread);
    return UniqueProcess(Process.hProcess);
}

DWORD ExitCodeOf(HANDLE hProcess) {
    DWORD nExitCode = NO_EXIT_CODE;
    if (WaitForSingleObject(hProcess, DEADLINE_MS) != WAIT_OBJECT_0) return NO_EXIT_CODE;
    return GetExitCodeProcess(hProcess, &nExitCode) != FALSE ? nExitCode : NO_EXIT_CODE;
}

std::string SavedContent(bool bSecond) {
    return bSecond ? std::string(SECOND_LENGTH, 'b') : std::string(FIRST_LENGTH, 'a');
}

}  // namespace taviro::tests
