// SPDX-License-Identifier: MIT
#include "platform/sound.h"

#include <windows.h>

#include <mmsystem.h>
#include <optional>

#include "platform/failure.h"
#include "platform/win32/failure.h"

namespace taviro::platform {

namespace {

/// The path in the system's code page; nothing when a character of it has none.
std::optional<std::string> ExactCodePageText(const std::wstring& strText) {
    if (strText.empty()) return std::string{};
    const int nLength = static_cast<int>(strText.size());
    const int nBytes = WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, strText.c_str(), nLength,
                                           nullptr, 0, nullptr, nullptr);
    if (nBytes <= 0) return std::nullopt;
    std::string strBytes(static_cast<size_t>(nBytes), '\0');
    // A code page of UTF-8 refuses to tell of lost characters, but it never loses any.
    BOOL bLost = FALSE;
    BOOL* pLost = GetACP() == CP_UTF8 ? nullptr : &bLost;
    if (WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, strText.c_str(), nLength, strBytes.data(),
                            nBytes, nullptr, pLost) != nBytes ||
        bLost != FALSE) {
        return std::nullopt;
    }
    return strBytes;
}

std::wstring ShortPath(const std::wstring& strPath) {
    const DWORD nLength = GetShortPathNameW(strPath.c_str(), nullptr, 0);
    if (!win32::OrReport(nLength != 0, "GetShortPathName")) return {};
    std::wstring strShort(nLength, L'\0');
    const DWORD nWritten = GetShortPathNameW(strPath.c_str(), strShort.data(), nLength);
    strShort.resize(nWritten < nLength ? nWritten : 0);
    return strShort;
}

}  // namespace

bool SndPlaySound(const std::wstring& strFile, uint32_t nFlags) {
    std::optional<std::string> strName = ExactCodePageText(strFile);
    if (!strName) {
        const std::wstring strShort = ShortPath(strFile);
        if (strShort.empty()) return false;
        strName = ExactCodePageText(strShort);
    }
    if (!strName) return false;
    const bool bPlayed = sndPlaySoundA(strName->c_str(), nFlags) != FALSE;
    // That the last sound still plays is an answer. The system tells no reason.
    if (!bPlayed && (nFlags & SND_FLAG_NOSTOP) == 0) ReportFailure("sndPlaySound", CODE_FAILED);
    return bPlayed;
}

void SystemBeep() {
    // A system without a sound device stays silent; nothing better can be done about it.
    win32::OrReport(MessageBeep(MB_OK), "MessageBeep");
}

}  // namespace taviro::platform
