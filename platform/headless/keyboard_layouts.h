// SPDX-License-Identifier: MIT
// The keyboard layouts that the virtual desktop has, under the handles that Windows gives them.
#pragma once

#include <cstdint>
#include <span>

#include "platform/front_layout.h"
#include "platform/map_keyboard.h"

namespace taviro::platform::headless {

inline constexpr LayoutHandle CZECH_LAYOUT = 0x04050405;
inline constexpr LayoutHandle US_LAYOUT = 0x04090409;
inline constexpr LayoutHandle RUSSIAN_LAYOUT = 0x04190419;

/// The keys that type characters on a layout; of an unknown one the Czech ones.
std::span<const LayoutKey> KeysOfLayout(LayoutHandle hLayout);

}  // namespace taviro::platform::headless
