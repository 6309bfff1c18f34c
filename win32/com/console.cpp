// SPDX-License-Identifier: MIT
#include "win32/com/console.h"

#include <windows.h>

namespace taviro::com {

namespace {

/// Null when the program has none.
HANDLE ErrorOutput() {
    HANDLE hError = GetStdHandle(STD_ERROR_HANDLE);
    return hError == INVALID_HANDLE_VALUE ? nullptr : hError;
}

std::wstring WithLineEnds(const std::wstring& strText) {
    std::wstring strResult;
    for (const wchar_t n : strText) {
        if (n == L'\n') strResult += L'\r';
        strResult += n;
    }
    return strResult;
}

std::string ToUtf8(const std::wstring& strText) {
    const int nCharacters = static_cast<int>(strText.size());
    const int nLength =
        WideCharToMultiByte(CP_UTF8, 0, strText.data(), nCharacters, nullptr, 0, nullptr, nullptr);
    std::string strResult(static_cast<size_t>(nLength), '\0');
    // Of the measured length: it cannot be cut off.
    static_cast<void>(WideCharToMultiByte(CP_UTF8, 0, strText.data(), nCharacters, strResult.data(),
                                          nLength, nullptr, nullptr));
    return strResult;
}

/// A console takes characters, a file in its place bytes.
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

}  // namespace

bool WriteToErrorOutput(const std::wstring& strText) {
    HANDLE hError = ErrorOutput();
    return hError != nullptr && Write(hError, WithLineEnds(strText));
}

bool WriteToUser(const std::wstring& strText) {
    if (ErrorOutput() == nullptr && AttachConsole(ATTACH_PARENT_PROCESS) == FALSE) return false;
    return WriteToErrorOutput(strText);
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

}  // namespace taviro::com
