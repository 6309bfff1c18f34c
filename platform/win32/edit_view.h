// SPDX-License-Identifier: MIT
// A text box that refuses a character before it gets in, so that caret, marked part and undo stay.
#pragma once

#include <windows.h>

#include "forms/control.h"

namespace taviro::platform::win32 {

/// Asks the model about all that the user types or pastes into the box, from now until its window
/// goes. The model must live as long.
void WatchInsertions(HWND hEdit, forms::TextBox& Box);

}  // namespace taviro::platform::win32
