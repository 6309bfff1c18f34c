// SPDX-License-Identifier: MIT
// The keyboard layout of the program in front. Every thread of the system has a layout of its own,
// and the user may have switched that of one program only, so it is asked for each key anew. None
// of these questions changes anything: a dead key that waits for its letter goes on waiting.
#pragma once

#include <cstdint>

namespace taviro::platform {

/// The system's handle of a layout: its high word names the layout, its low word the language.
using LayoutHandle = uintptr_t;

/// Whether it is the one that maps are written for (map_keyboard.h).
constexpr bool IsLayoutOfMaps(LayoutHandle hLayout) {
    constexpr LayoutHandle CZECH_QWERTZ = 0x0405;
    return ((hLayout >> 16) & 0xFFFF) == CZECH_QWERTZ;
}

/// The layout of the thread whose window has the focus; the program's own when there is none.
[[nodiscard]] LayoutHandle LayoutInFront();

/// Key and modifiers of a character on a layout, in the form of VkKeyScanAnsi (keys.h);
/// LAYOUT_NO_KEY when no key types it.
[[nodiscard]] int16_t KeyOnLayout(LayoutHandle hLayout, wchar_t nCharacter);

/// The virtual key at a scan code of a layout, and the scan code of a virtual key; 0 for none.
[[nodiscard]] uint32_t VkAtScan(LayoutHandle hLayout, uint32_t nScan);
[[nodiscard]] uint32_t ScanOnLayout(LayoutHandle hLayout, uint32_t nVk);

[[nodiscard]] bool IsCapsLockOn();

}  // namespace taviro::platform
