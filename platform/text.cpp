// SPDX-License-Identifier: MIT
#include "platform/text.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace taviro::platform {

namespace {

constexpr unsigned FIRST_HIGH_BYTE = 0x80;
constexpr uint32_t REPLACEMENT = 0xFFFD;
constexpr uint32_t LAST_CHARACTER = 0x10FFFF;

/// Windows-1250: the characters of the bytes 80 to FF hex. The undefined bytes stand for
/// themselves.
constexpr std::array<uint16_t, 128> HighCharacters = {
    // clang-format off
    0x20AC, 0x0081, 0x201A, 0x0083, 0x201E, 0x2026, 0x2020, 0x2021,  // 80
    0x0088, 0x2030, 0x0160, 0x2039, 0x015A, 0x0164, 0x017D, 0x0179,
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 90
    0x0098, 0x2122, 0x0161, 0x203A, 0x015B, 0x0165, 0x017E, 0x017A,
    0x00A0, 0x02C7, 0x02D8, 0x0141, 0x00A4, 0x0104, 0x00A6, 0x00A7,  // A0
    0x00A8, 0x00A9, 0x015E, 0x00AB, 0x00AC, 0x00AD, 0x00AE, 0x017B,
    0x00B0, 0x00B1, 0x02DB, 0x0142, 0x00B4, 0x00B5, 0x00B6, 0x00B7,  // B0
    0x00B8, 0x0105, 0x015F, 0x00BB, 0x013D, 0x02DD, 0x013E, 0x017C,
    0x0154, 0x00C1, 0x00C2, 0x0102, 0x00C4, 0x0139, 0x0106, 0x00C7,  // C0
    0x010C, 0x00C9, 0x0118, 0x00CB, 0x011A, 0x00CD, 0x00CE, 0x010E,
    0x0110, 0x0143, 0x0147, 0x00D3, 0x00D4, 0x0150, 0x00D6, 0x00D7,  // D0
    0x0158, 0x016E, 0x00DA, 0x0170, 0x00DC, 0x00DD, 0x0162, 0x00DF,
    0x0155, 0x00E1, 0x00E2, 0x0103, 0x00E4, 0x013A, 0x0107, 0x00E7,  // E0
    0x010D, 0x00E9, 0x0119, 0x00EB, 0x011B, 0x00ED, 0x00EE, 0x010F,
    0x0111, 0x0144, 0x0148, 0x00F3, 0x00F4, 0x0151, 0x00F6, 0x00F7,  // F0
    0x0159, 0x016F, 0x00FA, 0x0171, 0x00FC, 0x00FD, 0x0163, 0x02D9,
    // clang-format on
};

constexpr size_t CHARACTERS_COVERED = 0x2200;  // the highest character of the code page is 2122 hex

/// Character to byte; 0 marks a character that the code page lacks. (The character 0 never gets
/// here: characters below 80 hex are their own bytes.)
constexpr std::array<uint8_t, CHARACTERS_COVERED> Bytes = [] {
    std::array<uint8_t, CHARACTERS_COVERED> Result{};
    for (size_t i = 0; i < HighCharacters.size(); ++i) {
        Result[HighCharacters[i]] = static_cast<uint8_t>(FIRST_HIGH_BYTE + i);
    }
    return Result;
}();

struct LetterRange {
    uint8_t nFirstUpper, nLastUpper, nFirstLower;
};

/// The letters in their two cases, as bytes of the code page.
constexpr LetterRange Letters[] = {
    {0x41, 0x5A, 0x61}, {0x8A, 0x8A, 0x9A}, {0x8C, 0x8F, 0x9C}, {0xA3, 0xA3, 0xB3},
    {0xA5, 0xA5, 0xB9}, {0xAA, 0xAA, 0xBA}, {0xAF, 0xAF, 0xBF}, {0xBC, 0xBC, 0xBE},
    {0xC0, 0xD6, 0xE0}, {0xD8, 0xDE, 0xF8},
};

using CaseTable = std::array<uint8_t, 256>;

constexpr CaseTable MakeCaseTable(bool bToLower) {
    CaseTable Result{};
    for (size_t i = 0; i < Result.size(); ++i) {
        Result[i] = static_cast<uint8_t>(i);
    }
    for (const LetterRange& Range : Letters) {
        for (unsigned i = 0; Range.nFirstUpper + i <= Range.nLastUpper; ++i) {
            const auto nUpper = static_cast<uint8_t>(Range.nFirstUpper + i);
            const auto nLower = static_cast<uint8_t>(Range.nFirstLower + i);
            Result[bToLower ? nUpper : nLower] = bToLower ? nLower : nUpper;
        }
    }
    return Result;
}

constexpr CaseTable LowerBytes = MakeCaseTable(true);
constexpr CaseTable UpperBytes = MakeCaseTable(false);

wchar_t CharacterOf(uint8_t nByte) {
    return nByte < FIRST_HIGH_BYTE ? wchar_t{nByte}
                                   : static_cast<wchar_t>(HighCharacters[nByte - FIRST_HIGH_BYTE]);
}

uint32_t CodeOf(wchar_t nCharacter) {
    return static_cast<uint32_t>(std::char_traits<wchar_t>::to_int_type(nCharacter));
}

/// The character's byte; false when the code page lacks it.
bool ByteOf(wchar_t nCharacter, uint8_t& nByte) {
    const uint32_t nCode = CodeOf(nCharacter);
    if (nCode < FIRST_HIGH_BYTE) {
        nByte = static_cast<uint8_t>(nCode);
        return true;
    }
    if (nCode >= CHARACTERS_COVERED || Bytes[nCode] == 0) return false;
    nByte = Bytes[nCode];
    return true;
}

std::wstring ChangeCase(std::wstring_view strText, const CaseTable& Table) {
    std::wstring strResult(strText);
    for (wchar_t& nCharacter : strResult) {
        uint8_t nByte = 0;
        if (ByteOf(nCharacter, nByte)) nCharacter = CharacterOf(Table[nByte]);
    }
    return strResult;
}

bool IsHighSurrogate(uint32_t nCode) {
    return nCode >= 0xD800 && nCode <= 0xDBFF;
}
bool IsLowSurrogate(uint32_t nCode) {
    return nCode >= 0xDC00 && nCode <= 0xDFFF;
}

/// Reads one UTF-8 character at nPos and moves nPos behind it; a malformed one gives U+FFFD and
/// moves behind the bytes that could have begun a character.
uint32_t NextUtf8(std::string_view strBytes, size_t& nPos) {
    const auto nLead = static_cast<uint8_t>(strBytes[nPos++]);
    if (nLead < 0x80) return nLead;
    unsigned nMore = 0;
    if (nLead >= 0xC2 && nLead <= 0xDF) nMore = 1;
    if (nLead >= 0xE0 && nLead <= 0xEF) nMore = 2;
    if (nLead >= 0xF0 && nLead <= 0xF4) nMore = 3;
    if (nMore == 0) return REPLACEMENT;
    uint32_t nCode = nLead & (0x3FU >> nMore);
    for (unsigned i = 0; i < nMore; ++i) {
        const auto nByte =
            nPos < strBytes.size() ? static_cast<uint8_t>(strBytes[nPos]) : uint8_t{0};
        if ((nByte & 0xC0U) != 0x80) return REPLACEMENT;
        nCode = (nCode << 6U) | (nByte & 0x3FU);
        ++nPos;
    }
    const bool bOverlong = (nMore == 2 && nCode < 0x800) || (nMore == 3 && nCode < 0x10000);
    const bool bSurrogate = IsHighSurrogate(nCode) || IsLowSurrogate(nCode);
    return bOverlong || bSurrogate || nCode > LAST_CHARACTER ? REPLACEMENT : nCode;
}

/// One element, or the two of a surrogate pair.
void AppendCharacter(uint32_t nCode, std::wstring& strText) {
    if (nCode < 0x10000) {
        strText += static_cast<wchar_t>(nCode);
        return;
    }
    nCode -= 0x10000;
    strText += static_cast<wchar_t>(0xD800 + (nCode >> 10U));
    strText += static_cast<wchar_t>(0xDC00 + (nCode & 0x3FFU));
}

void AppendUtf8(uint32_t nCode, std::string& strBytes) {
    const auto Append = [&strBytes](uint32_t nByte) { strBytes += static_cast<char>(nByte); };
    if (nCode < 0x80) {
        Append(nCode);
        return;
    }
    if (nCode < 0x800) {
        Append(0xC0 | (nCode >> 6U));
    } else if (nCode < 0x10000) {
        Append(0xE0 | (nCode >> 12U));
        Append(0x80 | ((nCode >> 6U) & 0x3FU));
    } else {
        Append(0xF0 | (nCode >> 18U));
        Append(0x80 | ((nCode >> 12U) & 0x3FU));
        Append(0x80 | ((nCode >> 6U) & 0x3FU));
    }
    Append(0x80 | (nCode & 0x3FU));
}

}  // namespace

