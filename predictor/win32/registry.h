// SPDX-License-Identifier: MIT
// Writes and removes what clients find the server by, for 64-bit and 32-bit programs alike.
#pragma once

#include "predictor/order.h"

namespace taviro::predictor {

/// Both return 0 or the system's code of the first failure. A registration that fails half-way
/// leaves nothing behind; unregistering what is not there succeeds.
[[nodiscard]] long RegisterServer(Scope nScope);
[[nodiscard]] long UnregisterServer(Scope nScope);

}  // namespace taviro::predictor
