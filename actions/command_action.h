// SPDX-License-Identifier: MIT
// What a triggered cell or button does: switch mode, press a key, open a choice list or launch a
// program, then move the highlight back if the settings say so. What its code and its command text
// mean stands in vocabulary/.
#pragma once

#include <cstdint>

#include "actions/launching.h"

namespace taviro {

inline constexpr int32_t CELL_UNDER_CURSOR = -1;

/// Carries out the action of a joystick button (0 to 15) or of the cell under the cursor (-1). Any
/// other index, and a cursor outside the grid, has the action of an empty cell: an empty program,
/// which the system turns down, and what follows every action.
void CommandAction(int32_t nIndex);

}  // namespace taviro
