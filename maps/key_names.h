// SPDX-License-Identifier: MIT
// The keys that an assistant can pick by name, in the order of the pick lists.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace taviro {

struct KeyName {
    std::wstring Name;  ///< as the user sees it
    int32_t Code = 0;   ///< key code without modifiers
};

inline constexpr int32_t KEY_NAME_COUNT = 101;
inline std::array<KeyName, KEY_NAME_COUNT> KeyTable;

/// Fills the table. Called once by start-up.
void InitKeyTable();

}  // namespace taviro
