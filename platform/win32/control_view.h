// SPDX-License-Identifier: MIT
// One control of a dialog on its real window: the model's value is shown, the user's act is handed
// to the model.
#pragma once

#include <windows.h>

#include "forms/dialog_controls.h"

namespace taviro::platform::win32 {

/// Shows all that the model holds; a caption that the model leaves empty stays that of the layout.
void PushControl(HWND hDialog, const forms::Control& Shown);

/// Shows what changed about a control.
void PushChange(HWND hDialog, const forms::Control& Changed, forms::Aspect nAspect);

/// Takes over where the layout has put a control, in pixels within the dialog.
void PullGeometry(HWND hDialog, forms::Control& Placed);

/// Whether a control's number in messages is that of this model; option groups have several.
bool HasId(const forms::Control& Model, int nId);

/// A notification of the control's window: nId is the control's number, nCode what happened.
void OnNotification(HWND hDialog, forms::Control& Model, int nId, WORD nCode);

/// The user moves a bar; nRequest is what the system's message says.
void OnScroll(HWND hDialog, forms::ScrollBar& Bar, WORD nRequest);

}  // namespace taviro::platform::win32
