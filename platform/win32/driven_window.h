// SPDX-License-Identifier: MIT
// The one that main window, dialogs and messages share.
#pragma once

#include "platform/driven_window.h"

namespace taviro::platform::win32 {

inline DrivenWindow Driven;

}  // namespace taviro::platform::win32
