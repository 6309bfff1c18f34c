// SPDX-License-Identifier: MIT
// Gives the program a fresh start inside one process: for tests, benchmarks and the simulator.
#pragma once

namespace taviro {

/// Assigns every module's state afresh and binds the main form. The desktop behind the platform is
/// not touched.
void ResetProgram();

}  // namespace taviro
