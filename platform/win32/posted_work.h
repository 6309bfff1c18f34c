// SPDX-License-Identifier: MIT
// The window whose messages run posted work. It is no thread message, because the loops of menus,
// dialogs and message boxes lose those.
#pragma once

#include <windows.h>

#include <cstdint>

namespace taviro::platform::win32 {

/// The window; made by the first call, which the program's own thread must make before another
/// thread posts. Null when the system refuses it: posted work then waits for the next call.
HWND PostWindow();

/// Whether an OwnWorkPause exists.
bool IsOwnWorkPaused();

/// Says on the program's thread that a call failed on another one.
void ReportLater(const char* szWhere, uint32_t nCode) noexcept;

}  // namespace taviro::platform::win32
