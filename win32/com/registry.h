// SPDX-License-Identifier: MIT
// Writes and removes what clients find a server by, for 64-bit and 32-bit programs alike.
#pragma once

#include "win32/com/registration.h"

namespace taviro::com {

/// Both return 0 or the system's code of the first failure. A registration that fails half-way
/// leaves nothing behind; unregistering what is not there succeeds.
[[nodiscard]] long Register(RegistrationScope nScope, const Registration& Entries);
[[nodiscard]] long Unregister(RegistrationScope nScope, const Registration& Entries);

}  // namespace taviro::com
