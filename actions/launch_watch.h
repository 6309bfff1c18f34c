// SPDX-License-Identifier: MIT
// After a launch: the system may open a program's window behind the one in front, because whoever
// started it has neither the foreground nor the last input. Who cannot reach for a mouse would not
// find it there; so it is brought to the front, unless the user has gone on to something else.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/windows_and_processes.h"

namespace taviro {

struct LaunchWatchState {
    bool bWaits = false;  ///< for the window of what was launched
    uint32_t nSince = 0;  ///< TickCount of the launch
    uint32_t nLastInput = 0;
    platform::WindowHandle hInFront = 0;
    std::vector<platform::WindowHandle> Known;  ///< windows that were there before
    platform::WindowHandle hBehind = 0;         ///< a new one, seen behind
    uint32_t nBehindSince = 0;
};
inline LaunchWatchState LaunchWatch;

/// To be called right before a launch. Does nothing unless comfort.ini asks for it.
void NoteLaunch();
/// To be called on every tick.
void CheckLaunch();
/// The user has done something else, or the launch has failed.
void ForgetLaunch();

}  // namespace taviro