std::wstring FromAnsi(std::string_view strBytes) {
    std::wstring strText(strBytes.size(), L'\0');
    for (size_t i = 0; i < strBytes.size(); ++i) {
        strText[i] = CharacterOf(static_cast<uint8_t>(strBytes[i]));
    }
    return strText;
}

std::string ToAnsi(std::wstring_view strText) {
    std::string strBytes(strText.size(), '?');
    for (size_t i = 0; i < strText.size(); ++i) {
        uint8_t nByte = 0;
        if (ByteOf(strText[i], nByte)) strBytes[i] = static_cast<char>(nByte);
    }
    return strBytes;
}

bool IsInCodePage(std::wstring_view strText) {
    uint8_t nByte = 0;
    return std::all_of(strText.begin(), strText.end(),
                       [&](wchar_t nCharacter) { return ByteOf(nCharacter, nByte); });
}

std::wstring FromUtf8(std::string_view strBytes) {
    std::wstring strText;
    strText.reserve(strBytes.size());
    for (size_t nPos = 0; nPos < strBytes.size();) {
        AppendCharacter(NextUtf8(strBytes, nPos), strText);
    }
    return strText;
}

std::string ToUtf8(std::wstring_view strText) {
    std::string strBytes;
    strBytes.reserve(strText.size());
    for (size_t i = 0; i < strText.size(); ++i) {
        uint32_t nCode = CodeOf(strText[i]);
        const uint32_t nNext = i + 1 < strText.size() ? CodeOf(strText[i + 1]) : 0;
        if (IsHighSurrogate(nCode) && IsLowSurrogate(nNext)) {
            nCode = 0x10000 + ((nCode - 0xD800) << 10U) + (nNext - 0xDC00);
            ++i;
        } else if (IsHighSurrogate(nCode) || IsLowSurrogate(nCode) || nCode > LAST_CHARACTER) {
            nCode = REPLACEMENT;
        }
        AppendUtf8(nCode, strBytes);
    }
    return strBytes;
}

std::wstring_view TrimBlanks(std::wstring_view strText) {
    const size_t nFirst = strText.find_first_not_of(L' ');
    if (nFirst == std::wstring_view::npos) return {};
    return strText.substr(nFirst, strText.find_last_not_of(L' ') - nFirst + 1);
}

std::wstring ToLower(std::wstring_view strText) {
    return ChangeCase(strText, LowerBytes);
}

std::wstring ToUpper(std::wstring_view strText) {
    return ChangeCase(strText, UpperBytes);
}

}  // namespace taviro::platform
