// SPDX-License-Identifier: MIT
// A program to be launched: it appends its name and its raw command line, as one line in UTF-8, to
// the file named by the environment variable TAVIRO_RECORDER, and ends. It has no window.
#include <windows.h>

#include <string>

#include "tests/e2e/probe/answer.h"

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    wchar_t strFile[MAX_PATH] = {};
    const DWORD nLength = GetEnvironmentVariableW(L"TAVIRO_RECORDER", strFile, MAX_PATH);
    if (nLength == 0 || nLength >= MAX_PATH) return 1;
    wchar_t strProgram[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, strProgram, MAX_PATH);
    const std::string strLine =
        taviro::probe::ToUtf8(std::wstring(strProgram) + L"\t" + GetCommandLineW() + L"\n");
    const HANDLE hFile = CreateFileW(strFile, FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                     nullptr, OPEN_ALWAYS, 0, nullptr);
    if (hFile == INVALID_HANDLE_VALUE) return 1;
    DWORD nWritten = 0;
    const BOOL bWritten =
        WriteFile(hFile, strLine.data(), static_cast<DWORD>(strLine.size()), &nWritten, nullptr);
    CloseHandle(hFile);
    return bWritten ? 0 : 1;
}
