// SPDX-License-Identifier: MIT
// All dialogs, for what is done to each of them.
#pragma once

namespace taviro {

/// Makes every dialog anew: the state of a program that has not started.
void MakeDialogsAnew();

/// Binds every dialog's form to its window.
void AttachDialogs();

}  // namespace taviro
