// SPDX-License-Identifier: MIT
// The screen's resolution and fonts made for it.
#pragma once

#include <windows.h>

#include <cstdint>

#include "forms/control.h"
#include "platform/win32/handles.h"

namespace taviro::platform::win32 {

/// A device capability of the screen (LOGPIXELSX and the like); 96 when the system does not say.
int32_t ScreenCapability(int nIndex);

/// A font object of the system for a control's font; null when the system refuses.
UniqueFont MakeScreenFont(const forms::Font& Font);

}  // namespace taviro::platform::win32
