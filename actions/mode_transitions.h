// SPDX-License-Identifier: MIT
// Every change of the operating mode, in one table: from where, by what, to where, what is
// announced and logged, what stops and what is remembered. The flags of ModeState are written here
// alone; the open list, which covers the modes, belongs to choice_list.h.
#pragma once

#include "vocabulary/command.h"

namespace taviro {

/// What drives a tick of the joystick: the mode that is on, or the choice list that covers it.
/// Without any mode, as at the start, it is selection.
enum class DrivenBy { Selection, Scan, Arrow, Application, List };
DrivenBy WhatIsDriven();

enum class ModeEvent {
    ModeButton,  ///< the button that goes on to the next mode
    /// A command's mark, which does nothing when its mode is on already; that of the selection
    /// leads away from an application's map all the same.
    SelectionMark,
    ArrowMark,
    ApplicationMark,
    AppMapGone,  ///< in application mode: the map of the program in front is no longer shown
};

/// Carries out the change that belongs to the event where the program is now; nothing when there is
/// none. Waits for the new mode's sound, while messages run.
void ChangeMode(ModeEvent nEvent);

/// The event of a command's mark. Returns false for a command without one.
bool EventOfMark(ModeMark nMark, ModeEvent& nEvent);

}  // namespace taviro
