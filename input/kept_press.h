// SPDX-License-Identifier: MIT
// Keeps a button that was pressed while the program waited and may be up again when it next looks,
// for who wants it (comfort.ini): a short press during a scan step's pause is no less meant than a
// long one.
#pragma once

#include <cstdint>

namespace taviro {

struct KeptPressState {
    int32_t nButton = -1;  ///< the first button that was pressed anew; -1: none
    bool bDown = false;    ///< one was down when the joystick was last looked at
};
inline KeptPressState KeptPress;

/// Looks at the joystick during a wait. The sample is the wait's; the poll takes its own.
void NotePress();

/// Puts the kept press into the sample that the poll has just taken, where no button is down any
/// more. Returns whether there was one: a button that was held before has been let go in between.
bool TakeKeptPress();

}  // namespace taviro
