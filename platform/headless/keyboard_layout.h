// SPDX-License-Identifier: MIT
// The virtual desktop's keyboard: a Czech layout as a table of keys. One place answers what a
// character needs, what a key types, and which key a scan code is.
#pragma once

#include <cstdint>
#include <span>

namespace taviro::platform::headless {

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

/// All keys of the layout.
std::span<const LayoutKey> LayoutKeys();

/// The key of a virtual-key or scan code, nullptr when the layout has none.
const LayoutKey* KeyOfVk(uint32_t nVk);
const LayoutKey* KeyOfScan(uint32_t nScan);

/// The letter that a dead key and a base letter form, 0 when they form none.
wchar_t Compose(wchar_t nDeadKey, wchar_t nBase);

}  // namespace taviro::platform::headless
