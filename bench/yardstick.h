// SPDX-License-Identifier: MIT
// What the machine can do at the moment, measured in the same run: budgets are multiples of it, so
// that they say the same on a slow machine and on a fast one.
#pragma once

namespace taviro::bench {

/// Microseconds of processor time of looking one word up among many by halving: comparing texts
/// that lie apart in memory, as the program's own work mostly is. The least of several rounds.
[[nodiscard]] double Yardstick();

/// Microseconds of processor time that this thread has used.
[[nodiscard]] double ThreadMicroseconds();

}  // namespace taviro::bench
