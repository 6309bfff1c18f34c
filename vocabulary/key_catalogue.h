// SPDX-License-Identifier: MIT
// The keys that can be picked by name: what the user reads, and the action code without modifiers.
#pragma once

#include <cstdint>
#include <span>

namespace taviro {

struct CatalogueKey {
    const wchar_t* szName;
    int32_t nCode;
};

inline constexpr int32_t KEY_NAME_COUNT = 101;

/// In the order of the pick lists.
std::span<const CatalogueKey, KEY_NAME_COUNT> KeyCatalogue();

}  // namespace taviro
