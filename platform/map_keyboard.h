// SPDX-License-Identifier: MIT
// The keyboard that maps are written for: Czech QWERTZ as a table of keys. A cell's code means what
// this keyboard types, whatever layout the program in front has; what differs there is put right
// when the key is sent (layout_translation.h). So nobody has to ask the system what a key types,
// which would disturb a dead key that is waiting for its letter.
#pragma once

#include <array>
#include <cstdint>
#include <span>

namespace taviro::platform {

inline constexpr wchar_t DEAD_ACUTE = L'\u00B4';
inline constexpr wchar_t DEAD_CARON = L'\u02C7';

/// One key: its codes and the characters that it types alone, with Shift and with AltGr; 0 none.
struct LayoutKey {
    uint8_t nVk;
    uint8_t nScan;
    wchar_t nPlain;
    wchar_t nShift;
    wchar_t nAltGr;
};

/// The keys that type characters, which differ from layout to layout, and those that are the same
/// on every one: blank, Enter, modifiers, the number pad, keys without a character.
std::span<const LayoutKey> MapKeys();
std::span<const LayoutKey> CommonKeys();

/// The key of a virtual-key or scan code among given keys and the common ones, nullptr for none.
const LayoutKey* KeyOfVk(std::span<const LayoutKey> Keys, uint32_t nVk);
const LayoutKey* KeyOfScan(std::span<const LayoutKey> Keys, uint32_t nScan);

constexpr bool IsDeadKey(wchar_t nCharacter) {
    return nCharacter == DEAD_ACUTE || nCharacter == DEAD_CARON;
}

/// The character that a dead key and the next one form, 0 when they form none.
wchar_t Compose(wchar_t nDeadKey, wchar_t nBase);

/// What a key types while Caps Lock is on.
wchar_t InCapsLock(wchar_t nTyped, bool bShift);

/// Key and modifiers of a character among given keys and the common ones, in the form of
/// VkKeyScanAnsi; LAYOUT_NO_KEY when no single key types it.
int16_t FindKey(std::span<const LayoutKey> Keys, wchar_t nCharacter);

// The contracts of keys.h with the same names, as this keyboard answers them.
int16_t MapKeyOf(wchar_t nCharacter);
uint32_t MapScanOf(wchar_t nCharacter);
uint32_t MapCodeOf(uint32_t nCode, uint32_t nMapType);
int32_t MapCharacterOf(uint32_t nVk, const std::array<uint8_t, 256>& KeyState,
                       uint16_t& nCharacter);

}  // namespace taviro::platform
