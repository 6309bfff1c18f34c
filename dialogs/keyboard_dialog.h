// SPDX-License-Identifier: MIT
// Dialogs in which someone types: while one of them is the active window, or a message stands above
// it, the keyboard hook passes every key.
#pragma once

#include <string>

#include "forms/form.h"

namespace taviro {

/// Tells the keyboard hook, from now on, whenever the form is active and whenever it is not.
void TakeKeyboard(forms::Form& Form);

/// Shows a message under the form's caption and returns when the user has confirmed it.
void TellUser(const forms::Form& Form, const std::wstring& strText);

}  // namespace taviro
