// SPDX-License-Identifier: MIT
// What start-up finds out once and several subsystems read, and the flags with which dialogs hold
// the input back.
#pragma once

#include <cstdint>
#include <string>

#include "state/published.h"

namespace taviro {

struct ProgramState {
    std::wstring strDataPath;  ///< per-user data folder, no trailing backslash
    bool bJoystickPresent = false;

    // Copies of the cell settings for the map's layout: pixels, and points for the text.
    int32_t nCellTextSize{};
    int32_t nCellWidth{};
    int32_t nCellHeight{};

    bool bPauseJoystick = false;  ///< the poll loop idles: a dialog reads the joystick itself
    bool bConfigOpen = false;     ///< the cell editor is open
    // Read on the keyboard hook's thread, which passes everything while one of them is set.
    Published<bool> bDialogActive = false;     ///< someone types in a dialog
    Published<bool> bMessageShown = false;     ///< a message waits for its key
    Published<bool> bJoystickAnswers = false;  ///< when a joystick was last asked
};
inline ProgramState Program;

/// The foreground application as far as maps follow it.
struct ForegroundState {
    std::wstring strCurrentAppName;  ///< empty while the common map is in use
    std::wstring AppMapName;         ///< application whose map is loaded
    bool bAppMapShown = false;       ///< the application map is on screen, not the common one
    uintptr_t hWindow = 0;           ///< window seen at the last check
    uint32_t nProcess = 0;           ///< process seen at the last check
};
inline ForegroundState Foreground;

}  // namespace taviro
