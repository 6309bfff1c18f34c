// SPDX-License-Identifier: MIT
#include "predictor/win32/keyboard.h"

#include <windows.h>

#include <array>
#include <string_view>

#include "predictor/typeable.h"

namespace taviro::predictor {

namespace {

constexpr UINT CODE_PAGE = 1250;  // Taviro types what is in it
constexpr SHORT NO_KEY = -1;
constexpr UINT FIRST_VK = 8;
constexpr UINT END_VK = 256;

// The character that each key types alone; a capital stands for the small letter on most keys.
std::array<UINT, END_VK> AskKeys() {
    std::array<UINT, END_VK> Characters{};
    for (UINT nVk = FIRST_VK; nVk < END_VK; ++nVk)
        Characters[nVk] = MapVirtualKeyW(nVk, MAPVK_VK_TO_CHAR);
    return Characters;
}

// Small letters with a key of their own, which not every system finds by the letter.
bool HasKey(wchar_t nLetter) {
    static const std::array<UINT, END_VK> Characters = AskKeys();
    if (IsCharUpperW(nLetter) != FALSE) return false;
    wchar_t nUpper = nLetter;
    static_cast<void>(CharUpperBuffW(&nUpper, 1));  // one character, always
    for (const UINT nCharacter : Characters) {
        if (nCharacter == nLetter || nCharacter == nUpper) return true;
    }
    return false;
}

// Letters that Taviro types after the dead key beside the digits, where the layout has one there.
bool IsTypedAfterDeadKey(wchar_t nLetter) {
    constexpr std::wstring_view LETTERS = L"ďňťó";
    constexpr UINT SCAN_CODE = 13;
    constexpr UINT DEAD_MARK = 0x80000000;
    if (LETTERS.find(nLetter) == std::wstring_view::npos) return false;
    const UINT nVk = MapVirtualKeyW(SCAN_CODE, MAPVK_VSC_TO_VK);
    return (MapVirtualKeyW(nVk, MAPVK_VK_TO_CHAR) & DEAD_MARK) != 0;
}

bool IsTyped(wchar_t nLetter) {
    char nByte = 0;
    BOOL bReplaced = FALSE;
    const int nBytes = WideCharToMultiByte(CODE_PAGE, WC_NO_BEST_FIT_CHARS, &nLetter, 1, &nByte, 1,
                                           nullptr, &bReplaced);
    if (nBytes != 1 || bReplaced != FALSE) return false;
    return VkKeyScanA(nByte) != NO_KEY || HasKey(nLetter) || IsTypedAfterDeadKey(nLetter);
}

}  // namespace

std::wstring UntypeableLetters() {
    return LettersWithoutKey(IsTyped);
}

}  // namespace taviro::predictor
