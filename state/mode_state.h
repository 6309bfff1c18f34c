// SPDX-License-Identifier: MIT
// The operating mode. At most one flag is set; none, as at the start, counts as selection.
#pragma once

namespace taviro {

enum class Mode { Select, Scan, Arrow, Application };

struct ModeState {
    bool bSelectMode = false;
    bool bScanMode = false;
    bool bArrowMode = false;
    bool bAppMode = false;
    bool bListMode = false;        ///< the choice list is open; overrides the modes
    bool bAutoRepeatMode = false;  ///< a held tilt is being repeated

    /// Clears the four modes: it counts as selection until one is set.
    void Clear() { bSelectMode = bScanMode = bArrowMode = bAppMode = false; }

    /// Sets one flag and clears the other three.
    void Set(Mode nMode) {
        bSelectMode = nMode == Mode::Select;
        bScanMode = nMode == Mode::Scan;
        bArrowMode = nMode == Mode::Arrow;
        bAppMode = nMode == Mode::Application;
    }
};
inline ModeState Modes;

}  // namespace taviro
