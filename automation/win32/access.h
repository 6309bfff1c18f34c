// SPDX-License-Identifier: MIT
// Who may call into the program: the user who runs it and the system itself, both from this
// computer only.
#pragma once

namespace taviro::automation {

/// Closes the program to everybody else. To be called once, before the first object of another
/// program is used. Returns false when the system refuses; then nothing must be offered.
bool RestrictAccess();

}  // namespace taviro::automation
