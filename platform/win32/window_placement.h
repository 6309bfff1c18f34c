// SPDX-License-Identifier: MIT
// Where the main window stands and how large it is. It starts at the top right corner of the work
// area, later keeps its place, and is shifted only as far as needed to stay on the screen.
#pragma once

#include <windows.h>

#include "forms/form.h"

namespace taviro::platform::win32 {

/// Gives the window the size that the form asks for, so that the client area is exactly what its
/// layout counted on, however thick the system draws frames and however many lines the menu takes.
/// Shifts the window where it would leave the screen.
void FitWindowToForm(HWND hWindow, const forms::Form& Form);

/// Moves the window to the corner where it starts.
void PlaceAtStart(HWND hWindow);

/// Moves the window to the middle of the work area of its monitor, which is its owner's.
void CentreOnWorkArea(HWND hWindow);

/// Shifts the window back into the work area of its monitor.
void KeepOnScreen(HWND hWindow);

/// The inner size in pixels of the layout that the form asks for; in a direction that it has not
/// laid out yet, the present one.
SIZE WantedInnerSize(const forms::Form& Form, SIZE Present);

/// Tells the form the inner size that its window really has, in the monitor's pixels, after the
/// user's or the system's act. A later layout then finds that its own size is another one and asks
/// for it again.
void TellInnerSize(forms::Form& Form, SIZE Inner);

}  // namespace taviro::platform::win32
