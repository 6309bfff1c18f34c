// SPDX-License-Identifier: MIT
// The real window of the main form. It shows what the model holds and reports what the user does;
// it decides nothing.
#pragma once

#include "forms/main_form.h"
#include "platform/windows_and_processes.h"

namespace taviro::platform {

/// Makes the window, hidden, and binds it to the form both ways: a change of the model repaints, a
/// user's act runs the form's handlers, the form's timers tick while enabled. A tick is due its
/// interval after the handler of the last one ended. Returns false when the system refuses.
[[nodiscard]] bool OpenMainWindow(forms::MainForm& Form);

/// Destroys the window and its timers; nothing happens when there is none.
void CloseMainWindow();

/// Its handle, 0 when there is no window.
[[nodiscard]] WindowHandle MainWindowHandle();

}  // namespace taviro::platform
