// SPDX-License-Identifier: MIT
// The values of an axis, 0 to 65535.
#pragma once

#include <cstdint>

namespace taviro {

inline constexpr int32_t AXIS_CENTRE = 32767;

// Beyond these the stick counts as tilted: the middle plus or minus 20000.
inline constexpr int32_t AXIS_HIGH = 52767;
inline constexpr int32_t AXIS_LOW = 12767;

}  // namespace taviro
