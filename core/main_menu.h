// SPDX-License-Identifier: MIT
// The main window's menu, and the public operations of the main window that belong to it.
#pragma once

#include "forms/form.h"

namespace taviro {

/// Binds the menu's entries to what they do, and the dialogs to their windows.
void BindMenu();

void UnloadForm(forms::Form& Form);

/// Opens the help page in the user's browser.
void OpenHelp();

/// Types the letter A, for trying whether keys arrive.
void SendTestKey();

}  // namespace taviro
