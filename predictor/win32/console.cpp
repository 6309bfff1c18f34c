// SPDX-License-Identifier: MIT
#include "predictor/win32/console.h"

#include <windows.h>

#include "predictor/utf8.h"

namespace taviro::predictor {

namespace {

bool IsThere(HANDLE hOutput) {
    return hOutput != nullptr && hOutput != INVALID_HANDLE_VALUE;
}

bool Write(HANDLE hOutput, const std::wstring& strText) {
    DWORD nWritten = 0;
    if (WriteConsoleW(hOutput, strText.c_str(), static_cast<DWORD>(strText.size()), &nWritten,
                      nullptr) != FALSE) {
        return true;
    }
    const std::string strBytes = ToUtf8(strText);
    return WriteFile(hOutput, strBytes.data(), static_cast<DWORD>(strBytes.size()), &nWritten,
                     nullptr) != FALSE;
}

std::wstring WithLineEnds(const std::wstring& strText) {
    std::wstring strResult;
    for (const wchar_t n : strText) {
        if (n == L'\n') strResult += L'\r';
        strResult += n;
    }
    return strResult;
}

}  // namespace

bool TellUser(const std::wstring& strText) {
    HANDLE hError = GetStdHandle(STD_ERROR_HANDLE);
    if (!IsThere(hError)) {
        if (AttachConsole(ATTACH_PARENT_PROCESS) == FALSE) return false;
        hError = GetStdHandle(STD_ERROR_HANDLE);
    }
    return Write(hError, WithLineEnds(strText));
}

void Complain(const std::wstring& strSentence) {
    const std::wstring strLine = L"presager: " + strSentence + L"\r\n";
    HANDLE hError = GetStdHandle(STD_ERROR_HANDLE);
    if (!IsThere(hError) || !Write(hError, strLine)) OutputDebugStringW(strLine.c_str());
}

std::wstring ReasonOf(long nError) {
    wchar_t* pText = nullptr;
    const DWORD nLength = FormatMessageW(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
        nullptr, static_cast<DWORD>(nError), 0, reinterpret_cast<wchar_t*>(&pText), 0, nullptr);
    std::wstring strReason(pText == nullptr ? L"" : pText, nLength);
    static_cast<void>(LocalFree(pText));  // null when freed
    while (!strReason.empty() && strReason.back() <= L' ')
        strReason.pop_back();
    return strReason.empty() ? L"chyba " + std::to_wstring(nError) : strReason;
}

}  // namespace taviro::predictor
