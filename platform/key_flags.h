// SPDX-License-Identifier: MIT
// What the layers of every system add to the flags of a key before they send it.
#pragma once

#include <cstdint>

#include "platform/keys.h"
#include "vocabulary/key_code.h"

namespace taviro::platform {

/// The key is not that of the number pad. Callers never set it.
inline constexpr uint32_t KEY_FLAG_EXTENDED = 1;

/// The record is the character whose code stands in place of the scan code. Callers never set it.
inline constexpr uint32_t KEY_FLAG_UNICODE = 4;

/// The flags as the system must get them. A key without the mark is the number pad's to it: while
/// NumLock is on it lifts Shift around such a key, so that a shifted arrow would not select.
constexpr uint32_t FlagsForSystem(int32_t nVk, uint32_t dwFlags) {
    return IsAlsoOnNumberPad(nVk) ? dwFlags | KEY_FLAG_EXTENDED : dwFlags;
}

}  // namespace taviro::platform
