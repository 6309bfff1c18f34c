// SPDX-License-Identifier: MIT
// Which application is in front, what it is called, and the map that follows it.
#pragma once

#include <cstdint>
#include <string>

#include "platform/windows_and_processes.h"

namespace taviro {

/// The active window of the program in front; 0 when there is none.
platform::WindowHandle GetActiveWindowHandle();

/// Name of a process: file name of its executable in upper case, "NOTEPAD.EXE"; empty when the
/// process is not found.
std::wstring GetProcessName(uint32_t nProcess);

/// Follows the application in front: when it changed (or bForce), stores the cell of the outgoing
/// one and shows the new one's map, or the common map when it has none.
void CheckForegroundApp(bool bForce);

/// Forgets the window and process of the last check, so that the next one looks afresh.
void ForgetForegroundApp();

/// Brings a window to the front even from the background.
void ForceForeground(platform::WindowHandle hWindow);

}  // namespace taviro
