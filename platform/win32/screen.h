// SPDX-License-Identifier: MIT
// The resolution of the screen and its monitors, and fonts made for them.
#pragma once

#include <windows.h>

#include <cstdint>

#include "forms/control.h"
#include "platform/scale.h"
#include "platform/win32/handles.h"

namespace taviro::platform::win32 {

/// The scale of the monitor on which a window stands.
Scale ScaleOf(HWND hWindow);

/// That of the main window's, which keeps it: layouts are shown by it.
inline Scale MainWindowScale;

/// Dots per logical inch of the screen as the system counts its own fonts; 96 when it does not say.
int32_t SystemDpi();

/// A system metric in pixels of a layout.
int32_t LayoutMetric(int nIndex);

/// A font object of the system for a control's font on a monitor of this scale; null when the
/// system refuses.
UniqueFont MakeScreenFont(const forms::Font& Font, Scale Monitor);

}  // namespace taviro::platform::win32
