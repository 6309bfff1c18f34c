// SPDX-License-Identifier: MIT
// The real windows of the dialogs, and messages to the user. They show what the forms hold and
// report what the user does; they decide nothing.
#pragma once

#include <string>

#include "forms/form.h"

namespace taviro::platform {

/// Binds a dialog's form to a window both ways, from now until the program ends: the window is made
/// from the layout of the form's name when the form is first shown, destroyed when the form is
/// unloaded, and only hidden while the form is hidden. Timers of the form tick while it is loaded.
void AttachDialog(forms::Form& Form);

/// Unbinds every dialog; windows that are still there go.
void DetachDialogs();

/// Shows a text with the information sign and one OK button, until the user has confirmed it.
void ShowInformation(const std::wstring& strText, const std::wstring& strTitle);

}  // namespace taviro::platform
