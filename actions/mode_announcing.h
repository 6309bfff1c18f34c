// SPDX-License-Identifier: MIT
// The announcements of entering selection and application mode: the mode's sound to its end, then
// the cell on which the cursor stands. Both block, while window messages go on.
#pragma once

namespace taviro {

/// Plays the mode's sound, then the default map's cell at the cursor: its own sound, else speech.
/// Without the mode's sound, speaks "výběr " and the cell.
void EnterSelectMode();

/// The same for application mode, with two differences: the sound that follows is the one named by
/// the status line, and without the mode's sound "aplikace " and the status line are spoken.
void EnterAppMode();

}  // namespace taviro
