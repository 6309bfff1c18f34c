// SPDX-License-Identifier: MIT
// Who may call the server: the user who runs it and the system itself, both from this computer
// only.
#pragma once

namespace taviro::predictor {

/// Closes the server to everybody else. To be called once, before anything is offered. Returns
/// false when the system refuses; then nothing must be offered.
[[nodiscard]] bool RestrictAccess();

}  // namespace taviro::predictor
