// SPDX-License-Identifier: MIT
// The keys that an assistant can pick by name, in the order of the pick lists.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "vocabulary/key_catalogue.h"

namespace taviro {

struct KeyName {
    std::wstring Name;  ///< as the user sees it
    int32_t Code = 0;   ///< key code without modifiers
};

inline std::array<KeyName, KEY_NAME_COUNT> KeyTable;

/// Fills the table. Called once by start-up.
void InitKeyTable();

/// The names of the pick lists, from the first entry to the last before an empty name: a position
/// in the list is an index of the table.
std::vector<std::wstring> KeyNames();

/// Gives the code at a position of the pick list. Returns false, and leaves nCode alone, when the
/// position is outside the table, as without a selection.
bool KeyCodeAt(int32_t nIndex, int32_t& nCode);

/// The first position whose code is this one, -1 when no entry has it.
int32_t KeyIndexOf(int32_t nCode);

}  // namespace taviro
