// SPDX-License-Identifier: MIT
// Carries out an order to register or unregister the automation object.
#pragma once

#include "automation/command_line.h"

namespace taviro::automation {

/// Returns the program's exit code: 0, or 1 when the order failed. The user is told why, on the
/// console where there is one. A registration that fails half-way leaves nothing behind.
int CarryOut(const StartOrder& Order);

}  // namespace taviro::automation
