// SPDX-License-Identifier: MIT
// How large a monitor shows what layouts and settings count in pixels: these are pixels at 96 dots
// per inch, and on a monitor with more dots each takes more of them. What is laid out stays the
// same on every monitor; only what is shown is scaled.
#pragma once

#include <cstdint>

namespace taviro::platform {

inline constexpr int32_t LAYOUT_DPI = 96;

struct Scale {
    int32_t nDpi = LAYOUT_DPI;  ///< dots per inch of the monitor; at least 96

    /// A length or edge of a layout in pixels of the monitor, rounded.
    [[nodiscard]] int32_t ToMonitor(int32_t nLayout) const;
    /// The length that ToMonitor shows so, or the nearest.
    [[nodiscard]] int32_t ToLayout(int32_t nMonitor) const;
    /// Which pixel of the layout is shown at a place: between the edges at a and b of a layout lie
    /// exactly the places that are shown between ToMonitor(a) and ToMonitor(b).
    [[nodiscard]] int32_t PlaceInLayout(int32_t nMonitor) const;
    bool operator==(const Scale&) const = default;
};

}  // namespace taviro::platform
