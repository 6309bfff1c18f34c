// SPDX-License-Identifier: MIT
// Who may call into a program that offers objects: the user who runs it and the system itself, both
// from this computer only.
#pragma once

namespace taviro::com {

/// Closes the program to everybody else. To be called once, before the first object of another
/// program is used. Returns false when the system refuses; then nothing must be offered.
[[nodiscard]] bool RestrictAccess();

}  // namespace taviro::com
