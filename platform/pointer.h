// SPDX-License-Identifier: MIT
// The mouse pointer: where it is, and the acceleration that distorts relative moves.
#pragma once

#include <array>
#include <cstdint>

namespace taviro::platform {

/// A point on the screen in pixels.
struct ScreenPoint {
    int32_t nX = 0;
    int32_t nY = 0;
    bool operator==(const ScreenPoint&) const = default;
};

/// Where the pointer is. Returns false, and leaves Point alone, when the system does not say.
[[nodiscard]] bool GetPointer(ScreenPoint& Point);

/// Moves the pointer. Returns false on failure.
[[nodiscard]] bool SetPointer(ScreenPoint Point);

/// The two thresholds and the acceleration (0 off) of the mouse. The getter returns false, and
/// leaves the triple alone, on failure; the setter returns false on failure.
[[nodiscard]] bool GetMouseAcceleration(std::array<int32_t, 3>& Triple);
[[nodiscard]] bool SetMouseAcceleration(const std::array<int32_t, 3>& Triple);

}  // namespace taviro::platform
