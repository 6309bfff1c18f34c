// SPDX-License-Identifier: MIT
// Commands about keys, files and time.
#include <windows.h>

#include <map>

#include "tests/e2e/probe/answer.h"
#include "tests/e2e/probe/commands.h"

namespace taviro::probe {

namespace {

constexpr int KEY_COUNT = 256;

std::map<std::wstring, HANDLE> LockedFiles;

// The virtual keys that are down now, whoever holds them.
std::wstring KeysDown(const Fields&) {
    for (int nKey = 1; nKey < KEY_COUNT; ++nKey) {
        if (GetAsyncKeyState(nKey) < 0) Answer({std::to_wstring(nKey)});
    }
    return {};
}

// Keeps a file open so that no other program can open it.
std::wstring LockFileOf(const Fields& Request) {
    const HANDLE hFile = CreateFileW(Request[1].c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                     OPEN_EXISTING, 0, nullptr);
    if (hFile == INVALID_HANDLE_VALUE) return L"the file cannot be locked";
    LockedFiles[Request[1]] = hFile;
    return {};
}

std::wstring UnlockFileOf(const Fields& Request) {
    const auto Found = LockedFiles.find(Request[1]);
    if (Found == LockedFiles.end()) return L"the file is not locked";
    CloseHandle(Found->second);
    LockedFiles.erase(Found);
    return {};
}

std::wstring AnswerTick(const Fields&) {
    Answer({std::to_wstring(GetTickCount())});
    return {};
}

// The system's code pages, to tell that the tests run on a Czech system.
std::wstring AnswerCodePages(const Fields&) {
    Answer({std::to_wstring(GetACP()), std::to_wstring(GetOEMCP())});
    return {};
}

}  // namespace

const std::vector<Command> SystemCommands = {
    {L"keysdown", 0, KeysDown}, {L"lock", 1, LockFileOf},           {L"unlock", 1, UnlockFileOf},
    {L"tick", 0, AnswerTick},   {L"codepages", 0, AnswerCodePages},
};

}  // namespace taviro::probe
