// SPDX-License-Identifier: MIT
// Mouse clicks as input events.
#pragma once

#include <cstdint>

namespace taviro {

/// Moves the pointer to a screen pixel and clicks there. The mouse acceleration is off meanwhile,
/// so that the move lands exactly, and restored afterwards. When the distance does not fit 32 bits
/// nothing is clicked.
void MouseClickAt(int32_t nX, int32_t nY, bool bRightButton);

}  // namespace taviro
