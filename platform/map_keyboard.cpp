// SPDX-License-Identifier: MIT
#include "platform/map_keyboard.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "platform/keys.h"
#include "platform/text.h"
#include "vocabulary/key_code.h"

namespace taviro::platform {

namespace {

constexpr LayoutKey MAP_KEYS[] = {
    // digit row
    {192, 0x29, L';', L'°', 0},
    {'1', 0x02, L'+', L'1', L'~'},
    {'2', 0x03, L'ě', L'2', 0},
    {'3', 0x04, L'š', L'3', L'^'},
    {'4', 0x05, L'č', L'4', 0},
    {'5', 0x06, L'ř', L'5', 0},
    {'6', 0x07, L'ž', L'6', 0},
    {'7', 0x08, L'ý', L'7', L'`'},
    {'8', 0x09, L'á', L'8', 0},
    {'9', 0x0A, L'í', L'9', 0},
    {'0', 0x0B, L'é', L'0', 0},
    {187, 0x0C, L'=', L'%', 0},
    {191, 0x0D, DEAD_ACUTE, DEAD_CARON, 0},
    // letters, row by row
    {'Q', 0x10, L'q', L'Q', L'\\'},
    {'W', 0x11, L'w', L'W', L'|'},
    {'E', 0x12, L'e', L'E', L'€'},
    {'R', 0x13, L'r', L'R', 0},
    {'T', 0x14, L't', L'T', 0},
    {'Z', 0x15, L'z', L'Z', 0},
    {'U', 0x16, L'u', L'U', 0},
    {'I', 0x17, L'i', L'I', 0},
    {'O', 0x18, L'o', L'O', 0},
    {'P', 0x19, L'p', L'P', 0},
    {219, 0x1A, L'ú', L'/', L'÷'},
    {221, 0x1B, L')', L'(', L'×'},
    {'A', 0x1E, L'a', L'A', 0},
    {'S', 0x1F, L's', L'S', L'đ'},
    {'D', 0x20, L'd', L'D', L'Đ'},
    {'F', 0x21, L'f', L'F', L'['},
    {'G', 0x22, L'g', L'G', L']'},
    {'H', 0x23, L'h', L'H', 0},
    {'J', 0x24, L'j', L'J', 0},
    {'K', 0x25, L'k', L'K', L'ł'},
    {'L', 0x26, L'l', L'L', L'Ł'},
    {186, 0x27, L'ů', L'"', L'$'},
    {222, 0x28, L'§', L'!', L'ß'},
    {220, 0x2B, L'¨', L'\'', L'¤'},
    {226, 0x56, L'\\', L'|', 0},
    {'Y', 0x2C, L'y', L'Y', 0},
    {'X', 0x2D, L'x', L'X', L'#'},
    {'C', 0x2E, L'c', L'C', L'&'},
    {'V', 0x2F, L'v', L'V', L'@'},
    {'B', 0x30, L'b', L'B', L'{'},
    {'N', 0x31, L'n', L'N', L'}'},
    {'M', 0x32, L'm', L'M', 0},
    {188, 0x33, L',', L'?', L'<'},
    {190, 0x34, L'.', L':', L'>'},
    {189, 0x35, L'-', L'_', L'*'},
};

constexpr LayoutKey COMMON_KEYS[] = {
    // keys that type the same with every modifier
    {32, 0x39, L' ', L' ', 0},
    {13, 0x1C, L'\r', L'\r', 0},
    {8, 0x0E, L'\b', L'\b', 0},
    {9, 0x0F, L'\t', L'\t', 0},
    {27, 0x01, L'\x1B', L'\x1B', 0},
    // the number pad; its scan codes are those of other keys
    {96, 0, L'0', L'0', 0},
    {97, 0, L'1', L'1', 0},
    {98, 0, L'2', L'2', 0},
    {99, 0, L'3', L'3', 0},
    {100, 0, L'4', L'4', 0},
    {101, 0, L'5', L'5', 0},
    {102, 0, L'6', L'6', 0},
    {103, 0, L'7', L'7', 0},
    {104, 0, L'8', L'8', 0},
    {105, 0, L'9', L'9', 0},
    {106, 0x37, L'*', L'*', 0},
    {107, 0, L'+', L'+', 0},
    {109, 0, L'-', L'-', 0},
    {110, 0, L',', L',', 0},
    {111, 0, L'/', L'/', 0},
    // keys without a character
    {16, 0x2A, 0, 0, 0},
    {160, 0x2A, 0, 0, 0},
    {161, 0x36, 0, 0, 0},
    {17, 0x1D, 0, 0, 0},
    {162, 0x1D, 0, 0, 0},
    {18, 0x38, 0, 0, 0},
    {164, 0x38, 0, 0, 0},
    {20, 0x3A, 0, 0, 0},
    {91, 0x5B, 0, 0, 0},
    {93, 0x5D, 0, 0, 0},
    {112, 0x3B, 0, 0, 0},
    {113, 0x3C, 0, 0, 0},
    {114, 0x3D, 0, 0, 0},
    {115, 0x3E, 0, 0, 0},
    {116, 0x3F, 0, 0, 0},
    {117, 0x40, 0, 0, 0},
    {118, 0x41, 0, 0, 0},
    {119, 0x42, 0, 0, 0},
    {120, 0x43, 0, 0, 0},
    {121, 0x44, 0, 0, 0},
    {122, 0x57, 0, 0, 0},
    {123, 0x58, 0, 0, 0},
    {144, 0x45, 0, 0, 0},
    {145, 0x46, 0, 0, 0},
    {36, 0x47, 0, 0, 0},
    {38, 0x48, 0, 0, 0},
    {33, 0x49, 0, 0, 0},
    {37, 0x4B, 0, 0, 0},
    {39, 0x4D, 0, 0, 0},
    {35, 0x4F, 0, 0, 0},
    {40, 0x50, 0, 0, 0},
    {34, 0x51, 0, 0, 0},
    {45, 0x52, 0, 0, 0},
    {46, 0x53, 0, 0, 0},
};

struct DeadKeyPairs {
    wchar_t nDeadKey;
    std::wstring_view strBases;
    std::wstring_view strLetters;
};

constexpr DeadKeyPairs DEAD_KEY_PAIRS[] = {
    {DEAD_ACUTE, L"aeiouyrlscznAEIOUYRLSCZN ", L"áéíóúýŕĺśćźńÁÉÍÓÚÝŔĹŚĆŹŃ\u00B4"},
    {DEAD_CARON, L"cdeltnrszCDELTNRSZ ", L"čďěľťňřšžČĎĚĽŤŇŘŠŽ\u02C7"},
};

constexpr int16_t ALTGR = LAYOUT_CTRL | LAYOUT_ALT;

// Key and modifiers among some keys, LAYOUT_NO_KEY when none of them types it.
int16_t FindAmong(std::span<const LayoutKey> Keys, wchar_t nCharacter) {
    for (const LayoutKey& Key : Keys) {
        if (nCharacter == Key.nPlain) return Key.nVk;
        if (nCharacter == Key.nShift) return static_cast<int16_t>(Key.nVk | LAYOUT_SHIFT);
        if (nCharacter == Key.nAltGr) return static_cast<int16_t>(Key.nVk | ALTGR);
    }
    return LAYOUT_NO_KEY;
}

uint8_t AnsiOf(wchar_t nCharacter) {
    return static_cast<uint8_t>(ToAnsi(std::wstring(1, nCharacter)).front());
}

}  // namespace

std::span<const LayoutKey> MapKeys() {
    return MAP_KEYS;
}

std::span<const LayoutKey> CommonKeys() {
    return COMMON_KEYS;
}

const LayoutKey* KeyOfVk(std::span<const LayoutKey> Keys, uint32_t nVk) {
    for (const std::span<const LayoutKey> Some : {Keys, CommonKeys()}) {
        const auto Found = std::ranges::find(Some, nVk, &LayoutKey::nVk);
        if (Found != Some.end()) return &*Found;
    }
    return nullptr;
}

const LayoutKey* KeyOfScan(std::span<const LayoutKey> Keys, uint32_t nScan) {
    const uint32_t nSent = nScan & 0xFF;  // the keyboard sends the low byte
    if (nSent == 0) return nullptr;
    const auto Typing = std::ranges::find(Keys, nSent, &LayoutKey::nScan);
    if (Typing != Keys.end()) return &*Typing;
    const LayoutKey* pFound = nullptr;
    for (const LayoutKey& Key : COMMON_KEYS) {
        // Of a modifier's two codes the sided one, which stands later, is the key itself.
        if (Key.nScan == nSent) pFound = &Key;
    }
    return pFound;
}

wchar_t Compose(wchar_t nDeadKey, wchar_t nBase) {
    for (const DeadKeyPairs& Pairs : DEAD_KEY_PAIRS) {
        const auto nAt = Pairs.strBases.find(nBase);
        if (Pairs.nDeadKey == nDeadKey && nAt != std::wstring_view::npos) {
            return Pairs.strLetters[nAt];
        }
    }
    return 0;
}

wchar_t InCapsLock(wchar_t nTyped, bool bShift) {
    const std::wstring strTyped(1, nTyped);
    return (bShift ? ToLower(strTyped) : ToUpper(strTyped)).front();
}

int16_t FindKey(std::span<const LayoutKey> Keys, wchar_t nCharacter) {
    if (nCharacter == 0) return LAYOUT_NO_KEY;
    const int16_t nFound = FindAmong(Keys, nCharacter);
    return nFound != LAYOUT_NO_KEY ? nFound : FindAmong(COMMON_KEYS, nCharacter);
}

int16_t MapKeyOf(wchar_t nCharacter) {
    return FindKey(MAP_KEYS, nCharacter);
}

uint32_t MapScanOf(wchar_t nCharacter) {
    constexpr uint32_t NO_SCAN = 0xFFFFFFFF;
    const int16_t nKey = MapKeyOf(nCharacter);
    if (nKey == LAYOUT_NO_KEY) return NO_SCAN;
    const LayoutKey* pKey = KeyOfVk(MAP_KEYS, static_cast<uint32_t>(nKey & 0xFF));
    return static_cast<uint32_t>(pKey->nScan) | (static_cast<uint32_t>(nKey >> 8) << 16);
}

uint32_t MapCodeOf(uint32_t nCode, uint32_t nMapType) {
    constexpr uint32_t DEAD_KEY_BIT = 0x80000000;
    const LayoutKey* pKey = KeyOfVk(MAP_KEYS, nCode);
    if (pKey == nullptr) return 0;
    if (nMapType == MAP_VK_TO_SCAN) return pKey->nScan;
    if (nMapType != MAP_VK_TO_CHARACTER || pKey->nPlain == 0) return 0;
    if (IsDeadKey(pKey->nPlain)) return DEAD_KEY_BIT | static_cast<uint32_t>(pKey->nPlain);
    return AnsiOf(InCapsLock(pKey->nPlain, false));
}

int32_t MapCharacterOf(uint32_t nVk, const std::array<uint8_t, 256>& KeyState,
                       uint16_t& nCharacter) {
    constexpr uint8_t DOWN = 0x80;
    const LayoutKey* pKey = KeyOfVk(MAP_KEYS, nVk);
    if (pKey == nullptr) return 0;
    const bool bShift = (KeyState[KeyCode::Shift] & DOWN) != 0;
    const wchar_t nTyped = bShift ? pKey->nShift : pKey->nPlain;
    if (nTyped == 0) return 0;
    if (IsDeadKey(nTyped)) return -1;
    nCharacter = AnsiOf(nTyped);
    return 1;
}

}  // namespace taviro::platform
