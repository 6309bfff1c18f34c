// SPDX-License-Identifier: MIT
// Time. The headless desktop runs on a virtual clock, so no rule may read time anywhere else.
#pragma once

#include <cstdint>
#include <string>

namespace taviro::platform {

/// Milliseconds since the system started; wraps after 49 days, so compare differences only.
[[nodiscard]] uint32_t TickCount();

/// Blocks the thread until TickCount has advanced by that much; no window message is processed
/// meanwhile.
void SleepMs(uint32_t nMilliseconds);

/// Local time of day as "hh:mm:ss", 24 hours.
[[nodiscard]] std::wstring TimeOfDayText();

/// Local date and time in the user's general format, for example "16.11.2026 1:59:52".
[[nodiscard]] std::wstring DateTimeText();

}  // namespace taviro::platform
