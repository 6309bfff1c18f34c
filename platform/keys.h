// SPDX-License-Identifier: MIT
// Synthetic keyboard and mouse input, and what the keyboard that maps are written for says of
// characters and keys (map_keyboard.h). Callers decide every record and its order. Where the layout
// in front would type something else, the layers send the character itself (layout_translation.h).
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <variant>

namespace taviro::platform {

// Bits of the layout's answer for a character (VkKeyScanAnsi): what its key needs beside it.
inline constexpr int32_t LAYOUT_SHIFT = 0x100;
inline constexpr int32_t LAYOUT_CTRL = 0x200;
inline constexpr int32_t LAYOUT_ALT = 0x400;
inline constexpr int32_t LAYOUT_NO_KEY = -1;

// Translations of MapVirtualKeyCode.
inline constexpr uint32_t MAP_VK_TO_SCAN = 0;
inline constexpr uint32_t MAP_VK_TO_CHARACTER = 2;

inline constexpr uint32_t KEY_FLAG_DOWN = 0;
inline constexpr uint32_t KEY_FLAG_UP = 2;
inline constexpr uint32_t KEY_FLAG_SCANCODE = 8;

/// A keyboard record of SendInput. Either wVk or wScan (with KEY_FLAG_SCANCODE) names the key.
struct KeyRecord {
    uint16_t wVk = 0;
    uint16_t wScan = 0;
    uint32_t dwFlags = 0;
    uint32_t nTime = 0;
    uint32_t dwExtraInfo = 0;
    bool operator==(const KeyRecord&) const = default;
};

inline constexpr uint32_t MOUSE_FLAG_MOVE = 1;
inline constexpr uint32_t MOUSE_FLAG_LEFTDOWN = 2;
inline constexpr uint32_t MOUSE_FLAG_LEFTUP = 4;
inline constexpr uint32_t MOUSE_FLAG_RIGHTDOWN = 8;
inline constexpr uint32_t MOUSE_FLAG_RIGHTUP = 16;

/// A mouse record of SendInput; nDx, nDy are a relative movement in pixels.
struct MouseRecord {
    int32_t nDx = 0;
    int32_t nDy = 0;
    uint32_t nMouseData = 0;
    uint32_t dwFlags = 0;
    uint32_t nTime = 0;
    uint32_t dwExtraInfo = 0;
    bool operator==(const MouseRecord&) const = default;
};

using InputRecord = std::variant<KeyRecord, MouseRecord>;

/// Inserts the records into the system's input in one call, nothing in between. Returns how many
/// the system took; fewer than given means that another program blocks input, and a key whose "up"
/// was not taken stays down for the user.
[[nodiscard]] uint32_t SendInputRecords(std::span<const InputRecord> Records);

/// Releases every key and mouse button that was pressed by these calls and not released, because
/// the system did not take the release: nothing where there is none. What it refuses again stays
/// for the next call.
void ReleaseHeldInput();

/// The older single-event call: virtual key, scan code, flags, extra information.
void KeybdEvent(uint8_t nVk, uint8_t nScan, uint32_t dwFlags, uint32_t dwExtraInfo);

/// Key and modifiers of a Windows-1250 character: low byte the virtual key, 0x100 Shift, 0x200
/// Ctrl, 0x400 Alt; -1 when no key types it.
[[nodiscard]] int16_t VkKeyScanAnsi(uint8_t nCharacter);

/// Scan code (low word) and modifiers (high word) of an OEM character; -1 when there is none.
[[nodiscard]] uint32_t OemKeyScanCode(uint8_t nOemCharacter);

/// A Windows-1250 character in the system's OEM code page.
[[nodiscard]] uint8_t CharToOemAnsi(uint8_t nCharacter);

/// As the system's MapVirtualKey: nMapType 0 virtual key to scan code, 2 virtual key to character.
/// 0 when there is no translation.
[[nodiscard]] uint32_t MapVirtualKeyCode(uint32_t nCode, uint32_t nMapType);

/// The character (Windows-1250) that virtual key nVk gives with the given state of the 256 keys.
/// Returns the system's count: 1 a character, 0 none, negative a dead key. The system is not asked:
/// that would disturb a dead key that waits for its letter, in whatever program.
[[nodiscard]] int32_t KeyToAnsi(uint32_t nVk, uint32_t nScan,
                                const std::array<uint8_t, 256>& KeyState, uint16_t& nCharacter);

}  // namespace taviro::platform
