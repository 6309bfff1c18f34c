// SPDX-License-Identifier: MIT
// Whether the window in front may be driven at all. The system swallows what a program sends to one
// with greater rights and says nothing, so the person would try in vain; therefore it is said and
// shown when such a window comes to the front. A rule of comfort.ini; without it nothing is asked.
#pragma once

#include "platform/windows_and_processes.h"

namespace taviro {

struct WindowRightsState {
    platform::WindowHandle hSeen = 0;  ///< window in front at the last check
    bool bShown = false;               ///< the status line says that it may not be driven
};
inline WindowRightsState WindowRights;

/// Looks at the window in front; says so when another one came that may not be driven.
void CheckWindowRights();

}  // namespace taviro
